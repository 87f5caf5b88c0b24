// Searching and counting, differences and fields.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "rows/guarded_memory.h"
#include "tests/strings/folding.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

using Search = std::int32_t(VX_CALL*)(const char*, const char*);
using NumberedSearch = std::int32_t(VX_CALL*)(const char*, const char*, std::int32_t);
using Count = std::uint32_t(VX_CALL*)(const char*, const char*);

// Every 0-based offset at which a text stands in another one, by trying each.
std::vector<std::int32_t> offsetsOf(const std::string& search, const std::string& target, const Folding& fold) {
    std::vector<std::int32_t> offsets;
    for (std::size_t at = 0; !search.empty() && at + search.size() <= target.size(); ++at) {
        std::size_t i = 0;
        while (i < search.size() && fold(search[i]) == fold(target[at + i])) ++i;
        if (i == search.size()) offsets.push_back(static_cast<std::int32_t>(at));
    }
    return offsets;
}

std::int32_t numbered(const std::vector<std::int32_t>& offsets, std::int32_t n) {
    auto size = static_cast<std::int32_t>(offsets.size());
    if (n == 0 || n > size || n < -size) return -1;
    return offsets[static_cast<std::size_t>(n > 0 ? n - 1 : size + n)];
}

struct Searches {
    Folding fold;
    Search first, first1, last, last1;
    NumberedSearch next, next1;
    Count count;
};

// Checks the searches and the count against the offsets; `given` is the search argument.
void check(const Searches& calls, const char* given, const std::string& search, const std::string& target,
           const std::vector<std::int32_t>& numbers) {
    const std::vector<std::int32_t> offsets = offsetsOf(search, target, calls.fold);
    static rows::GuardedBuffer memory;  // reading past either end of the text ends the program
    char* text = memory.place(target.size() + 1, target.size() % 5 == 0, '~');
    std::memcpy(text, target.c_str(), target.size() + 1);
    SCOPED_TRACE("[" + search + "] in [" + target + "] " + calls.fold.name);
    if (calls.first) {
        EXPECT_EQ(calls.first(given, text), numbered(offsets, 1));
        EXPECT_EQ(calls.first1(given, text), numbered(offsets, 1) + 1);
    }
    EXPECT_EQ(calls.last(given, text), numbered(offsets, -1));
    EXPECT_EQ(calls.last1(given, text), numbered(offsets, -1) + 1);
    EXPECT_EQ(calls.count(given, text), offsets.size());
    for (std::int32_t n : numbers) {
        EXPECT_EQ(calls.next(given, text, n), numbered(offsets, n)) << n;
        EXPECT_EQ(calls.next1(given, text, n), numbered(offsets, n) + 1) << n;
    }
}

void checkSearches(const std::string& search, const std::string& target, const std::vector<std::int32_t>& numbers) {
    Edit given(search);
    check({Folding::exact(), lib().At0, lib().at, lib()._rat, lib().Rat, lib()._stratnext, lib().StrAtNext,
           lib().StrCount},
          given, search, target, numbers);
    check({Folding::upper(), lib()._ati, lib().Ati, lib()._rati, lib().Rati, lib()._stratnexti, lib().StrAtNexti,
           lib().StrCounti},
          given, search, target, numbers);
}

void checkCharacters(char c, const std::string& target, const std::vector<std::int32_t>& numbers) {
    const char given[] = {c, 'b', 'a', '\0'};  // only the first character counts
    const std::string search(1, c);
    check(
        {Folding::exact(), nullptr, nullptr, lib()._atlast, lib().AtLast, lib()._atnext, lib().AtNext, lib().ChrCount},
        given, search, target, numbers);
    check({Folding::upper(), nullptr, nullptr, lib()._atlasti, lib().AtLasti, lib()._atnexti, lib().AtNexti,
           lib().ChrCounti},
          given, search, target, numbers);
}

const std::vector<std::int32_t> kFewNumbers = {-5, -4, -3, -2, -1, 0, 1, 2, 3, 4, 5};

