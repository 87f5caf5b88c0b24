// Wrapping, lines, tabs and justifying in a field.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

std::size_t size(std::int32_t number) { return static_cast<std::size_t>(std::max(number, 0)); }

std::string memoWrap(const std::string& text, std::int32_t width, std::int32_t tabWidth = -2) {
    Dest dest(text.size() * 3 + 1);
    EXPECT_EQ(lib().MemoWrap(text.c_str(), width, tabWidth, dest), dest.get());
    return dest.text();
}

std::string readLine(const std::string& text, std::int32_t line) {
    Dest dest(text.size() + 1);
    EXPECT_EQ(lib().ReadLine(text.c_str(), line, dest), dest.get());
    return dest.text();
}

std::string tabExpand(const std::string& text, std::int32_t tabWidth, const char* fill) {
    Dest dest(text.size() * size(std::max(std::min(tabWidth, 255), 8)) + 1);
    EXPECT_EQ(lib().TabExpand(text.c_str(), tabWidth, fill, dest), dest.get());
    return dest.text();
}

std::string justify(const std::string& text, std::int32_t width, std::int32_t mode, const char* fill) {
    Dest dest(size(width) + 1);
    EXPECT_EQ(lib().StrJustify(text.c_str(), width, mode, fill, dest), dest.get());
    return dest.text();
}

// The lines of a text, found by looking at every place in turn.
std::vector<std::string> wrapTwin(const std::string& text, std::size_t width) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        std::size_t next = std::min(start + width, text.size());
        std::size_t end = next;
        for (std::size_t i = start; next < text.size() && i < start + width; ++i) {
            if (text[i] == ' ') end = i;
        }
        if (next < text.size() && text[end] == ' ' && end < next) next = end + 1;
        lines.push_back(text.substr(start, end - start));
        start = next;
    }
    return lines;
}

void expectLines(const std::string& text, std::int32_t width, const std::vector<std::string>& lines) {
    EXPECT_EQ(lib().WrapCount(text.c_str(), width), static_cast<std::int32_t>(lines.size())) << text << " in " << width;
    for (std::size_t i = 0; i <= lines.size(); ++i) {
        Dest dest(size(width) + 1);
        std::int32_t number = static_cast<std::int32_t>(i + 1);
        EXPECT_EQ(lib().StrWrap(text.c_str(), number, width, dest), dest.get());
        std::string line = i < lines.size() ? lines[i] + std::string(size(width) - lines[i].size(), ' ') : "";
        EXPECT_EQ(dest.text(), line) << "line " << number << " of [" << text << "] in " << width;
        EXPECT_EQ(lib().strstrwrap(text.c_str(), number, width, dest), line.size());
    }
}

TEST(Wrap, Lines) {
    struct Row {
        const char* text;
        std::int32_t width;
        std::vector<std::string> lines;
    };
    const Row rows[] = {
        {"the sharp green fox", 10, {"the sharp", "green fox"}},
        {"abcdefghijkl", 5, {"abcde", "fghij", "kl"}},
        {"sharp fox", 9, {"sharp fox"}},                  // what is left fits
        {"a fox", 1, {"a", "", "f", "o", "x"}},           // a blank of its own line
        {"ab cd e", 5, {"ab", "cd e"}},                   // the word ends at the width and moves on all the same
        {"ab   cd", 4, {"ab ", " cd"}},                   // the last blank of the width is the one
        {"ab    cd", 3, {"ab", "  ", "cd"}},              // further blanks begin the next line
        {" abcdef", 3, {"", "abc", "def"}},               // a blank right at the start
        {"a\tb\nc\x8D\n", 3, {"a\tb", "\nc\x8D", "\n"}},  // nothing else breaks a line
    };
    for (const Row& row : rows) expectLines(row.text, row.width, row.lines);
    for (std::int32_t width : {3, 4, 1000, INT_MAX}) EXPECT_EQ(lib().WrapCount("abc", width), 1);
    EXPECT_EQ(lib().WrapCount("abc", 0) + lib().WrapCount("", 5) + lib().WrapCount(nullptr, 5), 0);
    EXPECT_EQ(lib().WrapCount("abc", INT_MIN), 0);
}

