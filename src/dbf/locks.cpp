#include "dbf/locks.h"

#include <algorithm>

namespace vx::dbf {
namespace {

constexpr std::uint32_t kHeaderLock = 1'000'000'000;
constexpr std::uint32_t kRecordLocks = 1'000'000'000;  // and the record's number
constexpr std::uint32_t kTableLock = 1'000'000'001;
constexpr std::uint32_t kTableLockLength = 2'000'000'000;
constexpr std::uint32_t kCountLock = 3'000'000'002;  // behind all others
constexpr int kHeaderAttempts = 4;

constexpr std::uint32_t kPatience = 2000;  // milliseconds
constexpr std::uint32_t kLongestNap = 20;

// Tries until it succeeds or patience is at an end, in naps that grow.
template <class Try>
bool insist(Try once) {
    std::uint32_t slept = 0;
    for (std::uint32_t nap = 1; !once(); nap = std::min(nap * 2, kLongestNap)) {
        if (slept >= kPatience) return false;
        platform::current().clock->sleep(nap);
        slept += nap;
    }
    return true;
}

bool hold(Table& table, std::uint32_t offset, std::uint32_t length) {
    table.lock = {offset, length, table.file.lock(offset, length)};
    return table.lock.held;
}

// Of records that are known to be written.
bool giveBack(Table& table) {
    table.lock.held = !(table.file.commit() && table.file.unlock(table.lock.offset, table.lock.length));
    return !table.lock.held;
}

}  // namespace

bool unlock(Table& table) { return !table.lock.held || (writeBack(table) && giveBack(table)); }

bool lockTable(Table& table) { return !table.shared || (unlock(table) && hold(table, kTableLock, kTableLockLength)); }

bool lockRecords(Table& table, std::uint32_t count) {
    if (!table.shared) return true;
    if (count == 0 || table.noRecord || !unlock(table)) return false;
    return hold(table, static_cast<std::uint32_t>(kRecordLocks + table.number), count);
}

bool lockHeader(Table& table) {
    if (!table.shared || table.headerLocked) return true;
    for (int i = 0; i < kHeaderAttempts && !table.headerLocked; ++i)
        table.headerLocked = table.file.lock(kHeaderLock, 1);
    return table.headerLocked;
}

void unlockHeader(Table& table) {
    if (!table.headerLocked) return;
    table.file.commit();
    table.file.unlock(kHeaderLock, 1);
    table.headerLocked = false;
}

// Whoever holds the lock of the number behind the last record is appending; once it is there, the count is another.
bool claimRecords(Table& table, std::uint32_t count) {
    if (!table.shared) return true;
    if (!unlock(table)) return false;
    return insist([&] {
        if (!recount(table)) return false;
        std::uint32_t before = table.count();
        if (!hold(table, static_cast<std::uint32_t>(kRecordLocks + std::int64_t{before} + 1), count)) return false;
        if (recount(table) && table.count() == before) return true;
        table.lock.held = !table.file.unlock(table.lock.offset, table.lock.length);
        return false;
    });
}

CountLock::CountLock(Table& table)
    : table_(table), had_(!table.shared || insist([&] { return table.file.lock(kCountLock, 1); })) {}

CountLock::~CountLock() {
    if (had_ && table_.shared) table_.file.unlock(kCountLock, 1);
}

CompanionLock::CompanionLock(const Table& table, const File& file, std::uint32_t offset)
    : file_(file), offset_(offset), locks_(table.shared), had_(!locks_ || file.lock(offset, 1)) {}

CompanionLock::~CompanionLock() {
    if (!locks_ || !had_) return;
    file_.commit();
    file_.unlock(offset_, 1);
}

}  // namespace vx::dbf
