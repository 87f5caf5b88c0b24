// Trimming against plain string_view code with the same result in the same kind of buffer.
#include <cstring>
#include <memory>
#include <string_view>

#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;

std::string blanksAround(std::size_t size) { return "   " + std::string(size - 6, 'x') + "   "; }

std::size_t put(char* to, std::string_view text) {
    std::memcpy(to, text.data(), text.size());
    to[text.size()] = '\0';
    return text.size();
}

std::string_view left(std::string_view text) { return text.substr(std::min(text.find_first_not_of(' '), text.size())); }
std::string_view right(std::string_view text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

void trims(const char* size, std::size_t bytes) {
    auto text = std::make_shared<std::string>(blanksAround(bytes));
    auto dest = std::make_shared<std::string>(bytes + 1, '\0');
    std::string suffix = std::string("/") + size;
    pair(
        "AllTrim" + suffix, bytes, [=, call = lib().AllTrim] { return call(text->c_str(), dest->data()); },
        [=] { return put(dest->data(), right(left(text->c_str()))); });
    pair(
        "LTrim" + suffix, bytes, [=, call = lib().LTrim] { return call(text->c_str(), dest->data()); },
        [=] { return put(dest->data(), left(text->c_str())); });
    pair(
        "RTrim" + suffix, bytes, [=, call = lib().RTrim] { return call(text->c_str(), dest->data()); },
        [=] { return put(dest->data(), right(text->c_str())); });
    pair(
        "ChrTrim" + suffix, bytes, [=, call = lib().ChrTrim] { return call(text->c_str(), " \t-", 0, dest->data()); },
        [=] {
            std::string_view all = text->c_str();
            std::size_t first = all.find_first_not_of(" \t-");
            return put(dest->data(), all.substr(first, all.find_last_not_of(" \t-") + 1 - first));
        });
    pair(
        "RJust" + suffix, bytes, [=, call = lib().RJust] { return call(text->c_str(), dest->data()); },
        [=] {
            std::string_view all = text->c_str();
            std::string_view kept = right(left(all));
            std::memset(dest->data(), ' ', all.size() - kept.size());
            return put(dest->data() + all.size() - kept.size(), kept);
        });
}

const Cases cases([] {
    trims("20B", 20);
    trims("1MB", 1 << 20);
});

}  // namespace
}  // namespace vx::bench
