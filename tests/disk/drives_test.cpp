// The drives and the current directories of this machine, which no row may know.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "tests/support/library.h"
#include "tests/support/text.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

std::string currentDirectory(const char* drive = "") {
    Dest dest(261);
    return lib().CurDir(drive, dest);
}
std::string letters() {
    Dest dest(27);
    return lib().DriveStr(dest);
}

TEST(ThisMachinesDrives, Lists) {
    std::string drives = letters();
    char current = currentDirectory()[0];
    EXPECT_TRUE(std::is_sorted(drives.begin(), drives.end())) << drives;
    EXPECT_NE(drives.find(current), drives.npos) << drives;
    EXPECT_EQ(lib().DosDrive(""), current - 'A');
    EXPECT_EQ(lib().IsDrive(""), 1);
    EXPECT_EQ(lib().MediaType(""), 1);
    EXPECT_GE(lib().Clusters(""), lib().FreeClusters(""));
    EXPECT_EQ(lib().ClustSize("") % lib().SectorSize(""), 0u);
#if !defined(_WIN32)
    EXPECT_EQ(drives, "C");
    EXPECT_EQ(lib().IsFixed("c:"), 1);
    EXPECT_EQ(lib().DriveType(0), -1);
    EXPECT_EQ(lib().Numfloppy(), 0);
#endif
}

TEST(ThisMachinesDrives, CurrentDirectories) {
    const std::filesystem::path before = std::filesystem::current_path();
    Workplace place;
    std::filesystem::create_directory(place.native("sub"));
    std::filesystem::current_path(place.native());
    std::string here = place.path();
    EXPECT_EQ(currentDirectory(), here);
    EXPECT_EQ(lib().SetDrive(here.c_str()), 1);
    for (char letter : letters()) {
        std::string root = std::string(1, letter) + ":\\";
        if (letter == here[0] || !lib().IsDrive(root.c_str())) continue;
        EXPECT_EQ(lib().ChangeDir(root.c_str()), 1) << root;
        EXPECT_EQ(currentDirectory(), here) << "after " << root;
        EXPECT_EQ(currentDirectory(root.c_str()), root);
    }
    EXPECT_EQ(lib().FChDir("sub", (here + "\\nowhere;" + here).c_str()), 1);
    EXPECT_EQ(currentDirectory(), here + "\\sub");
    EXPECT_EQ(lib().FChDir("missing", here.c_str()), 0);
    std::filesystem::current_path(before);
}

}  // namespace
}  // namespace vx::test
