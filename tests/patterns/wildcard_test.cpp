// Wildcards against a literal recursive matcher.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

struct Match {
    std::size_t start, end;  // of a first attempt: what the first star skips, and where the match ends
};

// The matcher as it reads on paper: every star tries the whole rest of the pattern, one character further each time.
std::optional<Match> match(std::string_view pattern, std::string_view text) {
    if (pattern == "*" || (pattern.empty() && text.empty())) return Match{0, 0};
    if (pattern.empty() || text.empty()) return {};
    if (pattern[0] == '*') {
        for (std::size_t skipped = 0; skipped < text.size(); ++skipped) {
            if (auto rest = match(pattern.substr(1), text.substr(skipped))) return Match{skipped, skipped + rest->end};
        }
        return {};
    }
    if (pattern[0] != '?' && pattern[0] != text[0]) return {};
    auto rest = match(pattern.substr(1), text.substr(1));
    if (rest) ++rest->end;
    return rest;
}

// Every entry of the family, for the first matches and for n = 0.
void expectAsRecursive(const std::string& pattern, const std::string& text, bool exact) {
    SCOPED_TRACE("[" + pattern + "] [" + text + (exact ? "] exact" : "] blind"));
    const char* const p = pattern.c_str();
    const char* const t = text.c_str();
    auto folded = [exact](std::string of) {
        for (char& c : of) c = exact ? c : static_cast<char>(lib().ChrUpper(c));
        return of;
    };
    const std::string foldedPattern = folded(pattern), foldedText = folded(text);

    // The first successive matches; one that does not advance comes again and again, and counts once.
    std::vector<Match> matches;
    std::uint32_t count = 0;
    bool advances = true;
    for (std::size_t from = 0; matches.size() < text.size() + 5;) {
        auto found = match(foldedPattern, std::string_view(foldedText).substr(from));
        if (!found) break;
        matches.push_back({from + found->start, from + found->end});
        if (advances) ++count;
        advances = advances && found->end > 0;
        from += found->end;
    }
    EXPECT_EQ(lib().WildCount(p, t, exact), count);
    EXPECT_EQ(lib().WildCard(p, t, exact), !matches.empty());
    EXPECT_EQ(lib().WildAt(p, t, exact), matches.empty() ? 0 : matches[0].start + 1);
    for (std::uint32_t n : {0u, 1u, 2u, 5u}) {
        const bool found = n > 0 && n <= matches.size();
        const auto [start, end] = found ? matches[n - 1] : Match{0, 0};
        EXPECT_EQ(lib().WildAtNext(p, t, n, exact), found ? start + 1 : n == 0 && matches.empty()) << n;
        EXPECT_EQ(lib().WildLen(p, t, n, exact), end - start) << n;
        Dest piece(text.size() + 1);
        lib().WildExtract(p, t, n, exact, piece);
        EXPECT_EQ(piece.text(), text.substr(start, end - start)) << n;
        Dest swapped(text.size() + 3);
        lib().WildSwap(p, t, n, exact, "<>", swapped);
        EXPECT_EQ(swapped.text(), found ? text.substr(0, start) + "<>" + text.substr(end) : text) << n;
    }
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

}  // namespace
}  // namespace vx::test
