// The engine of the occurrence search.
//
// What runs when, and which rows of the benchmark (bench/strings/search_bench.cpp) pay for it:
//  - The filter compares the first and the last character of what is searched with 16 places of the text at once, with
//    64 as long as there are so many (at/rare, StrCount/rare). Where both fit is a candidate, and candidates are
//    verified. The last character and not the second one: of the two it depends less on the first, so that fewer
//    candidates are false. From the end of a text it works in the same way (Rat/none).
//  - A text with fewer than 16 starts is one step: loads that overlap or, below 16 characters, a loop.
//  - Verifying is counted. Texts like aaaa... make a candidate of each place, and the product of both lengths of the
//    work; so where the count outgrows the text that was passed, the two-way search (two_way.h) goes on, whose time is
//    linear and whose memory constant (at/spiteful, StrCount/1000 a).
//  - Case-blind searches take the same way: a character is compared with the two that its upper-case class mostly has
//    (byte_test.h), and whatever the filter lets through too much, verifying by the table sorts out (Ati/rare).
// Each way finds the same occurrences in the same order; they differ in time only.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include "strings/byte_test.h"
#include "strings/find.h"
#include "strings/two_way.h"

namespace vx::scanning {

inline constexpr std::size_t kStop = kNotFound;

// One search over one text; Visit gets each occurrence in order and returns where the next one may start, or kStop.
template <class Fold, bool kBackward, class Visit>
class Scan {
 public:
    Scan(std::string_view search, std::string_view text, Visit& visit) : search_(search), text_(text), visit_(visit) {}

    void run() {
        if (search_.empty() || text_.size() < search_.size()) return;
        starts_ = text_.size() - search_.size() + 1;
        if (text_.size() < kBlock) {
            verifyAll(candidatesOneByOne());
            return;
        }
        const bool strict = starts_ >= kWorthStrictTests;
        const Filter filter{ByteTest<Fold>(search_.front(), strict), ByteTest<Fold>(search_.back(), strict),
                            text_.data(), search_.size() - 1};
        if (starts_ < kBlock) {  // the last bytes end with the text; shift them below their starts
            unsigned last = bits(filter.last(text_.data() + text_.size() - kBlock)) >> (kBlock - starts_);
            verifyAll(bits(filter.first(text_.data())) & last);
            return;
        }
        if constexpr (kBackward) {
            fromEnd(filter);
        } else {
            fromStart(filter);
        }
    }

 private:
    using Mask = std::uint64_t;  // one bit a start

    struct Filter {
        __m128i signs(std::size_t at) const { return _mm_and_si128(first(text + at), last(text + at + lastOffset)); }
        Mask block(std::size_t at) const { return bits(signs(at)); }
        Mask stride(std::size_t at) const {
            const __m128i a = signs(at);
            const __m128i b = signs(at + kBlock);
            const __m128i c = signs(at + 2 * kBlock);
            const __m128i d = signs(at + 3 * kBlock);
            if (bits(_mm_or_si128(_mm_or_si128(a, b), _mm_or_si128(c, d))) == 0) return 0;
            return bits(a) | (Mask{bits(b)} << kBlock) | (Mask{bits(c)} << (2 * kBlock)) |
                   (Mask{bits(d)} << (3 * kBlock));
        }

        ByteTest<Fold> first;
        ByteTest<Fold> last;
        const char* text;
        std::size_t lastOffset;
    };

    void fromStart(const Filter& filter) {
        for (std::size_t at = 0; at < starts_;) {
            const bool wide = starts_ - at >= kStride;
            const std::size_t base = wide ? at : std::min(at, starts_ - kBlock);
            const Mask mask = wide ? filter.stride(at) : filter.block(base);
            if (mask && !verify(mask, base)) return;
            at = std::max(base + (wide ? kStride : kBlock), next_);
        }
    }

