// Roman numerals and telephone letters; grouped digits where the system does them alike.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

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
    for (int value : {0, 4000, -1, INT32_MIN, INT32_MAX}) EXPECT_EQ(lib().StrNumToRoman(value, dest), 0u) << value;
    EXPECT_EQ(lib().NumToRoman(5, nullptr), nullptr);
}

TEST(Roman, Read) {
    struct Row {
        const char* text;
        std::int32_t value;
    };
    for (auto [text, value] : {Row{"", 0}, Row{nullptr, 0}, Row{"mcm", 0}, Row{"XIZ", 0}, Row{"ZX", 0}, Row{"IIX", 10},
                               Row{"VX", 5}, Row{"IM", 999}, Row{"IXC", 109}, Row{"X I", 0}, Row{"MMMMM", 5000}}) {
        EXPECT_EQ(lib().RomanToNum(text), value) << (text ? text : "NULL");
    }
}

TEST(Phone, Letters) {
    struct Row {
        const char* text;
        const char* digits;
    };
    for (auto [text, digits] :
         {Row{"1-800-FLOWERS", "1-800-3569377"}, Row{"quiz", "1841"}, Row{"", ""},
          Row{"abcdefghijklmnopqrstuvwxyz", "22233344455566671778889991"}, Row{"(@[`{\xC1)", "(@[`{\xC1)"}}) {
        Dest dest(std::strlen(text) + 1);
        EXPECT_EQ(lib().PhoneToNum(text, dest), dest.get());
        EXPECT_EQ(dest.text(), digits) << text;
        EXPECT_EQ(lib().StrPhoneToNum(text, dest), std::strlen(digits));
    }
}

TEST(Comma, NoNumbers) {
    for (const char* text : {"", "-", ".", "abc", "1.2.3", "1e5", "+5", "--1", "5 "}) {
        Dest dest(64);
        EXPECT_EQ(lib().Comma(text, dest), dest.get()) << text;
        EXPECT_EQ(dest.text(), "") << text;
    }
    Dest dest(64);
    EXPECT_EQ(lib().strcomma(std::string(70, '1').c_str(), dest), 0u);
    EXPECT_EQ(lib().strcomma(nullptr, dest), 0u);
}

// On Windows the system groups; what it makes of a number is its own.
#if !defined(_WIN32)
TEST(Comma, Numbers) {
    struct Row {
        const char* number;
        const char* text;
    };
    for (auto [number, text] :
         {Row{"1234567", "1,234,567.00"}, Row{"0", "0.00"}, Row{"-0.005", "-0.01"}, Row{"0.004999", "0.00"},
          Row{"1.995", "2.00"}, Row{"999.995", "1,000.00"}, Row{".5", "0.50"}, Row{"5.", "5.00"},
          Row{"00123", "123.00"}, Row{"-1234567.891", "-1,234,567.89"}}) {
        Dest dest(64);
        EXPECT_EQ(lib().strcomma(number, dest), std::strlen(text)) << number;
        EXPECT_EQ(dest.text(), text) << number;
    }
}
#endif

}  // namespace
}  // namespace vx::test
