// An open file of a table, read and written at positions; closed when it goes.
#pragma once

#include <cstdint>
#include <memory>
#include <new>
#include <utility>

#include "frame/library.h"
#include "platform/platform.h"

namespace vx::dbf {

class File {
 public:
    File() = default;
    explicit File(std::int32_t handle) : handle_(handle) {}
    File(File&& other) noexcept : handle_(std::exchange(other.handle_, kNoHandle)) {}
    File& operator=(File&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~File();

    // Failures give a file that is not open.
    static File open(const char* path, std::uint32_t mode);
    static File create(const char* path);

    bool isOpen() const { return handle_ != kNoHandle; }

    // True as well if it is not open. After a failure nobody knows whose the handle is: it is not used again.
    bool close();

    // How many bytes arrived: fewer at the end of the file, and on failure.
    std::uint32_t read(std::int64_t position, void* to, std::size_t count) const;

    // Whether all of it arrived.
    bool readAll(std::int64_t position, void* to, std::size_t count) const {
        return read(position, to, count) == count;
    }
    bool write(std::int64_t position, const void* from, std::size_t count) const;

    std::int64_t size() const { return platform::files().size(handle_); }
    bool commit() const { return platform::files().flush(handle_); }
    bool lock(std::uint32_t offset, std::uint32_t length) const {
        return platform::files().lock(handle_, offset, length);
    }
    bool unlock(std::uint32_t offset, std::uint32_t length) const {
        return platform::files().unlock(handle_, offset, length);
    }

    // After a write that failed: ends the file at `end` again if it grew, unless it reaches beyond `most`. The error
    // code stays the failure's. Whether nothing is left behind.
    bool cutBack(std::int64_t end, std::int64_t most) const;

 private:
    std::int32_t handle_ = kNoHandle;
};

// Room for what is read or written at once: some KB without an allocation.
class Scratch {
 public:
    static constexpr std::size_t kAtHand = 4096;

    // Null if there is no memory. The contents of an earlier room are lost.
    char* room(std::size_t size) {
        if (size <= kAtHand) return atHand_;
        large_.reset(new (std::nothrow) char[size]);
        return large_.get();
    }

 private:
    char atHand_[kAtHand];
    std::unique_ptr<char[]> large_;
};

}  // namespace vx::dbf
