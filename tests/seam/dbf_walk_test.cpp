// A table through a handle of its own, or shared through two: each puts into records of its own and appends, while the
// other one does the same between any two calls of the disk, which fail now and then. What was done, and only that, is
// there afterwards.
#include <algorithm>
#include <map>

#include "tests/seam/tables.h"

namespace vx::test {
namespace {

class Handles : public TableTest, public testing::WithParamInterface<std::tuple<bool, std::int32_t>> {
 protected:
    static constexpr int kRecords = 6, kFields = 3, kText = 30, kMostCalls = 12;
    enum Work { kAppend, kUnlock, kLock, kDelete, kWorks = 10 };  // all others put

    bool fox = std::get<0>(GetParam());
    std::int32_t mode = std::get<1>(GetParam());
    bool shared = mode == kSharedMode, faultsLast = false;
    RandomTexts random{3};
    std::uint32_t tables[2] = {};                       // one alone if it is not shared
    std::map<int, int> owners;                          // of records
    std::map<std::pair<int, int>, std::string> values;  // the deletion flag as field 0

    void putTable() {
        putFiles(fox ? 0xF5 : 0xC3, fox ? "T,C,30:M,M,10:B,V,20" : "T,C,30:M,M,10:B,B,20", Texts(kRecords, " "));
        owners.clear();
        values.clear();
        for (int record = 1; record <= kRecords; ++record) setBlank(record, shared ? record % 2 : 0);
        for (int who = 0; who <= shared; ++who) tables[who] = lib().DbfOpen("T", mode);
    }

    void setBlank(int record, int owner) {
        EXPECT_TRUE(owners.emplace(record, owner).second) << "appended twice: " << record;
        for (int field = 0; field <= kFields; ++field)
            values[{record, field}] = std::string(field == 1 ? kText : 0, ' ');
    }

    void expectRecord(std::uint32_t table, int record) {
        auto deleted = values[{record, 0}].size();
        EXPECT_EQ(lib().DbfIsDeleted(table), static_cast<std::int32_t>(deleted)) << "record " << record;
        for (int field = 1; field <= kFields; ++field)
            EXPECT_EQ(valueOf(table, field), (values[{record, field}])) << "record " << record << " field " << field;
    }

    // Where nothing fails and nobody else is.
    void walk(std::uint32_t table) {
        int last = static_cast<int>(owners.size()), by = random.number(-3, 3);
        auto from = static_cast<int>(lib().DbfRecno(table)), to = std::clamp(from + by, 0, last + 1);
        EXPECT_EQ(random.oneIn(2) ? lib().DbfSkip(table, by) : lib().DbfGoto(table, from + by), from);
        EXPECT_EQ(placeOf(table), (std::vector<std::int64_t>{to, to == 0, to == last + 1}));
        if (to > 0 && to <= last) return expectRecord(table, to);
        EXPECT_EQ(valueOf(table, 1) + valueOf(table, 2), std::string(kText, ' '));
    }

    void work(int who) {
        std::uint32_t table = tables[who];
        int work = random.number(0, kWorks);
        if (work == kAppend) {
            int count = random.number(1, 3), first = lib().DbfAppend(table, count);
            for (int i = 0; first > 0 && i < count; ++i) setBlank(first + i, who);
        }
        if (work == kUnlock || (work == kAppend && random.oneIn(2))) lib().DbfUnlock(table);
        if (work <= kUnlock) return;
        auto own = owners.begin();
        do {
            own = std::next(owners.begin(), random.number(0, static_cast<int>(owners.size()) - 1));
        } while (own->second != who);
        lib().DbfGoto(table, own->first);
        if (work == kLock) {
            lib().DbfRlock(table, 1);
            return;
        }
        if (work == kDelete) {
            bool deletes = random.oneIn(2);
            if (disk.fault.atCall) return;  // what has failed would not be told
            (deletes ? lib().DbfDelete : lib().DbfRecall)(table);
            values[{own->first, 0}] = deletes ? "*" : "";
            return;
        }
        int field = random.number(1, fox ? 2 : 3);
        std::string value = random.text("ab", field == 1 ? kText : random.oneIn(4) ? 3000 : 150);
        if (!lib().DbfFieldPut(table, field, value.c_str()) || (field == 2 && value.empty())) return;
        values[{own->first, field}] = field == 1 ? lab::padded(value, kText) : value;
    }

