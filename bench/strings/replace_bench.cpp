// Search and replace against a loop over memmem.
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "bench/strings/prose.h"
#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;

std::size_t replaced(const char* text, const char* search, const char* replacement, char* dest) {
    std::string_view all = text;
    std::string_view wanted = search;
    std::string_view put = replacement;
    const char* from = all.data();
    const char* end = from + all.size();
    char* to = dest;
    while (const void* found = memmem(from, static_cast<std::size_t>(end - from), wanted.data(), wanted.size())) {
        const char* at = static_cast<const char*>(found);
        std::memcpy(to, from, static_cast<std::size_t>(at - from));
        to += at - from;
        std::memcpy(to, put.data(), put.size());
        to += put.size();
        from = at + wanted.size();
    }
    std::memcpy(to, from, static_cast<std::size_t>(end - from) + 1);
    return static_cast<std::size_t>(to - dest + (end - from));
}

void row(const std::string& name, const std::string& content, const char* search, const char* replacement,
         bool blind = false) {
    auto text = std::make_shared<const std::string>(content);
    auto dest = std::make_shared<std::string>(content.size() * (1 + std::strlen(replacement)) + 1, '\0');
    auto ours = [=](auto call) { return call(text->c_str(), search, replacement, 1, -2, dest->data()); };
    pair(
        name, content.size() > 100 ? content.size() : 0, [=] { return ours(blind ? lib().StrTrani : lib().StrTran); },
        [=] { return replaced(text->c_str(), search, replacement, dest->data()); });
}

const Cases cases([] {
    std::string prose = proseOf(1 << 20);
    row("StrTran/frequent/1MB", prose, "the", "this");
    row("StrTran/commas/1MB", prose, ", ", ",");
    row("StrTran/blanks/1MB", prose, " ", "__");
    row("StrTran/rare/1MB", prose, "walking crossing", "riding");
    row("StrTran/none/1MB", prose, "a zebra crossing", "");
    row("StrTrani/none/1MB", prose, "a zebra crossing", "", true);
    row("StrTran/30B", "12.345.678,90 and 1.000.000,00", ".", ",");
    row("StrTran/40B none", "nothing to be replaced in this one either", "xyz", "---");
    row("StrTrani/40B none", "nothing to be replaced in this one either", "xyz", "---", true);
});

}  // namespace
}  // namespace vx::bench
