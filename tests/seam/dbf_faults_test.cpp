// Tables on a disk that fails: at every call of an operation, once or for good, with nothing or half of it done. The
// result tells, and whatever was in the files before is there afterwards.
#include <algorithm>
#include <map>

#include "tests/seam/tables.h"

namespace vx::test {
namespace {

constexpr std::uint32_t kCause = 1234;
constexpr std::int32_t kRefused = -1;  // by the put itself: nothing stays in memory

// The values of a table, read by itself through a handle of its own.
using Values = std::map<std::pair<int, int>, std::string>;

class Faults : public TableTest {
 protected:
    static constexpr int kRecords = 30, kFields = 3;

    // Records of 100 bytes, each with a memo or a blob.
    void putTable(bool fox) {
        Texts records, memos;
        for (int i = 1; i <= kRecords; ++i) {
            memos.push_back("memo " + std::to_string(i));
            std::string data = lab::padded("text " + std::to_string(i), 69) + lab::memoReference(fox ? i + 7 : i);
            records.push_back(" " + data + (i % 2 ? lab::blobReference(64 * i, 6) : std::string(20, ' ')));
        }
        putFiles(fox ? 0xF5 : 0xC3, fox ? "TEXT,C,69:MEMO,M,10:BLOB,C,20" : "TEXT,C,69:MEMO,M,10:BLOB,B,20", records,
                 memos, Texts(kRecords, "a blob"));
    }

    Values valuesNow(std::int32_t mode) {
        disk.fault = {};
        Values values;
        std::uint32_t table = lib().DbfOpen("T", mode);
        EXPECT_NE(table, 0u);
        std::uint32_t count = lib().DbfLastrec(table);
        for (std::uint32_t i = 1; i <= count; ++i) {
            lib().DbfGoto(table, static_cast<std::int32_t>(i));
            for (int field = 1; field <= kFields; ++field) values[{static_cast<int>(i), field}] = valueOf(table, field);
        }
        EXPECT_EQ(lib().DbfClose(table), 0);
        return values;
    }
};

struct Operation {
    const char* name;
    std::int32_t (*run)(std::uint32_t table);
    std::int32_t works;  // its result then
    int field;           // of record 1, which then has the value; 0 for none
    std::string value;
    bool staysInMemory;  // until it can be written
};

std::int32_t putAndGo(std::uint32_t table) {
    lib().DbfFieldPut(table, 1, "put");
    lib().DbfGoto(table, 30);
    return lib().DbfGoto(table, 29);
}

std::int32_t putLocked(std::uint32_t table) {
    lib().DbfLock(table);
    bool done = lib().DbfFieldPut(table, 1, "put");
    std::int32_t unlocked = lib().DbfUnlock(table);
    return done ? unlocked : kRefused;
}

const std::string kLongMemo(5000, 'x'), kBlob(20, 'b'), kLongBlob(300, 'b');

const Operation kOperations[] = {
    {"memo", [](std::uint32_t t) { return lib().DbfFieldPut(t, 2, "a new memo"); }, 1, 2, "a new memo", false},
    {"long memo", [](std::uint32_t t) { return lib().DbfFieldPut(t, 2, kLongMemo.c_str()); }, 1, 2, kLongMemo, false},
    {"blob", [](std::uint32_t t) { return lib().DbfFieldPut(t, 3, kBlob.c_str()); }, 1, 3, kBlob, false},
    {"long blob", [](std::uint32_t t) { return lib().DbfFieldPut(t, 3, kLongBlob.c_str()); }, 1, 3, kLongBlob, false},
    {"no blob", [](std::uint32_t t) { return lib().DbfFieldPut(t, 3, ""); }, 1, 3, "", false},
    {"append", [](std::uint32_t t) { return lib().DbfAppend(t, 3); }, 31, 0, "", false},
    {"put", [](std::uint32_t t) { return lib().DbfFieldPut(t, 1, "put"); }, 1, 1, "put", true},
    {"put and go", putAndGo, 30, 1, "put", true},
    {"put under a lock", putLocked, 1, 1, "put", true},
};

class EveryCall : public Faults, public testing::WithParamInterface<std::tuple<bool, std::int32_t>> {
 protected:
    bool fox = std::get<0>(GetParam());
    std::int32_t mode = std::get<1>(GetParam());

