// Tables: opening, moving about, whole records, when a change reaches the file.
#include <algorithm>

#include "tests/seam/tables.h"

namespace vx::test {
namespace {

using lab::tableBytes;
using Records = std::vector<std::string>;

// Numbers from 1, in records of `size` bytes with their flags.
Records numbered(int count, std::size_t size) {
    Records records;
    for (int i = 1; i <= count; ++i) records.push_back(lab::padded(" " + std::to_string(i), size, '.'));
    return records;
}

class Opening : public TableTest {
 protected:
    std::string wide(int count, int size = 100) {
        return tableBytes(3, {{"A", 'C', size - 1}}, numbered(count, static_cast<std::size_t>(size)));
    }
};

TEST_F(Opening, VersionsAndTheirCompanions) {
    for (int version = 0; version < 256; ++version) {
        SCOPED_TRACE(version);
        bool accepted = (version & 31) == 3 || version == 0xF5;
        bool fox = version == 0xF5, memo = version & 0x80, blob = (version & 0x40) && !fox;
        disk.put("T.DBF", tableBytes(version, {{"A", 'C', 3}}, {" abc"}));
        disk.put("T.DBT", lab::dbtBytes({}));
        disk.put("T.FPT", lab::fptBytes({}));
        disk.put("T.BLO", lab::bloBytes({}));
        std::uint32_t table = lib().DbfOpen("T", kPrivateMode);
        ASSERT_EQ(table != 0, accepted);
        EXPECT_EQ(disk.openFiles(), accepted ? 1u + memo + blob : 0u);
        if (accepted) {
            EXPECT_EQ(lib().DbfClose(table), 0);
        }
        for (auto [companion, needed] : {std::pair("T.DBT", memo && !fox), {"T.FPT", fox}, {"T.BLO", blob}}) {
            std::string kept = bytes(companion);
            disk.erase(companion);
            EXPECT_EQ(keep(lib().DbfOpen("T", kPrivateMode)) != 0, accepted && !needed) << companion << " missing";
            EXPECT_EQ(lib().DbfClose(opened.back()), accepted && !needed ? 0 : -1);
            EXPECT_EQ(disk.openFiles(), 0u);
            disk.put(companion, kept);
        }
    }
}

TEST_F(Opening, NamesAndExtensions) {
    disk.put("CUSTOMER.DBF", wide(1));
    disk.put("CUSTOMER.TXT", wide(2));
    disk.put("dir\\sub.dir\\plain.dbf", wide(3));
    struct Row {
        const char* name;
        std::uint32_t count;
    };
    for (auto [name, count] : {Row{"CUSTOMER", 1},
                               {"customer.txt", 2},
                               {"C:\\dir\\sub.dir\\PLAIN", 3},
                               {"", 0},
                               {"none", 0},
                               {"dir\\sub", 0},
                               {nullptr, 0}}) {
        std::uint32_t table = open(name);
        EXPECT_EQ(table != 0, count != 0) << name;
        EXPECT_EQ(lib().DbfLastrec(table), count) << name;
    }
}

TEST_F(Opening, WhatIsRefused) {
    std::string sound = wide(1);
    auto with = [&](std::size_t at, std::string bytes) { return std::string(sound).replace(at, bytes.size(), bytes); };
    auto fox = [&](std::string memo) {
        disk.put("F.DBF", tableBytes(0xF5, {{"M", 'M', 10}}, {}));
        disk.put("F.FPT", memo);
        return open("F");
    };
    disk.put("B.DBF", tableBytes(0x43, {{"B", 'B', 20}}, {}));
    for (std::string bytes :
         {sound.substr(0, 31), sound.substr(0, 63), with(8, lab::little(32, 2)), with(8, lab::little(0, 2)),
          with(10, lab::little(0, 2)), with(8, lab::little(0xFFFF, 2))}) {
        disk.put("T.DBF", bytes);
        EXPECT_EQ(open("T"), 0u) << bytes.size();
    }
    EXPECT_EQ(fox(lab::fptBytes({}).substr(0, 7)), 0u);
    EXPECT_NE(fox(lab::big(1, 8)), 0u) << "blocks of one byte";
    EXPECT_EQ(fox(std::string(512, '\0')), 0u) << "no block size";
    EXPECT_NE(fox(lab::fptBytes({})), 0u);
    for (std::string blobs : {lab::bloBytes({}).substr(0, 17), std::string(84, '\0')}) {
        disk.put("B.BLO", blobs);
        EXPECT_EQ(open("B"), 0u);
    }
    // Any header size makes whole fields.
    for (auto [size, fields] : {std::pair(33, 0), {65, 1}, {66, 1}, {64, 1}}) {
        disk.put("T.DBF", with(8, lab::little(static_cast<std::uint64_t>(size), 2)));
        std::uint32_t table = open("T");
        EXPECT_EQ(lib().DbfFieldCount(table), fields) << size;
        EXPECT_EQ(lib().DbfHeaderSize(table), size);
    }
}

TEST_F(Opening, WithoutATable) {
    disk.put("T.DBF", wide(1));
    std::uint32_t closed = lib().DbfOpen("T", kPrivateMode);
    EXPECT_EQ(lib().DbfClose(closed), 0);
    std::uint32_t other = open("T");
    for (std::uint32_t none : {0u, closed, other + 1, other ^ 0x40000u, ~0u, 1u, 0x80000000u | other}) {
        SCOPED_TRACE(none);
        EXPECT_EQ(placeOf(none), (Place{0, 1, 1}));
        EXPECT_EQ(lib().DbfGoto(none, 1) + lib().DbfSkip(none, 1) + lib().DbfHeaderSize(none) +
                      lib().DbfRecordSize(none) + lib().DbfFieldCount(none) + lib().DbfIsDeleted(none),
                  0);
        EXPECT_EQ(lib().DbfLastrec(none), 0u);
        EXPECT_EQ(lib().DbfClose(none), -1);
        EXPECT_EQ(lib().DbfRecordPut(none, "x"), 1);
        EXPECT_EQ(lib().DbfAppend(none, 1) + lib().DbfLock(none) + lib().DbfRlock(none, 1) + lib().DbfUnlock(none), 0);
        lib().DbfDelete(none);
        lib().DbfRecall(none);
        Dest dest(2);
        EXPECT_EQ(lib().DbfRecordGet(none, dest), dest.get());
        EXPECT_EQ(dest.text(), "");
        EXPECT_EQ(lib().strdbfRecordGet(none, dest), 0u);
    }
    EXPECT_EQ(lib().DbfRecordGet(other, nullptr), nullptr);
    EXPECT_EQ(lib().DbfRecordPut(other, nullptr), 1);
}

// Moves in a row: what each returns and where it leads.
TEST_F(Opening, Moves) {
    struct Row {
        bool skip;
        int to;
        Place after;
    };
    const Row rows[] = {
        {false, 5, {5, 0, 0}},         {true, -4, {1, 0, 0}},        {true, -1, {0, 1, 0}},
        {true, -1, {0, 1, 0}},         {true, 1, {1, 0, 0}},         {false, 0, {0, 1, 0}},
        {false, 55, {51, 0, 1}},       {true, -1, {50, 0, 0}},       {true, 1, {51, 0, 1}},
        {true, 1, {51, 0, 1}},         {true, -51, {0, 1, 0}},       {false, -7, {0, 1, 0}},
        {false, 51, {51, 0, 1}},       {false, 22, {22, 0, 0}},      {false, 21, {21, 0, 0}},
        {true, INT32_MAX, {51, 0, 1}}, {true, INT32_MIN, {0, 1, 0}}, {false, INT32_MAX, {51, 0, 1}},
        {false, INT32_MIN, {0, 1, 0}}, {true, 50, {50, 0, 0}},
    };
    disk.put("T.DBF", wide(50));
    for (std::int32_t mode : {0, kPrivateMode, kSharedMode}) {
        std::uint32_t table = open("T", mode);
        EXPECT_EQ(placeOf(table), (Place{1, 0, 0}));
        int before = 1;
        for (const Row& row : rows) {
            EXPECT_EQ((row.skip ? lib().DbfSkip : lib().DbfGoto)(table, row.to), before);
            EXPECT_EQ(placeOf(table), row.after) << row.to;
            before = row.after.number;
            bool none = row.after.bof || row.after.eof;
            EXPECT_EQ(recordOf(table), none ? std::string(99, ' ') : numbered(before, 100).back().substr(1));
        }
    }
    disk.put("E.DBF", wide(0));
    EXPECT_EQ(placeOf(open("E")), (Place{1, 0, 1})) << "an empty table";
}

// How many records a read fetches.
TEST_F(Opening, BufferSizes) {
    for (auto [size, records] : {std::pair(1100, 1), {1024, 1}, {1023, 3}, {100, 21}, {2, 1025}}) {
        disk.put("T.DBF", wide(2000, size));
        std::uint32_t table = open("T");
        int before = disk.calls;
        for (int i = 2; i <= records; ++i) lib().DbfSkip(table, 1);
        EXPECT_EQ(disk.calls, before) << size;
        lib().DbfSkip(table, 1);
        EXPECT_EQ(disk.calls, before + 1) << size;
        EXPECT_EQ(lib().DbfRecordSize(table), size - 1);
    }
    std::uint32_t shared = open("T", kSharedMode);
    int before = disk.calls;
    lib().DbfSkip(shared, 1);
    EXPECT_EQ(disk.calls, before + 1) << "one record when shared";
}

TEST_F(Opening, RecordsAndFlags) {
    Records records = {"*first", " second", "?third", std::string(" a\0b", 4)};
    disk.put("T.DBF", tableBytes(3, {{"A", 'C', 6}}, records));
    std::uint32_t table = open("T");
    EXPECT_EQ(lib().DbfIsDeleted(table), 1);
    lib().DbfRecall(table);
    EXPECT_EQ(lib().DbfIsDeleted(table), 0);
    lib().DbfSkip(table, 1);
    lib().DbfDelete(table);
    EXPECT_EQ(lib().DbfIsDeleted(table), 1);
    EXPECT_EQ(lib().DbfRecordPut(table, "SECOND.."), 1);
    lib().DbfSkip(table, 1);
    EXPECT_EQ(lib().DbfIsDeleted(table), 0);
    Dest dest(7);
    EXPECT_EQ(lib().strdbfRecordGet(table, dest), 6u);
    lib().DbfSkip(table, 1);
    EXPECT_EQ(lib().strdbfRecordGet(table, dest), 1u) << "up to the first NUL";
    lib().DbfSkip(table, 1);
    EXPECT_EQ(lib().DbfRecordPut(table, "nobody"), 1);
    lib().DbfDelete(table);
    EXPECT_EQ(lib().DbfIsDeleted(table), 0);
    EXPECT_EQ(recordOf(table), "      ");
    records[0] = " first";
    records[1] = "*SECOND";
    std::string before = bytes("T.DBF");
    EXPECT_EQ(lib().DbfClose(table), 0);
    EXPECT_NE(bytes("T.DBF"), before);
    EXPECT_EQ(bytes("T.DBF"), tableBytes(3, {{"A", 'C', 6}}, records)) << "the header stays as it was";
}

TEST_F(Opening, ChangesAreWrittenWhenTheBufferMoves) {
    std::string before = wide(50);
    disk.put("T.DBF", before);
    std::uint32_t table = open("T");
    std::string data(99, 'x');
    for (int number : {3, 21}) {
        lib().DbfGoto(table, number);
        lib().DbfRecordPut(table, data.c_str());
    }
    for (int within : {1, 0, 51, 21}) lib().DbfGoto(table, within);
    EXPECT_EQ(bytes("T.DBF"), before);
    lib().DbfGoto(table, 22);
    for (int number : {3, 21}) before.replace(65 + (static_cast<std::size_t>(number) - 1) * 100 + 1, 99, data);
    EXPECT_EQ(bytes("T.DBF"), before);
    lib().DbfGoto(table, 3);
    EXPECT_EQ(recordOf(table), data);
}

// A table that is open for reading only is changed in memory alone.
TEST_F(Opening, ReadingOnly) {
    disk.put("T.DBF", wide(50));
    disk.find("T.DBF")->attributes = platform::kReadOnly;
    EXPECT_EQ(open("T"), 0u);
    std::uint32_t table = open("T", 0);
    EXPECT_EQ(lib().DbfRecordPut(table, std::string(99, 'x').c_str()), 1);
    EXPECT_EQ(recordOf(table), std::string(99, 'x'));
    lib().DbfGoto(table, 40);
    EXPECT_EQ(placeOf(table).number, 40);
    lib().DbfDelete(table);
    EXPECT_EQ(lib().DbfAppend(table, 1), 0);
    EXPECT_EQ(lib().DbfClose(table), 0);
    EXPECT_EQ(bytes("T.DBF"), wide(50));
}

TEST_F(Opening, SharedTablesCountByTheFilesSize) {
    std::string all = wide(5);
    disk.put("T.DBF", wide(3));
    std::uint32_t shared = open("T", kSharedMode), own = open("T");
    bytes("T.DBF") = all.substr(0, all.size() - 50);
    bytes("T.DBF")[4] = 2;
    EXPECT_EQ(lib().DbfLastrec(own), 3u);
    lib().DbfGoto(shared, 4);
    EXPECT_EQ(placeOf(shared), (Place{4, 0, 0})) << "four and a half records";
    EXPECT_EQ(lib().DbfLastrec(shared), 4u);
    lib().DbfSkip(shared, 1);
    EXPECT_EQ(placeOf(shared), (Place{5, 0, 1}));
    bytes("T.DBF").resize(40);
    EXPECT_EQ(lib().DbfLastrec(shared), 0u);
}

// A header that counts more than there is: no record to stand on, and none to write over.
TEST_F(Opening, RecordsThatAreNotThere) {
    std::string whole = wide(30);
    disk.put("T.DBF", whole.substr(0, 65 + 2550));
    std::uint32_t table = open("T");
    EXPECT_EQ(lib().DbfLastrec(table), 30u);
    lib().DbfGoto(table, 25);
    EXPECT_EQ(recordOf(table), numbered(25, 100)[24].substr(1));
    for (int number : {26, 30}) {
        lib().DbfGoto(table, number);
        EXPECT_EQ(placeOf(table), (Place{number, 0, 0}));
        EXPECT_EQ(recordOf(table), std::string(99, ' '));
        EXPECT_EQ(lib().DbfFieldPut(table, 1, "x"), 0);
    }
    disk.put("H.DBF", std::string(whole).replace(4, 4, "\xFF\xFF\xFF\xFF", 4));
    table = open("H");
    EXPECT_EQ(lib().DbfLastrec(table), 0xFFFFFFFF);
    lib().DbfGoto(table, INT32_MAX);
    EXPECT_EQ(recordOf(table), std::string(99, ' '));
    EXPECT_EQ(lib().DbfAppend(table, 1), 0) << "would end behind the last position";
}

TEST_F(Opening, HandlesOfManyTables) {
    disk.put("T.DBF", tableBytes(3, {{"A", 'C', 5}}, {" first"}));
    std::vector<std::uint32_t> handles;
    for (int i = 0; i < 600; ++i) handles.push_back(lib().DbfOpen("T", 0));
    std::vector<std::uint32_t> sorted = handles;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(std::adjacent_find(sorted.begin(), sorted.end()), sorted.end());
    EXPECT_GT(static_cast<std::int32_t>(sorted.front()), 0);
    EXPECT_LT(sorted.back(), 0x80000000u);
    for (std::uint32_t handle : handles) EXPECT_EQ(lib().DbfClose(handle), 0);
    for (int i = 0; i < 9000; ++i) {
        std::uint32_t handle = lib().DbfOpen("T", 0);
        ASSERT_EQ(lib().DbfRecno(handle), 1) << "generation " << i;
        ASSERT_EQ(lib().DbfClose(handle), 0);
        ASSERT_EQ(lib().DbfRecno(handle), 0);
    }
}

}  // namespace
}  // namespace vx::test
