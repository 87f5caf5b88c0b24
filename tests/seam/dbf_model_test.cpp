// A table against a plain model of it in memory: random operations, with the table closed and opened in between.
#include <algorithm>

#include "tests/seam/tables.h"

namespace vx::test {
namespace {

struct Record {
    bool deleted = false;
    std::vector<std::string> values;  // as they are read
    bool operator==(const Record&) const = default;
};

enum Column { kText = 1, kNumber, kDate, kFlag, kRaw, kMemo, kBlob, kColumns = kBlob };
constexpr int kWidths[] = {0, 7, 6, 8, 1, 3};

class Model {
 public:
    std::vector<Record> records;
    std::int64_t number = 1;
    bool hasBlobs = true;  // otherwise the last column is a virtual one

    bool onRecord() const { return number >= 1 && number <= size(); }
    std::int64_t size() const { return static_cast<std::int64_t>(records.size()); }
    Record& record() { return records[static_cast<std::size_t>(number - 1)]; }
    void goTo(std::int64_t to) { number = std::clamp<std::int64_t>(to, 0, size() + 1); }
    void append(int count) {
        number = size() + 1;
        Record blank;
        for (int column = kText; column <= kRaw; ++column)
            blank.values.emplace_back(static_cast<std::size_t>(kWidths[column]), ' ');
        blank.values.resize(kColumns);
        records.resize(records.size() + static_cast<std::size_t>(count), blank);
    }
    std::string value(int column) {
        if (onRecord()) return record().values[static_cast<std::size_t>(column) - 1];
        return std::string(column <= kRaw ? static_cast<std::size_t>(kWidths[column]) : 0, ' ');
    }
    // What a put does, said once more. The result of the put.
    bool put(int column, std::string text) {
        if (!onRecord()) return false;
        std::string& old = record().values[static_cast<std::size_t>(column) - 1];
        auto width = column <= kRaw ? static_cast<std::size_t>(kWidths[column]) : 0;
        std::string trimmed = text.substr(std::min(text.find_first_not_of(' '), text.size()));
        switch (column) {
            case kText:
                old = lab::padded(text, width);
                break;
            case kNumber:
                old = trimmed.size() > width ? std::string(width, '*')
                                             : std::string(width - trimmed.size(), ' ') + trimmed;
                break;
            case kDate:
                old = lab::padded(trimmed, width);
                break;
            case kFlag:
                old = !text.empty() && (text[0] == 't' || text[0] == 'T') ? "T" : "F";
                break;
            case kRaw:
                old.replace(0, std::min(width, text.size()), text.substr(0, width));
                break;
            case kMemo:
                if (!text.empty()) old = text;
                break;
            default:
                if (hasBlobs) old = text;
        }
        return true;
    }
};

class ModelTest : public TableTest {
 protected:
    RandomTexts random{7};
    Model model;
    std::uint32_t table = 0;
    std::int32_t mode = kPrivateMode;

    void expectSameRecord() {
        ASSERT_EQ(placeOf(table),
                  (Place{static_cast<int>(model.number), model.number == 0, model.number == model.size() + 1}));
        ASSERT_EQ(lib().DbfIsDeleted(table), model.onRecord() && model.record().deleted);
        for (int column = kText; column <= kColumns; ++column)
            ASSERT_EQ(valueOf(table, column), model.value(column)) << column;
    }

    void expectSameTable() {
        ASSERT_EQ(lib().DbfLastrec(table), static_cast<std::uint32_t>(model.size()));
        std::int64_t number = model.number;
        for (std::int64_t i = 1; i <= model.size(); ++i) {
            lib().DbfGoto(table, static_cast<std::int32_t>(i));
            model.goTo(i);
            ASSERT_NO_FATAL_FAILURE(expectSameRecord());
        }
        lib().DbfGoto(table, static_cast<std::int32_t>(number));
        model.goTo(number);
    }

    void put() {
        int column = random.number(kText, kColumns);
        std::string text = random.text("ab t1 \xFF", column >= kMemo ? (random.number(0, 9) ? 200 : 6000) : 9);
        // Asterisks that nothing else marks are lost when the buffer moves; an equal change marks it.
        ASSERT_EQ(lib().DbfFieldPut(table, column, text.c_str()), model.put(column, text));
        if (column == kNumber && model.onRecord()) lib().DbfReplace(table, "TEXT", model.value(kText).c_str());
    }

    void step() {
        switch (random.number(0, 19)) {
            case 0:
                model.append(random.number(1, 3));
                ASSERT_EQ(lib().DbfAppend(table, static_cast<std::int32_t>(model.size() - model.number + 1)),
                          model.number);
                break;
            case 1:
            case 2:
            case 3:
                model.goTo(random.number(-1, static_cast<int>(model.size()) + 2));
                lib().DbfGoto(table, static_cast<std::int32_t>(model.number));
                break;
            case 4:
            case 5:
            case 6: {
                int by = random.number(-3, 3);
                ASSERT_EQ(lib().DbfSkip(table, by), static_cast<std::int32_t>(model.number));
                model.goTo(model.number + by);
                break;
            }
            case 7:
            case 8: {
                bool mark = random.number(0, 1);
                (mark ? lib().DbfDelete : lib().DbfRecall)(table);
                if (model.onRecord()) model.record().deleted = mark;
                break;
            }
            case 9:
                if (mode == kSharedMode) {
                    EXPECT_EQ((random.number(0, 1) ? lib().DbfLock : lib().DbfUnlock)(table), 1);
                }
                break;
            default:
                put();
        }
    }

    void reopen(int turn) {
        ASSERT_EQ(lib().DbfClose(table), 0);
        EXPECT_EQ(bytes("T.DBF").substr(4, 4), lab::little(model.records.size(), 4));
        mode = turn % 2 ? kSharedMode : kPrivateMode;
        table = keep(lib().DbfOpen("T", mode));
        ASSERT_NE(table, 0u);
        model.goTo(1);
    }

    void run(int turns) {
        ASSERT_NE(table, 0u);
        lib().DbfGoto(table, 1);
        model.goTo(1);
        for (int turn = 0; turn < turns; ++turn) {
            for (int i = 0; i < 100; ++i) {
                ASSERT_NO_FATAL_FAILURE(step());
                ASSERT_NO_FATAL_FAILURE(expectSameRecord()) << "turn " << turn << " step " << i;
            }
            ASSERT_NO_FATAL_FAILURE(reopen(turn));
            ASSERT_NO_FATAL_FAILURE(expectSameTable()) << "turn " << turn;
        }
    }
};

TEST_F(ModelTest, DbaseMemos) {
    disk.capacity = std::size_t{1} << 27;
    table = create("T", "TEXT,C,7:NUM,N,6,0:DAY,D:FLAG,L:RAW,X,3:NOTE,M:DATA,B");
    run(60);
}

TEST_F(ModelTest, FoxProMemos) {
    disk.capacity = std::size_t{1} << 27;
    disk.put("T.DBF", lab::tableBytes(0xF5,
                                      {{"TEXT", 'C', 7},
                                       {"NUM", 'N', 6},
                                       {"DAY", 'D', 8},
                                       {"FLAG", 'L', 1},
                                       {"RAW", 'X', 3},
                                       {"NOTE", 'M', 10},
                                       {"NONE", 'V', 0}},
                                      {}));
    disk.put("T.FPT", lab::fptBytes({}));
    table = open("T");
    model.hasBlobs = false;
    run(60);
}

}  // namespace
}  // namespace vx::test
