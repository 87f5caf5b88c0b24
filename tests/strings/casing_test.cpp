// Case and reversal: every character, every length around the blocks, and tables that callers set.
#include <gtest/gtest.h>

#include <string>

#include "tests/strings/folding.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

// With a destination and in place; both must agree.
std::string bothWays(char*(VX_CALL* call)(const char*, char*), const std::string& text) {
    Dest dest(text.size() + 1);
    call(text.c_str(), dest);
    Edit inPlace(text);
    call(inPlace, nullptr);
    EXPECT_EQ(inPlace.text(), dest.text()) << "in place: " << text;
    return dest.text();
}

void expectTablesRule(const std::string& text) {
    std::string upper = text, lower = text;
    for (char& c : upper) c = static_cast<char>(lib().ChrUpper(c));
    for (char& c : lower) c = static_cast<char>(lib().ChrLower(c));
    EXPECT_EQ(bothWays(lib().StrUpper, text), upper) << text;
    EXPECT_EQ(bothWays(lib().Lower, text), lower) << text;
}

TEST(Casing, GoesThroughTheTables) {
    std::string all = everyCharacter();
    for (std::size_t start = 0; start < 32; ++start) {
        for (std::size_t size : {0, 1, 15, 63, 64, 65, 79, 80, 200}) expectTablesRule(all.substr(start, size));
    }
    RandomTexts random(23);
    for (int round = 0; round < 300; ++round) expectTablesRule(random.text("azAZ@[`{mM\xE4\x84\x80\xFF", 200));
    for (char c : {'q', 'Q', '1', '\x7F', '\x01', '\xE4'}) {
        UpperEntries upper({{c, '#'}});
        std::int32_t lower = lib().SetLowerTable(c, '$');
        expectTablesRule(all);
        expectTablesRule(std::string(100, c));
        lib().SetLowerTable(c, lower);
    }
    expectTablesRule(all);
}

TEST(Casing, Reversed) {
    for (std::size_t size = 0; size < 70; ++size) {
        std::string text = everyCharacter().substr(100, size);
        EXPECT_EQ(bothWays(lib().StrReverse, text), std::string(text.rbegin(), text.rend())) << size;
    }
}

}  // namespace
}  // namespace vx::test
