// Text layout: what other families use of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vx {

// Ends a line where a text was wrapped; a line feed follows it.
inline constexpr char kSoftReturn = '\x8D';

// The width between tab stops that a tab width argument selects: -2 is the usual 8, others are clipped to 1..255.
std::size_t tabWidthOf(std::int32_t argument);

// The last column that a tab at `column` (from 1) fills.
inline std::size_t tabEnd(std::size_t column, std::size_t width) { return ((column - 1) / width + 1) * width; }

}  // namespace vx
