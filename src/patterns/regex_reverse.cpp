#include "patterns/regex_reverse.h"

#include <algorithm>
#include <new>

#include "frame/text.h"

namespace vx::regex {

bool ReverseScan::open(const Program& program, const char* from, const char* end) {
    end_ = program.end;
    words_ = end_ / kWordBits + 1;
    usesStart_ = program.usesStart;
    hasConditions_ = program.usesStart || program.usesEnd;
    from_ = from;
    textEnd_ = end;
    count_ = static_cast<std::size_t>(end - from) + 2;
    blockSize_ = std::min(count_, kBlockBytes / (words_ * sizeof(Word)));
    std::size_t blocks = (count_ + blockSize_ - 1) / blockSize_;
    masks_.reset(new (std::nothrow) Word[words_ * (256 + 4 + kKinds)]());
    columns_.reset(new (std::nothrow) Word[blockSize_ * words_]);
    blockStarts_.reset(new (std::nothrow) Word[blocks * words_]);
    if (!masks_ || !columns_ || !blockStarts_) return false;
    makeMasks(program);
    for (std::size_t block = blocks; block-- > 0;) {
        loadBlock(block);
        std::copy_n(columns_.get(), words_, blockStarts_.get() + block * words_);
    }
    return true;
}

void ReverseScan::makeMasks(const Program& program) {
    rows_ = masks_.get();
    takers_ = rows_ + 256 * words_;
    runs_ = takers_ + words_;
    nothing_ = runs_ + words_;
    startPassing_ = nothing_ + words_;
    passing_ = startPassing_ + words_;
    bool wordEndsText = textEnd_ > from_ && isWord(byteOf(textEnd_[-1]));
    for (unsigned i = 0; i < end_; ++i) {
        const Node& node = program.nodes[i];
        auto allow = [&](auto takes) {
            for (unsigned c = 0; c < 256; ++c) {
                if (takes(c)) set(row(c), i);
            }
        };
        auto passAt = [&](std::initializer_list<Kind> kinds) {
            for (Kind kind : kinds) set(passing_ + kind * words_, i);
        };
        switch (node.op) {
            case Op::kChar:
            case Op::kCharRun:
            case Op::kTerminator:
                set(row(node.byte), i);
                break;
            case Op::kAny:
            case Op::kAnyRun:
                allow([](unsigned c) { return c != 0; });
                break;
            case Op::kSet:
            case Op::kSetRun:
                allow([&](unsigned c) { return program.sets[node.set][c]; });
                break;
            case Op::kBackRef:
                allowBackReference(program, i);
                break;
            case Op::kBol:
                set(startPassing_, i);
                break;
            case Op::kEol:
                passAt({kAtEnd});
                break;
            case Op::kMark:
                passAt({kPlain, kAtWordStart, kAtWordEnd, kAtEnd});
                break;
            case Op::kWordStart:
                passAt({kAtWordStart});
                break;
            case Op::kWordEnd:
                passAt({kAtWordEnd});
                if (wordEndsText) passAt({kAtEnd});
                break;
            case Op::kEnd:
            case Op::kNever:
                break;
        }
        if (isRun(node.op) || node.op == Op::kBackRef) {
            set(runs_, i);
            passAt({kPlain, kAtWordStart, kAtWordEnd, kAtEnd});
        } else {
            set(takers_, i);  // harmless for nodes that take nothing: no byte's row has them
        }
    }
}

void ReverseScan::allowBackReference(const Program& program, unsigned node) {
    for (unsigned c = 0; c < 256; ++c) {
        for (unsigned i = program.nodes[node].open; i < program.nodes[node].close; ++i) {
            unsigned bit = end_ - i;
            if ((row(c)[bit / kWordBits] >> (bit % kWordBits)) & 1) set(row(c), node);
        }
    }
}

ReverseScan::Kind ReverseScan::kindOf(const char* at) const {
    if (at == textEnd_) return kAtEnd;
    if (at == from_) return kPlain;  // never asked: a search starts there or behind it
    bool before = isWord(byteOf(at[-1]));
    bool here = isWord(byteOf(at[0]));
    if (before == here) return kPlain;
    return here ? kAtWordStart : kAtWordEnd;
}

void ReverseScan::startAt(const char* start) {
    if (!usesStart_) return;
    start_ = start;
    const Word* next = columnAt(static_cast<std::size_t>(start - from_) + 1);
    Kind kind = kPlain;  // whatever stands before the start is not looked at, so that no word ends there
    if (start == textEnd_) {
        kind = kAtEnd;
    } else if (isWord(byteOf(*start))) {
        kind = kAtWordStart;
    }
    Word passing[kMaxWords];
    for (unsigned w = 0; w < words_; ++w) passing[w] = passing_[kind * words_ + w] | startPassing_[w];
    step<0>(next, startColumn_, byteOf(*start), passing);
}

void ReverseScan::loadBlock(std::size_t block) {
    std::size_t first = block * blockSize_;
    std::size_t count = std::min(blockSize_, count_ - first);
    const Word* next = blockStarts_.get() + (block + 1) * words_;
    if (first + count == count_) {
        // Behind the terminator only what takes nothing can match.
        --count;
        Word* last = columns_.get() + count * words_;
        step<0>(nothing_, last, 0, passing_ + kPlain * words_);
        next = last;
    }
    block_ = block;
    if (words_ == 1) {
        fill<1>(first, count, next);
    } else {
        fill<0>(first, count, next);
    }
}

template <unsigned kFixedWords>
void ReverseScan::fill(std::size_t first, std::size_t count, const Word* next) {
    const std::size_t words = kFixedWords ? kFixedWords : words_;
    Word* column = columns_.get() + count * words;
    for (const char* at = from_ + first + count; count > 0; --count) {
        --at;
        column -= words;
        Kind kind = hasConditions_ ? kindOf(at) : kPlain;
        step<kFixedWords>(next, column, byteOf(*at), passing_ + kind * words);
        next = column;
    }
}

// A node can match here if it takes this byte and what follows can match at the next position, or if it can be passed
// and what follows can match here. The second spreads upwards through nodes that can be passed, as a sum's carry does.
template <unsigned kFixedWords>
void ReverseScan::step(const Word* next, Word* column, std::uint8_t byte, const Word* passing) const {
    const unsigned words = kFixedWords ? kFixedWords : words_;
    const Word* takes = rows_ + (byte * words);
    Word overNext = 0, overHere = 1, carry = 0;
    for (unsigned w = 0; w < words; ++w) {
        Word taken = takes[w] & ((((next[w] << 1) | overNext) & takers_[w]) | (next[w] & runs_[w]));
        overNext = next[w] >> (kWordBits - 1);
        if (w == 0) taken |= 1;  // the end
        Word reached = ((taken << 1) | overHere) & passing[w];
        overHere = taken >> (kWordBits - 1);
        Word sum = reached + passing[w];
        Word newCarry = sum < reached;
        sum += carry;
        carry = newCarry | (sum < carry);
        column[w] = taken | reached | ((sum ^ passing[w]) & passing[w]);
    }
}

}  // namespace vx::regex
