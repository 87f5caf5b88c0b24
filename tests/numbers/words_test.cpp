// Numbers in words, read back.
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
    return dest.text();
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

}  // namespace
}  // namespace vx::test
