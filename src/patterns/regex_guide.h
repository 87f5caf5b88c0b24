// What keeps a search linear when plain backtracking goes astray.
//
// Outlook knows, for each position of the text, the nodes from which the rest of a program can still match there: one
// bit a node, worked out from the text's end backwards, a word of bits at a time. Without back-references it is exact,
// so that whoever follows it never has to turn back. A back-reference is taken for any run of the characters that its
// group can hold.
//
// Failures remembers where the rest of a program with back-references was tried in vain.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "patterns/regex_program.h"

namespace vx::regex {

class Outlook {
 public:
    // For all positions from `from` to the terminator at `end`; false if there is no memory for it.
    bool open(const Program& program, const char* from, const char* end);

    // Declares where a search starts. Positions before it must not be asked for any more.
    void startAt(const char* start);

    // Whether the program can match from `node` on at `at`.
    bool may(unsigned node, const char* at) {
        unsigned bit = end_ - node;
        const Word* column = at == start_ ? startColumn_ : columnAt(static_cast<std::size_t>(at - from_));
        return (column[bit / kWordBits] >> bit % kWordBits & 1) != 0;
    }

 private:
    using Word = std::uint64_t;
    static constexpr unsigned kWordBits = 64;
    static constexpr unsigned kMaxWords = Program::kMaxNodes / kWordBits + 1;
    // Columns held at a time. Of a longer text's others, one a block is kept to start from again.
    static constexpr std::size_t kBlockBytes = std::size_t{4} << 20;

    enum Kind { kPlain, kAtWordStart, kAtWordEnd, kAtEnd, kKinds };  // of positions, by the conditions that hold there

    void makeMasks(const Program& program);
    void allowBackReference(const Program& program, unsigned node);
    void set(Word* mask, unsigned node) { mask[(end_ - node) / kWordBits] |= Word{1} << (end_ - node) % kWordBits; }
    Kind kindOf(const char* at) const;
    Word* row(unsigned byte) { return rows_ + byte * words_; }

    void loadBlock(std::size_t block);
    template <unsigned kFixedWords>
    void fill(std::size_t first, std::size_t count, const Word* next);
    template <unsigned kFixedWords>
    void step(const Word* next, Word* column, std::uint8_t byte, const Word* passing) const;
    const Word* columnAt(std::size_t index) {
        if (index / blockSize_ != block_) loadBlock(index / blockSize_);
        return columns_.get() + index % blockSize_ * words_;
    }

    unsigned end_ = 0;  // the end node; a node's bit is its distance to it
    unsigned words_ = 0;
    bool usesStart_ = false;
    bool hasConditions_ = false;
    std::unique_ptr<Word[]> masks_;
    Word* rows_ = nullptr;     // for each byte, the nodes that take it
    Word* takers_ = nullptr;   // nodes that take one byte
    Word* runs_ = nullptr;     // nodes that take any number
    Word* passing_ = nullptr;  // for each kind of position, the nodes that can be passed there without taking any
    Word* startPassing_ = nullptr;
    Word* nothing_ = nullptr;

    const char* from_ = nullptr;
    const char* textEnd_ = nullptr;
    std::size_t count_ = 0;  // columns in all: one more than positions, for what has taken the terminator
    std::size_t blockSize_ = 1;
    std::size_t block_ = 0;
    std::unique_ptr<Word[]> columns_;
    std::unique_ptr<Word[]> blockStarts_;
    const char* start_ = nullptr;
    Word startColumn_[kMaxWords];
};

class Failures {
 public:
    bool open(const Program& program, const char* from, const char* end);

    // Whether the program has failed from the node after `run` on at `at`.
    bool has(const Node& run, const char* at) const {
        if (run.run >= count_) return false;
        std::size_t index = static_cast<std::size_t>(at - from_);
        return (rows_[run.run].bits[index / 64] >> index % 64 & 1) != 0;
    }

    // Notes such a failure, and returns the first of those that lie side by side up to it.
    const char* add(const Node& run, const char* at);

    // The marks behind the first `nodes` nodes are about to move: forgets what was found out with their old places.
    void forget(unsigned nodes);

    // Where a run that holds `at` ends, if that was kept; else null.
    const char* endOfRun(const Node& run, const char* at) const;
    void keepRun(const Node& run, const char* from, const char* end);

 private:
    struct Row {
        std::uint64_t* bits;
        unsigned marks;                          // the marks that matter are among so many first nodes; 0: none does
        std::size_t low, high;                   // the words in use
        const char *stretchStart, *stretchLast;  // failures side by side, the latest such
        const char *runStart, *runEnd;           // the latest run
    };

    const char* from_ = nullptr;
    std::size_t count_ = 0;  // rows: one for each run before the last back-reference
    std::unique_ptr<Row[]> rows_;
    std::unique_ptr<std::uint64_t[]> bits_;
};

}  // namespace vx::regex
