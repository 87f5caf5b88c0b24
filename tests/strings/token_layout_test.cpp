// Tokens set in columns and justified in a line.
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

constexpr std::int32_t kPerToken = -2;

std::vector<std::string> split(const std::string& text, char delimiter) {
    std::vector<std::string> tokens(1);
    for (char c : text) {
        if (c != delimiter) tokens.back() += c;
        if (c == delimiter && !tokens.back().empty()) tokens.emplace_back();
    }
    if (tokens.back().empty()) tokens.pop_back();
    return tokens;
}

// Each of the two entries remembers delimiters; what it splits at when none were ever given shows only before any test.
class TokenLayout : public testing::Test {
 protected:
    static void SetUpTestSuite() {
        if (alignedAtFirst) return;
        Dest dest(100);
        alignedAtFirst = lib().AlignToken("a\tb,c d;e", nullptr, kPerToken, 5, "|", nullptr, dest);
        justifiedAtFirst = lib().TokenJustify("a\tb,c d;e", "", 12, 2, dest);
    }

    static inline std::optional<std::string> alignedAtFirst;
    static inline std::optional<std::string> justifiedAtFirst;
};

TEST_F(TokenLayout, RemembersItsDelimiters) {
    EXPECT_EQ(*alignedAtFirst, "a    |b,c  |d;e  ") << "at first blank and tab";
    EXPECT_EQ(*justifiedAtFirst, "a b,c d;e   ");

    auto align = [](const char* delimiters) {
        Dest dest(100);
        return std::string(lib().AlignToken("a b,c;d", delimiters, kPerToken, 4, "|", "L", dest));
    };
    auto justify = [](const char* delimiters) {
        Dest dest(9);
        return std::string(lib().TokenJustify("a b,c;d", delimiters, 8, 2, dest));
    };
    EXPECT_EQ(align(","), "a b |c;d ");
    EXPECT_EQ(align(nullptr), "a b |c;d ");
    EXPECT_EQ(justify(";"), "a b,c d ");
    EXPECT_EQ(justify(""), "a b,c d ");
    EXPECT_EQ(align(""), "a b |c;d ") << "each remembers its own";
    EXPECT_EQ(lib().NumToken("a b,c;d", nullptr), 4u) << "all others go by the default set";
    Dest dest(1);
    EXPECT_STREQ(lib().TokenJustify("a", ",", 0, 2, dest), "");
    EXPECT_EQ(justify(nullptr), "a b,c d ") << "without a line nothing is remembered";
}

TEST_F(TokenLayout, Columns) {
    struct Row {
        const char* text;
        std::int32_t count;
        std::int32_t width;
        const char* separator;
        const char* codes;
        const char* result;
    };
    const Row rows[] = {
        {"a bb ccc", 3, 4, "|", "LRC", "a...|..bb|ccc."},
        {"a bb ccc", kPerToken, 4, "|", "LRC", "a...|..bb|ccc."},
        {"a bb ccc", 2, 4, "|", "LRC", "a...|..bb"},
        {"a b c", 3, 3, "|", "R", "..a|..b|..c"},  // the last code goes on
        {"a b c", 3, 3, "|", "", "a..|b..|c.."},   // without codes: left
        {"a b c", 3, 3, "|", nullptr, "a..|b..|c.."},
        {"a b cc", 3, 4, "|", "RxL", "...a|...b|cc.."},  // kept: an unknown letter leaves the place alone
        {"a b", 2, 3, "|", "x", "a..|b.."},
        {"a bbb", 2, 3, "|", "Rr", "..a|..b"},  // cut to what is left of the column
        {"abcd efgh", 2, 3, "|", "RC", "abc|efg"},
        {"abcd e", 2, 4, "", "LC", "abcd.e.."},
        {"a b c", 3, 2, nullptr, "L", "a.b.c..."},  // kept: no separator, yet a position for each gap
        {"a", 3, 2, " - ", "L", "a. - .. - .."},    // columns without a token
        {"a b", 3, 0, "|", "R", "||"},
        {"a b", 3, -9, "|", "R", "||"},
        {"a b", 3, 0, nullptr, "R", ".."},
        {"a b", 3, 0, "", "R", ""},
        {"a b", 0, 4, "|", "R", ""},
        {"a b", -1, 4, "|", "R", ""},
        {"a b", INT32_MIN, 4, "|", "R", ""},
        {"  ", kPerToken, 4, "|", "R", ""},
        {nullptr, 2, 2, "|", "R", "..|.."},
    };
    lib().SetFillChar('.');
    for (const Row& row : rows) {
        Dest dest(std::strlen(row.result) + 1);
        EXPECT_EQ(lib().AlignToken(row.text, " ", row.count, row.width, row.separator, row.codes, dest), dest.get());
        EXPECT_EQ(dest.text(), row.result) << (row.text ? row.text : "NULL") << ", width " << row.width;
        EXPECT_EQ(lib().straligntoken(row.text, " ", row.count, row.width, row.separator, row.codes, dest),
                  std::strlen(row.result));
    }
    lib().SetFillChar(' ');
    EXPECT_EQ(lib().AlignToken("a", " ", 1, 3, "|", "L", nullptr), nullptr);
}

