// Numbers and amounts in words.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
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
    EXPECT_EQ(lib().StrNumToWords(number.c_str(), Dest(448)), dest.text().size());
    return dest.text();
}

TEST(Words, Numbers) {
    struct Row {
        std::string number;
        const char* words;
    };
    const Row rows[] = {
        {"0", "zero"},
        {"", "zero"},
        {"0000", "zero"},
        {"-0000", "zero"},
        {"-0", "zero"},
        {".75", "zero"},
        {"115", "one hundred fifteen"},
        {"42", "forty two"},
        {"700", "seven hundred"},
        {"12.99", "twelve"},
        {"1,000", "one thousand"},
        {"1 234", "one thousand two hundred thirty four"},
        {"999999", "nine hundred ninety nine thousand nine hundred ninety nine"},
        {"1000000", "one million"},
        {"1002003", "one million two thousand three"},
        {"2000000001", "two billion one"},
        {"-1234", "negative one thousand two hundred thirty four"},
        {"-123456", "negative one hundred twenty three thousand four hundred fifty six"},
        {"-000001", "negative one"},
        {"-12", "negative twelve"},
        {"+7", "seven"},
        {"abc", "zero"},
        {"7x", "seven"},
        {"12x456", "twelve thousand four hundred fifty six"},
        {"1" + std::string(30, '0'), "one zillion"},
        {std::string(33, '0'), "zero"},
        {std::string(34, '7'), "7777777777777777777777777777777777"},
        {std::string(70, '8'), "888888888888888888888888888888888888888888888888888888888888888"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(words(row.number), row.words) << row.number;
    }
    EXPECT_STREQ(lib().NumToWords("5", nullptr), "");
    EXPECT_EQ(lib().StrNumToWords("5", nullptr), 0u);
    EXPECT_STREQ(lib().NumToWords(nullptr, Dest(448)), "zero");
}

// Reads words back into digits: units and tens add up, hundred multiplies, a scale closes its group.
std::string digitsOf(const std::string& text) {
    static const std::map<std::string, int> values = {
        {"one", 1},       {"two", 2},       {"three", 3},    {"four", 4},     {"five", 5},       {"six", 6},
        {"seven", 7},     {"eight", 8},     {"nine", 9},     {"ten", 10},     {"eleven", 11},    {"twelve", 12},
        {"thirteen", 13}, {"fourteen", 14}, {"fifteen", 15}, {"sixteen", 16}, {"seventeen", 17}, {"eighteen", 18},
        {"nineteen", 19}, {"twenty", 20},   {"thirty", 30},  {"forty", 40},   {"fifty", 50},     {"sixty", 60},
        {"seventy", 70},  {"eighty", 80},   {"ninety", 90}};
    static const std::vector<std::string> scales = {"thousand",    "million",     "billion",    "trillion",
                                                    "quadrillion", "quintillion", "sextillion", "septillion",
                                                    "octillion",   "zillion"};
    int groups[11] = {};
    int value = 0;
    std::istringstream in(text);
    for (std::string word; in >> word;) {
        auto scale = std::find(scales.begin(), scales.end(), word);
        if (word == "hundred") {
            value *= 100;
        } else if (scale != scales.end()) {
            groups[scale - scales.begin() + 1] = value;
            value = 0;
        } else if (word != "zero") {
            value += values.at(word);
        }
    }
    groups[0] = value;
    std::string digits;
    for (int i = 10; i >= 0; --i) {
        char group[8];
        std::snprintf(group, sizeof group, "%03d", groups[i]);
        digits += group;
    }
    std::size_t first = digits.find_first_not_of('0');
    return first == digits.npos ? "0" : digits.substr(first);
}

TEST(Words, ReadBack) {
    for (int value = 0; value <= 999; ++value) EXPECT_EQ(digitsOf(words(std::to_string(value))), std::to_string(value));
    RandomTexts random(47);
    for (int i = 0; i < 3000; ++i) {
        std::string number =
            std::to_string(random.number(1, 9)) + random.text(i % 2 ? "0000123456789" : "0123456789", 32);
        EXPECT_EQ(digitsOf(words(number)), number);
    }
    EXPECT_LT(words("-" + std::string(32, '7')).size(), 448u);
}

TEST(Words, Amounts) {
    struct Row {
        const char* amount;
        std::int32_t style;
        const char* cents;
        const char* dollars;
    };
    const Row rows[] = {
        {"12.5", 0, "50/100", "twelve dollars and 50/100"},
        {"12.5", 1, "50 cents", "twelve dollars and 50 cents"},
        {"12.5", 2, "fifty cents", "twelve dollars and fifty cents"},
        {"12.5", 3, "", "twelve dollars"},
        {"12.5", 7, "50/100", "twelve dollars and 50/100"},
        {"12.345", 0, "34/100", "twelve dollars and 34/100"},
        {"12.05", 0, "05/100", "twelve dollars and 05/100"},
        {"3.01", 1, "01 cents", "three dollars and 01 cents"},
        {"3.01", 2, "one cent", "three dollars and one cent"},
        {"3", 2, "no cents", "three dollars and no cents"},
        {"3", 1, "00 cents", "three dollars and 00 cents"},
        {"1", 0, "00/100", "one dollar and 00/100"},
        {"1.00", -1, "00/100", "one dollar and 00/100"},
        {"01", 0, "00/100", "one dollars and 00/100"},
        {".75", 2, "seventy five cents", "zero dollars and seventy five cents"},
        {"1,234.56", 2, "fifty six cents", "one thousand two hundred thirty four dollars and fifty six cents"},
        {"", 0, "00/100", "zero02 dollars02 and 00/100"},
        {"", 1, "00 cents", "zero02 dollars02 and 00 cents"},
        {nullptr, 2, "no cents", "zero02 dollars02 and no cents"},
        {"", 3, "", "zero02 dollars02"},
        {" ", 0, "00/100", "zero dollars and 00/100"},
    };
    for (const Row& row : rows) {
        Dest cents(24);
        EXPECT_EQ(lib().NumToCents(row.amount, row.style, cents), cents.get());
        EXPECT_EQ(cents.text(), row.cents) << (row.amount ? row.amount : "NULL") << " style " << row.style;
        EXPECT_EQ(lib().strnum2cents(row.amount, row.style, cents), std::strlen(row.cents));
        Dest dollars(512);
        EXPECT_EQ(lib().NumToDollars(row.amount, row.style, dollars), dollars.get());
        EXPECT_EQ(dollars.text(), row.dollars) << (row.amount ? row.amount : "NULL") << " style " << row.style;
        EXPECT_EQ(lib().strnum2dollars(row.amount, row.style, dollars), std::strlen(row.dollars));
    }
    EXPECT_EQ(lib().NumToCents("1", 0, nullptr), nullptr);
    EXPECT_EQ(lib().NumToDollars("1", 0, nullptr), nullptr);
}

}  // namespace
}  // namespace vx::test
