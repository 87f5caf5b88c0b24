// Regular expressions.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/patterns/regex_oracle.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

std::string swapped(const char* pattern, const char* text, std::uint32_t n, const char* replacement,
                    std::uint32_t size = 80) {
    Dest dest(size);
    EXPECT_EQ(lib().RegSwap(pattern, text, n, replacement, dest, size), dest.get());
    std::string result = dest.text();
    EXPECT_EQ(lib().StrRegSwap(pattern, text, n, replacement, dest, size), result.size());
    return result;
}

TEST(Regex, Errors) {
    std::istringstream rows(R"x(
        ?|{}() 0   $* 0   a^* 0   a**+* 0   \0 0   \>\< 0   \(\(a\1\)\) 0
        [ab -2   [] -2   [-] -2   [a- -2   a\ -2   *a -3   +a -3   ^* -4   \(a\)+ -4   \<* -4   \>* -4   \(a\)\1* -4
        \(a\(a\(a\(a\(a\(a\(a\(a\(a\(a -5   \) -6   a\) -6   \(\) -7   \<\> -7   \(a\1\) -8   \(\(a\)\1\) -8
        \2\(a\) -9   \(a\)\2 -9   a\(b -10)x");
    std::vector<std::pair<std::string, std::int32_t>> all;
    std::string pattern, classes;
    for (std::int32_t code; rows >> pattern >> code;) all.emplace_back(pattern, code);
    ASSERT_TRUE(rows.eof());
    for (int i = 0; i < 31; ++i) classes += "[a]";
    auto as = [](std::size_t count) { return std::string(count, 'a'); };
    all.insert(all.end(), {{as(511), 0}, {as(512), -2}, {std::string(1023, '.'), 0}, {std::string(1024, '.'), -2}});
    all.insert(all.end(), {{as(509) + "*", 0}, {as(511) + "*", -2}, {as(509) + "+", 0}, {as(510) + "+", -2}});
    all.insert(all.end(), {{classes, 0}, {classes + "+", -2}, {"a" + std::string(5000, '*'), 0}});
    for (const auto& [tried, code] : all) {
        EXPECT_EQ(lib().RegCheck(tried.c_str()), code) << tried;
        EXPECT_EQ(lib().RegCheck(nullptr), code ? -1 : 0) << tried;
    }
}

TEST(Regex, MatchesAndLengths) {
    auto expect = [](const std::string& pattern, const std::string& text, int at, int length, int count) {
        EXPECT_EQ(lib().RegAt(pattern.c_str(), text.c_str()), at) << pattern << " in " << text;
        EXPECT_EQ(lib().RegLen(pattern.c_str(), text.c_str(), 1), length) << pattern << " in " << text;
        EXPECT_EQ(lib().RegCount(pattern.c_str(), text.c_str()), count) << pattern << " in " << text;
    };
    // pattern, text (NONE is empty), position, length, number of matches: plain ones; classes; words, to which Z, z and
    // 9 do not belong; the terminator as a character of a negated class; class closures that lose the byte behind them
    std::istringstream rows(R"x(
        b+ aabbb 3 3 3     aa aaaa 1 2 3     ^a aaa 1 1 3     ^ ab 1 0 3     ^ NONE 1 0 1     ^$ NONE 1 0 1
        x* NONE 0 0 0      $ abc 0 0 0       c$ abc 3 1 1     a$b a$b 1 3 1  a^b a^b 1 3 1    a.*c abcxc 1 5 1
        a\.\n\\ xa.n\ 2 4 1    \(a*\)b\1c aabaac 1 6 1    \(ab\)\1 ababab 1 4 2    \(\(a\1\)b\)\1 abab 1 4 1

        []-a] ` 1 1 1      [-]] ]- 1 1 2     [^-a] -ab 3 1 1  [a-] b- 2 1 1  [c-a] abc 3 1 1  [a-c-e] -de 2 1 2
        [+--] , 1 1 1      [\] \ 1 1 1

        \<Zed Zed 0 0 0    \<ed Zed 2 2 1    \<a a-a-aa_a 1 1 4    a\> ba-ab-a9 2 1 2    \<[0-9]\> 9-8 3 1 1
        [0-9]\> 9-8 3 1 1  \> a-b 2 0 1      x\<a -xa 0 0 0
        a\> az 1 1 1      \<a z-za 4 1 1     [x-z]+ wzyx 2 3 3  [A-Z]+ aZ 2 1 1

        a[^b] a 1 2 1      a[^b][^b] a 0 0 0     a[^b]c a 0 0 0    a[^b]c*$ a 0 0 0    a[^b]x* ca 2 2 1
        x*[^x] xx 1 3 2    \(a[^b]\) a 1 2 1     \(a\)[^b]\1 a 0 0 0

        [0-9]*x 12 1 2 2   [0-9]+x a12 2 2 2     [a]*. aab 1 2 3   [a]*$ aab 1 2 3     [a]*b* aab 1 3 3
        [a]*b* aac 0 0 0   [a]*[b] aac 1 2 3     \([a]*\) aab 0 0 0    \([a]*\) baa 2 3 2    [a]*\(b\) aa 0 0 0)x");
    std::string pattern, text;
    for (int at, length, count; rows >> pattern >> text >> at >> length >> count;)
        expect(pattern, text == "NONE" ? "" : text, at, length, count);
    EXPECT_TRUE(rows.eof());
    expect(".", "\xE9\x80", 1, 1, 2);
    expect("[\xE0-\xFF]", "a\xE9", 2, 1, 1);
    expect("[^a]", "a\xE9", 2, 1, 1);
    expect("[a]*\\(b\\)", "a\x01", 1, 2, 2);
    expect("[a]*\\(b\\)c\\1", "a\001cb", 1, 3, 2);
    expect("[a]*\\(b\\)\\(c\\)", "a\x01x", 0, 0, 0);
    expect("[a]*\tb", "-b ab", 2, 1, 1);
    expect("[a]*[\x02\x03]", "a", 0, 0, 0);
}

// A match is found wherever it lies, also where the search changes its stride.
TEST(Regex, AtEveryPlace) {
    auto check = [](const char* pattern, std::string needle, std::size_t size, std::size_t place) {
        std::string text(size, 'a');
        text.replace(place, needle.size(), needle);
        std::int32_t expected = *pattern == 'y' && text.back() != 'y' ? 0 : static_cast<std::int32_t>(place) + 1;
        ASSERT_EQ(lib().RegAt(pattern, text.c_str()), expected) << pattern << " at " << place << " of " << size;
    };
    using Row = std::pair<const char*, std::string>;
    for (const auto& [pattern, needle] :
         {Row{"xyz", "xyz"}, Row{"x.z", "x-z"}, Row{"[x]y", "xy"}, Row{"[xy][yz]", "yz"}, Row{"y$", "y"},
          Row{".........x", "123456789x"}, Row{"[^a]", "x"}, Row{"xa*y", "xaay"}}) {
        for (std::size_t size = needle.size(); size < 80; ++size) {
            for (std::size_t place = 0; place + needle.size() <= size; ++place) check(pattern, needle, size, place);
        }
        for (std::size_t place = 4096 - 60; place < 4096 + 40; ++place) check(pattern, needle, 4096 + 60, place);
    }
}

TEST(Regex, PatternIsRemembered) {
    char changing[] = "a";
    EXPECT_EQ(lib().RegAt(changing, "ba"), 2);
    EXPECT_EQ(lib().RegAt("", "bba"), 3);
    changing[0] = 'b';
    EXPECT_EQ(lib().RegAt(changing, "ba"), 1) << "the same address, another pattern";
    EXPECT_EQ(lib().RegAt("[", "a"), -2);
    EXPECT_EQ(lib().RegAtNext(nullptr, "ab", 1), -1) << "a bad one is not remembered, nor is the one before it";
    EXPECT_EQ(lib().RegLen("", "ab", 1), -1);
    EXPECT_EQ(lib().RegCount("", "ab"), -1);
}

TEST(Regex, WalkToTheNth) {
    struct Row {
        const char* pattern;
        const char* text;
        std::uint32_t n;
        std::int32_t position;  // without a match, where the last search began
        std::int32_t length;
        const char* found;
    };
    for (auto [pattern, text, n, position, length, found] :
         {Row{"b+", "abbxb", 1, 2, 2, "bb"}, Row{"b+", "abbxb", 3, 5, 1, "b"}, Row{"b+", "abbxb", 4, 5, 0, ""},
          Row{"b+", "abbxb", 0, 0, 0, ""}, Row{"b+", "abbxb", 0xFFFFFFFF, 5, 0, ""}, Row{"c", "abbxb", 1, 0, 0, ""},
          Row{"a[^b]", "a", 1, 1, 2, "a"}, Row{"^", "a", 2, 2, 0, ""}, Row{"^", nullptr, 1, 1, 0, ""}}) {
        Dest dest(16);
        const bool matches = length > 0 || *pattern == '^';
        std::int32_t at = -7, size = -7;
        EXPECT_EQ(lib().RegInfo(pattern, text, n, &at, &size, dest, 16), dest.get());
        EXPECT_EQ(at, position) << pattern << " " << n;
        EXPECT_EQ(size, length) << pattern << " " << n;
        EXPECT_EQ(dest.text(), found) << pattern << " " << n;
        EXPECT_EQ(lib().RegAtNext(pattern, text, n), matches ? position : 0) << pattern << " " << n;
        EXPECT_EQ(lib().RegLen(pattern, text, n), length) << pattern << " " << n;
        EXPECT_STREQ(lib().RegExtract(pattern, text, n, dest, 16), found);
        EXPECT_EQ(lib().StrRegInfo(pattern, text, n, nullptr, nullptr, dest, 16), std::strlen(found));
        at = size = -7;
        EXPECT_EQ(lib().RegInfo(pattern, text, n, &at, &size, nullptr, 16), nullptr);
        EXPECT_EQ(at, position) << "outputs that are NULL are skipped, the others served";
    }
    Dest dest(4);
    std::int32_t at = -7, size = -7;
    lib().RegInfo("[", "a", 1, &at, &size, dest, 4);
    EXPECT_EQ(at, -7);
    EXPECT_EQ(size, -7);
}

TEST(Regex, OutputsAreCutToTheirSize) {
    for (std::uint32_t size = 0; size <= 8; ++size) {
        Dest dest(size + 1);
        std::int32_t length = 0;
        auto expect = [&](const std::string& whole, const char* result, const char* what) {
            EXPECT_EQ(result, dest.get());
            std::string cut = whole.substr(0, size > 0 ? size - 1 : 0);
            EXPECT_EQ(size == 0 ? "" : dest.text(), cut) << what << " in " << size;
            EXPECT_EQ(dest.get()[size], '~') << what << " in " << size;
        };
        expect("bbb", lib().RegExtract("b+", "abbba", 1, dest, size), "RegExtract");
        EXPECT_EQ(lib().StrRegExtract("b+", "abbba", 1, dest, size), size > 4 ? 3 : size > 0 ? size - 1 : 0);
        expect("bbb", lib().RegInfo("b+", "abbba", 1, nullptr, &length, dest, size), "RegInfo");
        EXPECT_EQ(length, 3) << "the length is that of the match";
        expect("axya", lib().RegSwap("b+", "abbba", 1, "xy", dest, size), "RegSwap");
        expect("abba", lib().RegSwap("c", "abba", 1, "xy", dest, size), "RegSwap without a match");
        expect("", lib().RegSwap("[", "abba", 1, "xy", dest, size), "RegSwap of a bad pattern");
        EXPECT_EQ(lib().StrRegSwap("c", "abba", 1, "xy", dest, size), std::min(4u, size > 0 ? size - 1 : 0));
    }
    for (std::uint32_t size : {0x80000000, 0xFFFFFFFF}) {
        EXPECT_STREQ(lib().RegExtract("b+", "abbba", 1, Dest(8), size), "bbb");
        EXPECT_STREQ(lib().RegSwap("b+", "abbba", 1, "xy", Dest(8), size), "axya");
        EXPECT_EQ(lib().StrRegInfo("b+", "abbba", 1, nullptr, nullptr, Dest(8), size), 3u);
    }
    EXPECT_EQ(lib().StrRegExtract("a", "a", 1, nullptr, 5) + lib().StrRegSwap("a", "a", 1, "b", nullptr, 5) +
                  lib().StrRegInfo("a", "a", 1, nullptr, nullptr, nullptr, 5),
              0u);
}

TEST(Regex, Replacements) {
    // Groups that are not there, and a last lone backslash, give nothing. kept: the terminator ends the replacement.
    std::istringstream rows(R"x(
        \(a\)\(b\) xaby 1 \2\1& xbaaby     b abcb 2 <&\0> abc<bb>     b abc 1 \&\\\n a&\nc     b abc 1 x\ axc
        b abc 1 <\1\9> a<>c     \(x\)\(y*\)z xz 1 <\1\2> <x>     b abc 0 x abc     b[^x] ab 1 <&> a<b
        b[^x] ab 1 <> a<>     \(.*\)b\(.*\) aba 1 \2-\1\1 a-aa)x");
    std::string pattern, text, replacement, result;
    for (std::uint32_t n; rows >> pattern >> text >> n >> replacement >> result;)
        EXPECT_EQ(swapped(pattern.c_str(), text.c_str(), n, replacement.c_str()), result) << pattern;
    EXPECT_TRUE(rows.eof());
    EXPECT_EQ(swapped("b", "abc", 1, nullptr), "ac");
    EXPECT_EQ(swapped("b", nullptr, 1, "x"), "");
    EXPECT_EQ(swapped("\\(a\\)*", "b", 1, "x"), "") << "a bad pattern";
    EXPECT_EQ(swapped("b", "abcdefg", 1, "123456", 6), "a1234");
}

// Everything that the exports say about a pattern and a text, beside the oracle.
void compare(RegexOracle& oracle, const std::string& pattern, const std::string& text) {
    SCOPED_TRACE(testing::PrintToString(pattern) + " in " + testing::PrintToString(text));
    int error = oracle.compile(pattern);
    ASSERT_EQ(lib().RegCheck(pattern.c_str()), error);
    if (error) return;
    const char* replacement = "<\\1|\\2>";
    std::uint32_t room = static_cast<std::uint32_t>(text.size() * 3 + 8);
    Dest dest(room);
    for (std::uint32_t n = 1; n <= 2; ++n) {
        int from = 0;
        auto match = oracle.nth(text, n, from);
        std::int32_t at = -7, length = -7;
        lib().RegInfo(pattern.c_str(), text.c_str(), n, &at, &length, dest, room);
        ASSERT_EQ(at, match ? match->start + 1 : from) << n;
        ASSERT_EQ(length, match ? match->end - match->start : 0) << n;
        ASSERT_EQ(lib().RegAtNext(pattern.c_str(), text.c_str(), n), match ? match->start + 1 : 0) << n;
        std::string expected = text;
        if (match) {
            std::string_view terminated(text.c_str(), text.size() + 1);
            std::string inserted =
                "<" + std::string(match->group(1, terminated)) + "|" + std::string(match->group(2, terminated)) + ">";
            expected.replace(static_cast<std::size_t>(match->start), std::string::npos,
                             inserted.substr(0, inserted.find('\0')));
            if (match->end < static_cast<int>(text.size()))
                expected += text.substr(static_cast<std::size_t>(match->end));
        }
        lib().RegSwap(pattern.c_str(), text.c_str(), n, replacement, dest, room);
        ASSERT_EQ(dest.text(), expected) << n;
    }
}

// Some of the pieces, which stand between blanks, one after the other.
std::string pick(RandomTexts& random, std::string_view pieces, int least, int most) {
    std::vector<std::string_view> list;
    for (std::size_t at = 0, end; at < pieces.size(); at = end + 1) {
        end = std::min(pieces.find(' ', at), pieces.size());
        list.push_back(pieces.substr(at, end - at));
    }
    std::string result;
    for (int count = random.number(least, most); count > 0; --count)
        result += list[static_cast<std::size_t>(random.number(0, static_cast<int>(list.size()) - 1))];
    return result;
}

TEST(RegexOracleTest, SmallPatternsAndTexts) {
    RandomTexts random(20250);
    RegexOracle oracle;
    const char* pieces =
        "a b . a* b* .* a+ * ^ $ [ab] [^a] [b]* [^b]+ [\x01-\x0F] [\x02\x03] [\x7F-\xFF] \\( \\( \\) \\) \\(a*\\) "
        "\\(b\\) \\1 \\2 "
        "\\< \\> \x01 \x02 \t _ 9 \xE9";
    for (int round = 0; round < 150000 && !testing::Test::HasFailure(); ++round) {
        std::string pattern =
            random.oneIn(3) ? random.text("ab.*+[]^-$\\()12<>\x01\x02", 9) : pick(random, pieces, 1, 6);
        if (pattern.empty()) continue;
        compare(oracle, pattern, random.text(random.oneIn(2) ? "ab" : "ab 9_z\x01\xE9", 8));
    }
}

// Patterns that send plain backtracking astray, so that the guided search is at work.
TEST(RegexOracleTest, PatternsThatNeedGuidance) {
    RandomTexts random(4711);
    RegexOracle oracle;
    for (int round = 0; round < 1500 && !testing::Test::HasFailure(); ++round) {
        bool long_ = random.oneIn(3);  // more than a word of nodes
        std::string pattern = long_ ? pick(random, "a* b* a* b* a* b* a* b* a* b* .* a \\>", 60, 150)
                                    : pick(random, "a* b* .* a* b* .* a . \\< \\> [ab]", 2, 7);
        if (random.number(0, 1)) pattern = "\\(a*\\)" + pattern + "\\(.*\\)b";
        if (random.number(0, 3) == 0) pattern = "^" + pattern;
        pattern += pick(random, "c [^ab] bb$ a*c", 1, 1);
        compare(oracle, pattern,
                random.text(random.oneIn(2) ? "ab" : "aab ", 60) + pick(random, "c bb b ca caa", 1, 2));
    }
}

TEST(RegexOracleTest, BackReferencesThatNeedGuidance) {
    RandomTexts random(815);
    RegexOracle oracle;
    for (int round = 0; round < 3000 && !testing::Test::HasFailure(); ++round) {
        std::string pattern = pick(random, "a*b b* .b*\\< a* a*\\>b* .*", 0, 1);
        pattern += pick(random, "\\(a*\\) \\(b\\) \\(.*\\) \\<\\(b*\\)", 1, 1) + pick(random, "a* b* .*", 1, 2);
        if (random.number(0, 1))
            pattern += "\\(" + pick(random, "b* a .*", 1, 2) + "\\)" + pick(random, "a* \\< b* \\>", 1, 1) + "\\2";
        pattern += "\\1" + pick(random, "a* c b $ \\> \\1", 1, 2);
        std::string before(pattern.find('.') == pattern.npos ? 52 : 0,
                           'c');  // what fails lies on both sides of byte 64
        compare(oracle, pattern,
                before + random.text(random.oneIn(2) ? "ab" : "aab ", 26) + (random.oneIn(4) ? "bc" : "a"));
    }
}

TEST(RegexLimits, NothingIsHopeless) {
    const int n = 2000;
    std::string as(n, 'a'), xs(n, 'x');
    EXPECT_EQ(lib().RegAt(".*.*.*x", as.c_str()), 0);
    EXPECT_EQ(lib().RegAt("x*x*x*[yz]", xs.c_str()), 0);
    EXPECT_EQ(lib().RegCount("x*x*x*[yz]", (xs + "z").c_str()), n + 1);
    EXPECT_EQ(lib().RegLen(".*.*.*x", (as + "x" + as).c_str(), 1), n + 1);
    EXPECT_EQ(lib().RegLen(("x*x*x*" + std::string(70, '.') + "z").c_str(), (xs + "z").c_str(), 1), n + 1);
    std::string stars;
    for (int i = 0; i < 200; ++i) stars += "a*";
    EXPECT_EQ(lib().RegAt((stars + "b").c_str(), as.c_str()), 0);
    EXPECT_EQ(lib().RegAt((stars + "bc").c_str(), (as + "bdbc").c_str()), n + 3);
    EXPECT_EQ(lib().RegAt("\\(ab\\)x*x*x*x*\\1y", ("ab" + xs + "bay").c_str()), 0);
    EXPECT_EQ(lib().RegLen("\\(ab\\)x*x*x*x*\\1y", ("ab" + xs + "baabyab" + xs + "aby").c_str(), 1), n + 5);
    EXPECT_EQ(lib().RegAt("\\(x*\\)x*x*x*\\1y", (xs + "zy").c_str()), n + 2);
    EXPECT_EQ(lib().RegLen("\\(x*\\)x*x*\\1y", (xs + "y").c_str(), 1), n + 1);
}

// Long texts: more than one block of the outlook, and nothing that deepens with the text.
TEST(RegexLimits, LongTexts) {
    const std::size_t n = 1200000;
    std::string text(n, 'a');
    text[n / 2] = 'b';
    text[n / 2 + 7] = 'c';
    std::int32_t half = static_cast<std::int32_t>(n / 2);
    EXPECT_EQ(lib().RegCount("a*b", text.c_str()), half + 1);
    EXPECT_EQ(lib().RegCount("a*b.*c", text.c_str()), half + 1);
    EXPECT_EQ(lib().RegLen("a*b.*c", text.c_str(), 2), half + 7);
    EXPECT_EQ(lib().RegAtNext("a*a*b", text.c_str(), 1000), 1000);
    EXPECT_EQ(lib().RegAt("a*d", text.c_str()), 0);
    EXPECT_EQ(lib().RegLen("[ab]*", text.c_str(), 1), half + 7);
    EXPECT_EQ(lib().RegCount("\\<a*a*b", text.c_str()), half + 1) << "each search's start begins a word";
    EXPECT_EQ(lib().RegAt("\\<a*a*c", text.c_str()), 0);
    EXPECT_EQ(swapped("\\(a*\\)\\(b\\)\\(a*c\\)", text.c_str(), 1, "\\3\\2", 12), "aaaaaacbaaa");
}

}  // namespace
}  // namespace vx::test
