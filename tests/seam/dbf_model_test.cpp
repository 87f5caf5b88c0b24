// A table against a plain model of it in memory: random operations, with the table closed and opened in between.
#include <algorithm>

#include "tests/seam/tables.h"

namespace vx::test {
namespace {

struct Record {
    bool deleted = false;
    std::vector<std::string> values;  // as they are read
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
        if (column == kText) old = lab::padded(text, width);
        if (column == kDate) old = lab::padded(trimmed, width);
        if (column == kFlag) old = !text.empty() && (text[0] == 't' || text[0] == 'T') ? "T" : "F";
        if (column == kRaw) old.replace(0, std::min(width, text.size()), text.substr(0, width));
        if (column == kMemo && !text.empty()) old = text;
        if (column == kBlob && hasBlobs) old = text;
        if (column != kNumber) return true;
        old = trimmed.size() > width ? std::string(width, '*') : std::string(width - trimmed.size(), ' ') + trimmed;
        return true;
    }
};

class ModelTest : public TableTest {
 protected:
    RandomTexts random{7};
    Model model;
    std::uint32_t table = 0;

    void expectSameRecord() {
        ASSERT_EQ(placeOf(table),
                  (std::vector<std::int64_t>{model.number, model.number == 0, model.number == model.size() + 1}));
        ASSERT_EQ(lib().DbfIsDeleted(table), model.onRecord() && model.record().deleted);
        for (int column = kText; column <= kColumns; ++column)
            ASSERT_EQ(valueOf(table, column), model.value(column)) << column;
    }

    void put() {
        int column = random.number(kText, kColumns);
        std::string text = random.text("ab t1 \xFF", column >= kMemo ? (random.number(0, 9) ? 200 : 6000) : 9);
        // Asterisks that nothing else marks are lost when the buffer moves; an equal change marks it.
        ASSERT_EQ(lib().DbfFieldPut(table, column, text.c_str()), model.put(column, text));
        if (column == kNumber && model.onRecord()) lib().DbfReplace(table, "TEXT", model.value(kText).c_str());
    }

    void step() {
        int kind = random.number(0, 19), number = static_cast<int>(model.number);
        if (kind == 0) {
            int count = random.number(1, 3);
            model.append(count);
            ASSERT_EQ(lib().DbfAppend(table, count), model.number);
        } else if (kind <= 3) {
            model.goTo(random.number(-1, static_cast<int>(model.size()) + 2));
            ASSERT_EQ(lib().DbfGoto(table, static_cast<std::int32_t>(model.number)), number);
        } else if (kind <= 6) {
            int by = random.number(-3, 3);
            ASSERT_EQ(lib().DbfSkip(table, by), number);
            model.goTo(number + by);
        } else if (kind <= 8) {
            bool mark = random.oneIn(2);
            (mark ? lib().DbfDelete : lib().DbfRecall)(table);
            if (model.onRecord()) model.record().deleted = mark;
        } else if (kind == 9) {
            EXPECT_EQ((random.oneIn(2) ? lib().DbfLock : lib().DbfUnlock)(table), 1);
        } else {
            put();
        }
    }

    // Closes and opens, by turns shared and not.
    void reopen(int turn) {
        ASSERT_EQ(lib().DbfClose(table), 0);
        EXPECT_EQ(bytes("T.DBF").substr(4, 4), lab::little(model.records.size(), 4));
        table = open("T", turn % 2 ? kSharedMode : kPrivateMode);
        ASSERT_EQ(lib().DbfLastrec(table), static_cast<std::uint32_t>(model.size()));
        for (std::int64_t i = 1; i <= model.size(); ++i) {
            lib().DbfGoto(table, static_cast<std::int32_t>(i));
            model.goTo(i);
            ASSERT_NO_FATAL_FAILURE(expectSameRecord());
        }
    }

    void run() {
        disk.capacity = std::size_t{1} << 27;
        lib().DbfGoto(table, 1);
        model.goTo(1);
        for (int turn = 0; turn < 60; ++turn) {
            for (int i = 0; i < 100; ++i) {
                ASSERT_NO_FATAL_FAILURE(step());
                ASSERT_NO_FATAL_FAILURE(expectSameRecord()) << "turn " << turn << " step " << i;
            }
            ASSERT_NO_FATAL_FAILURE(reopen(turn)) << "turn " << turn;
        }
    }
};

TEST_F(ModelTest, DbaseMemos) {
    table = lib().DbfStrCreate("T", "TEXT,C,7:NUM,N,6,0:DAY,D:FLAG,L:RAW,X,3:NOTE,M:DATA,B");
    run();
}

TEST_F(ModelTest, FoxProMemos) {
    putFiles(0xF5, "TEXT,C,7:NUM,N,6:DAY,D,8:FLAG,L,1:RAW,X,3:NOTE,M,10:NONE,V,0", {});
    table = open("T");
    model.hasBlobs = false;
    run();
}

}  // namespace
}  // namespace vx::test
