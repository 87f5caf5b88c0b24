// Comparison against an oracle, and the case switched of every character.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

int order(std::string a, std::string b, int n, bool blind) {
    for (std::string* text : {&a, &b}) {
        text->resize(std::min(text->size(), static_cast<std::size_t>(std::max(n, 0))));
        for (char& c : *text) c = static_cast<char>(blind && c >= 'A' && c <= 'Z' ? c | 0x20 : c);
    }
    int result = a.compare(b);
    return (result > 0) - (result < 0);
}

TEST(Compare, RandomTexts) {
    RandomTexts random(3);
    for (const char* alphabet : {"a", "aA", "abAB@`[{", "zZ\xDA\xFA\x7F\x80\xFF"}) {
        for (int round = 0; round < 1000 && !HasFailure(); ++round) {
            std::string shared = random.text(alphabet, random.oneIn(10) ? 5000 : 20);
            std::string other = shared;
            if (random.oneIn(2)) std::replace(other.begin(), other.end(), 'a', 'A');
            shared += random.text(alphabet, 3);
            other += random.text(alphabet, 3);
            Edit a(shared), b(other);
            SCOPED_TRACE("[" + shared + "] and [" + other + "]");
            EXPECT_EQ(lib().StrCmp(a, b), order(shared, other, INT_MAX, false));
            EXPECT_EQ(lib().StrCmpi(a, b), order(shared, other, INT_MAX, true));
            for (int n : {0, 1, 2, 3, 16, 17, -1, INT_MIN, INT_MAX}) {
                EXPECT_EQ(lib().StrnCmp(a, b, n), order(shared, other, n, false)) << n;
                EXPECT_EQ(lib().StrnCmpi(a, b, n), order(shared, other, n, true)) << n;
            }
        }
    }
}

TEST(Compare, CaseSwitchedOfEveryCharacter) {
    std::string expected = everyCharacter();
    for (char& c : expected) {
        int upper = lib().ChrUpper(c);
        c = static_cast<char>(upper == static_cast<unsigned char>(c) ? lib().ChrLower(c) : upper);
    }
    Edit edit(everyCharacter());
    EXPECT_EQ(lib().StrSwitch(edit, nullptr), expected);
}

}  // namespace
}  // namespace vx::test
