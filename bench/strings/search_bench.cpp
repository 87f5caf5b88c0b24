// Searching against the C library's searches and a plain vector filter, on long texts, short ones and spiteful ones.
#include <emmintrin.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/strings/prose.h"
#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;
using Text = std::shared_ptr<const std::string>;

constexpr std::size_t kLong = 16 << 20;

Text text(std::string content) { return std::make_shared<const std::string>(std::move(content)); }

std::string copies(std::string_view piece, std::size_t size) {
    std::string result;
    while (result.size() < size) result += piece;
    return result;
}

// The next match of first and last byte, verified with memcmp and without any guard; `other` are the two bytes in the
// other case for a case-blind search, or the same ones.
template <class Equal>
const char* filtered(const char* from, const char* end, std::string_view search, std::string_view other, Equal equal) {
    const __m128i firsts[] = {_mm_set1_epi8(search.front()), _mm_set1_epi8(other.front())};
    const __m128i lasts[] = {_mm_set1_epi8(search.back()), _mm_set1_epi8(other.back())};
    auto either = [](__m128i bytes, const __m128i* wanted) {
        return _mm_or_si128(_mm_cmpeq_epi8(bytes, wanted[0]), _mm_cmpeq_epi8(bytes, wanted[1]));
    };
    for (; from + search.size() + 16 <= end; from += 16) {
        __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + search.size() - 1));
        int mask = _mm_movemask_epi8(_mm_and_si128(either(a, firsts), either(b, lasts)));
        for (; mask; mask &= mask - 1) {
            const char* at = from + __builtin_ctz(static_cast<unsigned>(mask));
            if (equal(at)) return at;
        }
    }
    for (; from + search.size() <= end; ++from) {
        if (equal(from)) return from;
    }
    return nullptr;
}

std::size_t countFiltered(const char* target, const char* search) {
    std::string_view wanted = search;
    const char* end = target + std::strlen(target);
    auto equal = [wanted](const char* at) { return std::memcmp(at, wanted.data(), wanted.size()) == 0; };
    std::size_t count = 0;
    for (const char* at = target; (at = filtered(at, end, wanted, wanted, equal)); ++at) ++count;
    return count;
}

const char* filteredBlind(const char* target, const char* search, const char* other) {
    static const std::vector<unsigned char> fold = [] {
        std::vector<unsigned char> table(256);
        for (std::size_t i = 0; i < 256; ++i)
            table[i] = static_cast<unsigned char>(lib().ChrUpper(static_cast<std::int32_t>(i)));
        return table;
    }();
    std::string_view wanted = search;
    auto equal = [wanted](const char* at) {
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            if (fold[static_cast<unsigned char>(at[i])] != fold[static_cast<unsigned char>(wanted[i])]) return false;
        }
        return true;
    };
    return filtered(target, target + std::strlen(target), wanted, other, equal);
}

// Knuth, Morris and Pratt: linear, each match going on where it ended.
std::size_t countLinear(std::string_view target, std::string_view search) {
    std::vector<std::uint32_t> border(search.size() + 1);
    for (std::uint32_t i = 1, k = 0; i < search.size(); ++i) {
        while (k && search[i] != search[k]) k = border[k];
        border[i + 1] = k += search[i] == search[k];
    }
    std::size_t count = 0;
    std::uint32_t k = 0;
    for (char c : target) {
        while (k && (k == search.size() || c != search[k])) k = border[k];
        k += c == search[k];
        count += k == search.size();
    }
    return count;
}

const char* lastOf(const char* target, const char* search) {
    std::string_view all = target;
    std::size_t at = all.rfind(search);
    return at == all.npos ? nullptr : target + at;
}

const char* linear(const std::string& target, const std::string& search) {
    return static_cast<const char*>(
        memmem(target.c_str(), std::strlen(target.c_str()), search.c_str(), std::strlen(search.c_str())));
}

void longTexts() {
    Text prose = text(copies(proseOf(1 << 20), kLong));
    Text late = text(*prose + "a zebra crossing" + proseOf(1000));
    pair(
        "at/rare/16MB", kLong, [=] { return lib().at("a zebra crossing", prose->c_str()); },
        [=] { return std::strstr(prose->c_str(), "a zebra crossing"); });
    pair(
        "at/rare, filter/16MB", kLong, [=] { return lib().at("a zebra crossing", prose->c_str()); },
        [=] { return countFiltered(prose->c_str(), "a zebra crossing"); });
    pair(
        "at/early/16MB", 0, [=] { return lib().at("ing", prose->c_str()); },
        [=] { return std::strstr(prose->c_str(), "ing"); });
    pair(
        "StrCount/rare/16MB", kLong, [=] { return lib().StrCount("a zebra crossing", prose->c_str()); },
        [=] { return countFiltered(prose->c_str(), "a zebra crossing"); });
    for (const char* search : {"the", "e", "ing to "}) {
        pair(
            "StrCount/frequent [" + std::string(search) + "]/16MB", kLong,
            [=] { return lib().StrCount(search, prose->c_str()); },
            [=] { return countFiltered(prose->c_str(), search); });
    }
    pair(
        "Ati/rare/16MB", kLong, [=] { return lib().Ati("A Zebra Crossing", prose->c_str()); },
        [=] { return filteredBlind(prose->c_str(), "A Zebra Crossing", "aG"); });
    pair(
        "StrCounti/rare/16MB", kLong, [=] { return lib().StrCounti("A Zebra Crossing", prose->c_str()); },
        [=] { return filteredBlind(prose->c_str(), "A Zebra Crossing", "aG"); });
    pair(
        "Rat/near end/16MB", kLong, [=] { return lib().Rat("zebra", late->c_str()); },
        [=] { return lastOf(late->c_str(), "zebra"); });
    Text none = text(proseOf(1 << 20));
    pair(
        "Rat/none/1MB", 1 << 20, [=] { return lib().Rat("a zebra crossing", none->c_str()); },
        [=] { return countFiltered(none->c_str(), "a zebra crossing"); });
    pair(
        "ChrCount/16MB", kLong, [=] { return lib().ChrCount("e", prose->c_str()); },
        [=] {
            std::string_view all = prose->c_str();
            return std::count(all.begin(), all.end(), 'e');
        });
}

