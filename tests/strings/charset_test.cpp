// Membership, counting, filtering, sorting, removing repeats.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

unsigned code(char c) { return static_cast<unsigned char>(c); }

std::string everyCharacter() {
    std::string all;
    for (int c = 1; c < 256; ++c) all += static_cast<char>(c);
    return all;
}

TEST(Charset, Membership) {
    struct Row {
        const char* set;
        const char* text;
        std::int32_t first, found, total, totali;
    };
    for (auto [set, text, first, found, total, totali] : {
             Row{"xyz", "abcz", 'z', 0, 1, 1},
             Row{"cz", "abcz", 'c', 0, 2, 2},
             Row{"ab", "abba", 'a', 1, 4, 4},
             Row{"ab", "abc", 'a', 0, 2, 2},
             Row{"a", "banana", 'a', 0, 3, 3},
             Row{"A", "BaNana", 0, 0, 0, 3},
             Row{"an", "BANana", 'a', 0, 3, 5},
             Row{"\xFF\x80", "a\x80\xFF", 0x80, 0, 2, 2},
             Row{"", "abc", 0, 0, 0, 0},
             Row{nullptr, "abc", 0, 0, 0, 0},
             Row{"abc", "", 0, 1, 0, 0},
             Row{"abc", nullptr, 0, 1, 0, 0},
             Row{"", "", 0, 1, 0, 0},
             Row{nullptr, nullptr, 0, 1, 0, 0},
         }) {
        EXPECT_EQ(lib().ChrFirst(set, text), first) << text;
        EXPECT_EQ(lib().ChrAny(set, text), first != 0) << text;
        EXPECT_EQ(lib().ChrFound(text, set), found) << text;
        EXPECT_EQ(lib().ChrTotal(set, text), total) << text;
        EXPECT_EQ(lib().ChrTotali(set, text), totali) << text;
    }
    const std::string all = everyCharacter();
    for (char c : all) {
        std::string one(1, c);
        std::int32_t equals = static_cast<std::int32_t>(
            std::count_if(all.begin(), all.end(), [c](char o) { return lib().ChrUpper(o) == lib().ChrUpper(c); }));
        EXPECT_EQ(lib().ChrFirst(one.c_str(), all.c_str()), static_cast<std::int32_t>(code(c)));
        EXPECT_EQ(lib().ChrTotal(one.c_str(), all.c_str()), 1) << code(c);
        EXPECT_EQ(lib().ChrTotali(one.c_str(), all.c_str()), equals) << code(c);
        EXPECT_EQ(lib().ChrFound(one.c_str(), all.c_str()), 1) << code(c);
        EXPECT_EQ(lib().ChrFound(all.c_str(), one.c_str()), 0) << code(c);
    }
}

// With a destination and in place; gives the result.
std::string kept(const std::string& set, const std::string& text) {
    Dest dest(text.size() + 1);
    char* end = lib().ChrKeep(set.c_str(), text.c_str(), dest);
    EXPECT_EQ(end, dest.get() + dest.text().size()) << "kept: the terminator";
    EXPECT_EQ(lib().strchrkeep(set.c_str(), text.c_str(), dest), 0u) << "kept: measured from the terminator";
    Edit edit(text);
    end = lib().ChrKeep(set.c_str(), edit, nullptr);
    EXPECT_EQ(end, edit.get() + edit.text().size());
    EXPECT_EQ(edit.text(), dest.text()) << text;
    return dest.text();
}

std::string unique(const std::string& text) {
    Dest dest(text.size() + 1);
    EXPECT_EQ(lib().ChrUnique(text.c_str(), dest), dest.get());
    EXPECT_EQ(lib().strchrunique(text.c_str(), dest), dest.text().size());
    Edit edit(text);
    EXPECT_EQ(lib().ChrUnique(edit, nullptr), edit.get());
    EXPECT_EQ(edit.text(), dest.text()) << text;
    return dest.text();
}

std::string sorted(const std::string& text, std::int32_t descending) {
    Edit edit(text);
    EXPECT_EQ(lib().ChrSort(edit, descending), edit.get());
    EXPECT_EQ(lib().strchrsort(edit, descending), text.size());
    return edit.text();
}

TEST(Charset, KeptSortedAndUnique) {
    EXPECT_EQ(kept("0123456789", "a1b2c3"), "123");
    EXPECT_EQ(kept("", "abc") + kept("abc", "") + kept("x", "abc"), "");
    EXPECT_EQ(kept("\xFF", "\x01\xFF\x80\xFF"), "\xFF\xFF");
    EXPECT_EQ(unique("banana"), "ban");
    EXPECT_EQ(unique(""), "");
    EXPECT_EQ(sorted("banana", 0), "aaabnn");
    for (std::int32_t flag : {1, -1, 0x100}) EXPECT_EQ(sorted("banana", flag), "nnbaaa") << flag;
    EXPECT_EQ(sorted("b\xFF\x01\x80\x7Fz", 0),
              "\x01"
              "bz\x7F\x80\xFF");
    EXPECT_EQ(sorted("", 0) + sorted("", 1), "");

    const std::string all = everyCharacter();
    const std::string reversed(all.rbegin(), all.rend());
    EXPECT_EQ(sorted(reversed, 0), all);
    EXPECT_EQ(sorted(all, 1), reversed);
    EXPECT_EQ(unique(all + reversed), all);
    EXPECT_EQ(kept(all, reversed + all), reversed + all);

    char untouched[] = "abc";
    Dest dest(1);
    EXPECT_EQ(lib().ChrKeep("a", nullptr, dest), dest.get());
    EXPECT_EQ(dest.text(), "");
    EXPECT_EQ(lib().ChrKeep(nullptr, untouched, dest), dest.get());
    EXPECT_STREQ(lib().ChrUnique(nullptr, dest), "");
    EXPECT_EQ(lib().ChrKeep("a", nullptr, nullptr), nullptr);
    EXPECT_EQ(lib().ChrUnique(nullptr, nullptr), nullptr);
    EXPECT_EQ(lib().ChrSort(nullptr, 0), nullptr);
    EXPECT_EQ(lib().strchrsort(nullptr, 0) + lib().strchrunique(nullptr, nullptr), 0u);
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
        EXPECT_EQ(lib().ChrFirst(set.c_str(), text.c_str()),
                  static_cast<std::int32_t>(keep.empty() ? 0 : code(keep[0])));
        EXPECT_EQ(lib().ChrFound(text.c_str(), set.c_str()), keep.size() == text.size());
        std::string up = text;
        std::sort(up.begin(), up.end(), [](char a, char b) { return code(a) < code(b); });
        EXPECT_EQ(sorted(text, 0), up);
        EXPECT_EQ(sorted(text, 1), std::string(up.rbegin(), up.rend()));
    }
}

}  // namespace
}  // namespace vx::test
