// Trimming, justifying within the text's own length, centring, padding and repeating.
#include "strings/trim.h"

#include <algorithm>
#include <cstring>

#include "entries/trim.h"
#include "frame/byteset.h"
#include "frame/text.h"

namespace vx {

namespace {

enum TrimMode : std::int32_t { kTrimStart = -1, kTrimBoth = 0, kTrimEnd = 1 };

template <class Drop>
std::string_view trimmed(std::string_view text, std::int32_t mode, Drop drop) {
    std::size_t start = 0;
    std::size_t end = text.size();
    if (mode == kTrimBoth || mode == kTrimStart) {
        while (start < end && drop(text[start])) ++start;
    }
    if (mode == kTrimBoth || mode == kTrimEnd) {
        while (end > start && drop(text[end - 1])) --end;
    }
    return text.substr(start, end - start);
}

std::string_view withoutSet(std::string_view text, const char* set, std::int32_t mode) {
    if (mode < kTrimStart || mode > kTrimEnd) return text;
    ByteSet members(set);
    return trimmed(text, mode, [&members](char c) { return members.contains(c); });
}

// By fixed ranges, whatever the character types say; the tab counts as something to keep.
bool endsPunctuation(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '\t';
}

char* storeTrimmed(const char* text, char* dest, std::string_view content) {
    char* to = target(text, dest);
    return to ? store(to, content) : nullptr;
}

std::uint32_t length(std::string_view text) { return static_cast<std::uint32_t>(text.size()); }

}  // namespace
}  // namespace vx

using namespace vx;

char* VX_CALL vx_AllTrim(const char* text, char* dest) noexcept {
    return storeTrimmed(text, dest, withoutBlanks(view(text)));
}
uint32_t VX_CALL vx_AllTrimLen(const char* text) noexcept { return length(withoutBlanks(view(text))); }

char* VX_CALL vx_LTrim(const char* text, char* dest) noexcept {
    storeTrimmed(text, dest, withoutLeadingBlanks(view(text)));
    return dest;  // kept: NULL when working in place
}
uint32_t VX_CALL vx_LTrimLen(const char* text) noexcept { return length(withoutLeadingBlanks(view(text))); }

char* VX_CALL vx_RTrim(const char* text, char* dest) noexcept {
    return storeTrimmed(text, dest, withoutTrailingBlanks(view(text)));
}
uint32_t VX_CALL vx_RTrimLen(const char* text) noexcept { return length(withoutTrailingBlanks(view(text))); }

char* VX_CALL vx_ChrTrim(const char* text, const char* set, int32_t mode, char* dest) noexcept {
    return storeTrimmed(text, dest, withoutSet(view(text), set, mode));
}
uint32_t VX_CALL vx_ChrTrimLen(const char* text, const char* set, int32_t mode) noexcept {
    return length(withoutSet(view(text), set, mode));
}

char* VX_CALL vx_TrimPunct(const char* text, char* dest) noexcept {
    return storeTrimmed(text, dest, trimmed(view(text), kTrimBoth, [](char c) { return !endsPunctuation(c); }));
}

char* VX_CALL vx_LJust(const char* text, char* dest) noexcept {
    char* to = target(text, dest);
    if (!to) return nullptr;
    std::string_view all = view(text);
    std::string_view rest = withoutLeadingBlanks(all);
    store(to, rest);
    // kept: nothing ends the blanks; in place the text's own terminator does, a destination must bring one.
    std::memset(to + rest.size(), ' ', all.size() - rest.size());
    return dest;  // kept: NULL when working in place
}

char* VX_CALL vx_RJust(const char* text, char* dest) noexcept {
    if (!text) return dest;
    std::string_view all = view(text);
    std::string_view content = withoutBlanks(all);
    char* to = target(text, dest);
    if (content.empty()) return store(to, all);
    std::size_t pad = all.size() - content.size();
    std::memmove(to + pad, content.data(), content.size());
    std::memset(to, ' ', pad);
    to[all.size()] = '\0';
    return to;
}

