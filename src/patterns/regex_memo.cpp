#include "patterns/regex_memo.h"

#include <algorithm>
#include <new>

namespace vx::regex {

bool MemoTable::open(const Program& program, const char* from, const char* end) {
    from_ = from;
    std::size_t words = static_cast<std::size_t>(end - from) / 64 + 1;
    count_ = 0;
    for (unsigned i = 0; i < program.lastBackRef; ++i) count_ += isRun(program.nodes[i].op);
    if (count_ > SIZE_MAX / words / sizeof(std::uint64_t)) return false;
    rows_.reset(new (std::nothrow) Row[count_]());
    bits_.reset(new (std::nothrow) std::uint64_t[count_ * words]());
    if (!rows_ || !bits_) return false;
    for (unsigned i = 0; i < program.lastBackRef; ++i) {
        if (!isRun(program.nodes[i].op)) continue;
        Row& row = rows_[program.nodes[i].run];
        row.bits = bits_.get() + program.nodes[i].run * words;
        row.low = SIZE_MAX;
        row.marks = program.usesStart ? 1 : 0;  // ^ \< \> depend on where the search starts: bits last one attempt
        for (unsigned k = i + 1; k <= program.lastBackRef; ++k) {
            const Node& reference = program.nodes[k];
            if (reference.op != Op::kBackRef) continue;
            for (unsigned mark : {reference.open, reference.close}) {
                if (mark < i) row.marks = std::max(row.marks, mark + 1);
            }
        }
    }
    return true;
}

const char* MemoTable::noteFailure(const Node& run, const char* at) {
    if (!has(run)) return at;
    Row& row = rows_[run.run];
    std::size_t index = static_cast<std::size_t>(at - from_);
    row.bits[index / 64] |= std::uint64_t{1} << (index % 64);
    row.low = std::min(row.low, index / 64);
    row.high = std::max(row.high, index / 64 + 1);
    const bool joins = row.stretchStart && row.stretchStart <= at + 1 && at <= row.stretchLast;
    if (!joins) row.stretchLast = at;
    if (!joins || at < row.stretchStart) row.stretchStart = at;
    return row.stretchStart;
}

void MemoTable::marksMove(unsigned nodes) {
    for (std::size_t i = 0; i < count_; ++i) {
        Row& row = rows_[i];
        if (row.marks <= nodes || row.low >= row.high) continue;
        std::fill(row.bits + row.low, row.bits + row.high, 0);
        row.low = SIZE_MAX;
        row.high = 0;
        row.stretchStart = nullptr;
    }
}

}  // namespace vx::regex
