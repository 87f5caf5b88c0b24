// Callers' texts and destinations: the few moves that every string family makes at its entry points.
#pragma once

#include <emmintrin.h>

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

// memmove that does not leave the caller for the sizes that most texts have: all is read before anything is written.
inline void moveBytes(char* to, const char* from, std::size_t size) {
    if (size - 8 <= 8) {
        std::uint64_t first, last;
        std::memcpy(&first, from, 8);
        std::memcpy(&last, from + size - 8, 8);
        std::memcpy(to, &first, 8);
        std::memcpy(to + size - 8, &last, 8);
    } else if (size - 16 <= 16) {
        __m128i first = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        __m128i last = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + size - 16));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), first);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + size - 16), last);
    } else if (size != 0) {
        std::memmove(to, from, size);
    }
}

// Puts `content` and a terminator at `to`, which may overlap it; returns `to`.
inline char* store(char* to, std::string_view content) {
    moveBytes(to, content.data(), content.size());
    to[content.size()] = '\0';
    return to;
}

// The same without the terminator; returns the end, where the next piece goes.
inline char* putText(char* to, std::string_view text) {
    moveBytes(to, text.data(), text.size());
    return to + text.size();
}

// Puts three pieces and a terminator at `to`, the last one first: `before` and `after` may lie there, parts of one text
// from which only what stands between them goes.
inline char* storeSpliced(char* to, std::string_view before, std::string_view between, std::string_view after) {
    store(to + before.size() + between.size(), after);
    putText(to + before.size(), between);
    putText(to, before);
    return to;
}

// A count or width, negative ones acting as 0.
inline std::size_t atLeastZero(std::int32_t count) { return count > 0 ? static_cast<std::size_t>(count) : 0; }

// The padding character that a fill argument selects: its first character, or the other one.
inline char fillOr(const char* fill, char otherwise) { return fill && *fill ? *fill : otherwise; }

inline char fillOrDefault(const char* fill) { return fillOr(fill, library.fill); }

inline std::uint8_t byteOf(char c) { return static_cast<std::uint8_t>(c); }

// Letters of ASCII alone, whatever the case tables say.
constexpr char asciiUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }
constexpr char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

inline char upper(char c) { return static_cast<char>(library.upper[byteOf(c)]); }
inline char lower(char c) { return static_cast<char>(library.lower[byteOf(c)]); }
inline bool isWhite(char c) { return (library.types[byteOf(c)] & kWhite) != 0; }

// The first character of `text` that is not white, or its terminator.
inline const char* skipWhite(const char* text) {
    while (*text && isWhite(*text)) ++text;
    return text;
}

}  // namespace vx
