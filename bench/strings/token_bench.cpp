// Tokens against what a program would write for itself: strspn, string_view searches, flag tables.
#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;

constexpr const char* kGiven = " ,;";
constexpr const char* kDefault = " .,-\t\n\r\x8A\x8D!?/;:()^#&%+*\"'\x1A";

struct Flags {
    bool of[256] = {};

    explicit Flags(const char* set) {
        for (; *set; ++set) of[static_cast<unsigned char>(*set)] = true;
    }
    bool operator()(char c) const { return of[static_cast<unsigned char>(c)]; }
};

std::string words(std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) text += "the quick, brown fox; jumps over a dog, ";
    text.resize(bytes);
    return text;
}

std::size_t put(char* to, std::string_view piece) {
    std::memcpy(to, piece.data(), piece.size());
    to[piece.size()] = '\0';
    return piece.size();
}

std::size_t bySpan(const char* text, const char* set, int n, char* dest) {
    for (;;) {
        text += std::strspn(text, set);
        std::size_t length = std::strcspn(text, set);
        if (--n == 0 || length == 0) return put(dest, {text, length});
        text += length;
    }
}

std::size_t byView(std::string_view text, std::string_view set, int n, char* dest) {
    std::size_t end = 0;
    for (;; --n) {
        std::size_t start = text.find_first_not_of(set, end);
        if (start == text.npos) return put(dest, {});
        end = std::min(text.find_first_of(set, start), text.size());
        if (n == 1) return put(dest, text.substr(start, end - start));
    }
}

std::size_t lastByFlags(std::string_view text, const char* set, char* dest) {
    Flags delimits(set);
    std::size_t end = text.size();
    while (end > 0 && delimits(text[end - 1])) --end;
    std::size_t start = end;
    while (start > 0 && !delimits(text[start - 1])) --start;
    return put(dest, text.substr(start, end - start));
}

std::size_t countByFlags(const char* text, const char* set) {
    Flags delimits(set);
    std::size_t count = 0;
    bool before = true;
    for (; *text; ++text) {
        bool now = delimits(*text);
        count += before & !now;
        before = now;
    }
    return count;
}

std::size_t sizeByFlags(const char* text, const char* set) {
    Flags delimits(set);
    std::size_t size = 0;
    for (; *text; ++text) size += !delimits(*text);
    return size;
}

// The count must not be known to the compiler, as it is not to the library.
[[gnu::noipa]] std::size_t spacedByFlags(const char* text, const char* set, std::size_t count, char fill, char* dest) {
    Flags delimits(set);
    char* to = dest;
    while (*text) {
        if (delimits(*text)) {
            ++text;
            continue;
        }
        if (to != dest) {
            for (std::size_t i = 0; i < count; ++i) *to++ = fill;
        }
        while (*text && !delimits(*text)) *to++ = *text++;
    }
    *to = '\0';
    return static_cast<std::size_t>(to - dest);
}

std::size_t swappedByFlags(const char* text, const char* set, int n, const char* replacement, char* dest) {
    Flags delimits(set);
    const char* at = text;
    const char* start = at;
    for (; n > 0; --n) {
        while (*at && delimits(*at)) ++at;
        start = at;
        while (*at && !delimits(*at)) ++at;
    }
    std::size_t before = put(dest, {text, static_cast<std::size_t>(start - text)});
    before += put(dest + before, replacement);
    return before + put(dest + before, at);
}

int matchedByFlags(const char* text, const char* set, const char* match) {
    Flags delimits(set);
    for (int number = 1;; ++number) {
        while (*text && delimits(*text)) ++text;
        if (!*text) return 0;
        const char* start = text;
        while (*text && !delimits(*text)) ++text;
        if (std::strncmp(start, match, static_cast<std::size_t>(text - start)) == 0) return number;
    }
}

std::size_t justifiedByViews(std::string_view text, const char* set, std::size_t width, char* dest) {
    Flags delimits(set);
    std::string_view words[64];
    std::size_t count = 0;
    std::size_t length = 0;
    for (std::size_t i = 0; i < text.size() && count < std::size(words);) {
        if (delimits(text[i])) {
            ++i;
            continue;
        }
        std::size_t start = i;
        while (i < text.size() && !delimits(text[i])) ++i;
        words[count++] = text.substr(start, i - start);
        length += i - start;
    }
    std::memset(dest, ' ', width);
    dest[width] = '\0';
    if (count < 2 || length + count - 1 > width) return 0;
    std::size_t gap = (width - length) / (count - 1);
    std::size_t wider = (width - length) % (count - 1);
    for (std::size_t i = 0; i < count; ++i) {
        std::memcpy(dest, words[i].data(), words[i].size());
        dest += words[i].size() + gap + (count - i - 1 <= wider);
    }
    return count;
}

const Cases cases([] {
    auto line = std::make_shared<std::string>(words(40));
    auto large = std::make_shared<std::string>(words(1 << 20));
    auto dest = std::make_shared<std::string>(3 << 20, '\0');
    auto token = lib().Token;
    pair(
        "Token3/40B", 0, [=] { return token(line->c_str(), kGiven, 3, dest->data()); },
        [=] { return bySpan(line->c_str(), kGiven, 3, dest->data()); });
    pair(
        "Token3Default/40B", 0, [=] { return token(line->c_str(), nullptr, 3, dest->data()); },
        [=] { return byView(line->c_str(), kDefault, 3, dest->data()); });
    pair(
        "Token3/1MB", 0, [=] { return token(large->c_str(), kGiven, 3, dest->data()); },
        [=] { return bySpan(large->c_str(), kGiven, 3, dest->data()); });
    pair(
        "MatchToken/40B", 0, [=, call = lib().MatchToken] { return call(line->c_str(), kGiven, "dog", 1, 1); },
        [=] { return matchedByFlags(line->c_str(), kGiven, "dog"); });
    pair(
        "TokenJustify/40B", 0,
        [=, call = lib().TokenJustify] { return call(line->c_str(), kGiven, 60, 0, dest->data()); },
        [=] { return justifiedByViews(line->c_str(), kGiven, 60, dest->data()); });
    for (auto [size, text] : {std::pair{"/40B", line}, std::pair{"/1MB", large}}) {
        std::size_t bytes = text->size();
        pair(
            std::string("TokenLast") + size, bytes, [=] { return token(text->c_str(), kGiven, -1, dest->data()); },
            [=] { return lastByFlags(text->c_str(), kGiven, dest->data()); });
        pair(
            std::string("NumToken") + size, bytes, [=, call = lib().NumToken] { return call(text->c_str(), kGiven); },
            [=] { return countByFlags(text->c_str(), kGiven); });
        pair(
            std::string("TokenSize") + size, bytes, [=, call = lib().TokenSize] { return call(text->c_str(), kGiven); },
            [=] { return sizeByFlags(text->c_str(), kGiven); });
        pair(
            std::string("SpaceToken") + size, bytes,
            [=, call = lib().SpaceToken] { return call(text->c_str(), kGiven, 2, "-", dest->data()); },
            [=] { return spacedByFlags(text->c_str(), kGiven, 2, '-', dest->data()); });
        pair(
            std::string("SwapToken") + size, bytes,
            [=, call = lib().SwapToken] { return call(text->c_str(), kGiven, 3, "new", dest->data()); },
            [=] { return swappedByFlags(text->c_str(), kGiven, 3, "new", dest->data()); });
    }
});

}  // namespace
}  // namespace vx::bench
