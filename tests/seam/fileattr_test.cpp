// Attributes and time stamps of files on a made-up disk, in a zone two hours east of Greenwich.
#include <gtest/gtest.h>

#include <functional>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

constexpr char kName[] = "C:\\LETTER.TXT";
constexpr platform::FileTime kFiner = 1234;  // than local time shows
constexpr std::uint32_t kCause = 777;

class FileAttr : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};
    lab::MadeUpDisk::Node* node = &fake.disk.put(kName, "text");

    FileAttr() {
        EXPECT_TRUE(fake.clock.toFileTime({2000, 2, 0, 29, 12, 34, 56, 789}, node->times.written));
        node->times = {11, 22, node->times.written + kFiner};
    }
};

TEST_F(FileAttr, TheLocaleGetsTheDateAndTheTime) {
    Dest text(64);
    std::int32_t handle = lib().FOpen(kName, 0);
    for (bool byName : {true, false}) {
        fake.locale.date = fake.locale.time = {};
        EXPECT_EQ(byName ? lib().FGetDate(kName, text) : lib().FileDate(handle, text), fake.locale.dateText);
        EXPECT_EQ(fake.locale.date, (platform::Moment{2000, 2, 0, 29, 0, 0, 0, 0}));
        EXPECT_EQ(byName ? lib().FGetTime(kName, text) : lib().FileTime(handle, text), fake.locale.timeText);
        const platform::Moment& time = fake.locale.time;
        EXPECT_EQ(std::tuple(time.hour, time.minute, time.second), std::tuple(12, 34, 56));
    }
    EXPECT_EQ(lib().FClose(handle), 1);
}

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

TEST_F(FileAttr, FaultsGiveTheFailureAndItsCause) {
    Dest dest(64);
    struct Row {
        std::function<int()> call;  // 1 when it worked
        int needed;                 // calls that must work
    };
    for (const auto& [call, needed] :
         {Row{[] { return lib().FSetDosDate(kName, 1999, 1, 1); }, 4},
          Row{[] { return lib().FGetJDate(kName) != 0; }, 2},
          Row{[&] { return lib().strfgettime(kName, dest) != 0; }, 2},
          Row{[] { return lib().FGetAttr(kName) != -1; }, 1}, Row{[] { return lib().FHide(kName); }, 2}}) {
        for (int n = 1; n <= 5; ++n) {
            fake.disk.calls = 0;
            fake.disk.fault = {.atCall = n, .code = kCause};
            fake.process.error = 5;
            EXPECT_EQ(call(), n > needed) << n;
            if (n <= needed || fake.disk.calls < n) {
                EXPECT_EQ(fake.process.error, n <= needed ? kCause : 5u) << n;
            }
            EXPECT_EQ(fake.disk.openFiles(), 0u) << n;
        }
    }
}

TEST_F(FileAttr, AttributesOfAllKinds) {
    auto& f = lib();
    for (std::uint32_t bits = 0; bits < 64; ++bits) {
        if (bits & 0x18) continue;
        auto after = [&](int done) {
            EXPECT_EQ(done, 1);
            return std::exchange(node->attributes, bits);
        };
        for (std::uint32_t compressed : {0u, 0x800u}) {
            node->attributes = bits | compressed;
            const int shown = static_cast<int>(bits | (compressed ? 64 : 0));
            std::int32_t handle = f.FOpen(kName, 0);
            EXPECT_EQ(f.FGetAttr(kName), shown);
            EXPECT_EQ(f.FileAttr(handle), shown);
            EXPECT_EQ(f.FChanged(kName), (bits & 32) != 0);
            f.FClose(handle);
        }
        node->attributes = bits;
        for (int given : {0, 1, 2, 4, 8, 16, 32, 64, 7, 39, 127, 0x100, -1}) {
            const auto settable = static_cast<std::uint32_t>(given) & 39;
            EXPECT_EQ(after(f.FSetAttr(kName, given, 5)), bits | settable) << given;
            EXPECT_EQ(after(f.FSetAttr(kName, given, 0)), bits & ~settable) << given;
        }
        EXPECT_EQ(after(f.FProtect(kName)), bits | 1);
        EXPECT_EQ(after(f.FUnProtect(kName)), bits & ~1u);
        EXPECT_EQ(after(f.FHide(kName)), bits | 2);
        EXPECT_EQ(after(f.FUnHide(kName)), bits & ~2u);
    }
}

}  // namespace
}  // namespace vx::test
