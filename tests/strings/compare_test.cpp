// Comparison and substitution.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

#include "tests/strings/folding.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; }

std::int32_t order(std::string a, std::string b, std::int32_t n, bool blind) {
    for (std::string* text : {&a, &b}) {
        text->resize(std::min(text->size(), static_cast<std::size_t>(std::max(n, 0))));
        if (blind) std::transform(text->begin(), text->end(), text->begin(), asciiLower);
    }
    int result = a.compare(b);
    return (result > 0) - (result < 0);
}

void checkOrder(const std::string& first, const std::string& second) {
    Edit a(first);
    Edit b(second);
    SCOPED_TRACE("[" + first + "] and [" + second + "]");
    EXPECT_EQ(lib().StrCmp(a, b), order(first, second, kMax, false));
    EXPECT_EQ(lib().StrCmpi(a, b), order(first, second, kMax, true));
    for (std::int32_t n : {0, 1, 2, 3, 16, 17, -1, kMin, kMax}) {
        EXPECT_EQ(lib().StrnCmp(a, b, n), order(first, second, n, false)) << n;
        EXPECT_EQ(lib().StrnCmpi(a, b, n), order(first, second, n, true)) << n;
    }
}

TEST(Compare, WorkedExamples) {
    EXPECT_EQ(lib().StrCmp("abc", "abd"), -1);
    EXPECT_EQ(lib().StrCmp("abd", "abc"), 1);
    EXPECT_EQ(lib().StrCmp("abc", "ab"), 1);
    EXPECT_EQ(lib().StrCmp("\x80", "\x7F"), 1) << "bytes have no sign";
    EXPECT_EQ(lib().StrCmpi("ABC", "abc"), 0);
    EXPECT_EQ(lib().StrCmpi("a_", "AB"), -1) << "letters are folded downward, so that _ comes before them";
    EXPECT_EQ(lib().StrCmpi("@[", "`{"), -1);
    EXPECT_EQ(lib().StrnCmp("abX", "abY", 2), 0);
    EXPECT_EQ(lib().StrnCmpi("ABX", "aby", 3), -1);
    EXPECT_EQ(lib().StrnCmp("a", "b", 0), 0);
    EXPECT_EQ(lib().StrCmp(nullptr, ""), 0);
    EXPECT_EQ(lib().StrCmp(nullptr, "a"), -1);
    EXPECT_EQ(lib().StrCmpi("a", nullptr), 1);
    EXPECT_EQ(lib().StrnCmp("a", nullptr, 1), 1);
    EXPECT_EQ(lib().StrnCmpi(nullptr, nullptr, 1), 0);
    UpperEntries entries({{'a', 'Q'}, {'b', 'Q'}});
    EXPECT_EQ(lib().StrCmpi("a", "b"), -1) << "whatever the case tables say";
}

TEST(Compare, RandomTexts) {
    RandomTexts random(3);
    for (const char* alphabet : {"a", "aA", "abAB@`[{", "zZ\xDA\xFA\x7F\x80\xFF"}) {
        for (int round = 0; round < 1000; ++round) {
            std::string shared = random.text(alphabet, random.oneIn(10) ? 5000 : 20);
            std::string other = shared;
            if (random.oneIn(2)) std::replace(other.begin(), other.end(), 'a', 'A');
            checkOrder(shared + random.text(alphabet, 3), other + random.text(alphabet, 3));
            if (HasFailure()) return;
        }
    }
}

TEST(Substitute, CaseSwitched) {
    std::string all;
    std::string expected;
    for (int c = 1; c < 256; ++c) {
        all += static_cast<char>(c);
        expected += static_cast<char>(lib().ChrUpper(c) == c ? lib().ChrLower(c) : lib().ChrUpper(c));
    }
    for (auto [text, result] :
         {std::pair<std::string, std::string>{"Hello 1!", "hELLO 1!"}, {"", ""}, {all, expected}}) {
        Dest dest(text.size() + 1);
        EXPECT_EQ(lib().StrSwitch(text.c_str(), dest), dest.get());
        EXPECT_EQ(dest.text(), result);
        Edit edit(text);
        EXPECT_EQ(lib().strstrswitch(edit, nullptr), result.size());
        EXPECT_EQ(edit.text(), result);
    }
    UpperEntries entries({{'M', 'x'}});
    EXPECT_STREQ(lib().StrSwitch(Edit("M"), Dest(2)), "x") << "the upper-case table first";
    EXPECT_EQ(lib().StrSwitch(nullptr, nullptr), nullptr);
    Dest dest(1);
    EXPECT_STREQ(lib().StrSwitch(nullptr, dest), "");
}