    void fromEnd(const Filter& filter) {
        for (std::size_t end = starts_; end > 0;) {
            const bool wide = end >= kStride;
            const std::size_t base = wide ? end - kStride : std::max(end, kBlock) - kBlock;
            const Mask mask = wide ? filter.stride(base) : filter.block(base) & (kAllStarts >> (base + kBlock - end));
            if (mask && !verify(mask, base)) return;
            end = base;
        }
    }

    Mask candidatesOneByOne() const {
        const std::uint8_t first = Fold::of(search_.front());
        const std::uint8_t last = Fold::of(search_.back());
        Mask mask = 0;
        for (std::size_t i = 0; i < starts_; ++i) {
            bool candidate = Fold::of(text_[i]) == first && Fold::of(text_[i + search_.size() - 1]) == last;
            mask |= Mask{candidate} << i;
        }
        return mask;
    }

    static std::size_t nextOf(Mask& mask) {
        auto bit = static_cast<std::size_t>(kBackward ? std::bit_width(mask) - 1 : std::countr_zero(mask));
        mask &= ~(Mask{1} << bit);
        return bit;
    }

    bool occursAt(std::size_t at) { return equal(Fold{}, text_.data() + at, search_.data(), search_.size(), work_); }

    // All candidates of a text with fewer than 16 starts.
    void verifyAll(Mask mask) {
        while (mask) {
            std::size_t at = nextOf(mask);
            if (at >= next_ && occursAt(at) && !report(at)) return;
        }
    }

    // Hands on those candidates that are occurrences; false when the search has ended.
    bool verify(Mask mask, std::size_t base) {
        while (mask) {
            std::size_t at = base + nextOf(mask);
            if (at < next_) continue;
            if (occursAt(at) && !report(at)) return false;
            if (work_ > kFreeWork + (kBackward ? starts_ - at : at) / kBytesPerWork) {
                goOnLinearly(at);
                return false;
            }
        }
        return true;
    }

    bool report(std::size_t at) {
        std::size_t next = visit_(at);
        if (next == kStop) return false;
        if (!kBackward) next_ = next;
        return true;
    }

    [[gnu::noinline]] void goOnLinearly(std::size_t behind) {
        using Bytes = FoldedBytes<Fold, kBackward>;
        const std::size_t lastStart = starts_ - 1;
        TwoWay<Bytes> search(Bytes{search_}, Bytes{text_});
        std::size_t from = kBackward ? lastStart - behind + 1 : std::max(behind + 1, next_);
        for (std::size_t at; (at = search.next(from)) != kNotFound; from = kBackward ? at + 1 : next_) {
            if (!report(kBackward ? lastStart - at : at)) return;
        }
    }

    static constexpr std::size_t kStride = 4 * kBlock;
    static constexpr std::size_t kWorthStrictTests = 1024;  // starts
    // Work is blocks compared beyond the first of a candidate: so many are free, then one for so many bytes passed.
    static constexpr std::size_t kFreeWork = 64;
    static constexpr std::size_t kBytesPerWork = 4;

    std::string_view search_;
    std::string_view text_;
    Visit& visit_;
    std::size_t starts_ = 0;
    std::size_t next_ = 0;  // where the next occurrence may start
    std::size_t work_ = 0;
};

// Calls visit(offset) for one occurrence after the other, from the start or, overlapping ones only, from the end.
template <class Fold, bool kBackward = false, class Visit>
void scan(std::string_view search, std::string_view text, Visit&& visit) {
    Scan<Fold, kBackward, std::remove_reference_t<Visit>>(search, text, visit).run();
}

// A visitor that stops at occurrence number `remaining`; of a text in pieces it sees one after the other.
struct CountDown {
    std::size_t operator()(std::size_t at) {
        if (--remaining > 0) return at + 1;
        found = at;
        return kStop;
    }

    std::size_t remaining;
    std::size_t found = kNotFound;
};

}  // namespace vx::scanning
