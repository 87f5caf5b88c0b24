// Wildcard matching. A pattern is what stands before its first star, and stretches that follow a star each. A stretch
// that has another star behind it is settled by its first occurrence, since any later one leaves less text to the rest;
// a stretch that ends the pattern can only stand at the end of the text. So no star is ever tried again once the next
// one is reached, and nothing recurs.
#include "patterns/wildcard.h"

#include <algorithm>
#include <string_view>

#include "entries/wildcard.h"
#include "frame/text.h"

namespace vx {
namespace {

struct Exact {
    static constexpr Casing kCasing = Casing::kExact;
    static bool equal(char pattern, char text) { return pattern == text; }
};
struct Blind {
    static constexpr Casing kCasing = Casing::kBlind;
    static bool equal(char pattern, char text) { return upper(pattern) == upper(text); }
};

template <class Fold>
bool fits(char pattern, char text) {
    return pattern == '?' || Fold::equal(pattern, text);
}

template <class Fold>
bool fits(std::string_view stretch, const char* text) {
    for (char c : stretch) {
        if (!fits<Fold>(c, *text)) return false;
        ++text;
    }
    return true;
}

// The longest run without question marks: the likeliest to be rare.
std::string_view longestLiteral(std::string_view stretch) {
    std::string_view longest;
    while (!stretch.empty()) {
        std::string_view run = stretch.substr(0, stretch.find('?'));
        if (run.size() > longest.size()) longest = run;
        stretch.remove_prefix(std::min(run.size() + 1, stretch.size()));
    }
    return longest;
}

// Where the stretch, which has a literal character, first occurs; null if nowhere.
template <class Fold>
const char* firstOccurrence(std::string_view stretch, std::string_view text) {
    std::string_view literal = longestLiteral(stretch);
    const auto before = static_cast<std::size_t>(literal.data() - stretch.data());
    const std::size_t behind = stretch.size() - before - literal.size();
    for (std::string_view rest = text; rest.size() >= stretch.size(); rest.remove_prefix(1)) {
        std::string_view starts = rest.substr(before, rest.size() - before - behind);
        std::size_t next = findOccurrence(literal, starts, 1, Fold::kCasing);
        if (next == kNotFound) break;
        rest.remove_prefix(next);
        if (fits<Fold>(stretch, rest.data())) return rest.data();
    }
    return nullptr;
}

// What a pattern's stretch was found to be: `size` characters at `text`, or null.
struct Place {
    const char* text;
    std::size_t size;
};

const char* endOf(const char* text, const char*& known) {
    if (!known) known = text + std::strlen(text);
    return known;
}

template <class Fold>
Place atTheEnd(const char* stretch, std::size_t size, const char* text, const char* textEnd) {
    if (static_cast<std::size_t>(textEnd - text) < size) return {};
    const char* place = textEnd - size;
    return fits<Fold>(std::string_view(stretch, size), place) ? Place{place, size} : Place{};
}

// Places the pattern's next stretch in the text. Near places are tried in turn; farther ones are worth a vector search,
// which alone would take three times as long on WildCard/spiteful/2000 and a quarter more on WildCard/20B, but a third
// less on WildCount/1MB.
template <class Fold>
Place place(const char* stretch, const char* text, const char*& textEnd) {
    std::size_t size = 0;
    while (stretch[size] && stretch[size] != '*') ++size;
    if (!stretch[size]) return atTheEnd<Fold>(stretch, size, text, endOf(text, textEnd));
    constexpr int kTries = 12;
    for (int tries = kTries; tries > 0; --tries, ++text) {
        std::size_t i = 0;
        while (i < size && text[i] && fits<Fold>(stretch[i], text[i])) ++i;
        if (i == size) return {text, size};
        if (!text[i]) return {};
    }
    return {firstOccurrence<Fold>(std::string_view(stretch, size), std::string_view(text, endOf(text, textEnd))), size};
}

struct Reach {
    std::size_t skipped;  // by the first star
    const char* end;      // null if there is no match
};

template <class Fold>
Reach match(const char* pattern, const char* text, const char*& textEnd) {
    for (; *pattern != '*'; ++pattern, ++text) {
        if (!*pattern) return {0, *text ? nullptr : text};
        if (!*text || !fits<Fold>(*pattern, *text)) return {};
    }
    const char* firstStar = text;
    const char* firstPlace = nullptr;
    while (pattern[0] && pattern[1]) {  // at a star that is not last
        if (!*text) return {};          // kept: it does not even match the empty rest of a text
        ++pattern;
        Place next = place<Fold>(pattern, text, textEnd);
        if (!next.text) return {};
        if (!firstPlace) firstPlace = next.text;
        pattern += next.size;
        text = next.text + next.size;
    }
    return {firstPlace ? static_cast<std::size_t>(firstPlace - firstStar) : 0, text};
}

}  // namespace

WildMatcher::WildMatcher(const char* pattern, const char* text, Casing casing)
    : pattern_(pattern ? pattern : emptyText), text_(text ? text : emptyText), casing_(casing) {}

std::optional<WildMatch> WildMatcher::attempt(std::size_t from) {
    Reach reach = casing_ == Casing::kExact ? vx::match<Exact>(pattern_, text_ + from, textEnd_)
                                            : vx::match<Blind>(pattern_, text_ + from, textEnd_);
    if (!reach.end) return std::nullopt;
    return WildMatch{from + reach.skipped, static_cast<std::size_t>(reach.end - text_)};
}

std::optional<WildMatch> WildMatcher::match(std::uint32_t n) {
    std::size_t from = 0;
    for (; n > 0; --n) {
        std::optional<WildMatch> found = attempt(from);
        if (!found || n == 1 || found->end == from) return found;  // all after one that does not advance are the same
        from = found->end;
    }
    return std::nullopt;
}

std::uint32_t WildMatcher::count() {
    std::uint32_t count = 0;
    std::size_t from = 0;
    while (std::optional<WildMatch> found = attempt(from)) {
        ++count;
        if (found->end == from) break;
        from = found->end;
    }
    return count;
}

namespace {

WildMatcher matcher(const char* pattern, const char* text, std::int32_t exact) {
    return WildMatcher(pattern, text, exact ? Casing::kExact : Casing::kBlind);
}

std::int32_t startOf(const std::optional<WildMatch>& match) {
    return match ? static_cast<std::int32_t>(match->start) : -1;
}

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_WildCard(const char* pattern, const char* text, int32_t exact) noexcept {
    return matcher(pattern, text, exact).attempt(0).has_value();
}

int32_t VX_CALL vx_WildAt(const char* pattern, const char* text, int32_t exact) noexcept {
    return startOf(matcher(pattern, text, exact).attempt(0));
}

int32_t VX_CALL vx_WildAtNext(const char* pattern, const char* text, uint32_t n, int32_t exact) noexcept {
    WildMatcher wild = matcher(pattern, text, exact);
    if (n == 0) return wild.attempt(0) ? -1 : 0;  // kept: the first position, just when there is no match at all
    return startOf(wild.match(n));
}

uint32_t VX_CALL vx_WildLen(const char* pattern, const char* text, uint32_t n, int32_t exact) noexcept {
    std::optional<WildMatch> match = matcher(pattern, text, exact).match(n);
    return match ? static_cast<uint32_t>(match->end - match->start) : 0;
}

uint32_t VX_CALL vx_WildCount(const char* pattern, const char* text, int32_t exact) noexcept {
    return matcher(pattern, text, exact).count();
}

char* VX_CALL vx_WildExtract(const char* pattern, const char* text, uint32_t n, int32_t exact, char* dest) noexcept {
    if (!dest) return nullptr;
    std::optional<WildMatch> match = matcher(pattern, text, exact).match(n);
    return store(dest, match ? std::string_view(text + match->start, text + match->end) : std::string_view());
}

char* VX_CALL vx_WildSwap(const char* pattern, const char* text, uint32_t n, int32_t exact, const char* replacement,
                          char* dest) noexcept {
    if (!dest) return nullptr;
    std::string_view all = view(text);
    std::optional<WildMatch> match = matcher(pattern, text, exact).match(n);
    if (!match) return store(dest, all);
    return storeSpliced(dest, all.substr(0, match->start), view(replacement), all.substr(match->end));
}
