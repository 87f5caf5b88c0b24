// Texts and characters found and counted in a text.
#include "entries/search.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "frame/text.h"
#include "strings/blocks.h"
#include "strings/characters.h"
#include "strings/difference.h"
#include "strings/find.h"
#include "strings/scan.h"

namespace vx {
namespace {

using scanning::Blind;
using scanning::Exact;

// --- The start of a text ---
//
// It is searched without measuring the text, and short texts are done with here (rows at/45B, at/20B, AtNext).

constexpr std::size_t kHead = 64;

struct HeadResult {
    enum Outcome { kFound, kNone, kUndecided } outcome;
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

constexpr std::int32_t kLast = -1;

// Occurrence n, from 1, or the last one of a text that is not empty; undecided when the head does not tell.
template <class Fold>
HeadResult findInHead(const char* search, const char* text, std::int32_t n) {
    const std::size_t secondAt = search[1] ? 1 : 0;
    const scanning::ByteTest<Fold> first(search[0], false);
    const scanning::ByteTest<Fold> second(search[secondAt], false);
    HeadResult last{HeadResult::kNone};
    for (std::size_t base = 0; base < kHead; base += kBlock) {
        const char* block = text + base;
        if (readableFrom(block) <= kBlock) return {HeadResult::kUndecided};
        const unsigned ends = bits(_mm_cmpeq_epi8(load(block), _mm_setzero_si128()));
        const unsigned hits = bits(_mm_and_si128(first(block), second(block + secondAt)));
        for (unsigned mask = hits & ~ends & (ends - 1); mask;) {
            const int bit = n == kLast ? std::bit_width(mask) - 1 : std::countr_zero(mask);
            mask &= ~(1u << bit);
            if (!startsWith<Fold>(block + bit, search)) continue;
            last = {HeadResult::kFound, base + static_cast<std::size_t>(bit)};
            if (n == kLast) break;
            if (--n == 0) return last;
        }
        if (ends) return n == kLast ? last : HeadResult{HeadResult::kNone};
    }
    return {HeadResult::kUndecided};
}

// --- All of it ---

// The part of a text that lies within `room` bytes.
std::string_view within(const char* text, std::size_t room) {
    const void* end = std::memchr(text, '\0', room);
    return {text, end ? static_cast<std::size_t>(static_cast<const char*>(end) - text) : room};
}

// A text in pieces of growing size, so that an early end of the work leaves the rest of a long text unread, and the
// rest is in the cache when its length is known. Each piece repeats the last `overlap` characters of the one before.
// work(piece, offset) returns whether to go on.
template <class Work>
void inPieces(const char* text, std::size_t overlap, Work work) {
    std::size_t room = 512;
    const std::size_t largest = std::max<std::size_t>(8 * overlap, 16384);
    for (std::size_t start = 0, known = 0;;) {
        std::size_t fresh = within(text + known, room).size();
        known += fresh;
        if (!work(std::string_view(text + start, known - start), start) || fresh < room) return;
        start = known - std::min(known - start, overlap);
        room = std::min(room * 4, largest);
    }
}

std::int32_t position(std::size_t offset) { return offset == kNotFound ? -1 : static_cast<std::int32_t>(offset); }

template <class Fold>
std::int32_t measuredOccurrence(std::string_view search, const char* target, std::int32_t n) {
    if (n < 0) return position(findOccurrence(search, target, n, Fold::kCasing));
    scanning::CountDown down{static_cast<std::size_t>(n)};
    std::size_t start = 0;
    inPieces(target, search.size() - 1, [&](std::string_view piece, std::size_t offset) {
        scanning::scan<Fold>(search, piece, down);
        start = offset;
        return down.found == kNotFound;
    });
    return down.found == kNotFound ? -1 : position(start + down.found);
}

template <class Fold>
std::int32_t occurrence(const char* search, const char* target, std::int32_t n) {
    if (!search || !*search || !target || n == 0) return -1;
    if (n >= kLast) {
        const HeadResult head = findInHead<Fold>(search, target, n);
        if (head.outcome == HeadResult::kNone) return -1;
        if (head.outcome == HeadResult::kFound) return static_cast<std::int32_t>(head.offset);
    }
    return measuredOccurrence<Fold>(search, target, n);
}

// A character argument: the first of a text.
template <class Fold>
std::int32_t characterOccurrence(const char* character, const char* target, std::int32_t n) {
    const char search[] = {character ? *character : '\0', '\0'};
    return occurrence<Fold>(search, target, n);
}

template <class Fold>
std::uint32_t count(const char* searchText, const char* target) {
    const std::string_view search = view(searchText);
    if (search.empty() || !target) return 0;
    std::size_t total = 0;
    inPieces(target, search.size() - 1, [&](std::string_view piece, std::size_t) {
        scanning::scan<Fold>(search, piece, [&total](std::size_t at) {
            ++total;
            return at + 1;
        });
        return true;
    });
    return static_cast<std::uint32_t>(total);
}

std::size_t countCharacterBlind(char c, std::string_view text) {
    const char folded = upper(c);
    std::size_t count = 0;
    for (char other : text) count += upper(other) == folded;
    return count;
}

template <class Count>
std::uint32_t countCharacters(const char* search, const char* target, Count count) {
    if (!search || !*search || !target) return 0;
    std::size_t total = 0;
    inPieces(target, 0, [&](std::string_view piece, std::size_t) {
        total += count(*search, piece);
        return true;
    });
    return static_cast<std::uint32_t>(total);
}

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_at(const char* search, const char* target) noexcept { return occurrence<Exact>(search, target, 1); }
int32_t VX_CALL vx_Ati(const char* search, const char* target) noexcept { return occurrence<Blind>(search, target, 1); }
int32_t VX_CALL vx_StrAtNext(const char* search, const char* target, int32_t n) noexcept {
    return occurrence<Exact>(search, target, n);
}
int32_t VX_CALL vx_StrAtNexti(const char* search, const char* target, int32_t n) noexcept {
    return occurrence<Blind>(search, target, n);
}
int32_t VX_CALL vx_Rat(const char* search, const char* target) noexcept {
    return occurrence<Exact>(search, target, -1);
}
int32_t VX_CALL vx_Rati(const char* search, const char* target) noexcept {
    return occurrence<Blind>(search, target, -1);
}

int32_t VX_CALL vx_AtNext(const char* character, const char* target, int32_t n) noexcept {
    return characterOccurrence<Exact>(character, target, n);
}
int32_t VX_CALL vx_AtNexti(const char* character, const char* target, int32_t n) noexcept {
    return characterOccurrence<Blind>(character, target, n);
}
int32_t VX_CALL vx_AtLast(const char* character, const char* target) noexcept {
    return characterOccurrence<Exact>(character, target, -1);
}
int32_t VX_CALL vx_AtLasti(const char* character, const char* target) noexcept {
    return characterOccurrence<Blind>(character, target, -1);
}

uint32_t VX_CALL vx_StrCount(const char* search, const char* target) noexcept { return count<Exact>(search, target); }
uint32_t VX_CALL vx_StrCounti(const char* search, const char* target) noexcept { return count<Blind>(search, target); }
uint32_t VX_CALL vx_ChrCount(const char* character, const char* target) noexcept {
    return countCharacters(character, target, countCharacter);
}
uint32_t VX_CALL vx_ChrCounti(const char* character, const char* target) noexcept {
    return countCharacters(character, target, countCharacterBlind);
}

int32_t VX_CALL vx_AscPos(const char* text, int32_t position) noexcept {
    if (!text || position < 0) return 0;
    std::size_t at = static_cast<std::size_t>(position);
    return within(text, at).size() == at ? byteOf(text[at]) : 0;
}

int32_t VX_CALL vx_AtDiff(const char* a, const char* b) noexcept {
    if (!a || !b) return 0;
    std::size_t at = firstDifference(a, b);
    return a[at] && b[at] ? static_cast<std::int32_t>(at) + 1 : 0;
}

char* VX_CALL vx_StrDiff(const char* a, const char* b) noexcept {
    if (!b) return nullptr;
    const char* at = b + firstDifference(a ? a : emptyText, b);
    return const_cast<char*>(*at ? at + 1 : at);  // kept: the character that differs is skipped itself
}
