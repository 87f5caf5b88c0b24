// Regular expressions against PCRE2's compiled code and RE2 on the same work: every export call gets the pattern as
// text, the peers have it compiled once, and their walks start one character behind the last match's start, too.
#include <cstring>
#include <memory>
#include <random>

#include "bench/support/pair.h"
#include "tests/support/library.h"

#ifdef BENCH_HAS_PCRE2_8
#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>
#endif
#ifdef BENCH_HAS_RE2
#include <re2/re2.h>
#endif

namespace vx::bench {
namespace {

using test::lib;
using Text = std::shared_ptr<std::string>;

struct Pattern {
    const char* name;
    const char* ours;
    const char* theirs;
};

#ifdef BENCH_HAS_PCRE2_8
// Offset of the first match at or behind a place, or -1.
auto pcre2(const Pattern& pattern) {
    int error;
    PCRE2_SIZE offset;
    std::shared_ptr<pcre2_code> code(pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern.theirs), PCRE2_ZERO_TERMINATED,
                                                   PCRE2_DOTALL, &error, &offset, nullptr),
                                     pcre2_code_free);
    pcre2_jit_compile(code.get(), PCRE2_JIT_COMPLETE);
    std::shared_ptr<pcre2_match_data> data(pcre2_match_data_create_from_pattern(code.get(), nullptr),
                                           pcre2_match_data_free);
    return [=](const std::string& text, std::size_t from) {
        int found = pcre2_jit_match(code.get(), reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(), from, 0,
                                    data.get(), nullptr);
        return found < 0 ? -1 : static_cast<std::ptrdiff_t>(pcre2_get_ovector_pointer(data.get())[0]);
    };
}
#endif

#ifdef BENCH_HAS_RE2
auto re2(const Pattern& pattern) {
    RE2::Options options;
    options.set_dot_nl(true);
    options.set_encoding(RE2::Options::EncodingLatin1);
    auto code = std::make_shared<RE2>(pattern.theirs, options);
    return [=](const std::string& text, std::size_t from) -> std::ptrdiff_t {
        re2::StringPiece match;
        if (!code->Match(text, from, text.size(), RE2::UNANCHORED, &match, 1)) return -1;
        return match.data() - text.data();
    };
}
#endif

template <class Search>
auto searchOnce(Text text, Search search) {
    return [=] { return search(*text, 0) + 1; };
}

template <class Search>
auto countAll(Text text, Search search) {
    return [=] {
        int count = 0;
        for (std::ptrdiff_t at = 0; (at = search(*text, static_cast<std::size_t>(at))) >= 0; ++at) ++count;
        return count;
    };
}

void at([[maybe_unused]] const char* size, [[maybe_unused]] Pattern pattern, [[maybe_unused]] Text text) {
    [[maybe_unused]] std::string name = std::string("RegAt/") + size + "/" + pattern.name;
    [[maybe_unused]] auto ours = [=, call = lib().RegAt] { return call(pattern.ours, text->c_str()); };
#ifdef BENCH_HAS_PCRE2_8
    pair(name + "/pcre2", 0, ours, searchOnce(text, pcre2(pattern)));
#endif
#ifdef BENCH_HAS_RE2
    if (!std::strstr(pattern.theirs, "\\1")) pair(name + "/re2", 0, ours, searchOnce(text, re2(pattern)));
#endif
}

void count([[maybe_unused]] Pattern pattern, [[maybe_unused]] Text text) {
    [[maybe_unused]] std::string name = std::string("RegCount/1MB/") + pattern.name;
    [[maybe_unused]] auto ours = [=, call = lib().RegCount] { return call(pattern.ours, text->c_str()); };
#ifdef BENCH_HAS_PCRE2_8
    pair(name + "/pcre2", text->size(), ours, countAll(text, pcre2(pattern)));
#endif
#ifdef BENCH_HAS_RE2
    pair(name + "/re2", text->size(), ours, countAll(text, re2(pattern)));
#endif
}

// Words of 1 to 9 letters, numbers and punctuation.
Text prose(std::size_t size) {
    std::mt19937 random(7);
    auto text = std::make_shared<std::string>();
    const char letters[] = "eeeeeeetttttaaaaaooooiiiinnnnssssrrrrhhhllddduuccmmwwffggyyppbbvvkjxq";
    while (text->size() < size) {
        if (random() % 25 == 0) {
            *text += std::to_string(random() % 2000);
        } else {
            for (unsigned k = 1 + random() % 9; k > 0; --k) *text += letters[random() % (sizeof letters - 1)];
        }
        *text += random() % 12 == 0 ? ". " : random() % 15 == 0 ? "\r\n" : " ";
    }
    text->resize(size);
    return text;
}

const Cases cases([] {
    auto line = std::make_shared<std::string>("Invoice 20417: 3 items, due 30/06, ab12.");
    for (Pattern pattern : {Pattern{"literal", "items", "items"},
                            {"class", "[0-9]/[0-9]", "[0-9]/[0-9]"},
                            {"any", "I.*due", "I.*due"},
                            {"closure", "0+6", "0+6"},
                            {"word", "\\<due\\>", "\\bdue\\b"},
                            {"reference", "\\(.\\)\\1", "(.)\\1"},
                            {"none", "[0-9][0-9]:[a-z]", "[0-9][0-9]:[a-z]"}})
        at("40B", pattern, line);

    auto as = std::make_shared<std::string>(2000, 'a');
    auto xs = std::make_shared<std::string>(2000, 'x');
    at("2000a", {".*.*.*x", ".*.*.*x", ".*.*.*x"}, as);
    at("2000a", {".*a.*a.*x", ".*a.*a.*x", ".*a.*a.*x"}, as);
    at("2000x", {"x*x*x*[yz]", "x*x*x*[yz]", "x*x*x*[yz]"}, xs);
    static const std::string longest = std::string(200, 'x') + "[yz]";
    at("2000x", {"x 200 times[yz]", longest.c_str(), longest.c_str()}, xs);
    auto group = std::make_shared<std::string>("ab" + *xs + "bay");
    at("2000x", {"(ab)x*x*x*\\1y", "\\(ab\\)x*x*x*\\1y", "(ab)x*x*x*\\1y"}, group);

    Text text = prose(1 << 20);
    for (Pattern pattern : {Pattern{"literal", "stone", "stone"},
                            {"rare literal", "qxj", "qxj"},
                            {"class", "[0-9]+", "[0-9]+"},
                            {"any", "th.*q", "th.*q"},
                            {"closure", "e+s t", "e+s t"},
                            {"dense", "[a-z].[0-9]", "[a-z].[0-9]"},
                            {"letters", "[a-z][a-z][a-z][a-z]", "[a-z][a-z][a-z][a-z]"},
                            {"words", "\\<t[a-z]", "\\bt[a-z]"}})
        count(pattern, text);
    auto twice = prose(1 << 16);
    at("64KB", {"reference", "\\(..\\)\\1\\1", "(..)\\1\\1"}, twice);
});

}  // namespace
}  // namespace vx::bench