    // How often the operation and the closing of the table call the disk.
    int runOnce(const Operation& operation, lab::Fault fault) {
        putTable(fox);
        Values expected = valuesNow(mode);
        std::uint32_t table = lib().DbfOpen("T", mode);
        int start = disk.calls;
        if (fault.atCall) fault.atCall += start;
        disk.fault = fault;
        std::int32_t result = operation.run(table);
        bool worked = result == operation.works;
        // Those that the library takes for the moment of a write.
        for (const char* lock : {"T.DBF 3000000002", "T.DBT", "T.FPT", "T.BLO"})
            EXPECT_TRUE(fault.lasts || disk.locks().find(lock) == std::string::npos) << lock;
        bool closed = lib().DbfClose(table) == 0;
        int calls = disk.calls - start;
        disk.fault = {};
        if (!closed) {
            EXPECT_EQ(lib().DbfClose(table), 0) << "closing can be tried again";
        }
        EXPECT_EQ(disk.openFiles(), 0u);
        if (worked || (operation.staysInMemory && result != kRefused)) change(expected, operation);
        EXPECT_EQ(valuesNow(mode), expected) << (worked ? "worked" : "failed");
        return calls;
    }

    void change(Values& values, const Operation& operation) {
        std::string& value = values[{1, std::max(operation.field, 1)}];
        if (operation.field == 1) value = lab::padded(operation.value, 69);
        if (operation.field > 1) value = operation.value;
        if (operation.field != 0) return;
        for (int record = kRecords + 1; record <= kRecords + 3; ++record) {
            for (auto [field, size] : {std::pair(1, 69), {2, 0}, {3, fox ? 20 : 0}})
                values[{record, field}] = std::string(static_cast<std::size_t>(size), ' ');
        }
    }
};

TEST_P(EveryCall, LeavesWhatItsResultTells) {
    for (const Operation& operation : kOperations) {
        SCOPED_TRACE(operation.name);
        if (fox && operation.field == 3) continue;  // no blobs
        int calls = runOnce(operation, {});
        for (int kind = 0; kind < 4; ++kind) {
            for (int n = 1; n <= calls && !HasFailure(); ++n) {
                SCOPED_TRACE(testing::Message() << "call " << n << " of " << calls << ", kind " << kind);
                runOnce(operation, {.atCall = n, .lasts = (kind & 1) != 0, .fallsShort = (kind & 2) != 0});
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Tables, EveryCall,
                         testing::Combine(testing::Bool(), testing::Values(kPrivateMode, kSharedMode)));

// Both give 0 for what fails, the cause, and leave nothing open.
TEST_F(Faults, CreatingAndOpening) {
    for (bool creates : {true, false}) {
        auto run = [&] { return creates ? lib().DbfStrCreate("N", "A,C,5:B,B:M,M") : lib().DbfOpen("N", kSharedMode); };
        int start = disk.calls;
        std::uint32_t table = run();
        int calls = disk.calls - start;
        EXPECT_EQ(lib().DbfClose(table), 0);
        for (int n = 1; n <= calls; ++n) {
            for (bool fallsShort : {false, true}) {
                SCOPED_TRACE(testing::Message() << "call " << n << " of " << calls << (fallsShort ? ", half" : ""));
                fake.process.error = 0;
                disk.fault = {.atCall = disk.calls + n, .fallsShort = fallsShort, .code = kCause};
                table = run();
                disk.fault = {};
                // The last call of opening counts the records; that there are none is known anyway.
                EXPECT_EQ(table != 0, !creates && n == calls);
                EXPECT_EQ(fake.process.error, kCause);
                EXPECT_EQ(lib().DbfClose(table), table ? 0 : -1);
                EXPECT_EQ(disk.openFiles(), 0u);
            }
        }
    }
}

TEST_F(Faults, FullDisk) {
    for (bool fox : {false, true}) {
        putTable(fox);
        disk.capacity = 0;
        for (const std::string& name : disk.names()) disk.capacity += disk.find(name)->data.size();
        std::map<std::string, std::string> files;
        for (const std::string& name : disk.names()) files[name] = disk.find(name)->data;
        for (std::int32_t mode : {kPrivateMode, kSharedMode}) {
            Values before = valuesNow(mode);
            std::uint32_t table = open("T", mode);
            EXPECT_EQ(lib().DbfAppend(table, 500), 0);
            EXPECT_EQ(fake.process.error, std::uint32_t{platform::kDiskFull});
            EXPECT_EQ(lib().DbfFieldPut(table, 2, std::string(30000, 'm').c_str()), 0);
            if (!fox) {
                EXPECT_EQ(lib().DbfFieldPut(table, 3, std::string(30000, 'b').c_str()), 0);
            }
            EXPECT_EQ(lib().DbfClose(table), 0);
            EXPECT_EQ(valuesNow(mode), before);
            for (auto& [name, data] : files) {
                const std::string& now = disk.find(name)->data;
                bool isTable = name.ends_with(".DBF");  // loses its end mark, and has today's date
                EXPECT_TRUE(isTable ? now.size() <= data.size() : now == data) << name;
            }
        }
        disk.capacity = std::size_t{1} << 24;
    }
}

}  // namespace
}  // namespace vx::test
