// A character counted in a text, and found from its end.
#pragma once

#include <emmintrin.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "strings/blocks.h"

namespace vx {

inline std::size_t countCharacter(char c, std::string_view text) {
    const __m128i wanted = _mm_set1_epi8(c);
    __m128i total = _mm_setzero_si128();
    std::size_t i = 0;
    while (text.size() - i >= kBlock) {
        // A byte counts to 255 before it is added to the wider totals.
        const std::size_t end = i + std::min<std::size_t>((text.size() - i) / kBlock, 255) * kBlock;
        __m128i counts = _mm_setzero_si128();
        for (; i < end; i += kBlock) counts = _mm_sub_epi8(counts, _mm_cmpeq_epi8(load(text.data() + i), wanted));
        total = _mm_add_epi32(total, _mm_sad_epu8(counts, _mm_setzero_si128()));
    }
    std::size_t count = static_cast<std::uint32_t>(_mm_cvtsi128_si32(total));
    count += static_cast<std::uint32_t>(_mm_cvtsi128_si32(_mm_srli_si128(total, 8)));
    for (; i < text.size(); ++i) count += text[i] == c;
    return count;
}

inline std::size_t findLastCharacter(char c, std::string_view text) {
    const __m128i wanted = _mm_set1_epi8(c);
    std::size_t end = text.size();
    for (; end >= kBlock; end -= kBlock) {
        unsigned found = bits(_mm_cmpeq_epi8(load(text.data() + end - kBlock), wanted));
        if (found) return end - kBlock + static_cast<std::size_t>(std::bit_width(found)) - 1;
    }
    return text.substr(0, end).rfind(c);
}

}  // namespace vx