TEST(Search, WorkedExamples) {
    struct Row {
        const char* search;
        const char* target;
        std::int32_t n;
        std::int32_t position;
    };
    for (auto [search, target, n, position] :
         {Row{"ab", "xxabyyab", 1, 3}, Row{"ab", "xxabyyab", 2, 7}, Row{"ab", "xxabyyab", -1, 7},
          Row{"ab", "xxabyyab", -2, 3}, Row{"ab", "xxabyyab", 3, 0}, Row{"ab", "xxabyyab", -3, 0},
          Row{"ab", "xxabyyab", 0, 0}, Row{"aa", "aaaa", 2, 2}, Row{"aa", "aaaa", -2, 2}, Row{"abc", "ab", 1, 0}}) {
        EXPECT_EQ(lib().StrAtNext(search, target, n), position) << search << " " << n;
        EXPECT_EQ(lib()._stratnext(search, target, n), position - 1) << search << " " << n;
    }
    EXPECT_EQ(lib().at("ab", "xxabyyab"), 3);
    EXPECT_EQ(lib().At0("ab", "xxabyyab"), 2);
    EXPECT_EQ(lib().Rat("ab", "xxabyyab"), 7);
    EXPECT_EQ(lib().Ati("AB", "xxabyy"), 3);
    EXPECT_EQ(lib().StrCount("aa", "aaaa"), 3u);
    for (auto [n, position] : {std::pair{2, 4}, {-1, 4}, {-2, 2}}) EXPECT_EQ(lib().AtNext("b", "abcb", n), position);
}

TEST(Search, NothingToFind) {
    for (auto [search, target] : std::initializer_list<std::pair<const char*, const char*>>{
             {nullptr, "ab"}, {"", "ab"}, {"ab", nullptr}, {"ab", ""}, {nullptr, nullptr}, {"", ""}}) {
        for (Search call : {lib().At0, lib()._ati, lib()._rat, lib()._rati, lib()._atlast, lib()._atlasti})
            EXPECT_EQ(call(search, target), -1);
        for (Search call : {lib().at, lib().Ati, lib().Rat, lib().Rati, lib().AtLast, lib().AtLasti})
            EXPECT_EQ(call(search, target), 0);
        for (NumberedSearch call : {lib()._stratnext, lib()._stratnexti, lib()._atnext, lib()._atnexti}) {
            for (std::int32_t n : {1, -1, 0, kMin, kMax}) EXPECT_EQ(call(search, target, n), -1) << n;
        }
        for (Count call : {lib().StrCount, lib().StrCounti, lib().ChrCount, lib().ChrCounti})
            EXPECT_EQ(call(search, target), 0u);
    }
    EXPECT_EQ(lib().StrAtNext("a", "aaa", kMin), 0);
    EXPECT_EQ(lib().StrAtNext("a", "aaa", kMax), 0);
}

TEST(Search, RandomShortTexts) {
    RandomTexts random(23);
    for (const char* alphabet : {"a", "ab", "abAB", "aAbB,", "a\x84\x8E\xE4\xC4", "eE\x82\x90\xE9\xC9"}) {
        for (int round = 0; round < 1500; ++round) {
            std::string target = random.text(alphabet, random.oneIn(100) ? 4000 : random.oneIn(3) ? 150 : 24);
            std::string search = random.text(alphabet, random.oneIn(2) ? 3 : 20);
            checkSearches(search, target, kFewNumbers);
            if (!search.empty()) checkCharacters(search[0], target, kFewNumbers);
            if (HasFailure()) return;
        }
    }
}

// Long texts that repeat themselves almost everywhere: candidates without end, searches that go on from piece to piece.
TEST(Search, RandomPeriodicTexts) {
    RandomTexts random(5);
    for (int round = 0; round < 300; ++round) {
        std::string unit = random.text("abA", 3) + "a";
        std::string target;
        for (int size = random.number(0, 6000); target.size() < static_cast<std::size_t>(size);) target += unit;
        for (int flips = random.number(0, 4); flips > 0 && !target.empty(); --flips)
            target[static_cast<std::size_t>(random.number(0, static_cast<int>(target.size()) - 1))] = 'b';
        int start = random.number(0, static_cast<int>(target.size()));
        std::string search =
            target.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(random.number(1, 300)));
        if (round % 4 == 0 && !search.empty()) search[search.size() / 2] = 'A';
        checkSearches(search, target, {-1000, -40, -2, 2, 40, 1000});
        if (HasFailure()) return;
    }
}

TEST(Search, AnyByteMayMapToAnyOther) {
    // Three digits become one character, and with a letter's two cases a fourth makes three; a letter and a byte from
    // the upper half become another one.
    UpperEntries entries(
        {{'1', '#'}, {'2', '#'}, {'3', '#'}, {'4', 'C'}, {'x', '\xD0'}, {'\xF1', '\xD0'}, {'\xF2', 'q'}, {'Q', 'q'}});
    EXPECT_EQ(lib().Ati("2a3", "xx1a1"), 3);
    EXPECT_EQ(lib().Ati("#", "ab3"), 3);
    EXPECT_EQ(lib().Ati("\xD0", "x"), 1);
    EXPECT_EQ(lib().Ati("Q", "q"), 0) << "q itself still becomes Q";
    RandomTexts random(7);
    for (int round = 0; round < 4000; ++round) {
        std::string target = random.text("123#4cCx\xD0\xF1\xF2qQ", random.oneIn(2) ? 30 : 200);
        std::string search = random.text("123#4cCx\xD0\xF1\xF2qQ", 3);
        checkSearches(search, target, kFewNumbers);
        if (!search.empty()) checkCharacters(search[0], target, {-2, 1, 2});
        if (HasFailure()) return;
    }
}

