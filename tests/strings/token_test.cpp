// Tokens found, counted, measured, taken out and replaced.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/entry.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

struct Piece {
    int offset = 0;
    std::string text;
    int end() const { return offset + static_cast<int>(text.size()); }
};

// The obvious way: all tokens of a text in a list.
std::vector<Piece> listTokens(const std::string& text, const std::string& delimiters) {
    std::vector<Piece> list;
    bool inside = false;
    for (int i = 0; i < static_cast<int>(text.size()); ++i) {
        bool wasInside = inside;
        inside = delimiters.find(text[static_cast<std::size_t>(i)]) == std::string::npos;
        if (inside && !wasInside) list.push_back({i, ""});
        if (inside) list.back().text += text[static_cast<std::size_t>(i)];
    }
    return list;
}

// Where token n stands in the list, -1 if it is not there.
int indexOf(const std::vector<Piece>& list, int n) {
    int index = n > 0 ? n - 1 : static_cast<int>(list.size()) + n;
    return n != 0 && index >= 0 && index < static_cast<int>(list.size()) ? index : -1;
}

// Checks all entries that find one token; `position` counts from 0, -1 for none.
void expectToken(const char* text, const char* delimiters, std::int32_t n, std::int32_t position,
                 const std::string& token) {
    SCOPED_TRACE(testing::Message() << "[" << (text ? text : "NULL") << "] by [" << (delimiters ? delimiters : "NULL")
                                    << "], token " << n);
    auto length = static_cast<std::int32_t>(token.size());
    Dest dest(token.size() + 1);
    EXPECT_EQ(lib().Token(text, delimiters, n, dest), dest.get());
    EXPECT_EQ(dest.text(), token);
    EXPECT_EQ(lib().Str_Token(text, delimiters, n, dest), token.size());
    EXPECT_EQ(lib().TokenLen(text, delimiters, n), token.size());
    EXPECT_EQ(lib().AtToken(text, delimiters, n), position + 1);
    EXPECT_EQ(lib()._attoken(text, delimiters, n), position);
    std::int32_t at = -7;
    std::int32_t size = -7;
    EXPECT_EQ(lib().TokenInfo(text, delimiters, n, &at, &size, dest), dest.get());
    EXPECT_EQ(at, std::max(position, 0) + 1) << "kept: 1 when there is none";
    EXPECT_EQ(size, length);
    EXPECT_EQ(dest.text(), token);
    EXPECT_EQ(lib().strtokeninfo(text, delimiters, n, nullptr, nullptr, dest), token.size());
}

TEST(Token, Found) {
    struct Row {
        const char* text;
        const char* delimiters;
        std::int32_t n;
        std::int32_t position;
        const char* token;
    };
    const Row rows[] = {
        {"one, two;three", nullptr, 2, 5, "two"},
        {"one, two;three", "", 3, 9, "three"},
        {"one, two;three", nullptr, 4, -1, ""},
        {"one, two;three", ",", 2, 4, " two;three"},
        {",,a,,b,,", ",", 1, 2, "a"},
        {",,a,,b,,", ",", -1, 5, "b"},
        {",,a,,b,,", ",", 3, -1, ""},
        {",,a,,b,,", ",", -3, -1, ""},
        {"a b c", " ", -1, 4, "c"},
        {"a b c", " ", -3, 0, "a"},
        {"a b c", " ", -4, -1, ""},
        {"ab cd", nullptr, 2, 3, "cd"},
        {"ab cd", nullptr, 0, 0, ""},  // the empty piece at the start, of a text that has one
        {",,", ",", 0, 0, ""},
        {"", nullptr, 0, -1, ""},
        {"", nullptr, 1, -1, ""},
        {"", nullptr, -1, -1, ""},
        {nullptr, nullptr, 1, -1, ""},
        {nullptr, nullptr, 0, -1, ""},
        {nullptr, ",", -1, -1, ""},
        {",", ",", 1, -1, ""},
        {",", ",", -1, -1, ""},
        {"a", ",", INT32_MAX, -1, ""},
        {"a", ",", INT32_MIN, -1, ""},
        {"a", ",", -INT32_MAX, -1, ""},
        {"x\xFFy\x80z", "\x80\xFF", 2, 2, "y"},
        {"x\xFFy\x80z", "\x80\xFF", -1, 4, "z"},
        {"a\x8A\x8D\x1A\tb", nullptr, 2, 5, "b"},
    };
    for (const Row& row : rows) expectToken(row.text, row.delimiters, row.n, row.position, row.token);
    std::string many;
    for (int i = 0; i < 300; ++i) many += "x ";
    for (std::int32_t n : {-300, -257, -256, -44}) expectToken(many.c_str(), " ", n, 600 + 2 * n, "x");
    expectToken(many.c_str(), " ", -301, -1, "");
}

