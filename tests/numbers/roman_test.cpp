// All Roman numerals, written and read.
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
}

}  // namespace
}  // namespace vx::test
