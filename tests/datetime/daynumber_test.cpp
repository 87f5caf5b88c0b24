// Day numbers against a calendar that is walked day by day, and date texts.
#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <tuple>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using Triple = std::tuple<std::int32_t, std::int32_t, std::int32_t>;

constexpr std::int32_t kFirstDay = 2299604;  // 1 January 1584
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

bool leap(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int lengthOf(int year, int month) {
    static constexpr int kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && leap(year) ? 29 : kLengths[month - 1];
}

Triple split(std::int32_t day) {
    std::int32_t year, month, dayOfMonth;
    lib().JulianToInt(day, &year, &month, &dayOfMonth);
    return {year, month, dayOfMonth};
}

Triple fields(const char* text) {
    std::int32_t year = -9, month = -9, day = -9;
    lib().DateToInt(text, &year, &month, &day);
    return {year, month, day};
}

TEST(DayNumber, EveryDayOfTwelveCenturies) {
    std::int32_t number = kFirstDay;
    std::int32_t dayOfWeek = 1;  // a Sunday
    for (int year = 1584; year <= 2800; ++year) {
        ASSERT_EQ(lib().IsLeap(year), leap(year)) << year;
        int dayOfYear = 0;
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= lengthOf(year, month); ++day, ++number, dayOfWeek = dayOfWeek % 7 + 1) {
                ++dayOfYear;
                ASSERT_EQ(lib().IntToJulian(year, month, day), number) << year << '-' << month << '-' << day;
                ASSERT_EQ(split(number), Triple(year, month, day)) << number;
                ASSERT_EQ(lib().JDow(number), dayOfWeek) << number;
                ASSERT_EQ(lib().JDoy(number), dayOfYear) << number;
                ASSERT_EQ(lib().JWoy(number), dayOfYear / 7 + 1) << number;
                char text[32];
                std::snprintf(text, sizeof text, "%d/%d/%d", month, day, year);
                ASSERT_EQ(lib().DateToJulian(text), number) << text;
                std::snprintf(text, sizeof text, "%04d%02d%02d", year, month, day);
                ASSERT_EQ(lib().AnsiToJulian(text), number) << text;
                if (number % 61 == 0) {
                    Dest dest(9);
                    ASSERT_EQ(lib().strjtos(number, dest), year < 1601 ? 0u : 8u) << text;
                    ASSERT_EQ(dest.text(), year < 1601 ? "" : text);
                }
            }
            ASSERT_EQ(lib().LastDay(number - 1), lengthOf(year, month)) << number;
            ASSERT_EQ(lib().IsJLeap(number - 1), leap(year)) << number;
        }
    }
    ASSERT_EQ(lib().IntToJulian(2000, 1, 1), 2451545);
    ASSERT_EQ(lib().IntToJulian(1970, 1, 1), 2440588);
}

TEST(DayNumber, NoDates) {
    for (std::int32_t day : {kFirstDay - 1, 1, 0, -1, kLeast + 1, kLeast}) {
        EXPECT_EQ(split(day), Triple(0, 0, 0)) << day;
        EXPECT_EQ(lib().IsJLeap(day), 1) << "year 0";
        EXPECT_EQ(lib().LastDay(day), 0);
        EXPECT_EQ(lib().JDoy(day), day + 1) << "kept";
        EXPECT_EQ(lib().JWoy(day), (day + 1) / 7 + 1) << "kept";
        EXPECT_EQ(lib().AddMonth(day, 13), day);
        Dest dest(9);
        EXPECT_EQ(lib().JulianToAnsi(day, dest), dest.get());
        EXPECT_EQ(dest.text(), "");
    }
    EXPECT_EQ(lib().JulianToAnsi(2451545, nullptr), nullptr);
    EXPECT_EQ(lib().strjtos(2451545, nullptr), 0u);
    EXPECT_EQ(lib().strjtos(lib().IntToJulian(10000, 1, 1), Dest(9)), 0u) << "nine digits have no room";
    EXPECT_EQ(lib().IntToJulian(1583, 12, 31), 0);
    EXPECT_EQ(lib().IntToJulian(kLeast, 1, 1), 0);
    EXPECT_EQ(lib().IsLeap(-4) + lib().IsLeap(0) + lib().IsLeap(-400), 3);
    EXPECT_EQ(lib().IsLeap(-100) + lib().IsLeap(-1) + lib().IsLeap(1900) + lib().IsLeap(kMost), 0);
    std::int32_t day = 7;
    lib().JulianToInt(2451545, nullptr, nullptr, &day);
    lib().JulianToInt(2451545, nullptr, nullptr, nullptr);
    EXPECT_EQ(day, 1);
}

