// What the occurrence search compares with: single bytes at 16 places at once, and whole candidates.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "frame/text.h"
#include "strings/blocks.h"
#include "strings/case_map.h"
#include "strings/find.h"

namespace vx::scanning {

inline constexpr unsigned kAllStarts = 0xFFFF;

struct Exact {
    static constexpr Casing kCasing = Casing::kExact;
    static std::uint8_t of(char c) { return byteOf(c); }
};
struct Blind {
    static constexpr Casing kCasing = Casing::kBlind;
    static std::uint8_t of(char c) { return library.upper[byteOf(c)]; }
};

template <class Word>
bool equalEnds(const char* a, const char* b, std::size_t size) {
    Word words[4];
    std::memcpy(&words[0], a, sizeof(Word));
    std::memcpy(&words[1], b, sizeof(Word));
    std::memcpy(&words[2], a + size - sizeof(Word), sizeof(Word));
    std::memcpy(&words[3], b + size - sizeof(Word), sizeof(Word));
    return words[0] == words[1] && words[2] == words[3];
}

inline bool equalBlock(const char* a, const char* b) { return bits(_mm_cmpeq_epi8(load(a), load(b))) == kAllStarts; }

[[gnu::noinline]] inline bool equalBlocks(const char* a, const char* b, std::size_t size, std::size_t& work) {
    for (std::size_t i = 0; i + kBlock < size; i += kBlock, ++work) {
        if (!equalBlock(a + i, b + i)) return false;
    }
    return equalBlock(a + size - kBlock, b + size - kBlock);
}

// Whether a candidate, whose first and last byte are known to fit, is an occurrence. `work` counts the blocks
// of 16 bytes that this took beyond the first.
inline bool equal(Exact, const char* a, const char* b, std::size_t size, std::size_t& work) {
    if (size <= 2) return true;
    if (size == 3) return a[1] == b[1];
    if (size < 8) return equalEnds<std::uint32_t>(a, b, size);
    if (size <= kBlock) return equalEnds<std::uint64_t>(a, b, size);
    return equalBlocks(a, b, size, work);
}

inline bool equal(Blind, const char* a, const char* b, std::size_t size, std::size_t& work) {
    std::size_t i = 0;
    while (i < size && Blind::of(a[i]) == Blind::of(b[i])) ++i;
    work += i / kBlock;
    return i == size;
}

// Tests 16 bytes for a value, or for those that the upper-case table makes equal to it.
template <class Fold>
class ByteTest;

template <>
class ByteTest<Exact> {
 public:
    ByteTest(char c, bool) : value_(_mm_set1_epi8(c)) {}
    __m128i operator()(const char* from) const { return _mm_cmpeq_epi8(load(from), value_); }

 private:
    __m128i value_;
};

// Mostly two bytes share an upper-case value: a letter's two cases. Of larger classes, two ASCII members are compared
// and all bytes from 0x80 on pass; with more ASCII members, every byte passes. Verification decides.
template <>
class ByteTest<Blind> {
 public:
    // `strict` takes a closer look at the table, worth it for long texts only.
    ByteTest(char c, bool strict) {
        const char one = upper(c);
        if (one >= 0 && kAsciiUpper.agreesWith(library.upper)) {
            const char other = asciiLower(one);
            set(one, other, strict && !inUpperHalf(one) ? kSmallest : 0);
        } else {
            collect(one);
        }
    }

    __m128i operator()(const char* from) const {
        const __m128i bytes = load(from);
        const __m128i either = _mm_or_si128(_mm_cmpeq_epi8(bytes, one_), _mm_cmpeq_epi8(bytes, other_));
        return _mm_or_si128(either, _mm_cmplt_epi8(bytes, bound_));
    }

 private:
    static constexpr int kSmallest = -128;  // as signed bytes: none is below the smallest, the upper half is below 0
    static constexpr int kLargest = 127;

    static bool inUpperHalf(char value) {
        const __m128i wanted = _mm_set1_epi8(value);
        __m128i found = _mm_setzero_si128();
        for (std::size_t i = kAsciiHalf; i < 256; i += kBlock) {
            found = _mm_or_si128(found, _mm_cmpeq_epi8(load(library.upper + i), wanted));
        }
        return bits(found) != 0;
    }

    void collect(char value) {
        int found[2] = {};
        int count = 0;
        int ascii = 0;
        const __m128i wanted = _mm_set1_epi8(value);
        for (int base = 0; base < 256; base += static_cast<int>(kBlock)) {
            for (unsigned mask = bits(_mm_cmpeq_epi8(load(library.upper + base), wanted)); mask; mask &= mask - 1) {
                if (count < 2) found[count] = base + std::countr_zero(mask);
                ++count;
                ascii += base < static_cast<int>(kAsciiHalf);
            }
        }
        if (ascii > 2) {
            set(kLargest, kLargest, kLargest);
        } else if (count > 2) {
            set(found[0], ascii == 2 ? found[1] : found[0], 0);
        } else {
            set(found[0], found[count - 1], kSmallest);
        }
    }

    void set(int one, int other, int bound) {
        one_ = _mm_set1_epi8(static_cast<char>(one));
        other_ = _mm_set1_epi8(static_cast<char>(other));
        bound_ = _mm_set1_epi8(static_cast<char>(bound));
    }

    __m128i one_;
    __m128i other_;
    __m128i bound_;
};

}  // namespace vx::scanning
