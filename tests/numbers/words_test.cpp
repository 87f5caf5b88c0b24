// Numbers in words, in Roman numerals, and in any base.
#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

std::string words(const std::string& number) {
    Dest dest(448);
    EXPECT_EQ(lib().NumToWords(number.c_str(), dest), dest.get());
    return dest.text();
}

std::vector<std::string> list(const std::string& text) {
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), {}};
}

// Group by group: hundreds, tens and units, and what the group is called.
std::string model(std::string digits) {
    static const std::vector<std::string> units = list(
        "- one two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen sixteen seventeen "
        "eighteen nineteen");
    static const std::vector<std::string> tens = list("- - twenty thirty forty fifty sixty seventy eighty ninety");
    static const std::vector<std::string> scales =
        list("- thousand million billion trillion quadrillion quintillion sextillion septillion octillion zillion");
    digits.insert(0, (3 - digits.size() % 3) % 3, '0');
    std::string text;
    for (std::size_t at = 0; at < digits.size(); at += 3) {
        std::size_t group = std::stoul(digits.substr(at, 3)), scale = (digits.size() - at) / 3 - 1;
        std::size_t hundred = group / 100, ten = group % 100 < 20 ? 0 : group / 10 % 10, unit = group % 100 - 10 * ten;
        if (hundred) text += " " + units[hundred] + " hundred";
        if (ten) text += " " + tens[ten];
        if (unit) text += " " + units[unit];
        if (group && scale) text += " " + scales[scale];
    }
    return text.empty() ? "zero" : text.substr(1);
}

TEST(Words, AsGroupByGroup) {
    for (int value = 0; value <= 999; ++value) EXPECT_EQ(words(std::to_string(value)), model(std::to_string(value)));
    RandomTexts random(47);
    for (int i = 0; i < 3000; ++i) {
        std::string number =
            std::to_string(random.number(1, 9)) + random.text(i % 2 ? "0000123456789" : "0123456789", 32);
        EXPECT_EQ(words(number), model(number));
    }
    EXPECT_LT(words("-" + std::string(32, '7')).size(), 448u);
}

// By the table of thousands, hundreds, tens and units.
std::string romanModel(int value) {
    static const char* const hundreds[] = {"", "C", "CC", "CCC", "CD", "D", "DC", "DCC", "DCCC", "CM"};
    static const char* const tens[] = {"", "X", "XX", "XXX", "XL", "L", "LX", "LXX", "LXXX", "XC"};
    static const char* const units[] = {"", "I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX"};
    std::string thousands(static_cast<std::size_t>(value / 1000), 'M');
    return thousands + hundreds[value / 100 % 10] + tens[value / 10 % 10] + units[value % 10];
}

TEST(Roman, AllNumerals) {
    Dest dest(16);
    for (int value = 1; value <= 3999; ++value) {
        EXPECT_EQ(lib().NumToRoman(value, dest), dest.get());
        EXPECT_EQ(dest.text(), romanModel(value)) << value;
        EXPECT_EQ(lib().RomanToNum(dest), value) << dest.text();
    }
}

TEST(Radix, AnyBaseReadBack) {
    Dest dest(33);
    RandomTexts random(41);
    for (std::int32_t base = 2; base <= 36; ++base) {
        for (int i = 0; i < 200; ++i) {
            auto value = static_cast<std::uint32_t>(random.number(INT32_MIN, INT32_MAX)) >> random.number(0, 31);
            lib().NumToBase(value, base, dest);
            EXPECT_EQ(static_cast<std::uint32_t>(lib().BaseToNum(dest, base)), value)
                << dest.text() << " base " << base;
            EXPECT_TRUE(dest.text() == "0" || dest.text()[0] != '0') << dest.text();
        }
    }
}

}  // namespace
}  // namespace vx::test
