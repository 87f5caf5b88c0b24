// An open file that is closed when a call ends, and the error code that outlives the clean-up.
#pragma once

#include <cstdint>
#include <utility>

#include "files/handles.h"

namespace vx {

// Gives the last error back as it was, whatever happens until this goes.
class KeptError {
 public:
    KeptError() : code_(platform::process().lastError()) {}
    ~KeptError() { platform::process().setLastError(code_); }
    KeptError(const KeptError&) = delete;
    KeptError& operator=(const KeptError&) = delete;

 private:
    std::uint32_t code_;
};

inline constexpr std::uint32_t kReading = platform::kRead | platform::kDenyNone;

class OpenFile {
 public:
    explicit OpenFile(std::int32_t handle) : handle_(handle) {}

    // A name that is NULL is an empty one, which no file has.
    static OpenFile open(const char* name, std::uint32_t mode) {
        return OpenFile(platform::files().open(textOf(name), mode));
    }
    static OpenFile create(const char* name) { return OpenFile(platform::files().create(textOf(name), 0)); }

    OpenFile(OpenFile&& other) noexcept : handle_(std::exchange(other.handle_, kNoHandle)) {}
    OpenFile& operator=(OpenFile&&) = delete;
    ~OpenFile() { close(); }

    explicit operator bool() const { return handle_ != kNoHandle; }
    std::int32_t handle() const { return handle_; }

    // The last error stays what it was, unless the system refuses.
    bool close() {
        if (handle_ == kNoHandle) return true;
        platform::Process& process = platform::process();
        std::uint32_t before = process.lastError();
        bool closed = platform::files().close(std::exchange(handle_, kNoHandle));
        if (closed) process.setLastError(before);
        return closed;
    }

 private:
    std::int32_t handle_;
};

}  // namespace vx
