#include "dbf/appending.h"

#include <algorithm>
#include <cstring>

#include "dbf/locks.h"
#include "dbf/records.h"
#include "dbf/writing.h"
#include "files/open_file.h"

namespace vx::dbf {
namespace {

// Writes so many blank records from a position on.
bool writeBlanks(const File& file, std::int64_t position, std::size_t recordSize, std::int64_t count) {
    Scratch scratch;
    std::size_t atOnce = std::max<std::size_t>(Scratch::kAtHand / recordSize, 1);
    atOnce = static_cast<std::size_t>(std::min<std::int64_t>(count, static_cast<std::int64_t>(atOnce)));
    char* blanks = scratch.room(atOnce * recordSize);
    if (!blanks) return false;
    std::memset(blanks, ' ', atOnce * recordSize);
    while (count > 0) {
        std::size_t size = std::min<std::size_t>(atOnce, static_cast<std::size_t>(count)) * recordSize;
        if (!file.write(position, blanks, size)) return false;
        position += static_cast<std::int64_t>(size);
        count -= static_cast<std::int64_t>(size / recordSize);
    }
    return true;
}

// Takes records back that could not be written or counted; what cannot be done now is done with the next write.
void takeBack(Table& table, std::int64_t start, std::int64_t end) {
    if (!table.writable) return;
    KeptError cause;
    table.leftoverStart = start;
    table.leftoverEnd = end;
    // Another handle may have counted them meanwhile.
    if (table.shared) table.headerChanged = true;
    writeBack(table);
}

// Counts the new records. Those of a shared table are there by the file's size alone, so a header that cannot be
// written now is left for later; others are not counted at all.
bool countRecords(Table& table, std::int64_t count) {
    Header before = table.header;
    table.header.setCount(static_cast<std::uint32_t>(count));
    if (writeHeader(table) || table.shared) return true;
    table.header = before;
    KeptError cause;
    table.headerChanged = !table.file.write(0, before.bytes, kHeaderSize);
    return false;
}

bool addBlanks(Table& table, std::int64_t first, std::int64_t count) {
    std::int64_t start = table.positionOf(first), end = table.positionOf(first + count);
    if (end > platform::kLastPosition) return false;
    if (writeBlanks(table.file, start, table.recordSize(), count) && countRecords(table, first + count - 1))
        return true;
    takeBack(table, start, end);
    return false;
}

}  // namespace

std::int64_t append(Table& table, std::uint32_t count) {
    lockHeader(table);  // kept: given back when the table is closed, not before
    if (!writeBack(table)) return 0;
    if (count == 0) {
        if (table.writable) writeHeader(table);
        goTo(table, std::int64_t{table.count()} + 1);
        return table.number;
    }
    if (!claimRecords(table, count)) return 0;
    std::int64_t first = std::int64_t{table.count()} + 1;
    if (!addBlanks(table, first, count)) {
        // Others may have the numbers, unless something is left behind them.
        if (table.leftoverEnd == 0) table.lock.giveBack(table.file);
        return 0;
    }
    goToBlanks(table, first, count);
    return first;
}

}  // namespace vx::dbf