// The conversions as they are defined, every step cut to 32 bits.
std::int32_t cut(std::int64_t value) { return static_cast<std::int32_t>(value); }

std::int32_t definedNumber(std::int32_t y, std::int32_t m, std::int32_t d) {
    if (y < 1584) return 0;
    m <= 2 ? (m += 9, --y) : (m -= 3);
    std::int64_t days = std::int64_t{cut(146097LL * (y / 100)) / 4} + 1461 * (y % 100) / 4;
    return cut(days + cut(153LL * m + 2) / 5 + d + 1721119);
}

Triple definedTriple(std::int32_t day) {
    if (day <= 2299603) return {0, 0, 0};
    std::int32_t t = cut(4LL * day - 6884477);
    std::int32_t x = t % 146097 / 4 * 4 + 3;
    std::int32_t e = x % 1461 / 4 * 5 + 2;
    std::int32_t k = e / 153 + 1;
    return {t / 146097 * 100 + x / 1461 + k / 11, k >= 11 ? k - 10 : k + 2, e % 153 / 5 + 1};
}

std::int32_t definedDayOfWeek(std::int32_t day) { return cut(day + 1LL) % 7 + 1; }

TEST(DayNumber, AnyNumbers) {
    struct Row {
        std::int32_t year, month, day, number;
    };
    for (auto [year, month, day, number] :
         {Row{2000, 2, 30, 2451605}, Row{2000, 13, 1, 2451911}, Row{2000, 0, 1, 2451514}, Row{2000, 1, 0, 2451544}}) {
        EXPECT_EQ(lib().IntToJulian(year, month, day), number) << "rolled over";
    }
    RandomTexts random(611);
    const std::int32_t edges[] = {kLeast, -1, 0, 2, 3, 12, 1584, 1469900, 1470000, 536870912, kMost - 1, kMost};
    auto any = [&] {
        int kind = random.number(0, 3);
        return kind == 0   ? edges[random.number(0, 11)]
               : kind == 1 ? random.number(kLeast, kMost)
                           : random.number(-20, kind == 2 ? 40 : 600000000);
    };
    for (int i = 0; i < 30000; ++i) {
        std::int32_t year = any(), month = any(), day = any();
        ASSERT_EQ(lib().IntToJulian(year, month, day), definedNumber(year, month, day))
            << year << ' ' << month << ' ' << day;
        ASSERT_EQ(split(day), definedTriple(day)) << day;
        auto [y, m, d] = split(day);
        if (day >= kFirstDay && day <= 538592031) {
            ASSERT_EQ(lib().IntToJulian(y, m, d), day);
        }
        ASSERT_EQ(lib().JDow(day), definedDayOfWeek(day)) << day;
        ASSERT_EQ(lib().AtDow(day, month, year),
                  cut(std::int64_t{day} - definedDayOfWeek(day) + (month & 7) + 7LL * year))
            << day;
        lib().LastDay(day), lib().JDoy(day), lib().AddMonth(day, month);
    }
    EXPECT_NE(split(538592032), Triple());
}

TEST(DayNumber, WeekOfADay) {
    RandomTexts random(612);
    for (int i = 0; i < 5000; ++i) {
        std::int32_t day = random.number(kFirstDay, 3000000), weeks = random.number(-3000, 3000);
        std::int32_t sunday = day;
        while (lib().JDow(sunday) != 1) --sunday;
        for (int dow = 1; dow <= 7; ++dow) {
            ASSERT_EQ(lib().AtDow(day, dow, weeks), sunday + dow - 1 + 7 * weeks) << day;
            ASSERT_EQ(lib().AtDow(day, dow - 16, weeks), sunday + dow - 1 + 7 * weeks) << "kept: three bits";
        }
        ASSERT_EQ(lib().AtDow(day, 0, 0), sunday - 1) << "kept: the Saturday before";
    }
}

