// A set of characters, small enough to build for a single call.
#pragma once

#include <cstdint>
#include <string_view>

namespace vx {

class ByteSet {
 public:
    constexpr ByteSet() = default;
    constexpr explicit ByteSet(std::string_view members) {
        for (char c : members) add(c);
    }

    constexpr void add(char c) { bits_[index(c)] |= mask(c); }
    constexpr bool contains(char c) const { return (bits_[index(c)] & mask(c)) != 0; }

 private:
    static constexpr unsigned index(char c) { return static_cast<std::uint8_t>(c) >> 5; }
    static constexpr std::uint32_t mask(char c) { return std::uint32_t{1} << (static_cast<std::uint8_t>(c) & 31); }

    std::uint32_t bits_[8] = {};
};

}  // namespace vx