TEST(Search, EveryByteIsFound) {
    std::string all;
    for (int c = 1; c < 256; ++c) all += static_cast<char>(c);
    for (int c = 1; c < 256; ++c) {
        checkCharacters(static_cast<char>(c), all + all, {1, 2, 3, -1, -2, -3});
        checkSearches(std::string(2, static_cast<char>(c)), all, {1});
    }
}

// Whatever the alignment of a text to the pages of memory, and wherever it ends in them.
TEST(Search, TextsAcrossPages) {
    constexpr std::size_t page = 4096;
    std::vector<char> room(4 * page);
    char* border = room.data() + 2 * page - reinterpret_cast<std::uintptr_t>(room.data()) % page;
    const std::string content = "the quick brown fox jumps over the lazy dog";
    for (std::size_t before = 0; before <= content.size() + 20; ++before) {
        char* text = border - before;
        std::memcpy(text, content.c_str(), content.size() + 1);
        EXPECT_EQ(lib().At0("lazy", text), 35) << before;
        EXPECT_EQ(lib()._ati("LAZY", text), 35) << before;
        EXPECT_EQ(lib()._stratnext("the", text, 2), 31) << before;
        EXPECT_EQ(lib().At0("dogs", text), -1) << before;
        EXPECT_EQ(lib().AtDiff(text, "the quick brown fox jumps over the lazy cat"), 41) << before;
        EXPECT_EQ(lib().StrCmp(text, content.c_str()), 0) << before;
        EXPECT_EQ(lib().StrCmpi("THE QUICK BROWN FOX JUMPS OVER THE LAZY DOG", text), 0) << before;
        EXPECT_EQ(lib().StrnCmp("the quick brown fox jumps over the crazy", text, 35), 0) << before;
    }
}

// A search that verified every candidate, or began anew behind each match, would take minutes here.
TEST(Search, TimeStaysLinear) {
    constexpr std::size_t size = 1 << 20;
    constexpr std::size_t half = size / 2;
    const std::string as(size, 'a');
    const std::string longSearch(half, 'a');
    EXPECT_EQ(lib().StrCount(longSearch.c_str(), as.c_str()), half + 1);
    EXPECT_EQ(lib().StrCounti(std::string(half, 'A').c_str(), as.c_str()), half + 1);
    EXPECT_EQ(lib().ChrCount("a", as.c_str()), size);
    EXPECT_EQ(lib().ChrCounti("A", as.c_str()), size);
    for (const std::string& search : {longSearch + "b", "b" + longSearch, longSearch + "b" + longSearch,
                                      "a" + std::string(half / 2, 'b') + std::string(half / 2, 'a')}) {
        EXPECT_EQ(lib().at(search.c_str(), as.c_str()), 0);
        EXPECT_EQ(lib().Ati(search.c_str(), as.c_str()), 0);
        EXPECT_EQ(lib().Rat(search.c_str(), as.c_str()), 0);
        EXPECT_EQ(lib().Rati(search.c_str(), as.c_str()), 0);
    }
    auto n = static_cast<std::int32_t>(half / 2);
    EXPECT_EQ(lib().StrAtNext(longSearch.c_str(), as.c_str(), n), n);
    EXPECT_EQ(lib().StrAtNext(longSearch.c_str(), as.c_str(), -n), static_cast<std::int32_t>(half) - n + 2);
}

TEST(Search, CharacterAtAPosition) {
    struct Row {
        const char* text;
        std::int32_t position;
        std::int32_t code;
    };
    for (auto [text, position, code] :
         {Row{"abc", 0, 97}, Row{"abc", 2, 99}, Row{"abc", 3, 0}, Row{"abc", 4, 0}, Row{"abc", -1, 0},
          Row{"abc", kMin, 0}, Row{"abc", kMax, 0}, Row{"", 0, 0}, Row{nullptr, 0, 0}, Row{"\xFF", 0, 255}}) {
        EXPECT_EQ(lib()._ascpos(text, position), code) << position;
        if (position < kMax) {
            EXPECT_EQ(lib().AscPos(text, position + 1), code) << position;
        }
    }
    EXPECT_EQ(lib().AscPos("abc", kMin), 0);
}

