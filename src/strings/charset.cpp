// Texts as sets of characters: membership, counting, filtering, sorting, removing repeats.
#include "entries/charset.h"

#include <algorithm>
#include <cstring>

#include "frame/byteset.h"
#include "frame/text.h"
#include "strings/blocks.h"

namespace vx {
namespace {

// Two sorts, by the text's length, since either is the faster one on its side (rows ChrSort of the benchmark). Both
// know the 256 values only; the descending order is the ascending one of the codes with their bits flipped.
constexpr std::size_t kRankLimit = 4 * kBlock;  // beyond it, clearing and reading 256 counts is cheaper

// For short texts. A character's place is the number of those that lie below it, counted for 16 characters at once
// against each one of the text. Equal characters get the same place, so the places behind it stay empty: the second
// pass fills each of them with the character before. No step branches on the characters, which nothing predicts in
// texts that short.
void rankSort(char* text, std::size_t size, std::uint8_t flip) {
    char keys[kRankLimit];
    std::uint8_t ranks[kRankLimit];
    char sorted[kRankLimit] = {};
    for (std::size_t i = 0; i < size; ++i) keys[i] = static_cast<char>(text[i] ^ flip ^ 0x80);  // for signed comparison
    for (std::size_t block = 0; block < size; block += kBlock) {
        const __m128i mine = load(keys + block);
        __m128i below = _mm_setzero_si128();
        for (std::size_t i = 0; i < size; ++i) {
            below = _mm_sub_epi8(below, _mm_cmpgt_epi8(mine, _mm_set1_epi8(keys[i])));
        }
        storeBlock(ranks + block, below);
    }
    for (std::size_t i = 0; i < size; ++i) sorted[ranks[i]] = text[i];
    char previous = '\0';
    for (std::size_t i = 0; i < size; ++i) {
        if (sorted[i]) previous = sorted[i];
        text[i] = previous;
    }
}

// For long texts: counts each code and writes the codes one behind the other. A run of up to 16 is one store of a
// block as long as the text has room for it; what that writes too much, the codes that follow replace.
void countingSort(char* text, std::size_t size, std::uint8_t flip) {
    std::uint32_t counts[256] = {};
    const char* end = text + size;
    for (std::size_t i = 0; i < size; ++i) ++counts[byteOf(text[i])];
    for (unsigned key = 0; key < 256; ++key) {
        const unsigned code = key ^ flip;
        const std::size_t count = counts[code];
        if (count == 0) continue;
        if (count <= kBlock && static_cast<std::size_t>(end - text) >= kBlock) {
            storeBlock(text, _mm_set1_epi8(static_cast<char>(code)));
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
