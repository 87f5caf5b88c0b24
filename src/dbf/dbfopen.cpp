// Opening and closing tables, moving about in them, whole records.
//
// A table that could not be written stays open under its handle, so that closing it can be tried again.
#include "entries/dbfopen.h"

#include <cstring>

#include "dbf/records.h"
#include "dbf/registry.h"
#include "dbf/writing.h"

using namespace vx;
using namespace vx::dbf;

namespace {

std::int32_t move(Table* table, std::int64_t number) {
    if (!table) return 0;
    std::int64_t before = table->number;
    goTo(*table, number);
    return static_cast<std::int32_t>(before);
}

void setDeletionFlag(uint32_t handle, char flag) {
    Table* table = find(handle);
    if (!table || !hasRecord(*table)) return;
    *table->record = flag;
    table->bufferChanged = true;
}

// The size of what is in `buffer` then.
std::size_t getRecord(Table* table, char* buffer) {
    if (!buffer) return 0;
    if (!table) {
        *buffer = '\0';
        return 0;
    }
    auto size = static_cast<std::size_t>(table->dataSize());
    if (!hasRecord(*table)) {
        std::memset(buffer, ' ', size);
    } else {
        std::memcpy(buffer, table->data(), size);
    }
    return size;
}

}  // namespace

uint32_t VX_CALL vx_DbfOpen(const char* name, int32_t mode) noexcept {
    std::unique_ptr<Table> table = openTable(name, static_cast<std::uint32_t>(mode));
    return table ? enlist(std::move(table)) : 0;
}

int32_t VX_CALL vx_DbfClose(uint32_t handle) noexcept {
    Table* table = find(handle);
    if (!table || !closeTable(*table)) return -1;
    dismiss(handle);
    return 0;
}

int32_t VX_CALL vx_DbfGoto(uint32_t handle, int32_t number) noexcept { return move(find(handle), number); }

int32_t VX_CALL vx_DbfSkip(uint32_t handle, int32_t count) noexcept {
    Table* table = find(handle);
    return table ? move(table, table->number + count) : 0;
}

int32_t VX_CALL vx_DbfRecno(uint32_t handle) noexcept {
    Table* table = find(handle);
    return table ? static_cast<std::int32_t>(table->number) : 0;
}

uint32_t VX_CALL vx_DbfLastrec(uint32_t handle) noexcept {
    Table* table = find(handle);
    if (!table) return 0;
    if (table->shared) recount(*table);
    return table->count();
}

int32_t VX_CALL vx_DbfBof(uint32_t handle) noexcept {
    Table* table = find(handle);
    return !table || table->atBegin;
}

int32_t VX_CALL vx_DbfEof(uint32_t handle) noexcept {
    Table* table = find(handle);
    return !table || table->atEnd;
}

int32_t VX_CALL vx_DbfHeaderSize(uint32_t handle) noexcept {
    Table* table = find(handle);
    return table ? table->header.headerSize() : 0;
}

int32_t VX_CALL vx_DbfRecordSize(uint32_t handle) noexcept {
    Table* table = find(handle);
    return table ? table->dataSize() : 0;
}

int32_t VX_CALL vx_DbfFieldCount(uint32_t handle) noexcept {
    Table* table = find(handle);
    return table ? table->fieldCount : 0;
}

int32_t VX_CALL vx_DbfIsDeleted(uint32_t handle) noexcept {
    Table* table = find(handle);
    return table && hasRecord(*table) && *table->record == kDeleted;
}

void VX_CALL vx_DbfDelete(uint32_t handle) noexcept { setDeletionFlag(handle, kDeleted); }
void VX_CALL vx_DbfRecall(uint32_t handle) noexcept { setDeletionFlag(handle, kLive); }

char* VX_CALL vx_DbfRecordGet(uint32_t handle, char* buffer) noexcept {
    getRecord(find(handle), buffer);
    return buffer;
}

// No terminator is placed, so the text ends with the record if no NUL is in it.
uint32_t VX_CALL vx_strdbfRecordGet(uint32_t handle, char* buffer) noexcept {
    std::size_t size = getRecord(find(handle), buffer);
    return size ? static_cast<std::uint32_t>(strnlen(buffer, size)) : 0;
}

int32_t VX_CALL vx_DbfRecordPut(uint32_t handle, const void* data) noexcept {
    Table* table = find(handle);
    if (!table || !data || !hasRecord(*table)) return 1;
    std::memcpy(table->data(), data, static_cast<std::size_t>(table->dataSize()));
    table->bufferChanged = true;
    return 1;
}
