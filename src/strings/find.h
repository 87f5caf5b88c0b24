// Occurrence search: where, and how often, a text stands in another one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vx {

enum class Casing { kExact, kBlind };  // blind: characters are equal when the upper-case table says so

inline constexpr std::size_t kNotFound = std::string_view::npos;

// Offset of the n-th occurrence; occurrences may overlap, n below 0 counts from the end. Occurrence 0 and those of an
// empty text are never found.
std::size_t findOccurrence(std::string_view search, std::string_view text, std::int32_t n = 1,
                           Casing casing = Casing::kExact);

}  // namespace vx