char* VX_CALL vx_Center(const char* text, int32_t width, const char* fill, char* dest) noexcept {
    if (!dest) return nullptr;
    if (width < 1) return store(dest, {});
    std::string_view content = view(text).substr(0, atLeastZero(width));
    std::size_t pad = (atLeastZero(width) - content.size()) / 2;
    char filler = fillOrDefault(fill);
    store(dest + pad, content);
    std::memset(dest, filler, pad);
    return dest;  // kept: no padding on the right
}

char* VX_CALL vx_StrCenter(const char* text, int32_t width, const char* fill, char* dest) noexcept {
    if (!dest) return nullptr;
    if (width < 1) return store(dest, {});
    std::size_t room = atLeastZero(width);
    std::string_view content = view(text);
    if (content.size() > room) content = content.substr((content.size() - room) / 2, room);
    std::size_t pad = (room - content.size()) / 2;
    char filler = fillOrDefault(fill);
    if (!content.empty()) std::memmove(dest + pad, content.data(), content.size());
    std::memset(dest, filler, pad);
    std::memset(dest + pad + content.size(), filler, room - pad - content.size());
    dest[room] = '\0';
    return dest;
}

char* VX_CALL vx_LeadChar(const char* text, const char* fill, char* dest) noexcept {
    char* to = target(text, dest);
    if (!to) return nullptr;
    std::string_view all = view(text);
    std::string_view content = withoutLeadingBlanks(all);
    std::size_t blanks = all.size() - content.size();
    char filler = fillOrDefault(fill);
    // kept: a destination gets the content less as many characters as there were blanks; in place nothing moves.
    if (dest) store(to + blanks, content.substr(std::min(blanks, content.size())));
    std::memset(to, filler, blanks);
    return to;
}

char* VX_CALL vx_TrailChar(const char* text, const char* fill, char* dest) noexcept {
    char* to = target(text, dest);
    if (!to) return nullptr;
    std::string_view all = view(text);
    std::size_t kept = withoutTrailingBlanks(all).size();
    char filler = fillOrDefault(fill);
    store(to, all);
    std::memset(to + kept, filler, all.size() - kept);
    return to;
}

char* VX_CALL vx_UnTrim(const char* text, int32_t width, const char* fill, char* dest) noexcept {
    if (!text) return const_cast<char*>(emptyText);
    std::size_t room = atLeastZero(width);
    std::string_view content = view(text).substr(0, room);
    // kept: without a fill argument a blank, whatever the library's fill character is.
    char filler = fillOr(fill, ' ');
    char* to = target(text, dest);
    std::memmove(to, content.data(), content.size());
    std::memset(to + content.size(), filler, room - content.size());
    to[room] = '\0';
    return to;
}

char* VX_CALL vx_Replicate(const char* text, int32_t count, char* dest) noexcept {
    if (!dest) return nullptr;
    std::string_view piece = view(text);
    char* end = dest;
    if (!piece.empty()) {
        for (; count > 0; --count, end += piece.size()) std::memmove(end, piece.data(), piece.size());
    }
    *end = '\0';
    return dest;
}

char* VX_CALL vx_StrnSet(char* text, int32_t c, int32_t count) noexcept {
    if (!text || count < 0) return text;
    std::size_t size = atLeastZero(count);
    std::memset(text, static_cast<std::uint8_t>(c), size);
    text[size] = '\0';
    return text + size;  // kept: the terminator, not the start
}

// A length form of its own: the pointer form's result is the terminator and would always give 0.
uint32_t VX_CALL vx_StrnSet_length(char* text, int32_t c, int32_t count) noexcept {
    if (!text || count < 0) return 0;
    vx_StrnSet(text, c, count);
    return static_cast<std::uint32_t>(count);
}

int32_t VX_CALL vx_StrEmpty(const char* text) noexcept {
    if (!text) return 0;
    while (*text == ' ' || *text == '\t') ++text;
    return *text == '\0';
}
