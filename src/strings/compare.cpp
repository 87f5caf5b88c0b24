// Texts compared with a result of -1, 0 or 1, their case switched, their characters sampled or spread apart, and a
// field replaced.
#include "entries/compare.h"

#include <algorithm>

#include "frame/text.h"
#include "strings/difference.h"
#include "strings/fields.h"

namespace vx {
namespace {

const char* orEmpty(const char* text) { return text ? text : emptyText; }

std::int32_t order(std::uint8_t a, std::uint8_t b) { return (a > b) - (a < b); }

std::int32_t compare(const char* a, const char* b, std::size_t limit) {
    a = orEmpty(a);
    b = orEmpty(b);
    std::size_t at = firstDifference(a, b, limit);
    return at == limit ? 0 : order(byteOf(a[at]), byteOf(b[at]));
}

std::int32_t compareBlind(const char* a, const char* b, std::size_t limit) {
    a = orEmpty(a);
    b = orEmpty(b);
    std::size_t at = firstAsciiBlindDifference(a, b, limit);
    return at == limit ? 0 : order(byteOf(asciiLower(a[at])), byteOf(asciiLower(b[at])));
}

char switched(char c) {
    char other = upper(c);
    return other == c ? lower(c) : other;
}

// From the end, so that nothing is overwritten before it is read.
[[gnu::noinline]] char* expandInPlace(char* text, std::size_t size, std::size_t gap, char filler) {
    std::size_t at = (size - 1) * (gap + 1);
    text[at + 1] = '\0';
    for (std::size_t i = size; i-- > 1; at -= gap + 1) {
        text[at] = text[i];
        std::memset(text + at - gap, filler, gap);
    }
    return text;
}

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_StrCmp(const char* a, const char* b) noexcept { return compare(a, b, kNoLimit); }
int32_t VX_CALL vx_StrCmpi(const char* a, const char* b) noexcept { return compareBlind(a, b, kNoLimit); }
int32_t VX_CALL vx_StrnCmp(const char* a, const char* b, int32_t n) noexcept { return compare(a, b, atLeastZero(n)); }
int32_t VX_CALL vx_StrnCmpi(const char* a, const char* b, int32_t n) noexcept {
    return compareBlind(a, b, atLeastZero(n));
}

char* VX_CALL vx_StrSwitch(const char* text, char* dest) noexcept {
    char* to = target(text, dest);
    if (!to) return nullptr;
    std::string_view all = view(text);
    std::transform(all.begin(), all.end(), to, switched);
    to[all.size()] = '\0';
    return to;
}

char* VX_CALL vx_StrKeep(const char* text, int32_t start, int32_t step, char* dest) noexcept {
    char* to = target(text, dest);
    if (!to) return nullptr;
    std::string_view all = view(text);
    const std::size_t from = atLeastZero(start);
    char* end = to;
    if (step > 0 && from < all.size()) {
        // kept: a step onto the terminator ends the result; to leave it out gives the same and needs no room for it.
        const std::size_t stride = atLeastZero(step);
        end += (all.size() - from - 1) / stride + 1;
        std::size_t i = from;
        for (char* p = to; p != end; ++p, i += stride) *p = text[i];
    }
    *end = '\0';
    return to;
}

char* VX_CALL vx_StrExpand(const char* text, int32_t n, const char* fill, char* dest) noexcept {
    if (!dest) return nullptr;
    std::string_view all = view(text);
    if (n < 1 || all.size() < 2) return store(dest, all);
    const std::size_t gap = atLeastZero(n);
    const std::size_t size = (all.size() - 1) * gap + all.size();
    if (dest == text) return expandInPlace(dest, all.size(), gap, fillOrDefault(fill));
    std::memset(dest, fillOrDefault(fill), size);
    std::size_t at = 0;
    for (char c : all) {
        dest[at] = c;
        at += gap + 1;
    }
    dest[size] = '\0';
    return dest;
}

char* VX_CALL vx_StrSwap(const char* text, const char* delimiters, int32_t n, const char* replacement,
                         char* dest) noexcept {
    if (!dest) return nullptr;
    std::string_view all = view(text);
    Field field = findField(all, delimiterMarks(delimiters), n);
    if (field.start == all.size()) return store(dest, all);
    return storeSpliced(dest, all.substr(0, field.start), view(replacement), all.substr(field.start + field.length));
}
