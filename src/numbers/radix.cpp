// Integers as hexadecimal, binary and any-base texts, and back.
#include "entries/radix.h"

#include <array>

#include "frame/text.h"

using namespace vx;

namespace {

constexpr char kDigits[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::int32_t kLeastBase = 2;
constexpr std::int32_t kMostBase = 36;

bool isBase(std::int32_t base) { return base >= kLeastBase && base <= kMostBase; }

// Writes the low `count` digits of `bits` bits each, most significant first, without a terminator.
char* putDigits(char* to, std::uint32_t value, int count, int bits) {
    std::uint32_t mask = (1u << bits) - 1;
    for (int i = count - 1; i >= 0; --i) *to++ = kDigits[(value >> (i * bits)) & mask];
    return to;
}

char* fixedDigits(char* dest, std::uint32_t value, int count, int bits) {
    if (dest) *putDigits(dest, value, count, bits) = '\0';
    return dest;
}

// The value of an ASCII letter or digit, up to 35; -1 for any other character.
int digitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    char letter = static_cast<char>(c & ~0x20);
    return letter >= 'A' && letter <= 'Z' ? letter - 'A' + 10 : -1;
}

// The digits at the end of the text, `limit` of them at most.
std::uint32_t hexTail(const char* text, int limit) {
    std::string_view digits = view(text);
    std::uint32_t value = 0;
    for (int i = 0; i < limit && !digits.empty(); ++i, digits.remove_suffix(1)) {
        int digit = digitValue(digits.back());
        if (digit < 0) break;
        // kept: G to Z are digits, too, and spill into the next one's bits
        value |= static_cast<std::uint32_t>(digit) << (4 * i);
    }
    return value;
}

}  // namespace

char* VX_CALL vx_IntToHex(uint32_t value, char* dest) noexcept {
    value &= 0xFFFF;
    if (value > 0xFF) return fixedDigits(dest, value, 4, 4);
    // kept: small values come with their digits reversed
    return fixedDigits(dest, ((value << 4) | (value >> 4)) & 0xFF, 2, 4);
}

char* VX_CALL vx_DecToHex(uint32_t value, char* dest) noexcept { return fixedDigits(dest, value, 4, 4); }
char* VX_CALL vx_LongToHex(uint32_t value, char* dest) noexcept { return fixedDigits(dest, value, 8, 4); }
char* VX_CALL vx_DwordToHex(uint32_t value, char* dest) noexcept { return fixedDigits(dest, value, 8, 4); }

char* VX_CALL vx_PtrToHex(uint32_t value, char* dest) noexcept {
    if (!dest) return nullptr;
    char* end = putDigits(dest, value >> 16, 4, 4);
    *end++ = ':';
    fixedDigits(end, value, 4, 4);
    return dest;
}

uint32_t VX_CALL vx_HexToDec(const char* text) noexcept { return hexTail(text, 4); }
uint32_t VX_CALL vx_HexToWord(const char* text) noexcept { return hexTail(text, 4) & 0xFFFF; }
int32_t VX_CALL vx_HexToLong(const char* text) noexcept { return static_cast<int32_t>(hexTail(text, 8)); }
uint32_t VX_CALL vx_HexToDword(const char* text) noexcept { return hexTail(text, 8); }

char* VX_CALL vx_ByteToBin(uint32_t value, char* dest) noexcept { return fixedDigits(dest, value, 8, 1); }
char* VX_CALL vx_NumToBin(uint32_t value, char* dest) noexcept { return fixedDigits(dest, value, 16, 1); }

int32_t VX_CALL vx_BinToNum(const char* text) noexcept {
    std::uint32_t value = 0;
    std::uint32_t bit = 1;
    std::string_view digits = view(text);
    for (; !digits.empty() && bit <= 0x8000; digits.remove_suffix(1)) {
        if (digits.back() != '0' && digits.back() != '1') continue;
        if (digits.back() == '1') value |= bit;
        bit <<= 1;
    }
    return static_cast<std::int16_t>(value);
}

char* VX_CALL vx_NumToBase(uint32_t value, int32_t base, char* dest) noexcept {
    if (!dest || !isBase(base)) return dest ? store(dest, {}) : nullptr;
    std::array<char, 32> digits;
    std::size_t first = digits.size();
    auto divisor = static_cast<std::uint32_t>(base);
    do {
        digits[--first] = kDigits[value % divisor];
        value /= divisor;
    } while (value != 0);
    return store(dest, {digits.data() + first, digits.size() - first});
}

int32_t VX_CALL vx_BaseToNum(const char* text, int32_t base) noexcept {
    if (!isBase(base)) return 0;
    std::uint32_t value = 0;
    for (char c : view(text)) {
        c = upper(c);
        int digit = c >= 'a' && c <= 'z' ? -1 : digitValue(c);
        if (digit < 0) return 0;
        // kept: a digit that the base does not have counts with its full value
        value = value * static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(digit);
    }
    return static_cast<int32_t>(value);
}

char* VX_CALL vx_BitStrip(const char* text, char* dest) noexcept {
    char* to = target(text, dest);
    if (!to) return nullptr;
    std::string_view from = view(text);
    for (std::size_t i = 0; i < from.size(); ++i) to[i] = static_cast<char>(from[i] & 0x7F);
    to[from.size()] = '\0';
    return dest;  // kept: NULL when working in place
}
