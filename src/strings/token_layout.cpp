// The tokens of a text set in columns, and justified in a line.
#include <algorithm>
#include <cstring>
#include <limits>

#include "entries/token.h"
#include "strings/token.h"

namespace vx {
namespace {

// The delimiters that each of the two goes on with when it is given none.
struct Remembered {
    DelimiterSet align{" \t"};
    DelimiterSet justify{" \t"};
};
constinit Remembered remembered;

const DelimiterSet& recall(DelimiterSet& set, const char* argument) {
    if (argument && *argument) set = DelimiterSet(argument);
    return set;
}

constexpr std::int32_t kColumnPerToken = -2;
constexpr std::uint64_t kLongest = std::numeric_limits<std::ptrdiff_t>::max();  // no memory holds a longer line

// Where a token begins in its column; `previous` is where the one before it began.
std::size_t placeInColumn(char code, std::size_t length, std::size_t width, std::size_t previous) {
    std::size_t spare = length < width ? width - length : 0;
    switch (code) {
        case 'L':
            return 0;
        case 'R':
            return spare;
        case 'C':
            return spare / 2;
        default:
            return previous;  // kept: an unknown letter changes nothing
    }
}

// Writes columns and separators over the line of fill characters from `at` to `end`.
void fillColumns(char* at, const char* end, std::string_view text, const DelimiterSet& delimiters, std::size_t width,
                 std::string_view separator, const char* codes) {
    char code = 'L';
    std::size_t place = 0;
    std::size_t behind = 0;
    while (at < end) {
        std::optional<Token> token = nextToken(text, delimiters, behind);
        behind = token ? token->end() : text.size();
        if (codes && *codes) code = *codes++;
        if (token) {
            place = placeInColumn(code, token->length, width, place);
            std::string_view piece = token->in(text).substr(0, width - place);
            std::copy(piece.begin(), piece.end(), at + place);
        }
        at += width;
        if (at < end) at = std::copy(separator.begin(), separator.end(), at);
    }
}

enum JustifyMode : std::int32_t { kBothMargins, kIndented, kLeft, kRightIndented, kRight };

struct Extent {
    std::size_t count = 0;
    std::size_t length = 0;  // of all tokens together
    std::size_t first = 0;   // where the first one begins
    std::size_t end = 0;     // where the last one ends

    // With one position between two tokens.
    std::size_t joined() const { return length + count - 1; }
};

Extent measure(std::string_view text, const DelimiterSet& delimiters) {
    Extent extent;
    for (auto token = nextToken(text, delimiters, 0); token; token = nextToken(text, delimiters, token->end())) {
        if (extent.count++ == 0) extent.first = token->offset;
        extent.length += token->length;
        extent.end = token->end();
    }
    return extent;
}

// Copies tokens into the line from `start` on, as far as they lie inside it; gapBehind(i) follows token i.
template <class Gap>
void layOut(char* line, std::size_t width, std::size_t start, std::string_view text, const DelimiterSet& delimiters,
            Gap gapBehind) {
    std::size_t at = start;
    std::size_t i = 1;
    for (auto token = nextToken(text, delimiters, 0); token && at < width;
         token = nextToken(text, delimiters, token->end())) {
        std::string_view piece = token->in(text).substr(0, width - at);
        std::copy(piece.begin(), piece.end(), line + at);
        at += token->length + gapBehind(i++);
    }
}

void spread(char* line, std::size_t width, std::string_view text, const DelimiterSet& delimiters,
            const Extent& tokens) {
    std::size_t gaps = std::max<std::size_t>(tokens.count - 1, 1);
    std::size_t spare = tokens.joined() > width ? gaps : width - tokens.length;
    layOut(line, width, 0, text, delimiters, [&](std::size_t i) {
        bool wider = tokens.count - i <= spare % gaps;
        return spare / gaps + wider;
    });
}

std::size_t startOf(std::int32_t mode, std::size_t width, const Extent& tokens, std::size_t textLength) {
    if (mode == kLeft) return 0;
    if (mode == kIndented) return tokens.first;
    std::size_t right = tokens.joined() + (mode == kRightIndented ? textLength - tokens.end : 0);
    return right < width ? width - right : 0;
}

}  // namespace
}  // namespace vx

using namespace vx;

char* VX_CALL vx_AlignToken(const char* text, const char* delimiters, int32_t count, int32_t width,
                            const char* separator, const char* codes, char* dest) noexcept {
    if (!dest) return nullptr;
    const DelimiterSet& set = recall(remembered.align, delimiters);
    std::string_view all = view(text);
    std::size_t columns = count == kColumnPerToken ? countTokens(all, set) : atLeastZero(count);
    if (columns == 0) return store(dest, {});
    // kept: without a separator the columns touch, yet the line has a position for each gap, at its end.
    std::size_t gap = separator ? view(separator).size() : 1;
    std::size_t columnWidth = atLeastZero(width);
    std::uint64_t line = std::uint64_t{columns} * columnWidth + std::uint64_t{columns - 1} * gap;
    if (line > kLongest) return store(dest, {});
    std::size_t size = static_cast<std::size_t>(line);
    std::memset(dest, library.fill, size);
    dest[size] = '\0';
    fillColumns(dest, dest + size - (separator ? 0 : columns - 1), all, set, columnWidth, view(separator), codes);
    return dest;
}

char* VX_CALL vx_TokenJustify(const char* text, const char* delimiters, int32_t width, int32_t mode,
                              char* dest) noexcept {
    if (!dest) return nullptr;
    if (width < 1) return store(dest, {});
    const DelimiterSet& set = recall(remembered.justify, delimiters);
    std::string_view all = view(text);
    std::size_t size = atLeastZero(width);
    std::memset(dest, library.fill, size);
    dest[size] = '\0';
    Extent tokens = measure(all, set);
    if (tokens.count == 0 || mode < kBothMargins || mode > kRight) return dest;
    if (mode == kBothMargins) {
        spread(dest, size, all, set, tokens);
    } else {
        layOut(dest, size, startOf(mode, size, tokens, all.size()), all, set, [](std::size_t) { return 1; });
    }
    return dest;
}
