// Tokens: the search for runs of characters between delimiters, for all families.
//
// Delimiters in a row separate like one, so no token is ever empty.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "frame/byteset.h"
#include "frame/text.h"

namespace vx {

// The delimiters of a search. The terminator always is one, so that a walk over a token needs no test of its own for
// the end of the text.
class DelimiterSet : public ByteSet {
 public:
    constexpr explicit DelimiterSet(const char* members) : ByteSet(members) { add('\0'); }
};

// Blank, punctuation, line ends (0x8A and 0x8D are the soft ones of memo texts) and the end-of-file mark.
inline constexpr DelimiterSet kDefaultDelimiters(" .,-\t\n\r\x8A\x8D!?/;:()^#&%+*\"'\x1A");

// The delimiters that a caller's argument selects: its characters, or the default set if it is NULL or empty.
class Delimiters {
 public:
    explicit Delimiters(const char* argument) {
        if (argument && *argument) own_.emplace(argument);
    }

    operator const DelimiterSet&() const { return own_ ? *own_ : kDefaultDelimiters; }

 private:
    std::optional<DelimiterSet> own_;
};

struct Token {
    std::size_t offset = 0;
    std::size_t length = 0;

    std::size_t end() const { return offset + length; }
    std::string_view in(std::string_view text) const { return text.substr(offset, length); }
};

// Token n, from 1; -1 is the last one. Token 0 is the empty piece at the start of a text that is not empty.
std::optional<Token> findToken(std::string_view text, const DelimiterSet& delimiters, std::int32_t n);

// The same in a caller's text (NULL is an empty one), which is read no further than needed.
std::optional<Token> findToken(const char* text, const DelimiterSet& delimiters, std::int32_t n);

// The first token that begins at `from` or behind it: visits all tokens in one pass, each search going on at the end
// of the token before.
inline std::optional<Token> nextToken(std::string_view text, const DelimiterSet& delimiters, std::size_t from) {
    while (from < text.size() && delimiters.contains(text[from])) ++from;
    if (from >= text.size()) return std::nullopt;
    std::size_t end = from + 1;
    while (end < text.size() && !delimiters.contains(text[end])) ++end;
    return Token{from, end - from};
}

std::size_t countTokens(std::string_view text, const DelimiterSet& delimiters);

}  // namespace vx
