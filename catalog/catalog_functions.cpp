#include <algorithm>
#include <cstring>
#include <limits>

#include "catalog/catalog.h"

namespace vx::catalog {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

// Edits (insert, delete, replace, swap of neighbours) that turn one name into the other.
int distance(std::string_view a, std::string_view b) {
    std::vector<std::vector<int>> d(a.size() + 1, std::vector<int>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) d[i][0] = static_cast<int>(i);
    for (std::size_t j = 0; j <= b.size(); ++j) d[0][j] = static_cast<int>(j);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        for (std::size_t j = 1; j <= b.size(); ++j) {
            d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + (a[i - 1] != b[j - 1])});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
        }
    }
    return d[a.size()][b.size()];
}

std::int64_t hostBytes = 4096;

}  // namespace

Size hostRoom() { return {hostBytes}; }
void setHostRoom(std::int64_t bytes) { hostBytes = bytes; }

Size operator+(Size a, Size b) {
    std::int64_t r;
    return {__builtin_add_overflow(a.value, b.value, &r) ? (b.value > 0 ? kMost : kLeast) : r};
}
Size operator-(Size a, Size b) {
    std::int64_t r;
    return {__builtin_sub_overflow(a.value, b.value, &r) ? (b.value < 0 ? kMost : kLeast) : r};
}
Size operator*(Size a, Size b) {
    std::int64_t r;
    return {__builtin_mul_overflow(a.value, b.value, &r) ? ((a.value < 0) == (b.value < 0) ? kMost : kLeast) : r};
}
Size operator/(Size a, Size b) { return {b.value == 0 ? 0 : b.value == -1 ? (Size{0} - a).value : a.value / b.value}; }

Size textLength(const Value& value) { return {value.text ? static_cast<std::int64_t>(std::strlen(value.text)) : 0}; }

const Entry* find(std::string_view name) {
    for (const Entry& entry : allEntries()) {
        if (std::find(entry.names.begin(), entry.names.end(), name) != entry.names.end()) return &entry;
    }
    return nullptr;
}

std::string lowerCase(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

std::vector<std::string> suggestions(std::string_view name, std::size_t count) {
    std::string wanted = lowerCase(name);
    std::vector<std::pair<int, std::string>> ranked;
    for (const Entry& entry : allEntries()) {
        int best = std::numeric_limits<int>::max();
        for (const char* candidate : entry.names) {
            std::string lower = lowerCase(candidate);
            int score = 2 * distance(wanted, lower);
            // A name typed in part is likelier than its distance tells.
            if (wanted.size() >= 3 && lower.find(wanted) != std::string::npos) score = std::min(score, 3);
            best = std::min(best, score);
        }
        if (best <= static_cast<int>(wanted.size())) ranked.emplace_back(best, entry.main());
    }
    std::stable_sort(ranked.begin(), ranked.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> result;
    for (std::size_t i = 0; i < ranked.size() && i < count; ++i) result.push_back(ranked[i].second);
    return result;
}

}  // namespace vx::catalog