TEST(Wrap, LinesThatAreNone) {
    for (std::int32_t line : {0, -1, INT_MIN}) {
        Dest dest(5);
        EXPECT_EQ(lib().StrWrap("abc", line, 4, dest), dest.get() + 4) << "kept: the terminator";
        EXPECT_EQ(dest.text(), "    ");
        EXPECT_EQ(lib().strstrwrap("abc", line, 4, dest), 4u);
    }
    for (const char* text : {"", static_cast<const char*>(nullptr)}) {
        Dest dest(5);
        EXPECT_EQ(lib().StrWrap(text, 1, 4, dest), dest.get() + 4);
        EXPECT_EQ(dest.text(), "    ");
    }
    lib().SetFillChar('*');
    EXPECT_STREQ(lib().StrWrap("ab cd", 1, 4, Dest(5)), "ab  ");
    lib().SetFillChar(' ');
    for (std::int32_t width : {0, -1, INT_MIN}) {
        Dest dest(1);
        EXPECT_EQ(lib().StrWrap("abc", 1, width, dest), dest.get());
        EXPECT_EQ(lib().strstrwrap("abc", 0, width, dest), 0u);
        EXPECT_EQ(dest.text(), "");
    }
    Dest dest(3);
    EXPECT_STREQ(lib().StrWrap("abc", INT_MAX, 2, dest), "");
    EXPECT_EQ(lib().StrWrap("abc", 1, 2, nullptr), nullptr);
    EXPECT_EQ(lib().strstrwrap("abc", 1, 2, nullptr), 0u);
}

TEST(Wrap, RandomTextsAgainstTheTwin) {
    RandomTexts random(25);
    for (int i = 0; i < 3000; ++i) {
        std::string text = (i % 2 ? " " : "a") + random.text("ab  \t\n", 40);
        std::int32_t width = random.number(1, 12);
        expectLines(text, width, wrapTwin(text, size(width)));
    }
}

// Builds one output line after the other, keeping for each the last place at which it could have been broken.
std::string memoTwin(const std::string& text, int width, int tabs) {
    std::string result;
    std::size_t next = 0;
    while (next < text.size()) {
        std::string line;
        std::string broken;
        std::size_t afterBroken = 0;
        int column = 0;
        bool ended = false;
        while (next < text.size() && !ended) {
            char c = text[next++];
            ++column;
            bool feedFollows = next < text.size() && text[next] == '\n';
            if (c == '\r' || c == '\x8D') next += feedFollows;
            if (c == '\r') {
                line += "\r\n";
                ended = true;
            } else if (c != '\n' && c != '\x8D') {
                line += c;
                while (c == '\t' && column % tabs != 0) ++column;
            }
            if (c == ' ' || c == '\t' || c == '\n') {
                broken = line;
                afterBroken = next;
            }
            if (!ended && c != '\n' && c != '\x8D' && column >= width) {
                if (!broken.empty()) {
                    line = broken;
                    next = afterBroken;
                }
                line += "\x8D\n";
                ended = true;
            }
        }
        result += line;
    }
    return result;
}

