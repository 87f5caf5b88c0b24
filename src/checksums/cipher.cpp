// Two ciphers that xor with a repeated key: of texts, with the caller's key, and of blocks, with a built-in one.
#include "checksums/cipher.h"

#include <emmintrin.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "entries/cipher.h"
#include "frame/text.h"

namespace vx {

namespace {

constexpr char kDefaultKey[] = "Orbital Quince Cipher Phrase for Textsthe swift grey cat leaps across the sleepy barns";
constexpr std::size_t kLongestKey = 255;
constexpr std::size_t kVector = sizeof(__m128i);

constexpr std::string_view kBufferKey = "kTRAVO";
// The least that holds both whole keys and whole vectors.
constexpr std::size_t kKeyRun = 48;
static_assert(kKeyRun % kBufferKey.size() == 0 && kKeyRun % kVector == 0);

constexpr std::array<char, kKeyRun> kBufferKeys = [] {
    std::array<char, kKeyRun> keys{};
    for (std::size_t i = 0; i < kKeyRun; ++i) keys[i] = kBufferKey[i % kBufferKey.size()];
    return keys;
}();

inline __m128i load(const char* from) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from)); }

inline void applyVector(char* to, __m128i key) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm_xor_si128(load(to), key));
}

void applyBytes(char* to, std::size_t size, const char* keys) {
    for (std::size_t i = 0; i < size; ++i) to[i] = static_cast<char>(to[i] ^ keys[i]);
}

// A text's key with the high bit of each character set, and as much of it once more as a vector may reach into.
class WorkingKey {
 public:
    explicit WorkingKey(const char* key) : size_(strnlen(key, kLongestKey)) {
        const __m128i highBits = _mm_set1_epi8(static_cast<char>(0x80));
        std::memcpy(keys_, key, size_);
        for (std::size_t i = 0; i < size_; i += kVector) {
            _mm_storeu_si128(reinterpret_cast<__m128i*>(keys_ + i), _mm_or_si128(load(keys_ + i), highBits));
        }
        for (std::size_t i = 0; i < kVector; ++i) keys_[size_ + i] = keys_[i];
    }

    void apply(char* text, std::size_t length) const {
        std::size_t at = 0;
        std::size_t step = kVector % size_;  // a whole vector, less the times that the key fits into it
        for (; length >= kVector; text += kVector, length -= kVector) {
            applyVector(text, load(keys_ + at));
            at += size_ > kVector ? kVector : step;
            if (at >= size_) at -= size_;
        }
        applyBytes(text, length, keys_ + at);
    }

 private:
    std::size_t size_;
    char keys_[kLongestKey + kVector];
};

char* cipherText(char* text, const char* key, const char* result) {
    if (text && *text) WorkingKey(key && *key ? key : kDefaultKey).apply(text, std::strlen(text));
    return const_cast<char*>(result);
}

void* cipherBlock(void* block, std::uint32_t size) {
    if (block) applyBufferCipher(block, size);
    return block;
}

}  // namespace

void applyBufferCipher(void* block, std::size_t size) {
    const __m128i first = load(kBufferKeys.data());
    const __m128i second = load(kBufferKeys.data() + kVector);
    const __m128i third = load(kBufferKeys.data() + 2 * kVector);
    char* to = static_cast<char*>(block);
    for (; size >= kKeyRun; to += kKeyRun, size -= kKeyRun) {
        applyVector(to, first);
        applyVector(to + kVector, second);
        applyVector(to + 2 * kVector, third);
    }
    applyBytes(to, size, kBufferKeys.data());
}

}  // namespace vx

using namespace vx;

// kept: encrypting and decrypting are one operation, and the third argument is not written to.
char* VX_CALL vx_Encrypt(char* text, const char* key, const char* result) noexcept {
    return cipherText(text, key, result);
}
char* VX_CALL vx_Decrypt(char* text, const char* key, const char* result) noexcept {
    return cipherText(text, key, result);
}

// kept: the key argument changes nothing.
void* VX_CALL vx__blobencrypt(void* buffer, uint32_t count, const char*) noexcept { return cipherBlock(buffer, count); }
void* VX_CALL vx__blobdecrypt(void* buffer, uint32_t count, const char*) noexcept { return cipherBlock(buffer, count); }