TEST(DayNumber, WeekdaysAgainstAWalk) {
    RandomTexts random(613);
    for (int i = 0; i < 2000; ++i) {
        int where = random.number(0, 2);
        std::int32_t start = where == 0   ? random.number(-40, 40)
                             : where == 1 ? random.number(kFirstDay, 2900000)
                                          : kMost - random.number(0, 500);
        std::int64_t end =
            std::min<std::int64_t>(std::int64_t{start} + random.number(0, random.oneIn(50) ? 30000 : 60), kMost);
        std::int32_t count = 0;
        for (std::int64_t day = start; day <= end; ++day) {
            std::int32_t dow = lib().JDow(static_cast<std::int32_t>(day));
            count += dow >= 2 && dow <= 6;
        }
        ASSERT_EQ(lib().Weekdays(start, static_cast<std::int32_t>(end)), count) << start << ".." << end;
        ASSERT_EQ(lib().Weekdays(static_cast<std::int32_t>(end), start), count) << end << ".." << start;
    }
    EXPECT_EQ(lib().Weekdays(2451545, 2451546), 0) << "Saturday and Sunday";
    EXPECT_EQ(lib().Weekdays(2451551, 2451547), 5);
    EXPECT_EQ(lib().Weekdays(kLeast, kMost), 1533916891);
    EXPECT_EQ(lib().Weekdays(kLeast, -1), 0);
}

TEST(DayNumber, MonthsAgainstAWalk) {
    RandomTexts random(614);
    for (int i = 0; i < 4000; ++i) {
        std::int32_t start = random.number(kFirstDay, 2900000);
        auto [year, month, day] = split(start);
        if (i % 3 == 0) start += lengthOf(year, month) - day, day = lengthOf(year, month);
        int months = random.number(-5000, 5000);
        bool last = day == lengthOf(year, month);
        int y = year, m = month;
        for (int n = months; n > 0; --n) m == 12 ? (m = 1, ++y) : ++m;
        for (int n = months; n < 0; ++n) m == 1 ? (m = 12, --y) : --m;
        int d = last ? lengthOf(y, m) : std::min<int>(day, lengthOf(y, m));
        ASSERT_EQ(lib().AddMonth(start, months), lib().IntToJulian(y, m, d))
            << year << '-' << month << '-' << day << " + " << months;
    }
    struct Row {
        const char* from;
        std::int32_t months;
        const char* to;
    };
    for (auto [from, months, to] :
         {Row{"20010131", 1, "20010228"}, Row{"20000131", 1, "20000229"}, Row{"20010228", 1, "20010331"},
          Row{"20010430", 1, "20010531"}, Row{"19990228", 12, "20000229"}, Row{"20010315", -3, "20001215"},
          Row{"20010315", -12, "20000315"}, Row{"20010131", 0, "20010131"}, Row{"20010130", 1, "20010228"},
          Row{"20001231", 1, "20010131"}, Row{"20010101", -1, "20001201"}, Row{"15840101", -1, ""},
          Row{"20010101", kLeast, ""}}) {
        EXPECT_EQ(lib().AddMonth(lib().AnsiToJulian(from), months), lib().AnsiToJulian(to)) << from << " + " << months;
    }
    EXPECT_EQ(lib().AddMonth(2451545, kMost), definedNumber(2000 + kMost / 12, 8, 1));
}

