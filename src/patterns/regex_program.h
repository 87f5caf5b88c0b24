// Regular expressions: the compiled form, and how it comes from a pattern.
//
// A pattern is first written down as bytes. What a byte program means is not always what its pattern says, because a
// class closure loses one byte of what follows it; so the bytes are read again, as they would be executed, into a list
// of nodes.
#pragma once

#include <cstddef>
#include <cstdint>

#include "patterns/regex_prefilter.h"

namespace vx::regex {

enum Error : std::int32_t {
    kNoError = 0,
    kNoPattern = -1,
    kUnfinished = -2,  // open class, lone backslash, or too long
    kClosureFirst = -3,
    kClosureOfMark = -4,
    kTooManyGroups = -5,
    kNoOpenGroup = -6,
    kEmptyGroup = -7,
    kReferenceInside = -8,
    kReferenceBefore = -9,
    kOpenGroup = -10,
};

// The byte program's opcodes. Their values count: a byte that a class closure uncovers may be read as one of them.
enum Code : std::uint8_t {
    kEnd,
    kChar,
    kAny,
    kClass,
    kNotClass,
    kBol,
    kEol,
    kGroupOpen,
    kGroupClose,
    kWordStart,
    kWordEnd,
    kBackRef,
    kClosure,
};

inline constexpr std::size_t kCodeRoom = 1024;
inline constexpr std::size_t kBitmapSize = 32;
inline constexpr int kGroups = 10;  // the whole match and nine groups

struct Bytes {
    std::size_t size = 0;
    std::uint8_t code[kCodeRoom + 2 * kBitmapSize] = {};  // zeros behind the program: what reads past it meets its end
};

enum class Op : std::uint8_t {
    kEnd,
    kChar,
    kAny,
    kSet,
    kTerminator,  // a character 0: only the text's terminator equals it
    kBol,
    kEol,
    kMark,  // start or end of a group
    kWordStart,
    kWordEnd,
    kBackRef,
    kCharRun,
    kAnyRun,
    kSetRun,
    kNever,  // closure over something that cannot repeat
};

inline constexpr std::uint16_t kNone = 0xFFFF;

struct Node {
    Op op = Op::kEnd;
    std::uint8_t byte = 0;
    std::uint16_t set = 0;
    std::uint16_t run = 0;       // of a run: how many come before it
    std::int16_t follow = -1;    // of a run: the character that must come after it, or -1
    std::uint16_t open = kNone;  // of a back-reference: the nodes that mark its group
    std::uint16_t close = kNone;
};

struct Program {
    static constexpr std::size_t kMaxNodes = kCodeRoom + 1;
    static constexpr std::size_t kMaxSets = kCodeRoom / (1 + kBitmapSize) + 1;

    Node nodes[kMaxNodes];
    bool sets[kMaxSets][256];
    std::uint16_t end;      // index of the end node
    std::uint16_t certain;  // from here on everything matches anywhere, be it empty
    std::uint16_t setCount;
    std::uint16_t runCount;
    std::uint16_t lastBackRef;  // kNone without one
    std::uint16_t groupOpen[kGroups];
    std::uint16_t groupClose[kGroups];
    bool anchored;   // starts with ^
    bool usesStart;  // has a node that asks for the search's start
    bool usesEnd;    // has $
    Prefix prefix;
};

// Word characters of \< and \>. kept: neither Z nor z nor 9 is one.
constexpr bool isWord(std::uint8_t c) {
    return (c >= 'A' && c < 'Z') || (c >= 'a' && c < 'z') || (c >= '0' && c < '9') || c == '_';
}

constexpr bool isRun(Op op) { return op == Op::kCharRun || op == Op::kAnyRun || op == Op::kSetRun; }

// Writes the pattern down as bytes; an error leaves them unusable.
Error compile(const char* pattern, Bytes& bytes);

// Reads the bytes as they are executed.
void decode(const Bytes& bytes, Program& program);

}  // namespace vx::regex
