// Case and reversal against plain loops on short texts and simple vector code on long ones.
#include <emmintrin.h>

#include <array>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;

struct UpperTable {
    unsigned char of[256];

    UpperTable() {
        for (int c = 0; c < 256; ++c) of[c] = static_cast<unsigned char>(c >= 'a' && c <= 'z' ? c - 32 : c);
    }
};
const UpperTable upperTable;

std::size_t upperByBlocks(const char* text, char* dest) {
    std::size_t size = std::strlen(text);
    std::size_t i = 0;
    for (; size - i >= 16; i += 16) {
        __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + i));
        __m128i letters =
            _mm_and_si128(_mm_cmpgt_epi8(block, _mm_set1_epi8('a' - 1)), _mm_cmplt_epi8(block, _mm_set1_epi8('z' + 1)));
        block = _mm_xor_si128(block, _mm_and_si128(letters, _mm_set1_epi8(32)));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(dest + i), block);
    }
    for (; i < size; ++i) dest[i] = static_cast<char>(upperTable.of[static_cast<unsigned char>(text[i])]);
    dest[size] = '\0';
    return size;
}

std::size_t upperByTable(const char* text, char* dest) {
    std::size_t size = std::strlen(text);
    for (std::size_t i = 0; i < size; ++i) {
        dest[i] = static_cast<char>(upperTable.of[static_cast<unsigned char>(text[i])]);
    }
    dest[size] = '\0';
    return size;
}

std::size_t reversed(const char* text, char* dest) {
    std::size_t size = std::strlen(text);
    std::size_t left = size;
    for (; left >= 8; left -= 8, dest += 8) {
        std::uint64_t bytes;
        std::memcpy(&bytes, text + left - 8, 8);
        bytes = __builtin_bswap64(bytes);
        std::memcpy(dest, &bytes, 8);
    }
    while (left > 0) *dest++ = text[--left];
    *dest = '\0';
    return size;
}

std::size_t capitalized(const char* text, char* dest) {
    static const std::string_view delimiters = " .,-\t\n\r\x8A\x8D!?/;:()^#&%+*\"'\x1A";
    static const auto delimits = [] {
        std::array<bool, 256> flags{};
        for (char c : delimiters) flags[static_cast<unsigned char>(c)] = true;
        return flags;
    }();
    bool outside = true;
    std::size_t i = 0;
    for (; text[i]; ++i) {
        unsigned char c = static_cast<unsigned char>(text[i]);
        dest[i] = static_cast<char>(outside ? upperTable.of[c] : c);
        outside = delimits[c];
    }
    dest[i] = '\0';
    return i;
}

std::size_t swapped(const char* text, const char* from, const char* to, char* dest) {
    char becomes[256];
    for (int c = 0; c < 256; ++c) becomes[c] = static_cast<char>(c);
    for (; *from; ++from) becomes[static_cast<unsigned char>(*from)] = *to ? *to++ : '\0';
    char* out = dest;
    for (; *text; ++text) {
        *out = becomes[static_cast<unsigned char>(*text)];
        out += *out != '\0';
    }
    *out = '\0';
    return static_cast<std::size_t>(out - dest);
}

std::string mixed(std::size_t bytes, bool accents) {
    std::string text;
    for (std::size_t i = 0; text.size() < bytes; ++i) {
        text += std::string(1 + i * 7 % 9, "abMxyZe"[i % 7]) + " ,. "[i % 4];
        if (accents && i % 3 == 0) text += '\xE4';
    }
    text.resize(bytes, 'w');
    return text;
}

void casing(const std::string& size, std::size_t bytes) {
    auto text = std::make_shared<std::string>(mixed(bytes, false));
    auto accented = std::make_shared<std::string>(mixed(bytes, true));
    auto dest = std::make_shared<std::string>(bytes + 1, '\0');
    auto upperPeer = bytes < 64 ? upperByTable : upperByBlocks;
    pair(
        "Upper/" + size, bytes, [=, call = lib().StrUpper] { return call(text->c_str(), dest->data()); },
        [=] { return upperPeer(text->c_str(), dest->data()); });
    pair(
        "UpperAccented/" + size, bytes, [=, call = lib().StrUpper] { return call(accented->c_str(), dest->data()); },
        [=] { return upperByTable(accented->c_str(), dest->data()); });
    pair(
        "Capitalize/" + size, bytes, [=, call = lib().Capitalize] { return call(text->c_str(), dest->data()); },
        [=] { return capitalized(text->c_str(), dest->data()); });
    pair(
        "StrReverse/" + size, bytes, [=, call = lib().StrReverse] { return call(text->c_str(), dest->data()); },
        [=] { return reversed(text->c_str(), dest->data()); });
    pair(
        "ChrSwap/" + size, bytes, [=, call = lib().ChrSwap] { return call(text->c_str(), "aex", "12", dest->data()); },
        [=] { return swapped(text->c_str(), "aex", "12", dest->data()); });
}

const Cases cases([] {
    casing("20B", 20);
    casing("100B", 100);
    casing("1MB", 1 << 20);
});

}  // namespace
}  // namespace vx::bench
