// Texts as sets of characters, against the definition.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

std::string kept(const std::string& set, const std::string& text) {
    Dest dest(text.size() + 1);
    lib().ChrKeep(set.c_str(), text.c_str(), dest);
    return dest.text();
}

std::string unique(const std::string& text) {
    Dest dest(text.size() + 1);
    lib().ChrUnique(text.c_str(), dest);
    Edit edit(text);
    lib().ChrUnique(edit, nullptr);
    EXPECT_EQ(edit.text(), dest.text()) << text;
    return dest.text();
}

std::string sorted(const std::string& text, std::int32_t descending) {
    Edit edit(text);
    lib().ChrSort(edit, descending);
    return edit.text();
}

TEST(Charset, EveryCharacter) {
    const std::string all = everyCharacter();
    const std::string reversed(all.rbegin(), all.rend());
    for (char c : all) {
        auto equals =
            std::count_if(all.begin(), all.end(), [c](char o) { return lib().ChrUpper(o) == lib().ChrUpper(c); });
        EXPECT_EQ(lib().ChrTotali(std::string(1, c).c_str(), all.c_str()), equals) << c;
    }
    EXPECT_EQ(sorted(reversed, 0), all);
    EXPECT_EQ(sorted(all, 1), reversed);
    EXPECT_EQ(unique(all + reversed), all);
    EXPECT_EQ(kept(all, reversed + all), reversed + all);
}

TEST(Charset, RandomTextsAgainstTheTwins) {
    RandomTexts random(31);
    const std::string all = everyCharacter();
    for (int i = 0; i < 4000; ++i) {
        std::string_view alphabet = random.oneIn(2) ? std::string_view(all) : "abc\x80\xFE";
        std::string text =
            random.text(alphabet, random.oneIn(8) ? 1500 : 80);  // both ways of sorting, and their border
        std::string set = random.text(alphabet, 20);
        std::string keep, first;
        for (char c : text) {
            if (set.find(c) != set.npos) keep += c;
            if (first.find(c) == first.npos) first += c;
        }
        EXPECT_EQ(kept(set, text), keep) << set << " of " << text;
        EXPECT_EQ(unique(text), first) << text;
        EXPECT_EQ(lib().ChrTotal(set.c_str(), text.c_str()), static_cast<std::int32_t>(keep.size()));
        EXPECT_EQ(lib().ChrFirst(set.c_str(), text.c_str()), keep.empty() ? 0 : static_cast<unsigned char>(keep[0]));
        EXPECT_EQ(lib().ChrAny(set.c_str(), text.c_str()), !keep.empty());
        EXPECT_EQ(lib().ChrFound(text.c_str(), set.c_str()), keep.size() == text.size());
        std::string up = text;
        std::sort(up.begin(), up.end(), [](unsigned char a, unsigned char b) { return a < b; });
        EXPECT_EQ(sorted(text, 0), up);
        EXPECT_EQ(sorted(text, 1), std::string(up.rbegin(), up.rend()));
    }
}

}  // namespace
}  // namespace vx::test
