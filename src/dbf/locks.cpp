#include "dbf/locks.h"

#include <algorithm>

#include "dbf/records.h"
#include "dbf/writing.h"

namespace vx::dbf {
namespace {

constexpr int kHeaderAttempts = 4;
constexpr int kGivingBackAttempts = 4;
constexpr std::uint32_t kPatience = 2000;  // milliseconds
constexpr std::uint32_t kLongestNap = 20;

// Tries until it succeeds or patience is at an end, in naps that grow.
template <class Try>
bool insist(Try once) {
    std::uint32_t slept = 0;
    for (std::uint32_t nap = 1; !once(); nap = std::min(nap * 2, kLongestNap)) {
        if (slept >= kPatience) return false;
        platform::clock().sleep(nap);
        slept += nap;
    }
    return true;
}

// As the table's one lock; the one before was given back.
bool hold(Table& table, const Region& region) {
    table.lock = region;
    return table.lock.take(table.file);
}

bool holdAndForget(Table& table, const Region& region) {
    if (!hold(table, region)) return false;
    forget(table);
    return true;
}

Region recordRegion(std::int64_t first, std::uint32_t count) {
    return {static_cast<std::uint32_t>(kRecordRegions + first), count};
}

// For a lock that nobody asks to give back later: others would wait for it in vain.
void giveBackSurely(Region& region, const File& file) {
    for (int i = 0; i < kGivingBackAttempts && !region.giveBack(file); ++i) {
    }
}

}  // namespace

bool unlock(Table& table) {
    if (!table.lock.held) return true;
    return writeBack(table) && table.file.commit() && table.lock.giveBack(table.file);
}

bool lockTable(Table& table) {
    if (!table.shared) return true;
    return unlock(table) && holdAndForget(table, kTableRegion);
}

bool lockRecords(Table& table, std::uint32_t count) {
    if (!table.shared) return true;
    bool isOnRecord = !table.noRecord || table.forgotten;
    if (count == 0 || !isOnRecord || !unlock(table)) return false;
    return holdAndForget(table, recordRegion(table.number, count));
}

bool lockHeader(Table& table) {
    for (int i = 0; i < kHeaderAttempts; ++i) {
        if (!table.shared || table.headerLock.take(table.file)) return true;
    }
    return false;
}

void unlockHeader(Table& table) {
    if (!table.headerLock.held) return;
    table.file.commit();
    table.headerLock.giveBack(table.file);
}

// Whoever holds the lock of the number behind the last record is appending; once it is there, the count is another.
bool claimRecords(Table& table, std::uint32_t count) {
    if (!table.shared) return true;
    if (!unlock(table)) return false;
    return insist([&] {
        if (!recount(table)) return false;
        std::uint32_t before = table.count();
        if (!hold(table, recordRegion(std::int64_t{before} + 1, count))) return false;
        if (recount(table) && table.count() == before) return true;
        table.lock.giveBack(table.file);
        return false;
    });
}

CountLock::CountLock(Table& table)
    : table_(table), had_(!table.shared || insist([&] { return table.countLock.take(table.file); })) {}

CountLock::~CountLock() { giveBackSurely(table_.countLock, table_.file); }

CompanionLock::CompanionLock(const Table& table, const File& file, Region& region)
    : file_(file), region_(region), had_(!table.shared || region.take(file)) {}

CompanionLock::~CompanionLock() {
    if (!region_.held) return;
    file_.commit();
    giveBackSurely(region_, file_);
}

}  // namespace vx::dbf
