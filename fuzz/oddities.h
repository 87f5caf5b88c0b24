// Entries and calls that do not do what most do, as the export table tells.
#pragma once

#include <string_view>

#include "fuzz/arguments.h"

namespace vx::fuzz {

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

}  // namespace vx::fuzz
