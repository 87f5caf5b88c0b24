// The drives of this machine, asked but not changed, and directories of a workplace.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "tests/support/library.h"
#include "tests/support/text.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

std::string currentDrive() {
    Dest dest(3);
    return lib().CurDrive(dest);
}
std::string currentDirectory(const char* drive = "") {
    Dest dest(261);
    return lib().CurDir(drive, dest);
}
std::string letters() {
    Dest dest(27);
    return lib().DriveStr(dest);
}

std::string inDriveForm(const std::filesystem::path& path) {
    std::string text = path.string();
    std::replace(text.begin(), text.end(), '/', '\\');
#if !defined(_WIN32)
    text.insert(0, "C:");
#endif
    return text;
}

// Goes back where the process was.
class Elsewhere {
 public:
    ~Elsewhere() { std::filesystem::current_path(before_); }

 private:
    std::filesystem::path before_ = std::filesystem::current_path();
};

TEST(ThisMachinesDrives, Lists) {
    std::string drives = letters(), expected;
    for (char letter : drives) expected += std::string(expected.empty() ? "" : " ") + letter + ':';
    Dest all(78);
    EXPECT_EQ(std::string(lib().AllDrives(all)), expected);
    EXPECT_TRUE(std::is_sorted(drives.begin(), drives.end())) << drives;
    EXPECT_NE(drives.find(currentDrive()[0]), drives.npos) << drives;
    EXPECT_EQ(lib()._sysinfo2(2), static_cast<std::int32_t>(drives.size()));
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const char text[] = {letter, '\0'};
        bool exists = drives.find(letter) != drives.npos || (letter == 'B' && drives[0] == 'A');
        EXPECT_EQ(lib().IsDisk(text), exists) << letter;
        EXPECT_EQ(lib().IsDosDisk(letter - 'A'), exists) << letter;
    }
    EXPECT_EQ(lib().DosDrive(""), currentDrive()[0] - 'A');
    EXPECT_EQ(lib().IsDrive(""), 1);
    EXPECT_EQ(lib().MediaType(""), 1);
#if !defined(_WIN32)
    EXPECT_EQ(drives, "C");
    EXPECT_EQ(lib().IsFixed("c:"), 1);
    EXPECT_EQ(lib().DriveType(0), -1);
    EXPECT_EQ(lib().Numfloppy(), 0);
#endif
}

TEST(ThisMachinesDrives, Space) {
    std::uint32_t sector = lib().SectorSize(""), cluster = lib().ClustSize("");
    ASSERT_GT(sector, 0u);
    EXPECT_EQ(cluster % sector, 0u);
    EXPECT_EQ(lib().Sectors(""), lib().Clusters("") * (cluster / sector));
    EXPECT_EQ(static_cast<std::uint32_t>(lib().DiskSize("")), lib().Clusters("") * cluster);
    EXPECT_GE(lib().Clusters(""), lib().FreeClusters(""));
    EXPECT_EQ(lib().DiskSize("1"), -1);
    EXPECT_EQ(lib().DiskSpace("1"), 0u);
#if !defined(_WIN32)
    // What else runs here writes, too.
    constexpr std::int32_t kWrittenMeanwhile = 1 << 29;
    auto free = static_cast<std::uint32_t>(std::filesystem::space("/").available);
    auto difference = static_cast<std::int32_t>(lib().DiskSpace("C") - free);
    EXPECT_LT(std::abs(difference), kWrittenMeanwhile);
#endif
}

TEST(ThisMachinesDrives, CurrentDirectories) {
    Elsewhere elsewhere;
    Workplace place;
    std::string before = currentDirectory();
    EXPECT_EQ(before, inDriveForm(std::filesystem::current_path()));
    EXPECT_EQ(before.substr(0, 2), currentDrive());
    Dest dest(261);
    EXPECT_EQ(std::string(lib().GetDir("", dest)), before.substr(2));
    EXPECT_EQ(lib().SetDrive(currentDrive().c_str()), 1);
    EXPECT_EQ(currentDirectory(), before);

    for (char letter : letters()) {
        std::string root = std::string(1, letter) + ":\\";
        if (letter == before[0] || !lib().IsDrive(root.c_str())) continue;
        EXPECT_EQ(lib().ChangeDir(root.c_str()), 1) << root;
        EXPECT_EQ(currentDirectory(), before) << "after " << root;
        EXPECT_EQ(currentDirectory(root.c_str()), root);
    }
    EXPECT_EQ(lib().MakeDir(place.path("sub").c_str()), 1);
    std::filesystem::current_path(place.native());
    EXPECT_EQ(lib().ChangeDir("sub"), 1);
    EXPECT_EQ(currentDirectory(), place.path("sub"));
    EXPECT_EQ(lib().ChangeDir("missing"), 0);
    EXPECT_EQ(lib().ChangeDir(".."), 1);
    EXPECT_EQ(currentDirectory(), place.path());
    EXPECT_EQ(lib().FChDir("sub", (place.path("nowhere") + ";" + place.path()).c_str()), 1);
    EXPECT_EQ(currentDirectory(), place.path("sub"));
    EXPECT_EQ(lib().FChDir("missing", place.path().c_str()), 0);
}

TEST(ThisMachinesDrives, Directories) {
    Workplace place;
    EXPECT_EQ(lib().MakeDir(place.path("a\\b").c_str()), 0);
    EXPECT_EQ(lib().MakeDir(place.path("a").c_str()), 1);
    EXPECT_EQ(lib().MakeDir(place.path("a\\b").c_str()), 1);
    EXPECT_EQ(lib().IsDir(place.path("a\\b").c_str()), 1);
    EXPECT_EQ(lib().RemoveDir(place.path("a").c_str()), 0);
    EXPECT_EQ(lib().RenDir(place.path("a").c_str(), "Q:\\elsewhere\\new.dir"), 1);
    EXPECT_TRUE(place.has("new.dir/b"));
    place.put("file", "x");
    EXPECT_EQ(lib().IsDir(place.path("file").c_str()), 1);
    EXPECT_EQ(lib().RenDir(place.path("file").c_str(), "other"), 0);
    EXPECT_EQ(lib().RenDir(place.path("new.dir").c_str(), "file"), 0);
    EXPECT_EQ(lib().RemoveDir(place.path("new.dir\\b").c_str()), 1);
    EXPECT_EQ(lib().RemoveDir(place.path("new.dir").c_str()), 1);
    EXPECT_FALSE(place.has("new.dir"));
    EXPECT_EQ(lib().RemoveDir(place.path("file").c_str()), 0);
}

}  // namespace
}  // namespace vx::test
