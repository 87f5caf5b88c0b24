// Drives and directories of the system itself: the platform's own interface, before any stand-in takes its place.
// Nothing here sets a label.
#include <cstdint>
#include <string>

#include "tests/seam/system_test.h"
#include "tests/support/environment.h"

namespace vx::test {
namespace {

using namespace platform;

class SystemVolumes : public SystemTest {
 protected:
    std::string here() {
        char path[kPathSize];
        return volumes.currentDirectory(0, path, sizeof path) ? path : "<" + std::to_string(error()) + ">";
    }
};

TEST_F(SystemVolumes, TheDriveOfTheWorkplaceExists) {
    std::string root = place.path().substr(0, 3);
    int number = root[0] - 'A' + 1;
    EXPECT_TRUE(volumes.logicalDrives() >> (number - 1) & 1);
    EXPECT_TRUE(kWine || volumes.logicalDrives() == 4);
    EXPECT_EQ(volumes.driveKind(root.c_str()), kFixedDrive);
    EXPECT_EQ(volumes.driveKind("B:\\"), kNoRootDirectory);
    VolumeInformation volume{};
    ASSERT_TRUE(volumes.information(root.c_str(), volume)) << error();
    EXPECT_STRNE(volume.fileSystem, "");
    DiskSpace space{};
    ASSERT_TRUE(volumes.space(root.c_str(), space)) << error();
    EXPECT_LE(space.freeClusters, space.totalClusters);
    std::uint64_t bytes = 0;
    EXPECT_TRUE(volumes.freeBytes(root.c_str(), bytes));
    EXPECT_GT(bytes, 0u);
    EXPECT_EQ(reason(volumes.space("B:\\", space)), kPathNotFound);
    EXPECT_TRUE(kWine || (volumes.space("C:\\proc", space) && space.totalClusters == 0)) << "of that path";
    EXPECT_FALSE(volumes.freeBytes("B:\\", bytes) || volumes.information("B:\\", volume));
}

TEST_F(SystemVolumes, TheCurrentDirectoryAndDrive) {
    std::string before = here(), target = place.path();
    ASSERT_TRUE(volumes.changeDirectory(target.c_str())) << error();
    EXPECT_EQ(here(), target);
    std::int32_t drive = target[0] - 'A' + 1;
    EXPECT_EQ(volumes.currentDrive(), drive);
    EXPECT_TRUE(volumes.setCurrentDrive(drive));
    for (std::int32_t none : {2, 0, 27}) EXPECT_FALSE(volumes.setCurrentDrive(none)) << none;
    char path[kPathSize] = "untouched";
    EXPECT_FALSE(volumes.currentDirectory(drive, path, target.size()) ||
                 volumes.currentDirectory(2, path, sizeof path));
    EXPECT_STREQ(path, "untouched");
    EXPECT_TRUE(volumes.currentDirectory(drive, path, target.size() + 1));
    EXPECT_EQ(path, target);

    tree.createDirectory("Sub");
    place.put("file");
    EXPECT_TRUE(volumes.changeDirectory("SUB"));
    EXPECT_EQ(here(), target + (kWine ? "\\SUB" : "\\Sub")) << "Wine shows a directory as it was written";
    for (const char* name : {"missing", "..\\file", ""}) EXPECT_FALSE(volumes.changeDirectory(name)) << name;
    EXPECT_TRUE(volumes.changeDirectory(".."));
    EXPECT_EQ(here(), target);
    EXPECT_TRUE(volumes.changeDirectory(before.c_str()));
}

#if !defined(_WIN32)

TEST_F(SystemVolumes, HaveSerialNumbersAndNoLabels) {
    VolumeInformation volume;
    ASSERT_TRUE(volumes.information(place.path().c_str(), volume));
    std::int32_t handle = create("f");
    EXPECT_NE(volume.serial, 0u);
    EXPECT_EQ(information(handle).volumeSerial, volume.serial);
    EXPECT_TRUE(files.close(handle));
    EXPECT_STREQ(volume.label, "");
    EXPECT_FALSE(volumes.setLabel("C:\\", "X") || volumes.setLabel("C:\\proc", nullptr));
    EXPECT_TRUE(error() == kAccessDenied || error() == kWriteProtect);
}

TEST_F(SystemVolumes, SystemDirectoriesAreThoseOfTheEnvironment) {
    char path[40] = "untouched";
    SetVariable none("SystemRoot", nullptr);
    EXPECT_EQ(volumes.systemDirectory(path, sizeof path) + volumes.windowsDirectory(path, sizeof path), 0u);
    for (const char* name : {"SystemRoot", "SYSTEMROOT"}) {  // in any letter case, as all variables
        SetVariable root(name, "C:\\winnt\\");
        EXPECT_EQ(volumes.windowsDirectory(path, 8), 0u);
        EXPECT_EQ(volumes.windowsDirectory(path, 9), 8u);
        EXPECT_STREQ(path, "C:\\winnt");
        EXPECT_EQ(volumes.systemDirectory(path, sizeof path), 17u);
        EXPECT_STREQ(path, "C:\\winnt\\System32");
    }
}

#endif

}  // namespace
}  // namespace vx::test
