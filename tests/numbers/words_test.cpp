// Numbers and amounts in words.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
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
    EXPECT_EQ(lib().StrNumToWords(number.c_str(), Dest(448)), dest.text().size());
    return dest.text();
}

TEST(Words, Numbers) {
    struct Row {
        std::string number;
        const char* words;
    };
    const Row rows[] = {{"0", "zero"},
                        {"", "zero"},
                        {"-0000", "zero"},
                        {".75", "zero"},
                        {"abc", "zero"},
                        {std::string(33, '0'), "zero"},
                        {"12.99", "twelve"},
                        {"+7x", "seven"},
                        {"1 000,", "one thousand"},
                        {"1000000", "one million"},
                        {"2000000001", "two billion one"},
                        {"1002003", "one million two thousand three"},
                        {"999999", "nine hundred ninety nine thousand nine hundred ninety nine"},
                        {"-12", "negative twelve"},
                        {"-1234", "negative one thousand two hundred thirty four"},
                        {"-123456", "negative one hundred twenty three thousand four hundred fifty six"},
                        {"-000001", "negative one"},
                        {"-0001", "negative one"},
                        {"--1234", "negative two hundred thirty four"},
                        {"12x-56", "twelve thousand negative fifty six"},
                        {"1" + std::string(30, '0'), "one zillion"},
                        {std::string(34, '7'), "7777777777777777777777777777777777"},
                        {std::string(70, '8'), "888888888888888888888888888888888888888888888888888888888888888"}};
    for (const Row& row : rows) {
        EXPECT_EQ(words(row.number), row.words) << row.number;
    }
    EXPECT_STREQ(lib().NumToWords("5", nullptr), "");
    EXPECT_EQ(lib().StrNumToWords("5", nullptr), 0u);
    EXPECT_STREQ(lib().NumToWords(nullptr, Dest(448)), "zero");
}

std::vector<std::string> list(const std::string& text) {
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), {}};
}

int placeOf(const std::string& word, const std::vector<std::string>& words) {
    auto found = std::find(words.begin(), words.end(), word);
    return found == words.end() ? -1 : static_cast<int>(found - words.begin());
}

// Reads words back into digits: units and tens add up, hundred multiplies, a scale closes its group.
std::string digitsOf(const std::string& text) {
    static const std::vector<std::string> units = list(
        "zero one two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen sixteen "
        "seventeen eighteen nineteen");
    static const std::vector<std::string> tens = list("- - twenty thirty forty fifty sixty seventy eighty ninety");
    static const std::vector<std::string> scales =
        list("- thousand million billion trillion quadrillion quintillion sextillion septillion octillion zillion");
    int groups[11] = {};
    int value = 0;
    for (const std::string& word : list(text)) {
        if (word == "hundred") {
            value *= 100;
        } else if (int scale = placeOf(word, scales); scale > 0) {
            groups[scale] = value;
            value = 0;
        } else {
            value += placeOf(word, units) >= 0 ? placeOf(word, units) : 10 * placeOf(word, tens);
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
        {"12.05", 7, "05/100", "twelve dollars and 05/100"},
        {"12.349", 0, "34/100", "twelve dollars and 34/100"},
        {"3.01", 1, "01 cents", "three dollars and 01 cents"},
        {"3.01", 2, "one cent", "three dollars and one cent"},
        {"3", 2, "no cents", "three dollars and no cents"},
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
    EXPECT_STREQ(lib().NumToCents((std::string(64, '1') + ".25").c_str(), 2, Dest(24)), "twenty five cents");
    EXPECT_EQ(lib().NumToCents("1", 0, nullptr), nullptr);
    EXPECT_EQ(lib().NumToDollars("1", 0, nullptr), nullptr);
}

}  // namespace
}  // namespace vx::test
