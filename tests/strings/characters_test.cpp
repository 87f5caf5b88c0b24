// Case, order, sets and comparison of characters, against their definitions, at every length around the blocks.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
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
    std::string upper, lower, switched, collated;
    for (char c : text) {
        upper += static_cast<char>(lib().ChrUpper(c));
        lower += static_cast<char>(lib().ChrLower(c));
        switched += upper.back() == c ? lower.back() : upper.back();
        collated += static_cast<char>(lib().ChrCollate(c));
    }
    EXPECT_EQ(bothWays(lib().StrUpper, text), upper) << text;
    EXPECT_EQ(bothWays(lib().Lower, text), lower) << text;
    EXPECT_EQ(bothWays(lib().StrSwitch, text), switched) << text;
    EXPECT_EQ(bothWays(lib().Collate, text), collated) << text;
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
}

TEST(Casing, Reversed) {
    for (std::size_t size = 0; size < 70; ++size) {
        std::string text = everyCharacter().substr(100, size);
        EXPECT_EQ(bothWays(lib().StrReverse, text), std::string(text.rbegin(), text.rend())) << size;
    }
}

TEST(Charset, RandomTextsAgainstTheTwins) {
    RandomTexts random(31);
    const std::string all = everyCharacter();
    for (int i = 0; i < 4000; ++i) {
        std::string_view alphabet = random.oneIn(2) ? std::string_view(all) : "abcABC\x80\xFE";
        std::string text = random.text(alphabet, random.oneIn(8) ? 1500 : 80);  // around the border of both sorts
        std::string set = random.text(alphabet, 20);
        const std::string blindSet = folded(set);
        std::string keep, first;
        int blind = 0;
        for (char c : text) {
            if (set.find(c) != set.npos) keep += c;
            if (first.find(c) == first.npos) first += c;
        }
        for (char c : folded(text)) blind += blindSet.find(c) != blindSet.npos;
        SCOPED_TRACE("[" + set + "] of [" + text + "]");
        const char* s = set.c_str();
        const char* t = text.c_str();
        EXPECT_EQ(lib().ChrTotal(s, t), static_cast<int>(keep.size()));
        EXPECT_EQ(lib().ChrTotali(s, t), blind);
        EXPECT_EQ(lib().ChrFirst(s, t), static_cast<unsigned char>(keep[0]));
        EXPECT_EQ(lib().ChrAny(s, t), !keep.empty());
        EXPECT_EQ(lib().ChrFound(t, s), keep.size() == text.size());
        EXPECT_EQ(bothWays(lib().ChrUnique, text), first);
        Dest dest(text.size() + 1);
        lib().ChrKeep(s, t, dest);
        EXPECT_EQ(dest.text(), keep);
        Edit up(text), down(text);
        std::sort(text.begin(), text.end(), [](unsigned char a, unsigned char b) { return a < b; });
        EXPECT_STREQ(lib().ChrSort(up, 0), text.c_str());
        std::reverse(text.begin(), text.end());
        EXPECT_STREQ(lib().ChrSort(down, 1), text.c_str());
    }
}

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
            auto same = std::ranges::mismatch(shared, other).in1 - shared.begin();
            bool isPrefix = shared.starts_with(other) || other.starts_with(shared);
            EXPECT_EQ(lib().AtDiff(a, b), isPrefix ? 0 : same + 1);
            EXPECT_EQ(lib().StrCmp(a, b), order(shared, other, INT_MAX, false));
            EXPECT_EQ(lib().StrCmpi(a, b), order(shared, other, INT_MAX, true));
            for (int n : {0, 1, 2, 3, 16, 17, -1, INT_MIN, INT_MAX}) {
                EXPECT_EQ(lib().StrnCmp(a, b, n), order(shared, other, n, false)) << n;
                EXPECT_EQ(lib().StrnCmpi(a, b, n), order(shared, other, n, true)) << n;
            }
        }
    }
}

}  // namespace
}  // namespace vx::test
