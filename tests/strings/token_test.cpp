// Tokens against a list of all tokens: found, matched, taken out, replaced, joined, and laid out in columns and lines.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

struct Piece {
    std::size_t offset = 0;
    std::string text;
};

std::vector<Piece> listTokens(const std::string& text, const std::string& delimiters) {
    std::vector<Piece> list;
    for (std::size_t at = 0, end = 0; (at = text.find_first_not_of(delimiters, end)) != text.npos;) {
        end = std::min(text.find_first_of(delimiters, at), text.size());
        list.push_back({at, text.substr(at, end - at)});
    }
    return list;
}

std::string joined(const std::vector<Piece>& list, const std::string& gap) {
    std::string line;
    for (const Piece& piece : list) line += (&piece == &list[0] ? "" : gap) + piece.text;
    return line;
}

// What a call leaves in a destination of just its size.
template <class Call, class... Arguments>
std::string made(const std::string& expected, Call call, Arguments... arguments) {
    Dest dest(expected.size() + 1);
    call(arguments..., dest);
    return dest.text();
}

TEST(Token, TheDefaultSetHas25Characters) { EXPECT_EQ(lib().TokenSize(everyCharacter().c_str(), nullptr), 255u - 25u); }

TEST(Token, AsInAListOfAllTokens) {
    RandomTexts random(20);
    for (int round = 0; round < 2000 && !HasFailure(); ++round) {
        const std::string source = random.text("abAB,; ", 24), set = random.text(",; a", 3) + ",";
        const char *text = source.c_str(), *delimiters = set.c_str();
        SCOPED_TRACE("[" + source + "] by [" + set + "]");
        const std::vector<Piece> list = listTokens(source, set);
        const std::string sum = joined(list, ""), spaced = joined(list, "++");
        EXPECT_EQ(lib().NumToken(text, delimiters), list.size());
        EXPECT_EQ(lib().TokenSize(text, delimiters), sum.size());
        EXPECT_EQ(made(spaced, lib().SpaceToken, text, delimiters, 2, "+-"), spaced);
        auto size = static_cast<int>(list.size());
        for (int n = -size - 1; n <= size + 1; ++n) {
            if (n == 0) continue;
            bool exists = n >= -size && n <= size;
            auto index = static_cast<std::size_t>(!exists ? size : n > 0 ? n - 1 : size + n);
            const Piece token = exists ? list[index] : Piece{};
            Dest dest(source.size() + 4);
            std::int32_t position = -7, length = -7;
            lib().TokenInfo(text, delimiters, n, &position, &length, dest);
            EXPECT_EQ(dest.text(), token.text) << n;
            EXPECT_EQ(position, static_cast<std::int32_t>(token.offset) + 1) << n;
            EXPECT_EQ(length, static_cast<std::int32_t>(token.text.size())) << n;
            EXPECT_EQ(lib()._attoken(text, delimiters, n), exists ? position - 1 : -1) << n;

            std::size_t end = token.offset + token.text.size();
            std::size_t rest = index + 1 < list.size() ? list[index + 1].offset : source.size();
            std::string deleted = source, swapped = source, match = random.text("abAB", 4);
            if (exists) deleted.erase(token.offset, rest - token.offset);
            if (exists) swapped.replace(token.offset, end - token.offset, "new");
            EXPECT_EQ(made(deleted, lib().DeleteToken, text, delimiters, n), deleted) << n;
            EXPECT_EQ(made(swapped, lib().SwapToken, text, delimiters, n, "new"), swapped) << n;
            Edit same(source, swapped.size() + 1);
            EXPECT_EQ(lib().SwapToken(same, delimiters, n, "new", same), same.get());
            EXPECT_EQ(same.text(), swapped) << n;
            std::size_t found = index;
            while (found < list.size() && !match.starts_with(list[found].text)) ++found;
            int number = found < list.size() ? static_cast<int>(found - index) + std::abs(n) : 0;
            EXPECT_EQ(lib().MatchToken(text, delimiters, match.c_str(), n, 1), number) << match << " from " << n;
        }
    }
}

// A column at a time, each padded by itself.
std::string columnsOneByOne(const std::vector<Piece>& tokens, std::size_t count, std::size_t width,
                            const char* separator, const std::string& codes) {
    std::string line;
    std::size_t place = 0;
    for (std::size_t i = 0; i < count; ++i) {
        char code = i < codes.size() ? codes[i] : codes.back();
        std::string token = i < tokens.size() ? tokens[i].text : "";
        std::size_t spare = token.size() < width ? width - token.size() : 0;
        if (i < tokens.size() && code != 'r') place = code == 'L' ? 0 : code == 'R' ? spare : spare / 2;
        std::string column = (std::string(place, ' ') + token).substr(0, width);
        column.resize(width, ' ');
        line += (i > 0 && separator ? separator : "") + column;
    }
    return separator ? line : line + std::string(count - 1, ' ');
}

TEST(Token, ColumnsOfRandomTexts) {
    RandomTexts random(21);
    for (int round = 0; round < 3000; ++round) {
        std::string text = random.text("aab ", 24), codes = random.text("LRCr", 5) + "R";
        const char* separator = std::array{static_cast<const char*>(nullptr), "", "|", "<>"}[random.number(0, 3)];
        int count = random.number(1, 6), width = random.number(0, 7);
        std::string line = columnsOneByOne(listTokens(text, " "), static_cast<std::size_t>(count),
                                           static_cast<std::size_t>(width), separator, codes);
        EXPECT_EQ(made(line, lib().AlignToken, text.c_str(), " ", count, width, separator, codes.c_str()), line)
            << "[" << text << "] " << count << " of " << width << " by " << codes;
    }
}

// Blanks handed out one by one, from the last gap to the first and round again.
std::string spreadOneByOne(const std::vector<Piece>& tokens, std::size_t width) {
    std::vector<std::string> gaps(tokens.empty() ? 0 : tokens.size() - 1);
    std::size_t used = joined(tokens, "").size();
    for (std::size_t given = 0; !gaps.empty() && (given < gaps.size() || used + given < width); ++given) {
        gaps[gaps.size() - 1 - given % gaps.size()] += ' ';
    }
    std::string line;
    for (std::size_t i = 0; i < tokens.size(); ++i) line += tokens[i].text + (i < gaps.size() ? gaps[i] : "");
    return line;
}

TEST(Token, LinesOfRandomTexts) {
    RandomTexts random(22);
    for (int round = 0; round < 3000; ++round) {
        std::string text = random.text("aab ", 24);
        std::vector<Piece> tokens = listTokens(text, " ");
        auto width = static_cast<std::size_t>(random.number(1, 32));
        std::string single = joined(tokens, " ");
        std::size_t first = text.find_first_not_of(' '), behind = text.size() - 1 - text.find_last_not_of(' ');
        auto margin = [&](std::size_t used) { return used < width ? width - used : 0; };
        std::size_t starts[] = {0, first, 0, margin(single.size() + behind), margin(single.size())};
        for (int mode = 0; mode <= 4; ++mode) {
            std::string line = mode == 0 ? spreadOneByOne(tokens, width) : single;
            if (!tokens.empty()) line.insert(0, starts[mode], ' ');
            line.resize(width, ' ');
            EXPECT_EQ(made(line, lib().TokenJustify, text.c_str(), " ", static_cast<int>(width), mode), line)
                << "[" << text << "] mode " << mode;
        }
    }
}

}  // namespace
}  // namespace vx::test