// A column at a time, each padded by itself.
std::string columnsOneByOne(const std::vector<std::string>& tokens, std::size_t count, std::size_t width,
                            const char* separator, std::string codes) {
    std::string line;
    std::size_t place = 0;
    for (std::size_t i = 0; i < count; ++i) {
        char code = i < codes.size() ? codes[i] : codes.back();
        std::string token = i < tokens.size() ? tokens[i] : "";
        std::size_t spare = token.size() < width ? width - token.size() : 0;
        if (i < tokens.size() && code != 'x') place = code == 'L' ? 0 : code == 'R' ? spare : spare / 2;
        std::string column = (std::string(place, ' ') + token).substr(0, width);
        column.resize(width, ' ');
        line += (i > 0 && separator ? separator : "") + column;
    }
    return separator ? line : line + std::string(count - 1, ' ');
}

TEST_F(TokenLayout, ColumnsOfRandomTexts) {
    RandomTexts random(21);
    for (int round = 0; round < 3000; ++round) {
        std::string text = random.text("aab ", 24);
        std::string codes = random.text("LRCx", 5) + "R";
        const char* separator = std::array{static_cast<const char*>(nullptr), "", "|", "<>"}[random.number(0, 3)];
        int count = random.number(1, 6);
        int width = random.number(0, 7);
        std::string expected = columnsOneByOne(split(text, ' '), static_cast<std::size_t>(count),
                                               static_cast<std::size_t>(width), separator, codes);
        Dest dest(expected.size() + 1);
        lib().AlignToken(text.c_str(), " ", count, width, separator, codes.c_str(), dest);
        EXPECT_EQ(dest.text(), expected) << "[" << text << "] " << count << " of " << width << " by " << codes;
    }
}

TEST_F(TokenLayout, Lines) {
    struct Row {
        const char* text;
        std::int32_t width;
        std::int32_t mode;
        const char* result;
    };
    const Row rows[] = {
        {"a b c", 9, 0, "a...b...c"},
        {"a b c", 10, 0, "a...b....c"},
        {"a b c", 5, 0, "a.b.c"},
        {"a b c", 3, 0, "a.b"},  // what does not fit is cut
        {"abc def", 5, 0, "abc.d"},
        {"  abc ", 5, 0, "abc.."},
        {"abcdef", 4, 0, "abcd"},
        {"a b", 6, 4, "...a.b"},
        {"a b", 6, 2, "a.b..."},
        {" a  b   ", 8, 1, ".a.b...."},
        {" a  b   ", 8, 2, "a.b....."},
        {" a  b   ", 8, 3, "..a.b..."},
        {" a  b   ", 8, 4, ".....a.b"},
        {" a  b   ", 5, 3, "a.b.."},
        {"     a", 4, 1, "...."},
        {"  abc de", 6, 1, "..abc."},
        {"ab cd", 4, 4, "ab.c"},
        {"ab cd", 4, 3, "ab.c"},
        {"a b", 4, 5, "...."},
        {"a b", 4, -1, "...."},
        {"   ", 3, 0, "..."},
        {nullptr, 3, 4, "..."},
        {"a b", 0, 0, ""},
        {"a b", INT32_MIN, 4, ""},
    };
    lib().SetFillChar('.');
    for (const Row& row : rows) {
        Dest dest(std::strlen(row.result) + 1);
        EXPECT_EQ(lib().TokenJustify(row.text, " ", row.width, row.mode, dest), dest.get());
        EXPECT_EQ(dest.text(), row.result) << (row.text ? row.text : "NULL") << " mode " << row.mode;
        EXPECT_EQ(lib().strtokenjustify(row.text, " ", row.width, row.mode, dest), std::strlen(row.result));
    }
    lib().SetFillChar(' ');
    EXPECT_EQ(lib().TokenJustify("a", " ", 3, 0, nullptr), nullptr);
}

// Blanks handed out one by one, from the last gap to the first and round again.
std::string spreadOneByOne(const std::vector<std::string>& tokens, std::size_t width) {
    std::vector<std::string> gaps(tokens.empty() ? 0 : tokens.size() - 1);
    std::size_t used = 0;
    for (const std::string& token : tokens) used += token.size();
    for (std::size_t given = 0; !gaps.empty() && (given < gaps.size() || used + given < width); ++given) {
        gaps[gaps.size() - 1 - given % gaps.size()] += ' ';
    }
    std::string line;
    for (std::size_t i = 0; i < tokens.size(); ++i) line += tokens[i] + (i < gaps.size() ? gaps[i] : "");
    line.resize(width, ' ');
    return line;
}

TEST_F(TokenLayout, LinesOfRandomTexts) {
    RandomTexts random(22);
    for (int round = 0; round < 3000; ++round) {
        std::string text = random.text("aab ", 24);
        int width = random.number(1, 32);
        Dest dest(static_cast<std::size_t>(width) + 1);
        lib().TokenJustify(text.c_str(), " ", width, 0, dest);
        EXPECT_EQ(dest.text(), spreadOneByOne(split(text, ' '), static_cast<std::size_t>(width)))
            << "[" << text << "] in " << width;
        for (int mode = 1; mode <= 4; ++mode) {
            lib().TokenJustify(text.c_str(), " ", width, mode, dest);
            EXPECT_EQ(dest.text().size(), static_cast<std::size_t>(width)) << "[" << text << "] mode " << mode;
        }
    }
}

}  // namespace
}  // namespace vx::test
