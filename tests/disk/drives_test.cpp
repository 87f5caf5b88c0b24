// The drives and the current directories of this machine, which no row may know.
#include <gtest/gtest.h>

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

TEST(ThisMachinesDrives, CurrentDirectories) {
    const std::filesystem::path before = std::filesystem::current_path();
    Workplace place;
    std::filesystem::create_directory(place.native("sub"));
    std::filesystem::current_path(place.native());
    std::string here = place.path();
    EXPECT_EQ(currentDirectory(), here);
    EXPECT_EQ(lib().SetDrive(here.c_str()), 1);
    for (char letter : std::string(lib().DriveStr(Dest(27)))) {
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
