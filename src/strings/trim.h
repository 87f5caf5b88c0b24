// Trimming: what other families use of it.
#pragma once

#include <string_view>

namespace vx {

// A blank is the space character only; tabs stay.
inline std::string_view withoutLeadingBlanks(std::string_view text) {
    std::size_t start = 0;
    while (start < text.size() && text[start] == ' ') ++start;
    return text.substr(start);
}

inline std::string_view withoutTrailingBlanks(std::string_view text) {
    std::size_t size = text.size();
    while (size > 0 && text[size - 1] == ' ') --size;
    return text.substr(0, size);
}

inline std::string_view withoutBlanks(std::string_view text) {
    return withoutTrailingBlanks(withoutLeadingBlanks(text));
}

}  // namespace vx
