// Names filled from patterns with wildcards.
#pragma once

#include <cstddef>
#include <string_view>

namespace vx {

// Fills the wildcards of a name's pattern from another text: ? takes the character at its position, or ends the result
// where there is none, and * takes the rest and ends it. `to` needs room for the longer of the two. The length.
std::size_t fillPattern(std::string_view pattern, std::string_view from, char* to);

}  // namespace vx
