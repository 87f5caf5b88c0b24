// Space on drives, volume labels, and what state a disk is in.
#include "entries/diskspace.h"

#include <bit>

#include "disk/drives.h"
#include "frame/text.h"
#include "platform/errors.h"
#include "platform/platform.h"

namespace vx {
namespace {

// What `measure` makes of a drive's space, 0 if the drive does not tell; `bad` for what is no drive. Unsigned 32-bit
// arithmetic, which wraps above 4 GB.
template <typename Measure>
std::uint32_t measured(const char* driveText, Measure measure, std::uint32_t bad = 0) {
    return withDrive(driveText, bad, [measure](std::int32_t number) {
        platform::DiskSpace space;
        return platform::volumes().space(rootOf(number).get(), space) ? measure(space) : 0;
    });
}

std::uint32_t clusterSize(const platform::DiskSpace& space) { return space.bytesPerSector * space.sectorsPerCluster; }

bool setLabel(const char* driveText, const char* label) {
    return withDrive(driveText, false, [label](std::int32_t number) {
        return platform::volumes().setLabel(rootOf(number).get(), label);
    });
}

char* putLabel(const char* driveText, char* dest) {
    platform::VolumeInformation volume;
    bool known = withDrive(driveText, false, [&volume](std::int32_t number) {
        return platform::volumes().information(rootOf(number).get(), volume);
    });
    return store(dest, known ? volume.label : "");
}

// Writes to the disk by changing its label and changing it back.
bool isWritable(const char* root) {
    platform::VolumeInformation before;
    return platform::volumes().information(root, before) && platform::volumes().setLabel(root, "F") &&
           platform::volumes().setLabel(root, *before.label ? before.label : nullptr);
}

std::int32_t statusOf(std::uint32_t error) {
    switch (error) {
        case platform::kWriteProtect:
        case platform::kBadLength:
        case platform::kDriveLocked:
            return 1;
        case platform::kNotReady:
            return 3;
        case platform::kReadFault:
            return 7;
        case platform::kNotDosDisk:
            return 8;
        case platform::kGeneralFailure:
            return 13;
        case platform::kInvalidDrive:
        case platform::kBadUnit:
            return -1;
        default:
            return 8;
    }
}

std::int32_t diskStatus(std::int32_t drive) {
    if (!driveExists(drive)) return -1;
    platform::SilentErrors silent(platform::process());
    platform::process().setLastError(platform::kNoError);
    return isWritable(rootOf(drive + 1).get()) ? 0 : statusOf(platform::process().lastError());
}

std::int32_t bootDrive() {
    constexpr std::int32_t kAssumed = 2;
    for (const char* variable : {"SystemDrive", "ComSpec"}) {
        char value[platform::kVariableRoom];
        std::uint32_t length = platform::process().variable(variable, value, sizeof value);
        if (length > 0 && length < sizeof value) return dosDriveNumber(value);
    }
    return kAssumed;
}

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_DiskSize(const char* drive) noexcept {
    auto size = [](const platform::DiskSpace& s) { return s.totalClusters * clusterSize(s); };
    return static_cast<std::int32_t>(measured(drive, size, static_cast<std::uint32_t>(-1)));
}
uint32_t VX_CALL vx_DiskSpace(const char* drive) noexcept {
    return measured(drive, [](const platform::DiskSpace& s) { return s.freeClusters * clusterSize(s); });
}
uint32_t VX_CALL vx_DiskUsed(const char* drive) noexcept {
    return measured(drive,
                    [](const platform::DiskSpace& s) { return (s.totalClusters - s.freeClusters) * clusterSize(s); });
}
uint32_t VX_CALL vx_Clusters(const char* drive) noexcept {
    return measured(drive, [](const platform::DiskSpace& s) { return s.totalClusters; });
}
uint32_t VX_CALL vx_FreeClusters(const char* drive) noexcept {
    return measured(drive, [](const platform::DiskSpace& s) { return s.freeClusters; });
}
uint32_t VX_CALL vx_ClustSize(const char* drive) noexcept { return measured(drive, clusterSize); }
uint32_t VX_CALL vx_SectorSize(const char* drive) noexcept {
    return measured(drive, [](const platform::DiskSpace& s) { return s.bytesPerSector; });
}
uint32_t VX_CALL vx_Sectors(const char* drive) noexcept {
    return measured(drive, [](const platform::DiskSpace& s) { return s.totalClusters * s.sectorsPerCluster; });
}

char* VX_CALL vx_GetVolume(const char* drive, char* dest) noexcept { return dest ? putLabel(drive, dest) : nullptr; }
int32_t VX_CALL vx_SetVolume(const char* label, const char* drive) noexcept { return setLabel(drive, label); }
int32_t VX_CALL vx_DelVolume(const char* drive) noexcept { return setLabel(drive, nullptr); }
int32_t VX_CALL vx_DiskStatus(int32_t drive) noexcept { return diskStatus(drive); }

int32_t VX_CALL vx__sysinfo2(int32_t selector) noexcept {
    if (selector == 1) return bootDrive();
    return selector == 2 ? std::popcount(driveMask()) : 0;
}
