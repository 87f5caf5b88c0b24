// Case, capitals of words, reversal, and characters swapped for others.
#include "entries/casing.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "frame/text.h"
#include "strings/case_map.h"
#include "strings/token.h"

namespace vx {
namespace {

// Maps a text through a case table.
char* mapCase(const char* text, char* dest, const CaseTable& table, const AsciiCase& ascii) {
    char* to = target(text, dest);
    if (!to) return nullptr;
    std::string_view from = view(text);
    mapBytes(from.data(), to, from.size(), table, ascii);
    to[from.size()] = '\0';
    return to;
}

char unchanged(char c) { return c; }

// Maps the first character of each word to upper case and the others by `rest`.
template <char (*rest)(char)>
char* mapWords(const char* text, char* dest) {
    char* to = target(text, dest);
    if (!to) return nullptr;
    std::string_view from = view(text);
    bool outside = true;
    for (std::size_t i = 0; i < from.size(); ++i) {
        char c = from[i];
        bool delimits = kDefaultDelimiters.contains(c);
        to[i] = outside > delimits ? upper(c) : delimits ? c : rest(c);
        outside = delimits;
    }
    to[from.size()] = '\0';
    return to;
}

std::uint64_t loadReversed(const char* from) {
    std::uint64_t bytes;
    std::memcpy(&bytes, from, sizeof bytes);
    return __builtin_bswap64(bytes);
}
void storeEight(char* to, std::uint64_t bytes) { std::memcpy(to, &bytes, sizeof bytes); }

void reverseInPlace(char* first, char* last) {
    for (; last - first >= 16; first += 8, last -= 8) {
        std::uint64_t start = loadReversed(first);
        storeEight(first, loadReversed(last - 8));
        storeEight(last - 8, start);
    }
    std::reverse(first, last);
}

void copyReversed(std::string_view from, char* to) {
    std::size_t left = from.size();
    char* end = to + left;
    for (; left >= 8; left -= 8, to += 8) storeEight(to, loadReversed(from.data() + left - 8));
    if (from.size() >= 8) {
        storeEight(end - 8, loadReversed(from.data()));  // the rest, and some of what is there already
    } else {
        while (left > 0) *to++ = from[--left];
    }
    *end = '\0';
}

// What becomes of each character.
class Swaps {
 public:
    Swaps(std::string_view from, std::string_view to) {
        std::iota(becomes_.begin(), becomes_.end(), '\0');
        stays_.fill(1);
        for (std::size_t i = 0; i < from.size(); ++i) {
            std::uint8_t c = byteOf(from[i]);
            stays_[c] = i < to.size();
            if (stays_[c]) becomes_[c] = to[i];
        }
    }

    // Writes the changed text, which may lie where the text does; returns its end.
    char* apply(std::string_view text, char* to) const {
        for (char c : text) {
            *to = becomes_[byteOf(c)];
            to += stays_[byteOf(c)];
        }
        return to;
    }

 private:
    std::array<char, 256> becomes_;
    std::array<std::uint8_t, 256> stays_;
};

}  // namespace
}  // namespace vx

using namespace vx;

char* VX_CALL vx_StrUpper(const char* text, char* dest) noexcept {
    return mapCase(text, dest, library.upper, kAsciiUpper);
}
char* VX_CALL vx_Lower(const char* text, char* dest) noexcept {
    return mapCase(text, dest, library.lower, kAsciiLower);
}

char* VX_CALL vx_Capitalize(const char* text, char* dest) noexcept { return mapWords<unchanged>(text, dest); }
char* VX_CALL vx_CapFirst(const char* text, char* dest) noexcept { return mapWords<lower>(text, dest); }

char* VX_CALL vx_StrReverse(const char* text, char* dest) noexcept {
    char* to = target(text, dest);
    if (!to) return nullptr;
    std::string_view from = view(text);
    if (to == text) {
        reverseInPlace(to, to + from.size());
    } else {
        copyReversed(from, to);
    }
    return to;
}

char* VX_CALL vx_ChrSwap(const char* text, const char* from, const char* to, char* dest) noexcept {
    char* result = target(text, dest);
    if (!result) return nullptr;
    *Swaps(view(from), view(to)).apply(view(text), result) = '\0';
    return result;
}
