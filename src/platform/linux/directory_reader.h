// The names in a directory, in the system's order, without `.` and `..`. By the system call itself, since the C
// library's way there asks for memory.
#pragma once

#include <dirent.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/linux/descriptor.h"

namespace vx::platform {

// -1, with errno, on failure.
inline int openDirectory(const char* path) { return ::openat(AT_FDCWD, path, O_RDONLY | O_DIRECTORY | O_CLOEXEC); }

class DirectoryReader {
 public:
    explicit DirectoryReader(int directory) : directory_(directory) {}

    explicit operator bool() const { return static_cast<bool>(directory_); }

    // Null at the end, and when the directory cannot be read further.
    const char* next() {
        for (;;) {
            if (at_ == filled_ && !fill()) return nullptr;
            const auto* entry = reinterpret_cast<const Entry*>(buffer_ + at_);
            at_ += entry->length;
            std::string_view name = entry->name;
            if (name != "." && name != "..") return entry->name;
        }
    }

 private:
    // What the system call delivers.
    struct Entry {
        std::uint64_t inode;
        std::int64_t offset;
        std::uint16_t length;
        std::uint8_t type;
        char name[1];
    };

    bool fill() {
        if (!directory_) return false;
        long size = ::syscall(SYS_getdents64, directory_.get(), buffer_, sizeof buffer_);
        at_ = 0;
        filled_ = size > 0 ? static_cast<std::size_t>(size) : 0;
        return filled_ != 0;
    }

    Descriptor directory_;
    std::size_t at_ = 0;
    std::size_t filled_ = 0;
    alignas(8) char buffer_[16384];
};

}  // namespace vx::platform
