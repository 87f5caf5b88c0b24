// Approximate search, bit-parallel: 64 rows of a column of edit distances are two words, which say where the distance
// rises and where it falls from row to row (Myers; blocks of rows as in Hyyro). Patterns of one block have a loop of
// their own, which takes a sixth less: Similarity/15x20. Of more blocks, only those are computed that can hold
// distances below a bound (Ukkonen), and the bound is tried small first. That is up to 7 times as fast for texts that
// are much alike, Similarity/1000x100000/letters:26/alike:95 and 100, and costs up to 1.7 times for those that are not.
#include "entries/similarity.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <memory>
#include <new>
#include <string_view>

#include "frame/text.h"

namespace vx {
namespace {

using Word = std::uint64_t;
using Distance = std::int32_t;

constexpr int kRows = 64;  // of a word

struct Carry {  // how the distance changes from column to column, at the lower edge of a block
    int change() const { return static_cast<int>(rise) - static_cast<int>(fall); }

    Word rise = 0;
    Word fall = 0;
};

struct Block {
    // Moves on to the next column; `equal` marks the rows whose character is that of the column.
    Carry advance(Word equal, Carry above) {
        const Word vertical = equal | fall;
        equal |= above.fall;
        const Word diagonal = (((equal & rise) + rise) ^ rise) | equal;
        const Word rises = fall | ~(diagonal | rise);
        const Word falls = rise & diagonal;
        const Word risesAbove = (rises << 1) | above.rise;
        rise = ((falls << 1) | above.fall) | ~(vertical | risesAbove);
        fall = risesAbove & vertical;
        return {rises >> (kRows - 1), falls >> (kRows - 1)};
    }

    Word rise;
    Word fall;
    Distance last;  // the distance in the last row
};

// Working memory: in the object for short patterns, else taken from the heap.
class Workspace {
 public:
    static constexpr std::size_t kNear = 4;  // blocks

    // Null if the memory cannot be had.
    Word* words(std::uint64_t count) { return take(count, nearWords_, std::size(nearWords_), farWords_); }
    Block* blocks(std::uint64_t count) { return take(count, nearBlocks_, kNear, farBlocks_); }

 private:
    template <class T>
    static T* take(std::uint64_t count, T* near, std::size_t room, std::unique_ptr<T[]>& far) {
        if (count <= room) return near;
        if (count > static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) / sizeof(T)) return nullptr;
        far.reset(new (std::nothrow) T[static_cast<std::size_t>(count)]);
        return far.get();
    }

    Word nearWords_[256 * kNear];
    Block nearBlocks_[kNear];
    std::unique_ptr<Word[]> farWords_;
    std::unique_ptr<Block[]> farBlocks_;
};

// For each character, the rows of the pattern that hold it. The pattern ends with the last row of the last block; the
// rows that this leaves over before it equal everything, so that they stay at distance 0 like the column's top.
class Profile {
 public:
    explicit Profile(std::string_view pattern)
        : pattern_(pattern),
          blocks_((pattern.size() + kRows - 1) / kRows),
          unused_(static_cast<unsigned>(blocks_ * kRows - pattern.size())) {
        kinds_ = 1;  // row set 0 is for all characters that the pattern lacks
        for (char c : pattern) {
            std::uint8_t& kind = kind_[byteOf(c)];
            if (!kind) kind = static_cast<std::uint8_t>(kinds_++);
        }
    }

    // There are at most 255 characters besides the terminator, so that 8 bits number the sets.
    std::uint64_t wordsNeeded() const { return std::uint64_t{kinds_} * blocks_; }

    void build(Word* words) {
        words_ = words;
        std::fill_n(words, wordsNeeded(), 0);
        std::size_t row = unused_;
        for (char c : pattern_) {
            words[kind_[byteOf(c)] * blocks_ + row / kRows] |= Word{1} << (row % kRows);
            ++row;
        }
        for (unsigned kind = 0; kind < kinds_; ++kind) words[kind * blocks_] |= unusedRows();
    }

    const Word* rows(char c) const { return words_ + kind_[byteOf(c)] * blocks_; }
    std::size_t blocks() const { return blocks_; }
    unsigned unused() const { return unused_; }
    Word unusedRows() const { return (Word{1} << unused_) - 1; }

