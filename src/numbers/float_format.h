// Formats that callers give for a number.
//
// A format goes to the C library's printing routine, which trusts it. So it is read here first: nothing but one
// conversion of a floating-point number gets there, with flags, width and precision of bounded size.
#pragma once

#include <string_view>

namespace vx {

// A caller's format for one value, taken apart: text, one floating-point conversion, text.
struct FloatFormat {
    std::string_view before, after;
    char conversion[sizeof "%-+ #0*.*f"];  // for a width and a precision that are passed beside the value
    int width = 0;
    int precision = -1;  // none
};

// Whether a text is such a format; NULL is none. The parts are views of it.
bool parseFloatFormat(const char* text, FloatFormat& format);

// Puts the value into its format at `dest`, 513 characters of it at most, with a point whatever the host's locale has.
void putFloat(char* dest, const FloatFormat& format, double value);

}  // namespace vx
