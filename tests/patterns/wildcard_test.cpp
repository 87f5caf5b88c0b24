// Wildcard matching: tables, and a recursive matcher as the oracle for matches, walks and replacements.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

// The matcher as it reads on paper: every star tries the whole rest of the pattern, one character further each time.
class Recursive {
 public:
    Recursive(std::string pattern, std::string text, bool exact)
        : pattern_(std::move(pattern)), text_(std::move(text)), exact_(exact) {}

    int match(std::size_t t, std::size_t& end, std::size_t p = 0) const {
        for (;; ++p, ++t) {
            end = t;
            const bool textEnds = t == text_.size();
            if (p == pattern_.size()) return textEnds ? 0 : -1;
            if (pattern_[p] == '*' && p + 1 == pattern_.size()) return 0;
            if (textEnds) return -1;
            if (pattern_[p] == '?') continue;
            if (pattern_[p] == '*') return skip(t, end, p + 1);
            if (fold(pattern_[p]) != fold(text_[t])) return -1;
        }
    }

    struct Stretch {
        std::size_t start, end;
    };

    // The first successive matches; one that does not advance comes again and again.
    std::vector<Stretch> walk(std::size_t most) const {
        std::vector<Stretch> found;
        for (std::size_t from = 0, end; found.size() < most; from = end) {
            const int result = match(from, end);
            if (result < 0) break;
            found.push_back({from + static_cast<std::size_t>(result), end});
        }
        return found;
    }

 private:
    int skip(std::size_t t, std::size_t& end, std::size_t rest) const {
        for (int skipped = 0;; ++skipped, ++t) {
            if (t == text_.size()) return -1;
            if (match(t, end, rest) >= 0) return skipped;
        }
    }

    int fold(char c) const { return exact_ ? c : lib().ChrUpper(c); }

    std::string pattern_;
    std::string text_;
    bool exact_;
};

// Every entry of the family against the oracle, for the first matches and for n = 0.
void expectAsRecursive(const std::string& pattern, const std::string& text, bool exact) {
    const Recursive recursive(pattern, text, exact);
    const char* const p = pattern.c_str();
    const char* const t = text.c_str();
    SCOPED_TRACE("[" + pattern + "] [" + text + (exact ? "] exact" : "] blind"));

    std::size_t end = 0;
    const int result = recursive.match(0, end);
    EXPECT_EQ(lib().WildCard(p, t, exact), result >= 0);
    EXPECT_EQ(lib()._wildat(p, t, exact), result);

    const auto matches = recursive.walk(text.size() + 5);
    std::uint32_t count = 0;
    for (std::size_t from = 0; count < matches.size();) {
        end = matches[count++].end;
        if (end == from) break;
        from = end;
    }
    EXPECT_EQ(lib().WildCount(p, t, exact), count);

    for (std::uint32_t n : {0u, 1u, 2u, 5u}) {
        const bool found = n > 0 && n <= matches.size();
        const auto [start, stop] = found ? matches[n - 1] : Recursive::Stretch{0, 0};
        const int missing = n == 0 && result < 0 ? 1 : 0;
        EXPECT_EQ(lib().WildAtNext(p, t, n, exact), found ? static_cast<int>(start) + 1 : missing) << n;
        EXPECT_EQ(lib().WildLen(p, t, n, exact), stop - start) << n;
        Dest piece(text.size() + 1);
        EXPECT_EQ(lib().strwildextract(p, t, n, exact, piece), stop - start) << n;
        EXPECT_EQ(piece.text(), text.substr(start, stop - start)) << n;
        Dest swapped(text.size() + 3);
        EXPECT_EQ(lib().WildSwap(p, t, n, exact, "<>", swapped), swapped.get());
        EXPECT_EQ(swapped.text(), found ? text.substr(0, start) + "<>" + text.substr(stop) : text) << n;
    }
}

TEST(Wildcard, Matches) {
    struct Row {
        const char* pattern;
        const char* text;
        std::int32_t exact;
        std::int32_t at;  // 0-based, -1 for no match
    };
    // A star that is not last refuses the text's end; any flag but 0 is exact; nothing but * and ? is special.
    const Row rows[] = {{"*", "", 1, 0},
                        {nullptr, nullptr, 1, 0},
                        {nullptr, "a", 1, -1},
                        {"?", "", 1, -1},
                        {"a*", "a", 1, 0},
                        {"a**", "a", 1, -1},
                        {"a**", "ab", 1, 0},
                        {"abc", "abcd", 1, -1},
                        {"abc*", "abcd", 1, 0},
                        {"*abc*", "xxabcxx", 1, 2},
                        {"a*c*", "abbc", 1, 2},
                        {"*abc*", "xABCx", 0, 1},
                        {"*ABC*", "xabcx", 0, 1},
                        {"*ABC*", "xabcx", 0x100, -1},
                        {"*ABC*", "xabcx", -1, -1},
                        {"*.txt", "a.txt.txt", 1, 5},
                        {"[a-c]\\?", "[a-c]\\x", 1, 0},
                        {"[a-c]\\*.", "[a-c]\\..", 1, 1}};
    for (auto [pattern, text, exact, at] : rows) {
        EXPECT_EQ(lib()._wildat(pattern, text, exact), at) << pattern << " " << text;
        EXPECT_EQ(lib().WildAt(pattern, text, exact), at + 1) << pattern << " " << text;
        EXPECT_EQ(lib().WildCard(pattern, text, exact), at >= 0) << pattern << " " << text;
    }
}

