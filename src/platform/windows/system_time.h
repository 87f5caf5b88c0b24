#pragma once

#include <windows.h>

#include <bit>

#include "platform/moment.h"

namespace vx::platform {

inline SYSTEMTIME systemTime(const Moment& moment) { return std::bit_cast<SYSTEMTIME>(moment); }

}  // namespace vx::platform
