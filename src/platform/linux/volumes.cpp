// Drives of Linux: C: is the root of the file system and the only one.
#include "platform/linux/last_error.h"
#include "platform/platform.h"

namespace vx::platform {
namespace {

class LinuxVolumes final : public Volumes {
 public:
    std::uint32_t logicalDrives() override { return 1u << 2; }
    DriveKind driveKind(const char*) override { return kFixedDrive; }
    bool information(const char*, VolumeInformation&) override { return failed(false, kNotSupported); }
    bool setLabel(const char*, const char*) override { return failed(false, kNotSupported); }
    bool space(const char*, DiskSpace&) override { return failed(false, kNotSupported); }
    bool freeBytes(const char*, std::uint64_t&) override { return failed(false, kNotSupported); }
    std::int32_t currentDrive() override { return 3; }
    bool setCurrentDrive(std::int32_t) override { return failed(false, kNotSupported); }
    bool currentDirectory(std::int32_t, char*, std::size_t) override { return failed(false, kNotSupported); }
    bool changeDirectory(const char*) override { return failed(false, kNotSupported); }
    std::uint32_t systemDirectory(char*, std::uint32_t) override { return 0; }
    std::uint32_t windowsDirectory(char*, std::uint32_t) override { return 0; }
};

LinuxVolumes volumes;

}  // namespace

Volumes& systemVolumes() { return volumes; }

}  // namespace vx::platform
