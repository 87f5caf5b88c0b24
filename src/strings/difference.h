// Where two terminated texts part.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vx {

inline constexpr std::size_t kNoLimit = static_cast<std::size_t>(-1);

// Offset of the first character in which two texts differ, the terminator included; if there is none, that of their
// common terminator, or `limit`, which is never passed.
std::size_t firstDifference(const char* a, const char* b, std::size_t limit = kNoLimit);

// The same with A-Z counting as a-z, in plain ASCII, whatever the case tables say.
std::size_t firstAsciiBlindDifference(const char* a, const char* b, std::size_t limit = kNoLimit);

}  // namespace vx
