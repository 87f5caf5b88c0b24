// Searches, counts, fields and replacements against obvious twins, at all bytes, and across pages.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "rows/guarded_memory.h"
#include "tests/strings/folding.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using Numbers = std::vector<std::int32_t>;
const Numbers kFewNumbers = {-5, -4, -3, -2, -1, 0, 1, 2, 3, 4, 5};
constexpr std::size_t kPage = 4096;

struct Searches {
    std::int32_t(VX_CALL* first)(const char*, const char*);
    std::int32_t(VX_CALL* last)(const char*, const char*);
    std::int32_t(VX_CALL* next)(const char*, const char*, std::int32_t);
    std::uint32_t(VX_CALL* count)(const char*, const char*);
};

// Checks one family of searches for `given` in `text` against the places at which `search` stands in `seen`.
void check(const Searches& calls, const char* given, const char* text, const std::string& search,
           const std::string& seen, const Numbers& numbers) {
    Numbers positions;
    for (std::size_t at = seen.find(search); !search.empty() && at != seen.npos; at = seen.find(search, at + 1))
        positions.push_back(static_cast<std::int32_t>(at) + 1);
    auto size = static_cast<std::int32_t>(positions.size());
    auto numbered = [&](std::int32_t n) {
        return n == 0 || n > size || n < -size ? 0 : positions[static_cast<std::size_t>(n > 0 ? n - 1 : size + n)];
    };
    SCOPED_TRACE("[" + search + "] in [" + seen + "]");
    EXPECT_EQ(calls.first ? calls.first(given, text) : numbered(1), numbered(1));
    EXPECT_EQ(calls.last(given, text), numbered(-1));
    EXPECT_EQ(calls.count(given, text), positions.size());
    for (std::int32_t n : numbers) EXPECT_EQ(calls.next(given, text, n), numbered(n)) << n;
}

// For a text, and for its first character.
void checkSearches(const std::string& search, const std::string& target, const Numbers& numbers) {
    static rows::GuardedBuffer memory;  // reading past either end of the text ends the program
    std::size_t size = target.size() + 1;
    // Every third text stands across the border of two pages.
    std::size_t offset = size % 3 == 0 ? kPage - size % 80 : 0;
    char* text = memory.place(offset + size, offset > 0 || size % 3 == 1, '~') + offset;
    std::memcpy(text, target.c_str(), size);
    Edit given(search);
    const std::string blind = folded(search), seen = folded(target);
    check({lib().at, lib().Rat, lib().StrAtNext, lib().StrCount}, given, text, search, target, numbers);
    check({lib().Ati, lib().Rati, lib().StrAtNexti, lib().StrCounti}, given, text, blind, seen, numbers);
    if (search.empty()) return;
    check({nullptr, lib().AtLast, lib().AtNext, lib().ChrCount}, given, text, search.substr(0, 1), target, numbers);
    check({nullptr, lib().AtLasti, lib().AtNexti, lib().ChrCounti}, given, text, blind.substr(0, 1), seen, numbers);
}

TEST(Search, RandomShortTexts) {
    RandomTexts random(23);
    for (const char* alphabet : {"a", "ab", "abAB", "aAbB,", "a\x84\x8E\xE4\xC4", "eE\x82\x90\xE9\xC9"}) {
        for (int round = 0; round < 1500 && !HasFailure(); ++round) {
            std::string target = random.text(alphabet, random.oneIn(100) ? 4000 : random.oneIn(3) ? 150 : 24);
            checkSearches(random.text(alphabet, random.oneIn(2) ? 3 : 20), target, kFewNumbers);
        }
    }
}

// Long texts that repeat themselves almost everywhere: candidates without end, searches that go on from piece to piece.
TEST(Search, RandomPeriodicTexts) {
    RandomTexts random(5);
    for (int round = 0; round < 300 && !HasFailure(); ++round) {
        std::string unit = random.text("abA", 3) + "a";
        std::string target = "a";
        for (int size = random.number(0, 6000); target.size() < static_cast<std::size_t>(size);) target += unit;
        int size = static_cast<int>(target.size());
        for (int flips = random.number(0, 4); flips > 0; --flips)
            target[static_cast<std::size_t>(random.number(0, size - 1))] = 'b';
        auto start = static_cast<std::size_t>(random.number(0, size - 1));
        std::string search = target.substr(start, static_cast<std::size_t>(random.number(1, 300)));
        if (round % 4 == 0) search[search.size() / 2] = 'A';
        checkSearches(search, target, {-1000, -40, -2, 2, 40, 1000});
    }
}