TEST(Search, Differences) {
    struct Row {
        const char* a;
        const char* b;
        std::int32_t position;
        const char* rest;
    };
    const std::string same(300, 'x');
    const std::string first = same + "a!";
    const std::string second = same + "b?rest";
    for (auto [a, b, position, rest] :
         {Row{"abc", "abd", 3, ""}, Row{"abc", "abcd", 0, ""}, Row{"abcd", "abc", 0, ""}, Row{"abc", "abc", 0, ""},
          Row{"", "abc", 0, "bc"}, Row{"abc", "", 0, ""}, Row{"abc", "abXde", 3, "de"}, Row{"ab", "abXde", 0, "de"},
          Row{nullptr, "ab", 0, "b"}, Row{"\xE4", "\xC4x", 1, "x"}, Row{first.c_str(), second.c_str(), 301, "?rest"},
          Row{same.c_str(), second.c_str(), 0, "?rest"}}) {
        EXPECT_EQ(lib().AtDiff(a, b), position) << b;
        const char* result = lib().StrDiff(a, b);
        EXPECT_STREQ(result, rest) << "kept: the differing character itself is skipped";
        EXPECT_EQ(result, b + std::strlen(b) - std::strlen(rest)) << b;
        EXPECT_EQ(lib().strstrdiff(a, b), std::strlen(rest)) << b;
    }
    EXPECT_EQ(lib().AtDiff("a", nullptr), 0);
    EXPECT_EQ(lib().StrDiff("a", nullptr), nullptr);
    EXPECT_EQ(lib().strstrdiff("a", nullptr), 0u);
}

// All fields or sections of a text, a character at a time.
std::vector<std::string> fieldsOf(const std::string& text, const std::string& delimiters) {
    std::vector<std::string> fields;
    if (text.empty() || delimiters.empty()) return {text};
    bool inside = delimiters.size() == 1;
    std::string field;
    for (char c : text) {
        if (inside && c == delimiters[delimiters.size() == 1 ? 0 : 1]) {
            fields.push_back(field);
            field.clear();
            inside = delimiters.size() == 1;
        } else if (inside) {
            field += c;
        } else {
            inside = c == delimiters[0];
        }
    }
    if (delimiters.size() == 1) fields.push_back(field);
    return fields;
}

void checkFields(const char* text, const char* delimiters) {
    const std::vector<std::string> fields = fieldsOf(text ? text : "", delimiters ? delimiters : "");
    std::uint32_t count = text && *text ? static_cast<std::uint32_t>(fields.size()) : 0;
    EXPECT_EQ(lib().DelimCount(text, delimiters), count) << text;
    for (std::int32_t n : {1, 2, 3, 4, 9, 0, -1, kMin, kMax}) {
        auto index = static_cast<std::size_t>(std::max(n, 1)) - 1;
        std::string expected = index < fields.size() ? fields[index] : "";
        Dest dest((text ? std::strlen(text) : 0) + 1);
        EXPECT_EQ(lib().StrExtract(text, delimiters, n, dest), dest.get());
        EXPECT_EQ(dest.text(), expected) << "field " << n << " of " << text;
        EXPECT_EQ(lib().StrStrExtract(text, delimiters, n, dest), expected.size()) << "field " << n << " of " << text;
    }
}

TEST(Search, Fields) {
    for (const char* text : {"a,,b", "a", ",", "", "a,b,", ",,,"}) checkFields(text, ",");
    for (const char* text : {"(a)(bc)", "x(a)y(b)z", "()", "(a", "a)b(c)", "(a(b)c)", ")(", "(a)(b"}) {
        checkFields(text, "()");
        checkFields(text, "()[]");  // marks after the second do not matter
        checkFields(text, "((");
    }
    for (const char* delimiters : {"", static_cast<const char*>(nullptr)}) {
        checkFields("a,b", delimiters);
        checkFields("", delimiters);
    }
    checkFields(nullptr, ",");
    EXPECT_EQ(lib().DelimCount("a,,b", ","), 3u);
    EXPECT_EQ(lib().DelimCount("(a)(bc)", "()"), 2u);
    EXPECT_EQ(lib().DelimCount("|a|b|c|", "||"), 2u);
    Dest dest(8);
    EXPECT_STREQ(lib().StrExtract("a,,b", ",", 3, dest), "b");
    EXPECT_STREQ(lib().StrExtract("(a)(bc)", "()", 2, dest), "bc");
    EXPECT_STREQ(lib().StrExtract("a,b", ",", 1, nullptr), "") << "a constant empty text";
    EXPECT_EQ(lib().StrStrExtract("a,b", ",", 1, nullptr), 0u);
}

TEST(Search, RandomFields) {
    RandomTexts random(11);
    for (int round = 0; round < 3000; ++round) {
        std::string text = random.text("ab()|", 20);
        for (const char* delimiters : {"|", "()", "||", "ab"}) checkFields(text.c_str(), delimiters);
    }
}

}  // namespace
}  // namespace vx::test
