// The records of a table in memory, and which of them is the current one.
//
// A table holds a run of neighbouring records, about 2 KB of them, and stands on one of the run, or on none: before the
// first, behind the last, or where a record could not be read. A shared table holds a single record, since others
// change what is in the file; what it holds is forgotten when a lock is taken, and read again when a caller asks.
#pragma once

#include <cstdint>

#include "dbf/table.h"

namespace vx::dbf {

// Room for the records that a table holds. False if there is no memory.
bool makeBuffer(Table& table);

// To a record, whatever its number: behind the last one, and before the first, the table stands on none. Changes in
// memory are written before others are read over them.
void goTo(Table& table, std::int64_t number);

// Stands on the first of records that are known to be blank, because they have just been written.
void goToBlanks(Table& table, std::int64_t first, std::int64_t count);

// Drops what is held of the file, unless it is changed.
void forget(Table& table);

// Reads a forgotten record again. Whether there is a current record then.
bool remember(Table& table);

inline bool hasRecord(Table& table) { return !table.noRecord || (table.forgotten && remember(table)); }

}  // namespace vx::dbf
