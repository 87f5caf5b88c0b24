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

int32_t VX_CALL vx_SetUpperTable(int32_t c, int32_t value) noexcept {
    return exchange(library.upper[indexOf(c)], value);
}
int32_t VX_CALL vx_SetLowerTable(int32_t c, int32_t value) noexcept {
    return exchange(library.lower[indexOf(c)], value);
}
int32_t VX_CALL vx_SetCollateTable(int32_t c, int32_t value) noexcept {
    return exchange(library.collate[indexOf(c)], value);
}

int32_t VX_CALL vx_SetCharType(int32_t c, uint32_t bits) noexcept {
    std::uint32_t& type = library.types[indexOf(c)];
    // kept: classes from 0x100 upward are not reported back.
    std::int32_t previous = static_cast<std::uint8_t>(type);
    type |= bits;
    return previous;
}

int32_t VX_CALL vx_ChrUpper(int32_t c) noexcept { return library.upper[indexOf(c)]; }
int32_t VX_CALL vx_ChrLower(int32_t c) noexcept { return library.lower[indexOf(c)]; }
int32_t VX_CALL vx_ChrCollate(int32_t c) noexcept { return library.collate[indexOf(c)]; }

char* VX_CALL vx_Collate(const char* text, char* dest) noexcept {
    char* to = target(text, dest);
    if (!to) return nullptr;
    std::string_view from = view(text);
    for (std::size_t i = 0; i < from.size(); ++i) to[i] = static_cast<char>(library.collate[byteOf(from[i])]);
    to[from.size()] = '\0';
    return to;
}

int32_t VX_CALL vx_IsChrAlpha(int32_t c) noexcept { return isOfType(indexOf(c), kAlpha); }
int32_t VX_CALL vx_IsChrAscii(int32_t c) noexcept { return isOfType(indexOf(c), kAscii); }
int32_t VX_CALL vx_IsChrDigit(int32_t c) noexcept { return isOfType(indexOf(c), kDigit); }
int32_t VX_CALL vx_IsChrNum(int32_t c) noexcept { return isOfType(indexOf(c), kNumeric); }
int32_t VX_CALL vx_IsChrSpace(int32_t c) noexcept { return isOfType(indexOf(c), kSpace); }
int32_t VX_CALL vx_IsChrHex(int32_t c) noexcept { return isOfType(indexOf(c), kHexDigit); }
int32_t VX_CALL vx_IsChrCntrl(int32_t c) noexcept { return isOfType(indexOf(c), kControl); }
int32_t VX_CALL vx_IsChrPrint(int32_t c) noexcept { return isOfType(indexOf(c), kPrintable); }
int32_t VX_CALL vx_IsChrPunct(int32_t c) noexcept { return isOfType(indexOf(c), kPunctuation); }
int32_t VX_CALL vx_IsChrWhite(int32_t c) noexcept { return isOfType(indexOf(c), kWhite); }
int32_t VX_CALL vx_IsChrUpper(int32_t c) noexcept { return isUpper(indexOf(c)); }
int32_t VX_CALL vx_IsChrLower(int32_t c) noexcept { return isLower(indexOf(c)); }

int32_t VX_CALL vx_IsAlpha(const char* text, int32_t count) noexcept { return everyOfType(text, count, kAlpha); }
int32_t VX_CALL vx_IsAscii(const char* text, int32_t count) noexcept { return everyOfType(text, count, kAscii); }
int32_t VX_CALL vx_IsDigit(const char* text, int32_t count) noexcept { return everyOfType(text, count, kDigit); }
int32_t VX_CALL vx_IsNum(const char* text, int32_t count) noexcept { return everyOfType(text, count, kNumeric); }
int32_t VX_CALL vx_IsSpace(const char* text, int32_t count) noexcept { return everyOfType(text, count, kSpace); }
int32_t VX_CALL vx_IsHexDigit(const char* text, int32_t count) noexcept { return everyOfType(text, count, kHexDigit); }
int32_t VX_CALL vx_IsCntrl(const char* text, int32_t count) noexcept { return everyOfType(text, count, kControl); }
int32_t VX_CALL vx_IsPrint(const char* text, int32_t count) noexcept { return everyOfType(text, count, kPrintable); }
int32_t VX_CALL vx_IsPunct(const char* text, int32_t count) noexcept { return everyOfType(text, count, kPunctuation); }
int32_t VX_CALL vx_IsWhite(const char* text, int32_t count) noexcept { return everyOfType(text, count, kWhite); }
int32_t VX_CALL vx_IsUpper(const char* text, int32_t count) noexcept { return every(text, count, isUpper); }
int32_t VX_CALL vx_IsLower(const char* text, int32_t count) noexcept { return every(text, count, isLower); }

int32_t VX_CALL vx_IsStrType(const char* text, int32_t count, uint32_t mask) noexcept {
    return everyOfType(text, count, mask);
}

int32_t VX_CALL vx_isthings(int32_t selector, const char* text, int32_t count) noexcept {
    using Predicate = int32_t(VX_CALL*)(const char*, int32_t) noexcept;
    static constexpr Predicate kBySelector[] = {
        vx_IsHexDigit, vx_IsUpper, vx_IsSpace, vx_IsPunct, vx_IsPrint, vx_IsNum,
        vx_IsLower,    vx_IsDigit, vx_IsCntrl, vx_IsAscii, vx_IsAlpha,
    };
    if (selector < 1 || selector > static_cast<int32_t>(std::size(kBySelector))) return 0;
    return kBySelector[selector - 1](text, count);
}