TEST(Wildcard, SuccessiveMatches) {
    EXPECT_EQ(lib()._wildatnext("*abc*", "abcxabc", 2, 1), 4);
    EXPECT_EQ(lib().WildAtNext("*abc*", "abcxabc", 3, 1), 0);
    EXPECT_EQ(lib().WildLen("*abc*", "abcxabc", 2, 1), 3u);
    EXPECT_EQ(lib().WildCount("*abc*", "abcxabc", 1), 2u);
    // n = 0 finds nothing, except, kept, the first position where the pattern does not match at all
    EXPECT_EQ(lib()._wildatnext("x", "abc", 0, 1), 0);
    EXPECT_EQ(lib()._wildatnext("abc", "abc", 0, 1), -1);
    // matches that do not advance
    for (const char* pattern : {"*", "**", ""}) {
        const char* text = *pattern ? "abc" : "";
        EXPECT_EQ(lib().WildCount(pattern, text, 1), 1u) << pattern;
        EXPECT_EQ(lib().WildAtNext(pattern, text, 0, 1), 0) << pattern;
        EXPECT_EQ(lib().WildAtNext(pattern, text, 0xFFFFFFFF, 1), 1) << pattern;
    }
}

TEST(Wildcard, ExtractAndSwap) {
    struct Row {
        const char* replacement;
        std::uint32_t n;
        const char* result;
    };
    for (auto [replacement, n, result] : {Row{"Q", 1, "xxQxx"}, Row{nullptr, 1, "xxxx"}, Row{"Q", 2, "xxabcxx"},
                                          Row{"", 1, "xxxx"}, Row{"12345", 1, "xx12345xx"}}) {
        const char* text = "xxabcxx";
        Dest dest(std::strlen(text) + (replacement ? std::strlen(replacement) : 0) + 1);
        EXPECT_EQ(lib().strwildswap("*abc*", text, n, 1, replacement, dest), std::strlen(result));
        EXPECT_EQ(dest.text(), result);
    }
    Dest dest(4);
    EXPECT_EQ(lib().WildExtract("*B?*", "abc", 1, 0, dest), dest.get());
    EXPECT_EQ(dest.text(), "bc");
    EXPECT_STREQ(lib().WildExtract("*b*", nullptr, 1, 1, dest), "");
    EXPECT_STREQ(lib().WildSwap("*", nullptr, 1, 1, "new", dest), "new");
    EXPECT_EQ(lib().WildExtract("*b*", "abc", 1, 1, nullptr), nullptr);
    EXPECT_EQ(lib().strwildswap("*b*", "abc", 1, 1, "x", nullptr), 0u);
}

TEST(Wildcard, AsTheRecursiveMatcher) {
    RandomTexts random(20231);
    for (int i = 0; i < 200000 && !HasFailure(); ++i) {
        expectAsRecursive(random.text("ab*?*A\xE4\x84", 8), random.text("abAab\xC4\x8E\xE4", 9), random.oneIn(2));
    }
    // Texts long enough for a stretch to be far away, and full of near matches.
    for (int i = 0; i < 6000 && !HasFailure(); ++i) {
        std::string pattern = random.text("ab?", 2) + "*" + random.text("aaab?B", 6) + "*" + random.text("aab?", 5);
        if (!random.oneIn(3)) pattern += "*";
        std::string text = random.text(random.oneIn(4) ? "cccccabB" : "aaaaaaab", 90);
        expectAsRecursive(pattern, text, random.oneIn(2));
    }
}

TEST(Wildcard, LongTexts) {
    const std::string blanks(100000, ' ');
    const std::string text = blanks + "Needle" + blanks + "needle";
    EXPECT_EQ(lib()._wildat("*needle*", text.c_str(), 1), 200006);
    EXPECT_EQ(lib()._wildat("*n??dl?*", text.c_str(), 0), 100000);
    // What never ends, or exhausts the stack, where every star is tried again at each character.
    const std::string same(20000, 'a');
    EXPECT_EQ(lib().WildCard("*a*a*a*a*a*b", same.c_str(), 1), 0);
    EXPECT_EQ(lib().WildCard("*a*a*a*a*a*b*", same.c_str(), 0), 0);
    EXPECT_EQ(lib()._wildat("*a*a*a*a*a*a", same.c_str(), 1), 0);
    EXPECT_EQ(lib().WildCount("*a*", same.c_str(), 1), 20000u);
    EXPECT_EQ(lib().WildCard((std::string(200000, '*') + "b").c_str(), "aaab", 1), 1);
    EXPECT_EQ(lib().WildCard(std::string(20000, '?').c_str(), same.c_str(), 1), 1);
}

}  // namespace
}  // namespace vx::test
