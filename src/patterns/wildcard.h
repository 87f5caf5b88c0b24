// Wildcard matching: `*` stands for any run of characters, `?` for one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "strings/find.h"

namespace vx {

// `start` is where the attempt began, plus what the pattern's first star skipped, unless that ends the pattern. `end`
// of a pattern that ends in a star is where that star begins.
struct WildMatch {
    std::size_t start;
    std::size_t end;
};

// A pattern against a text. Attempts take memory of a fixed size, and time linear in the text for each of the
// pattern's stretches between stars, unless these have question marks.
class WildMatcher {
 public:
    WildMatcher(const char* pattern, const char* text, Casing casing);

    // A match of the whole pattern that begins at `from`; it takes in all of the text behind, unless a star is last.
    std::optional<WildMatch> attempt(std::size_t from);

    // Match number n of those that follow one another, each from the end of the one before.
    std::optional<WildMatch> match(std::uint32_t n);

    // How many follow one another; one that does not advance is the last.
    std::uint32_t count();

 private:
    const char* pattern_;
    const char* text_;
    const char* textEnd_ = nullptr;  // found when first needed
    Casing casing_;
};

inline bool wildMatches(const char* pattern, const char* text, Casing casing) {
    return WildMatcher(pattern, text, casing).attempt(0).has_value();
}

}  // namespace vx
