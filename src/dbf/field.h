// One field of a table, as its descriptor tells and as it lies within the records.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

#include "dbf/format.h"

namespace vx::dbf {

struct Field {
    char name[kNameRoom] = {};
    char type = 'C';
    std::uint8_t width = 1;  // low byte of the length
    std::uint8_t decimals = 0;
    std::int32_t offset = 0;  // in a record's data
    std::int32_t start = 0;   // what lies within the record: from here on,
    std::int32_t extent = 0;  // and so many bytes
    bool isStored = true;     // in the record itself
    bool isText = true;       // read with a terminator

    bool isNumber() const { return type == 'N' || type == 'F'; }
    std::int32_t lengthWord() const { return width + 256 * decimals; }
    std::int32_t length() const { return isNumber() ? width : lengthWord(); }
    std::string_view nameText() const { return {name, strnlen(name, kNameRoom - 1)}; }
};

}  // namespace vx::dbf