TEST(Token, TheDefaultSetHas25Characters) {
    std::string_view set = " .,-\t\n\r\x8A\x8D!?/;:()^#&%+*\"'\x1A";
    ASSERT_EQ(set.size(), 25u);
    for (int c = 1; c < 256; ++c) {
        char text[] = {'x', static_cast<char>(c), 'y', '\0'};
        bool delimits = set.find(text[1]) != set.npos;
        for (const char* delimiters : {static_cast<const char*>(nullptr), ""}) {
            EXPECT_EQ(lib().NumToken(text, delimiters), delimits ? 2u : 1u) << c;
            EXPECT_EQ(lib().TokenSize(text, delimiters), delimits ? 2u : 3u) << c;
        }
    }
    EXPECT_EQ(lib().NumToken(nullptr, nullptr) + lib().TokenSize(nullptr, ","), 0u);
}

std::int32_t matchInList(const std::vector<Piece>& list, const std::string& match, std::int32_t n) {
    int first = indexOf(list, n);
    if (first < 0) return 0;
    for (int i = first; i < static_cast<int>(list.size()); ++i) {
        if (match.starts_with(list[static_cast<std::size_t>(i)].text)) return i - first + (n > 0 ? n : -n);
    }
    return 0;
}

TEST(Token, AsInAListOfAllTokens) {
    RandomTexts random(20);
    for (int round = 0; round < 2000; ++round) {
        std::string text = random.text("abAB,; ", 24);
        std::string delimiters = random.text(",; a", 3) + ",";
        std::vector<Piece> list = listTokens(text, delimiters);
        std::string sum;
        std::string spaced;
        for (const Piece& piece : list) {
            sum += piece.text;
            spaced += (spaced.empty() ? "" : "++") + piece.text;
        }
        SCOPED_TRACE("[" + text + "] by [" + delimiters + "]");
        EXPECT_EQ(lib().NumToken(text.c_str(), delimiters.c_str()), list.size());
        EXPECT_EQ(lib().TokenSize(text.c_str(), delimiters.c_str()), sum.size());
        Dest joined(spaced.size() + 1);
        EXPECT_EQ(lib().SpaceToken(text.c_str(), delimiters.c_str(), 2, "+-", joined), joined.get() + spaced.size());
        EXPECT_EQ(joined.text(), spaced);

        for (int n = -7; n <= 7; ++n) {
            int index = indexOf(list, n);
            Piece token = index >= 0 ? list[static_cast<std::size_t>(index)] : Piece{};
            if (n != 0) expectToken(text.c_str(), delimiters.c_str(), n, index >= 0 ? token.offset : -1, token.text);
            if (index < 0) continue;
            bool last = token.offset == list.back().offset;
            auto rest = static_cast<std::size_t>(last ? static_cast<int>(text.size())
                                                      : list[static_cast<std::size_t>(index) + 1].offset);
            std::string head = text.substr(0, static_cast<std::size_t>(token.offset));
            std::string deleted = head + text.substr(rest);
            std::string swapped = head + "new" + text.substr(static_cast<std::size_t>(token.end()));
            Dest dest(text.size() + 4);
            EXPECT_EQ(lib().strdeletetoken(text.c_str(), delimiters.c_str(), n, dest), deleted.size()) << n;
            EXPECT_EQ(dest.text(), deleted) << n;
            EXPECT_EQ(lib().strswaptoken(text.c_str(), delimiters.c_str(), n, "new", dest), swapped.size()) << n;
            EXPECT_EQ(dest.text(), swapped) << n;
            std::string match = random.text("abAB", 4);
            EXPECT_EQ(lib().MatchToken(text.c_str(), delimiters.c_str(), match.c_str(), n, 1),
                      matchInList(list, match, n))
                << match << " from " << n;
        }
    }
}

