// Similarity against a one-word bit-parallel search for short patterns and, for long ones, the edlib library.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <string_view>

#include "bench/support/pair.h"
#include "tests/support/library.h"

#ifdef BENCH_HAS_EDLIB
#include <edlib.h>
#endif

namespace vx::bench {
namespace {

using test::lib;

// Patterns of up to 64 characters.
int oneWord(std::string_view pattern, std::string_view text) {
    std::uint64_t equal[256] = {};
    for (std::size_t i = 0; i < pattern.size(); ++i) equal[static_cast<unsigned char>(pattern[i])] |= 1ull << i;
    std::uint64_t rise = ~0ull;
    std::uint64_t fall = 0;
    const std::size_t top = pattern.size() - 1;
    int distance = static_cast<int>(pattern.size());
    int smallest = distance;
    for (char c : text) {
        std::uint64_t match = equal[static_cast<unsigned char>(c)];
        std::uint64_t vertical = match | fall;
        std::uint64_t diagonal = (((match & rise) + rise) ^ rise) | match;
        std::uint64_t rises = fall | ~(diagonal | rise);
        std::uint64_t falls = rise & diagonal;
        distance += static_cast<int>(rises >> top & 1) - static_cast<int>(falls >> top & 1);
        rises <<= 1;
        rise = falls << 1 | ~(vertical | rises);
        fall = rises & vertical;
        smallest = std::min(smallest, distance);
    }
    const int m = static_cast<int>(pattern.size());
    return 200 * (m - smallest) / (m + static_cast<int>(text.size()));
}

// `alike` is the share of the pattern that the text holds, in per cent; 0 for a text that has nothing of it.
void compare(std::size_t m, std::size_t n, int letters, int alike, const char* peer) {
    std::mt19937 random(5);
    auto text = [&random, letters](std::size_t size) {
        std::string result(size, '\0');
        for (char& c : result) c = static_cast<char>('a' + random() % static_cast<unsigned>(letters));
        return result;
    };
    auto a = std::make_shared<std::string>(text(m));
    auto b = std::make_shared<std::string>(text(n));
    if (alike && n >= m) {
        std::string copy = *a;
        for (std::size_t i = 0; i < m * static_cast<std::size_t>(100 - alike) / 100; ++i) copy[random() % m] = '#';
        b->replace((n - m) * 3 / 4, m, copy);
    }
    const std::string name = "Similarity/" + std::to_string(m) + "x" + std::to_string(n) +
                             "/letters:" + std::to_string(letters) + "/alike:" + std::to_string(alike);
    auto ours = [=, call = lib().Similarity] { return call(a->c_str(), b->c_str()); };
    if (!*peer) pair(name, 0, ours, [=] { return oneWord(a->c_str(), b->c_str()); });
#ifdef BENCH_HAS_EDLIB
    if (*peer) {
        pair(name, 0, ours, [=] {
            const EdlibAlignConfig config = edlibNewAlignConfig(-1, EDLIB_MODE_HW, EDLIB_TASK_DISTANCE, nullptr, 0);
            const int size = static_cast<int>(a->size());
            const int textSize = static_cast<int>(b->size());
            EdlibAlignResult result = edlibAlign(a->data(), size, b->data(), textSize, config);
            const int score = 200 * (size - result.editDistance) / (size + textSize);
            edlibFreeAlignResult(result);
            return score;
        });
    }
#endif
}

const Cases cases([] {
    compare(15, 20, 26, 80, "");
    compare(5, 8, 26, 80, "");
    compare(64, 1000, 26, 80, "");
    for (int letters : {4, 26}) {
        for (int alike : {0, 75, 90, 95, 100}) {
            compare(200, 10000, letters, alike, "edlib");
            compare(1000, 100000, letters, alike, "edlib");
        }
    }
    compare(100, 100000, 26, 90, "edlib");
    compare(3000, 20000, 26, 90, "edlib");
});

}  // namespace
}  // namespace vx::bench
