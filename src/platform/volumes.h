// Drives, the volumes in them, and the current drive and directories. Failures set the thread's last error (Process).
//
// A root is a text like "C:\". Drive numbers count from 1 for A. On Linux C: is the only drive.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/tree.h"

namespace vx::platform {

enum DriveKind : std::uint32_t {
    kUnknownDrive = 0,
    kNoRootDirectory = 1,
    kRemovableDrive = 2,
    kFixedDrive = 3,
    kRemoteDrive = 4,
    kCdRomDrive = 5,
    kRamDisk = 6,
};

struct VolumeInformation {
    char label[kPathSize];
    char fileSystem[kPathSize];
    std::uint32_t serial;
};

struct DiskSpace {
    std::uint32_t sectorsPerCluster;
    std::uint32_t bytesPerSector;
    std::uint32_t freeClusters;
    std::uint32_t totalClusters;
};

class Volumes {
 public:
    // The drives that exist, bit 0 for A.
    virtual std::uint32_t logicalDrives() = 0;

    virtual DriveKind driveKind(const char* root) = 0;

    virtual bool information(const char* root, VolumeInformation& information) = 0;

    // A null label deletes the label.
    virtual bool setLabel(const char* root, const char* label) = 0;

    virtual bool space(const char* root, DiskSpace& space) = 0;

    // Bytes free to this user, however many, on the volume that a directory is on.
    virtual bool freeBytes(const char* directory, std::uint64_t& bytes) = 0;

    // 0 when the current directory is on no drive.
    virtual std::int32_t currentDrive() = 0;
    virtual bool setCurrentDrive(std::int32_t drive) = 0;

    // A drive's current directory, with its drive; 0 is the current drive. False, and nothing written, if it cannot be
    // told or does not fit.
    virtual bool currentDirectory(std::int32_t drive, char* path, std::size_t room) = 0;

    // Changes the current directory of the drive that the path names, and makes that drive the current one.
    virtual bool changeDirectory(const char* path) = 0;

    // Lengths without the terminator; 0 if unknown or longer than the room.
    virtual std::uint32_t systemDirectory(char* path, std::uint32_t room) = 0;
    virtual std::uint32_t windowsDirectory(char* path, std::uint32_t room) = 0;

 protected:
    ~Volumes() = default;
};

}  // namespace vx::platform
