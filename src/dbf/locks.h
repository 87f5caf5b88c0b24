// Locks between the handles and processes that share a table (the ranges: regions.h).
//
//   held by                        lock                       until
//   DbfLock, DbfRlock              table, or some records     unlock, the next lock, or the end
//   an append                      header, and its records    the end; the records as those of DbfRlock
//   whoever corrects the header    header, if it is free      the header is written
//   whoever writes the header      count                      it is written
//   a put of a memo or a blob      memo or blob file          it and the record that refers to it are written
//
// None of them keeps others from reading or writing: who wants to change a record that others may change, too, locks
// it.
#pragma once

#include <cstdint>

#include "dbf/table.h"

namespace vx::dbf {

// Of a table that is not shared, every lock is had without touching a file.

// The table or record lock. Taking one gives the one that is held back first, and fails if that fails. What was read
// before is forgotten: others may have changed it.
bool lockTable(Table& table);
bool lockRecords(Table& table, std::uint32_t count);  // from the current one on

// Writes the records in the buffer back and gives the lock back. True if none is held.
bool unlock(Table& table);

// The lock of the record count and the date; kept until it is given back.
bool lockHeader(Table& table);
void unlockHeader(Table& table);

// Locks the numbers of `count` records behind the last, so that no other handle appends the same ones, and counts the
// records: waits about two seconds for the others.
bool claimRecords(Table& table, std::uint32_t count);

// Held while a header is written, for the moment that takes: the count in the file never falls behind.
class CountLock {
 public:
    explicit CountLock(Table& table);
    ~CountLock();
    CountLock(const CountLock&) = delete;
    CountLock& operator=(const CountLock&) = delete;

    explicit operator bool() const { return had_; }

 private:
    Table& table_;
    bool had_;
};

// Held for a change of the memo or blob file.
class CompanionLock {
 public:
    CompanionLock(const Table& table, const File& file, Region& region);
    ~CompanionLock();
    CompanionLock(const CompanionLock&) = delete;
    CompanionLock& operator=(const CompanionLock&) = delete;

    explicit operator bool() const { return had_; }

 private:
    const File& file_;
    Region& region_;
    bool had_;
};

}  // namespace vx::dbf
