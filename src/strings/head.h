// Occurrences at the start of a text, found without measuring it: short texts are done with here.
#pragma once

#include <bit>
#include <cstdint>

#include "strings/blocks.h"
#include "strings/byte_test.h"

namespace vx::scanning {

inline constexpr std::size_t kHead = 64;

enum class Head { kFound, kNone, kUndecided };

struct HeadResult {
    Head outcome;
    std::size_t offset = 0;
};

// Whether `search` stands at the start of a text. One longer than the head does not, but then the text is long, too.
template <class Fold>
bool startsWith(const char* text, const char* search) {
    for (std::size_t i = 0; i <= kHead; ++i) {
        if (search[i] == '\0') return true;
        if (text[i] == '\0' || Fold::of(text[i]) != Fold::of(search[i])) return false;
    }
    return false;
}

inline constexpr std::int32_t kLast = -1;

// Occurrence n, from 1, or the last one of a text that is not empty; undecided when the head does not tell.
template <class Fold>
HeadResult findInHead(const char* search, const char* text, std::int32_t n) {
    const std::size_t secondAt = search[1] ? 1 : 0;
    const ByteTest<Fold> first(search[0], false);
    const ByteTest<Fold> second(search[secondAt], false);
    HeadResult last{Head::kNone};
    for (std::size_t base = 0; base < kHead; base += kBlock) {
        const char* block = text + base;
        if (readableFrom(block) <= kBlock) return {Head::kUndecided};
        const unsigned ends = bits(_mm_cmpeq_epi8(load(block), _mm_setzero_si128()));
        const unsigned hits = bits(_mm_and_si128(first(block), second(block + secondAt)));
        for (unsigned mask = hits & ~ends & (ends - 1); mask;) {
            const int bit = n == kLast ? std::bit_width(mask) - 1 : std::countr_zero(mask);
            mask &= ~(1u << bit);
            if (!startsWith<Fold>(block + bit, search)) continue;
            last = {Head::kFound, base + static_cast<std::size_t>(bit)};
            if (n == kLast) break;
            if (--n == 0) return last;
        }
        if (ends) return n == kLast ? last : HeadResult{Head::kNone};
    }
    return {Head::kUndecided};
}

}  // namespace vx::scanning
