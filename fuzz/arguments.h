// What a call is made with: drawn by the kinds that the export table tells.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "catalog/catalog.h"
#include "fuzz/random.h"

namespace vx::fuzz {

inline constexpr std::size_t kMostArguments = 16;
inline constexpr std::int64_t kMostRoom = 2 << 20;

// An argument before it has a place in memory.
struct Input {
    bool null = false;
    std::int64_t number = 0;  // of an `out` argument: what it holds before the call
    std::string bytes;        // a text without its terminator; the contents of bytes and blocks
};

struct Plan {
    const catalog::Entry* entry = nullptr;
    const catalog::Entry* drawnFor = nullptr;  // the entry tried; another one is called to compare
    Turn turn;
    std::vector<Input> inputs;
    std::optional<std::int64_t> room{};  // of the destination or the bytes, where the library itself tells it
    bool unterminated = false;           // the destination gets that many bytes and no terminator
};

// The memory that an argument is given.
struct Need {
    std::int64_t bytes = 0;  // 0 where it is NULL or no pointer
    std::int64_t front = 0;  // so many of them lie in front of what the pointer points to
    bool written = false;    // the function may write to it
    bool text = false;       // ends with a terminator
};

// In-place work turns a text into a destination, so an argument's need depends on the others.
std::vector<Need> needsOf(const Plan& plan);

// Whether the entry keeps something from call to call that its result shows, so that two equal calls may differ.
bool remembers(const catalog::Entry& entry);

// Whether this call must leave its destinations as they are. They are given terminated, as a caller must who reads
// them.
bool leftAlone(const Plan& plan);

// The room of entries whose destination or source depends on the state of a table: what the last of these entries
// gives, each asked with the table and what the one before gave.
struct AskedRoom {
    std::string_view name;
    std::string_view first, last;  // the first may be empty
    bool terminator;
};
const AskedRoom* askedRoomOf(const catalog::Entry& entry);

// Whether the entry gives a constant empty text when it has no destination; others give NULL.
bool givesConstantWithoutDest(const catalog::Entry& entry);

// Handles, tables and blocks that earlier calls gave: some calls go on with them.
class Recall {
 public:
    void keep(const Plan& plan, std::int64_t result, const std::vector<std::string>& after);
    void keepTable(std::int64_t table);

    std::int64_t handle(Random& random) const { return one(handles_, random); }
    std::int64_t table(Random& random) const { return one(tables_, random); }
    const std::vector<std::int64_t>& tables() const { return tables_; }
    // A block of that size; empty if there is none.
    std::string block(std::size_t size, Random& random) const;

 private:
    static constexpr std::size_t kMost = 16;
    template <class What>
    void keepOne(std::vector<What>& kept, What what);
    static std::int64_t one(const std::vector<std::int64_t>& kept, Random& random);

    std::vector<std::int64_t> handles_;
    std::vector<std::int64_t> tables_;
    std::vector<std::string> blocks_;
    std::size_t turn_ = 0;
};

Plan draw(const catalog::Entry& entry, const Turn& turn, const Recall& recall);

}  // namespace vx::fuzz
