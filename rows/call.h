// One call of one function in guarded memory, made from a row, and what it gave.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "catalog/catalog.h"
#include "rows/guarded_memory.h"
#include "rows/remote.h"
#include "rows/script.h"

namespace vx::rows {

// What $names stand for in a block.
struct Variable {
    bool isNumber = false;
    std::int64_t number = 0;
    std::string text;
    std::unique_ptr<GuardedBuffer> memory;  // of a block that calls hand on to each other
};
using Variables = std::map<std::string, Variable>;

// How a row's call is made this time.
struct Form {
    std::string label;
    const catalog::Entry* entry = nullptr;
    std::string name;        // the exported one
    bool inPlace = false;    // NULL for the destination
    int onto = -1;           // the text that is the destination, too
    int without = -1;        // the output that is NULL
    bool atFront = false;    // buffers begin behind an inaccessible page instead of ending before one
    bool zeroBased = false;  // positions of the row count from 1, the entry's from 0
};

class Call {
 public:
    // Throws a text that says what is wrong with the row.
    Call(const Row& row, const Form& form, Variables& variables);

    void make(catalog::Function function);

    // The same by another language. Throws a text that says why it could not.
    void make(Remote& remote);

    // What differs from the row, a line each.
    std::vector<std::string> differences(const Row& row, Variables& variables) const;

    // The text that the call made; none if it made none.
    std::optional<std::string> text() const;

    // What the call left in its destination, or in the text that it worked on in place.
    std::optional<std::string> written() const;

    // Whether the function has an output of that name.
    bool knows(const std::string& output) const;

    bool hasNull(std::size_t argument) const { return slots_[argument].isNull; }
    std::int64_t number() const { return result_.number; }

 private:
    struct Slot {
        const Value* value = nullptr;
        std::string bytes;
        bool isNull = false;
        bool written = false;  // the call may write here
        bool given = false;
        std::size_t front = 0;  // bytes that lie in front of where the pointer points
        GuardedBuffer* memory = nullptr;
        std::string before;
    };

    void take(const Row& row, Variables& variables);
    void takeOne(std::size_t i, const Value& value, Variables& variables);
    void place();
    std::string memoryFault() const;
    std::string resultPlace() const;
    std::optional<std::string> outputText(std::size_t i) const;
    std::string compare(const Value& wanted, Variables& variables) const;
    std::string compareNumber(std::int64_t wanted) const;
    std::string compareOutput(const std::string& name, const Value& wanted, Variables& variables) const;
    std::string compareBlock(std::size_t i, const std::string& wanted) const;

    const Form& form_;
    const catalog::Entry& entry_;
    std::vector<Slot> slots_;
    std::vector<catalog::Value> values_;
    catalog::Value result_;
};

}  // namespace vx::rows
