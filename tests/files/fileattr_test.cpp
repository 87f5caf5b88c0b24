// Attributes and time stamps on the real disk.
#include <gtest/gtest.h>

#include <tuple>

#include "tests/support/library.h"
#include "tests/support/text.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

class RealFileAttr : public testing::Test {
 protected:
    Workplace place;
    std::string file = place.put("file", "text");
    const char* name = file.c_str();
};

TEST_F(RealFileAttr, AttributesComeBack) {
    if (!lib().FHide(name)) GTEST_SKIP() << "the file system of the temporary directory keeps no attributes";
    ASSERT_EQ(lib().FSetAttr(name, 39, 0), 1);
    const int always = lib().FGetAttr(name) & 32;  // Wine shows every file as one to be archived
    for (int bits : {0, 1, 2, 4, 32, 1 | 32, 2 | 4, 1 | 2 | 4 | 32}) {
        ASSERT_EQ(lib().FSetAttr(name, 39, 0), 1);
        ASSERT_EQ(lib().FSetAttr(name, bits, 1), 1) << bits;
        bits |= always;
        EXPECT_EQ(lib().FGetAttr(name), bits);
        EXPECT_EQ(lib().FChanged(name), (bits & 32) != 0);
    }
    EXPECT_EQ(lib().FSetAttr(name, 16, 1), 1);
    EXPECT_EQ(lib().FGetAttr(name), 39) << "no directory";
    EXPECT_EQ(lib().FUnProtect(name), 1);
    EXPECT_EQ(lib().FGetAttr(name), 38);
    EXPECT_EQ(lib().FGetAttr(place.path().c_str()) & 16, 16);
    EXPECT_EQ(lib().FGetAttr(place.path("missing").c_str()), -1);
    EXPECT_EQ(lib().FChanged(place.path("missing").c_str()), 1);
}

TEST_F(RealFileAttr, TimesComeBack) {
    if (!lib().FSetDosDate(name, 0, 0, 0)) GTEST_SKIP() << "the system sets no times of a file opened for reading";
    struct Row {
        int year, month, day;
        const char* time;
        int hour, minute, second;
    };
    for (const Row& row : {Row{2000, 2, 29, "23:59:59", 23, 59, 59}, Row{1999, 12, 31, "1:1:1", 1, 1, 1},
                           Row{1980, 1, 1, "12:30:30", 12, 30, 30}, Row{2037, 7, 1, "6:7:8", 6, 7, 8}}) {
        ASSERT_EQ(lib().FSetDosDate(name, row.year, row.month, row.day), 1) << row.year;
        ASSERT_EQ(lib().FSetTime(name, row.time), 1) << row.time;
        EXPECT_EQ(lib().FSetTime(name, "00:00:00"), 1) << "changes nothing";
        EXPECT_EQ(lib().FSetDosDate(name, 0, 0, 0), 1);
        std::int32_t a, b, c;
        EXPECT_EQ(lib().FGetDosDate(name, &a, &b, &c), 1);
        EXPECT_EQ(std::tuple(a, b, c), std::tuple(row.year, row.month, row.day));
        EXPECT_EQ(lib().FGetDosTime(name, &a, &b, &c), 1);
        EXPECT_EQ(std::tuple(a, b, c), std::tuple(row.hour, row.minute, row.second));
        std::int32_t handle = lib().FOpen(name, 0);
        EXPECT_EQ(lib().FileJDate(handle), lib().IntToJulian(row.year, row.month, row.day));
        EXPECT_EQ(lib().FileDosTime(handle, &a, &b, &c), 1);
        EXPECT_EQ(std::tuple(a, b, c), std::tuple(row.hour, row.minute, row.second));
        EXPECT_EQ(lib().FileAttr(handle), lib().FGetAttr(name));
        EXPECT_EQ(lib().FClose(handle), 1);
        EXPECT_EQ(lib().FileJDate(handle) + lib().FileAttr(handle), 0) << "closed";
    }
    auto written = std::filesystem::last_write_time(place.native("file"));
    EXPECT_EQ(lib().FSetDosDate(name, 2001, 2, 29), 0);
    EXPECT_EQ(lib().FSetTime(name, "0:0:0"), 1);
    EXPECT_EQ(std::filesystem::last_write_time(place.native("file")), written);
    EXPECT_EQ(lib().FSetJDate(place.path().c_str(), 2451545), 0) << "a directory";
}

}  // namespace
}  // namespace vx::test