TEST(Token, DeletedAndSwapped) {
    struct Row {
        const char* text;
        std::int32_t n;
        const char* deleted;
        const char* swapped;
    };
    const Row rows[] = {
        {"a b c", 2, "a c", "a XY c"},  {"a b c", 3, "a b ", "a b XY"},
        {"a b c", -3, "b c", "XY b c"}, {" a  b ", 1, " b ", " XY  b "},
        {"a b", 3, "a b", "a b"},       {"a b", -3, "a b", "a b"},
        {"  a", 0, "a", "XY  a"},       {"", 0, "", ""},
        {"  ", 1, "  ", "  "},          {"  ", 0, "", "XY  "},
        {nullptr, 1, "", ""},
    };
    for (const Row& row : rows) {
        Dest deleted(row.text ? std::strlen(row.text) + 1 : 1);
        EXPECT_EQ(lib().DeleteToken(row.text, " ", row.n, deleted), deleted.get());
        EXPECT_EQ(deleted.text(), row.deleted) << row.n;
        Dest swapped(std::strlen(row.swapped) + 1);
        EXPECT_EQ(lib().SwapToken(row.text, " ", row.n, "XY", swapped), swapped.get());
        EXPECT_EQ(swapped.text(), row.swapped) << row.n;
    }
    Dest dest(4);
    EXPECT_STREQ(lib().SwapToken("a b", " ", 1, nullptr, dest), " b");
}

TEST(Token, Spaced) {
    struct Row {
        const char* text;
        std::int32_t count;
        const char* fill;
        const char* result;
    };
    lib().SetFillChar('_');
    for (auto [text, count, fill, result] :
         {Row{"a,b", 2, "x", "axxb"}, Row{",,a,,b,", 1, "xy", "axb"}, Row{"a,b", 0, "x", "ab"},
          Row{"a,b", INT32_MIN, "x", "ab"}, Row{"a,b,c", 2, nullptr, "a__b__c"}, Row{"a,b", 1, "", "a_b"},
          Row{"a", INT32_MAX, "x", "a"}, Row{",,", 3, "x", ""}, Row{"", 3, "x", ""}, Row{nullptr, 3, "x", ""}}) {
        Dest dest(std::strlen(result) + 1);
        EXPECT_EQ(lib().SpaceToken(text, ",", count, fill, dest), dest.get() + std::strlen(result))
            << "kept: the terminator";
        EXPECT_EQ(dest.text(), result) << count;
        EXPECT_EQ(lib().strspacetoken(text, ",", count, fill, dest), 0u) << "kept: measured from the terminator";
    }
    lib().SetFillChar(' ');
}

