#include "dbf/writing.h"

#include <algorithm>
#include <limits>

#include "dbf/locks.h"

namespace vx::dbf {
namespace {

// Cuts off what an append that failed has left.
bool cutLeftover(Table& table) {
    if (table.leftoverEnd != 0 && !table.file.cutBack(table.leftoverStart, table.leftoverEnd)) return false;
    table.leftoverEnd = 0;
    return true;
}

}  // namespace

bool writeBuffer(Table& table) {
    if (!table.bufferChanged) return true;
    // What cannot be kept is dropped: a table that is open for reading only was changed in memory alone.
    bool done = !table.writable || table.file.write(table.positionOf(table.bufferFirst), table.buffer.get(),
                                                    table.bufferCount * table.recordSize());
    table.bufferChanged = !done;
    return done;
}

// A header that counts records is corrected before they are cut off; where the file's size counts them, in a shared
// table, afterwards.
bool writeBack(Table& table) {
    if (!writeBuffer(table) || (table.shared && !cutLeftover(table))) return false;
    if (table.headerChanged) {
        bool mine = !table.headerLock.held && lockHeader(table);
        bool done = writeHeader(table);
        if (mine) unlockHeader(table);
        if (!done) return false;
    }
    return cutLeftover(table);
}

bool writeHeader(Table& table) {
    table.headerChanged = true;
    CountLock lock(table);
    if (!lock || (table.shared && !recount(table))) return false;
    table.header.stamp(table.today.get());
    if (table.file.write(0, table.header.bytes, kHeaderSize)) table.headerChanged = false;
    return !table.headerChanged;
}

bool recount(Table& table) {
    std::int64_t size = table.file.size();
    if (size < 0) return false;
    std::int64_t records = std::max<std::int64_t>(size - table.header.headerSize(), 0) / table.recordSize();
    table.header.setCount(
        static_cast<std::uint32_t>(std::min<std::int64_t>(records, std::numeric_limits<std::int32_t>::max())));
    return true;
}

}  // namespace vx::dbf
