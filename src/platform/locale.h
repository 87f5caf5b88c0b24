// The system's language-dependent mappings, on single-byte characters of the active code page.
#pragma once

#include <cstdint>

namespace vx::platform {

class Locale {
 public:
    // Convert `count` characters in place; the number converted, 0 where the system has no such mapping.
    virtual std::uint32_t upperCase(char* characters, std::uint32_t count) = 0;
    virtual std::uint32_t lowerCase(char* characters, std::uint32_t count) = 0;

    // The locale's upper-case mapping of all bytes, NUL included, from one array into another; the number mapped.
    virtual std::uint32_t mapToUpper(const char* from, char* to, std::uint32_t count) = 0;

    // A number in plain digits as the locale writes it: grouped, with its decimals. The number of bytes put into `to`,
    // terminator included; 0 if the text is no number or the result does not fit.
    virtual std::uint32_t formatNumber(const char* number, char* to, std::uint32_t room) = 0;

 protected:
    ~Locale() = default;
};

}  // namespace vx::platform
