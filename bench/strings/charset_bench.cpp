// Character sets against the C library and plain table loops.
#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <string_view>
#include <vector>

#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;

// Texts in turn, so that no short one is learned by heart by the processor.
class Texts {
 public:
    explicit Texts(std::size_t size) : size_(size), texts_(size < 1000 ? 512 : 1, std::string(size, '\0')) {
        std::mt19937 engine(7);
        for (std::string& text : texts_) {
            for (char& c : text) c = static_cast<char>(' ' + engine() % 95);
        }
    }
    const char* next() { return texts_[++at_ % texts_.size()].c_str(); }
    std::size_t size() const { return size_; }

 private:
    std::size_t size_;
    std::size_t at_ = 0;
    std::vector<std::string> texts_;
};

std::uint8_t code(char c) { return static_cast<std::uint8_t>(c); }

char* kept(const char* set, std::string_view text, char* to) {
    bool wanted[256] = {};
    for (; *set; ++set) wanted[code(*set)] = true;
    for (char c : text) {
        *to = c;
        to += wanted[code(c)];
    }
    *to = '\0';
    return to;
}

int total(const char* set, std::string_view text) {
    bool wanted[256] = {};
    for (; *set; ++set) wanted[code(*set)] = true;
    return static_cast<int>(std::count_if(text.begin(), text.end(), [&](char c) { return wanted[code(c)]; }));
}

char* unique(std::string_view text, char* dest) {
    bool seen[256] = {};
    char* to = dest;
    for (char c : text) {
        if (seen[code(c)]) continue;
        seen[code(c)] = true;
        *to++ = c;
    }
    *to = '\0';
    return dest;
}

char* counted(char* text, std::size_t size) {
    std::size_t counts[256] = {};
    for (std::size_t i = 0; i < size; ++i) ++counts[code(text[i])];
    char* to = text;
    for (int c = 0; c < 256; ++c) {
        std::memset(to, c, counts[c]);
        to += counts[c];
    }
    return text;
}

char* sorted(char* text) {
    std::size_t size = std::strlen(text);
    if (size > 1000) return counted(text, size);
    std::sort(text, text + size, [](char a, char b) { return code(a) < code(b); });
    return text;
}

void sets(const char* size, std::size_t bytes) {
    auto text = std::make_shared<Texts>(bytes);
    auto dest = std::make_shared<std::string>(bytes + 1, '\0');
    std::string suffix = std::string("/") + size;
    const char* set = "aeiouAEIOU0123456789";
    const char* absent = "\t\r\n";
    auto all = std::make_shared<std::string>(" ");
    for (int c = '!'; c < 127; ++c) *all += static_cast<char>(c);
    pair(
        "ChrAny" + suffix, bytes, [=, call = lib().ChrAny] { return call(absent, text->next()); },
        [=] { return std::strpbrk(text->next(), absent) != nullptr; });
    pair(
        "ChrFound" + suffix, bytes, [=, call = lib().ChrFound] { return call(text->next(), all->c_str()); },
        [=] { return std::strspn(text->next(), all->c_str()) == text->size(); });
    pair(
        "ChrTotal" + suffix, bytes, [=, call = lib().ChrTotal] { return call(set, text->next()); },
        [=] { return total(set, text->next()); });
    pair(
        "ChrKeep" + suffix, bytes, [=, call = lib().ChrKeep] { return call(set, text->next(), dest->data()); },
        [=] { return kept(set, text->next(), dest->data()); });
    pair(
        "ChrUnique" + suffix, bytes, [=, call = lib().ChrUnique] { return call(text->next(), dest->data()); },
        [=] { return unique(text->next(), dest->data()); });
    // The unsorted text is put back each time, on both sides.
    pair(
        "ChrSort" + suffix, bytes,
        [=, call = lib().ChrSort] {
            std::memcpy(dest->data(), text->next(), bytes);
            return call(dest->data(), 0);
        },
        [=] {
            std::memcpy(dest->data(), text->next(), bytes);
            return sorted(dest->data());
        });
}

const Cases cases([] {
    sets("20B", 20);
    sets("40B", 40);
    sets("300B", 300);
    sets("1MB", 1 << 20);
});

}  // namespace
}  // namespace vx::bench
