// Tables: creation byte for byte, appending, locks between handles.
#include <algorithm>

#include "tests/seam/tables.h"

namespace vx::test {
namespace {

using lab::little;
using lab::padded;
using lab::tableBytes;

class Creating : public TableTest {
 protected:
    // A created table's descriptor tells its offset and its name's length.
    static std::string descriptor(const std::string& name, char type, int length, int offset) {
        return padded(padded(name, 11, '\0') + type + little(static_cast<std::uint64_t>(offset), 4) +
                          little(static_cast<std::uint64_t>(length), 2) + little(name.size() + 1, 2),
                      32, '\0');
    }
    static std::string header(int version, int count, int headerSize, int recordSize) {
        return little(static_cast<std::uint64_t>(version), 1) + "\x64\x01\x05" +
               little(static_cast<std::uint64_t>(count), 4) + little(static_cast<std::uint64_t>(headerSize), 2) +
               little(static_cast<std::uint64_t>(recordSize), 2) + std::string(20, '\0');
    }
};

TEST_F(Creating, ByteForByte) {
    std::uint32_t table = create("T", "ID,N,5,0:NAME,C,20:NOTES,M");
    EXPECT_EQ(bytes("T.DBF"), header(0x83, 0, 129, 36) + descriptor("ID", 'N', 5, 0) + descriptor("NAME", 'C', 20, 5) +
                                  descriptor("NOTES", 'M', 10, 25) + "\x0D\x1A");
    EXPECT_EQ(bytes("T.DBT"), padded("\x01", 512, '\0') + "\x1A");
    EXPECT_EQ(placeOf(table), (Place{0, 0, 0}));
    EXPECT_EQ(recordOf(table), std::string(35, ' '));
    EXPECT_EQ(lib().DbfFieldPut(table, 1, "1"), 0);
    EXPECT_EQ(lib().DbfFieldCount(table), 3);
    EXPECT_EQ(disk.find("T.DBF")->attributes, std::uint32_t{platform::kArchive});

    table = create("B.TAB", " b , b : x , c , 300 : y , q , 3, 2 : z, f, 5, 3 : v, v, 9 : l, l : d, d, 1");
    EXPECT_EQ(bytes("B.TAB"), header(0x63, 0, 33 + 7 * 32, 1 + 20 + 300 + 3 + 5 + 1 + 8) + descriptor("B", 'B', 20, 0) +
                                  descriptor("X", 'C', 300, 20) + descriptor("Y", 'Q', 3, 320) +
                                  descriptor("Z", 'F', 5, 323) + descriptor("V", 'V', 0, 0) +
                                  descriptor("L", 'L', 1, 328) + descriptor("D", 'D', 8, 329) + "\x0D\x1A");
    EXPECT_EQ(bytes("B.BLO"),
              padded(little(0xFE07, 2) + little(64, 4) + little(0, 4) + little(60, 4) + little(60, 4), 64, '\0') +
                  padded(little(0xFE07, 2), 20, '\0'));
    EXPECT_FALSE(disk.find("B.DBT"));
}

TEST_F(Creating, Structures) {
    struct Row {
        const char* structure;
        const char* fields;  // name, type, length, offset
        int recordSize;
    };
    const Row rows[] = {
        {"A,C,5:B,N,4,2", "A C 5 0,B N 4 5,", 9},
        {"ELEVENCHARS,C,5:B,C,3", "FIELD1 C 1 0,B C 3 1,", 8},
        {"A,C,5:A,C,4:C,D", "A C 5 0,FIELD2 C 1 5,C D 8 6,", 17},
        {"FIELD2,C,5:B,C,4", "FIELD1 C 1 0,B C 4 1,", 9},
        {"TENLETTERS,N,300", "TENLETTERS N 44 0,", 300},
        {"A:B,C:C,N", "A C 1 0,B C 1 1,C N 1 2,", 3},
        {"", "FIELD1 C 1 0,", 1},
        {nullptr, "FIELD1 C 1 0,", 1},
        {"A,C,3::B,C,2:", "A C 3 0,B C 2 3,", 5},
        {"::ELEVENCHARS,C,5:B,C,3", "FIELD1 C 1 0,B C 3 1,", 8},
        {"A,C,9:V,V:A,C,9:A,N,9", "A C 9 0,V V 0 0,FIELD3 C 1 9,FIELD4 C 1 10,", 27},
        {":", "FIELD1 C 1 0,", 1},
        {"A,V:B,V:C,C,1", "A V 0 0,", 1},
        {"A,C,2:B,V:C,C,3", "A C 2 0,B V 0 0,C C 3 2,", 5},
        {"A,C,-5:B,C,3", "A C 0 0,B C 3 0,", 3},
        {"A,L,9:B,M,9:C,B,9", "A L 1 0,B M 10 1,C B 20 11,", 31},
        {"A,CHARACTER,4,9,8,7", "A C 4 0,", 4},
    };
    for (const Row& row : rows) {
        std::uint32_t table = create("T", row.structure);
        for (std::uint32_t any : {table, open("T")}) {
            std::string fields;
            for (int i = 1; i <= lib().DbfFieldCount(any); ++i) {
                Dest name(11), type(2);
                fields += std::string(lib().DbfFieldName(any, i, name)) + " " + lib().DbfFieldType(any, i, type) + " " +
                          std::to_string(lib().DbfFieldLen(any, i)) + " " + std::to_string(lib().DbfFieldOff(any, i)) +
                          ",";
            }
            EXPECT_EQ(fields, row.fields) << (any == table ? "made" : "opened");
        }
        EXPECT_EQ(lib().DbfRecordSize(table), row.recordSize) << row.structure;
        EXPECT_EQ(lib().DbfHeaderSize(table), 33 + 32 * lib().DbfFieldCount(table));
        EXPECT_EQ(lib().DbfFieldDec(table, 2),
                  std::string(row.structure ? row.structure : "") == "A,C,5:B,N,4,2" ? 2 : 0);
    }
    std::string many = "A0,C,1";
    for (int i = 1; i < 2046; ++i) many += ":A" + std::to_string(i) + ",C,1";
    EXPECT_NE(create("T", many.c_str()), 0u);
    EXPECT_EQ(create("T", (many + ":B,C,1").c_str()), 0u);
    EXPECT_NE(create("T", "A,C,65534"), 0u);
    for (const char* tooLong : {"A,C,65535", "A,C,40000:B,C,40000", "A,C,99999999999999999999", "A,N,70000"})
        EXPECT_EQ(create("T", tooLong), 0u) << tooLong;
    EXPECT_EQ(create("no\\such\\place", "A,C,1"), 0u);
    EXPECT_EQ(create(nullptr, "A,C,1"), 0u);
}

// Readers that tell letter cases apart look for a table's companions in its own.
TEST_F(Creating, CompanionsFollowTheLetterCase) {
    for (const char* name : {"low.dbf", "UP.DBF", "Mix.Dbf", "none", "a.t1", "b.x"}) create(name, "M,M:B,B");
    auto names = disk.names();
    for (const char* name :
         {"low.dbt", "low.blo", "UP.DBT", "UP.BLO", "Mix.Dbt", "Mix.Blo", "none.DBT", "a.dbt", "b.blo"})
        EXPECT_EQ(std::count(names.begin(), names.end(), std::string("C:\\") + name), 1) << name;
}

TEST_F(Creating, Appending) {
    std::uint32_t table = create("T", "ID,N,5,0:NAME,C,20:NOTES,M");
    std::string head = bytes("T.DBF").substr(32, 97);
    EXPECT_EQ(lib().DbfAppend(table, 3), 1);
    EXPECT_EQ(lib().DbfLastrec(table), 3u);
    EXPECT_EQ(placeOf(table), (Place{1, 0, 0}));
    EXPECT_EQ(bytes("T.DBF"), header(0x83, 3, 129, 36) + head + std::string(3 * 36, ' ')) << "over the end mark";
    EXPECT_EQ(lib().DbfFieldPut(table, 1, "7"), 1);
    EXPECT_EQ(lib().DbfAppend(table, 1), 4);
    EXPECT_EQ(bytes("T.DBF"), header(0x83, 4, 129, 36) + head + "     7" + std::string(138, ' '));
    fake.clock.now = {2026, 11, 1, 23, 1, 2, 3, 4};
    for (int none : {0, -1, INT32_MIN}) {
        EXPECT_EQ(lib().DbfAppend(table, none), 5);
        EXPECT_EQ(placeOf(table), (Place{5, 0, 1}));
    }
    EXPECT_EQ(lib().DbfAppend(table, 1000), 5);
    EXPECT_EQ(lib().DbfLastrec(table), 1004u);
    lib().DbfGoto(table, 1004);
    EXPECT_EQ(recordOf(table), std::string(35, ' '));
    EXPECT_EQ(fake.clock.reads, 1) << "one date for the quarter of an hour";
    std::uint32_t other = open("T");
    EXPECT_EQ(lib().DbfAppend(other, 1), 1005);
    EXPECT_EQ(bytes("T.DBF").substr(1, 7), std::string("\x7E\x0B\x17") + little(1005, 4));
    EXPECT_EQ(lib().DbfAppend(other, INT32_MAX), 0) << "behind the last position";
    EXPECT_EQ(bytes("T.DBF").size(), 129u + 1005 * 36);
    // What a table without an end mark has behind its records is written over.
    disk.put("E.DBF", tableBytes(3, {{"A", 'C', 2}}, {" ab"}, "xxxxxxxx"));
    table = open("E");
    EXPECT_EQ(lib().DbfAppend(table, 0), 2);
    EXPECT_EQ(bytes("E.DBF").substr(1, 7), std::string("\x7E\x0B\x17") + little(1, 4)) << "none is a new date";
    EXPECT_EQ(lib().DbfAppend(table, 2), 2);
    EXPECT_EQ(bytes("E.DBF").substr(65), " ab      xx");
}

TEST_F(Creating, LocksOfATableThatIsNotShared) {
    disk.put("T.DBF", tableBytes(3, {{"A", 'C', 2}}, {" ab"}));
    std::uint32_t table = open("T");
    int before = disk.calls;
    EXPECT_EQ(lib().DbfLock(table) + lib().DbfRlock(table, 5) + lib().DbfRlock(table, 0) + lib().DbfUnlock(table), 4);
    EXPECT_EQ(disk.calls, before);
}

// Which bytes of a file are locked by others than a handle of its own: asked by locking them.
class Locking : public TableTest {
 protected:
    static constexpr std::uint32_t kHeader = 1'000'000'000, kRecords = 1'000'000'000, kTable = 1'000'000'001;
    std::uint32_t one = 0, two = 0;

