// Texts and characters found and counted in a text, and delimited fields.
#include "strings/search.h"

#include <algorithm>

#include "entries/search.h"
#include "frame/text.h"
#include "strings/characters.h"
#include "strings/difference.h"
#include "strings/find.h"
#include "strings/head.h"
#include "strings/scan.h"

namespace vx {
namespace {

using scanning::Blind;
using scanning::Exact;

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
    if (n >= scanning::kLast) {
        const scanning::HeadResult head = scanning::findInHead<Fold>(search, target, n);
        if (head.outcome == scanning::Head::kNone) return -1;
        if (head.outcome == scanning::Head::kFound) return static_cast<std::int32_t>(head.offset);
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

Field fieldBetween(std::string_view text, char delimiter, std::int32_t n) {
    std::size_t start = 0;
    std::size_t end = text.find(delimiter);
    for (; n > 1 && end != kNotFound; --n) {
        start = end + 1;
        end = text.find(delimiter, start);
    }
    if (n > 1) return {text.size(), 0, text.size()};
    if (end == kNotFound) return {start, text.size() - start, text.size()};
    return {start, end - start, end + 1};
}

// A section that is not closed is none.
Field nextSection(std::string_view text, std::string_view marks, std::size_t from) {
    std::size_t open = text.find(marks[0], from);
    std::size_t close = open == kNotFound ? kNotFound : text.find(marks[1], open + 1);
    if (close == kNotFound) return {text.size(), 0, text.size()};
    return {open + 1, close - open - 1, close + 1};
}

}  // namespace

Field findField(std::string_view text, std::string_view delimiters, std::int32_t n) {
    if (delimiters.empty()) return n > 1 ? Field{text.size(), 0, text.size()} : Field{0, text.size(), text.size()};
    if (delimiters.size() == 1) return fieldBetween(text, delimiters.front(), n);
    Field section = nextSection(text, delimiters, 0);
    for (; n > 1 && section.start < text.size(); --n) section = nextSection(text, delimiters, section.next);
    return section;
}

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

uint32_t VX_CALL vx_DelimCount(const char* text, const char* delimiters) noexcept {
    std::string_view all = view(text);
    std::string_view marks = delimiterMarks(delimiters);
    if (all.empty()) return 0;
    if (marks.size() < 2) return 1 + countCharacters(delimiters, text, countCharacter);
    std::uint32_t sections = 0;
    for (Field section = nextSection(all, marks, 0); section.start < all.size(); ++sections) {
        section = nextSection(all, marks, section.next);
    }
    return sections;
}

char* VX_CALL vx_StrExtract(const char* text, const char* delimiters, int32_t n, char* dest) noexcept {
    if (!dest) return const_cast<char*>(emptyText);
    std::string_view all = view(text);
    Field field = findField(all, delimiterMarks(delimiters), n);
    return store(dest, all.substr(field.start, field.length));
}
