// An open file that is closed when its owner goes.
//
// A call that opens a file and is done with it keeps the handle to itself. What stays open from call to call, as tables
// do, is recorded like callers' own handles, so that it is closed when the library goes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "files/handles.h"

namespace vx {

inline constexpr std::uint32_t kReading = platform::kRead | platform::kDenyNone;

class OpenFile {
 public:
    OpenFile() = default;
    OpenFile(OpenFile&& other) noexcept
        : handle_(std::exchange(other.handle_, kNoHandle)), recorded_(other.recorded_) {}
    OpenFile& operator=(OpenFile&& other) noexcept {
        std::swap(handle_, other.handle_);
        std::swap(recorded_, other.recorded_);
        return *this;
    }
    ~OpenFile() { close(); }

    // Failures give a file that is not open. A name that is NULL is an empty one, which no file has.
    static OpenFile open(const char* name, std::uint32_t mode) {
        return {platform::files().open(textOf(name), mode), false};
    }
    static OpenFile create(const char* name) { return {platform::files().create(textOf(name), 0), false}; }
    static OpenFile openRecorded(const char* name, std::uint32_t mode) { return {vx::openRecorded(name, mode), true}; }
    static OpenFile createRecorded(const char* name) { return {vx::createRecorded(name, 0), true}; }

    bool isOpen() const { return handle_ != kNoHandle; }
    std::int32_t handle() const { return handle_; }

    // True as well if it is not open. The last error stays what it was, unless the system refuses; nobody knows then
    // whose the handle is, and it is not used again.
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
    OpenFile(std::int32_t handle, bool recorded) : handle_(handle), recorded_(recorded) {}

    std::int32_t handle_ = kNoHandle;
    bool recorded_ = false;
};

}  // namespace vx
