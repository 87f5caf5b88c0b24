// Open files, their attributes and time stamps, chains of directories and new files under temporary names, on a made-up
// disk in a zone two hours east of Greenwich: every state, and every call that can fail.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

class HandlesSeam : public testing::Test {
 protected:
    static std::int32_t (&table())[kHandleSlots] { return door()->library->handles; }

    lab::FakePlatform fake{door()};
};

TEST_F(HandlesSeam, ATableOfOpenFiles) {
    fake.disk.put("C:\\f");
    const std::int32_t opened = lib().FOpen("C:\\f", 0);
    const std::int32_t created = lib().FCreate("C:\\g", 0);
    const std::int32_t fresh = lib().FCreatef("C:\\h", 0);
    EXPECT_EQ(std::vector(table(), table() + 4), (std::vector{opened, created, fresh, kNoHandle}));
    fake.disk.unclosable = {created};
    EXPECT_EQ(lib().FClose(created), 0);
    EXPECT_EQ(table()[1], created) << "it is still open";
    EXPECT_EQ(lib().FClose(opened), 1);
    EXPECT_EQ(table()[0], kNoHandle);
    EXPECT_EQ(lib().FClose(opened), 0);
    EXPECT_EQ(lib().FOpen("C:\\f", 0), table()[0]) << "the first free slot";
    EXPECT_EQ(lib().FOpen("C:\\none", 0), -1);
    EXPECT_EQ(lib().FCreate("C:\\none\\f", 0), -1);
    EXPECT_EQ(table()[3], kNoHandle);
}

TEST_F(HandlesSeam, MoreFilesThanSlots) {
    fake.disk.put("C:\\f");
    std::vector<std::int32_t> handles;
    for (int i = 0; i <= kHandleSlots; ++i) handles.push_back(lib().FOpen("C:\\f", 0));
    EXPECT_EQ(std::count(handles.begin(), handles.end(), -1), 0);
    EXPECT_EQ(lib().FClose(handles.back()), 1) << "not recorded, and closed all the same";
    handles.back() = lib().FOpen("C:\\f", 0);
    EXPECT_TRUE(std::equal(std::begin(table()), std::end(table()), handles.begin()));
    fake.disk.closed.clear();
    fake.disk.unclosable = {handles[500]};
    door()->detach();
    EXPECT_EQ(fake.disk.openFiles(), 2u) << "it, and the last";
    handles.pop_back();
    EXPECT_EQ(fake.disk.closed, handles);
}

TEST_F(HandlesSeam, TransfersFallShort) {
    fake.disk.put("C:\\f", "abcdefgh");
    const std::int32_t handle = lib().FOpen("C:\\f", 2);
    const std::string& data = fake.disk.find("C:\\f")->data;
    auto& f = lib();
    auto atNextCall = [&](auto call, bool lasts = false) {
        f.FSeek(handle, 0, 0);
        fake.disk.fault = {.atCall = fake.disk.calls + 1, .lasts = lasts, .fallsShort = true};
        return call();
    };
    Dest dest(9);
    EXPECT_EQ(atNextCall([&] { return f.FRead(handle, dest, 8); }), 4);
    EXPECT_EQ(atNextCall([&] { return f.FReadDword(handle); }), 0xFFFFFFFF);
    EXPECT_EQ(f.FTell(handle), 2) << "what was read is read";
    EXPECT_EQ(atNextCall([&] { return f.FReadWord(handle); }), 65535);
    EXPECT_STREQ(atNextCall([&] { return f.FReadStr(handle, dest, 8); }), "abcd");
    EXPECT_EQ(atNextCall([&] { return f.FWrites(handle, "xyz"); }), 2);
    EXPECT_EQ(atNextCall([&] { return f.FWriteLine(handle, "12345678"); }), 1) << "the end of the line is there";
    EXPECT_EQ(data.substr(0, 6), "1234\r\n");
    EXPECT_EQ(atNextCall([&] { return f.FWriteLine(handle, "12345678"); }, true), 0);
    fake.disk.fault = {};
    fake.disk.capacity = data.size();
    f.FSeek(handle, 0, 2);
    EXPECT_EQ(f.FWriteLine(handle, ""), 0) << "a full disk";
    EXPECT_EQ(fake.process.error, platform::kDiskFull);
}

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

TEST(PathSeam, MakePathStopsAtEveryFailure) {
    lab::FakePlatform fake{door()};
    for (int call = 1; call <= 5; ++call) {
        fake.disk.fault = {.atCall = fake.disk.calls + call, .code = platform::kDiskFull};
        std::string top = "C:\\t" + std::to_string(call);
        // Looking is repeated by making: only a directory that cannot be made ends the work.
        EXPECT_EQ(lib().MakePath((top + "\\a").c_str()), call == 2 || call == 4 ? 0 : 1) << call;
        EXPECT_EQ(fake.disk.find(top) != nullptr, call != 2) << call;
        EXPECT_EQ(fake.process.errorMode, 0u);
    }
}

// As the rows tell of all other calls that may reach for a drive.
TEST(PathSeam, AMoveMakesItsDirectorySilently) {
    lab::FakePlatform fake{door()};
    fake.disk.put("C:\\d\\f");
    std::uint32_t mode = 0;
    fake.disk.onCall = [&] {
        if (!fake.disk.find("C:\\new")) mode = fake.process.errorMode;
    };
    EXPECT_EQ(lib().FMove("C:\\d\\f", "C:\\new", 0), 0);
    EXPECT_EQ(mode, platform::kFailSilently);
    EXPECT_EQ(fake.process.errorMode, 0u);
}

TEST(PathSeam, OthersMakeTheDirectoryMeanwhile) {
    for (int at = 1; at <= 20; ++at) {
        for (bool file : {false, true}) {
            for (bool moves : {false, true}) {
                lab::FakePlatform fresh{door()};
                lab::MadeUpDisk& disk = fresh.disk;
                disk.put("C:\\f", "x");
                disk.onCall = [&] {
                    if (disk.calls != at || disk.find("C:\\a\\b")) return;
                    file ? disk.put("C:\\a\\b") : disk.putDirectory("C:\\a\\b");
                };
                bool made = moves ? lib().FMove("C:\\f", "C:\\a\\b", 0) == 0 : lib().MakePath("C:\\a\\b");
                EXPECT_EQ(made, disk.find("C:\\a\\b")->directory) << at << file << moves;
            }
        }
    }
}

TEST(PathSeam, NewFilesUnderTemporaryNames) {
    lab::FakePlatform fake{door()};
    fake.disk.putDirectory("C:\\tmp");
    // One name alone is free.
    for (char digit : std::string("012456789")) fake.disk.put(std::string("C:\\tmp\\d") + digit);
    Dest dest(32);
    std::int32_t handle = -1;
    for (int tries = 0; tries < 10 && handle == -1; ++tries) handle = lib().FUnique("C:\\tmp\\d?", 0, dest);
    auto& slots = door()->library->handles;
    EXPECT_NE(std::find(std::begin(slots), std::end(slots), handle), std::end(slots)) << "recorded";
    EXPECT_EQ(lib().FClose(handle), 1);
    EXPECT_STREQ(dest, "C:\\tmp\\d3");
}

}  // namespace
}  // namespace vx::test