// Near matches everywhere: a search that verifies each of them takes the product of the two lengths.
void spitefulTexts() {
    constexpr std::size_t size = 1 << 20;
    struct Row {
        const char* name;
        std::string target;
        std::string search;
    };
    const Row rows[] = {
        {"(ab)*b", copies("ab", size), copies("ab", 1000) + "b"},
        {"b(ab)*b", copies("ab", size), "b" + copies("ab", 1000) + "b"},
        {"(ab)*aab", copies("ab", size), copies("ab", 1000) + "aab"},
        {"a*b", copies("a", size), copies("a", 1000) + "b"},
        {"a*ba*", copies("a", size), copies("a", 500) + "b" + copies("a", 500)},
    };
    for (const Row& row : rows) {
        Text target = text(row.target);
        Text search = text(row.search);
        pair(
            "at/spiteful " + std::string(row.name) + "/1MB", size,
            [=] { return lib().at(search->c_str(), target->c_str()); }, [=] { return linear(*target, *search); });
    }
    Text target = text(copies("a", size));
    Text search = text(copies("a", 1000));
    pair(
        "StrCount/1000 a/1MB", size, [=] { return lib().StrCount(search->c_str(), target->c_str()); },
        [=] { return countLinear(target->c_str(), search->c_str()); });
    pair(
        "StrCounti/1000 a/1MB", size, [=] { return lib().StrCounti(search->c_str(), target->c_str()); },
        [=] { return countLinear(target->c_str(), search->c_str()); });
    pair(
        "StrAtNext/-500000/1MB", size, [=] { return lib().StrAtNext(search->c_str(), target->c_str(), -500000); },
        [=] { return countLinear(target->c_str(), search->c_str()); });
}

void shortTexts() {
    Text target = text("the quick brown fox jumps over the lazy dog..");
    pair(
        "at/45B", 0, [=] { return lib().at("lazy", target->c_str()); },
        [=] { return std::strstr(target->c_str(), "lazy"); });
    pair(
        "Ati/45B", 0, [=] { return lib().Ati("Lazy", target->c_str()); },
        [=] { return filteredBlind(target->c_str(), "Lazy", "lY"); });
    pair(
        "Rat/45B", 0, [=] { return lib().Rat("quick", target->c_str()); },
        [=] { return lastOf(target->c_str(), "quick"); });
    pair(
        "StrCount/45B", 0, [=] { return lib().StrCount("the", target->c_str()); },
        [=] {
            std::size_t count = 0;
            for (const char* at = target->c_str(); (at = std::strstr(at, "the")); ++at) ++count;
            return count;
        });
    Text brief = text("brown fox jumps over");
    pair(
        "at/20B", 0, [=] { return lib().at("over", brief->c_str()); },
        [=] { return std::strstr(brief->c_str(), "over"); });
    pair(
        "Ati/20B", 0, [=] { return lib().Ati("Over", brief->c_str()); },
        [=] { return filteredBlind(brief->c_str(), "Over", "oR"); });
    pair(
        "AtNext/2 of 45B", 0, [=] { return lib().AtNext("o", target->c_str(), 2); },
        [=] { return std::strchr(std::strchr(target->c_str(), 'o') + 1, 'o') - target->c_str(); });
    pair(
        "AtLast/45B", 0, [=] { return lib().AtLast("o", target->c_str()); },
        [=] { return std::strrchr(target->c_str(), 'o') - target->c_str(); });
    pair(
        "ChrCount/45B", 0, [=] { return lib().ChrCount("o", target->c_str()); },
        [=] {
            std::string_view all = target->c_str();
            return std::count(all.begin(), all.end(), 'o');
        });
    Text other = text("the quick brown fox jumps over the crazy dog");
    pair(
        "AtDiff/45B", 0, [=] { return lib().AtDiff(target->c_str(), other->c_str()); },
        [=] {
            const char* a = target->c_str();
            const char* b = other->c_str();
            std::size_t i = 0;
            while (a[i] && a[i] == b[i]) ++i;
            return i;
        });
    Text fields = text("Miller,Arthur,12 Main Street,Springfield");
    auto dest = std::make_shared<std::string>(64, '\0');
    pair(
        "StrExtract/3 of 40B", 0, [=] { return lib().StrExtract(fields->c_str(), ",", 3, dest->data()); },
        [=] {
            const char* from = fields->c_str();
            for (int i = 1; i < 3; ++i) from = std::strchr(from, ',') + 1;
            std::size_t size = std::strcspn(from, ",");
            std::memcpy(dest->data(), from, size);
            (*dest)[size] = '\0';
            return size;
        });
    pair(
        "DelimCount/40B", 0, [=] { return lib().DelimCount(fields->c_str(), ","); },
        [=] {
            std::string_view all = fields->c_str();
            return 1 + std::count(all.begin(), all.end(), ',');
        });
}

const Cases cases([] {
    longTexts();
    spitefulTexts();
    shortTexts();
});

}  // namespace
}  // namespace vx::bench
