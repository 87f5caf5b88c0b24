// The export table at run time: every entry with its names, arguments, the room its destinations need, and a way to
// call it. The entries themselves are generated (catalog.cpp); the library does not contain any of this.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalog_kinds.h"  // Kind, Result, and what can be asked of them

namespace vx::catalog {

// A number of bytes; arithmetic stops at the ends of 64 bits instead of wrapping.
struct Size {
    std::int64_t value;
    friend auto operator<=>(const Size&, const Size&) = default;  // NOLINT(modernize-use-nullptr): 0 is its own
};
Size operator+(Size a, Size b);
Size operator-(Size a, Size b);
Size operator*(Size a, Size b);
Size operator/(Size a, Size b);  // 0 where b is 0

// What `host` stands for in the formulas of rooms: the room for the longest text that the calling program's command
// line and environment hold. Programs that call more than fakes set it before.
Size hostRoom();
void setHostRoom(std::int64_t bytes);

union Value {
    std::int64_t number = 0;
    char* text;
    const char* constant;
    std::int32_t* numbers;
    void* block;
};

// The length of a text argument; a NULL one has 0.
Size textLength(const Value& value);

struct Argument {
    const char* name;
    Kind kind;
    Size (*room)(const Value* arguments);  // null where the argument has no room of its own
    int inPlace;                           // index of the text that is changed when this is NULL, or -1
    int untouchedWithout;                  // index of the text without which (NULL) this is left as it is, or -1
    int untouchedBelow;                    // index of the number below the limit of which this is left as it is, or -1
    int limit;
    int before;              // index of the number that, below 0, counts the bytes used in front of this, or -1
    bool terminated;         // the caller must have ended the destination at its last byte
    bool nullGivesConstant;  // when this is NULL the result is a constant empty text
    bool apart;              // the destination may not be the text itself
    const char* meaning;
};

using Function = void (*)();

struct Entry {
    const char* family;
    std::span<const char* const> names;  // the main name first
    std::span<const Argument> arguments;
    Result result;
    int base;         // of positions: 0, 1, or -1 where none is adjusted
    int pointerForm;  // of a length form: index of the entry that gives the text, else -1
    int zeroTwin;     // of a 1-based entry: index of its 0-based twin, else -1
    bool remembers;   // keeps something from call to call that its result shows
    void (*invoke)(Function function, const Value* arguments, Value* result);
    const char* declaration;  // in C, as the header has it
    const char* does;
    const char* returns;
    const char* notes;
    const char* examples;  // a block of rows (rows/script.h), empty if there are none

    const char* main() const { return names.front(); }
};

struct Family {
    const char* stem;
    const char* title;
};

std::span<const Entry> allEntries();
std::span<const Family> allFamilies();

// The entry of that name, letter case as it is; null if there is none.
const Entry* find(std::string_view name);

// Names that a mistyped one may have meant, the likeliest first.
std::vector<std::string> suggestions(std::string_view name, std::size_t count = 5);

// A-Z as a-z.
std::string lowerCase(std::string_view text);

}  // namespace vx::catalog
