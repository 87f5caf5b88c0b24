// Similarity, with the two-column edit distance as the oracle.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";

int distanceByColumns(const std::string& a, const std::string& b) {
    std::vector<int> previous(a.size() + 1), current(a.size() + 1);
    for (std::size_t i = 0; i <= a.size(); ++i) current[i] = static_cast<int>(i);
    int smallest = current.back();
    for (char c : b) {
        current.swap(previous);
        current[0] = 0;
        for (std::size_t i = 1; i <= a.size(); ++i)
            current[i] = std::min({previous[i - 1] + (a[i - 1] != c), previous[i] + 1, current[i - 1] + 1});
        smallest = std::min(smallest, current.back());
    }
    return smallest;
}

// Also with foreign characters behind the text, which leave the distance as it is, in such a number that the score is a
// whole one and shows the distance if it is too large by one.
void expectAsByColumns(const std::string& a, std::string b) {
    int part = (static_cast<int>(a.size()) - distanceByColumns(a, b)) * 200;
    auto total = [&] { return static_cast<int>(a.size() + b.size()); };
    EXPECT_EQ(lib().Similarity(a.c_str(), b.c_str()), b.empty() ? 0 : part / total()) << a << " in " << b;
    if (b.empty() || part == 0) return;
    while (part % total() != 0) b += '!';
    EXPECT_EQ(lib().Similarity(a.c_str(), b.c_str()), part / total()) << a << " in " << b;
}

std::string textOf(RandomTexts& random, std::string_view alphabet, std::size_t size) {
    std::string text;
    while (text.size() < size) text += random.text(alphabet, 40);
    return text.substr(0, size);
}

// A copy with some characters replaced, inserted and deleted.
std::string worn(RandomTexts& random, std::string copy, std::string_view alphabet, int edits) {
    for (; edits > 0; --edits)
        copy.replace(static_cast<std::size_t>(random.number(0, static_cast<int>(copy.size()))),
                     static_cast<std::size_t>(random.number(0, 1)), random.text(alphabet, 1));
    return copy;
}

TEST(Similarity, AsByColumns) {
    RandomTexts random(8);
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        std::string_view alphabet = random.oneIn(2) ? "ab" : "abcdefgh";
        std::string a = random.text(alphabet, 20);
        expectAsByColumns(a, random.text(alphabet, 30));
    }
    // Around the seams between blocks; from the pattern itself to something quite different.
    for (int size : {63, 64, 65, 127, 128, 129, 200, 256, 257, 300, 321, 1000, 1300}) {
        for (int i = 0; i < 12 && !HasFailure(); ++i) {
            std::string_view alphabet = i % 3 == 0 ? "ab" : i % 3 == 1 ? "acgt" : kLetters;
            std::string a = textOf(random, alphabet, static_cast<std::size_t>(size));
            std::string b = random.text(alphabet, size) + worn(random, a, alphabet, size * (i % 4) * (i % 4) / 20) +
                            random.text(alphabet, size);
            if (i == 10) b.resize(a.size() / 2);
            if (i == 11) b = random.text(alphabet, 1500) + "a";
            expectAsByColumns(a, b);
        }
    }
}

// One long fault at each place of the pattern, as large as the distances that a search with a small bound just reaches.
TEST(Similarity, FaultsAcrossBlocks) {
    RandomTexts random(21);
    const std::string a = textOf(random, kLetters, 290);
    for (std::size_t start = 0; start < 130 && !HasFailure(); ++start) {
        for (std::size_t size : {63u, 64u}) {
            std::string fault(size, '#'), before = a.substr(0, start), lacking = before + a.substr(start + size);
            std::string longer = before + fault + a.substr(start);
            std::string replaced = before + fault + "#" + a.substr(start + size + 1);
            for (const std::string& b :
                 {lacking, "##" + replaced, longer + "##", replaced + std::string(100, '#') + lacking})
                expectAsByColumns(a, b);
        }
    }
}

TEST(Similarity, EveryCharacterInOnePattern) {
    std::string a;
    for (int c = 0; c < 3 * 256; ++c) a += std::string(c % 256 != 0, static_cast<char>(c * 7));
    for (std::size_t size : {255u, 256u, 400u, 765u}) {
        std::string pattern = a.substr(0, size);
        expectAsByColumns(pattern, pattern.substr(5, size / 2) + "\x01\x02" + pattern.substr(size / 2 + 9));
        expectAsByColumns(pattern, pattern);
    }
}

}  // namespace
}  // namespace vx::test
