// Roman numerals, telephone letters and grouped digits.
#include "entries/roman.h"

#include <algorithm>
#include <iterator>

#include "frame/text.h"
#include "platform/platform.h"

using namespace vx;

namespace {

struct RomanDigit {
    char letter;
    std::int32_t value;
};

// Each even place is a power of ten, each odd one the five below it.
constexpr RomanDigit kRomanDigits[] = {{'M', 1000}, {'D', 500}, {'C', 100}, {'L', 50}, {'X', 10}, {'V', 5}, {'I', 1}};
constexpr std::int32_t kMostRoman = 3999;

std::int32_t romanValue(char c) {
    auto found =
        std::find_if(std::begin(kRomanDigits), std::end(kRomanDigits), [c](RomanDigit d) { return d.letter == c; });
    return found == std::end(kRomanDigits) ? 0 : found->value;
}

char* putRoman(char* to, std::int32_t value) {
    for (std::size_t i = 0; i < std::size(kRomanDigits); i += 2) {
        const RomanDigit* ten = kRomanDigits + i;
        std::int32_t digit = value / ten->value;
        value %= ten->value;
        if (digit % 5 == 4) {
            *to++ = ten->letter;
            *to++ = (digit == 9 ? ten - 2 : ten - 1)->letter;
            continue;
        }
        if (digit >= 5) *to++ = (ten - 1)->letter;
        for (int n = digit % 5; n > 0; --n) *to++ = ten->letter;
    }
    return to;
}

// Keys of A to Z. kept: Q and Z, which many telephones lack, are on the 1.
constexpr char kKeys[] = "22233344455566671778889991";

char keyOf(char c) {
    char letter = asciiUpper(c);
    return letter >= 'A' && letter <= 'Z' ? kKeys[letter - 'A'] : c;
}

constexpr std::uint32_t kFormattedRoom = 64;

}  // namespace

char* VX_CALL vx_NumToRoman(int32_t value, char* dest) noexcept {
    if (!dest) return nullptr;
    *(value >= 1 && value <= kMostRoman ? putRoman(dest, value) : dest) = '\0';
    return dest;
}

int32_t VX_CALL vx_RomanToNum(const char* text) noexcept {
    std::string_view digits = view(text);
    std::uint32_t sum = 0;  // a text of millions of letters wraps
    for (std::size_t i = 0; i < digits.size(); ++i) {
        std::int32_t value = romanValue(digits[i]);
        if (value == 0) return 0;
        std::int32_t next = i + 1 < digits.size() ? romanValue(digits[i + 1]) : 0;
        if (next > value) {
            value = next - value;
            ++i;
        }
        sum += static_cast<std::uint32_t>(value);
    }
    return static_cast<int32_t>(sum);
}

char* VX_CALL vx_PhoneToNum(const char* text, char* dest) noexcept {
    if (!dest) return nullptr;
    std::string_view from = view(text);
    *std::transform(from.begin(), from.end(), dest, keyOf) = '\0';
    return dest;
}

char* VX_CALL vx_Comma(const char* number, char* dest) noexcept {
    if (!dest) return nullptr;
    char formatted[kFormattedRoom];
    std::string_view text = view(number);
    bool isNumber = text.size() < kFormattedRoom && text.find_first_of("0123456789") != text.npos;
    std::uint32_t size = isNumber ? platform::locale().formatNumber(number, formatted, kFormattedRoom) : 0;
    return store(dest, {formatted, size > 0 ? size - 1 : 0});
}
