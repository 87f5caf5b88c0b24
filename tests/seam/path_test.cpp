// Chains of directories and new files under temporary names, on a made-up disk.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

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
