// Callers' texts and destinations: the few moves that every string family makes at its entry points.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "frame/library.h"

namespace vx {

// A caller's text; NULL is an empty one.
inline std::string_view view(const char* text) { return text ? std::string_view(text) : std::string_view(); }

// Where a result goes: the destination, or the text itself when there is none.
inline char* target(const char* text, char* dest) { return dest ? dest : const_cast<char*>(text); }

// Puts `content` and a terminator at `to`, which may overlap it; returns `to`.
inline char* store(char* to, std::string_view content) {
    if (!content.empty()) std::memmove(to, content.data(), content.size());
    to[content.size()] = '\0';
    return to;
}

// A count or width, negative ones acting as 0.
inline std::size_t atLeastZero(std::int32_t count) { return count > 0 ? static_cast<std::size_t>(count) : 0; }

// The padding character that a fill argument selects: its first character, or the other one.
inline char fillOr(const char* fill, char otherwise) { return fill && *fill ? *fill : otherwise; }

inline char fillOrDefault(const char* fill) { return fillOr(fill, library.fill); }

inline std::uint8_t byteOf(char c) { return static_cast<std::uint8_t>(c); }

inline char upper(char c) { return static_cast<char>(library.upper[byteOf(c)]); }
inline char lower(char c) { return static_cast<char>(library.lower[byteOf(c)]); }
inline bool isWhite(char c) { return (library.types[byteOf(c)] & kWhite) != 0; }

// The first character of `text` that is not white, or its terminator.
inline const char* skipWhite(const char* text) {
    while (*text && isWhite(*text)) ++text;
    return text;
}

}  // namespace vx
