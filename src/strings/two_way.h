// Search in linear time without extra memory (Crochemore and Perrin's two-way algorithm): what the occurrence search
// falls back to on texts that are full of near matches.
//
// What is searched is cut at a place where its period shows: the later of its two greatest suffixes, by the alphabet's
// order and by the reverse, begins there. The part behind the cut is compared first, forwards; a character that differs
// moves the search on by as many as matched, which the cut makes safe. If it all matches, the part before the cut is
// compared, and the search moves on by the period. When the whole text has that period, what overlaps the next place is
// known to match and not compared again.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vx {

// A text as its folded bytes, read from its start or from its end.
template <class Fold, bool kBackward>
class FoldedBytes {
 public:
    explicit FoldedBytes(std::string_view text) : text_(text) {}

    std::size_t size() const { return text_.size(); }
    std::uint8_t operator[](std::size_t i) const { return Fold::of(text_[kBackward ? text_.size() - 1 - i : i]); }

 private:
    std::string_view text_;
};

template <class Bytes>
class TwoWay {
 public:
    static constexpr std::size_t kNone = std::string_view::npos;

    TwoWay(Bytes search, Bytes text) : search_(search), text_(text) {
        Suffix smallest = maximalSuffix([](std::uint8_t a, std::uint8_t b) { return a < b; });
        Suffix largest = maximalSuffix([](std::uint8_t a, std::uint8_t b) { return a > b; });
        Suffix critical = smallest.start > largest.start ? smallest : largest;
        cut_ = critical.start;
        std::size_t i = 0;
        while (i < cut_ && search_[i] == search_[critical.period + i]) ++i;
        periodic_ = i == cut_;
        shift_ = periodic_ ? critical.period : std::max(cut_, search_.size() - cut_) + 1;
    }

    // The next occurrence at `from` or behind it. Calls must go forward; they are linear in the text all together.
    std::size_t next(std::size_t from) {
        if (from > at_) {
            at_ = from;
            known_ = 0;
        }
        const std::size_t size = search_.size();
        while (size <= text_.size() && at_ <= text_.size() - size) {
            std::size_t i = std::max(cut_, known_);
            while (i < size && search_[i] == text_[at_ + i]) ++i;
            if (i < size) {
                at_ += i - cut_ + 1;
                known_ = 0;
                continue;
            }
            i = cut_;
            while (i > known_ && search_[i - 1] == text_[at_ + i - 1]) --i;
            bool found = i <= known_;
            std::size_t start = at_;
            at_ += shift_;
            known_ = periodic_ ? size - shift_ : 0;
            if (found) return start;
        }
        return kNone;
    }

 private:
    struct Suffix {
        std::size_t start;
        std::size_t period;
    };

    // The suffix that is greatest in an order, and its period.
    template <class Less>
    Suffix maximalSuffix(Less less) const {
        Suffix best{0, 1};
        std::size_t other = 1;
        std::size_t equal = 0;
        while (other + equal < search_.size()) {
            std::uint8_t a = search_[other + equal];
            std::uint8_t b = search_[best.start + equal];
            if (a == b) {
                if (++equal == best.period) {
                    other += equal;
                    equal = 0;
                }
            } else if (less(a, b)) {
                other += equal + 1;
                equal = 0;
                best.period = other - best.start;
            } else {
                best = {other, 1};
                ++other;
                equal = 0;
            }
        }
        return best;
    }

    Bytes search_;
    Bytes text_;
    std::size_t cut_;    // the part behind it is compared first
    std::size_t shift_;  // how far to go on when that part matched
    bool periodic_;
    std::size_t at_ = 0;
    std::size_t known_ = 0;  // characters at at_ that are known to match
};

}  // namespace vx
