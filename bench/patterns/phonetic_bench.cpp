// Soundex against plain code with the same result; MetaFone against upper-casing the word, which every key begins with.
#include <cstring>

#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;

char* plainSoundex(const char* text, char pad, int length, char* dest) {
    static const char digits[] = "01230120022455012623010202";
    int written = 0;
    while (*text == ' ' || *text == '\t') ++text;
    char previous = '0';
    for (bool first = true; *text && written < length; ++text, first = false) {
        char c = *text;
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
        if (first) {
            dest[written++] = c;
            continue;
        }
        char digit = c >= 'A' && c <= 'Z' ? digits[c - 'A'] : '0';
        if (digit == previous) digit = '0';
        if (digit != '0') dest[written++] = digit;
        previous = digit;
    }
    while (written < length) dest[written++] = pad;
    dest[written] = '\0';
    return dest;
}

char* uppered(const char* word, char* dest) {
    std::size_t i = 0;
    for (; word[i]; ++i) dest[i] = static_cast<char>(word[i] >= 'a' && word[i] <= 'z' ? word[i] - 32 : word[i]);
    dest[i] = '\0';
    return dest;
}

void soundex(const std::string& name, const char* text, int length) {
    static char dest[64];
    pair(
        name, 0, [=, call = lib().Soundex] { return call(text, nullptr, length, dest); },
        [=] {
            benchmark::DoNotOptimize(text);
            return plainSoundex(text, '0', length, dest);
        });
}

const Cases cases([] {
    soundex("Soundex/Robertson", "Robertson", 4);
    soundex("Soundex/Lee", "Lee", 4);
    soundex("Soundex/long", "Featherstonehaugh-Cholmondeley", 12);
    static char dest[128];
    for (const char* word : {"Robertson", "Featherstonehaugh"}) {
        pair(
            std::string("MetaFone/") + word, 0, [=, call = lib().MetaFone] { return call(word, dest); },
            [=] {
                benchmark::DoNotOptimize(word);
                return uppered(word, dest);
            });
    }
});

}  // namespace
}  // namespace vx::bench
