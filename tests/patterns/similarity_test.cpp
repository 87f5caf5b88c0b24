// Similarity, with the two-column edit distance as the oracle.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

int distanceByColumns(const std::string& a, const std::string& b) {
    std::vector<int> previous(a.size() + 1);
    std::vector<int> current(a.size() + 1);
    for (std::size_t i = 0; i <= a.size(); ++i) current[i] = static_cast<int>(i);
    int smallest = static_cast<int>(a.size());
    for (char c : b) {
        current.swap(previous);
        current[0] = 0;
        for (std::size_t i = 1; i <= a.size(); ++i) {
            current[i] = std::min({previous[i - 1] + (a[i - 1] != c), previous[i] + 1, current[i - 1] + 1});
        }
        smallest = std::min(smallest, current[a.size()]);
    }
    return smallest;
}

// Also with foreign characters behind the text, which leave the distance as it is, in such a number that the score is a
// whole one and shows the distance if it is too large by one.
void expectAsByColumns(const std::string& a, std::string b) {
    const int distance = distanceByColumns(a, b);
    const int part = (static_cast<int>(a.size()) - distance) * 200;
    auto score = [&] { return b.empty() ? 0 : part / static_cast<int>(a.size() + b.size()); };
    EXPECT_EQ(lib().Similarity(a.c_str(), b.c_str()), score()) << a << " in " << b;
    if (b.empty() || part == 0) return;
    while (part % static_cast<int>(a.size() + b.size()) != 0) b += '!';
    EXPECT_EQ(lib().Similarity(a.c_str(), b.c_str()), score()) << a << " in " << b;
}

TEST(Similarity, Scores) {
    struct Row {
        const char* pattern;
        const char* text;
        std::int32_t score;
    };
    for (auto [pattern, text, score] :
         {Row{"abc", "abc", 100}, Row{"abc", "ABC", 0}, Row{"abc", "", 0}, Row{"", "abc", 0}, Row{nullptr, "abc", 0},
          Row{"abc", nullptr, 0}, Row{"abc", "xxabcxx", 60}, Row{"xxabcxx", "abc", 60}, Row{"abcd", "abxd", 75},
          Row{"abcdef", "abc", 66}, Row{"cat", "concatenate", 42}, Row{"\x80\xFF", "\xFF", 66}}) {
        EXPECT_EQ(lib().Similarity(pattern, text), score) << pattern << " " << text;
    }
}

std::string textOf(RandomTexts& random, std::string_view alphabet, std::size_t size) {
    std::string text;
    while (text.size() < size) text += random.text(alphabet, 40);
    text.resize(size);
    return text;
}

// A copy with some characters replaced, inserted and deleted.
std::string worn(RandomTexts& random, const std::string& text, std::string_view alphabet, int edits) {
    std::string copy = text;
    for (; edits > 0; --edits) {
        const auto at = static_cast<std::size_t>(random.number(0, static_cast<int>(copy.size())));
        copy.replace(at, static_cast<std::size_t>(random.number(0, 1)), random.text(alphabet, 1));
    }
    return copy;
}

TEST(Similarity, AsByColumns) {
    RandomTexts random(8);
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        const char* alphabet = random.oneIn(2) ? "ab" : "abcdefgh";
        std::string a = random.text(alphabet, 20);
        std::string b = random.text(alphabet, 30);
        expectAsByColumns(a, b);
    }
    // Around the seams between blocks; from the pattern itself to something quite different.
    const std::string_view alphabets[] = {"ab", "acgt", "abcdefghijklmnopqrstuvwxyz"};
    for (std::size_t size : {63u, 64u, 65u, 127u, 128u, 129u, 200u, 256u, 257u, 300u, 321u, 1000u, 1300u}) {
        for (int i = 0; i < 12 && !HasFailure(); ++i) {
            const std::string_view alphabet = alphabets[i % 3];
            const std::string a = textOf(random, alphabet, size);
            const int edits = static_cast<int>(size) * (i % 4) * (i % 4) / 20;
            std::string b = random.text(alphabet, static_cast<int>(size)) + worn(random, a, alphabet, edits) +
                            random.text(alphabet, static_cast<int>(size));
            if (i == 10) b.resize(size / 2);
            if (i == 11) b = random.text(alphabet, 1500) + "a";
            expectAsByColumns(a, b);
        }
    }
}

// One long fault at each place of the pattern, as large as the distances that a search with a small bound just reaches.
TEST(Similarity, FaultsAcrossBlocks) {
    RandomTexts random(21);
    const std::string a = textOf(random, "abcdefghijklmnopqrstuvwxyz", 290);
    for (std::size_t start = 0; start < 130 && !HasFailure(); ++start) {
        for (std::size_t size : {63u, 64u}) {
            const std::string fault(size, '#');
            std::string lacking = a;
            std::string replaced = a;
            std::string longer = a;
            lacking.erase(start, size);
            replaced.replace(start, size + 1, fault + "#");
            longer.insert(start, fault);
            for (const std::string& b :
                 {lacking, "##" + replaced, longer + "##", replaced + std::string(100, '#') + lacking}) {
                expectAsByColumns(a, b);
            }
        }
    }
}

TEST(Similarity, EveryCharacterInOnePattern) {
    std::string a;
    for (int round = 0; round < 3; ++round) {
        for (int c = 1; c < 256; ++c) a += static_cast<char>(c * 7);
    }
    for (std::size_t size : {255u, 256u, 400u, 765u}) {
        std::string pattern = a.substr(0, size);
        std::string text = pattern.substr(5, size / 2) + "\x01\x02" + pattern.substr(size / 2 + 9);
        expectAsByColumns(pattern, text);
        EXPECT_EQ(lib().Similarity(pattern.c_str(), pattern.c_str()), 100) << size;
    }
}

}  // namespace
}  // namespace vx::test
