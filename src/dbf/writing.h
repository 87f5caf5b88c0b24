// Writing a table back, in an order that leaves a table which opens, whenever it stops: records before the count that
// includes them, the count before records that it no longer includes are cut off, texts of memos before the field that
// refers to them.
//
// What cannot be written stays marked as changed, and the next call tries again.
#pragma once

#include "dbf/table.h"

namespace vx::dbf {

// The records in memory, if they have changed.
bool writeBuffer(Table& table);

// Writes what has changed: the records in memory, then the header.
bool writeBack(Table& table);

// Writes the header, stamped with today's date, under the count lock.
bool writeHeader(Table& table);

// The count of a shared table, from the size of its file; on failure it stays as it was.
bool recount(Table& table);

}  // namespace vx::dbf
