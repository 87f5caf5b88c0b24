// Numbers and amounts in English words.
#include "entries/words.h"

#include <algorithm>
#include <cstring>

#include "frame/text.h"
#include "strings/fields.h"

using namespace vx;

namespace {

constexpr std::string_view kUnits[] = {"zero",     "one",     "two",     "three",     "four",     "five",    "six",
                                       "seven",    "eight",   "nine",    "ten",       "eleven",   "twelve",  "thirteen",
                                       "fourteen", "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
constexpr std::string_view kTens[] = {"",      "",      "twenty",  "thirty", "forty",
                                      "fifty", "sixty", "seventy", "eighty", "ninety"};
// kept: the last scale is a zillion
constexpr std::string_view kScales[] = {"",
                                        " thousand",
                                        " million",
                                        " billion",
                                        " trillion",
                                        " quadrillion",
                                        " quintillion",
                                        " sextillion",
                                        " septillion",
                                        " octillion",
                                        " zillion"};
constexpr std::size_t kMostDigits = 33;
constexpr std::size_t kMostRead = 63;

enum Style : std::int32_t { kDigitsOver100, kDigitsAndCents, kWords, kNoCents };
constexpr std::string_view kNoAmountCents[] = {"00/100", "00 cents", "no cents", ""};
// kept: the 02 marks
constexpr std::string_view kNoAmountDollars[] = {"zero02 dollars02 and 00/100", "zero02 dollars02 and 00 cents",
                                                 "zero02 dollars02 and no cents", "zero02 dollars02"};

// A text that grows at its end.
class Writer {
 public:
    explicit Writer(char* to) : start_(to), end_(to) { *end_ = '\0'; }

    Writer& add(std::string_view text) {
        end_ = putText(end_, text);
        *end_ = '\0';
        return *this;
    }

    // Puts one blank in front of every word but the first.
    Writer& word(std::string_view text) {
        if (end_ != start_) *end_++ = ' ';
        return add(text);
    }

 private:
    char* start_;
    char* end_;
};

std::string_view readable(const char* number) {
    return number ? std::string_view(number, strnlen(number, kMostRead)) : std::string_view();
}

std::string_view fieldOf(std::string_view text, std::int32_t n) {
    Field field = findField(text, ".", n);
    return text.substr(field.start, field.length);
}

// The whole number at the start of a text of a few characters.
std::int32_t leadingNumber(std::string_view text) {
    while (!text.empty() && (text[0] == ' ' || (text[0] >= '\t' && text[0] <= '\r'))) text.remove_prefix(1);
    bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    std::int32_t value = 0;
    for (char c : text) {
        if (c < '0' || c > '9') break;
        value = value * 10 + (c - '0');
    }
    return negative ? -value : value;
}

// A number from -999 to 999.
void spellGroup(Writer& words, std::int32_t value) {
    if (value == 0) {
        words.word(kUnits[0]);
        return;
    }
    if (value < 0) {
        words.word("negative");
        value = -value;
    }
    if (value >= 100) words.word(kUnits[value / 100]).word("hundred");
    value %= 100;
    if (value >= 20) {
        words.word(kTens[value / 10]);
        value %= 10;
    }
    if (value != 0) words.word(kUnits[value]);
}

// The integer part in groups of three, counted from its end; false if all are zero.
bool spellGroups(Writer& words, std::string_view digits) {
    const bool negative = digits.starts_with('-');
    bool spelled = false;
    while (!digits.empty()) {
        std::size_t scale = (digits.size() - 1) / 3;
        std::size_t size = digits.size() - 3 * scale;
        std::int32_t value = leadingNumber(digits.substr(0, size));
        digits.remove_prefix(size);
        if (value == 0) continue;
        // The sign may be alone in its group, or with zeros, which is no reason to lose it.
        if (negative && !spelled && value > 0) words.word("negative");
        spelled = true;
        spellGroup(words, value);
        words.add(kScales[scale]);
    }
    return spelled;
}

void spell(char* dest, std::string_view number) {
    char copy[kMostRead];
    char* end = std::remove_copy_if(number.begin(), number.end(), copy, [](char c) { return c == ',' || c == ' '; });
    std::string_view whole = fieldOf({copy, static_cast<std::size_t>(end - copy)}, 1);
    Writer words(dest);
    if (whole.size() > kMostDigits) {
        words.add(whole);
    } else if (whole.size() < 4) {
        spellGroup(words, leadingNumber(whole));
    } else if (!spellGroups(words, whole)) {
        words.add(kUnits[0]);
    }
}

std::int32_t styleOf(std::int32_t style) {
    return style >= kDigitsOver100 && style <= kNoCents ? style : kDigitsOver100;
}

void spellCents(char* dest, std::string_view amount, std::int32_t style) {
    std::string_view decimals = fieldOf(amount, 2).substr(0, 2);
    char digits[2] = {'0', '0'};
    std::copy(decimals.begin(), decimals.end(), digits);
    std::string_view cents(digits, 2);
    Writer words(dest);  // not before: the destination may be the amount
    if (style == kNoCents) return;
    if (style == kDigitsOver100) {
        words.add(cents).add("/100");
        return;
    }
    if (style == kDigitsAndCents) {
        words.add(cents).add(" cents");  // kept: 01 cents
        return;
    }
    std::int32_t value = leadingNumber(cents);
    if (value == 0) {
        words.add("no cents");
        return;
    }
    spellGroup(words, value);
    words.add(value == 1 ? " cent" : " cents");
}

}  // namespace

char* VX_CALL vx_NumToWords(const char* number, char* dest) noexcept {
    if (!dest) return const_cast<char*>(emptyText);
    spell(dest, readable(number));
    return dest;
}

char* VX_CALL vx_NumToCents(const char* number, int32_t style, char* dest) noexcept {
    if (!dest) return nullptr;
    style = styleOf(style);
    std::string_view amount = readable(number);
    if (amount.empty()) return store(dest, kNoAmountCents[style]);
    spellCents(dest, view(number), style);  // also behind more digits than are spelled
    return dest;
}

char* VX_CALL vx_NumToDollars(const char* number, int32_t style, char* dest) noexcept {
    if (!dest) return nullptr;
    style = styleOf(style);
    std::string_view amount = readable(number);
    if (amount.empty()) return store(dest, kNoAmountDollars[style]);
    char copy[kMostRead];  // the destination may be the amount
    amount = {copy, amount.copy(copy, kMostRead)};
    std::string_view whole = fieldOf(amount, 1);
    spell(dest, whole);
    Writer words(dest + std::strlen(dest));
    words.add(whole == "1" ? " dollar" : " dollars");
    if (style == kNoCents) return dest;
    words.add(" and ");
    spellCents(dest + std::strlen(dest), amount, style);
    return dest;
}