// Three digits become one character, and with a letter's two cases a fourth makes three; a letter and a byte from the
// upper half become another one; what q becomes does not become Q.
TEST(Search, AnyByteMayMapToAnyOther) {
    UpperEntries entries(
        {{'1', '#'}, {'2', '#'}, {'3', '#'}, {'4', 'C'}, {'x', '\xD0'}, {'\xF1', '\xD0'}, {'\xF2', 'q'}, {'Q', 'q'}});
    constexpr char alphabet[] = "123#4cCx\xD0\xF1\xF2qQ";
    RandomTexts random(7);
    for (int round = 0; round < 4000 && !HasFailure(); ++round)
        checkSearches(random.text(alphabet, 3), random.text(alphabet, random.oneIn(2) ? 30 : 200), kFewNumbers);
}

TEST(Search, EveryByteIsFound) {
    const std::string all = everyCharacter();
    for (char c : all) {
        checkSearches({c}, all + all, {1, 2, 3, -1, -2, -3});
        checkSearches({c, c}, all, {1});
    }
}

// All fields or sections of a text.
std::vector<std::string> fieldsOf(const std::string& text, const std::string& marks) {
    std::vector<std::string> fields;
    const bool sections = marks.size() == 2;
    const std::string line = sections || text.empty() ? text : text + marks;
    for (std::size_t at = 0, end = 0;; at = end + 1) {
        if (sections) at = std::min(line.find(marks[0], at), line.size()) + 1;
        end = line.find(marks.back(), at);
        if (end == line.npos) return fields;
        fields.push_back(line.substr(at, end - at));
    }
}

TEST(Search, RandomFields) {
    RandomTexts random(11);
    for (int round = 0; round < 3000; ++round) {
        std::string text = random.text("ab()|", 20);
        for (const char* marks : {"|", "()", "||", "ab"}) {
            std::vector<std::string> fields = fieldsOf(text, marks);
            EXPECT_EQ(lib().DelimCount(text.c_str(), marks), fields.size()) << text;
            for (int n = -1; n <= 9; ++n) {
                auto index = static_cast<std::size_t>(std::max(n, 1)) - 1;
                Dest dest(text.size() + 1);
                EXPECT_EQ(lib().StrExtract(text.c_str(), marks, n, dest), dest.get());
                EXPECT_EQ(dest.text(), index < fields.size() ? fields[index] : "") << "field " << n << " of " << text;
            }
        }
    }
}

// Overlapping matches up to the n-th, then one replacement after the other; `seen` is the text as the search sees it.
std::string replaced(const std::string& text, const std::string& seen, const std::string& search,
                     const std::string& replacement, int n, int count) {
    if (search.empty() || n < 1 || count == 0) return text;
    std::size_t match = seen.find(search), done = 0;
    for (; n > 1 && match != seen.npos; --n) match = seen.find(search, match + 1);
    std::string result;
    for (; match != seen.npos && count != 0; count -= count > 0) {
        result += text.substr(done, match - done) + replacement;
        done = match + search.size();
        match = seen.find(search, done);
    }
    return result + text.substr(done);
}

TEST(Replace, RandomTexts) {
    RandomTexts random(17);
    for (const char* alphabet : {"a", "ab", "aAbB", "aA\x84\x8E\xE4\xC4"}) {
        for (int round = 0; round < 2500; ++round) {
            std::string text = random.text(alphabet, random.oneIn(20) ? 2000 : 40);
            std::string search = random.text(alphabet, random.oneIn(5) ? 30 : 3);
            std::string replacement = random.text(alphabet, 5);
            int n = random.number(-1, 4), count = random.number(-3, 4);
            for (auto [call, expected] :
                 {std::pair{lib().StrTran, replaced(text, text, search, replacement, n, count)},
                  {lib().StrTrani, replaced(text, folded(text), folded(search), replacement, n, count)}}) {
                Dest dest(expected.size() + 1);
                call(text.c_str(), search.c_str(), replacement.c_str(), n, count, dest);
                Edit same(text, expected.size() + 1);
                call(same, search.c_str(), replacement.c_str(), n, count, same);
                ASSERT_EQ(dest.text(), expected) << text << " [" << search << "] n " << n << " count " << count;
                ASSERT_EQ(same.text(), expected) << text << " [" << search << "] n " << n << " count " << count;
            }
        }
    }
}

}  // namespace
}  // namespace vx::test
