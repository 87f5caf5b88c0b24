#include "dbf/table_path.h"

namespace vx::dbf {

TablePath::TablePath(const char* name) : parts_(splitPath(name)) {
    if (!*parts_.extension) with(".DBF");
}

// Letter by letter, as far as the extension that was there goes: "customers.Dbf" leads to "customers.Dbt".
TablePath& TablePath::with(const char* extension) {
    constexpr char kLowerBit = 0x20;
    char* to = parts_.extension;
    bool isLower = false;  // what is no letter is as the one before
    for (bool ended = false; *extension; ++extension, ++to) {
        ended = ended || *to == '\0';
        bool isLetter = !ended && (*to | kLowerBit) >= 'a' && (*to | kLowerBit) <= 'z';
        if (isLetter) isLower = (*to & kLowerBit) != 0;
        *to = isLower ? static_cast<char>(*extension | kLowerBit) : *extension;
    }
    *to = '\0';
    return *this;
}

const char* TablePath::get() {
    joinPath(parts_, text_);
    return text_;
}

}  // namespace vx::dbf
