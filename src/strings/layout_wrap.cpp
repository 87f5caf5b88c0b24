// Texts wrapped to a width: line by line, or whole by soft line ends.
#include <cstring>
#include <limits>

#include "entries/layout.h"
#include "frame/text.h"
#include "strings/layout.h"
#include "strings/substring.h"

namespace vx {
namespace {

// Takes the first line off `rest`. The character behind the width is not looked at: a word that ends there moves on
// after a blank.
std::string_view takeLine(std::string_view& rest, std::size_t width) {
    std::string_view line = rest.substr(0, width);
    rest.remove_prefix(line.size());
    if (rest.empty()) return line;
    std::size_t blank = line.rfind(' ');
    if (blank == line.npos) return line;
    rest = {line.data() + blank + 1, rest.size() + line.size() - blank - 1};
    return line.substr(0, blank);
}

// As much of the text as its first lines can take up, and one character more, which shows that the last one is full.
std::string_view viewOfLines(const char* text, std::size_t lines, std::size_t width) {
    constexpr std::size_t kMost = std::numeric_limits<std::int32_t>::max();
    return lines > kMost / width ? view(text) : viewOfFirst(text, lines * width + 1);
}

char* setBlanks(char* dest, std::size_t count) {
    std::memset(dest, ' ', count);
    dest[count] = '\0';
    return dest + count;
}

char* wrapWhole(const char* text, std::size_t width, std::size_t tabs, char* dest) {
    struct Place {
        const char* in;
        char* out;
    };
    Place now{text, dest};
    Place candidate = now;
    char* line = dest;
    std::size_t column = 0;
    auto endLine = [&](char end) {
        *now.out++ = end;
        *now.out++ = '\n';
        column = 0;
        candidate = now;
        line = now.out;
    };
    auto skipLineFeed = [&] { now.in += *now.in == '\n'; };

    while (char c = *now.in) {
        ++now.in;
        ++column;
        switch (c) {
            case '\r':
                skipLineFeed();
                endLine('\r');
                continue;
            case '\n':  // kept: dropped, but its column stays
                candidate = now;
                continue;
            case kSoftReturn:  // kept: its column stays, so wrapping again may break earlier
                skipLineFeed();
                continue;
            case '\t':
                column = tabEnd(column, tabs);
                [[fallthrough]];
            case ' ':
                *now.out++ = c;
                candidate = now;
                break;
            default:
                *now.out++ = c;
        }
        if (column < width) continue;
        if (candidate.out > line) now = candidate;
        endLine(kSoftReturn);
    }
    *now.out = '\0';
    return dest;
}

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_WrapCount(const char* text, int32_t width) noexcept {
    if (width < 1) return 0;
    std::int32_t lines = 0;
    for (std::string_view rest = view(text); !rest.empty(); ++lines) takeLine(rest, atLeastZero(width));
    return lines;
}

char* VX_CALL vx_StrWrap(const char* text, int32_t line, int32_t width, char* dest) noexcept {
    if (!dest) return nullptr;
    if (width < 1) return store(dest, {});
    std::size_t room = atLeastZero(width);
    if (line < 1 || !text || !*text) return setBlanks(dest, room);  // kept: the terminator, not the start
    std::string_view rest = viewOfLines(text, atLeastZero(line), room);
    std::string_view found;
    for (; line > 0; --line) {
        if (rest.empty()) return store(dest, {});
        found = takeLine(rest, room);
    }
    moveBytes(dest, found.data(), found.size());
    setBlanks(dest + found.size(), room - found.size());
    return dest;
}

// A length form of its own: where the pointer form gives the terminator, measuring from there would always give 0.
uint32_t VX_CALL vx_StrWrap_length(const char* text, int32_t line, int32_t width, char* dest) noexcept {
    if (!dest) return 0;
    vx_StrWrap(text, line, width, dest);
    return static_cast<std::uint32_t>(std::strlen(dest));
}

char* VX_CALL vx_MemoWrap(const char* text, int32_t width, int32_t tabWidth, char* dest) noexcept {
    if (!dest) return nullptr;
    if (!text) return store(dest, {});
    return wrapWhole(text, width < 1 ? 1 : atLeastZero(width), tabWidthOf(tabWidth), dest);
}
