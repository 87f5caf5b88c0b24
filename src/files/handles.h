// Open files by their handles: what other families use beside the platform's calls.
#pragma once

#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <string_view>

#include "frame/library.h"
#include "platform/platform.h"

namespace vx {

inline const char* textOf(const char* name) { return name ? name : emptyText; }

// Gives a result back with the reason for it.
template <typename Result>
Result refuse(Result result, std::uint32_t code) {
    platform::process().setLastError(code);
    return result;
}

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

// The longest that a file may be whose positions can all be told, and the most that one call reads or writes.
inline constexpr std::int32_t kMostBytes = std::numeric_limits<std::int32_t>::max();
static_assert(kMostBytes == platform::kLastPosition);

// Opens and closes files for callers: what they leave open is closed when the library goes. When all slots are taken,
// the file is open and not recorded. NULL is an empty name.
std::int32_t openRecorded(const char* name, std::uint32_t mode);
std::int32_t createRecorded(const char* name, std::uint32_t attributes);
std::int32_t createNewRecorded(const char* name, std::uint32_t attributes);  // as FCreatef: refuses what it sees
bool closeRecorded(std::int32_t handle);
void record(std::int32_t handle);

inline std::int32_t positionOf(std::int32_t handle) {
    return platform::files().seek(handle, 0, platform::kFromCurrent);
}

// -1 too when the end is no position that a handle can have.
std::int32_t lengthOf(std::int32_t handle);

// True at and behind the end, and when that cannot be told.
bool atEnd(std::int32_t handle);

// Back to a position after work that moved the handle; the last error stays that of the work.
void putBack(std::int32_t handle, std::int32_t position);

// All bytes or false.
bool readAll(std::int32_t handle, void* to, std::uint32_t size);

// A number as files hold them, its low byte first.
template <class Number>
std::optional<Number> readNumber(std::int32_t handle) {
    Number number;
    return readAll(handle, &number, sizeof number) ? std::optional(number) : std::nullopt;
}

// The bytes written, fewer when the disk is full, or -1. Nothing is written of an empty text.
std::int32_t writeText(std::int32_t handle, std::string_view text);

}  // namespace vx
