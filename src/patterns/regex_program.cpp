// From a byte program to the nodes that are executed.
//
// kept: patterns mean what an interpreter of the bytes would make of them. It skips one byte too many behind a closure
// of a class, so that the operand of the next node may be read as an opcode. Here this is played out once, instead of
// in every attempt.
#include "patterns/regex_program.h"

#include <algorithm>

namespace vx::regex {

namespace {

class Decoder {
 public:
    Decoder(const Bytes& bytes, Program& program) : code_(bytes.code), program_(program) {
        program_.setCount = 0;
        program_.runCount = 0;
        program_.lastBackRef = kNone;
        program_.usesStart = program_.usesEnd = false;
        std::fill_n(program_.groupOpen, kGroups, kNone);
        std::fill_n(program_.groupClose, kGroups, kNone);
    }

    void run() {
        std::size_t at = 0;
        while (code_[at] != kEnd) at += node(code_ + at);
        add(Op::kEnd);
        program_.end = static_cast<std::uint16_t>(count_ - 1);
        program_.anchored = program_.nodes[0].op == Op::kBol;
        findCertainTail();
        findFollowers();
        findPrefix(program_, program_.prefix);
    }

 private:
    // Reads one node and returns its size.
    std::size_t node(const std::uint8_t* code) {
        switch (code[0]) {
            case kChar:
                add(code[1] ? Op::kChar : Op::kTerminator).byte = code[1];
                return 2;
            case kAny:
                add(Op::kAny);
                return 1;
            case kClass:
            case kNotClass:
                addSet(Op::kSet, code);
                return 1 + kBitmapSize;
            case kBol:
                add(Op::kBol);
                return 1;
            case kEol:
                add(Op::kEol);
                return 1;
            case kGroupOpen:
                addMark(program_.groupOpen, code[1]);
                return 2;
            case kGroupClose:
                addMark(program_.groupClose, code[1]);
                return 2;
            case kWordStart:
                add(Op::kWordStart);
                return 1;
            case kWordEnd:
                add(Op::kWordEnd);
                return 1;
            case kBackRef:
                addBackRef(code[1]);
                return 2;
            case kClosure:
                return 1 + closure(code + 1);
            default:
                return 1;  // kept: what is no opcode is passed over
        }
    }

    std::size_t closure(const std::uint8_t* body) {
        switch (body[0]) {
            case kChar:
                if (body[1]) add(Op::kCharRun).byte = body[1];  // a run ends at the terminator
                return 3;
            case kAny:
                add(Op::kAnyRun);
                return 2;
            case kClass:
            case kNotClass:
                program_.sets[addSet(Op::kSetRun, body).set][0] = false;
                return 3 + kBitmapSize;  // kept: one byte more than the closure has
            default:
                add(Op::kNever);
                return 1;
        }
    }

    Node& add(Op op) {
        Node& node = program_.nodes[count_++];
        node = Node{};
        node.op = op;
        if (isRun(op)) node.run = program_.runCount++;
        program_.usesStart |= op == Op::kBol || op == Op::kWordStart || op == Op::kWordEnd;
        program_.usesEnd |= op == Op::kEol;
        return node;
    }

    Node& addSet(Op op, const std::uint8_t* code) {
        Node& node = add(op);
        node.set = program_.setCount++;
        bool negated = code[0] == kNotClass;
        for (unsigned c = 0; c < 256; ++c)
            program_.sets[node.set][c] = (((code[1 + (c >> 3)] >> (c & 7)) & 1) != 0) != negated;
        return node;
    }

    void addMark(std::uint16_t* latest, std::uint8_t group) {
        if (group == 0 || group >= kGroups) return;
        latest[group] = static_cast<std::uint16_t>(count_);
        add(Op::kMark);
    }

    // A group that has not been opened and closed by now has no text: nothing is left to do then.
    void addBackRef(std::uint8_t group) {
        if (group == 0 || group >= kGroups) return;
        std::uint16_t open = program_.groupOpen[group];
        std::uint16_t close = program_.groupClose[group];
        if (open == kNone || close == kNone || close < open) return;
        program_.lastBackRef = static_cast<std::uint16_t>(count_);
        Node& node = add(Op::kBackRef);
        node.open = open;
        node.close = close;
    }

    void findCertainTail() {
        std::uint16_t i = program_.end;
        while (i > 0 && (isRun(program_.nodes[i - 1].op) || program_.nodes[i - 1].op == Op::kMark)) --i;
        program_.certain = i;
    }

    void findFollowers() {
        std::int16_t follow = -1;
        for (std::size_t i = program_.end; i-- > 0;) {
            Node& node = program_.nodes[i];
            node.follow = follow;
            if (node.op != Op::kMark) follow = node.op == Op::kChar ? node.byte : std::int16_t{-1};
        }
    }

    const std::uint8_t* code_;
    Program& program_;
    std::size_t count_ = 0;
};

}  // namespace

void decode(const Bytes& bytes, Program& program) { Decoder(bytes, program).run(); }

}  // namespace vx::regex
