// Appending blank records.
//
// The records are written first and counted afterwards. In a table that is not shared, the header's count is what makes
// them part of it; in a shared one the file's size does, and the header is brought up to date for who reads that. What
// cannot be finished is taken back: cut off at once, or with the next write that succeeds.
#pragma once

#include <cstdint>

#include "dbf/table.h"

namespace vx::dbf {

// Goes to the first new record and gives its number, 0 if they cannot be had. None at all writes what has changed, and
// the header, and goes behind the last record.
std::int64_t append(Table& table, std::uint32_t count);

}  // namespace vx::dbf
