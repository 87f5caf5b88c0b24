// Sixteen characters at once.
#pragma once

#include <emmintrin.h>

#include <cstddef>
#include <cstdint>

namespace vx {

inline constexpr std::size_t kBlock = 16;

inline __m128i load(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }

inline void storeBlock(void* to, __m128i block) { _mm_storeu_si128(static_cast<__m128i*>(to), block); }

// One bit a byte whose sign is set.
inline unsigned bits(__m128i signs) { return static_cast<unsigned>(_mm_movemask_epi8(signs)); }

// How many bytes from p can be read whatever the length of the text there: the rest of its page. A sanitizer checks
// every byte, so that it must not be promised any.
inline std::size_t readableFrom(const char* p) {
#if defined(__SANITIZE_ADDRESS__)
    (void)p;
    return 0;
#else
    constexpr std::uintptr_t kSmallestPage = 4096;
    return kSmallestPage - (reinterpret_cast<std::uintptr_t>(p) & (kSmallestPage - 1));
#endif
}

}  // namespace vx
