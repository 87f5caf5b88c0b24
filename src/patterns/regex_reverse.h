// The program simulated from the text's end backwards, all of its nodes at once.
//
// For each position of the text: the set of nodes from which the rest of the program can still match there. A set is
// one bit a node, worked out from the set one position further on, a word of bits at a time. Without back-references
// it is exact, so that a backtracker which asks it never has to turn back. A back-reference is taken for any run of the
// characters that its group can hold: then a set may hold too many nodes, never too few.
//
// Memory is bounded: 4 MB hold the sets of the block of text that is asked about; of each block the first set is kept,
// from which the block before it can be worked out again. Time is the text's size times the words of a set; most
// programs need one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "patterns/regex_program.h"

namespace vx::regex {

class ReverseScan {
 public:
    // For all positions from `from` to the terminator at `end`; false if there is no memory for it.
    bool open(const Program& program, const char* from, const char* end);

    // Declares where a search starts. Positions before it must not be asked for any more.
    void startAt(const char* start);

    // Whether the program can match from `node` on at `at`.
    bool canMatch(unsigned node, const char* at) {
        unsigned bit = end_ - node;
        const Word* column = at == start_ ? startColumn_ : columnAt(static_cast<std::size_t>(at - from_));
        return ((column[bit / kWordBits] >> (bit % kWordBits)) & 1) != 0;
    }

 private:
    using Word = std::uint64_t;
    static constexpr unsigned kWordBits = 64;
    static constexpr unsigned kMaxWords = Program::kMaxNodes / kWordBits + 1;
    // Columns (the sets of one position each) that are held at a time.
    static constexpr std::size_t kBlockBytes = std::size_t{4} << 20;

    enum Kind { kPlain, kAtWordStart, kAtWordEnd, kAtEnd, kKinds };  // of positions, by the conditions that hold there

    void makeMasks(const Program& program);
    void allowBackReference(const Program& program, unsigned node);
    void set(Word* mask, unsigned node) { mask[(end_ - node) / kWordBits] |= Word{1} << ((end_ - node) % kWordBits); }
    Kind kindOf(const char* at) const;
    Word* row(unsigned byte) { return rows_ + (byte * words_); }

    void loadBlock(std::size_t block);
    // Sets of one word, known when compiled, take three quarters of the time: RegAt/2000x/x*x*x*[yz].
    template <unsigned kFixedWords>
    void fill(std::size_t first, std::size_t count, const Word* next);
    template <unsigned kFixedWords>
    void step(const Word* next, Word* column, std::uint8_t byte, const Word* passing) const;
    const Word* columnAt(std::size_t index) {
        if (index / blockSize_ != block_) loadBlock(index / blockSize_);
        return columns_.get() + (index % blockSize_) * words_;
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

}  // namespace vx::regex
