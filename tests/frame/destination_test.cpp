// Destinations that are the text itself: what callers get there is what they get elsewhere.
#include <gtest/gtest.h>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

struct Row {
    const char* name;
    void (*call)(const char* text, std::int32_t n, const char* other, char* dest);
};

const Row kRows[] = {
    {"SwapToken", [](auto text, auto n, auto other, auto dest) { lib().SwapToken(text, " ,", n, other, dest); }},
    {"DeleteToken", [](auto text, auto n, auto, auto dest) { lib().DeleteToken(text, " ,", n, dest); }},
    {"Stuff", [](auto text, auto n, auto other, auto dest) { lib().Stuff(text, n, n, other, dest); }},
    {"StrSwap", [](auto text, auto n, auto other, auto dest) { lib().StrSwap(text, ",", n, other, dest); }},
    {"StrTran", [](auto text, auto n, auto other, auto dest) { lib().StrTran(text, "ab", other, 1, n, dest); }},
    {"StrTrani", [](auto text, auto n, auto other, auto dest) { lib().StrTrani(text, "A", other, n, -2, dest); }},
    {"WildSwap", [](auto text, auto, auto other, auto dest) { lib().WildSwap("b", text, 1, 1, other, dest); }},
    {"RegExtract", [](auto text, auto n, auto, auto dest) { lib().RegExtract("[ab]+", text, n, dest, 999); }},
    {"RegInfo", [](auto text, auto n, auto, auto dest) { lib().RegInfo("b.", text, n, nullptr, nullptr, dest, 999); }},
    {"StrExpand", [](auto text, auto n, auto other, auto dest) { lib().StrExpand(text, n, other, dest); }},
    {"Center", [](auto text, auto n, auto other, auto dest) { lib().Center(text, n * 9, other, dest); }},
    {"StrCenter", [](auto text, auto n, auto other, auto dest) { lib().StrCenter(text, n * 9, other, dest); }},
    {"StrJustify", [](auto text, auto n, auto other, auto dest) { lib().StrJustify(text, 20, n, other, dest); }},
    {"Replicate", [](auto text, auto n, auto, auto dest) { lib().Replicate(text, n, dest); }},
    {"NumToCents", [](auto text, auto n, auto, auto dest) { lib().NumToCents(text, n, dest); }},
    {"NumToDollars", [](auto text, auto n, auto, auto dest) { lib().NumToDollars(text, n, dest); }},
};

TEST(Destination, MayBeTheText) {
    RandomTexts random(33);
    for (const Row& row : kRows) {
        for (int round = 0; round < 300; ++round) {
            std::string text = random.text(row.name[0] == 'N' ? "0123.," : "abA ,", random.number(0, 70));
            std::string other = random.text("xyz", 6);
            std::int32_t n = random.number(-2, 6);
            Dest apart(1000);
            row.call(text.c_str(), n, other.c_str(), apart);
            Edit same(text, 1000);
            row.call(same, n, other.c_str(), same);
            ASSERT_EQ(same.text(), apart.text())
                << row.name << " of [" << text << "] with " << n << " [" << other << "]";
        }
    }
}

}  // namespace
}  // namespace vx::test
