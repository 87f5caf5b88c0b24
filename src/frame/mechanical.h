// What the entries made from the export table need: length forms and 1-based twins.
#pragma once

#include <cstdint>
#include <cstring>
#include <limits>

namespace vx::mechanical {

// Length of the text that a pointer form returned, or, when it returned NULL, of the text that it left behind.
inline std::uint32_t resultLength(const char* result, const char* leftBehind) {
    const char* text = result ? result : leftBehind;
    return text ? static_cast<std::uint32_t>(std::strlen(text)) : 0;
}

// A position that cannot be moved down is out of range either way; it must not wrap round to a large one.
inline std::int32_t zeroBased(std::int32_t position) {
    return position == std::numeric_limits<std::int32_t>::min() ? position : position - 1;
}

inline std::int32_t oneBased(std::int32_t position) { return position + 1; }

}  // namespace vx::mechanical
