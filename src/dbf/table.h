// An open table: its files, its fields, the records in memory and the place in it.
//
// The parts of the table functions work on this together: moving about (table.cpp), field values (dbffields.cpp), memo
// and blob files (memo_dbt.cpp, memo_fpt.cpp, blob_store.cpp), creation and appending (dbfcreate.cpp), locks
// (locks.cpp).
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string_view>

#include "datetime/dateformat.h"
#include "dbf/file.h"
#include "dbf/format.h"
#include "files/path.h"

namespace vx::dbf {

struct Table;
struct Field;

// Called at the events of a table or a field; nothing in the library sets one.
using TableHook = void (*)(Table& table);
using FieldHook = void (*)(Table& table, Field& field, int event);
using ComputeHook = std::uint32_t (*)(Table& table, Field& field, char* to);  // the size; no `to`: that alone

inline constexpr int kFieldWritten = 16;
inline constexpr int kFieldRead = 32;

struct Field {
    char name[kNameRoom] = {};
    char type = 'C';
    std::uint8_t width = 1;  // low byte of the length
    std::uint8_t decimals = 0;
    std::int32_t offset = 0;  // in a record's data
    std::int32_t start = 0;   // what lies within the record: from here on,
    std::int32_t extent = 0;  // and so many bytes
    bool isStored = true;     // in the record itself
    bool isText = true;       // read with a terminator
    FieldHook notify = nullptr;
    ComputeHook compute = nullptr;

    bool isNumber() const { return type == 'N' || type == 'F'; }
    std::int32_t lengthWord() const { return width + 256 * decimals; }
    std::int32_t length() const { return isNumber() ? width : lengthWord(); }
    std::string_view nameText() const { return {name, strnlen(name, kNameRoom - 1)}; }
};

// A range of bytes of one of the files that this handle locks or may lock. One that cannot be given back stays held.
struct Region {
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
    bool held = false;

    bool take(const File& from) { return held = held || from.lock(offset, length); }
    bool giveBack(const File& to) {
        held = held && !to.unlock(offset, length);
        return !held;
    }
};

// Today's date, asked for once in a quarter of an hour: no time zone has its midnight inside of one.
class KeptDate {
 public:
    const Date& get();

 private:
    std::int64_t quarter_ = -1;
    Date date_;
};

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
    std::uint32_t capacity = 0;  // records that the buffer has room for
    std::uint32_t held = 0;      // whole records in it
    std::int64_t first = 0;      // number of the first of them
    char* record = nullptr;      // the current record, from its deletion flag on

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

    Region lock;                          // the table or record lock; at most one
    Region headerLock{1'000'000'000, 1};  // the record count and the date
    Region countLock{3'000'000'002, 1};   // behind all others: for the moment in which a header is written
    Region memoLock{1'000'000'000, 1};    // of the memo file
    Region blobLock{2'000'000'000, 1};    // of the blob file
    KeptDate today;

    TableHook arrived = nullptr;
    TableHook leaving = nullptr;
    TableHook recordGoing = nullptr;  // a whole record is to be written
    TableHook recordCame = nullptr;   // a whole record was read

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

// The paths of a table's files: they differ in the extension, DBF if the name has none.
class TablePath {
 public:
    explicit TablePath(const char* name);

    // Companions have the letter case of the table: readers that tell cases apart look for them there.
    TablePath& with(const char* extension);
    const char* get();

 private:
    PathParts parts_;
    char text_[kJoinedSize];
};

// Room for the records that a buffer holds: about 2 KB of them, or one.
bool makeBuffer(Table& table);

// Finds out how each field is read, and what of it lies within the record.
void settleFields(Table& table);

// Null if the file is no table, or it or one of its companions cannot be opened.
std::unique_ptr<Table> openTable(const char* name, std::uint32_t mode);

// Writes what has changed and closes the files. False if that fails: what is still open stays so.
bool closeTable(Table& table);

void goTo(Table& table, std::int64_t number);

// Drops what is held of the file, unless it is changed.
void forget(Table& table);

// Reads a forgotten record again. Whether there is a current record then.
bool remember(Table& table);

inline bool hasRecord(Table& table) { return !table.noRecord || (table.forgotten && remember(table)); }

// Stands on the first of records that are known to be blank, because they have just been written.
void goToBlanks(Table& table, std::int64_t first, std::int64_t count);

// The count of a shared table, from the size of its file; on failure it stays as it was.
bool recount(Table& table);

// Writes what has changed: the records in the buffer, then the header. What cannot be written stays marked.
bool writeBack(Table& table);

// Cuts off what an append that failed has left.
bool cutLeftover(Table& table);

// Writes the header, stamped with today's date.
bool writeHeader(Table& table);

}  // namespace vx::dbf
