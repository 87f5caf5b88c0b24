// A call of one function: memory for its texts and destinations, the call itself, and what came back.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "cli/arguments.h"

namespace vx::cli {

enum class Form { kNothing, kNull, kText, kNumber, kCharacter, kBlock };

// Something that a call gave back: its result, or what an argument holds now.
struct Item {
    std::string_view label;  // the argument's name, or "result"
    Form form = Form::kNothing;
    std::string_view bytes = {};  // of a text or block; valid until the next run
    std::int64_t number = 0;      // of a number or character
};

struct Outcome {
    Item result;
    std::vector<Item> outputs;     // the arguments that the function may have written to
    const char* within = nullptr;  // name of the argument whose memory the result points into, or null
    std::int64_t offset = 0;       // where in it
    bool resultIsOutput = false;   // the result is one of the outputs, from its start
    Item main;                     // what a script wants: see `mainItem`
};

struct CallOptions {
    bool escapes = false;
    bool lines = false;
    bool inPlace = false;
    std::map<std::string, std::string> contents;  // what supplied arguments hold at first, by name
};

class Call {
 public:
    // Checks the arguments and throws UsageError where they do not fit the function.
    Call(const catalog::Entry& entry, const std::string& name, catalog::Function function,
         const std::vector<std::string>& typed, const CallOptions& options);

    // Calls the function, with `line` wherever an argument says `{}`.
    const Outcome& run(std::string_view line = {});

    // Whether any argument says `{}`.
    bool takesLine() const;

    // A line about each bytes argument for which less was given than the last run may have read.
    std::string remarks() const;

 private:
    struct Slot {
        const catalog::Argument* argument;
        Typed typed;
        bool isNumber = false;  // what was typed is one
        bool isNull = false;
        bool isOutput = false;
        std::string text = {};    // what was typed means this in the run at hand
        std::string memory = {};  // what the function gets to see and to change
        std::size_t front = 0;    // so much of it, zeros, lies in front of what the function is given
        std::int64_t number = 0;
        std::int32_t out = 0;
    };

    // `given` is null where the argument is supplied and starts with zeros.
    void addSlot(const catalog::Argument& argument, const std::string* given, const CallOptions& options);
    void read(Slot& slot, std::string_view line);
    void sizeMemory();
    std::int64_t room(const Slot& slot) const;
    void pass(std::size_t i);
    void collect(const catalog::Value& result);
    Item resultItem(const catalog::Value& result);
    Item output(const Slot& slot) const;
    Item mainItem() const;

    const catalog::Entry& entry_;
    catalog::Function function_;
    std::vector<Slot> slots_;
    std::vector<catalog::Value> values_;
    Outcome outcome_;
};

}  // namespace vx::cli
