// Attributes and time stamps of files on a made-up disk, in a zone two hours east of Greenwich.
#include <gtest/gtest.h>

#include "tests/seam/seam.h"

namespace vx::test {
namespace {

constexpr char kName[] = "C:\\LETTER.TXT";
constexpr platform::FileTime kFiner = 1234;  // than local time shows

class FileAttr : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};
    lab::MadeUpDisk::Node* node = &fake.disk.put(kName, "text");

    FileAttr() {
        EXPECT_TRUE(fake.clock.toFileTime({2000, 2, 0, 29, 12, 34, 56, 789}, node->times.written));
        node->times = {11, 22, node->times.written + kFiner};
    }
};

TEST_F(FileAttr, WhatIsFinerThanLocalTimeStays) {
    platform::FileTimes wanted = node->times;
    EXPECT_EQ(lib().FSetDosDate(kName, 2000, 3, 1), 1);
    wanted.written += platform::FileTime{24 * 3600} * 10'000'000;
    EXPECT_EQ(node->times, wanted);
    fake.clock.later = platform::FileTime{3600} * 10'000'000;
    EXPECT_EQ(lib().FSetTime(kName, "00:00:00") + lib().FSetDosDate(kName, 0, 0, 0), 2);
    EXPECT_EQ(node->times, wanted) << "not the other stamp of that local time";
    EXPECT_EQ(fake.disk.openFiles(), 0u);
}

TEST_F(FileAttr, AttributesOfAllKinds) {
    auto& f = lib();
    for (std::uint32_t bits = 0; bits < 64; ++bits) {
        if (bits & 0x18) continue;
        for (std::uint32_t compressed : {0u, 0x800u}) {
            node->attributes = bits | compressed;
            std::int32_t handle = f.FOpen(kName, 0);
            for (int shown : {f.FGetAttr(kName), f.FileAttr(handle)})
                EXPECT_EQ(shown, static_cast<int>(bits | (compressed ? 64 : 0)));
            EXPECT_EQ(f.FChanged(kName), (bits & 32) != 0);
            f.FClose(handle);
        }
        auto expect = [&](int done, std::uint32_t after) {
            EXPECT_EQ(done, 1);
            EXPECT_EQ(node->attributes, after);
            node->attributes = bits;
        };
        node->attributes = bits;
        for (int given : {0, 1, 2, 4, 8, 16, 32, 64, 7, 39, 127, 0x100, -1}) {
            const auto settable = static_cast<std::uint32_t>(given) & 39;
            expect(f.FSetAttr(kName, given, 5), bits | settable);
            expect(f.FSetAttr(kName, given, 0), bits & ~settable);
        }
        expect(f.FProtect(kName), bits | 1);
        expect(f.FUnProtect(kName), bits & ~1u);
        expect(f.FHide(kName), bits | 2);
        expect(f.FUnHide(kName), bits & ~2u);
    }
}

}  // namespace
}  // namespace vx::test
