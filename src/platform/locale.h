// The system's language-dependent mappings and texts, on single-byte characters of the active code page.
#pragma once

#include <cstdint>

#include "platform/moment.h"

namespace vx::platform {

class Locale {
 public:
    // Convert `count` characters in place; the number converted, 0 where the system has no such mapping.
    virtual std::uint32_t upperCase(char* characters, std::uint32_t count) = 0;
    virtual std::uint32_t lowerCase(char* characters, std::uint32_t count) = 0;

    // The locale's upper-case mapping of all bytes, NUL included, from one array into another; the number mapped.
    virtual std::uint32_t mapToUpper(const char* from, char* to, std::uint32_t count) = 0;

    // Whether a byte of 0x80 or more is the first of a double-byte character in the system's code page.
    virtual bool isLeadByte(char c) = 0;

    // A number in plain digits as the locale writes it: grouped, with its decimals. The number of bytes put into `to`,
    // terminator included; 0 if the text is no number or the result does not fit.
    virtual std::uint32_t formatNumber(const char* number, char* to, std::uint32_t room) = 0;

    // A date by a picture, with the names of the system's default locale: yyyy, MM and dd are numbers, MMM, MMMM and
    // dddd names, and what is no letter of these stands for itself. Only the date counts. Result as above; 0 for what is no date.
    virtual std::uint32_t formatDate(const Moment& date, const char* picture, char* to, std::uint32_t room) = 0;

    // A time of day as the user's locale writes it, in 24 hours and without a marker. Only the hour, the minute and
    // the second count. Result as above; 0 for what is no time of day.
    virtual std::uint32_t formatTime(const Moment& time, char* to, std::uint32_t room) = 0;

 protected:
    ~Locale() = default;
};

}  // namespace vx::platform
