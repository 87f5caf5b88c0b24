// Damaged tables: each byte of small ones changed, and each file cut at every length. Whatever is in them, all that can
// be done with a table ends, in buffers of the documented sizes, and the files do not grow beyond measure.
#include <algorithm>
#include <map>

#include "tests/seam/tables.h"

namespace vx::test {
namespace {

using FileSet = std::map<std::string, std::string>;

class Damage : public TableTest {
 protected:
    static constexpr int kMostCalls = 3000;
    static constexpr std::size_t kMostBytes = std::size_t{1} << 22;

    // A table of a version with its companions.
    FileSet seed(int version) {
        bool fox = version == 0xF5, blobs = (version & 0x40) && !fox, memos = version & 0x80;
        std::string fields = "T,C,4:N,N,5,2:X,X,2";
        Texts records;
        for (int i = 1; i <= 3; ++i) {
            records.push_back(" abcd 1.25xy" + (memos ? lab::memoReference(fox ? 7 + i : i) : "") +
                              (blobs ? lab::blobReference(i == 3 ? 212 : 64, i == 3 ? 50 : 3) : ""));
        }
        fields += std::string(memos ? ":M,M,10" : "") + (blobs ? ":B,B,20" : "");
        putFiles(version, fields.c_str(), records, {"one", std::string(70, 'x')},
                 {"one", std::string(60, 'f'), std::string(50, 'y')});
        // The second blob is free.
        std::string blob = bytes("T.BLO").replace(2, 4, lab::little(128, 4)).replace(286 + 8, 4, lab::little(128, 4));
        FileSet files{{"T.DBF", bytes("T.DBF")}};
        if (memos && !fox) files["T.DBT"] = bytes("T.DBT").substr(0, 1100);
        if (fox) files["T.FPT"] = bytes("T.FPT");
        if (blobs) files["T.BLO"] = blob.replace(128, 20, lab::blobHeader(286, 0, 0, 60));
        return files;
    }

    void readAndPut(std::uint32_t table) {
        int fields = std::min(lib().DbfFieldCount(table), 40);
        for (int i = 1; i <= fields; ++i) {
            Dest name(11), type(2);
            lib().DbfFieldPos(table, lib().DbfFieldName(table, i, name));
            lib().DbfFieldOff(table, i);
            char letter = *lib().DbfFieldType(table, i, type);
            bool isOutside = letter == 'M' || letter == 'B';
            auto room = static_cast<std::size_t>(lib().DbfFieldLen(table, i));
            // A blob's size is what the record says; there is never more of it than the file holds.
            if (isOutside) room = std::min<std::size_t>(lib().DbfFieldSize(table, i), kMostBytes);
            Dest value(room + 1);
            ASSERT_LE(lib().strdbfFieldGet(table, i, value), room);
            lib().DbfFieldPut(table, i, i % 2 ? "a new value, longer than it was" : "7");
        }
        recordOf(table);
    }

    void useAll(const FileSet& files, std::int32_t mode) {
        for (auto& [name, content] : files) disk.put(name, content);
        int before = disk.calls;
        std::uint32_t table = lib().DbfOpen("T", mode);
        if (table) {
            for (int i = 0; i < 4; ++i) {
                readAndPut(table);
                lib().DbfIsDeleted(table) ? lib().DbfRecall(table) : lib().DbfDelete(table);
                lib().DbfSkip(table, 1);
            }
            for (int record : {0, INT32_MAX, -3, static_cast<int>(lib().DbfLastrec(table))})
                lib().DbfGoto(table, record);
            readAndPut(table);
            if (lib().DbfAppend(table, 2) > 0) readAndPut(table);
            lib().DbfClose(table);
        }
        ASSERT_EQ(disk.openFiles(), 0u);
        ASSERT_LE(disk.calls - before, kMostCalls);
    }

    void SetUp() override { disk.capacity = kMostBytes; }
};

TEST_F(Damage, EachByteChangedAndCutAtEveryLength) {
    int tables = 0;
    for (int version : {0x03, 0x23, 0x43, 0x63, 0x83, 0xA3, 0xC3, 0xE3, 0xF5}) {
        FileSet files = seed(version);
        for (auto& [name, content] : files) {
            const std::string sound = content;
            for (std::size_t at = 0; at <= sound.size(); ++at) {
                SCOPED_TRACE(testing::Message() << std::hex << version << " " << name << " at " << at);
                content = sound.substr(0, at);
                for (std::int32_t mode : {kPrivateMode, kSharedMode, 0}) ASSERT_NO_FATAL_FAILURE(useAll(files, mode));
                content = sound;
                // The companions of one version are those of all others, too.
                if (at == sound.size() || (name != "T.DBF" && version != 0xE3 && version != 0xF5)) continue;
                for (int value : {0x00, 0xFF, sound[at] ^ 0x80, sound[at] ^ 0x01, sound[at] + 1, sound[at] + 0x20}) {
                    content[at] = static_cast<char>(value);
                    ASSERT_NO_FATAL_FAILURE(useAll(files, ++tables % 2 ? kPrivateMode : kSharedMode)) << value;
                }
                content = sound;
            }
        }
    }
    EXPECT_GT(tables, 10000);
}

}  // namespace
}  // namespace vx::test
