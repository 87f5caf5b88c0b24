// Lines of a text, tabs, and one line justified in a field.
#include "strings/layout.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "entries/layout.h"
#include "frame/text.h"
#include "strings/characters.h"
#include "strings/trim.h"

namespace vx {
namespace {

constexpr std::int32_t kUsualTabs = -2;
constexpr std::int32_t kWidestTab = 255;

enum JustifyMode : std::int32_t { kAsItIs = 1, kToTheLeft = 2, kToTheRight = 3 };

std::size_t magnitude(std::int32_t column) {
    return static_cast<std::size_t>(column < 0 ? -std::int64_t{column} : std::int64_t{column});
}

std::int32_t saturated(std::int64_t value) {
    return static_cast<std::int32_t>(std::min<std::int64_t>(value, std::numeric_limits<std::int32_t>::max()));
}

// The content of a line that a line feed ends, without the carriage return before it, hard or soft.
std::string_view withoutReturn(std::string_view line) {
    if (!line.empty() && (line.back() == '\r' || line.back() == kSoftReturn)) line.remove_suffix(1);
    return line;
}

std::string_view lineOf(const char* text, std::int32_t number) {
    if (!text || number < 1) return {};
    const char* end = std::strchr(text, '\n');
    for (; end && number > 1; --number) {
        text = end + 1;
        end = std::strchr(text, '\n');
    }
    if (number > 1) return {};
    std::string_view line = end ? withoutReturn({text, static_cast<std::size_t>(end - text)}) : text;
    // kept: a lone carriage return drops what stands before it on the line.
    return line.substr(line.rfind('\r') + 1);
}

void expandTabs(const char* text, std::size_t tabs, char fill, char* dest) {
    char* line = dest;
    for (char c; (c = *text) != '\0'; ++text) {
        if (c == '\t') {
            std::size_t before = static_cast<std::size_t>(dest - line);
            std::size_t size = tabEnd(before + 1, tabs) - before;
            std::memset(dest, fill, size);
            dest += size;
            continue;
        }
        *dest++ = c;
        if (c == '\n') line = dest;
    }
    *dest = '\0';
}

}  // namespace

std::size_t tabWidthOf(std::int32_t argument) {
    return atLeastZero(argument == kUsualTabs ? 8 : std::clamp(argument, 1, kWidestTab));
}

}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_LineCount(const char* text) noexcept {
    std::string_view all = view(text);
    return all.empty() ? 0 : static_cast<std::int32_t>(countCharacter('\n', all) + 1);
}

char* VX_CALL vx_ReadLine(const char* text, int32_t line, char* dest) noexcept {
    return dest ? store(dest, lineOf(text, line)) : nullptr;
}

int32_t VX_CALL vx_TabStop(int32_t column, int32_t tabWidth) noexcept {
    if (tabWidth == kUsualTabs) tabWidth = 8;
    if (tabWidth < 1) return 1;
    if (column == 0) return saturated(std::int64_t{tabWidth} + 1);  // kept: one more than the whole, not clipped
    std::size_t place = magnitude(column);
    return saturated(static_cast<std::int64_t>(tabEnd(place, tabWidthOf(tabWidth)) - place) + 1);
}

int32_t VX_CALL vx_NextTabStop(int32_t column, int32_t tabWidth) noexcept {
    if (tabWidth == kUsualTabs) tabWidth = 8;
    if (tabWidth < 1) return saturated(std::int64_t{column} + 1);
    if (column == 0) return saturated(std::int64_t{tabWidth} + 1);
    return saturated(static_cast<std::int64_t>(tabEnd(magnitude(column), tabWidthOf(tabWidth))) + 1);
}

char* VX_CALL vx_TabExpand(const char* text, int32_t tabWidth, const char* fill, char* dest) noexcept {
    if (!dest) return nullptr;
    if (!text) return store(dest, {});
    expandTabs(text, tabWidthOf(tabWidth), fillOrDefault(fill), dest);
    return dest;
}

char* VX_CALL vx_StrJustify(const char* text, int32_t width, int32_t mode, const char* fill, char* dest) noexcept {
    if (!dest) return nullptr;
    if (!text || width < 1) return store(dest, {});
    std::string_view content = text;
    if (mode != kAsItIs) content = withoutLeadingBlanks(content);
    if (mode != kAsItIs && mode != kToTheLeft && mode != kToTheRight) content = withoutTrailingBlanks(content);
    std::size_t room = atLeastZero(width);
    content = content.substr(0, room);
    bool left = mode == kAsItIs || mode == kToTheLeft;
    char filler = fillOrDefault(fill);
    std::size_t pad = room - content.size();
    moveBytes(left ? dest : dest + pad, content.data(), content.size());
    std::memset(left ? dest + content.size() : dest, filler, pad);
    dest[room] = '\0';
    return dest;
}
