// Substrings against plain string_view code with the same result in the same kind of buffer.
#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>

#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;

char* put(char* to, std::string_view text) {
    std::memcpy(to, text.data(), text.size());
    to[text.size()] = '\0';
    return to;
}

[[gnu::noipa]] char* piece(std::string_view text, std::size_t start, std::size_t count, char* to) {
    return put(to, text.substr(start, count));
}

[[gnu::noipa]] char* replaced(const char* whole, std::size_t start, std::size_t remove, const char* insert, char* to) {
    std::string_view text = whole;
    std::string_view added = insert;
    std::memcpy(to, text.data(), start);
    std::memcpy(to + start, added.data(), added.size());
    put(to + start + added.size(), text.substr(start + remove));
    return to;
}

void pieces(const char* size, std::size_t bytes) {
    auto text = std::make_shared<std::string>(bytes, 'x');
    auto dest = std::make_shared<std::string>(bytes + 8, '\0');
    std::int32_t half = static_cast<std::int32_t>(bytes / 2);
    std::size_t count = bytes / 2;
    std::string suffix = std::string("/") + size;
    pair(
        "Left" + suffix, bytes, [=, call = lib().Left] { return call(text->c_str(), half, dest->data()); },
        [=] { return piece(text->c_str(), 0, count, dest->data()); });
    pair(
        "Right" + suffix, bytes, [=, call = lib().Right] { return call(text->c_str(), half, dest->data()); },
        [=] {
            std::string_view all = text->c_str();
            return piece(all, all.size() - std::min(all.size(), count), count, dest->data());
        });
    pair(
        "SubStr" + suffix, bytes, [=, call = lib().SubStr] { return call(text->c_str(), 4, half, dest->data()); },
        [=] { return piece(text->c_str(), 3, count, dest->data()); });
    pair(
        "Stuff" + suffix, bytes, [=, call = lib().Stuff] { return call(text->c_str(), 8, 4, "stuffed", dest->data()); },
        [=] { return replaced(text->c_str(), 7, 4, "stuffed", dest->data()); });
}

const Cases cases([] {
    pieces("30B", 30);
    pieces("1MB", 1 << 20);
});

}  // namespace
}  // namespace vx::bench
