// Open files, by the library's 32-bit handles. Failures set the thread's last error (Process).
//
// On Windows a handle is the system's own, and one that comes from elsewhere works like the library's. On Linux it is a
// number of the library's, never a descriptor; a stale or made-up one fails with kInvalidHandle. 0 and -1 are no
// handles.
#pragma once

#include <cstdint>

#include "platform/moment.h"

namespace vx::platform {

// How a file is opened: one access, and what others may not do meanwhile.
enum OpenMode : std::uint32_t {
    kRead = 0,
    kWrite = 1,
    kReadWrite = 2,
    kShareCompatible = 0x00,  // like kDenyNone
    kExclusive = 0x10,
    kDenyWrite = 0x20,
    kDenyRead = 0x30,
    kDenyNone = 0x40,
};

enum Origin : std::int32_t { kFromStart = 0, kFromCurrent = 1, kFromEnd = 2 };

// Positions go up to here: seek refuses what is beyond, and where handles stand, reading and writing end here. They
// are refused (kInvalidParameter) where they would begin here, reading only if the file goes on.
inline constexpr std::int64_t kLastPosition = 0x7FFFFFFF;

enum Attribute : std::uint32_t {
    kReadOnly = 0x01,
    kHidden = 0x02,
    kSystem = 0x04,
    kDirectoryEntry = 0x10,
    kArchive = 0x20,
    kNormal = 0x80,  // none of the others
    kLink = 0x400,   // a symbolic link; on Windows every reparse point
    kCompressed = 0x800,
};

// Universal time; created and accessed are what the file system knows of them.
struct FileTimes {
    FileTime created = 0;
    FileTime accessed = 0;
    FileTime written = 0;

    bool operator==(const FileTimes&) const = default;
};

// What tells one open file from another, whatever names they were opened by.
struct FileIdentity {
    std::uint64_t volume = 0;
    std::uint64_t index = 0;  // 0 if the system does not tell

    bool operator==(const FileIdentity&) const = default;
};

struct FileInformation {
    std::uint32_t attributes = 0;
    FileTimes times;
    std::uint32_t volumeSerial = 0;
    std::uint64_t size = 0;
    FileIdentity identity;
};

class Files {
 public:
    // The handle, -1 on failure. A directory is refused, and a read-only file for writing.
    virtual std::int32_t open(const char* name, std::uint32_t mode) = 0;

    // Creates the file, or empties the one that is there, with these attributes (kReadOnly, kHidden, kSystem); open
    // for reading and writing. The handle, -1 on failure.
    virtual std::int32_t create(const char* name, std::uint32_t attributes) = 0;

    // False if the handle is not open or the system refuses.
    virtual bool close(std::int32_t handle) = 0;

    // Bytes read, fewer at the end of the file, or -1.
    virtual std::int32_t read(std::int32_t handle, void* to, std::uint32_t count) = 0;

    // Bytes written, fewer when the disk is full, or -1. A count of 0 writes nothing.
    virtual std::int32_t write(std::int32_t handle, const void* from, std::uint32_t count) = 0;

    // The new position, -1 if it would be negative or beyond kLastPosition; it then is where it was.
    virtual std::int32_t seek(std::int32_t handle, std::int32_t offset, std::int32_t origin) = 0;

    // read and write at a position, in one system call. Writing ends at kLastPosition, too; reading goes beyond. Where
    // the handle stands afterwards is left open: who shows the position to others puts it back.
    virtual std::int32_t readAt(std::int32_t handle, std::int64_t position, void* to, std::uint32_t count) = 0;
    virtual std::int32_t writeAt(std::int32_t handle, std::int64_t position, const void* from, std::uint32_t count) = 0;

    // -1 on failure.
    virtual std::int64_t size(std::int32_t handle) = 0;

    // Ends the file at the current position. Refused beyond kLastPosition.
    virtual bool truncate(std::int32_t handle) = 0;

    // Has the system write all to the disk.
    virtual bool flush(std::int32_t handle) = 0;

    // Lock a range, which may lie beyond the end, against all other handles and processes. False at once when any
    // handle, this one included, holds a range that overlaps it. unlock names exactly a range that was locked. Ranges
    // that are held are gone when the handle is closed or the process ends.
    virtual bool lock(std::int32_t handle, std::uint32_t offset, std::uint32_t length) = 0;
    virtual bool unlock(std::int32_t handle, std::uint32_t offset, std::uint32_t length) = 0;

    virtual bool information(std::int32_t handle, FileInformation& information) = 0;

    // 0 leaves a time as it is. Refused, and all stay, where the file system would make another one of `written`
    // (kInvalidParameter); that it rounds is no failure.
    virtual bool setTimes(std::int32_t handle, const FileTimes& times) = 0;

 protected:
    ~Files() = default;
};

}  // namespace vx::platform
