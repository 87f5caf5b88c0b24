// Wildcards in the last component of a searched name, with the meaning that Windows gives them.
//
// A pattern is turned into symbols, and a name is run through all states at once that the characters so far can have
// led to: `skip` adds those that are reached without a character, `advance` takes one. So time is bounded by the two
// lengths, however many stars there are, and no memory is asked for.
#pragma once

#include <string_view>

#include "platform/tree.h"

namespace vx::platform {

inline bool hasWildcards(std::string_view name) { return name.find_first_of("?*") != std::string_view::npos; }

class Wildcards {
 public:
    // `pattern` is shorter than kPathSize.
    explicit Wildcards(std::string_view pattern);

    bool match(std::string_view name) const;

 private:
    // Characters that no name in a pattern can hold.
    enum Symbol : char {
        kAny = '*',       // *: any characters
        kAnyBase = '\\',  // * before a dot: any characters, but not the last dot
        kOne = '?',       // ?: a character; at a dot and at the end, none
        kDotOrEnd = '/',  // a dot before a wildcard: a dot, or the end
    };

    bool advance(const bool* from, bool* to, char c, bool isLastDot) const;
    void skip(bool* states, bool atDot, bool atEnd) const;

    char symbols_[kPathSize];
    std::size_t size_ = 0;
};

}  // namespace vx::platform
