// A shared table through two handles: each puts into records of its own and appends, while the other one does the same
// between any two calls of the disk, which fail now and then. What was done, and only that, is there afterwards.
#include <map>

#include "tests/seam/tables.h"

namespace vx::test {
namespace {

class TwoHandles : public TableTest, public testing::WithParamInterface<bool> {
 protected:
    static constexpr int kRecords = 6, kFields = 3, kText = 30, kMostCalls = 12;
    enum Work { kAppend, kUnlock, kLock, kPut, kWorks = 10 };  // puts most often

    bool fox = GetParam();
    RandomTexts random{3};
    std::uint32_t tables[2] = {};
    std::map<int, int> owners;  // of records
    std::map<std::pair<int, int>, std::string> values;

    void putTable() {
        std::vector<std::string> records(kRecords, " ");
        disk.put("T.DBF", lab::tableBytes(fox ? 0xF5 : 0xC3,
                                          {{"T", 'C', kText}, {"M", 'M', 10}, {"B", fox ? 'V' : 'B', 20}}, records));
        disk.put("T.DBT", lab::dbtBytes({}));
        disk.put("T.FPT", lab::fptBytes({}));
        disk.put("T.BLO", lab::bloBytes({}));
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

    int recordOf(int owner) {
        auto at = owners.begin();
        do {
            at = std::next(owners.begin(), random.number(0, static_cast<int>(owners.size()) - 1));
        } while (at->second != owner);
        return at->first;
    }

    void append(int who) {
        int count = random.number(1, 3);
        int first = lib().DbfAppend(tables[who], count);
        for (int i = 0; first > 0 && i < count; ++i) setBlank(first + i, who);
        if (random.number(0, 1)) lib().DbfUnlock(tables[who]);
    }

    void put(int who) {
        int record = recordOf(who), field = random.number(1, fox ? 2 : 3);
        std::string value = random.text("ab", field == 1 ? kText : random.number(0, 3) ? 150 : 3000);
        lib().DbfGoto(tables[who], record);
        if (!lib().DbfFieldPut(tables[who], field, value.c_str())) return;
        if (field == 2 && value.empty()) return;
        values[{record, field}] = field == 1 ? lab::padded(value, kText) : value;
    }

    void work(int who) {
        switch (random.number(0, kWorks)) {
            case kAppend:
                return append(who);
            case kUnlock:
                lib().DbfUnlock(tables[who]);
                return;
            case kLock:
                lib().DbfGoto(tables[who], recordOf(who));
                lib().DbfRlock(tables[who], 1);
                return;
            default:
                put(who);
        }
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
        if (random.number(0, 3) == 0)
            disk.fault = {.atCall = disk.calls + random.number(1, kMostCalls), .fallsShort = random.number(0, 1) == 1};
        work(who);
        disk.onCall = {};
        disk.fault = {};
        std::uint32_t& table = tables[random.number(0, 1)];
        if (random.number(0, 20) == 0 && lib().DbfClose(table) == 0) table = lib().DbfOpen("T", kSharedMode);
    }

    void expectValues(std::int32_t mode) {
        std::uint32_t table = lib().DbfOpen("T", mode);
        EXPECT_EQ(lib().DbfLastrec(table), owners.size());
        for (auto& [place, value] : values) {
            lib().DbfGoto(table, place.first);
            EXPECT_EQ(valueOf(table, place.second), value) << "record " << place.first << " field " << place.second;
        }
        EXPECT_EQ(lib().DbfClose(table), 0);
    }
};

TEST_P(TwoHandles, HaveAllThatWasDone) {
    for (int round = 1; round <= 500 && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        putTable();
        for (int i = 0; i < 60; ++i) step();
        for (std::uint32_t table : tables) EXPECT_EQ(lib().DbfClose(table), 0);
        for (std::int32_t mode : {kPrivateMode, kSharedMode}) expectValues(mode);
    }
}

INSTANTIATE_TEST_SUITE_P(Tables, TwoHandles, testing::Bool());

// What is read under a new lock is what the file holds.
class NewLocks : public TableTest, public testing::WithParamInterface<bool> {
 protected:
    std::uint32_t one = 0, two = 0;

    void SetUp() override {
        disk.put("T.DBF", lab::tableBytes(0x83, {{"A", 'C', 2}, {"M", 'M', 10}}, {" 11", " 22", " 33"}));
        disk.put("T.DBT", lab::dbtBytes({"memo"}));
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
                    {[](std::uint32_t t) { EXPECT_EQ(valueOf(t, 2), "other"); }},
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
        EXPECT_EQ(placeOf(one), (Place{1, 0, 0}));
        use(one);
        EXPECT_EQ(valueOf(one, 1), "bb");
        EXPECT_EQ(lib().DbfUnlock(one), 1);
        EXPECT_EQ(bytes("T.DBF").substr(97, 3), "*bb");
        change(two, 1, "cc");
        change(one, 2, "last");
        EXPECT_EQ(bytes("T.DBF").substr(98, 2), "cc");
    }
}

TEST_P(NewLocks, KeepWhatIsChanged) {
    change(two, 1, "bb");
    lib().DbfDelete(one);
    EXPECT_TRUE(lock(one));
    EXPECT_EQ(valueOf(one, 1), "11");
    EXPECT_EQ(lib().DbfUnlock(one), 1);
    EXPECT_EQ(bytes("T.DBF").substr(97, 3), "*11");
    EXPECT_TRUE(lock(two));
    EXPECT_FALSE(lock(one));
    int calls = disk.calls;
    EXPECT_EQ(valueOf(one, 1), "11") << "no lock, nothing forgotten";
    EXPECT_EQ(disk.calls, calls);
    EXPECT_EQ(lib().DbfUnlock(two), 1);
    // Behind the last record, too: the one before is held.
    lib().DbfGoto(one, 3), lib().DbfGoto(two, 3);
    change(two, 1, "zz");
    lib().DbfSkip(one, 1);
    EXPECT_EQ(lib().DbfLock(one), 1);
    EXPECT_EQ(placeOf(one), (Place{4, 0, 1}));
    EXPECT_EQ(valueOf(one, 1), "  ");
    lib().DbfSkip(one, -1);
    EXPECT_EQ(valueOf(one, 1), "zz");
    EXPECT_EQ(lib().DbfUnlock(one), 1);
}

TEST_P(NewLocks, WhoseRecordCannotBeRead) {
    EXPECT_TRUE(lock(one));
    disk.fault = {.atCall = disk.calls + 1, .lasts = true};
    EXPECT_EQ(lib().DbfFieldPut(one, 1, "xx"), 0);
    disk.fault = {};
    EXPECT_EQ(placeOf(one), (Place{1, 0, 0}));
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
