// Case, capitals of words, reversal, and characters swapped for others.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "frame/entry.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using PointerForm = char*(VX_CALL*)(const char*, char*);

// Runs a text-to-text function with a destination, in place, and onto the text itself; all must agree.
std::string everyWay(PointerForm call, const std::string& text) {
    Dest dest(text.size() + 1);
    EXPECT_EQ(call(text.c_str(), dest), dest.get()) << text;
    Edit inPlace(text);
    EXPECT_EQ(call(inPlace, nullptr), inPlace.get()) << text;
    EXPECT_EQ(inPlace.text(), dest.text()) << "in place: " << text;
    Edit onto(text);
    EXPECT_EQ(call(onto, onto), onto.get()) << text;
    EXPECT_EQ(onto.text(), dest.text()) << "onto itself: " << text;
    return dest.text();
}

std::string mapped(std::string text, std::int32_t(VX_CALL* map)(std::int32_t)) {
    std::transform(text.begin(), text.end(), text.begin(), [map](char c) { return static_cast<char>(map(c)); });
    return text;
}

std::string allCharacters() {
    std::string all;
    for (int c = 1; c < 256; ++c) all += static_cast<char>(c);
    return all;
}

void expectTablesRule(const std::string& text) {
    EXPECT_EQ(everyWay(lib().StrUpper, text), mapped(text, lib().ChrUpper)) << text;
    EXPECT_EQ(everyWay(lib().Lower, text), mapped(text, lib().ChrLower)) << text;
}

TEST(Casing, GoesThroughTheTables) {
    EXPECT_EQ(everyWay(lib().StrUpper, "Hello, World 1"), "HELLO, WORLD 1");
    EXPECT_EQ(everyWay(lib().Lower, "Hello, World 1"), "hello, world 1");
    std::string all = allCharacters();
    for (std::size_t start = 0; start < 32; ++start) {
        for (std::size_t size : {0, 1, 15, 63, 64, 65, 79, 80, 200}) expectTablesRule(all.substr(start, size));
    }
    RandomTexts random(23);
    for (int round = 0; round < 300; ++round) expectTablesRule(random.text("azAZ@[`{mM\xE4\x84\x80\xFF", 200));
    Dest dest(256);
    EXPECT_EQ(lib().strstrupper(all.c_str(), dest), 255u);
    EXPECT_EQ(lib().strlower(all.c_str(), dest), 255u);
}

TEST(Casing, FollowsTablesThatCallersSet) {
    std::string all = allCharacters();
    for (char c : {'q', 'Q', '1', '\x7F', '\x01', '\xE4'}) {
        std::int32_t upper = lib().SetUpperTable(c, '#');
        std::int32_t lower = lib().SetLowerTable(c, '$');
        expectTablesRule(all);
        expectTablesRule(std::string(100, c));
        lib().SetUpperTable(c, upper);
        lib().SetLowerTable(c, lower);
    }
    expectTablesRule(all);
}

TEST(Casing, Words) {
    struct Row {
        const char* text;
        const char* capitalized;
        const char* capFirst;
    };
    const Row rows[] = {
        {"hELLO wORLD", "HELLO WORLD", "Hello World"},
        {"mary-ann", "Mary-Ann", "Mary-Ann"},
        {"  o'neill, JR.", "  O'Neill, JR.", "  O'Neill, Jr."},
        {"a\x8D\nb\x1A"
         "c",
         "A\x8D\nB\x1A"
         "C",
         "A\x8D\nB\x1A"
         "C"},
        {"2nd_place", "2nd_place", "2nd_place"},
        {"", "", ""},
        {" - ", " - ", " - "},
        {"x", "X", "X"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(everyWay(lib().Capitalize, row.text), row.capitalized);
        EXPECT_EQ(everyWay(lib().CapFirst, row.text), row.capFirst);
        Dest dest(std::strlen(row.text) + 1);
        EXPECT_EQ(lib().strcapitalize(row.text, dest) + lib().strcapfirst(row.text, dest), 2 * std::strlen(row.text));
    }
    // Delimiters stay, whatever the tables say of them.
    std::int32_t upper = lib().SetUpperTable('-', '+');
    std::int32_t lower = lib().SetLowerTable('-', '+');
    EXPECT_EQ(everyWay(lib().CapFirst, "-aB-cD--"), "-Ab-Cd--");
    lib().SetUpperTable('-', upper);
    lib().SetLowerTable('-', lower);
}

TEST(Casing, Reversed) {
    EXPECT_EQ(everyWay(lib().StrReverse, "abc"), "cba");
    std::string all = allCharacters();
    for (std::size_t size = 0; size < 70; ++size) {
        std::string text = all.substr(100, size);
        EXPECT_EQ(everyWay(lib().StrReverse, text), std::string(text.rbegin(), text.rend())) << size;
    }
    Dest dest(4);
    EXPECT_EQ(lib().StrStrReverse("abc", dest), 3u);
    EXPECT_EQ(dest.text(), "cba");
}

TEST(Casing, Swapped) {
    struct Row {
        const char* text;
        const char* from;
        const char* to;
        const char* result;
    };
    const Row rows[] = {
        {"hello", "el", "ip", "hippo"},
        {"hello", "lo", "", "he"},
        {"hello", "lo", nullptr, "he"},
        {"hello", nullptr, "x", "hello"},
        {"hello", "", "x", "hello"},
        {"hello", "l", "xyz", "hexxo"},
        {"abab", "ab", "ba", "baba"},
        {"aXa", "aa", "bc", "cXc"},
        {"aXa", "aa", "b", "X"},  // the last marking wins
        {"a\xFF\x80z", "\xFF\x80", "\x80", "a\x80z"},
        {"", "a", "b", ""},
        {nullptr, "a", "b", ""},
    };
    for (const Row& row : rows) {
        Dest dest(row.text ? std::strlen(row.text) + 1 : 1);
        EXPECT_EQ(lib().ChrSwap(row.text, row.from, row.to, dest), dest.get());
        EXPECT_EQ(dest.text(), row.result);
        EXPECT_EQ(lib().StrChrSwap(row.text, row.from, row.to, dest), std::strlen(row.result));
        if (!row.text) continue;
        Edit edit(row.text);
        EXPECT_EQ(lib().ChrSwap(edit, row.from, row.to, nullptr), edit.get());
        EXPECT_EQ(edit.text(), row.result);
    }
}

TEST(Casing, Null) {
    for (PointerForm call : {lib().StrUpper, lib().Lower, lib().Capitalize, lib().CapFirst, lib().StrReverse}) {
        Dest dest(1);
        EXPECT_EQ(call(nullptr, dest), dest.get());
        EXPECT_EQ(dest.text(), "");
        EXPECT_EQ(call(nullptr, nullptr), nullptr);
    }
    EXPECT_EQ(lib().ChrSwap(nullptr, "a", "b", nullptr), nullptr);
    EXPECT_EQ(lib().strstrupper(nullptr, nullptr), 0u);
}

}  // namespace
}  // namespace vx::test
