// The ciphers against plain code: vectors that hold whole keys, and a walk along text and key.
#include <emmintrin.h>

#include <cstring>
#include <memory>
#include <string>

#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;

void xorWithKey(char* to, std::size_t size) {
    static const std::string key = "kTRAVOkTRAVOkTRAVOkTRAVOkTRAVOkTRAVOkTRAVOkTRAVO";
    auto at = [](const char* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); };
    const __m128i a = at(key.data());
    const __m128i b = at(key.data() + 16);
    const __m128i c = at(key.data() + 32);
    auto apply = [at](char* p, __m128i k) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), _mm_xor_si128(at(p), k)); };
    for (; size >= 48; to += 48, size -= 48) apply(to, a), apply(to + 16, b), apply(to + 32, c);
    for (std::size_t i = 0; i < size; ++i) to[i] = static_cast<char>(to[i] ^ key[i]);
}

void xorText(char* text, const char* key) {
    for (const char* k = key; *text; ++text) {
        *text = static_cast<char>(*text ^ (*k | 0x80));
        if (!*++k) k = key;
    }
}

void blocks(const char* size, std::size_t count) {
    auto block = std::make_shared<std::string>(count, 'x');
    pair(
        std::string("_blobencrypt/") + size, count,
        [=, call = lib()._blobencrypt] { return call(block->data(), static_cast<std::uint32_t>(count), ""); },
        [=] { return xorWithKey(block->data(), count), block->data(); });
}

void texts(const char* size, std::size_t count) {
    auto text = std::make_shared<std::string>(count, 'x');
    pair(
        std::string("Encrypt/") + size, count,
        [=, call = lib().Encrypt] { return call(text->data(), "secret word", text->data()); },
        [=] { return xorText(text->data(), "secret word"), text->data(); });
}

const Cases cases([] {
    blocks("20B", 20);
    blocks("32KB", 32 << 10);
    blocks("16MB", 16 << 20);
    texts("20B", 20);
    texts("1MB", 1 << 20);
});

}  // namespace
}  // namespace vx::bench
