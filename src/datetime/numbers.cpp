#include "datetime/numbers.h"

#include <algorithm>
#include <limits>

#include "strings/fields.h"

namespace vx {

std::int32_t takeNumber(std::string_view& text) {
    using Limits = std::numeric_limits<std::int32_t>;
    const char* at = text.data();
    const char* end = at + text.size();
    while (at < end && *at == ' ') ++at;
    bool negative = at < end && *at == '-';
    if (at < end && (*at == '-' || *at == '+')) ++at;
    std::int64_t value = 0;
    for (unsigned digit; at < end && (digit = static_cast<unsigned>(*at - '0')) <= 9; ++at) {
        if (value <= Limits::max()) value = value * 10 + digit;
    }
    text.remove_prefix(static_cast<std::size_t>(at - text.data()));
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(negative ? -value : value, Limits::min(), Limits::max()));
}

std::array<std::int32_t, 3> threeNumbers(std::string_view text, std::string_view delimiter) {
    std::array<std::int32_t, 3> numbers;
    for (std::int32_t& number : numbers) {
        number = takeNumber(text);
        // As a rule the field ends with its number.
        bool atEnd = text.empty() || text.front() == delimiter.front();
        text.remove_prefix(atEnd ? !text.empty() : findField(text, delimiter, 1).next);
    }
    return numbers;
}

}  // namespace vx
