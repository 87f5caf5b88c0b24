// CONFIG.SYS, as far as it tells something about drives: its LASTDRIVE line, which Windows 95 still goes by.
#pragma once

#include <cstdint>
#include <optional>

namespace vx {

// The 0-based drive of the LASTDRIVE line; nothing if there is no file or no such line.
std::optional<std::int32_t> configuredLastDrive();

}  // namespace vx
