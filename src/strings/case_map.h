// Characters mapped through a case table, sixteen at once where they are ASCII.
#pragma once

#include <emmintrin.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "frame/text.h"
#include "strings/blocks.h"

namespace vx {

using CaseTable = std::uint8_t[256];

inline constexpr char kCaseBit = 'a' - 'A';

inline constexpr std::size_t kAsciiHalf = 128;  // of a case table

// The other case of the letters from `first` on, as a case table's ASCII half has it unless somebody sets it otherwise.
struct AsciiCase {
    constexpr explicit AsciiCase(char firstLetter) : first(firstLetter) {
        for (int c = 0; c < static_cast<int>(kAsciiHalf); ++c) {
            half[c] = static_cast<std::uint8_t>(c >= first && c < first + 26 ? c ^ kCaseBit : c);
        }
    }

    bool agreesWith(const CaseTable& table) const { return std::memcmp(table, half, sizeof half) == 0; }

    char first;
    std::uint8_t half[kAsciiHalf];
};
inline constexpr AsciiCase kAsciiUpper('a');
inline constexpr AsciiCase kAsciiLower('A');

// From this size on, blocks win more than the look at the table's ASCII half costs.
inline constexpr std::size_t kBlockwise = 64;

// Maps whole blocks, the characters from 0x80 upward by the table; returns how many characters that were.
inline std::size_t mapBlocks(const char* from, char* to, std::size_t size, const CaseTable& table,
                             const AsciiCase& ascii) {
    const __m128i below = _mm_set1_epi8(static_cast<char>(ascii.first - 1));
    const __m128i above = _mm_set1_epi8(static_cast<char>(ascii.first + 26));
    std::size_t done = 0;
    for (; size - done >= kBlock; done += kBlock) {
        __m128i block = load(from + done);
        __m128i letters = _mm_and_si128(_mm_cmpgt_epi8(block, below), _mm_cmpgt_epi8(above, block));
        storeBlock(to + done, _mm_xor_si128(block, _mm_and_si128(letters, _mm_set1_epi8(kCaseBit))));
        unsigned places = bits(block);
        if (places == 0) continue;
        std::uint8_t before[kBlock];
        storeBlock(before, block);
        for (; places; places &= places - 1) {
            unsigned place = static_cast<unsigned>(std::countr_zero(places));
            to[done + place] = static_cast<char>(table[before[place]]);
        }
    }
    return done;
}

// Maps characters from one place to another, or in place; by blocks as long as nobody has set the table's ASCII half
// otherwise.
inline void mapBytes(const char* from, char* to, std::size_t size, const CaseTable& table, const AsciiCase& ascii) {
    bool blockwise = size >= kBlockwise && ascii.agreesWith(table);
    std::size_t i = blockwise ? mapBlocks(from, to, size, table, ascii) : 0;
#pragma GCC unroll 4
    for (; i < size; ++i) to[i] = static_cast<char>(table[byteOf(from[i])]);
}

}  // namespace vx
