// Moments and time stamps as Win32 takes and gives them.
#pragma once

#include <windows.h>

#include <bit>

#include "platform/moment.h"

namespace vx::platform {

inline SYSTEMTIME systemTime(const Moment& moment) { return std::bit_cast<SYSTEMTIME>(moment); }

inline FILETIME fileTime(FileTime time) {
    return {.dwLowDateTime = static_cast<DWORD>(time), .dwHighDateTime = static_cast<DWORD>(time >> 32)};
}
inline FileTime fileTime(const FILETIME& time) {
    return (static_cast<FileTime>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

}  // namespace vx::platform
