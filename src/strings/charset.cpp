// Texts as sets of characters: membership, counting, filtering, sorting, removing repeats.
#include "entries/charset.h"

#include <emmintrin.h>

#include <algorithm>
#include <cstring>

#include "frame/byteset.h"
#include "frame/text.h"

namespace vx {
namespace {

constexpr std::size_t kBlock = sizeof(__m128i);
// Up to this length, comparing all with all is cheaper than clearing and reading 256 counts.
constexpr std::size_t kRankLimit = 4 * kBlock;

// Puts each character where as many lie below it; what is free behind it then belongs to its equals. No step branches
// on the characters, which in short texts nothing predicts.
void rankSort(char* text, std::size_t size, std::uint8_t flip) {
    alignas(__m128i) char keys[kRankLimit];
    alignas(__m128i) std::uint8_t ranks[kRankLimit];
    char sorted[kRankLimit] = {};
    for (std::size_t i = 0; i < size; ++i) keys[i] = static_cast<char>(text[i] ^ flip ^ 0x80);  // for signed comparison
    for (std::size_t block = 0; block < size; block += kBlock) {
        __m128i mine = _mm_load_si128(reinterpret_cast<const __m128i*>(keys + block));
        __m128i below = _mm_setzero_si128();
        for (std::size_t i = 0; i < size; ++i)
            below = _mm_sub_epi8(below, _mm_cmpgt_epi8(mine, _mm_set1_epi8(keys[i])));
        _mm_store_si128(reinterpret_cast<__m128i*>(ranks + block), below);
    }
    for (std::size_t i = 0; i < size; ++i) sorted[ranks[i]] = text[i];
    char c = '\0';
    for (std::size_t i = 0; i < size; ++i) text[i] = c = sorted[i] ? sorted[i] : c;
}

void countingSort(char* text, std::size_t size, std::uint8_t flip) {
    std::uint32_t counts[256] = {};
    const char* end = text + size;
    for (std::size_t i = 0; i < size; ++i) ++counts[byteOf(text[i])];
    for (unsigned key = 0; key < 256; ++key) {
        unsigned code = key ^ flip;
        std::size_t count = counts[code];
        if (count == 0) continue;
        if (count <= kBlock && static_cast<std::size_t>(end - text) >= kBlock) {
            // What this stores too much, the codes that follow replace.
            _mm_storeu_si128(reinterpret_cast<__m128i*>(text), _mm_set1_epi8(static_cast<char>(code)));
        } else {
            std::memset(text, static_cast<int>(code), count);
        }
        text += count;
    }
}

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_ChrAny(const char* set, const char* text) noexcept {
    return set && text && std::strpbrk(text, set) != nullptr;
}

int32_t VX_CALL vx_ChrFirst(const char* set, const char* text) noexcept {
    return set && text ? byteOf(text[std::strcspn(text, set)]) : 0;
}

int32_t VX_CALL vx_ChrFound(const char* text, const char* set) noexcept {
    if (!text) return 1;
    return text[set ? std::strspn(text, set) : 0] == '\0';
}

int32_t VX_CALL vx_ChrTotal(const char* set, const char* text) noexcept {
    ByteSet members(set);
    std::uint32_t total = 0;
    for (char c : view(text)) total += members.flag(c);
    return static_cast<std::int32_t>(total);
}

int32_t VX_CALL vx_ChrTotali(const char* set, const char* text) noexcept {
    ByteSet members;
    for (char c : view(set)) members.add(upper(c));
    std::uint32_t total = 0;
    for (char c : view(text)) total += members.flag(upper(c));
    return static_cast<std::int32_t>(total);
}

char* VX_CALL vx_ChrKeep(const char* set, const char* text, char* dest) noexcept {
    char* to = target(text, dest);
    if (!to) return nullptr;
    ByteSet members(set);
    for (char c : view(text)) {
        *to = c;
        to += members.flag(c);
    }
    *to = '\0';
    return to;  // kept: the terminator, not the start
}

char* VX_CALL vx_ChrSort(char* text, int32_t descending) noexcept {
    std::size_t size = view(text).size();
    std::uint8_t flip = descending ? 0xFF : 0;
    if (size <= kRankLimit) {
        rankSort(text, size, flip);
    } else {
        countingSort(text, size, flip);
    }
    return text;
}

char* VX_CALL vx_ChrUnique(const char* text, char* dest) noexcept {
    char* start = target(text, dest);
    if (!start) return nullptr;
    std::uint8_t fresh[256];
    std::memset(fresh, 1, sizeof fresh);
    std::string_view rest = view(text);
    char* to = start;
    for (char c : rest.substr(0, sizeof fresh)) {
        *to = c;
        to += fresh[byteOf(c)];
        fresh[byteOf(c)] = 0;
    }
    rest.remove_prefix(std::min(rest.size(), sizeof fresh));
    for (char c : rest) {  // new ones are rare by now
        if (!fresh[byteOf(c)]) continue;
        fresh[byteOf(c)] = 0;
        *to++ = c;
    }
    *to = '\0';
    return start;
}
