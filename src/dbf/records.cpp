#include "dbf/records.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "dbf/writing.h"

namespace vx::dbf {
namespace {

constexpr std::uint32_t kBufferSize = 2048;

void standOn(Table& table, std::int64_t number) {
    table.record = table.buffer.get() + (number - table.bufferFirst) * table.recordSize();
    table.number = number;
    table.noRecord = table.forgotten = false;
}

void standOnNone(Table& table, std::int64_t number) {
    table.number = number;
    table.noRecord = true;
    table.forgotten = false;
}

// Fills the buffer from record `number` on. Without the whole of that record there is none to stand on: another's
// bytes are not shown for it, and nothing can be put over what could not be read.
void load(Table& table, std::int64_t number) {
    if (!writeBuffer(table)) return standOnNone(table, number);
    auto wanted = std::clamp<std::int64_t>(table.count() - number + 1, 0, table.bufferCapacity);
    std::uint32_t size = table.recordSize();
    table.bufferCount =
        table.file.read(table.positionOf(number), table.buffer.get(), static_cast<std::size_t>(wanted) * size) / size;
    table.bufferFirst = number;
    if (table.bufferCount == 0) return standOnNone(table, number);
    standOn(table, number);
}

}  // namespace

bool makeBuffer(Table& table) {
    std::uint32_t size = table.recordSize();
    table.bufferCapacity = table.shared || 2 * size >= kBufferSize ? 1 : kBufferSize / size + 1;
    table.buffer.reset(new (std::nothrow) char[table.bufferCapacity * size]);
    table.record = table.buffer.get();
    return table.buffer != nullptr;
}

void goTo(Table& table, std::int64_t number) {
    table.atBegin = table.atEnd = false;
    if (number < 1) {
        table.atBegin = true;
        return standOnNone(table, 0);
    }
    // Behind the count that is known, others may have appended since.
    if (number > table.count() && table.shared) recount(table);
    if (number > table.count()) {
        table.atEnd = true;
        return standOnNone(table, std::int64_t{table.count()} + 1);
    }
    bool isInBuffer = number >= table.bufferFirst && number < table.bufferFirst + table.bufferCount;
    if (isInBuffer) {
        standOn(table, number);
    } else {
        load(table, number);
    }
}

void goToBlanks(Table& table, std::int64_t first, std::int64_t count) {
    table.atBegin = table.atEnd = false;
    table.bufferFirst = first;
    table.bufferCount = static_cast<std::uint32_t>(std::min<std::int64_t>(table.bufferCapacity, count));
    std::memset(table.buffer.get(), ' ', table.bufferCount * table.recordSize());
    standOn(table, first);
}

void forget(Table& table) {
    if (table.bufferChanged) return;
    table.bufferCount = 0;
    table.forgotten |= !table.noRecord;
    table.noRecord = true;
}

bool remember(Table& table) {
    load(table, table.number);
    return !table.noRecord;
}

}  // namespace vx::dbf