TEST(Memo, SoftLineEnds) {
    struct Row {
        const char* text;
        std::int32_t width;
        std::int32_t tabs;
        std::string result;
    };
    const Row rows[] = {
        {"aaaa bbbbbbbb", 10, -2, "aaaa \x8D\nbbbbbbbb"},
        {"aaaa bbbbbbbb", 14, -2, "aaaa bbbbbbbb"},
        {"aaaa \x8D\nbbbbbbbb", 15, -2, "aaaa bbbbbbbb"},
        {"aaaa \x8D\nbbbbbbbb", 14, -2, "aaaa \x8D\nbbbbbbbb"},  // kept: the old soft line end takes a column
        {"abcdef", 3, -2, "abc\x8D\ndef\x8D\n"},                 // a full last line is ended as well
        {"abcdef", 0, -2, "a\x8D\nb\x8D\nc\x8D\nd\x8D\ne\x8D\nf\x8D\n"},
        {"a\nb", 9, -2, "ab"},            // kept: a lone line feed is dropped
        {"ab\ncd", 4, -2, "ab\x8D\ncd"},  // but the line may break there
        {"\n\n\nab", 3, -2, "a\x8D\nb"},  // and its column counts
        {"a\rb\r\nc\r\n\nd", 9, -2, "a\r\nb\r\nc\r\nd"},
        {"a b\r\ncdefg", 5, -2, "a b\r\ncdefg\x8D\n"},  // a hard line end starts the line anew
        {"a\x8Dz", 9, -2, "az"},
        {"a\tb", 4, 4, "a\t\x8D\nb"},
        {"a\tbc", 9, -2, "a\t\x8D\nbc"},
        {"a\tb", 255, 9999, "a\t\x8D\nb"},
        {"a\tb", 257, 9999, "a\tb"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(memoWrap(row.text, row.width, row.tabs), row.result) << row.text << " in " << row.width;
        Dest dest(std::strlen(row.text) * 3 + 1);
        EXPECT_EQ(lib().strmemowrap(row.text, row.width, row.tabs, dest), row.result.size());
    }
    EXPECT_EQ(memoWrap("ab", INT_MIN, INT_MIN), "a\x8D\nb\x8D\n");
    EXPECT_EQ(memoWrap("a b\t", INT_MAX, INT_MAX), "a b\t");
    Dest dest(1);
    EXPECT_STREQ(lib().MemoWrap(nullptr, 5, 8, dest), "");
    EXPECT_EQ(lib().MemoWrap("abc", 5, 8, nullptr), nullptr);
}

std::string withoutSoftEnds(std::string text) {
    for (std::size_t at; (at = text.find("\x8D\n")) != text.npos;) text.erase(at, 2);
    return text;
}

TEST(Memo, RandomTextsAgainstTheTwinAndWrappedAgain) {
    RandomTexts random(26);
    for (int i = 0; i < 6000; ++i) {
        std::string text = random.text(i % 2 ? "abc  \t\r\n\x8D" : "abcd   ", 60);
        int width = random.number(1, 20);
        int tabs = random.number(1, 9);
        std::string once = memoWrap(text, width, tabs);
        EXPECT_EQ(once, memoTwin(text, width, tabs)) << "[" << text << "] in " << width << ", " << tabs;
        // Wrapping loses no content, whatever the width was before, and a wide one leaves no soft line end.
        std::string plain = memoWrap(text, INT_MAX, tabs);
        EXPECT_EQ(plain, withoutSoftEnds(plain));
        EXPECT_EQ(withoutSoftEnds(once), plain) << text;
        EXPECT_EQ(memoWrap(once, INT_MAX, tabs), plain) << text;
        EXPECT_EQ(withoutSoftEnds(memoWrap(once, random.number(1, 20), tabs)), plain) << text;
    }
}

TEST(Lines, CountAndRead) {
    struct Row {
        const char* text;
        std::vector<const char*> lines;
    };
    const Row rows[] = {
        {"a\nb", {"a", "b"}},
        {"a\nb\n", {"a", "b", ""}},
        {"a\r\nb", {"a", "b"}},
        {"a\x8D\nb", {"a", "b"}},
        {"\n", {"", ""}},
        {"ab\rcd\nef\r", {"cd", ""}},    // kept: a lone carriage return takes the line's start with it
        {"a\x8Dz\x8D", {"a\x8Dz\x8D"}},  // no soft line end without its line feed
        {"a\r\x8D\nb\x8D\r\nc", {"", "b\x8D", "c"}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(lib().LineCount(row.text), static_cast<std::int32_t>(row.lines.size())) << row.text;
        for (std::size_t i = 0; i < row.lines.size(); ++i) {
            std::int32_t number = static_cast<std::int32_t>(i + 1);
            EXPECT_EQ(readLine(row.text, number), row.lines[i]) << number << " of " << row.text;
            Dest dest(std::strlen(row.text) + 1);
            EXPECT_EQ(lib().strreadline(row.text, number, dest), std::strlen(row.lines[i]));
        }
        for (std::int32_t number : {0, -1, INT_MIN, INT_MAX, static_cast<std::int32_t>(row.lines.size()) + 1})
            EXPECT_EQ(readLine(row.text, number), "") << number << " of " << row.text;
    }
    EXPECT_EQ(lib().LineCount(std::string(10000, '\n').c_str()), 10001);
    EXPECT_EQ(lib().LineCount("") + lib().LineCount(nullptr), 0);
    Dest dest(1);
    EXPECT_STREQ(lib().ReadLine(nullptr, 1, dest), "");
    EXPECT_EQ(lib().ReadLine("a", 1, nullptr), nullptr);
}

std::string readTwin(const std::string& text, int number) {
    std::size_t start = 0;
    int lines = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool feedFollows = i + 1 < text.size() && text[i + 1] == '\n';
        bool pair = (text[i] == '\r' || text[i] == '\x8D') && feedFollows;
        if (pair || text[i] == '\n') {
            if (++lines == number) return text.substr(start, i - start);
            start = i += pair;
            ++start;
        } else if (text[i] == '\r') {
            start = i + 1;
        }
    }
    return lines + 1 == number ? text.substr(start) : "";
}

TEST(Lines, RandomTextsAgainstTheTwin) {
    RandomTexts random(27);
    for (int i = 0; i < 3000; ++i) {
        std::string text = random.text("ab\r\n\n\x8D", i % 16 ? 24 : 9000);
        int count = static_cast<int>(std::count(text.begin(), text.end(), '\n')) + 1;
        EXPECT_EQ(lib().LineCount(text.c_str()), text.empty() ? 0 : count);
        int number = random.number(0, std::min(count + 1, 9));
        EXPECT_EQ(readLine(text, number), readTwin(text, number)) << number << " of " << text;
    }
}

TEST(Tabs, Stops) {
    struct Row {
        std::int32_t column, tabs, fills, next;
    };
    // kept: at column 0 one more than the tab width, which is not clipped there
    for (auto [column, tabs, fills, next] :
         {Row{1, -2, 8, 9}, Row{8, -2, 1, 9}, Row{9, -2, 8, 17}, Row{5, 0, 1, 6}, Row{-5, 0, 1, -4},
          Row{5, INT_MIN, 1, 6}, Row{0, 4, 5, 5}, Row{0, 0, 1, 1}, Row{0, 300, 301, 301},
          Row{0, INT_MAX, INT_MAX, INT_MAX}, Row{1, 300, 255, 256}, Row{256, INT_MAX, 255, 511},
          Row{INT_MAX, 8, 2, INT_MAX}, Row{INT_MIN, 8, 1, INT_MAX}}) {
        EXPECT_EQ(lib().TabStop(column, tabs), fills) << column << ", " << tabs;
        EXPECT_EQ(lib().NextTabStop(column, tabs), next) << column << ", " << tabs;
    }
    for (int tabs = 1; tabs < 300; ++tabs) {
        int stop = 1;
        for (int column = 1; column < 600; ++column) {
            if (column == stop) stop += std::min(tabs, 255);
            ASSERT_EQ(lib().NextTabStop(column, tabs), stop) << column << ", " << tabs;
            ASSERT_EQ(lib().TabStop(-column, tabs), stop - column) << column << ", " << tabs;
        }
    }
}

TEST(Tabs, Expanded) {
    struct Row {
        const char* text;
        std::int32_t tabs;
        const char* fill;
        std::string result;
    };
    const Row rows[] = {
        {"a\tb", 4, " ", "a   b"},
        {"\t", -2, ".-", "........"},
        {"a\t", 0, ".", "a."},
        {"a\t", INT_MIN, ".", "a."},
        {"a\tb", 9999, ".", "a" + std::string(254, '.') + "b"},
        {"abc\na\tb\r\n\tc\x8D\n\t", 4, ".", "abc\na...b\r\n....c\x8D\n...."},
        {"a\r\tb", 4, ".", "a\r..b"},  // a carriage return by itself ends no line
    };
    for (const Row& row : rows) {
        EXPECT_EQ(tabExpand(row.text, row.tabs, row.fill), row.result) << row.text;
        Dest dest(row.result.size() + 1);
        EXPECT_EQ(lib().strtabexpand(row.text, row.tabs, row.fill, dest), row.result.size());
    }
    EXPECT_EQ(lib().SetFillChar('*'), ' ');
    EXPECT_EQ(tabExpand("\ta", 2, nullptr) + tabExpand("\tb", 2, ""), "**a**b");
    EXPECT_EQ(lib().SetFillChar(' '), '*');
    Dest dest(1);
    EXPECT_STREQ(lib().TabExpand(nullptr, 4, " ", dest), "");
    EXPECT_EQ(lib().TabExpand("\t", 4, " ", nullptr), nullptr);

    RandomTexts random(28);
    for (int i = 0; i < 2000; ++i) {
        std::string text = random.text("abc\t\t\r\n", 30);
        int tabs = random.number(1, 10);
        std::string twin, line;
        for (char c : text) {
            line += c == '\t' ? '.' : c;
            while (c == '\t' && line.size() % size(tabs) != 0) line += '.';
            if (c == '\n') twin += std::exchange(line, "");
        }
        EXPECT_EQ(tabExpand(text, tabs, "."), twin + line) << text << ", " << tabs;
    }
}

TEST(Justify, InAField) {
    struct Row {
        const char* text;
        std::int32_t width, mode;
        const char* result;
    };
    // The blanks go before what is too long is cut, at its end in every mode.
    for (auto [text, width, mode, result] :
         {Row{"  ab ", 6, 1, "  ab x"}, Row{"  ab ", 6, 2, "ab xxx"}, Row{"  ab ", 6, 3, "xxxab "},
          Row{"  ab ", 6, 0, "xxxxab"}, Row{"  ab ", 6, -7, "xxxxab"}, Row{"  abcd  ", 5, 3, "abcd "},
          Row{"  abcd  ", 4, 0, "abcd"}, Row{"   ", 2, 0, "xx"}, Row{"\ta", 3, 2, "\tax"}, Row{"a", 0, 1, ""},
          Row{"a", INT_MIN, 3, ""}}) {
        EXPECT_EQ(justify(text, width, mode, "xy"), result) << text << ", " << width << ", " << mode;
        Dest dest(size(width) + 1);
        EXPECT_EQ(lib().strstrjustify(text, width, mode, "x", dest), std::strlen(result));
    }
    EXPECT_EQ(lib().SetFillChar('*'), ' ');
    EXPECT_EQ(justify("a", 2, 0, nullptr) + justify("b", 2, 1, ""), "*ab*");
    EXPECT_EQ(lib().SetFillChar(' '), '*');
    Dest dest(4);
    EXPECT_STREQ(lib().StrJustify(nullptr, 3, 1, "x", dest), "") << "no text, no field";
    EXPECT_EQ(lib().StrJustify("a", 3, 1, "x", nullptr), nullptr);

    RandomTexts random(29);
    for (int i = 0; i < 3000; ++i) {
        std::string text = random.text("ab  ", 12);
        std::int32_t width = random.number(1, 14);
        std::int32_t mode = random.number(0, 4);
        std::string content = text;
        while (mode != 1 && content.starts_with(' ')) content.erase(0, 1);
        while ((mode == 0 || mode == 4) && content.ends_with(' ')) content.pop_back();
        content.resize(std::min(content.size(), size(width)));
        while (content.size() < size(width)) content.insert(mode == 1 || mode == 2 ? content.size() : 0, "x");
        EXPECT_EQ(justify(text, width, mode, "x"), content) << "[" << text << "] " << width << ", " << mode;
    }
}

}  // namespace
}  // namespace vx::test
