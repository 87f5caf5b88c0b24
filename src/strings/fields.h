// The fields and sections of a delimited text, for all families.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vx {

struct Field {
    std::size_t start;
    std::size_t length;
    std::size_t next;  // where scanning goes on: behind the delimiter that ended the field
};

// Field n (below 1 is 1) between single delimiter characters, or section n between an opening and a closing mark.
// One that does not exist is empty and starts at the end of the text. Without delimiters the text is one field.
Field findField(std::string_view text, std::string_view delimiters, std::int32_t n);

// A delimiter argument: as many characters of it as matter to findField.
inline std::string_view delimiterMarks(const char* delimiters) {
    if (!delimiters || delimiters[0] == '\0') return {};
    return {delimiters, std::size_t{1} + (delimiters[1] != '\0')};
}

}  // namespace vx
