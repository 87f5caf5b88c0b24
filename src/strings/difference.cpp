#include "strings/difference.h"

#include <algorithm>
#include <bit>

#include "frame/text.h"
#include "strings/blocks.h"

namespace vx {
namespace {

struct Exact {
    static char of(char c) { return c; }
    static __m128i of(__m128i bytes) { return bytes; }
};

struct AsciiBlind {
    static char of(char c) { return asciiLower(c); }
    static __m128i of(__m128i bytes) {
        const __m128i capital =
            _mm_and_si128(_mm_cmpgt_epi8(bytes, _mm_set1_epi8('A' - 1)), _mm_cmplt_epi8(bytes, _mm_set1_epi8('Z' + 1)));
        return _mm_or_si128(bytes, _mm_and_si128(capital, _mm_set1_epi8('a' - 'A')));
    }
};

template <class Fold>
std::size_t difference(const char* a, const char* b, std::size_t limit) {
    for (std::size_t i = 0; i < limit;) {
        std::size_t readable = std::min(readableFrom(a + i), readableFrom(b + i));
        for (; readable >= kBlock; readable -= kBlock, i += kBlock) {
            if (i >= limit) return limit;
            const __m128i one = load(a + i);
            const __m128i same = _mm_cmpeq_epi8(Fold::of(one), Fold::of(load(b + i)));
            const __m128i end = _mm_cmpeq_epi8(one, _mm_setzero_si128());
            const unsigned goesOn = bits(_mm_andnot_si128(end, same));
            if (goesOn != 0xFFFF) return std::min(i + static_cast<std::size_t>(std::countr_one(goesOn)), limit);
        }
        for (std::size_t end = std::min(i + kBlock, limit); i < end; ++i) {
            if (Fold::of(a[i]) != Fold::of(b[i]) || a[i] == '\0') return i;
        }
    }
    return limit;
}

}  // namespace

std::size_t firstDifference(const char* a, const char* b, std::size_t limit) { return difference<Exact>(a, b, limit); }

std::size_t firstAsciiBlindDifference(const char* a, const char* b, std::size_t limit) {
    return difference<AsciiBlind>(a, b, limit);
}

}  // namespace vx
