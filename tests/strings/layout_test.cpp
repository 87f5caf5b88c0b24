// Wrapping, lines and tab stops, and pieces of texts, against slow twins.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

std::size_t size(int number) { return static_cast<std::size_t>(number); }

// The lines of a text, found by looking at every place in turn.
std::vector<std::string> wrapTwin(const std::string& text, std::size_t width) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        std::size_t next = std::min(start + width, text.size());
        std::size_t end = next;
        for (std::size_t i = start; next < text.size() && i < start + width; ++i) {
            if (text[i] == ' ') end = i;
        }
        lines.push_back(text.substr(start, end - start));
        start = end < next ? end + 1 : next;
    }
    return lines;
}

TEST(Layout, Wrapped) {
    RandomTexts random(25);
    for (int i = 0; i < 3000; ++i) {
        std::string text = (i % 2 ? " " : "a") + random.text("ab  \t\n", 40);
        int width = random.number(1, 12);
        std::vector<std::string> lines = wrapTwin(text, size(width));
        int count = static_cast<int>(lines.size());
        EXPECT_EQ(lib().WrapCount(text.c_str(), width), count) << "[" << text << "] in " << width;
        for (std::string& line : lines) line.resize(size(width), ' ');
        lines.emplace_back();
        for (int n = 1; n <= count + 1; ++n) {
            Dest dest(size(width) + 1);
            EXPECT_EQ(lib().StrWrap(text.c_str(), n, width, dest), lines[size(n - 1)])
                << "line " << n << " of [" << text << "] in " << width;
        }
    }
}

// Builds one output line after the other, keeping for each the last place at which it could have been broken.
std::string memoTwin(const std::string& text, int width, int tabs) {
    std::string result;
    for (std::size_t next = 0; next < text.size();) {
        std::string line, broken;
        std::size_t afterBroken = 0;
        for (int column = 1; next < text.size(); ++column) {
            char c = text[next++];
            if ((c == '\r' || c == '\x8D') && text[next] == '\n') ++next;
            if (c == '\r') {
                line += "\r\n";
                break;
            }
            if (c != '\n' && c != '\x8D') line += c;
            while (c == '\t' && column % tabs != 0) ++column;
            if (c == ' ' || c == '\t' || c == '\n') {
                broken = line;
                afterBroken = next;
            }
            if (c == '\n' || c == '\x8D' || column < width) continue;
            if (!broken.empty()) {
                line = broken;
                next = afterBroken;
            }
            line += "\x8D\n";
            break;
        }
        result += line;
    }
    return result;
}

TEST(Layout, MemoWrappedAndWrappedAgain) {
    RandomTexts random(26);
    for (int i = 0; i < 6000; ++i) {
        std::string text = random.text(i % 2 ? "abc  \t\r\n\x8D" : "abcd   ", 60);
        for (int width : {random.number(1, 20), random.number(1, 20), INT_MAX}) {
            int tabs = random.number(1, 9);
            Dest dest(text.size() * 3 + 1);
            lib().MemoWrap(text.c_str(), width, tabs, dest);
            ASSERT_EQ(dest.text(), memoTwin(text, width, tabs)) << "[" << text << "] in " << width << ", " << tabs;
            text = dest.text();
        }
    }
}

TEST(Layout, LinesRead) {
    RandomTexts random(27);
    for (int i = 0; i < 3000; ++i) {
        std::string text = random.text("ab\r\n\n\x8D", i % 16 ? 24 : 9000);
        std::vector<std::string> lines(1);
        for (std::size_t at = 0; at < text.size(); ++at) {
            bool pair = text[at + 1] == '\n' && (text[at] == '\r' || text[at] == '\x8D');
            if (text[at] == '\n') {
                lines.emplace_back();
            } else if (text[at] == '\r' && !pair) {
                lines.back().clear();
            } else if (!pair) {
                lines.back() += text[at];
            }
        }
        int count = static_cast<int>(lines.size());
        lines.emplace_back();
        EXPECT_EQ(lib().LineCount(text.c_str()), text.empty() ? 0 : count);
        int number = random.oneIn(4) ? count + 1 : random.number(1, count);
        Dest dest(text.size() + 1);
        EXPECT_EQ(lib().ReadLine(text.c_str(), number, dest), lines[size(number - 1)]) << number << " of " << text;
    }
}

TEST(Layout, TabStops) {
    for (int tabs = 1; tabs < 300; ++tabs) {
        int stop = 1;
        for (int column = 1; column < 600; ++column) {
            if (column == stop) stop += std::min(tabs, 255);
            ASSERT_EQ(lib().NextTabStop(column, tabs), stop) << column << ", " << tabs;
            ASSERT_EQ(lib().TabStop(-column, tabs), stop - column) << column << ", " << tabs;
        }
    }
}

template <class Call, class... Arguments>
void expectPiece(Call call, const std::string& text, const std::string& result, Arguments... arguments) {
    Dest dest(result.size() + 1);
    EXPECT_EQ(call(text.c_str(), arguments..., dest), dest.get());
    EXPECT_EQ(dest.text(), result) << testing::PrintToString(std::tuple(text, arguments...));
    Edit same(text, result.size() + 1);
    EXPECT_EQ(call(same, arguments..., same), same.get());
    EXPECT_EQ(same.text(), result) << "into the text: " << testing::PrintToString(std::tuple(text, arguments...));
}

TEST(Substring, RandomTexts) {
    RandomTexts random(30);
    for (int i = 0; i < 3000; ++i) {
        std::string text = random.text("abcdef", i % 4 ? 8 : 60);  // pieces of all the sizes that are moved differently
        int size = static_cast<int>(text.size());
        int start = random.number(-size - 2, size + 2), count = random.number(-1, size + 2);
        auto counted = static_cast<std::size_t>(std::max(count, 0)), begin = static_cast<std::size_t>(start);
        if (start < 0) begin += text.size();
        std::string last = text.substr(text.size() - std::min(counted, text.size()));
        std::string insert = random.text("XYZ", 20), stuffed = text;
        if (start <= size) stuffed.replace(static_cast<std::size_t>(std::max(start, 0)), counted, insert);
        expectPiece(lib().Left, text, text.substr(0, counted), count);
        expectPiece(lib().Right, text, last, count);
        expectPiece(lib()._substr, text, begin <= text.size() ? text.substr(begin, counted) : "", start, count);
        expectPiece(lib()._stuff, text, stuffed, start, count, insert.c_str());
    }
}

}  // namespace
}  // namespace vx::test
