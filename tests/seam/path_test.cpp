// Full paths, chains of directories, new files under temporary names, and double-byte paths, on a made-up disk.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using Names = std::vector<std::string>;

class PathSeam : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};
};

TEST_F(PathSeam, FullPaths) {
    fake.disk.directory = "C:\\work";
    std::string longest = "C:\\" + std::string(256, 'x');
    struct Row {
        std::string path;
        std::string full;
    };
    const Row rows[] = {{"a.b", "C:\\work\\a.b"}, {"\\x/..\\y", "C:\\y"}, {"C:", "C:\\work"}, {"Q:\\x", ""}, {"", ""},
                        {longest, longest},       {longest + "x", ""}};
    for (const Row& row : rows) {
        Dest dest(260);
        EXPECT_EQ(lib().TrueName(row.path.c_str(), dest), dest.get());
        EXPECT_EQ(dest.text(), row.full) << row.path;
        EXPECT_EQ(lib().strtruename(row.path.c_str(), dest), row.full.size());
    }
    EXPECT_EQ(lib().TrueName("a", nullptr), nullptr);
    Dest dest(1);
    EXPECT_STREQ(lib().TrueName(nullptr, dest), "");
}

TEST_F(PathSeam, MakesWhatIsMissingOnTheWay) {
    fake.disk.directory = "C:\\work";
    fake.disk.putDirectory("C:\\work");
    fake.disk.put("C:\\file");
    const std::string longest(260, ' ');
    struct Row {
        std::string list;
        int result;
        Names made;
    };
    // Of the paths that the disk lists, the last name is in the case in which it was made.
    const Row rows[] = {
        {"C:\\a\\b\\c", 1, {"C:\\a\\", "C:\\A\\b\\", "C:\\A\\B\\c\\"}},
        {"C:\\a\\b\\c", 1, {}},
        {"a/b\\", 1, {"C:\\WORK\\a\\", "C:\\WORK\\A\\b\\"}},
        {"C:x", 1, {"C:\\WORK\\x\\"}},
        {" C:\\d \t,; C:\\e e ;", 1, {"C:\\d \t\\", "C:\\e e\\"}},
        {"C:\\\\f\\\\g", 1, {"C:\\f\\", "C:\\F\\g\\"}},
        {"C:\\", 0, {}},
        {"C:\\h;C:\\;\\", 1, {"C:\\h\\"}},
        {"C:\\file", 0, {}},
        {"C:\\file\\x;C:\\never", 0, {}},
        {"C:\\i;C:\\file;C:\\never", 0, {"C:\\i\\"}},
        {"\\\\server\\share\\dir", 0, {}},  // neither the server nor the share is made, and dir cannot be
        {"", 0, {}},
        {";,;", 0, {}},
        {longest + ";C:\\j", 1, {"C:\\j\\"}},
        {longest + " ", 0, {}},
    };
    for (const Row& row : rows) {
        Names before = fake.disk.names();
        fake.process.errorMode = 0;
        EXPECT_EQ(lib().MakePath(row.list.c_str()), row.result) << row.list;
        EXPECT_EQ(fake.process.errorMode, 0u) << row.list;
        Names made;
        for (const std::string& name : fake.disk.names()) {
            if (std::find(before.begin(), before.end(), name) == before.end()) made.push_back(name);
        }
        EXPECT_EQ(made, row.made) << row.list;
    }
    EXPECT_EQ(lib().MakePath(nullptr), 0);
    EXPECT_EQ(lib().MakePath("C:\\file"), 0);
    EXPECT_EQ(fake.process.error, platform::kAlreadyExists);
    EXPECT_EQ(lib().MakePath(("C:\\k;" + longest + " ;C:\\never").c_str()), 0);
    EXPECT_TRUE(fake.disk.find("C:\\k"));
    EXPECT_EQ(fake.process.errorMode, platform::kFailSilently) << "kept: an item that is too long leaves it set";
}

