// CRCs, sums and the hash of texts and blocks.
//
// A CRC is the remainder of a message, read as a polynomial over two elements, by another polynomial. Short blocks go
// 16 bytes a step through tables (crc_tables.h). Long ones are folded where the processor multiplies without carries:
// to move 128 bits of a message forward over a distance is to multiply them by x to that power modulo the polynomial,
// and four such lanes do not wait for one another; the tables then take what is left. The rows Crc32 of the benchmark
// compare both with other libraries.
#include "checksums/checksum.h"

#include <emmintrin.h>
#include <wmmintrin.h>

#include <bit>
#include <cstring>

#include "checksums/crc_tables.h"
#include "entries/checksum.h"
#include "frame/text.h"

namespace vx {

bool foldsCrc32 = [] {
    __builtin_cpu_init();
    return __builtin_cpu_supports("pclmul") != 0;
}();

namespace {

// A step over N bytes; the value meets the first four.
template <std::size_t N>
std::uint32_t crc32Step(const std::uint8_t* bytes, std::uint32_t running) {
    std::uint32_t words[N / 4];
    std::memcpy(words, bytes, N);
    words[0] ^= running;
    std::uint32_t result = 0;
#pragma GCC unroll 16
    for (std::size_t i = 0; i < N; ++i) result ^= kCrc32Tables[N - 1 - i][(words[i / 4] >> (i % 4 * 8)) & 0xFF];
    return result;
}

std::uint32_t crc32ByTables(const std::uint8_t* bytes, std::size_t size, std::uint32_t running) {
    for (; size >= kCrcStep; bytes += kCrcStep, size -= kCrcStep) running = crc32Step<kCrcStep>(bytes, running);
    for (; size >= 4; bytes += 4, size -= 4) running = crc32Step<4>(bytes, running);
    for (; size > 0; ++bytes, --size) running = kCrc32Tables[0][(*bytes ^ running) & 0xFF] ^ (running >> 8);
    return running;
}

// x^n modulo the polynomial, in the bit order of the folding multiplication.
constexpr std::uint64_t powerOfX(int n) {
    std::uint32_t value = 0x80000000;
    for (; n > 0; --n) value = (value >> 1) ^ (value & 1 ? kCrc32Polynomial : 0);
    return std::uint64_t{value} << 1;
}

constexpr std::size_t kLane = sizeof(__m128i);
constexpr std::size_t kLanes = 4;
constexpr std::size_t kFoldedBlock = kLane * kLanes;

// What moves a lane's lower and upper half forward over a distance of so many bytes.
struct Factors {
    constexpr explicit Factors(std::size_t distance)
        : low(powerOfX(8 * static_cast<int>(distance) + 32)), high(powerOfX(8 * static_cast<int>(distance) - 32)) {}
    std::uint64_t low;
    std::uint64_t high;
};
constexpr Factors kOverBlock(kFoldedBlock);
constexpr Factors kOverLane(kLane);

#define CARRYLESS __attribute__((target("pclmul")))

// `lane`, moved forward over the message by the factors' distance, added to `next`.
CARRYLESS inline __m128i fold(__m128i lane, __m128i factors, __m128i next) {
    __m128i low = _mm_clmulepi64_si128(lane, factors, 0x00);
    __m128i high = _mm_clmulepi64_si128(lane, factors, 0x11);
    return _mm_xor_si128(next, _mm_xor_si128(low, high));
}

CARRYLESS inline __m128i load(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }

// At least one block of four lanes. Each lane moves on by four lanes at once, until one is left of all.
CARRYLESS std::uint32_t crc32ByFolding(const std::uint8_t* bytes, std::size_t size, std::uint32_t running) {
    const __m128i overBlock = load(&kOverBlock);
    const __m128i overLane = load(&kOverLane);
    __m128i a = _mm_xor_si128(load(bytes), _mm_cvtsi32_si128(static_cast<int>(running)));
    __m128i b = load(bytes + kLane);
    __m128i c = load(bytes + 2 * kLane);
    __m128i d = load(bytes + 3 * kLane);
    bytes += kFoldedBlock;
    size -= kFoldedBlock;
    for (; size >= kFoldedBlock; bytes += kFoldedBlock, size -= kFoldedBlock) {
        a = fold(a, overBlock, load(bytes));
        b = fold(b, overBlock, load(bytes + kLane));
        c = fold(c, overBlock, load(bytes + 2 * kLane));
        d = fold(d, overBlock, load(bytes + 3 * kLane));
    }
    d = fold(fold(fold(a, overLane, b), overLane, c), overLane, d);
    for (; size >= kLane; bytes += kLane, size -= kLane) d = fold(d, overLane, load(bytes));
    std::uint8_t last[kLane];
    _mm_storeu_si128(reinterpret_cast<__m128i*>(last), d);
    return crc32ByTables(bytes, size, crc32Step<kLane>(last, 0));
}

std::uint32_t crc32(const std::uint8_t* bytes, std::size_t size, std::uint32_t running) {
    return size >= kFoldedBlock && foldsCrc32 ? crc32ByFolding(bytes, size, running)
                                              : crc32ByTables(bytes, size, running);
}

// A step over N bytes; the value meets the first two.
template <std::size_t N>
std::uint16_t crc16Step(const std::uint8_t* bytes, std::uint16_t running) {
    unsigned result = kCrc16Tables[N - 1][bytes[0] ^ (running >> 8)] ^ kCrc16Tables[N - 2][bytes[1] ^ (running & 0xFF)];
#pragma GCC unroll 16
    for (std::size_t i = 2; i < N; ++i) result ^= kCrc16Tables[N - 1 - i][bytes[i]];
    return static_cast<std::uint16_t>(result);
}

// Carries the value over one byte more; not cut to 16 bits.
std::uint32_t crc16Byte(std::uint8_t byte, std::uint16_t running) {
    return kCrc16Tables[0][(running >> 8) ^ byte] ^ (static_cast<std::uint32_t>(running) << 8);
}

std::uint16_t crc16(const std::uint8_t* bytes, std::size_t size, std::uint16_t running) {
    for (; size >= kCrcStep; bytes += kCrcStep, size -= kCrcStep) running = crc16Step<kCrcStep>(bytes, running);
    for (; size >= 4; bytes += 4, size -= 4) running = crc16Step<4>(bytes, running);
    for (; size > 0; ++bytes, --size) running = static_cast<std::uint16_t>(crc16Byte(*bytes, running));
    return running;
}

std::uint32_t total(__m128i lanes) {
    std::uint32_t each[4];
    _mm_storeu_si128(reinterpret_cast<__m128i*>(each), lanes);
    return each[0] + each[1] + each[2] + each[3];
}

// Each character counts as often as its position says: sums of sums give the blocks before its own, weights the rest.
std::uint32_t sumByPosition(std::string_view text) {
    const __m128i ones = _mm_set1_epi16(1);
    const __m128i firstWeights = _mm_setr_epi16(1, 2, 3, 4, 5, 6, 7, 8);
    const __m128i lastWeights = _mm_setr_epi16(9, 10, 11, 12, 13, 14, 15, 16);
    __m128i sums = _mm_setzero_si128();
    __m128i sumsOfSums = _mm_setzero_si128();
    __m128i weighted = _mm_setzero_si128();
    std::size_t i = 0;
    for (; i + 16 <= text.size(); i += 16) {
        __m128i chars = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + i));
        __m128i first = _mm_srai_epi16(_mm_unpacklo_epi8(chars, chars), 8);
        __m128i last = _mm_srai_epi16(_mm_unpackhi_epi8(chars, chars), 8);
        sumsOfSums = _mm_add_epi32(sumsOfSums, sums);
        sums = _mm_add_epi32(sums, _mm_madd_epi16(_mm_add_epi16(first, last), ones));
        weighted = _mm_add_epi32(weighted, _mm_madd_epi16(first, firstWeights));
        weighted = _mm_add_epi32(weighted, _mm_madd_epi16(last, lastWeights));
    }
    // A block is in the sums of sums once for each block behind it, and shall count 16 times for each before it.
    std::uint32_t blocks = static_cast<std::uint32_t>(i / 16);
    std::uint32_t sum = 16 * ((blocks - 1) * total(sums) - total(sumsOfSums)) + total(weighted);
    for (; i < text.size(); ++i) {
        sum += static_cast<std::uint32_t>(static_cast<signed char>(text[i])) * static_cast<std::uint32_t>(i + 1);
    }
    return sum;
}

