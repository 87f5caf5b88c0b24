// Tables: all versions, what is refused, handles, appends and unlocking that fail, the store of blobs.
#include <map>
#include <set>

#include "tests/seam/tables.h"

namespace vx::test {
namespace {

using lab::blobReference;
using lab::little;
using lab::tableBytes;

class Tables : public TableTest {
 protected:
    // A table with blobs and a record.
    std::uint32_t withBlobs(const char* fields, const std::string& data, const std::string& blobs) {
        putFiles(0x43, fields, {" " + data});
        bytes("T.BLO") = blobs;
        return open();
    }
};

TEST_F(Tables, VersionsAndTheirCompanions) {
    for (int version = 0; version < 256; ++version) {
        bool fox = version == 0xF5, accepted = (version & 31) == 3 || fox;
        std::map<std::string, bool> needs{
            {"T.DBT", (version & 0x80) && !fox}, {"T.FPT", fox}, {"T.BLO", (version & 0x40) && !fox}, {"", false}};
        for (auto [missing, needed] : needs) {
            putFiles(version, "A,C,3", {" abc"});
            if (!missing.empty()) disk.erase(missing.c_str());
            std::uint32_t table = lib().DbfOpen("T", kPrivateMode);
            EXPECT_EQ(table != 0, accepted && !needed) << version << " without " << missing;
            EXPECT_EQ(disk.openFiles(), table ? 1u + needs["T.DBT"] + needs["T.FPT"] + needs["T.BLO"] : 0u) << version;
            EXPECT_EQ(lib().DbfClose(table), table ? 0 : -1);
        }
    }
}

// Both give 0 for what fails, the cause, and leave nothing open.
TEST_F(Tables, CreatingAndOpeningFail) {
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
                disk.fault = {.atCall = disk.calls + n, .fallsShort = fallsShort, .code = 1234u};
                table = run();
                disk.fault = {};
                // The last call of opening counts the records; that there are none is known anyway.
                EXPECT_EQ(table != 0, !creates && n == calls);
                EXPECT_EQ(fake.process.error, 1234u);
                EXPECT_EQ(lib().DbfClose(table), table ? 0 : -1);
                EXPECT_EQ(disk.openFiles(), 0u);
            }
        }
    }
}

TEST_F(Tables, HandlesOfManyTables) {
    putFiles(3, "A,C,5", {" first"});
    std::set<std::int32_t> handles;
    for (int i = 0; i < 600; ++i) handles.insert(static_cast<std::int32_t>(open("T", 0)));
    EXPECT_EQ(handles.size(), 600u);
    EXPECT_GT(*handles.begin(), 0);
    for (int i = 0; i < 9000; ++i) {
        std::uint32_t handle = lib().DbfOpen("T", 0);
        ASSERT_EQ(lib().DbfRecno(handle), 1) << "generation " << i;
        ASSERT_EQ(lib().DbfClose(handle), 0);
        ASSERT_EQ(lib().DbfRecno(handle), 0);
    }
}

TEST_F(Tables, SizeOfAMemoWhenTheFilesSizeIsNotTold) {
    putFiles(0xF5, "M,M,10", {" " + lab::memoReference(8)}, {"first"});
    std::uint32_t table = open();
    EXPECT_EQ(lib().DbfFieldSize(table, 1), 5u);
    disk.fault = {.atCall = disk.calls + 2};
    EXPECT_EQ(lib().DbfFieldSize(table, 1), 0u);
}

class Failing : public TableTest {
 protected:
    std::uint32_t one = 0, two = 0;

    void SetUp() override {
        disk.put("T.DBF", tableBytes(3, "A,C,2", {" 1", " 2", " 3"}));
        one = open("T", kSharedMode);
        two = open("T", kSharedMode);
    }
    void onceItGrows(std::function<void()> work) {
        disk.onCall = [this, work, size = bytes("T.DBF").size()] {
            if (bytes("T.DBF").size() == size) return;
            auto now = work;
            disk.onCall = {};
            now();
        };
    }
    void expectCount(std::uint64_t count) {
        EXPECT_EQ(bytes("T.DBF").substr(4, 4), little(count, 4));
        EXPECT_EQ(bytes("T.DBF").size(), 65 + 3 * count);
    }
};

TEST_F(Failing, UnlockingKeepsTheLockAndTheChange) {
    EXPECT_EQ(lib().DbfLock(one), 1);
    for (int call : {1, 2, 3}) {  // that writes, commits, unlocks
        lib().DbfFieldPut(one, 1, "zz");
        disk.fault = {.atCall = disk.calls + call};
        EXPECT_EQ(lib().DbfUnlock(one), 0) << call;
        EXPECT_EQ(disk.locks(), "T.DBF 1000000001+2000000000");
    }
    EXPECT_EQ(lib().DbfUnlock(one), 1);
    EXPECT_EQ(bytes("T.DBF").substr(66, 2), "zz");
}

