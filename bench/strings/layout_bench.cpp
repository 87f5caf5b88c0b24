// Text layout against plain code that walks the text once.
#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;

// Words of one to nine letters, a tab here and there, lines of about sixty characters.
std::string prose(std::size_t size, const char* lineEnd) {
    std::string text;
    for (std::size_t word = 1, line = 0; text.size() < size; ++word) {
        text.append(word * 7 % 9 + 1, 'w') += word % 16 == 0 ? '\t' : ' ';
        if (text.size() - line > 60) {
            text += lineEnd;
            line = text.size();
        }
    }
    text.resize(size);
    return text;
}

std::string_view takeLine(std::string_view& text, std::size_t width) {
    if (text.size() <= width) return std::exchange(text, {});
    std::size_t blank = text.substr(0, width).rfind(' ');
    std::string_view line = text.substr(0, blank == text.npos ? width : blank);
    text.remove_prefix(blank == text.npos ? width : blank + 1);
    return line;
}

[[gnu::noipa]] int wrapCount(std::string_view text, std::size_t width) {
    int lines = 0;
    for (; !text.empty(); ++lines) takeLine(text, width);
    return lines;
}

[[gnu::noipa]] char* wrappedLine(const char* whole, int number, std::size_t width, char* dest) {
    std::string_view text = whole;
    std::string_view line;
    for (; number > 0; --number) line = takeLine(text, width);
    std::memcpy(dest, line.data(), line.size());
    std::memset(dest + line.size(), ' ', width - line.size());
    dest[width] = '\0';
    return dest;
}

[[gnu::noipa]] char* toTheRight(const char* whole, std::size_t width, char* dest) {
    std::string_view text = whole;
    std::size_t start = text.find_first_not_of(' ');
    text = text.substr(start, text.find_last_not_of(' ') + 1 - start);
    std::memset(dest, ' ', width - text.size());
    std::memcpy(dest + width - text.size(), text.data(), text.size());
    dest[width] = '\0';
    return dest;
}

// Breaks at blanks only: less than what MemoWrap has to look at.
char* wrapped(std::string_view text, std::size_t width, char* dest) {
    char* to = dest;
    char* line = dest;
    char* blank = nullptr;
    std::size_t in = 0;
    std::size_t candidate = 0;
    while (in < text.size()) {
        char c = text[in++];
        if (c == '\r' || c == '\n') {
            if (c == '\r' && in < text.size() && text[in] == '\n') ++in;
            *to++ = '\r';
            *to++ = '\n';
            line = to;
            blank = nullptr;
            continue;
        }
        *to++ = c;
        if (c == ' ' || c == '\t') {
            blank = to;
            candidate = in;
        }
        if (static_cast<std::size_t>(to - line) < width) continue;
        if (blank) {
            to = blank;
            in = candidate;
        }
        *to++ = '\x8D';
        *to++ = '\n';
        line = to;
        blank = nullptr;
    }
    *to = '\0';
    return dest;
}

char* expanded(std::string_view text, std::size_t tabs, char* dest) {
    char* to = dest;
    std::size_t column = 0;
    for (char c : text) {
        if (c == '\t') {
            do {
                *to++ = ' ';
                ++column;
            } while (column % tabs != 0);
        } else {
            *to++ = c;
            column = c == '\n' ? 0 : column + 1;
        }
    }
    *to = '\0';
    return dest;
}

std::string_view line(std::string_view text, int number) {
    for (; number > 1; --number) text.remove_prefix(text.find('\n') + 1);
    return text.substr(0, text.find_first_of("\r\n"));
}

char* put(char* to, std::string_view text) {
    std::memcpy(to, text.data(), text.size());
    to[text.size()] = '\0';
    return to;
}

void layouts(const char* size, std::size_t bytes, int lineNumber) {
    auto text = std::make_shared<std::string>(prose(bytes, "\r\n"));
    auto dest = std::make_shared<std::string>(bytes * 3 + 100, '\0');
    std::string suffix = std::string("/") + size;
    pair(
        "WrapCount" + suffix, bytes, [=, call = lib().WrapCount] { return call(text->c_str(), 30); },
        [=] { return wrapCount(text->c_str(), 30); });
    pair(
        "MemoWrap" + suffix, bytes, [=, call = lib().MemoWrap] { return call(text->c_str(), 30, 8, dest->data()); },
        [=] { return wrapped(text->c_str(), 30, dest->data()); });
    pair(
        "TabExpand" + suffix, bytes, [=, call = lib().TabExpand] { return call(text->c_str(), 8, " ", dest->data()); },
        [=] { return expanded(text->c_str(), 8, dest->data()); });
    pair(
        "LineCount" + suffix, bytes, [=, call = lib().LineCount] { return call(text->c_str()); },
        [=] {
            std::string_view all = text->c_str();
            return std::count(all.begin(), all.end(), '\n') + 1;
        });
    pair(
        "ReadLine" + suffix, bytes,
        [=, call = lib().ReadLine] { return call(text->c_str(), lineNumber, dest->data()); },
        [=] { return put(dest->data(), line(text->c_str(), lineNumber)); });
}

const Cases cases([] {
    layouts("40B", 40, 1);
    layouts("1MB", 1 << 20, 5000);
    auto dest = std::make_shared<std::string>(61, '\0');
    pair(
        "StrJustify/20B", 0,
        [=, call = lib().StrJustify] { return call("  some twenty bytes ", 30, 0, " ", dest->data()); },
        [=] { return toTheRight("  some twenty bytes ", 30, dest->data()); });
    const char* fox = "the sharp green fox jumps over some dogs";
    pair(
        "StrWrap/40B", 0, [=, call = lib().StrWrap] { return call(fox, 2, 15, dest->data()); },
        [=] { return wrappedLine(fox, 2, 15, dest->data()); });
});

}  // namespace
}  // namespace vx::bench
