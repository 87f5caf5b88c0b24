// The upper-case table as tests see it: read through its query, changed for a while.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tests/support/library.h"

namespace vx::test {

// What case-blind searches compare.
inline std::string folded(std::string text) {
    for (char& c : text) c = static_cast<char>(lib().ChrUpper(c));
    return text;
}

// Changes upper-case entries and puts them back at the end.
class UpperEntries {
 public:
    explicit UpperEntries(std::vector<std::pair<char, char>> entries) : entries_(std::move(entries)) {
        for (auto& [c, value] : entries_) value = static_cast<char>(lib().SetUpperTable(c, value));
    }
    ~UpperEntries() {
        for (auto [c, value] : entries_) lib().SetUpperTable(c, value);
    }
    UpperEntries(const UpperEntries&) = delete;
    UpperEntries& operator=(const UpperEntries&) = delete;

 private:
    std::vector<std::pair<char, char>> entries_;
};

}  // namespace vx::test
