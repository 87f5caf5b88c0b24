// Wildcard matching: tables, and a recursive matcher as the oracle for matches, walks and replacements.
#include <gtest/gtest.h>

#include <optional>
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

    // The successive matches. One that does not advance ends them: all that follow are the same.
    std::vector<Stretch> walk() const {
        std::vector<Stretch> found;
        std::size_t from = 0;
        for (std::size_t end;; from = end) {
            const int result = match(from, end);
            if (result < 0) return found;
            found.push_back({from + static_cast<std::size_t>(result), end});
            if (end == from) return found;
        }
    }

    // Match n, by as many attempts.
    std::optional<Stretch> nth(std::uint32_t n) const {
        std::size_t end = 0;
        for (std::uint32_t i = 1; i <= n; ++i) {
            const std::size_t from = end;
            const int result = match(from, end);
            if (result < 0) return std::nullopt;
            if (i == n) return Stretch{from + static_cast<std::size_t>(result), end};
        }
        return std::nullopt;
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
    EXPECT_EQ(lib().WildAt(p, t, exact), result + 1);

    EXPECT_EQ(lib().WildCount(p, t, exact), recursive.walk().size());
    EXPECT_EQ(lib()._wildatnext(p, t, 0, exact), result >= 0 ? -1 : 0);

    for (std::uint32_t n : {0u, 1u, 2u, 5u}) {
        const std::optional<Recursive::Stretch> match = recursive.nth(n);
        const std::size_t start = match ? match->start : 0;
        const std::size_t length = match ? match->end - start : 0;
        const int found = match ? static_cast<int>(start) : -1;
        EXPECT_EQ(lib().WildAtNext(p, t, n, exact), n > 0 || result >= 0 ? found + 1 : 1) << n;
        EXPECT_EQ(lib().WildLen(p, t, n, exact), length) << n;
        Dest piece(text.size() + 1);
        EXPECT_EQ(lib().strwildextract(p, t, n, exact, piece), length) << n;
        EXPECT_EQ(piece.text(), text.substr(start, length)) << n;
        Dest swapped(text.size() + 3);
        std::string expected = text;
        if (match) expected.replace(start, length, "<>");
        EXPECT_EQ(lib().WildSwap(p, t, n, exact, "<>", swapped), swapped.get());
        EXPECT_EQ(swapped.text(), expected) << n;
    }
}

TEST(Wildcard, Matches) {
    struct Row {
        const char* pattern;
        const char* text;
        std::int32_t exact;
        std::int32_t at;  // 0-based, -1 for no match
    };
    const Row rows[] = {
        {"*", "", 1, 0},
        {"", "", 1, 0},
        {nullptr, nullptr, 1, 0},
        {"*", nullptr, 1, 0},
        {nullptr, "a", 1, -1},
        {"", "a", 1, -1},
        {"?", "", 1, -1},
        {"a*", "a", 1, 0},
        {"a**", "a", 1, -1},  // a star that is not last refuses the end
        {"a**", "ab", 1, 0},
        {"**", "", 1, -1},
        {"*?", "abc", 1, 2},
        {"abc", "abcd", 1, -1},
        {"abc*", "abcd", 1, 0},
        {"*abc*", "xxabcxx", 1, 2},
        {"a*c*", "abbc", 1, 2},
        {"*abc*", "xABCx", 0, 1},
        {"*ABC*", "xabcx", 0, 1},
        {"*ABC*", "xabcx", 0x100, -1},  // any flag but 0 is exact
        {"*ABC*", "xabcx", -1, -1},
        {"[a-c]\\?", "[a-c]\\x", 1, 0},  // nothing but * and ? is special
        {"[a-c]\\*.", "[a-c]\\..", 1, 1},
        {"*a*b", "acab", 1, 0},
        {"*.txt", "a.txt.txt", 1, 5},
        {"?*?", "ab", 1, 0},
        {"?*?", "a", 1, -1},
        {"*\xFF*", "\x80\xFF\xFE", 1, 1},
    };
    for (auto [pattern, text, exact, at] : rows) {
        EXPECT_EQ(lib()._wildat(pattern, text, exact), at) << pattern << " " << text;
        EXPECT_EQ(lib().WildAt(pattern, text, exact), at + 1) << pattern << " " << text;
        EXPECT_EQ(lib().WildCard(pattern, text, exact), at >= 0) << pattern << " " << text;
    }
}

