// Fields: what a table's descriptors tell, looking fields up by name, and their values in the current record.
//
// The values of most fields stand in the record itself; a put changes them there, in memory, and the record is written
// when the table moves on. Memos and blobs are in files of their own and written at once (companions.h). A virtual
// field has no value: it reads as an empty text, and what is put into it is dropped.
#include "entries/dbffields.h"

#include <algorithm>
#include <cstring>

#include "dbf/companions.h"
#include "dbf/records.h"
#include "dbf/registry.h"
#include "strings/trim.h"

namespace vx::dbf {
namespace {

// A field of the table that a handle stands for; no field if either is wrong.
struct Place {
    Table* table = nullptr;
    Field* field = nullptr;

    Place(std::uint32_t handle, std::int32_t number) : table(find(handle)) {
        if (table) field = table->field(number);
    }
    explicit operator bool() const { return field != nullptr; }
};

bool isNamed(const Field& field, std::string_view name) { return field.nameText() == name; }

// The field found last is the first to be tried; of two fields with one name, the last.
std::int32_t findField(Table& table, std::string_view name) {
    if (table.fieldCount == 0) return 0;
    if (!isNamed(table.fields[table.lastFound], name)) {
        std::int32_t i = table.fieldCount - 1;
        while (i >= 0 && !isNamed(table.fields[i], name)) --i;
        if (i < 0) return 0;
        table.lastFound = i;
    }
    return table.lastFound + 1;
}

std::int32_t findField(std::uint32_t handle, const char* name) {
    Table* table = find(handle);
    return table ? findField(*table, view(name)) : 0;
}

std::uint32_t getMemo(const Table& table, const Field& field, char* to) {
    std::int64_t block = referenceIn(table, field);
    bool dbt = table.memoStyle == MemoStyle::kDbt;
    std::uint32_t size = dbt ? readDbtMemo(table, block, to) : readFptMemo(table, block, to);
    to[size] = '\0';
    return size;
}

std::uint32_t getStored(Table& table, const Field& field, char* to) {
    auto size = static_cast<std::size_t>(field.extent);
    if (!hasRecord(table)) [[unlikely]] {
        std::memset(to, ' ', size);
    } else {
        moveBytes(to, table.at(field), size);
    }
    if (field.isText) to[size] = '\0';
    return static_cast<std::uint32_t>(size);
}

// Memos, blobs and virtual fields. A blob has no terminator, but where there is none stands an empty text.
std::uint32_t getOther(Table& table, const Field& field, char* to) {
    bool isThere = hasRecord(table);
    if (isThere && field.type == 'M') return getMemo(table, field, to);
    std::uint32_t size = isThere && field.type == 'B' ? readBlob(table, field, to) : 0;
    if (size == 0) *to = '\0';
    return size;
}

// How many bytes the value has. Without a table and a field it is an empty text. Inlined, with the usual field first:
// scanning a table ("DBF scan" in bench/dbf) is little else.
[[gnu::always_inline]] inline std::uint32_t getValue(const Place& place, char* to) {
    if (!to) return 0;
    if (!place) {
        *to = '\0';
        return 0;
    }
    if (place.field->isStored) [[likely]]
        return getStored(*place.table, *place.field, to);
    return getOther(*place.table, *place.field, to);
}

// The same for texts up to a NUL that is in them.
std::uint32_t lengthOfValue(const Place& place, char* to) {
    std::uint32_t size = getValue(place, to);
    return place && place.field->isText && to ? static_cast<std::uint32_t>(strnlen(to, size)) : size;
}

void putPadded(char* to, std::size_t width, std::string_view value) {
    std::size_t kept = std::min(width, value.size());
    std::memcpy(to, value.data(), kept);
    std::memset(to + kept, ' ', width - kept);
}

// Whether the number was taken; otherwise the field shows asterisks.
bool putNumber(Table& table, const Field& field, std::string_view value) {
    auto width = static_cast<std::size_t>(field.extent);
    bool isClipped = field.extent < field.width;
    if (value.size() > (isClipped ? width : static_cast<std::size_t>(field.lengthWord()))) {
        std::memset(table.at(field), '*', width);
        return false;
    }
    std::memset(table.at(field), ' ', width);
    // kept: with decimals, a value may be longer than its field; it then starts in the field before.
    std::size_t end = static_cast<std::size_t>(field.start) + width;
    std::size_t size = std::min(value.size(), end);
    std::memcpy(table.data() + end - size, value.data() + value.size() - size, size);
    return true;
}

bool putMemo(Table& table, Field& field, std::string_view text) {
    if (!table.memo.isOpen()) return false;
    if (text.empty()) return true;  // kept: the field refers to the memo that it had
    return table.memoStyle == MemoStyle::kDbt ? writeDbtMemo(table, field, text) : writeFptMemo(table, field, text);
}

bool putValue(Table& table, Field& field, std::string_view value) {
    if (!hasRecord(table)) return false;
    char* to = table.at(field);
    auto width = static_cast<std::size_t>(field.extent);
    switch (field.type) {
        case 'C':
            putPadded(to, width, value);
            break;
        case 'D':
            putPadded(to, width, withoutLeadingBlanks(value));
            break;
        case 'N':
        case 'F':
            // kept: the asterisks reach the file only if something else changes the records in the buffer.
            if (!putNumber(table, field, withoutLeadingBlanks(value))) return true;
            break;
        case 'L':
            // kept: so "yes" and "1" are false
            if (width > 0) *to = !value.empty() && lower(value.front()) == 't' ? 'T' : 'F';
            break;
        case 'M':
            return putMemo(table, field, value);
        case 'B':
            return table.blob.isOpen() && writeBlob(table, field, value);
        case 'V':
            return true;
        default:
            std::memcpy(to, value.data(), std::min(width, value.size()));
    }
    table.bufferChanged = true;
    return true;
}

bool putValue(const Place& place, const char* value) {
    return place && putValue(*place.table, *place.field, view(value ? value : emptyText));
}

std::uint32_t sizeOfMemo(const Table& table, std::int64_t block) {
    return table.memoStyle == MemoStyle::kDbt ? sizeOfDbtMemo(table, block) : sizeOfFptMemo(table, block);
}

std::uint32_t sizeOfValue(Table& table, const Field& field) {
    switch (field.type) {
        case 'M':
            return hasRecord(table) ? sizeOfMemo(table, referenceIn(table, field)) : 0;
        case 'B':
            return hasRecord(table) ? blobSizeIn(table, field) : 0;
        case 'N':
            return field.width;
        case 'V':
            return 0;
        default:
            return static_cast<std::uint32_t>(field.lengthWord());  // kept: of F as well
    }
}

}  // namespace
}  // namespace vx::dbf