std::uint32_t checkSum(std::string_view text) {
    // Each character counts as one more than it is: 1 + 2 + ... + n in all.
    std::uint64_t n = text.size();
    std::uint64_t ones = n % 2 == 0 ? n / 2 * (n + 1) : (n + 1) / 2 * n;
    return (sumByPosition(text) + static_cast<std::uint32_t>(ones)) << 8;
}

std::uint32_t plainSum(std::string_view text) {
    __m128i sums = _mm_setzero_si128();
    std::size_t i = 0;
    for (; i + 16 <= text.size(); i += 16) {
        __m128i chars = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + i));
        sums = _mm_add_epi32(sums, _mm_sad_epu8(chars, _mm_setzero_si128()));
    }
    std::uint32_t sum = total(sums);
    for (; i < text.size(); ++i) sum += byteOf(text[i]);
    return sum;
}

// kept: the byte behind the counted ones takes part, and the first one does not.
std::uint32_t hash(const char* bytes, std::size_t count, std::uint32_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = 1; i <= count; ++i) {
        value = std::rotl(value, 1) ^ static_cast<std::uint32_t>(static_cast<signed char>(bytes[i]));
    }
    return value & (size - 1);
}

}  // namespace
}  // namespace vx

using namespace vx;

uint32_t VX_CALL vx_Crc32(const void* bytes, uint32_t running, uint32_t count) noexcept {
    return bytes ? crc32(static_cast<const std::uint8_t*>(bytes), count, running) : running;
}

uint32_t VX_CALL vx_Crc16(const void* bytes, uint32_t running, uint32_t count) noexcept {
    if (!bytes || count == 0) return running;
    auto all = static_cast<const std::uint8_t*>(bytes);
    // kept: the last byte's step is not cut to 16 bits, so the value before it shows above them.
    return crc16Byte(all[count - 1], crc16(all, count - 1, static_cast<std::uint16_t>(running)));
}

uint32_t VX_CALL vx_CheckSum(const char* text) noexcept { return checkSum(view(text)); }
uint32_t VX_CALL vx_StrSum(const char* text) noexcept { return plainSum(view(text)); }

uint32_t VX_CALL vx_StrHash(const char* text, uint32_t size) noexcept { return hash(text, view(text).size(), size); }
uint32_t VX_CALL vx_vbstrhash(const char* text, uint32_t size) noexcept {
    return hash(text, view(text).size(), static_cast<std::uint16_t>(size));
}
uint32_t VX_CALL vx_blobhash(const void* bytes, int32_t count, uint32_t size) noexcept {
    return bytes ? hash(static_cast<const char*>(bytes), atLeastZero(count), size) : 0;
}
