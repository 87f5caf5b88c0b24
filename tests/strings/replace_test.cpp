// Search and replace.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/strings/folding.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using Replace = char*(VX_CALL*)(const char*, const char*, const char*, std::int32_t, std::int32_t, char*);
using ReplaceLength = std::uint32_t(VX_CALL*)(const char*, const char*, const char*, std::int32_t, std::int32_t, char*);

std::size_t find(const std::string& text, const std::string& search, std::size_t from, const Folding& fold) {
    for (; from + search.size() <= text.size(); ++from) {
        std::size_t i = 0;
        while (i < search.size() && fold(search[i]) == fold(text[from + i])) ++i;
        if (i == search.size()) return from;
    }
    return std::string::npos;
}

// Step by step: overlapping matches up to the n-th, then one replacement after the other.
std::string replaced(const std::string& text, const std::string& search, const std::string& replacement, std::int32_t n,
                     std::int32_t count, const Folding& fold) {
    if (search.empty() || n < 1 || count == 0) return text;
    std::size_t match = find(text, search, 0, fold);
    for (; n > 1 && match != std::string::npos; --n) match = find(text, search, match + 1, fold);
    std::string result;
    std::size_t done = 0;
    while (match != std::string::npos && count != 0) {
        if (count > 0) --count;
        result += text.substr(done, match - done) + replacement;
        done = match + search.size();
        match = find(text, search, done, fold);
    }
    return result + text.substr(done);
}

TEST(Replace, Texts) {
    struct Row {
        const char* text;
        const char* search;
        const char* replacement;
        std::int32_t n;
        std::int32_t count;
        const char* result;
        const char* resultBlind;
    };
    constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();
    for (auto [text, search, replacement, n, count, result, resultBlind] :
         {Row{"aaaa", "aa", "b", 1, -2, "bb", "bb"},
          Row{"aaaa", "aa", "b", 2, -2, "aba", "aba"},
          Row{"a.b.c", ".", nullptr, 1, 1, "ab.c", "ab.c"},
          Row{"a.b.c", ".", nullptr, 1, -2, "abc", "abc"},
          Row{"a.b.c", ".", "", 3, -2, "a.b.c", "a.b.c"},
          Row{"a.b.c", ".", "--", 2, 1, "a.b--c", "a.b--c"},
          Row{"Hello HELLO", "hello", "x", 1, -2, "Hello HELLO", "x x"},
          Row{"abAB", "AB", "ab", 1, 1, "abab", "abAB"},
          Row{"a.b", "", "x", 1, -2, "a.b", "a.b"},
          Row{"a.b", nullptr, "x", 1, -2, "a.b", "a.b"},
          Row{"a.b", ".", "x", 1, 0, "a.b", "a.b"},
          Row{"a.b", ".", "x", 0, -2, "a.b", "a.b"},
          Row{"a.b", ".", "x", -1, -2, "a.b", "a.b"},
          Row{"a.b.c.", ".", "x", 1, -1, "axbxcx", "axbxcx"},
          Row{"a.b.c.", ".", "x", 2, lowest, "a.bxcx", "a.bxcx"},
          Row{"a.b.c.", ".", "x", 1, 2, "axbxc.", "axbxc."},
          Row{"a.b.c.", ".", "x", lowest, highest, "a.b.c.", "a.b.c."},
          Row{"", "a", "b", 1, -2, "", ""},
          Row{"ab", "b", "bb", 1, highest, "abb", "abb"},
          Row{"xyx", "xyx", "", 1, -2, "", ""}}) {
        for (auto [call, length, expected] :
             {std::tuple{lib().StrTran, lib().strstrtran, result}, {lib().StrTrani, lib().strstrtrani, resultBlind}}) {
            Dest dest(std::max(std::strlen(text), std::strlen(expected)) + 1);
            EXPECT_EQ(call(text, search, replacement, n, count, dest), dest.get());
            EXPECT_EQ(dest.text(), expected) << text << " n " << n << " count " << count;
            EXPECT_EQ(length(text, search, replacement, n, count, dest), std::strlen(expected)) << text;
        }
    }
}

TEST(Replace, NullArguments) {
    for (Replace call : {lib().StrTran, lib().StrTrani}) {
        Edit untouched("as it was");
        EXPECT_EQ(call(nullptr, "a", "b", 1, -2, untouched), untouched.get());
        EXPECT_EQ(untouched.text(), "as it was");
        EXPECT_EQ(call("abc", "a", "b", 1, -2, nullptr), nullptr);
    }
    EXPECT_EQ(lib().strstrtran("abc", "a", "b", 1, -2, nullptr), 0u);
}

TEST(Replace, RandomTexts) {
    RandomTexts random(17);
    const Folding foldings[] = {Folding::exact(), Folding::upper()};
    for (const char* alphabet : {"a", "ab", "aAbB", "aA\x84\x8E\xE4\xC4"}) {
        for (int round = 0; round < 2500; ++round) {
            std::string text = random.text(alphabet, random.oneIn(20) ? 2000 : 40);
            std::string search = random.text(alphabet, random.oneIn(5) ? 30 : 3);
            std::string replacement = random.text(alphabet, 5);
            std::int32_t n = random.number(-1, 4);
            std::int32_t count = random.number(-3, 4);
            for (const Folding& fold : foldings) {
                std::string expected = replaced(text, search, replacement, n, count, fold);
                Dest dest(expected.size() + 1);
                (fold.name == foldings[0].name ? lib().StrTran : lib().StrTrani)(text.c_str(), search.c_str(),
                                                                                 replacement.c_str(), n, count, dest);
                ASSERT_EQ(dest.text(), expected)
                    << "[" << text << "] [" << search << "] n " << n << " count " << count << " " << fold.name;
            }
        }
    }
}

// Half a million occurrences to skip, then replacements that would each verify 100000 characters.
TEST(Replace, TimeStaysLinear) {
    const std::string as(1 << 20, 'a');
    const std::string search(100000, 'a');
    for (auto [call, wanted] : {std::pair{lib().StrTran, search}, {lib().StrTrani, std::string(search.size(), 'A')}}) {
        Dest dest(as.size() + 1);
        call(as.c_str(), wanted.c_str(), "b", 524289, -2, dest);
        EXPECT_EQ(dest.text(), std::string(524288, 'a') + "bbbbb" + std::string(24288, 'a'));
        call(as.c_str(), (wanted + "b").c_str(), "c", 1, -2, dest);
        EXPECT_EQ(dest.text(), as);
    }
}

}  // namespace
}  // namespace vx::test