    void SetUp() override {
        disk.put("T.DBF", tableBytes(0xC3, {{"A", 'C', 2}, {"M", 'M', 10}, {"B", 'B', 20}}, {" 1", " 2", " 3"}));
        disk.put("T.DBT", lab::dbtBytes({}));
        disk.put("T.BLO", lab::bloBytes({}));
        one = open("T", kSharedMode);
        two = open("T", kSharedMode);
    }
    bool isFree(std::uint32_t offset, std::uint32_t length = 1, const char* file = "T.DBF") {
        std::int32_t handle = disk.open(file, kSharedMode);
        bool free = disk.lock(handle, offset, length);
        disk.close(handle);
        return free;
    }
};

TEST_F(Locking, TableAndRecordLocks) {
    EXPECT_EQ(lib().DbfUnlock(one), 1) << "nothing held";
    EXPECT_EQ(lib().DbfLock(one), 1);
    EXPECT_FALSE(isFree(kTable));
    EXPECT_FALSE(isFree(kTable + 1'999'999'999));
    EXPECT_TRUE(isFree(kTable + 2'000'000'000, 1)) << "2,000,000,000 bytes";
    EXPECT_TRUE(isFree(kHeader));
    EXPECT_EQ(lib().DbfLock(two) + lib().DbfRlock(two, 1), 0);
    EXPECT_EQ(lib().DbfUnlock(two), 1) << "a lock that failed is forgotten";
    lib().DbfGoto(one, 2);
    EXPECT_EQ(lib().DbfRlock(one, 2), 1) << "takes the place of the table lock";
    EXPECT_TRUE(isFree(kRecords + 1));
    EXPECT_FALSE(isFree(kRecords + 2));
    EXPECT_FALSE(isFree(kRecords + 3));
    EXPECT_TRUE(isFree(kRecords + 4, 1'000'000));
    EXPECT_EQ(lib().DbfRlock(two, 1), 1) << "another record";
    EXPECT_EQ(lib().DbfRlock(two, 2), 0) << "an overlap";
    EXPECT_TRUE(isFree(kRecords + 1));
    EXPECT_EQ(lib().DbfRlock(one, 0) + lib().DbfRlock(one, -1), 0);
    EXPECT_FALSE(isFree(kRecords + 2)) << "still held";
    EXPECT_EQ(lib().DbfUnlock(one), 1);
    EXPECT_TRUE(isFree(kHeader, 2'000'000'002));
    lib().DbfGoto(one, 9);
    EXPECT_EQ(lib().DbfRlock(one, 1), 0) << "no record";
    EXPECT_EQ(lib().DbfLock(two), 1);
    EXPECT_EQ(lib().DbfClose(two), 0);
    EXPECT_TRUE(isFree(kTable, 2'000'000'000)) << "closing gives it back";
}

TEST_F(Locking, GivingBackWritesFirst) {
    for (auto give :
         {+[](std::uint32_t t) { return lib().DbfUnlock(t); }, +[](std::uint32_t t) { return lib().DbfLock(t); },
          +[](std::uint32_t t) { return lib().DbfRlock(t, 1); },
          +[](std::uint32_t t) { return static_cast<std::int32_t>(lib().DbfAppend(t, 1) > 0); }}) {
        EXPECT_EQ(lib().DbfLock(one), 1);
        lib().DbfGoto(one, 1);
        std::string value = bytes("T.DBF")[130] == 'x' ? "yy" : "xx";
        lib().DbfFieldPut(one, 1, value.c_str());
        EXPECT_EQ(give(one), 1);
        EXPECT_EQ(bytes("T.DBF").substr(130, 2), value);
    }
    EXPECT_EQ(lib().DbfLock(one), 1);
    lib().DbfGoto(one, 1);
    for (int call : {1, 2, 3}) {  // that writes, commits, unlocks
        lib().DbfFieldPut(one, 1, "zz");
        disk.fault = {.atCall = disk.calls + call};
        EXPECT_EQ(lib().DbfUnlock(one), 0) << call;
        EXPECT_FALSE(isFree(kTable)) << "kept, and so is the change";
    }
    EXPECT_EQ(lib().DbfUnlock(one), 1);
    EXPECT_EQ(bytes("T.DBF").substr(130, 2), "zz");
}

TEST_F(Locking, AppendsOfSeveralHandles) {
    EXPECT_EQ(lib().DbfAppend(one, 2), 4);
    EXPECT_FALSE(isFree(kHeader)) << "kept until the table is closed";
    EXPECT_FALSE(isFree(kRecords + 4));
    EXPECT_FALSE(isFree(kRecords + 5));
    EXPECT_TRUE(isFree(kRecords + 6, 1'000'000));
    EXPECT_EQ(lib().DbfAppend(two, 0), 6);
    EXPECT_EQ(placeOf(two), (Place{6, 0, 1})) << "behind the other's";
    EXPECT_EQ(lib().DbfAppend(two, 1), 6);
    lib().DbfFieldPut(two, 1, "B6");
    lib().DbfFieldPut(one, 1, "A4");
    EXPECT_EQ(lib().DbfAppend(one, 1), 7) << "takes the place of the record lock";
    EXPECT_TRUE(isFree(kRecords + 4));
    EXPECT_FALSE(isFree(kRecords + 6));
    EXPECT_FALSE(isFree(kRecords + 7));
    EXPECT_EQ(fake.clock.sleeps.size(), 0u);
    EXPECT_EQ(bytes("T.DBF").substr(4, 4), little(7, 4)) << "the header counts all";
    EXPECT_EQ(lib().DbfUnlock(one), 1);
    EXPECT_FALSE(isFree(kHeader));
    int before = disk.calls;
    EXPECT_EQ(lib().DbfClose(one), 0);
    EXPECT_EQ(disk.calls - before, 5) << "commits, unlocks the header, closes three files";
    EXPECT_TRUE(isFree(kHeader));
    EXPECT_EQ(lib().DbfAppend(two, 1), 8);
    EXPECT_FALSE(isFree(kHeader)) << "now the other's";
    EXPECT_EQ(lib().DbfClose(two), 0);
    std::uint32_t own = open("T");
    EXPECT_EQ(lib().DbfLastrec(own), 8u);
    std::string values;
    for (int i = 1; i <= 8; ++i) lib().DbfGoto(own, i), values += valueOf(own, 1);
    EXPECT_EQ(values, "1 2 3 A4  B6    ");
}

// The header lock is tried four times, without a pause.
TEST_F(Locking, AttemptsOfTheHeaderLock) {
    auto callsOfAppend = [&](std::uint32_t table) {
        int before = disk.calls;
        EXPECT_GT(lib().DbfAppend(table, 1), 0);
        return disk.calls - before;
    };
    int first = callsOfAppend(one);
    EXPECT_EQ(callsOfAppend(two), first + 3);
    EXPECT_EQ(fake.clock.sleeps.size(), 0u);
}

TEST_F(Locking, AppendsThatMustWait) {
    std::string before = bytes("T.DBF");
    EXPECT_EQ(lib().DbfLock(two), 1);
    EXPECT_EQ(lib().DbfAppend(one, 1), 0);
    EXPECT_EQ(bytes("T.DBF"), before);
    std::uint32_t slept = 0;
    for (std::uint32_t nap : fake.clock.sleeps) slept += nap;
    EXPECT_GT(slept, 1500u);
    EXPECT_LT(slept, 3000u);
    EXPECT_EQ(lib().DbfAppend(two, 1), 4) << "the record lock replaces the table lock";
    EXPECT_TRUE(isFree(kTable, 3));
    EXPECT_EQ(lib().DbfAppend(one, 1), 5);
    lib().DbfGoto(two, 5);
    EXPECT_EQ(lib().DbfRlock(two, 10), 0) << "record 5 is the other's";
    EXPECT_EQ(lib().DbfUnlock(one), 1);
    EXPECT_EQ(lib().DbfRlock(two, 10), 1);
    EXPECT_EQ(lib().DbfAppend(one, 1), 0) << "record 6 is claimed";
}

// An append that finds no room, while another handle writes a header that it owes: what was written is counted by none.
TEST_F(Locking, AppendsThatFail) {
    EXPECT_EQ(lib().DbfAppend(one, INT32_MAX), 0) << "behind the last position";
    EXPECT_TRUE(isFree(kRecords + 4, 1'000'000)) << "the others can have the numbers";
    auto onceItGrows = [&](std::function<void()> work) {
        disk.onCall = [this, work, size = bytes("T.DBF").size()] {
            if (bytes("T.DBF").size() == size) return;
            auto now = work;
            disk.onCall = {};
            now();
        };
    };
    onceItGrows([&] { disk.fault = {.atCall = 1, .lasts = true}; });
    EXPECT_EQ(lib().DbfAppend(two, 1), 4) << "to be counted later";
    disk.fault = {};
    std::size_t size = bytes("T.DBF").size();
    disk.capacity = size + bytes("T.DBT").size() + bytes("T.BLO").size() + 5000;
    onceItGrows([&] {
        EXPECT_EQ(lib().DbfClose(two), 0);
        EXPECT_NE(bytes("T.DBF").substr(4, 4), little(4, 4));
    });
    EXPECT_EQ(lib().DbfAppend(one, 200), 0);
    EXPECT_EQ(bytes("T.DBF").size(), size);
    EXPECT_EQ(bytes("T.DBF").substr(4, 4), little(4, 4));
    EXPECT_TRUE(isFree(kRecords + 4, 1'000'000));
    // What cannot be cut off is kept from the others until it can.
    two = open("T", kSharedMode);
    onceItGrows([&] { disk.fault = {.atCall = disk.calls + 1}; });
    EXPECT_EQ(lib().DbfAppend(two, 200), 0);
    disk.fault = {};
    EXPECT_GT(bytes("T.DBF").size(), size);
    EXPECT_EQ(lib().DbfAppend(one, 1), 0);
    EXPECT_EQ(lib().DbfClose(one), 0);
    EXPECT_EQ(lib().DbfUnlock(two), 1);
    EXPECT_EQ(bytes("T.DBF").size(), size);
    EXPECT_EQ(bytes("T.DBF").substr(4, 4), little(4, 4));
    EXPECT_TRUE(isFree(kHeader, 1'000'000));
}

TEST_F(Locking, MemosAndBlobs) {
    for (auto [file, offset, field] : {std::tuple("T.DBT", 1'000'000'000u, 2), {"T.BLO", 2'000'000'000u, 3}}) {
        std::string table = bytes("T.DBF"), companion = bytes(file);
        std::int32_t handle = disk.open(file, kSharedMode);
        ASSERT_TRUE(disk.lock(handle, offset, 1));
        EXPECT_EQ(lib().DbfFieldPut(one, field, "text"), 0) << file;
        EXPECT_EQ(bytes("T.DBF") + bytes(file), table + companion) << "nothing written";
        EXPECT_EQ(valueOf(one, field), "");
        disk.unlock(handle, offset, 1);
        auto callsOfPut = [&](std::uint32_t table) {
            int before = disk.calls;
            EXPECT_EQ(lib().DbfFieldPut(table, field, "text"), 1);
            return disk.calls - before;
        };
        std::uint32_t own = open("T");
        lib().DbfGoto(own, 2);
        EXPECT_EQ(callsOfPut(one), callsOfPut(own) + 3) << "locks, commits, unlocks";
        EXPECT_TRUE(disk.lock(handle, offset, 1)) << "given back";
        disk.close(handle);
    }
}

}  // namespace
}  // namespace vx::test