TEST(Token, CaseOfOneToken) {
    struct Row {
        const char* text;
        std::int32_t n;
        const char* capital;
        const char* upper;
        const char* lower;
    };
    const Row rows[] = {
        {"aB;cD", 1, "AB;cD", "AB;cD", "ab;cD"},
        {"aB;cD", -1, "aB;CD", "aB;CD", "aB;cd"},
        {"aB;cD", 3, "aB;cD", "aB;cD", "aB;cD"},
        {";aB", 1, ";AB", ";AB", ";ab"},
        {"aB", 0, "AB", "AB", "aB"},
        {"Ab", 0, "Ab", "Ab", "ab"},  // kept: the character behind token 0
        {"", 1, "", "", ""},
        {"", 0, "", "", ""},
        {"aB;cD", INT32_MIN, "aB;cD", "aB;cD", "aB;cD"},
    };
    for (const Row& row : rows) {
        Edit capital(row.text);
        EXPECT_EQ(lib().CapToken(capital, ";", row.n), capital.get());
        EXPECT_EQ(capital.text(), row.capital) << row.n;
        Edit upper(row.text);
        EXPECT_EQ(lib().TokenUpper(upper, ";", row.n), upper.get());
        EXPECT_EQ(upper.text(), row.upper) << row.n;
        Edit lower(row.text);
        EXPECT_EQ(lib().strtokenlower(lower, ";", row.n), std::strlen(row.text));
        EXPECT_EQ(lower.text(), row.lower) << row.n;
    }
    for (auto call : {lib().CapToken, lib().TokenUpper, lib().TokenLower}) EXPECT_EQ(call(nullptr, ";", 1), nullptr);
    EXPECT_EQ(lib().strtokenupper(nullptr, ";", 1), 0u);

    // kept: the delimiter behind the token goes through the table, too
    std::int32_t before = lib().SetUpperTable(';', '!');
    Edit edit("ab;;cd");
    lib().TokenUpper(edit, ";", 1);
    EXPECT_EQ(edit.text(), "AB!;cd");
    lib().SetUpperTable(';', before);
}

TEST(Token, Matched) {
    struct Row {
        const char* text;
        const char* match;
        std::int32_t n;
        std::int32_t exact;
        std::int32_t result;
    };
    const Row rows[] = {
        {"ab cd", "cdx", 1, 1, 2},  // kept: a token matches what it begins
        {"ab cd", "c", 1, 1, 0},
        {"ab cd", "CD", 1, 1, 0},
        {"ab cd", "CD", 1, 0, 2},
        {"ab cd", "CD", 1, -5, 0},
        {"AB cd", "ab", 1, 0, 1},
        {"\xE4 b", "\xC4", 1, 0, 0},
        {"@ [", "`{", 1, 0, 0},  // beside the letters
        {"ab cd ab", "ab", 2, 1, 3},
        {"ab cd ab", "cd", 3, 1, 0},
        {"ab cd", "cd", 3, 1, 0},
        {"ab cd", "cd", -1, 1, 1},  // kept: the number as if the walk went on backwards
        {"ab cd", "cd", -2, 1, 3},
        {"ab cd", "ab", -2, 1, 2},
        {"ab cd", "ab", -1, 1, 0},
        {"ab cd", "ab", 0, 1, 0},
        {"ab cd", "ab", INT32_MIN, 1, 0},
        {"ab", nullptr, 1, 1, 0},
        {nullptr, "ab", 1, 1, 0},
        {"", "", 1, 1, 0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(lib().MatchToken(row.text, " ", row.match, row.n, row.exact), row.result)
            << (row.text ? row.text : "NULL") << " / " << (row.match ? row.match : "NULL") << " from " << row.n;
    }
}

TEST(Token, WithoutADestinationNothingHappens) {
    std::int32_t position = -7;
    std::int32_t length = -7;
    EXPECT_EQ(lib().Token("a", nullptr, 1, nullptr), nullptr);
    EXPECT_EQ(lib().TokenInfo("a", nullptr, 1, &position, &length, nullptr), nullptr);
    EXPECT_EQ(position + length, -14);
    EXPECT_EQ(lib().DeleteToken("a", nullptr, 1, nullptr), nullptr);
    EXPECT_EQ(lib().SwapToken("a", nullptr, 1, "b", nullptr), nullptr);
    EXPECT_EQ(lib().SpaceToken("a", nullptr, 1, "b", nullptr), nullptr);
    EXPECT_EQ(lib().Str_Token("a", nullptr, 1, nullptr) + lib().strspacetoken("a", nullptr, 1, "b", nullptr), 0u);
}

}  // namespace
}  // namespace vx::test