 private:
    std::string_view pattern_;
    std::size_t blocks_;
    unsigned unused_;
    unsigned kinds_;
    const Word* words_ = nullptr;
    std::uint8_t kind_[256] = {};
};

// The smallest distance of a pattern of up to 64 characters.
Distance smallestInBlock(const Profile& profile, std::string_view text, Distance length) {
    Block block{~profile.unusedRows(), 0, 0};
    Distance distance = length;
    Distance smallest = length;
    for (char c : text) {
        distance += block.advance(*profile.rows(c), {}).change();
        smallest = std::min(smallest, distance);
    }
    return smallest;
}

// The smallest distance if it is below `bound`, else `bound`. Stops at `least`, below which no distance can be.
class BoundedSearch {
 public:
    BoundedSearch(const Profile& profile, Block* blocks, Distance bound, Distance least)
        : profile_(profile), blocks_(blocks), bound_(bound), least_(least) {
        // The first column: row i is at distance i.
        const std::size_t reached = (static_cast<std::size_t>(bound) + profile.unused()) / kRows;
        last_ = std::min(reached, profile.blocks() - 1);
        blocks_[0] = {~profile.unusedRows(), 0, kRows - static_cast<Distance>(profile.unused())};
        for (std::size_t i = 1; i <= last_; ++i) blocks_[i] = {~Word{0}, 0, blocks_[i - 1].last + kRows};
    }

    Distance run(std::string_view text) {
        const std::size_t bottom = profile_.blocks() - 1;
        for (char c : text) {
            const Word* equal = profile_.rows(c);
            Carry carry;
            for (std::size_t i = 0; i <= last_; ++i) {
                carry = blocks_[i].advance(equal[i], carry);
                blocks_[i].last += carry.change();
            }
            if (last_ == bottom) {
                bound_ = std::min(bound_, blocks_[bottom].last);
                if (bound_ <= least_) break;
            } else if (nextIsReached(equal[last_ + 1], carry)) {
                open(equal[last_ + 1], carry);
                continue;
            }
            while (last_ > 0 && blocks_[last_].last - (kRows - 1) >= bound_) --last_;
        }
        return bound_;
    }

 private:
    // Whether the first row below the computed blocks gets a distance below the bound: by a match or from above.
    bool nextIsReached(Word equal, Carry carry) const {
        return blocks_[last_].last - carry.change() < bound_ && ((equal & 1) || carry.fall);
    }

    // All distances of the block were at the bound or above, so any such ones will do for its column before.
    void open(Word equal, Carry carry) {
        const Distance above = blocks_[last_].last - carry.change();
        Block& next = blocks_[++last_];
        next = {~Word{0}, 0, above + kRows};
        next.last += next.advance(equal, carry).change();
    }

    const Profile& profile_;
    Block* blocks_;
    Distance bound_;
    Distance least_;
    std::size_t last_;  // block that is computed
};

// The smallest edit distance between the pattern and a stretch of the text that ends at one of its characters; both
// have characters. Negative if there is not enough memory.
Distance smallestDistance(std::string_view pattern, std::string_view text) {
    Workspace workspace;
    Profile profile(pattern);
    Word* words = workspace.words(profile.wordsNeeded());
    Block* blocks = workspace.blocks(profile.blocks());
    if (!words || !blocks) return -1;
    profile.build(words);
    const auto length = static_cast<Distance>(pattern.size());
    if (profile.blocks() == 1) return smallestInBlock(profile, text, length);
    const Distance least = length - static_cast<Distance>(std::min(pattern.size(), text.size()));
    // A pass with a small bound costs its share of the blocks, or a little more; it is left out where that is too much.
    constexpr Distance kGrowth = 3;
    for (Distance bound = kRows; bound < length / 4; bound *= kGrowth) {
        if (bound <= least) continue;
        Distance found = BoundedSearch(profile, blocks, bound, least).run(text);
        if (found < bound) return found;
    }
    return BoundedSearch(profile, blocks, length, least).run(text);
}

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_Similarity(const char* pattern, const char* text) noexcept {
    std::string_view a = view(pattern);
    std::string_view b = view(text);
    if (a.empty() || b.empty()) return 0;
    const Distance distance = smallestDistance(a, b);
    if (distance < 0) return 0;
    const auto kept = static_cast<std::int64_t>(a.size()) - distance;
    return static_cast<int32_t>(kept * 200 / static_cast<std::int64_t>(a.size() + b.size()));
}
