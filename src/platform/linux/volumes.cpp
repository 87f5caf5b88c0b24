// Drives of Linux: C: is the root of the file system and the only one. Space and the name of the
// file system are those of what is mounted where a path leads; the serial number is the root's.
#include <fcntl.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <limits>
#include <string_view>

#include "platform/linux/file_state.h"
#include "platform/linux/last_error.h"
#include "platform/linux/names.h"
#include "platform/linux/process_data.h"
#include "platform/platform.h"

namespace vx::platform {
namespace {

constexpr std::int32_t kDriveNumber = 3;
constexpr std::uint32_t kSectorSize = 512;

struct KnownFileSystem {
    std::uint32_t type;
    const char* name;
};
constexpr KnownFileSystem kKnown[] = {
    {0x0000EF53, "ext4"},    {0x01021994, "tmpfs"}, {0x794C7630, "overlay"}, {0x58465342, "xfs"},
    {0x9123683E, "btrfs"},   {0x00006969, "nfs"},   {0xFF534D42, "cifs"},    {0xFE534D42, "smb2"},
    {0x00004D44, "vfat"},    {0x2011BAB0, "exfat"}, {0x5346544E, "ntfs"},    {0x7366746E, "ntfs3"},
    {0x65735546, "fuse"},    {0x2FC12FC1, "zfs"},   {0x858458F6, "ramfs"},   {0x73717368, "squashfs"},
    {0x00009660, "iso9660"}, {0x01021997, "9p"},    {0xF2F52010, "f2fs"},    {0xCA451A4E, "bcachefs"},
};

const char* fileSystemName(std::uint32_t type) {
    for (const KnownFileSystem& known : kKnown) {
        if (known.type == type) return known.name;
    }
    return "unknown";
}

// The system's state of the volume that a root names. False, with the reason, if there is none.
bool volumeOf(const char* root, struct statvfs& volume) {
    SystemName path(root ? root : ".");
    if (!path.valid()) return false;
    auto ask = [&](const char* text) { return ::statvfs(text, &volume); };
    if (callWith(path, ask) == 0) return true;
    return failed(false, isMissing(errno) ? std::uint32_t{kPathNotFound} : systemErrorCode());
}

// A directory below the one that the environment names. The length; 0 if there is none, or too little room.
std::uint32_t systemPath(std::string_view below, char* path, std::uint32_t room) {
    const char* root = findVariable("SystemRoot");
    if (!root || !*root) return 0;
    std::string_view start = root;
    while (start.size() > 1 && isSeparator(start.back())) start.remove_suffix(1);
    if (start.size() + below.size() >= room) return 0;
    std::memcpy(path, start.data(), start.size());
    std::memcpy(path + start.size(), below.data(), below.size());
    path[start.size() + below.size()] = '\0';
    return static_cast<std::uint32_t>(start.size() + below.size());
}

class LinuxVolumes final : public Volumes {
 public:
    std::uint32_t logicalDrives() override { return 1u << (kDriveNumber - 1); }

    DriveKind driveKind(const char* root) override {
        SystemName path(root ? root : ".");
        return path.valid() && path.look() == SystemName::Found::kThere ? kFixedDrive : kNoRootDirectory;
    }

    bool information(const char* root, VolumeInformation& information) override;

    bool setLabel(const char* root, const char*) override {
        struct statvfs volume;
        if (!volumeOf(root, volume)) return false;
        return failed(false, volume.f_flag & ST_RDONLY ? kWriteProtect : kAccessDenied);
    }

    bool space(const char* root, DiskSpace& space) override;

    bool freeBytes(const char* root, std::uint64_t& bytes) override {
        struct statvfs volume;
        if (!volumeOf(root, volume)) return false;
        if (__builtin_mul_overflow(volume.f_bavail, volume.f_frsize, &bytes)) bytes = UINT64_MAX;
        return true;
    }

    std::int32_t currentDrive() override {
        char path[PATH_MAX + 3];
        return currentDirectory(0, path, sizeof path) ? kDriveNumber : 0;
    }

    bool setCurrentDrive(std::int32_t drive) override { return drive == kDriveNumber || failed(false, kInvalidDrive); }

    bool currentDirectory(std::int32_t drive, char* path, std::size_t room) override {
        if (drive != 0 && drive != kDriveNumber) return failed(false, kInvalidDrive);
        char text[PATH_MAX];
        if (::syscall(SYS_getcwd, text, sizeof text) < 0) return failedCall(false);
        return toDriveForm(text, path, room) != 0 || failed(false, kPathNotFound);
    }

    bool changeDirectory(const char* path) override {
        SystemName name(path);
        if (!name.valid()) return false;
        auto change = [](const char* text) { return ::syscall(SYS_chdir, text); };
        return callWith(name, change) == 0 || failedCall(false);
    }

    std::uint32_t systemDirectory(char* path, std::uint32_t room) override {
        return systemPath("\\System32", path, room);
    }
    std::uint32_t windowsDirectory(char* path, std::uint32_t room) override { return systemPath("", path, room); }
};

constinit LinuxVolumes linuxVolumes;

bool LinuxVolumes::information(const char* root, VolumeInformation& information) {
    SystemName path(root ? root : ".");
    if (!path.valid()) return false;
    struct statfs system;
    auto ask = [&](const char* text) { return ::statfs(text, &system); };
    if (callWith(path, ask) != 0) return failedCall(false);
    information.label[0] = '\0';
    std::strcpy(information.fileSystem, fileSystemName(static_cast<std::uint32_t>(system.f_type)));
    information.serial = volumeSerial();
    return true;
}

// Clusters grow until their count fits, or they themselves no longer do.
bool LinuxVolumes::space(const char* root, DiskSpace& space) {
    struct statvfs volume;
    if (!volumeOf(root, volume)) return false;
    std::uint64_t total = volume.f_blocks;
    std::uint64_t free = volume.f_bavail;
    std::uint32_t sector = std::min<std::uint32_t>(kSectorSize, static_cast<std::uint32_t>(volume.f_frsize));
    std::uint32_t sectors = sector == 0 ? 0 : static_cast<std::uint32_t>(volume.f_frsize / sector);
    constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();
    for (; total > kMost && sectors <= kMost / 2; total /= 2, free /= 2) sectors *= 2;
    auto count = [](std::uint64_t clusters) {
        return static_cast<std::uint32_t>(std::min<std::uint64_t>(clusters, kMost));
    };
    space = {sectors, sector, count(free), count(total)};
    return true;
}

}  // namespace

Volumes& systemVolumes() { return linuxVolumes; }

}  // namespace vx::platform
