// Trimming: what other families use of it.
#pragma once

#include <string_view>

namespace vx {

// A blank is the space character only; tabs stay.
std::string_view withoutLeadingBlanks(std::string_view text);
std::string_view withoutTrailingBlanks(std::string_view text);
inline std::string_view withoutBlanks(std::string_view text) {
    return withoutTrailingBlanks(withoutLeadingBlanks(text));
}

}  // namespace vx
