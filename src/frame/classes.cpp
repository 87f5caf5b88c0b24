// The character tables: setters, mappers, and the predicates on single characters and whole texts.
#include "entries/classes.h"

#include <iterator>

#include "frame/library.h"
#include "frame/text.h"

using namespace vx;

namespace {

template <class Entry>
std::int32_t exchange(Entry& entry, std::int32_t value) {
    // kept: reports the low 8 bits only, also for the character types, whose classes go up to 0x800.
    std::uint8_t previous = static_cast<std::uint8_t>(entry);
    if (std::uint8_t low = static_cast<std::uint8_t>(value)) entry = low;
    return previous;
}

std::uint8_t indexOf(std::int32_t c) { return static_cast<std::uint8_t>(c); }

bool isOfType(std::uint8_t c, std::uint32_t mask) { return (library.types[c] & mask) != 0; }

// kept: a character is upper case when it is its own upper case, so digits and punctuation are upper and lower case.
bool isUpper(std::uint8_t c) { return library.upper[c] == c; }
bool isLower(std::uint8_t c) { return library.lower[c] == c; }

// Whether the first `count` characters of the text, or all if it is shorter, pass the test. An empty text does.
template <class Test>
std::int32_t every(const char* text, std::int32_t count, Test test) {
    if (!text) return 1;
    for (; *text && count > 0; ++text, --count) {
        if (!test(byteOf(*text))) return 0;
    }
    return 1;
}

std::int32_t everyOfType(const char* text, std::int32_t count, std::uint32_t mask) {
    return every(text, count, [mask](std::uint8_t c) { return isOfType(c, mask); });
}

}  // namespace

ENTRY(int32_t, SetUpperTable)(int32_t c, int32_t value) noexcept { return exchange(library.upper[indexOf(c)], value); }
ENTRY(int32_t, SetLowerTable)(int32_t c, int32_t value) noexcept { return exchange(library.lower[indexOf(c)], value); }
ENTRY(int32_t, SetCollateTable)(int32_t c, int32_t value) noexcept {
    return exchange(library.collate[indexOf(c)], value);
}

ENTRY(int32_t, SetCharType)(int32_t c, uint32_t bits) noexcept {
    std::uint32_t& type = library.types[indexOf(c)];
    // kept: classes from 0x100 upward are not reported back.
    std::int32_t previous = static_cast<std::uint8_t>(type);
    type |= bits;
    return previous;
}

ENTRY(int32_t, ChrUpper)(int32_t c) noexcept { return library.upper[indexOf(c)]; }
ENTRY(int32_t, ChrLower)(int32_t c) noexcept { return library.lower[indexOf(c)]; }
ENTRY(int32_t, ChrCollate)(int32_t c) noexcept { return library.collate[indexOf(c)]; }

ENTRY(char*, Collate)(const char* text, char* dest) noexcept {
    char* to = target(text, dest);
    if (!to) return nullptr;
    std::string_view from = view(text);
    for (std::size_t i = 0; i < from.size(); ++i) to[i] = static_cast<char>(library.collate[byteOf(from[i])]);
    to[from.size()] = '\0';
    return to;
}

#define CHARACTER_PREDICATE(symbol, test) \
    ENTRY(int32_t, symbol)(int32_t c) noexcept { return test; }

CHARACTER_PREDICATE(IsChrAlpha, isOfType(indexOf(c), kAlpha))
CHARACTER_PREDICATE(IsChrAscii, isOfType(indexOf(c), kAscii))
CHARACTER_PREDICATE(IsChrDigit, isOfType(indexOf(c), kDigit))
CHARACTER_PREDICATE(IsChrNum, isOfType(indexOf(c), kNumeric))
CHARACTER_PREDICATE(IsChrSpace, isOfType(indexOf(c), kSpace))
CHARACTER_PREDICATE(IsChrHex, isOfType(indexOf(c), kHexDigit))
CHARACTER_PREDICATE(IsChrCntrl, isOfType(indexOf(c), kControl))
CHARACTER_PREDICATE(IsChrPrint, isOfType(indexOf(c), kPrintable))
CHARACTER_PREDICATE(IsChrPunct, isOfType(indexOf(c), kPunctuation))
CHARACTER_PREDICATE(IsChrWhite, isOfType(indexOf(c), kWhite))
CHARACTER_PREDICATE(IsChrUpper, isUpper(indexOf(c)))
CHARACTER_PREDICATE(IsChrLower, isLower(indexOf(c)))

#define TEXT_PREDICATE(symbol, result) \
    ENTRY(int32_t, symbol)(const char* text, int32_t count) noexcept { return result; }

TEXT_PREDICATE(IsAlpha, everyOfType(text, count, kAlpha))
TEXT_PREDICATE(IsAscii, everyOfType(text, count, kAscii))
TEXT_PREDICATE(IsDigit, everyOfType(text, count, kDigit))
TEXT_PREDICATE(IsNum, everyOfType(text, count, kNumeric))
TEXT_PREDICATE(IsSpace, everyOfType(text, count, kSpace))
TEXT_PREDICATE(IsHexDigit, everyOfType(text, count, kHexDigit))
TEXT_PREDICATE(IsCntrl, everyOfType(text, count, kControl))
TEXT_PREDICATE(IsPrint, everyOfType(text, count, kPrintable))
TEXT_PREDICATE(IsPunct, everyOfType(text, count, kPunctuation))
TEXT_PREDICATE(IsWhite, everyOfType(text, count, kWhite))
TEXT_PREDICATE(IsUpper, every(text, count, isUpper))
TEXT_PREDICATE(IsLower, every(text, count, isLower))

ENTRY(int32_t, IsStrType)(const char* text, int32_t count, uint32_t mask) noexcept {
    return everyOfType(text, count, mask);
}

ENTRY(int32_t, isthings)(int32_t selector, const char* text, int32_t count) noexcept {
    using Predicate = int32_t(VX_CALL*)(const char*, int32_t) noexcept;
    static constexpr Predicate kBySelector[] = {
        vx_IsHexDigit, vx_IsUpper, vx_IsSpace, vx_IsPunct, vx_IsPrint, vx_IsNum,
        vx_IsLower,    vx_IsDigit, vx_IsCntrl, vx_IsAscii, vx_IsAlpha,
    };
    if (selector < 1 || selector > static_cast<int32_t>(std::size(kBySelector))) return 0;
    return kBySelector[selector - 1](text, count);
}