TEST(Wildcard, SuccessiveMatches) {
    EXPECT_EQ(lib()._wildatnext("*abc*", "abcxabc", 2, 1), 4);
    EXPECT_EQ(lib().WildAtNext("*abc*", "abcxabc", 2, 1), 5);
    EXPECT_EQ(lib().WildAtNext("*abc*", "abcxabc", 3, 1), 0);
    EXPECT_EQ(lib().WildLen("*abc*", "abcxabc", 2, 1), 3u);
    EXPECT_EQ(lib().WildCount("*abc*", "abcxabc", 1), 2u);
    EXPECT_EQ(lib().WildCount("?*", "abc", 1), 3u);
    EXPECT_EQ(lib().WildCount("x*", "abc", 1), 0u);
    // n = 0 finds nothing, except, kept, the first position where the pattern does not match at all
    EXPECT_EQ(lib().WildAtNext("x", "abc", 0, 1), 1);
    EXPECT_EQ(lib()._wildatnext("x", "abc", 0, 1), 0);
    EXPECT_EQ(lib().WildAtNext("abc", "abc", 0, 1), 0);
    // matches that do not advance
    for (const char* pattern : {"*", "**", ""}) {
        const char* text = *pattern ? "abc" : "";
        EXPECT_EQ(lib().WildCount(pattern, text, 1), 1u) << pattern;
        EXPECT_EQ(lib().WildAtNext(pattern, text, 0, 1), 0) << pattern;
        EXPECT_EQ(lib().WildAtNext(pattern, text, 0xFFFFFFFF, 1), 1) << pattern;
        EXPECT_EQ(lib().WildLen(pattern, text, 0xFFFFFFFF, 1), 0u) << pattern;
    }
}

TEST(Wildcard, ExtractAndSwap) {
    struct Row {
        const char* replacement;
        std::uint32_t n;
        const char* result;
    };
    for (auto [replacement, n, result] : {Row{"Q", 1, "xxQxx"}, Row{nullptr, 1, "xxxx"}, Row{"Q", 2, "xxabcxx"},
                                          Row{"Q", 0, "xxabcxx"}, Row{"", 1, "xxxx"}, Row{"12345", 1, "xx12345xx"}}) {
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
    EXPECT_EQ(lib().strwildextract("*b*", "abc", 1, 1, nullptr), 0u);
    EXPECT_EQ(lib().WildSwap("*b*", "abc", 1, 1, "x", nullptr), nullptr);
}

TEST(Wildcard, AsTheRecursiveMatcher) {
    RandomTexts random(20231);
    for (int i = 0; i < 200000 && !HasFailure(); ++i) {
        expectAsRecursive(random.text("ab*?*A\xE4\x84", 8), random.text("abAab\xC4\x8E\xE4", 9), i % 2);
    }
    // Texts long enough for a stretch to be far away, and full of near matches.
    for (int i = 0; i < 6000 && !HasFailure(); ++i) {
        std::string pattern = random.text("ab?", 2) + "*" + random.text("aaab?B", 6) + "*" + random.text("aab?", 5);
        if (i % 3) pattern += "*";
        std::string text = random.text(i % 4 ? "aaaaaaab" : "cccccabB", 90);
        expectAsRecursive(pattern, text, i % 2);
    }
}

TEST(Wildcard, LongTexts) {
    const std::string blanks(100000, ' ');
    const std::string text = blanks + "Needle" + blanks + "needle";
    EXPECT_EQ(lib()._wildat("*needle*", text.c_str(), 1), 200006);
    EXPECT_EQ(lib()._wildat("*needle*", text.c_str(), 0), 100000);
    EXPECT_EQ(lib()._wildat("*n??dl?*", text.c_str(), 0), 100000);
    EXPECT_EQ(lib()._wildat("*needle", text.c_str(), 0), 200006);
    EXPECT_EQ(lib()._wildat("*needles*", text.c_str(), 0), -1);
    EXPECT_EQ(lib().WildCount("*needle*", text.c_str(), 0), 2u);
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
