// A set of characters, one look-up a question, quick enough to be made for a single short call.
#pragma once

#include <emmintrin.h>

#include <cstdint>
#include <type_traits>

namespace vx {

class ByteSet {
 public:
    constexpr ByteSet() { clear(); }

    // The characters of a caller's text; NULL is an empty set.
    constexpr explicit ByteSet(const char* members) {
        clear();
        if (!members) return;
        for (; *members; ++members) add(*members);
    }

    constexpr void add(char c) { flags_[static_cast<std::uint8_t>(c)] = 1; }
    constexpr bool contains(char c) const { return flag(c) != 0; }

    // 1 for a member, else 0: to count and to advance by, without a branch.
    constexpr unsigned flag(char c) const { return flags_[static_cast<std::uint8_t>(c)]; }

 private:
    // By vector stores of a zero that the compiler cannot see: it would make a string instruction of them, whose start
    // takes longer than a short search.
    constexpr void clear() {
        if (std::is_constant_evaluated()) {
            for (std::uint8_t& flag : flags_) flag = 0;
        } else {
            __m128i zero = _mm_setzero_si128();
            __asm__("" : "+x"(zero));
#pragma GCC unroll 16
            for (int c = 0; c < 256; c += 16) _mm_storeu_si128(reinterpret_cast<__m128i*>(flags_ + c), zero);
        }
    }

    std::uint8_t flags_[256];
};

}  // namespace vx