using namespace vx;
using namespace vx::dbf;

char* VX_CALL vx_DbfFieldName(uint32_t handle, int32_t number, char* buffer) noexcept {
    Place place(handle, number);
    return buffer ? store(buffer, place ? place.field->nameText() : std::string_view()) : nullptr;
}

char* VX_CALL vx_DbfFieldType(uint32_t handle, int32_t number, char* buffer) noexcept {
    Place place(handle, number);
    return buffer ? store(buffer, place ? std::string_view(&place.field->type, 1) : std::string_view()) : nullptr;
}

int32_t VX_CALL vx_DbfFieldLen(uint32_t handle, int32_t number) noexcept {
    Place place(handle, number);
    return place ? place.field->length() : 0;
}

int32_t VX_CALL vx_DbfFieldDec(uint32_t handle, int32_t number) noexcept {
    Place place(handle, number);
    return place ? static_cast<std::int8_t>(place.field->decimals) : 0;
}

int32_t VX_CALL vx_DbfFieldOff(uint32_t handle, int32_t number) noexcept {
    Place place(handle, number);
    return place ? place.field->offset : -1;
}

int32_t VX_CALL vx_DbfFieldPos(uint32_t handle, const char* name) noexcept { return findField(handle, name); }

char* VX_CALL vx_DbfFieldGet(uint32_t handle, int32_t number, char* buffer) noexcept {
    getValue({handle, number}, buffer);
    return buffer;
}

uint32_t VX_CALL vx_strdbfFieldGet(uint32_t handle, int32_t number, char* buffer) noexcept {
    return lengthOfValue({handle, number}, buffer);
}

char* VX_CALL vx_DbfField(uint32_t handle, const char* name, char* buffer) noexcept {
    getValue({handle, findField(handle, name)}, buffer);
    return buffer;
}

uint32_t VX_CALL vx_strdbfField(uint32_t handle, const char* name, char* buffer) noexcept {
    return lengthOfValue({handle, findField(handle, name)}, buffer);
}

int32_t VX_CALL vx_DbfFieldPut(uint32_t handle, int32_t number, const char* value) noexcept {
    return putValue(Place(handle, number), value);
}

int32_t VX_CALL vx_DbfReplace(uint32_t handle, const char* name, const char* value) noexcept {
    return putValue(Place(handle, findField(handle, name)), value);
}

uint32_t VX_CALL vx_DbfFieldSize(uint32_t handle, int32_t number) noexcept {
    Place place(handle, number);
    return place ? sizeOfValue(*place.table, *place.field) : 0;
}
