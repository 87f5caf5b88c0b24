// Rows: calls in vexlor's own notation and what they give, a line each.
//
//     # Both ends.
//     ChrTrim "--a--" "-" 0 -> "a"
//     StrCenter "PAID" 20 "*" -> "********PAID********"
//
//     with SetFillChar "*" until SetFillChar " "
//     Center "a" 4 "" -> "*a"
//
//     with directory
//     with file "a.txt" "one\ntwo\n"
//     FOpen "a.txt" 0 -> $f
//     FRead $f 3 -> 3 buffer="one"
//     FClose $f -> 1
//
// Blank lines end a block. What a block's `with` lines set up holds for its rows and is taken back behind it.
//
// Arguments stand in their order; those that vexlor supplies (destinations, blocks, outputs) are given by name where
// something is to be in them: `dest="???"`, `dest=@null`. Behind the arrow stands what the call gives: a text, a
// number,
// @null, void, or $name, which keeps it for later rows of the block; then, by name, what is to be in further outputs,
// `result=` for a number beside a text or the place that a result points to (`result=text+5`), and `in-place=` where
// a call in place gives another text. A text is "..." with \n \t \r \0 \\ \" \xHH, "x"*300 repeats it, + joins two.
// A number is decimal or 0x hexadecimal, a character "x" or its code. `# ` begins a comment.
//
// Values or functions in braces stand for as many rows: the first of each for the first row, and so on; all others are
// the same.
//
//     RomanToNum {"VX" "IM" "X I"} -> {5 999 0}
//     {FTell FEof} -1 -> {-1 1}
//
// Braces in a block's `with` lines stand for as many blocks; those of its rows go along with them.
//
//     with machine drives {"" "ACD"}
//     AllDrives -> {"" "A: C: D:"}
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vx::rows {

struct Value {
    enum class Kind { kNumber, kText, kNull, kVoid, kVariable, kPlace };
    Kind kind = Kind::kNull;
    std::int64_t number = 0;  // of a place: the offset
    std::string text;         // of a variable or place: its name
};

using Named = std::vector<std::pair<std::string, Value>>;

struct Row {
    std::string file;
    int line = 0;
    std::string source;
    std::string name;  // of the function
    std::vector<Value> arguments;
    Named given;  // what supplied arguments hold at first
    std::optional<Value> outcome;
    Named outputs;
};

// What a block sets up: a call and the one that takes it back, or words such as `directory`.
struct Setup {
    std::string file;
    int line = 0;
    std::vector<Value> words;  // of no call
    std::optional<Row> call;
    std::optional<Row> until;
};

struct Block {
    std::vector<Setup> setups;
    std::vector<Row> rows;
};

// What is wrong in a line, with its place.
class ScriptError : public std::runtime_error {
 public:
    ScriptError(const std::string& file, int line, const std::string& what)
        : std::runtime_error(file + ":" + std::to_string(line) + ": " + what) {}
};

// Reads a file's text. A line `@ FILE LINE` says where the lines behind it come from.
std::vector<Block> parse(const std::string& file, std::string_view text);

// Reads \n \t \r \0 \\ \" and \xHH; throws a text that tells of any other escape.
std::string unescaped(std::string_view text);

// The value as a row has it.
std::string shown(const Value& value);
std::string inQuotes(std::string_view text);

}  // namespace vx::rows