TEST(DateText, Fields) {
    struct Row {
        const char* text;
        Triple fields;
    };
    const Row rows[] = {
        {"12/31/95", {95, 12, 31}},
        {"7/4/1996", {1996, 7, 4}},
        {"  7/ 4/  1996", {1996, 7, 4}},
        {"", {0, 0, 0}},
        {nullptr, {0, 0, 0}},
        {"/", {0, 0, 0}},
        {"//2000", {2000, 0, 0}},
        {"5//2000", {2000, 5, 0}},
        {"5", {0, 5, 0}},
        {"5/6", {0, 5, 6}},
        {"5/6/", {0, 5, 6}},
        {"5/6/7/8", {7, 5, 6}},
        {"5x/6y/7z", {7, 5, 6}},
        {"5 5/6-6/7.7", {7, 5, 6}},
        {"x5/y6/z7", {0, 0, 0}},
        {"-5/+6/-7", {-7, -5, 6}},
        {"- 5/+ 6/--7", {0, 0, 0}},
        {"5-6-7", {0, 5, 0}},
        {"\t5/6/7", {7, 0, 6}},  // only blanks are skipped
        {"2147483647/-2147483648/4294969296", {kMost, kMost, kLeast}},
        {"18446744073709551617/-18446744073709551617/0000000000000000000000007", {7, kMost, kLeast}},
    };
    for (const Row& row : rows) EXPECT_EQ(fields(row.text), row.fields) << (row.text ? row.text : "NULL");
    lib().DateToInt("1/2/3", nullptr, nullptr, nullptr);
    EXPECT_EQ(lib().DateToJulian("12/31/95"), 0);
    EXPECT_EQ(lib().DateToJulian(nullptr), 0);
    EXPECT_EQ(lib().DateToJulian("2/30/2000"), 2451605) << "not checked";
}

TEST(DateText, Checked) {
    const char* valid[] = {"2/29/2000", "1/1/05",       "1/1/19",   "1/1/20",       "1/1/95",    "2/29/4",
                           "1/1/2100",  "12/31/2100",   "1/1/-5",   "1/1/0",        "1/1/-1999", "4/30/1999",
                           "1/1",       " 1/ 1/ 1999x", "1/1/1/99", "2/29/0",       "2/29/1600", "01/01/0001",
                           "1/31/5 BC", "12/31/1583",   "2/29/96",  "2/28/1900abc", "1/1/abc"};
    for (const char* text : valid) EXPECT_EQ(lib().CheckDate(text), 1) << text;
    const char* invalid[] = {"2/29/1900", "13/1/1999", "0/1/1999",  "1/0/1999",  "1/32/1999",        "4/31/1999",
                             "1/1/2101",  "1/1/-2000", "2/29/2001", "2/29/5",    "-1/1/1999",        "1/-1/1999",
                             "",          "/",         "1",         "1-1-1999",  "1/1/4294969296",   "2/30/2000",
                             "x/1/1999",  "1999/1/1",  "2/29/100",  "6/31/2000", "1/1/-99999999999", "9/31/1999"};
    for (const char* text : invalid) EXPECT_EQ(lib().CheckDate(text), 0) << text;
    EXPECT_EQ(lib().CheckDate(nullptr), 0);
}

TEST(DateText, EightDigits) {
    struct Row {
        const char* text;
        std::int32_t year, month, day;
    };
    for (auto [text, year, month, day] :
         {Row{"19960704", 1996, 7, 4}, Row{"1996 7 4", 1996, 7, 4}, Row{" \t\r\n19960704", 1996, 7, 4},
          Row{"19960704123", 1996, 7, 4}, Row{"1996", 1996, 0, 0}, Row{"19961", 1996, 1, 0}, Row{"1996071", 1996, 7, 1},
          Row{"1996+7-4", 1996, 7, -4}, Row{"1996x7xx", 1996, 0, 0}, Row{"19967/4/", 1996, 7, 4},
          Row{"15831231", 0, 0, 0}, Row{"", 0, 0, 0}, Row{"    ", 0, 0, 0}, Row{"abcd0101", 0, 0, 0},
          Row{"996 0101", 996, 1, 1}, Row{"\x8D\x8A 19960704", 1996, 7, 4}}) {
        EXPECT_EQ(lib().AnsiToJulian(Edit(text)), lib().IntToJulian(year, month, day)) << text;
    }
    EXPECT_EQ(lib().AnsiToJulian(nullptr), 0);
}

}  // namespace
}  // namespace vx::test