TEST(Substitute, EveryStep) {
    struct Row {
        const char* text;
        std::int32_t start;  // counted from 0
        std::int32_t step;
        const char* result;
    };
    for (auto [text, start, step, result] :
         {Row{"abcdefg", 0, 2, "aceg"}, Row{"abcdefg", 1, 3, "be"}, Row{"abcdefg", -5, 3, "adg"},
          Row{"abcdef", 0, 2, "ace"}, Row{"abcdef", 0, 3, "ad"}, Row{"abc", 3, 1, ""}, Row{"abc", 3, 2, ""},
          Row{"abc", 4, 1, ""}, Row{"abc", 0, 1, "abc"}, Row{"abc", 0, 0, ""}, Row{"abc", 0, -1, ""},
          Row{"abc", 0, kMin, ""}, Row{"abc", kMin, kMax, "a"}, Row{"abc", kMax, 1, ""}, Row{"abc", 2, kMax, "c"},
          Row{"", 0, 1, ""}, Row{nullptr, 0, 1, ""}}) {
        const std::string source = text ? text : "";
        Dest dest(source.size() + 1);
        EXPECT_EQ(lib()._strkeep(text, start, step, dest), dest.get());
        EXPECT_EQ(dest.text(), result) << source << " from " << start << " by " << step;
        EXPECT_EQ(lib().strstrkeep0(text, start, step, dest), std::strlen(result));
        if (start < kMax) {
            EXPECT_EQ(lib().StrKeep(text, start + 1, step, dest), dest.get());
            EXPECT_EQ(dest.text(), result) << source << " from " << start << " by " << step;
            EXPECT_EQ(lib().strstrkeep(text, start + 1, step, dest), std::strlen(result));
        }
        Edit edit(source);
        EXPECT_EQ(lib()._strkeep(edit, start, step, nullptr), edit.get());
        EXPECT_EQ(edit.text(), result) << "in place";
    }
    EXPECT_EQ(lib().StrKeep(nullptr, 1, 1, nullptr), nullptr);
}

TEST(Substitute, SpreadApart) {
    struct Row {
        const char* text;
        std::int32_t n;
        const char* fill;
        const char* result;
    };
    for (auto [text, n, fill, result] :
         {Row{"abc", 1, "x", "axbxc"}, Row{"abc", 0, "x", "abc"}, Row{"a", 5, "x", "a"}, Row{"", 3, "x", ""},
          Row{"ab", 3, "xy", "axxxb"}, Row{"abc", -1, "x", "abc"}, Row{"abc", kMin, "x", "abc"},
          Row{"a", kMax, "x", "a"}, Row{"ab", 2, "", "a  b"}, Row{"ab", 1, nullptr, "a b"}, Row{nullptr, 2, "x", ""}}) {
        Dest dest(std::strlen(result) + 1);
        EXPECT_EQ(lib().StrExpand(text, n, fill, dest), dest.get());
        EXPECT_EQ(dest.text(), result) << n;
        EXPECT_EQ(lib().strstrexpand(text, n, fill, dest), std::strlen(result)) << n;
    }
    EXPECT_EQ(lib().StrExpand("ab", 1, "x", nullptr), nullptr);
    lib().SetFillChar('*');
    Dest dest(8);
    EXPECT_STREQ(lib().StrExpand("abc", 1, nullptr, dest), "a*b*c");
    lib().SetFillChar(' ');
}

TEST(Substitute, FieldReplaced) {
    struct Row {
        const char* text;
        const char* delimiters;
        std::int32_t n;
        const char* replacement;
        const char* result;
    };
    for (auto [text, delimiters, n, replacement, result] :
         {Row{"a,b,c", ",", 2, "XY", "a,XY,c"}, Row{"a,b,c", ",", 4, "XY", "a,b,c"}, Row{"a,b,", ",", 3, "XY", "a,b,"},
          Row{"a,,c", ",", 2, "XY", "a,XY,c"}, Row{"a,b,c", ",", 3, nullptr, "a,b,"}, Row{"a,b", ",", 0, "X", "X,b"},
          Row{"a,b", ",", kMin, "", ",b"}, Row{"(a)(bc)d", "()", 2, "x", "(a)(x)d"},
          Row{"(a)()", "()", 2, "x", "(a)(x)"}, Row{"(a)(b", "()", 2, "x", "(a)(b"}, Row{"ab", "", 1, "xyz", "xyz"},
          Row{"ab", nullptr, 2, "xyz", "ab"}, Row{"", ",", 1, "x", ""}, Row{nullptr, ",", 1, "x", ""}}) {
        Dest dest((text ? std::strlen(text) : 0) + (replacement ? std::strlen(replacement) : 0) + 1);
        EXPECT_EQ(lib().StrSwap(text, delimiters, n, replacement, dest), dest.get());
        EXPECT_EQ(dest.text(), result) << n;
        EXPECT_EQ(lib().strstrswap(text, delimiters, n, replacement, dest), std::strlen(result)) << n;
    }
    EXPECT_EQ(lib().StrSwap("a,b", ",", 1, "x", nullptr), nullptr);
}

}  // namespace
}  // namespace vx::test
