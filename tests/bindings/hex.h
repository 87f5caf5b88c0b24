// Bytes as hexadecimal digits, and back.
#pragma once

#include <string>
#include <string_view>

namespace vx::test {

inline std::string hex(std::string_view bytes) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text(2 * bytes.size(), '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        auto byte = static_cast<unsigned char>(bytes[i]);
        text[2 * i] = kDigits[byte >> 4];
        text[2 * i + 1] = kDigits[byte & 15];
    }
    return text;
}

inline std::string bytesOf(std::string_view digits) {
    auto value = [](char c) { return c <= '9' ? c - '0' : c - 'a' + 10; };
    std::string bytes(digits.size() / 2, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(value(digits[2 * i]) * 16 + value(digits[2 * i + 1]));
    return bytes;
}

}  // namespace vx::test
