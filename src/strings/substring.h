// Substrings: what other families use of it.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace vx {

// The first `limit` characters of a caller's text, without looking behind them: a call for a piece of a long text
// does not pay for all of it.
inline std::string_view viewOfFirst(const char* text, std::size_t limit) {
    return text ? std::string_view(text, strnlen(text, limit)) : std::string_view();
}

}  // namespace vx
