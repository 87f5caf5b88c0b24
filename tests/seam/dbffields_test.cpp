// Fields: descriptors, names, values of all types, memo and blob files.
#include <algorithm>
#include <map>

#include "tests/seam/tables.h"

namespace vx::test {
namespace {

using lab::FieldBytes;
using lab::memoReference;
using lab::tableBytes;

class Fields : public TableTest {
 protected:
    // A table of one record, whose current record it is.
    std::uint32_t with(int version, const std::vector<FieldBytes>& fields, const std::string& data) {
        disk.put("T.DBF", tableBytes(version, fields, {" " + data}));
        return open("T");
    }
    std::string inFile(std::uint32_t table) {
        EXPECT_EQ(lib().DbfClose(table), 0);
        auto start = static_cast<std::size_t>(lab::padded(bytes("T.DBF").substr(8, 1), 1)[0] & 0xFF);
        return bytes("T.DBF").substr(start + 1);
    }
};

TEST_F(Fields, Descriptors) {
    std::vector<FieldBytes> fields = {{"A", 'C', 300}, {"NUMBER", 'N', 200, 3}, {"F", 'F', 5, 130}, {"V", 'V', 7},
                                      {"D", 'D', 8},   {"TENLETTERS", 'L', 1},  {"M", 'm', 4},      {"", '?', 515}};
    std::uint32_t table = with(3, fields, "");
    struct Row {
        int len, dec, off;
    };
    // A virtual field has no place, but takes its length.
    const Row rows[] = {{300, 1, 0}, {200, 3, 300}, {5, -126, 500}, {7, 0, 0},
                        {8, 0, 512}, {1, 0, 520},   {4, 0, 521},    {515, 2, 525}};
    EXPECT_EQ(lib().DbfFieldCount(table), 8);
    for (int i = 1; i <= 8; ++i) {
        SCOPED_TRACE(i);
        const FieldBytes& field = fields[static_cast<std::size_t>(i) - 1];
        Row row = rows[i - 1];
        Dest name(11), type(2);
        EXPECT_EQ(lib().DbfFieldName(table, i, name), name.get());
        EXPECT_EQ(name.text(), field.name);
        EXPECT_EQ(lib().strdbfFieldName(table, i, name), field.name.size());
        EXPECT_EQ(lib().DbfFieldType(table, i, type), type.get());
        EXPECT_EQ(type.text(), std::string(1, field.type));
        EXPECT_EQ(lib().strdbfFieldType(table, i, type), 1u);
        EXPECT_EQ(lib().DbfFieldLen(table, i), row.len);
        EXPECT_EQ(lib().DbfFieldDec(table, i), row.dec);
        EXPECT_EQ(lib().DbfFieldOff(table, i), row.off);
        EXPECT_EQ(lib().DbfFieldPos(table, field.name.c_str()), i);
    }
}

TEST_F(Fields, WithoutAFieldOrATable) {
    std::uint32_t table = with(3, {{"A", 'C', 3}}, "abc");
    for (auto [handle, number] : {std::pair(table, 0), {table, 2}, {table, -1}, {table, INT32_MIN}, {0u, 1}}) {
        Dest name(11), type(2), value(2);
        EXPECT_STREQ(lib().DbfFieldName(handle, number, name), "");
        EXPECT_STREQ(lib().DbfFieldType(handle, number, type), "");
        EXPECT_STREQ(lib().DbfFieldGet(handle, number, value), "");
        EXPECT_EQ(lib().strdbfFieldName(handle, number, name) + lib().strdbfFieldType(handle, number, type) +
                      lib().strdbfFieldGet(handle, number, value) + lib().DbfFieldSize(handle, number),
                  0u);
        EXPECT_EQ(lib().DbfFieldLen(handle, number) + lib().DbfFieldDec(handle, number) +
                      lib().DbfFieldPut(handle, number, "x"),
                  0);
        EXPECT_EQ(lib().DbfFieldOff(handle, number), -1);
    }
    Dest dest(8);
    for (auto [handle, name] : {std::pair(table, "B"), {table, "a"}, {0u, "A"}}) {
        EXPECT_EQ(lib().DbfFieldPos(handle, name), 0);
        EXPECT_STREQ(lib().DbfField(handle, name, dest), "");
        EXPECT_EQ(lib().strdbfField(handle, name, dest), 0u);
        EXPECT_EQ(lib().DbfReplace(handle, name, "x"), 0);
    }
    for (auto call : {lib().DbfFieldGet, lib().DbfFieldName, lib().DbfFieldType})
        EXPECT_EQ(call(table, 1, nullptr), nullptr);
    EXPECT_EQ(lib().strdbfFieldGet(table, 1, nullptr), 0u);
    EXPECT_EQ(lib().DbfFieldPut(table, 1, nullptr), 1) << "an empty value";
    EXPECT_EQ(valueOf(table, 1), "   ");
}

TEST_F(Fields, Names) {
    std::uint32_t table =
        with(3, {{"NAME", 'C', 1}, {"AB", 'C', 1}, {"NAMES", 'C', 1}, {"AB", 'C', 1}, {"X", 'C', 1}}, "12345");
    struct Row {
        const char* name;
        int number;
    };
    for (auto [name, number] : {Row{"NAME", 1},
                                {"NAME", 1},
                                {"name", 0},
                                {"NAM", 0},
                                {"NAMES", 3},
                                {"AB", 4},
                                {"AB", 4},
                                {"X", 5},
                                {"", 0},
                                {nullptr, 0},
                                {"NAMESAKETOO", 0},
                                {"NAME", 1}}) {
        EXPECT_EQ(lib().DbfFieldPos(table, name), number) << (name ? name : "NULL");
        Dest dest(4);
        EXPECT_EQ(lib().strdbfField(table, name, dest), number ? 1u : 0u);
        EXPECT_EQ(dest.text(), number ? std::to_string(number) : "");
    }
    table = with(3, {{"AB", 'C', 1}, {"AB", 'C', 1}}, "12");
    EXPECT_EQ(lib().DbfFieldPos(table, "AB"), 1) << "the first field is the one found last, until another is";
    EXPECT_EQ(lib().DbfReplace(table, "AB", "x"), 1);
    EXPECT_EQ(recordOf(table), "x2");
}

// What a put leaves in a record of a letter, the field, a letter; and what a get reads back.
TEST_F(Fields, Values) {
    struct Row {
        FieldBytes field;
        std::string value, stored;
        bool marked = true;
    };
    const Row rows[] = {
        {{"F", 'C', 5}, "abc", "<abc  >"},
        {{"F", 'C', 5}, "abcdefg", "<abcde>"},
        {{"F", 'C', 5}, "", "<     >"},
        {{"F", 'C', 5}, " a", "< a   >"},
        {{"F", 'C', 300}, std::string(301, 'x'), "<" + std::string(300, 'x') + ">"},
        {{"F", 'D', 8}, "20000131", "<20000131>"},
        {{"F", 'D', 8}, "   20000131x", "<20000131>"},
        {{"F", 'D', 8}, "  99", "<99      >"},
        {{"F", 'L', 1}, "yes", "<F>"},
        {{"F", 'L', 1}, "True", "<T>"},
        {{"F", 'L', 1}, "t", "<T>"},
        {{"F", 'L', 1}, "", "<F>"},
        {{"F", 'L', 1}, "1", "<F>"},
        {{"F", 'N', 6, 1}, "1.5", "<   1.5>"},
        {{"F", 'N', 3, 0}, "  123", "<123>"},
        {{"F", 'N', 3, 0}, "12345", "<***>", false},
        {{"F", 'F', 3, 0}, "1234", "<***>", false},
        {{"F", 'N', 3, 0}, "", "<   >"},
        {{"F", 'N', 200, 0}, "7", "<" + std::string(199, ' ') + "7>"},
        {{"F", 'N', 3, 1}, "1234", "1234>"},
        {{"F", 'N', 3, 1}, "123456", "3456>"},  // what would lie before the record is dropped
        {{"F", 'N', 3, 1}, std::string(256, '1') + "234", "1234>"},
        {{"F", 'N', 3, 1}, std::string(260, '1'), "<***>", false},
        {{"F", '?', 5}, "ab", "<ab...>"},
        {{"F", '?', 5}, "abcdef", "<abcde>"},
        {{"F", 'V', 3}, "abc", "<...>", false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.field.type + row.value);
        auto length = static_cast<std::size_t>(row.field.length);
        std::string before = "<" + std::string(length, '.') + ">";
        std::uint32_t table = with(3, {{"L", 'C', 1}, row.field, {"R", 'C', 1}}, before);
        EXPECT_EQ(lib().DbfFieldPut(table, 2, row.value.c_str()), 1);
        EXPECT_EQ(recordOf(table), row.stored);
        std::string expected = row.field.type == 'V' ? "" : row.stored.substr(1, length);
        EXPECT_EQ(valueOf(table, 2), expected);
        Dest dest(length + 1);
        lib().DbfFieldGet(table, 2, dest);
        EXPECT_EQ(dest.text(), row.field.type == '?' ? expected + "~" : expected);
        EXPECT_EQ(inFile(table).substr(0, length + 2), row.marked ? row.stored : before);
    }
    // Asterisks reach the file with another change.
    std::uint32_t table = with(3, {{"N", 'N', 3}, {"C", 'C', 1}}, "123x");
    lib().DbfFieldPut(table, 1, "12345");
    lib().DbfFieldPut(table, 2, "y");
    EXPECT_EQ(inFile(table).substr(0, 4), "***y");
}

TEST_F(Fields, WithoutARecord) {
    disk.put("T.DBT", lab::dbtBytes({"memo"}));
    disk.put("T.BLO", lab::bloBytes({"blob"}));
    std::vector<FieldBytes> fields = {{"C", 'C', 3}, {"N", 'N', 4},  {"F", 'F', 2},  {"D", 'D', 8}, {"L", 'L', 1},
                                      {"Q", '?', 5}, {"M", 'M', 10}, {"B", 'B', 20}, {"V", 'V', 6}};
    std::uint32_t table = with(0xC3, fields, "");
    lib().DbfGoto(table, 2);
    for (int i = 1; i <= 9; ++i) {
        const FieldBytes& field = fields[static_cast<std::size_t>(i) - 1];
        std::string blanks(i <= 6 ? static_cast<std::size_t>(field.length) : 0, ' ');
        EXPECT_EQ(valueOf(table, i), blanks) << i;
        Dest dest(blanks.size() + 1);
        lib().DbfFieldGet(table, i, dest);
        EXPECT_EQ(dest.text(), i == 6 ? blanks + "~" : blanks);
        EXPECT_EQ(lib().DbfFieldPut(table, i, "x"), 0) << i;
    }
}

// Fields that reach behind the record's end are clipped to it.
TEST_F(Fields, FieldsBehindTheRecord) {
    std::string file =
        tableBytes(3, {{"A", 'C', 4}, {"B", 'C', 4}, {"N", 'N', 4}, {"Q", '?', 4}}, {" 1234567890123456"});
    file.replace(10, 2, lab::little(7, 2));
    disk.put("T.DBF", file);
    std::uint32_t table = open("T");
    EXPECT_EQ(valueOf(table, 2), "56");
    EXPECT_EQ(valueOf(table, 3) + valueOf(table, 4), "");
    for (int i = 1; i <= 4; ++i) EXPECT_EQ(lib().DbfFieldPut(table, i, "wxyz"), 1);
    EXPECT_EQ(recordOf(table), "wxyzwx");
    EXPECT_EQ(lib().DbfFieldLen(table, 2), 4);
    file.replace(file.size() - 18, 7, " wxyzwx");
    EXPECT_EQ(lib().DbfClose(table), 0);
    EXPECT_EQ(bytes("T.DBF"), file);
}

// A number ends with what of its field lies within the record.
TEST_F(Fields, NumbersThatAreClipped) {
    struct Row {
        int decimals;
        const char *value, *stored;
    };
    for (auto [decimals, value, stored] : {Row{0, "7", "L.  7"},
                                           {0, "123", "L.123"},
                                           {0, "1234", "L.***"},
                                           {0, "12345", "L.***"},
                                           {1, "1.25", "L.***"},
                                           {0, "", "L.   "}}) {
        std::string file = tableBytes(3, {{"L", 'C', 2}, {"N", 'N', 5, decimals}, {"O", 'N', 5, 1}}, {" L......"});
        disk.put("T.DBF", file.replace(10, 2, lab::little(6, 2)));
        std::uint32_t table = open("T");
        EXPECT_EQ(lib().DbfFieldPut(table, 2, value), 1);
        EXPECT_EQ(recordOf(table), stored) << value;
        EXPECT_EQ(lib().DbfFieldPut(table, 3, "9"), 1);
        EXPECT_EQ(recordOf(table), stored) << "none of it lies within";
    }
}

struct MemoRow {
    std::string reference, text;
    std::uint32_t size;
};

TEST_F(Fields, DbtMemosRead) {
    std::string full(65536, 'x');
    disk.put("T.DBT", lab::dbtBytes({"first", std::string(511, 'a'), std::string(512, 'b'), "", full}) + "no end");
    int behind = 1 + 1 + 1 + 2 + 1 + 129;
    const MemoRow rows[] = {
        {memoReference(1), "first", 5},
        {memoReference(2), std::string(511, 'a'), 511},
        {memoReference(3), std::string(512, 'b'), 512},
        {memoReference(5), "", 0},
        {memoReference(6), full, 65536},
        {memoReference(behind), "no end", 6},
        {memoReference(behind + 1), "", 0},
        {"1         ", "first", 5},
        {"    1x    ", "first", 5},
        {"          ", "", 0},
        {"         0", "", 0},
        {"        -1", "", 0},
        {"9999999999", "", 0},
        {"   8388608", "", 0},
        {"   4194303", "", 0},
    };
    for (const MemoRow& row : rows) {
        std::uint32_t table = with(0x83, {{"M", 'M', 10}}, row.reference);
        EXPECT_EQ(valueOf(table, 1), row.text) << row.reference;
        EXPECT_EQ(lib().DbfFieldSize(table, 1), row.size) << row.reference;
        Dest dest(row.size + 1);
        EXPECT_EQ(lib().DbfFieldGet(table, 1, dest), dest.get()) << "room for its size and a terminator is enough";
    }
}

TEST_F(Fields, FptMemosRead) {
    std::string large(5000, 'y');
    std::string file = lab::fptBytes({"first", std::string(57, 'a'), large, std::string("a\0b", 3)});
    std::string cut = file + lab::big(1, 4) + lab::big(0xFFFFFFF0, 4) + "rest";
    disk.put("T.FPT", cut);
    int fourth = 11 + (5008 + 63) / 64, cutOne = static_cast<int>(file.size() / 64);
    const MemoRow rows[] = {
        {memoReference(8), "first", 5},     {memoReference(9), std::string(57, 'a'), 57},
        {memoReference(11), large, 5000},   {memoReference(fourth), "a", 3},
        {memoReference(cutOne), "rest", 4}, {memoReference(cutOne + 1), "", 0},
        {memoReference(0), "", 0},          {"9999999999", "", 0},
    };
    for (const MemoRow& row : rows) {
        std::uint32_t table = with(0xF5, {{"M", 'M', 10}}, row.reference);
        EXPECT_EQ(valueOf(table, 1), row.text) << row.reference;
        EXPECT_EQ(lib().DbfFieldSize(table, 1), row.size) << row.reference;
        Dest dest(row.size + 1);
        EXPECT_EQ(lib().DbfFieldGet(table, 1, dest), dest.get());
    }
}

TEST_F(Fields, DbtMemosWritten) {
    std::string empty = lab::dbtBytes({}) + "\x1A";
    struct Row {
        std::string before, text;
        int block;
        std::string added;
    };
    std::string longest(40000, 'z');
    const Row rows[] = {
        {empty, "text", 2, std::string(511, '\0') + "text\x1A"},
        {lab::dbtBytes({}), "text", 2, std::string(512, '\0') + "text\x1A"},  // one whole block unused
        {empty + std::string(511, '.'), "t", 3, std::string(512, '\0') + "t\x1A"},
        {empty, longest, 2, std::string(511, '\0') + longest.substr(0, 32768) + "\x1A"},
    };
    for (const Row& row : rows) {
        disk.put("T.DBT", row.before);
        std::uint32_t table = with(0x83, {{"M", 'M', 10}, {"C", 'C', 1}}, "..........x");
        lib().DbfFieldPut(table, 2, "y");
        EXPECT_EQ(lib().DbfFieldPut(table, 1, ""), 1) << "nothing written";
        EXPECT_EQ(recordOf(table), "..........y");
        EXPECT_EQ(lib().DbfFieldPut(table, 1, row.text.c_str()), 1);
        EXPECT_EQ(bytes("T.DBT"), row.before + row.added);
        EXPECT_EQ(bytes("T.DBF").substr(98, 11), memoReference(row.block) + "y") << "written back at once";
        EXPECT_EQ(valueOf(table, 1), row.text.substr(0, 32768));
        EXPECT_EQ(lib().DbfFieldPut(table, 1, "second"), 1);
        EXPECT_EQ(valueOf(table, 1), "second");
    }
    EXPECT_EQ(lib().DbfFieldPut(with(0x03, {{"M", 'M', 10}}, ""), 1, "no memo file"), 0);
    EXPECT_EQ(lib().DbfFieldPut(with(0x83, {{"M", 'M', 1}}, ""), 1, "one digit"), 0);
}

TEST_F(Fields, FptMemosWritten) {
    std::string file = lab::fptBytes({"first", "second"});
    disk.put("T.FPT", file);
    std::uint32_t table = with(0xF5, {{"M", 'M', 10}, {"C", 'C', 1}}, memoReference(8) + "x");
    struct Row {
        std::string text;
        int block, next;
    };
    for (auto [text, block, next] : {Row{std::string(56, 'a'), 8, 10},
                                     {"b", 8, 10},
                                     {std::string(57, 'c'), 10, 12},
                                     {std::string(120, 'd'), 12, 14},
                                     {std::string(300, 'e'), 14, 19},
                                     {"f", 14, 19}}) {
        EXPECT_EQ(lib().DbfFieldPut(table, 1, text.c_str()), 1);
        EXPECT_EQ(valueOf(table, 1), text);
        EXPECT_EQ(bytes("T.DBF").substr(98, 10), memoReference(block)) << text;
        EXPECT_EQ(bytes("T.FPT").substr(0, 8), lab::big(static_cast<std::uint64_t>(next), 4) + file.substr(4, 4));
        std::string head = lab::big(1, 4) + lab::big(text.size(), 4) + text;
        EXPECT_EQ(bytes("T.FPT").substr(static_cast<std::size_t>(block) * 64, head.size()), head);
        EXPECT_EQ(lib().DbfFieldPut(table, 1, ""), 1);
        EXPECT_EQ(valueOf(table, 1), text) << "an empty value leaves the memo";
    }
    EXPECT_EQ(bytes("T.FPT").substr(512 + 64, 64), file.substr(512 + 64, 64)) << "the memo of another record";
    // A type of its own is kept; a header whose next free block is damaged is not believed.
    bytes("T.FPT").replace(14 * 64, 4, lab::big(7, 4));
    EXPECT_EQ(lib().DbfFieldPut(table, 1, "g"), 1);
    EXPECT_EQ(bytes("T.FPT").substr(14 * 64, 8), lab::big(7, 4) + lab::big(1, 4));
    for (std::uint32_t damaged : {0u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        std::string all = bytes("T.FPT").replace(0, 4, lab::big(damaged, 4));
        lib().DbfRecordPut(table, "          x");
        EXPECT_EQ(lib().DbfFieldPut(table, 1, "behind"), 1);
        EXPECT_EQ(valueOf(table, 1), "behind");
        EXPECT_EQ(bytes("T.FPT").substr(4, all.size() - 4), all.substr(4)) << damaged;
        EXPECT_LT(bytes("T.FPT").size(), all.size() + 200);
    }
}

TEST_F(Fields, BlobsRead) {
    std::string blob("a\0b\x1A", 4);
    disk.put("T.BLO", lab::bloBytes({blob, std::string(50000, 'x')}));
    struct Row {
        std::string reference, value;
        std::uint32_t size;
    };
    const Row rows[] = {
        {lab::blobReference(64, 4), blob, 4},
        {lab::blobReference(64, 2), blob.substr(0, 2), 2},  // no more than a caller makes room for
        {"  64                ", "", 0},
        {lab::blobReference(128, 50000), std::string(50000, 'x'), 50000},
        {lab::blobReference(128, 60000), std::string(50000, 'x'), 60000},
        {lab::blobReference(65, 4), "", 4},
        {lab::blobReference(0, 4), "", 4},
        {lab::blobReference(99999999, 4), "", 4},
        {std::string(20, ' '), "", 0},
    };
    for (const Row& row : rows) {
        std::uint32_t table = with(0x43, {{"B", 'B', 20}}, row.reference);
        EXPECT_EQ(valueOf(table, 1), row.value) << row.reference;
        EXPECT_EQ(lib().DbfFieldSize(table, 1), row.size) << row.reference;
    }
}

// The blocks of a blob file from the first to the last: `used/capacity` in use, `(capacity)` free, `end`. Checks all
// that holds them together.
std::string blocksOf(const std::string& file) {
    auto number = [&](std::size_t at) {
        std::uint32_t n = 0;
        for (std::size_t i = 4; i-- > 0;) n = n << 8 | (at + i < file.size() ? file[at + i] & 0xFF : 0);
        return n;
    };
    std::map<std::uint32_t, std::uint32_t> free;  // by the list: start, previous
    for (std::uint32_t at = number(2), previous = 0; at != 0; previous = at, at = number(at + 4)) {
        EXPECT_TRUE(free.emplace(at, previous).second) << "a circle";
        EXPECT_EQ(number(at + 8), previous) << "previous of " << at;
        if (free.size() > 1000) break;
    }
    std::string text;
    std::size_t listed = 0;
    for (std::size_t at = 64; at < file.size();) {
        EXPECT_EQ(file.substr(at, 2), lab::little(0xFE07, 2));
        std::uint32_t used = number(at + 12), capacity = number(at + 16);
        bool isListed = free.contains(static_cast<std::uint32_t>(at));
        listed += isListed;
        EXPECT_EQ(isListed, used == 0) << at;
        if (capacity == 0) {
            EXPECT_EQ(number(at + 4), 0u);
            EXPECT_EQ(at + 20, file.size());
            EXPECT_EQ(listed, free.size());
            return text + "end";
        }
        EXPECT_EQ(number(at + 20 + capacity), at) << "trailer";
        text +=
            used ? std::to_string(used) + "/" + std::to_string(capacity) + " " : "(" + std::to_string(capacity) + ") ";
        at += 24 + capacity;
    }
    return text + "no end";
}

TEST_F(Fields, BlobStore) {
    disk.put("T.BLO", lab::bloBytes({}));
    std::vector<FieldBytes> fields;
    for (char name = 'A'; name <= 'E'; ++name) fields.push_back({std::string(1, name), 'B', 20});
    std::uint32_t table = with(0x43, fields, "");
    std::map<int, std::string> expected;
    struct Row {
        int field;
        std::size_t size;
        const char* blocks;
    };
    const Row rows[] = {
        {1, 10, "10/40 end"},
        {2, 100, "10/40 100/100 end"},
        {3, 300, "10/40 100/100 300/300 end"},
        {4, 60, "10/40 100/100 300/300 60/60 end"},
        {2, 80, "10/40 80/100 300/300 60/60 end"},   // fits
        {2, 0, "10/40 (100) 300/300 60/60 end"},     // freed
        {2, 0, "10/40 (100) 300/300 60/60 end"},     //
        {1, 0, "(164) 300/300 60/60 end"},           // joins the one behind
        {5, 1, "1/40 (100) 300/300 60/60 end"},      // cut off
        {2, 40, "1/40 40/100 300/300 60/60 end"},    // 60 would remain
        {5, 0, "(40) 40/100 300/300 60/60 end"},     //
        {3, 0, "(40) 40/100 (300) 60/60 end"},       //
        {2, 0, "(488) 60/60 end"},                   // joins both sides
        {4, 61, "61/61 (487) end"},                  // its old one joins the free one before
        {1, 404, "61/61 404/404 (59) end"},          // cut off
        {2, 403, "61/61 404/404 (59) 403/403 end"},  // fits none
        {3, 60, "61/61 404/404 (59) 403/403 60/60 end"},
        {1, 0, "61/61 (487) 403/403 60/60 end"},  // joins the one behind
        {3, 0, "61/61 (487) 403/403 (60) end"},
        {2, 0, "61/61 (998) end"},  // joins both sides
        {2, 20000, "61/61 (998) 20000/20000 end"},
        {2, 19999, "61/61 (998) 19999/20000 end"},
        {1, 934, "61/61 934/998 19999/20000 end"},  // exactly 64 would remain
    };
    for (const Row& row : rows) {
        std::string value(row.size, static_cast<char>('a' + row.field + row.size % 16));
        EXPECT_EQ(lib().DbfFieldPut(table, row.field, value.c_str()), 1);
        expected[row.field] = value;
        EXPECT_EQ(blocksOf(bytes("T.BLO")), row.blocks) << row.field << " " << row.size;
        for (auto& [field, text] : expected) {
            EXPECT_EQ(valueOf(table, field), text) << field;
            EXPECT_EQ(lib().DbfFieldSize(table, field), text.size());
        }
    }
    EXPECT_EQ(recordOf(table).substr(20, 20), lab::blobReference(64 + 85 + 1022, 19999)) << "both numbers left-aligned";
    EXPECT_EQ(recordOf(table).substr(80, 20), lab::blobReference(0, 0)) << "freed";
    EXPECT_EQ(bytes("T.DBF").substr(33 + 5 * 32 + 1, 100), recordOf(table)) << "written back at once";
}

// Records that are copies of others, or were read before another handle changed them, refer to blobs that are gone:
// what is in their place stays.
TEST_F(Fields, BlobsThatAreGone) {
    struct Row {
        const char* what;
        std::vector<std::size_t> freed;  // fields
        std::vector<std::size_t> taken;  // sizes of new blobs
    };
    const Row rows[] = {{"a part of a free block", {1, 3, 2}, {}},
                        {"a block of another size", {2}, {90}},
                        {"what is in a larger block", {1, 3, 2}, {340}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        disk.put("T.BLO", lab::bloBytes({std::string(100, '1'), std::string(100, '2'), std::string(100, '3')}));
        std::string reference = lab::blobReference(188, 100);
        std::uint32_t table =
            with(0x43, {{"A", 'B', 20}, {"B", 'B', 20}, {"C", 'B', 20}, {"COPY", 'B', 20}, {"NEW", 'B', 20}},
                 lab::blobReference(64, 100) + reference + lab::blobReference(312, 100) + reference);
        for (std::size_t field : row.freed) EXPECT_EQ(lib().DbfFieldPut(table, static_cast<int>(field), ""), 1);
        std::string taken;
        for (std::size_t size : row.taken) {
            taken = std::string(size, 't');
            EXPECT_EQ(lib().DbfFieldPut(table, 5, taken.c_str()), 1);
        }
        for (std::size_t size : {90, 200, 300}) {
            std::string value(size, 'v');
            EXPECT_EQ(lib().DbfFieldPut(table, 4, value.c_str()), 1);
            EXPECT_EQ(valueOf(table, 4), value);
            EXPECT_EQ(valueOf(table, 5), taken);
            blocksOf(bytes("T.BLO"));
        }
    }
}

// A list that is damaged is not used: what is in use stays, and new blobs go behind the end.
TEST_F(Fields, BlobStoreWithADamagedList) {
    std::string sound = lab::blobFileHeader(64) + lab::blobHeader(152, 0, 0, 64) + std::string(64, '.') +
                        lab::little(64, 4) + lab::blobHeader(0, 0, 5, 40) + lab::padded("stays", 40) +
                        lab::little(152, 4) + lab::blobHeader(0, 64, 0, 0);
    std::string start = std::string(sound).replace(64 + 4, 4, lab::little(216, 4));
    struct Row {
        const char* what;
        std::size_t at;
        std::uint32_t to;
        bool behind;
    };
    const Row rows[] = {
        {"nothing", 0, 0, false},         {"a circle of one", 68, 64, true},    {"into nowhere", 68, 77, true},
        {"a blob in use", 68, 152, true}, {"the first link", 2, 9999999, true}, {"its capacity", 80, 9999, true},
        {"its trailer", 148, 9, true},    {"no previous", 224, 9, true},        {"first is in use", 2, 152, true}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        std::string damaged = start;
        if (row.at) damaged.replace(row.at, 4, lab::little(row.to, 4));
        disk.put("T.BLO", damaged);
        std::uint32_t table = with(0x43, {{"A", 'B', 20}, {"B", 'B', 20}}, lab::blobReference(152, 5));
        EXPECT_EQ(lib().DbfFieldPut(table, 2, "new"), 1);
        EXPECT_EQ(valueOf(table, 1) + valueOf(table, 2), "staysnew");
        EXPECT_EQ(recordOf(table).substr(20, 2) != "64", row.behind);
        for (const char* value : {"", "more than it was, by far, and more than forty", "again"}) {
            for (int field : {1, 2}) {
                EXPECT_EQ(lib().DbfFieldPut(table, field, value), 1);
                EXPECT_EQ(valueOf(table, field), value);
            }
        }
    }
}

// A block that is freed joins the free ones on both sides, but none that is damaged: that may be in use.
TEST_F(Fields, BlobsFreedBetweenDamagedBlocks) {
    auto block = [](std::uint32_t start, std::uint32_t next, std::uint32_t previous, std::uint32_t used) {
        return lab::blobHeader(next, previous, used, 40) + std::string(40, '.') + lab::little(start, 4);
    };
    std::string sound = lab::blobFileHeader(64) + block(64, 192, 0, 0) + block(128, 0, 0, 5) + block(192, 320, 64, 0) +
                        block(256, 0, 0, 5) + block(320, 384, 192, 0) + lab::blobHeader(0, 320, 0, 0);
    struct Row {
        const char* what;
        std::size_t at;
        std::uint32_t to, left, freed;  // capacities then
    };
    for (auto [what, at, to, left, freed] : {Row{"nothing", 2, 64, 168, 40},
                                             {"left in use", 76, 3, 40, 104},
                                             {"left not listed", 2, 192, 40, 104},
                                             {"trailer of another free one", 124, 320, 40, 104},
                                             {"right in use", 204, 3, 104, 40},
                                             {"right of another capacity", 208, 20, 104, 40},
                                             {"neither listed", 68, 320, 40, 40}}) {
        disk.put("T.BLO", std::string(sound).replace(at, 4, lab::little(to, 4)));
        EXPECT_EQ(lib().DbfFieldPut(with(0x43, {{"B", 'B', 20}}, lab::blobReference(128, 5)), 1, ""), 1);
        EXPECT_EQ(bytes("T.BLO").substr(80, 4), lab::little(left, 4)) << what;
        EXPECT_EQ(bytes("T.BLO").substr(144, 4), lab::little(freed, 4)) << what;
    }
}

}  // namespace
}  // namespace vx::test
