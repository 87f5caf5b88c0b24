// What a search with back-references remembers: places of the text where a way through the program has failed.
//
// A way chooses only at runs (x*, .*, [x]*): how much a run takes. So one bit for each run and position is enough: "the
// program has failed from the node behind this run, here". That holds as long as the groups which a later
// back-reference reads are where they were; bits of runs behind such a group are cleared when it moves, and bits of
// runs before it, or of groups that nobody reads any more, stay.
//
// Hostile patterns fail at many places side by side, and run after run ends at the same place. So each run also keeps
// the latest stretch of failures, to be jumped over, and the latest extent.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "patterns/regex_program.h"

namespace vx::regex {

class MemoTable {
 public:
    // What a run can take at most: all from `start` to `end`.
    struct Extent {
        const char* start = nullptr;
        const char* end = nullptr;
    };

    // For all positions from `from` to the terminator at `end`; false if there is no memory for it.
    bool open(const Program& program, const char* from, const char* end);

    bool hasFailed(const Node& run, const char* at) const {
        if (!has(run)) return false;
        const auto index = static_cast<std::size_t>(at - from_);
        return ((rows_[run.run].bits[index / 64] >> (index % 64)) & 1) != 0;
    }

    // Notes a failure, and returns the first of those that lie side by side up to it.
    const char* noteFailure(const Node& run, const char* at);

    // The marks behind the first `nodes` nodes are about to move: forgets what was found out with their old places.
    void marksMove(unsigned nodes);

    // The latest extent of a run; null for a run that has no bits.
    Extent* latestExtent(const Node& run) { return has(run) ? &rows_[run.run].extent : nullptr; }

 private:
    struct Row {
        std::uint64_t* bits;
        unsigned marks;                          // the marks that matter are among so many first nodes; 0: none does
        std::size_t low, high;                   // the words in use
        const char *stretchStart, *stretchLast;  // failures side by side, the latest such
        Extent extent;
    };

    bool has(const Node& run) const { return run.run < count_; }

    const char* from_ = nullptr;
    std::size_t count_ = 0;  // rows: one for each run before the last back-reference; behind it nothing is ambiguous
    std::unique_ptr<Row[]> rows_;
    std::unique_ptr<std::uint64_t[]> bits_;
};

}  // namespace vx::regex
