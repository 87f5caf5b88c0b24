// What the system knows of a file or directory, in Windows' terms.
//
// A file is read-only when nobody may write it. The attributes that Linux has no place for (hidden, system, archive)
// stand in an extended attribute, by the name and in the form that file servers for Windows use, so that both agree.
// Without one, a file has the archive attribute alone, and a directory none.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>

#include <cstdint>

#include "platform/files.h"

namespace vx::platform {

// Time stamps before 1601 are 0.
FileTime fileTimeOf(std::int64_t seconds, std::int64_t nanoseconds);
timespec timespecOf(FileTime time);

// No write permission at all: also root sees such a file as read-only.
inline bool isReadOnly(mode_t mode) { return (mode & 0222) == 0; }

// A symbolic link's own state. As fstatat.
inline int ownState(const char* path, struct stat& state) {
    return ::fstatat(AT_FDCWD, path, &state, AT_SYMLINK_NOFOLLOW);
}

// Fill in all but the volume's serial number. False, with errno, if the system does not tell. A symbolic link has
// kLink and what it leads to; if that is nothing, it is a file.
bool readState(int descriptor, FileInformation& information);
bool readState(const char* path, FileInformation& information);

// Set kReadOnly, kHidden, kSystem and kArchive, the others not. False, with errno, if the system refuses; ENOTSUP
// where the file system cannot keep what a file without an extended attribute does not have. Without kReadOnly a file
// has the permissions again that it had before; where they are not known, its owner writes it, and who reads it as far
// as new files allow.
bool writeAttributes(int descriptor, std::uint32_t attributes);
bool writeAttributes(const char* path, std::uint32_t attributes);

// What a read-only file's permissions were before goes on to its copy; where that cannot keep it, it is lost.
void copyRememberedPermissions(int from, int to);

// Of drive C:, which has all file systems that are mounted; never 0.
std::uint32_t volumeSerial();

}  // namespace vx::platform