// What an append wrote that finds no room is counted by none, not even by a handle that writes its header meanwhile.
TEST_F(Failing, Appends) {
    EXPECT_EQ(lib().DbfAppend(one, INT32_MAX), 0) << "behind the last position";
    EXPECT_EQ(disk.locks(), "T.DBF 1000000000+1") << "the others can have the numbers";
    onceItGrows([&] { disk.fault = {.atCall = 1, .lasts = true}; });
    EXPECT_EQ(lib().DbfAppend(two, 1), 4) << "to be counted later";
    disk.fault = {};
    disk.capacity = bytes("T.DBF").size() + 5000;
    onceItGrows([&] {
        EXPECT_EQ(lib().DbfClose(two), 0);
        EXPECT_NE(bytes("T.DBF").substr(4, 4), little(4, 4));
    });
    EXPECT_EQ(lib().DbfAppend(one, 2000), 0);
    expectCount(4);
    EXPECT_EQ(disk.locks(), "T.DBF 1000000000+1");
    // What cannot be cut off is kept from the others until it can.
    two = open("T", kSharedMode);
    onceItGrows([&] { disk.fault = {.atCall = disk.calls + 1}; });
    EXPECT_EQ(lib().DbfAppend(two, 2000), 0);
    disk.fault = {};
    EXPECT_GT(bytes("T.DBF").size(), 65u + 3 * 4);
    EXPECT_EQ(lib().DbfAppend(one, 1), 0);
    EXPECT_EQ(lib().DbfClose(one), 0);
    EXPECT_EQ(lib().DbfUnlock(two), 1);
    expectCount(4);
    EXPECT_EQ(disk.locks(), "");
}

// Records that are copies of others, or were read before another handle changed them, refer to blobs that are gone:
// what is in their place stays.
TEST_F(Tables, BlobsThatAreGone) {
    std::string three = lab::bloBytes({std::string(100, '1'), std::string(100, '2'), std::string(100, '3')});
    std::string second = blobReference(188, 100), record = blobReference(64, 100) + second + blobReference(312, 100);
    struct Row {
        std::vector<int> freed;
        std::size_t taken;  // size of a new blob
    };
    // A part of a free block, a block of another size, what is in a larger block.
    for (const Row& row : {Row{{1, 3, 2}, 0}, {{2}, 90}, {{1, 3, 2}, 340}}) {
        std::uint32_t table = withBlobs("A,B,20:B,B,20:C,B,20:COPY,B,20:NEW,B,20", record + second, three);
        for (int field : row.freed) EXPECT_EQ(lib().DbfFieldPut(table, field, ""), 1);
        std::string taken(row.taken, 't');
        EXPECT_EQ(lib().DbfFieldPut(table, 5, taken.c_str()), 1);
        for (std::size_t size : {90, 200, 300}) {
            EXPECT_EQ(lib().DbfFieldPut(table, 4, std::string(size, 'v').c_str()), 1);
            EXPECT_EQ(valueOf(table, 4) + valueOf(table, 5), std::string(size, 'v') + taken) << row.taken;
            EXPECT_TRUE(lab::blocksOf(bytes("T.BLO")).ends_with(" end"));
        }
    }
}

// Any number of a store's list may be damaged: what is in use and whole stays, and what is put is there.
TEST_F(Tables, BlobStoreWithADamagedList) {
    auto block = [](std::uint32_t start, std::uint32_t next, std::uint32_t previous, std::uint32_t used) {
        std::string data = lab::padded(used ? "stays" : "", 40, '.');
        return lab::blobHeader(next, previous, used, 40) + data + little(start, 4);
    };
    const std::string sound = lab::blobFileHeader(64) + block(64, 192, 0, 0) + block(128, 0, 0, 5) +
                              block(192, 320, 64, 0) + block(256, 0, 0, 5) + block(320, 384, 192, 0) +
                              lab::blobHeader(0, 320, 0, 0);
    for (std::size_t at = 2; at < sound.size(); at = at == 2 ? 68 : at + (at % 64 == 16 ? 44 : at % 64 == 60 ? 8 : 4)) {
        for (std::uint32_t to : {0, 3, 20, 64, 128, 192, 256, 320, 384, 9999, 9999999}) {
            SCOPED_TRACE(testing::Message() << to << " at " << at);
            std::uint32_t table = withBlobs("A,B,20:B,B,20:C,B,20", blobReference(128, 5) + blobReference(256, 5),
                                            std::string(sound).replace(at, 4, little(to, 4)));
            for (const char* first : {"", "again"}) {
                EXPECT_EQ(lib().DbfFieldPut(table, 1, first), 1);
                for (std::size_t size : {1, 30, 400, 60, 0}) {
                    EXPECT_EQ(lib().DbfFieldPut(table, 3, std::string(size, 'v').c_str()), 1);
                    EXPECT_EQ(valueOf(table, 1) + valueOf(table, 3), first + std::string(size, 'v'));
                    bool isDamaged = at >= 256 && at < 320;
                    EXPECT_TRUE(isDamaged || valueOf(table, 2) == "stays");
                }
            }
        }
    }
}

}  // namespace
}  // namespace vx::test
