// Comparison and substitution against the C library and plain loops.
#include <strings.h>

#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;
using Text = std::shared_ptr<const std::string>;

Text text(std::string content) { return std::make_shared<const std::string>(std::move(content)); }

void compares(const std::string& size, Text a, Text b, Text otherCase) {
    pair(
        "StrCmp/" + size, 0, [=] { return lib().StrCmp(a->c_str(), b->c_str()); },
        [=] { return std::string_view(a->c_str()).compare(b->c_str()); });
    pair(
        "StrCmp, libc/" + size, 0, [=] { return lib().StrCmp(a->c_str(), b->c_str()); },
        [=] { return std::strcmp(a->c_str(), b->c_str()); });
    pair(
        "StrnCmp/" + size, 0, [=] { return lib().StrnCmp(a->c_str(), b->c_str(), 1 << 20); },
        [=] { return std::strncmp(a->c_str(), b->c_str(), 1 << 20); });
    pair(
        "StrCmpi/" + size, 0, [=] { return lib().StrCmpi(a->c_str(), otherCase->c_str()); },
        [=] { return strcasecmp(a->c_str(), otherCase->c_str()); });
}

char* keep(const char* text, std::size_t step, char* dest) {
    std::size_t size = std::strlen(text);
    char* to = dest;
    for (std::size_t i = 0; i < size; i += step) *to++ = text[i];
    *to = '\0';
    return dest;
}

char* expand(const char* text, std::size_t gap, char fill, char* dest) {
    char* to = dest;
    for (; *text; ++text) {
        *to++ = *text;
        if (!text[1]) break;
        for (std::size_t i = 0; i < gap; ++i) *to++ = fill;
    }
    *to = '\0';
    return dest;
}

char* switched(const char* text, char* dest) {
    char* to = dest;
    for (; *text; ++text) {
        bool letter = static_cast<unsigned>((*text | 0x20) - 'a') < 26;
        *to++ = static_cast<char>(letter ? *text ^ 0x20 : *text);
    }
    *to = '\0';
    return dest;
}

const Cases cases([] {
    compares("early", text("Miller, Arthur, Springfield"), text("Mason, Perry, Los Angeles"),
             text("mason, Perry, Los Angeles"));
    compares("30B", text("Miller, Arthur, Springfield IL"), text("Miller, Arthur, Springfield MA"),
             text("MILLER, Arthur, Springfield ma"));
    compares("1MB", text(std::string(1 << 20, 'x') + "a"), text(std::string(1 << 20, 'x') + "b"),
             text(std::string(1 << 20, 'X') + "b"));
    for (std::size_t size : {std::size_t{30}, std::size_t{1} << 20}) {
        Text source = text(std::string(size / 10 * 10, '-').replace(0, 9, "Abc Def 1"));
        auto dest = std::make_shared<std::string>(3 * size + 1, '\0');
        std::string suffix = size < 100 ? "/30B" : "/1MB";
        pair(
            "StrSwitch" + suffix, 0, [=] { return lib().StrSwitch(source->c_str(), dest->data()); },
            [=] { return switched(source->c_str(), dest->data()); });
        pair(
            "StrKeep" + suffix, 0, [=] { return lib().StrKeep(source->c_str(), 1, 2, dest->data()); },
            [=] { return keep(source->c_str(), 2, dest->data()); });
        pair(
            "StrExpand" + suffix, 0, [=] { return lib().StrExpand(source->c_str(), 1, "x", dest->data()); },
            [=] { return expand(source->c_str(), 1, 'x', dest->data()); });
    }
    Text fields = text("Miller,Arthur,12 Main Street,Springfield");
    Text elm = text("Elm Street");
    auto dest = std::make_shared<std::string>(64, '\0');
    pair(
        "StrSwap/40B", 0, [=] { return lib().StrSwap(fields->c_str(), ",", 3, elm->c_str(), dest->data()); },
        [=] {
            std::string_view all = fields->c_str();
            std::size_t from = all.find(',', all.find(',') + 1) + 1;
            std::size_t to = std::min(all.find(',', from), all.size());
            std::memcpy(dest->data(), all.data(), from);
            std::string_view put = elm->c_str();
            std::memcpy(dest->data() + from, put.data(), put.size());
            std::memcpy(dest->data() + from + put.size(), all.data() + to, all.size() - to + 1);
            return dest->data();
        });
});

}  // namespace
}  // namespace vx::bench
