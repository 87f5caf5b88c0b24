// The upper-case table as tests see it: read through its query, changed for a while.
#pragma once

#include <array>
#include <utility>
#include <vector>

#include "tests/support/library.h"

namespace vx::test {

// How a search compares characters: as they are, or by their upper-case entries.
class Folding {
 public:
    static Folding exact() { return Folding("exact", false); }
    static Folding upper() { return Folding("case-blind", true); }

    char operator()(char c) const { return table_[static_cast<unsigned char>(c)]; }

    const char* name;

 private:
    Folding(const char* what, bool mapped) : name(what) {
        for (int c = 0; c < 256; ++c) {
            table_[static_cast<std::size_t>(c)] = static_cast<char>(mapped ? lib().ChrUpper(c) : c);
        }
    }

    std::array<char, 256> table_;
};

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
