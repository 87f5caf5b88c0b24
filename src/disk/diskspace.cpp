// Space on drives, volume labels, the current drive and directory, and directories.
#include "entries/diskspace.h"

#include <bit>
#include <cstring>
#include <optional>

#include "disk/drives.h"
#include "files/filefind.h"
#include "files/path.h"
#include "frame/text.h"
#include "platform/errors.h"
#include "platform/platform.h"
#include "strings/token.h"

namespace vx {
namespace {

constexpr std::uint32_t kLongestPath = 260;
constexpr std::uint32_t kPathRoomHere = kLongestPath + 1;

const char* orEmpty(const char* text) { return text ? text : emptyText; }

// What `measure` makes of a drive's space, 0 if the drive does not tell; `bad` for what is no drive. Unsigned 32-bit
// arithmetic, which wraps above 4 GB.
template <typename Measure>
std::uint32_t measured(const char* driveText, Measure measure, std::uint32_t bad = 0) {
    std::int32_t number = driveNumber(driveText);
    if (number == kNoDrive) return bad;
    platform::SilentErrors silent(platform::process());
    platform::DiskSpace space;
    return platform::volumes().space(DriveRoot(number).get(), space) ? measure(space) : 0;
}

std::uint32_t clusterSize(const platform::DiskSpace& space) { return space.bytesPerSector * space.sectorsPerCluster; }

// --- Volumes -------------------------------------------------------------------------------------------------------

bool setLabel(const char* driveText, const char* label) {
    std::int32_t number = driveNumber(driveText);
    if (number == kNoDrive) return false;
    platform::SilentErrors silent(platform::process());
    return platform::volumes().setLabel(DriveRoot(number).get(), label);
}

char* putLabel(const char* driveText, char* dest) {
    std::int32_t number = driveNumber(driveText);
    if (number == kNoDrive) return store(dest, {});
    platform::SilentErrors silent(platform::process());
    platform::VolumeInformation information;
    return store(dest, platform::volumes().information(DriveRoot(number).get(), information) ? information.label : "");
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
    return isWritable(DriveRoot(drive + 1).get()) ? 0 : statusOf(platform::process().lastError());
}

// --- Current drive and directory -----------------------------------------------------------------------------------

char* putCurrentDirectory(const char* driveText, char* dest) {
    std::int32_t number = driveNumber(driveText);
    *dest = '\0';
    if (number == kNoDrive) return dest;
    platform::SilentErrors silent(platform::process());
    if (!platform::volumes().currentDirectory(number, dest, kPathRoomHere)) *dest = '\0';
    return dest;
}

bool setDrive(const char* text) {
    if (!text || !*text) return false;
    std::int32_t number = driveNumber(text);
    if (number == kNoDrive) return false;
    platform::SilentErrors silent(platform::process());
    return platform::volumes().setCurrentDrive(number);
}

// Going back by the directory: by its drive alone, a directory that the process was started in would be lost.
void goBack(std::int32_t drive, const char* directory) {
    if (!*directory || !platform::volumes().changeDirectory(directory)) platform::volumes().setCurrentDrive(drive);
}

bool changeDirectory(const char* path) {
    platform::SilentErrors silent(platform::process());
    std::int32_t drive = platform::volumes().currentDrive();
    char directory[kPathRoomHere];
    if (!platform::volumes().currentDirectory(0, directory, sizeof directory)) *directory = '\0';
    if (!platform::volumes().changeDirectory(orEmpty(path))) return false;
    if (platform::volumes().currentDrive() != drive) goBack(drive, directory);
    return true;
}

char* putDriveRoots(char* dest) {
    char* end = dest;
    std::uint32_t mask = driveMask();
    for (std::int32_t drive = 0; drive < kDriveLetters; ++drive) {
        if ((mask >> drive & 1) == 0) continue;
        if (end != dest) *end++ = ';';
        *end++ = driveLetter(drive);
        *end++ = ':';
    }
    *end = '\0';
    return dest;
}

bool changeToListedDirectory(const char* name, const char* list) {
    if (!name || !*name) return false;
    platform::SilentErrors silent(platform::process());
    char roots[3 * kDriveLetters];
    char found[kPathRoomHere];
    if (findDirectoryInList(name, list && *list ? list : putDriveRoots(roots), found) == 0) return false;
    PathParts parts = splitPath(found);
    char path[kJoinedSize];
    joinPath(parts, path);
    return changeDirectory(path) && setDrive(parts.drive);
}

// --- Directories ---------------------------------------------------------------------------------------------------

bool directoryMatches(const char* path) {
    platform::FoundEntry entry;
    std::int32_t search = platform::tree().findFirst(path, entry);
    if (search == -1) return false;
    bool found;
    do {
        found = (entry.attributes & platform::kDirectoryEntry) != 0;
    } while (!found && platform::tree().findNext(search, entry));
    std::uint32_t reason = platform::process().lastError();
    platform::tree().findClose(search);
    if (!found) platform::process().setLastError(reason);
    return found;
}

bool renameDirectory(const char* old, const char* name) {
    platform::SilentErrors silent(platform::process());
    PathParts before = splitPath(old);
    bool isNamed = *before.name || *before.extension;
    if (!isNamed || !directoryMatches(old)) return false;
    PathParts after = splitPath(name);
    char path[kJoinedSize];
    joinPath(before.drive, before.directory, after.name, after.extension, path);
    return platform::tree().move(old, path);
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

char* VX_CALL vx_CurDrive(char* dest) noexcept {
    if (!dest) return nullptr;
    std::int32_t drive = platform::volumes().currentDrive();
    const char name[] = {driveLetter(drive - 1), ':'};
    return store(dest, drive > 0 ? std::string_view(name, sizeof name) : std::string_view());
}
char* VX_CALL vx_CurDir(const char* drive, char* dest) noexcept {
    return dest ? putCurrentDirectory(drive, dest) : nullptr;
}
char* VX_CALL vx_GetDir(const char* drive, char* dest) noexcept {
    if (!dest) return nullptr;
    const char* colon = std::strchr(putCurrentDirectory(drive, dest), ':');
    return store(dest, colon ? colon + 1 : "");
}

int32_t VX_CALL vx_SetDrive(const char* drive) noexcept { return setDrive(drive); }
int32_t VX_CALL vx_ChangeDir(const char* path) noexcept { return changeDirectory(path); }
int32_t VX_CALL vx_FChDir(const char* name, const char* list) noexcept { return changeToListedDirectory(name, list); }

char* VX_CALL vx_SysDir(char* dest) noexcept {
    if (dest && platform::volumes().systemDirectory(dest, kPathRoomHere) == 0) *dest = '\0';
    return dest;
}
char* VX_CALL vx_WinDir(char* dest) noexcept {
    if (dest && platform::volumes().windowsDirectory(dest, kPathRoomHere) == 0) *dest = '\0';
    return dest;
}

int32_t VX_CALL vx_MakeDir(const char* path) noexcept {
    platform::SilentErrors silent(platform::process());
    return platform::tree().createDirectory(orEmpty(path));
}
int32_t VX_CALL vx_RemoveDir(const char* path) noexcept {
    platform::SilentErrors silent(platform::process());
    return platform::tree().removeDirectory(orEmpty(path));
}
int32_t VX_CALL vx_RenDir(const char* old, const char* name) noexcept { return renameDirectory(old, name); }

// kept: a file counts, too.
int32_t VX_CALL vx_IsDir(const char* path) noexcept {
    platform::SilentErrors silent(platform::process());
    return platform::tree().attributes(orEmpty(path)) != platform::kNoAttributes;
}

int32_t VX_CALL vx__sysinfo2(int32_t selector) noexcept {
    if (selector == 1) return bootDrive();
    return selector == 2 ? std::popcount(driveMask()) : 0;
}
