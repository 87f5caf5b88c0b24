// An open table: its files, its fields, the records in memory and the place in it.
//
// The parts of the table functions work on this together: records in memory and moving about (records.h), writing back
// (writing.h), field values (dbffields.cpp), memo and blob files (companions.h), creation and appending
// (dbfcreate.cpp), locks (locks.h).
#pragma once

#include <cstdint>
#include <memory>

#include "dbf/field.h"
#include "dbf/file.h"
#include "dbf/format.h"
#include "dbf/kept_date.h"
#include "dbf/regions.h"

namespace vx::dbf {

enum class MemoStyle { kDbt, kFpt };

struct Table {
    Header header;
    std::unique_ptr<Field[]> fields;
    std::int32_t fieldCount = 0;
    std::int32_t lastFound = 0;  // index of the field that was looked up last

    File file;
    File memo;
    File blob;
    MemoStyle memoStyle = MemoStyle::kDbt;
    std::uint32_t memoBlockSize = kDbtBlockSize;
    bool shared = false;
    bool writable = true;

    std::unique_ptr<char[]> buffer;
    std::uint32_t bufferCapacity = 0;  // records that it has room for
    std::uint32_t bufferCount = 0;     // whole records in it
    std::int64_t bufferFirst = 0;      // number of the first of them
    char* record = nullptr;            // the current record, from its deletion flag on

    std::int64_t number = 0;  // of the current record
    bool atBegin = false;
    bool atEnd = false;
    bool noRecord = true;
    bool forgotten = false;  // there is a current record, read again when it is needed; until then, none is at hand
    bool bufferChanged = false;
    bool headerChanged = false;

    // What an append that failed may have left behind the records, until the file can be cut back.
    std::int64_t leftoverStart = 0;
    std::int64_t leftoverEnd = 0;

    Region lock;  // the table or record lock; at most one
    Region headerLock = kHeaderRegion;
    Region countLock = kCountRegion;
    Region memoLock = kMemoRegion;
    Region blobLock = kBlobRegion;
    KeptDate today;

    std::uint32_t count() const { return header.count(); }
    std::uint32_t recordSize() const { return header.recordSize(); }
    std::int32_t dataSize() const { return header.recordSize() - 1; }
    char* data() const { return record + 1; }
    char* at(const Field& field) const { return data() + field.start; }
    std::int64_t positionOf(std::int64_t record) const { return header.headerSize() + (record - 1) * recordSize(); }

    Field* field(std::int32_t number) const {
        return number >= 1 && number <= fieldCount ? &fields[number - 1] : nullptr;
    }
};

// Finds out how each field is read, and what of it lies within the record.
void settleFields(Table& table);

// Null if the file is no table, or it or one of its companions cannot be opened.
std::unique_ptr<Table> openTable(const char* name, std::uint32_t mode);

// Writes what has changed and closes the files. False if that fails: what is still open stays so.
bool closeTable(Table& table);

}  // namespace vx::dbf
