// A shared table through two handles: each puts into records of its own and appends, while the other one does the same
// between any two calls of the disk, which fail now and then. What was done, and only that, is there afterwards.
#include <map>

#include "tests/seam/tables.h"

namespace vx::test {
namespace {

class TwoHandles : public TableTest, public testing::WithParamInterface<bool> {
 protected:
    static constexpr int kRecords = 6, kFields = 3, kText = 30, kMostCalls = 12;
    enum Work { kAppend, kUnlock, kLock, kWorks = 10 };  // all others put

    bool fox = GetParam();
    RandomTexts random{3};
    std::uint32_t tables[2] = {};
    std::map<int, int> owners;  // of records
    std::map<std::pair<int, int>, std::string> values;

    void putTable() {
        putFiles(fox ? 0xF5 : 0xC3, fox ? "T,C,30:M,M,10:B,V,20" : "T,C,30:M,M,10:B,B,20", Texts(kRecords, " "));
        owners.clear();
        values.clear();
        for (int record = 1; record <= kRecords; ++record) setBlank(record, record % 2);
        for (std::uint32_t& table : tables) table = lib().DbfOpen("T", kSharedMode);
    }

    void setBlank(int record, int owner) {
        EXPECT_TRUE(owners.emplace(record, owner).second) << "appended twice: " << record;
        for (int field = 1; field <= kFields; ++field)
            values[{record, field}] = std::string(field == 1 ? kText : 0, ' ');
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
        int field = random.number(1, fox ? 2 : 3);
        std::string value = random.text("ab", field == 1 ? kText : random.oneIn(4) ? 3000 : 150);
        if (!lib().DbfFieldPut(table, field, value.c_str()) || (field == 2 && value.empty())) return;
        values[{own->first, field}] = field == 1 ? lab::padded(value, kText) : value;
    }

    void step() {
        int who = random.number(0, 1), left = random.number(1, 2 * kMostCalls);
        disk.onCall = [&] {
            if (--left != 0) return;
            lab::Fault fault = std::exchange(disk.fault, {});
            int calls = disk.calls;
            work(1 - who);
            disk.calls = calls;
            disk.fault = fault;
        };
        if (random.oneIn(4))
            disk.fault = {.atCall = disk.calls + random.number(1, kMostCalls), .fallsShort = random.oneIn(2)};
        work(who);
        disk.onCall = {};
        disk.fault = {};
        std::uint32_t& table = tables[random.number(0, 1)];
        if (random.oneIn(21) && lib().DbfClose(table) == 0) table = lib().DbfOpen("T", kSharedMode);
    }
};

TEST_P(TwoHandles, HaveAllThatWasDone) {
    for (int round = 1; round <= 500 && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        putTable();
        for (int i = 0; i < 60; ++i) step();
        for (std::uint32_t table : tables) EXPECT_EQ(lib().DbfClose(table), 0);
        for (std::int32_t mode : {kPrivateMode, kSharedMode}) {
            std::uint32_t table = open("T", mode);
            EXPECT_EQ(lib().DbfLastrec(table), owners.size());
            for (auto& [place, value] : values) {
                lib().DbfGoto(table, place.first);
                EXPECT_EQ(valueOf(table, place.second), value) << "record " << place.first << " field " << place.second;
            }
            EXPECT_EQ(lib().DbfClose(table), 0);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Tables, TwoHandles, testing::Bool());

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
