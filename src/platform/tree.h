// The tree of files and directories, by names. Failures set the thread's last error (Process).
//
// Names are in drive form with either separator; a name without a drive or directory starts at the current one. On
// Linux C: is the root of the file system, and a name is found in any letter case when none is written exactly so.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/files.h"

namespace vx::platform {

inline constexpr std::size_t kPathSize = 260;  // of the longest path, with its terminator
inline constexpr std::uint32_t kNoAttributes = 0xFFFFFFFF;

// One entry of a directory, in the layout of Win32's WIN32_FIND_DATAA (318 bytes, padding not counted).
struct FoundEntry {
    std::uint32_t attributes;
    std::uint32_t created[2];  // FileTime, low half first
    std::uint32_t accessed[2];
    std::uint32_t written[2];
    std::uint32_t sizeHigh;
    std::uint32_t sizeLow;
    std::uint32_t reserved[2];
    char name[kPathSize];
    char shortName[14];  // 8.3; empty if the name is one itself
};
inline constexpr std::size_t kFoundEntrySize = 318;
static_assert(offsetof(FoundEntry, shortName) + sizeof(FoundEntry::shortName) == kFoundEntrySize);

class Tree {
 public:
    // The attributes of a file or directory, kNoAttributes if there is none. A symbolic link has those of what it leads
    // to, and kLink.
    virtual std::uint32_t attributes(const char* name) = 0;

    // Sets the attributes that can be set: kReadOnly, kHidden, kSystem, kArchive.
    virtual bool setAttributes(const char* name, std::uint32_t attributes) = 0;

    // Deletes a file: refused if it is read-only, open, or a directory. A symbolic link is deleted as a link.
    virtual bool erase(const char* name) = 0;

    // Renames a file or directory, or moves a file; refused onto a name that exists.
    virtual bool move(const char* from, const char* to) = 0;

    virtual bool createDirectory(const char* name) = 0;

    // Refused if the directory is not empty. A symbolic link to a directory is removed as a link.
    virtual bool removeDirectory(const char* name) = 0;

    // The absolute path of a name, which need not exist: drive form, `.` and `..` worked out. The length, 0 on failure;
    // a length of `room` or more is what it needs, and nothing was written.
    virtual std::uint32_t fullPath(const char* name, char* path, std::uint32_t room) = 0;

    // Start a search for the entries of a directory that match a pattern: wildcards ? and * in its last component,
    // with the system's own meaning. A search handle, -1 if there is none; findNext is false at the end
    // (kNoMoreFiles). A symbolic link is shown as what it leads to, with kLink; one that leads nowhere as a file. A
    // name that cannot be given back exactly is left out.
    virtual std::int32_t findFirst(const char* pattern, FoundEntry& entry) = 0;
    virtual bool findNext(std::int32_t search, FoundEntry& entry) = 0;
    virtual bool findClose(std::int32_t search) = 0;

 protected:
    ~Tree() = default;
};

}  // namespace vx::platform
