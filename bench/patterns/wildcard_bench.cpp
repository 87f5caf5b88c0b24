// Wildcard matching against a plain iterative matcher, the C library's fnmatch and memmem, and searches in a loop.
#include <fnmatch.h>

#include <cstring>
#include <memory>
#include <string>

#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;

// The usual matcher: on a mismatch, the latest star takes one character more.
bool iterative(const char* pattern, const char* text) {
    const char* star = nullptr;
    const char* retry = nullptr;
    while (*text) {
        if (*pattern == '*') {
            star = ++pattern;
            retry = text;
        } else if (*pattern && (*pattern == '?' || *pattern == *text)) {
            ++pattern;
            ++text;
        } else if (star) {
            pattern = star;
            text = ++retry;
        } else {
            return false;
        }
    }
    while (*pattern == '*') ++pattern;
    return !*pattern;
}

void shortText(const char* name, const char* pattern, const char* text) {
    pair(
        name, 0, [=, call = lib().WildCard] { return call(pattern, text, 1); },
        [=] {
            benchmark::DoNotOptimize(pattern);
            return iterative(pattern, text);
        });
}

const Cases cases([] {
    shortText("WildCard/20B", "rep*_??.t*", "report_of_may_02.txt");
    shortText("WildCard/20B/suffix", "*.txt", "report_of_may_02.txt");
    shortText("WildCard/20B/word", "*may*", "report_of_may_02.txt");
    shortText("WildCard/20B/literal", "report_of_may_??.txt", "report_of_may_02.txt");
    for (std::size_t size : {2000, 20000}) {
        auto same = std::make_shared<std::string>(size, 'a');
        pair(
            "WildCard/spiteful/" + std::to_string(size), 0,
            [=, call = lib().WildCard] { return call("*a*a*a*a*a*b", same->c_str(), 1); },
            [=] { return fnmatch("*a*a*a*a*a*b", same->c_str(), 0); });
        pair(
            "WildCard/spiteful/inside/" + std::to_string(size), 0,
            [=, call = lib().WildCard] { return call("*a*a*a*a*a*b*", same->c_str(), 1); },
            [=] { return fnmatch("*a*a*a*a*a*b*", same->c_str(), 0); });
    }
    std::string prose;
    while (prose.size() < (1 << 20)) prose += "it was the best of times, it was the worst of times; ";
    auto rare = std::make_shared<std::string>(prose + "rarest" + prose.substr(0, 1000));
    auto find = [=](const char* needle) {
        return memmem(rare->data(), std::strlen(rare->c_str()), needle, std::strlen(needle)) != nullptr;
    };
    pair(
        "WildCard/1MB/rare", rare->size(), [=, call = lib().WildCard] { return call("*rare*", rare->c_str(), 1); },
        [=] { return find("rare"); });
    pair(
        "WildCard/1MB/rare/blind", rare->size(),
        [=, call = lib().WildCard] { return call("*rAre*", rare->c_str(), 0); }, [=] { return find("rare"); });
    pair(
        "WildCard/1MB/rare/question", rare->size(),
        [=, call = lib().WildCard] { return call("*ra?es?*", rare->c_str(), 1); }, [=] { return find("rarest"); });
    pair(
        "WildCount/1MB", rare->size(), [=, call = lib().WildCount] { return call("*times*", rare->c_str(), 1); },
        [=] {
            std::size_t count = 0;
            for (const char* at = rare->c_str(); (at = std::strstr(at, "times")); at += 5) ++count;
            return count;
        });
});

}  // namespace
}  // namespace vx::bench