TEST_F(PathSeam, MakePathStopsAtEveryFailure) {
    for (int call = 1; call <= 5; ++call) {
        lab::MadeUpDisk& disk = fake.disk;
        disk.fault = {.atCall = disk.calls + call, .code = platform::kDiskFull};
        std::string top = "C:\\t" + std::to_string(call);
        int result = lib().MakePath((top + "\\a").c_str());
        // Looking is repeated by making: only a directory that cannot be made ends the work.
        EXPECT_EQ(result, call == 2 || call == 4 ? 0 : 1) << call;
        EXPECT_EQ(disk.find(top) != nullptr, call != 2) << call;
        EXPECT_EQ(fake.process.errorMode, 0u);
    }
}

TEST_F(PathSeam, OthersMakeTheDirectoryMeanwhile) {
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

TEST_F(PathSeam, NewFilesUnderTemporaryNames) {
    fake.disk.putDirectory("C:\\tmp");
    std::set<std::string> names;
    for (int i = 0; i < 20; ++i) {
        Dest dest(32);
        std::int32_t handle = lib().FUnique("C:\\tmp\\u????.*", 1, dest);
        ASSERT_NE(handle, -1);
        lab::MadeUpDisk::Node* node = fake.disk.find(dest.text());
        ASSERT_TRUE(node) << dest.text();
        EXPECT_EQ(node->attributes & 7, 1u);
        names.insert(dest.text());
        auto* slot = std::find(std::begin(door()->library->handles), std::end(door()->library->handles), handle);
        ASSERT_NE(slot, std::end(door()->library->handles)) << "recorded";
        *slot = kNoHandle;
        EXPECT_TRUE(fake.disk.close(handle));
    }
    EXPECT_EQ(names.size(), 20u);

    // One name that is taken, then one that is free.
    fake.disk.put("C:\\tmp\\taken", "kept");
    Dest dest(32);
    EXPECT_EQ(lib().FUnique("C:\\tmp\\taken", 0, dest), -1);
    EXPECT_STREQ(dest, "");
    fake.disk.find("C:\\tmp\\taken")->attributes = 0;
    EXPECT_EQ(lib().FUnique("C:\\tmp\\taken", 0, dest), -1);
    EXPECT_EQ(fake.disk.find("C:\\tmp\\taken")->data, "kept");
    EXPECT_EQ(lib().FUnique("C:\\nowhere\\*", 0, dest), -1);
    EXPECT_EQ(lib().FUnique("C:\\tmp\\*", 0, nullptr), -1);
    for (int digit = 0; digit < 10; ++digit) {
        if (digit != 3) fake.disk.put("C:\\tmp\\d" + std::to_string(digit));
    }
    std::int32_t handle = -1;
    for (int tries = 0; tries < 10 && handle == -1; ++tries) handle = lib().FUnique("C:\\tmp\\d?", 0, dest);
    EXPECT_NE(handle, -1);
    EXPECT_STREQ(dest, "C:\\tmp\\d3");
    std::fill(std::begin(door()->library->handles), std::end(door()->library->handles), kNoHandle);
}

// 0x81 is a lead byte here; what follows it is half a character, whatever it looks like.
TEST_F(PathSeam, DoubleByteCharacters) {
    fake.locale.leadBytes = "\x81\x5D";
    Dest dest(64);
    EXPECT_STREQ(lib().FParsed("C:\\a\x81\\b\\c", dest), "\\a\x81\\b");
    EXPECT_STREQ(lib().FParsef("C:\\a\x81\\b\x81.c", dest), "a\x81\\b\x81.c");
    EXPECT_STREQ(lib().FParsefx("a.b\x81.", dest), ".b\x81.");
    EXPECT_STREQ(lib().FParsefn("a\x81", dest), "a\x81") << "a lead byte alone at the end";
    EXPECT_STREQ(lib().FMake("", "a\x81\\", "b", "", dest), "a\x81\\\\b");
    EXPECT_STREQ(lib().FMake("", "a\x81\x81\\", "b", "", dest), "a\x81\x81\\b");
    EXPECT_STREQ(lib().FAppendName("x", "C:\\\x81\\", dest), "C:\\\x81\\\\x");
    EXPECT_STREQ(lib().FParsed("]\\x", dest), "]") << "a byte below 0x80 never leads";
    fake.locale.leadBytes = "\x81";
    // The made-up disk knows no double bytes: it looks for the one directory in another.
    EXPECT_EQ(lib().MakePath("C:\\p\x81\\q"), 0);
    EXPECT_EQ(fake.disk.names(), Names{});
}

}  // namespace
}  // namespace vx::test
