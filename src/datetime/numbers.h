// Numbers within date and time texts.
#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>

namespace vx {

// Takes a signed decimal number from the start of a text: leading blanks, a sign, digits up to the first other
// character. 0 without digits; one too large is the largest.
std::int32_t takeNumber(std::string_view& text);

// The numbers of the first three fields of a text between delimiters (one character); a missing field is 0.
std::array<std::int32_t, 3> threeNumbers(std::string_view text, std::string_view delimiter);

// Put a number at `to`, without a terminator; they return its end.
constexpr std::size_t kLongestNumber = 11;

inline char* putNumber(char* to, std::int32_t value) { return std::to_chars(to, to + kLongestNumber, value).ptr; }

// kept: everything below 10 gets the zero, negative numbers too.
inline char* putTwoDigits(char* to, std::int32_t value) {
    if (value < 10) *to++ = '0';
    return putNumber(to, value);
}

}  // namespace vx