    void step() {
        int who = shared ? random.number(0, 1) : 0, left = random.number(1, 2 * kMostCalls);
        disk.onCall = [&] {
            if (--left != 0 || !shared) return;
            lab::Fault fault = std::exchange(disk.fault, {});
            int calls = disk.calls;
            work(1 - who);
            disk.calls = calls;
            disk.fault = fault;
        };
        if (random.oneIn(3)) {
            disk.fault = {.atCall = disk.calls + random.number(1, kMostCalls),
                          .lasts = faultsLast && random.oneIn(2),
                          .fallsShort = random.oneIn(2)};
        }
        std::size_t capacity = disk.capacity;
        if (random.oneIn(9)) {
            disk.capacity = static_cast<std::size_t>(random.number(0, 2000));
            for (const std::string& name : disk.names()) disk.capacity += bytes(name).size();
        }
        work(who);
        disk.onCall = {};
        disk.capacity = capacity;
        std::uint32_t& table = tables[shared ? random.number(0, 1) : 0];
        // Closing that fails can be tried again, and nothing else then.
        bool closes = random.oneIn(15), closed = closes && random.oneIn(2) && lib().DbfClose(table) == 0;
        disk.fault = {};
        closed = closed || (closes && lib().DbfClose(table) == 0);
        EXPECT_TRUE(closed || !closes || faultsLast);
        // Those that the library takes for the moment of a write.
        for (const char* lock : {"T.DBF 3000000002", "T.DBT", "T.FPT", "T.BLO"})
            EXPECT_TRUE(faultsLast || disk.locks().find(lock) == std::string::npos) << disk.locks();
        if (closed) table = lib().DbfOpen("T", mode);
        if (!shared) walk(table);
    }
};

TEST_P(Handles, HaveAllThatWasDone) {
    for (int round = 1; round <= 500 && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        faultsLast = round % 2;
        putTable();
        for (int i = 0; i < 60; ++i) step();
        // A lock that a lasting fault leaves goes with its handle, and the other one can be closed then.
        for (int who : {0, 1, 0}) lib().DbfClose(tables[who]);
        EXPECT_EQ(disk.openFiles(), 0u);
        for (std::int32_t reading : {kPrivateMode, kSharedMode}) {
            std::uint32_t table = open("T", reading);
            EXPECT_EQ(lib().DbfLastrec(table), owners.size());
            for (auto& [record, owner] : owners) {
                lib().DbfGoto(table, record);
                expectRecord(table, record);
            }
            EXPECT_EQ(lib().DbfClose(table), 0);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Tables, Handles,
                         testing::Combine(testing::Bool(), testing::Values(kPrivateMode, kSharedMode)));

// What is read under a new lock is what the file holds.
class NewLocks : public TableTest, public testing::WithParamInterface<bool> {
 protected:
    std::uint32_t one = 0, two = 0;

    void SetUp() override {
        putFiles(0x83, "A,C,2:M,M,10", {" 11", " 22", " 33"}, {"memo"});
        one = open("T", kSharedMode);
        two = open("T", kSharedMode);
    }
    bool lock(std::uint32_t table) { return GetParam() ? lib().DbfLock(table) : lib().DbfRlock(table, 1); }
    void change(std::uint32_t table, int field, const char* value) {
        EXPECT_TRUE(lock(table));
        EXPECT_EQ(lib().DbfFieldPut(table, field, value), 1);
        EXPECT_EQ(lib().DbfUnlock(table), 1);
    }
};

TEST_P(NewLocks, ForgetWhatIsUnchanged) {
    using Use = void (*)(std::uint32_t table);
    // Whatever comes first under the lock.
    for (Use use : {Use{[](std::uint32_t t) { EXPECT_EQ(valueOf(t, 1), "bb"); }},
                    {[](std::uint32_t t) { EXPECT_STREQ(lib().DbfFieldGet(t, 2, Dest(6)), "other"); }},
                    {[](std::uint32_t t) { EXPECT_EQ(lib().DbfFieldSize(t, 2), 5u); }},
                    {[](std::uint32_t t) { EXPECT_EQ(recordOf(t).substr(0, 2), "bb"); }},
                    {[](std::uint32_t t) { EXPECT_EQ(lib().DbfIsDeleted(t), 1); }},
                    {[](std::uint32_t t) { lib().DbfRecordPut(t, "bb         1"); }},
                    {[](std::uint32_t t) { EXPECT_EQ(lib().DbfFieldPut(t, 2, "memo"), 1); }},
                    {[](std::uint32_t t) { lib().DbfDelete(t); }},
                    {[](std::uint32_t t) { lib().DbfGoto(t, 1); }},
                    {[](std::uint32_t t) { lib().DbfGoto(t, 9), lib().DbfGoto(t, 1); }},
                    {[](std::uint32_t) {}}}) {
        SetUp();
        lib().DbfDelete(two);
        change(two, 1, "bb");
        change(two, 2, "other");
        EXPECT_EQ(valueOf(one, 1), "11") << "held without a lock";
        EXPECT_TRUE(lock(one) && lock(one)) << "forgotten, and yet the current record";
        EXPECT_EQ(placeOf(one), (std::vector<std::int64_t>{1, 0, 0}));
        use(one);
        EXPECT_EQ(valueOf(one, 1), "bb");
        EXPECT_EQ(lib().DbfUnlock(one), 1);
        EXPECT_EQ(bytes("T.DBF").substr(97, 3), "*bb");
        change(two, 1, "cc");
        change(one, 2, "last");
        EXPECT_EQ(bytes("T.DBF").substr(98, 2), "cc");
    }
}

TEST_P(NewLocks, WhoseRecordCannotBeRead) {
    EXPECT_TRUE(lock(one));
    disk.fault = {.atCall = disk.calls + 1, .lasts = true};
    EXPECT_EQ(lib().DbfFieldPut(one, 1, "xx"), 0);
    disk.fault = {};
    EXPECT_EQ(placeOf(one), (std::vector<std::int64_t>{1, 0, 0}));
    lib().DbfGoto(one, 1);
    EXPECT_EQ(valueOf(one, 1), "11");
    EXPECT_EQ(lib().DbfUnlock(one), 1);
    EXPECT_TRUE(lock(one));
    bytes("T.DBF").resize(97);
    EXPECT_EQ(lib().DbfLastrec(one), 0u);
    EXPECT_EQ(valueOf(one, 1), "  ") << "no longer there";
}

INSTANTIATE_TEST_SUITE_P(Tables, NewLocks, testing::Bool());

}  // namespace
}  // namespace vx::test
