// The clock's date and time, setting it, sleeping, and texts that the platform makes: against a clock that stands
// still.
#include <gtest/gtest.h>

#include <limits>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using platform::Moment;

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

class ClockSeam : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};
    const Moment now = fake.clock.now;

    // What the clock was set to in the call just made.
    Moment set() {
        EXPECT_EQ(fake.clock.sets.size(), 1u);
        Moment last = fake.clock.sets.empty() ? Moment{} : fake.clock.sets.back();
        fake.clock.sets.clear();
        return last;
    }
    Moment withDate(int year, int month, int day) {
        Moment moment = now;
        moment.year = static_cast<std::uint16_t>(year);
        moment.month = static_cast<std::uint16_t>(month);
        moment.day = static_cast<std::uint16_t>(day);
        return moment;
    }
    Moment withTime(int hour, int minute, int second) {
        Moment moment = now;
        moment.hour = static_cast<std::uint16_t>(hour);
        moment.minute = static_cast<std::uint16_t>(minute);
        moment.second = static_cast<std::uint16_t>(second);
        return moment;
    }
};

TEST_F(ClockSeam, TodayInAllShapes) {
    std::int32_t year, month, day;
    lib().DosGetDate(&year, &month, &day);
    EXPECT_EQ(std::tuple(year, month, day), std::tuple(2000, 1, 5));
    lib().DosGetDate(nullptr, nullptr, nullptr);
    EXPECT_EQ(lib().GetJDate(), 2451549);
    EXPECT_EQ(lib().Dow(), 4);
    Dest dest(64);
    EXPECT_STREQ(lib().GetDatef("DDD, MM-dd-YYYY", dest), "5th, 01-5-2000");
    EXPECT_EQ(lib().strdatef("YYYY", dest), 4u);
    EXPECT_EQ(fake.clock.reads, 6) << "once a call";
    EXPECT_STREQ(lib().GetDate(dest), fake.locale.dateText.c_str());
    EXPECT_EQ(fake.locale.picture, "MM/dd/yyyy");
    EXPECT_EQ(fake.locale.date, (Moment{.year = 2000, .month = 1, .day = 5})) << "nothing but the date";
}

TEST_F(ClockSeam, TimeInAllShapes) {
    std::int32_t hour, minute, second;
    lib().DosGetTime(&hour, &minute, &second);
    EXPECT_EQ(std::tuple(hour, minute, second), std::tuple(9, 5, 3));
    lib().DosGetTime(nullptr, nullptr, nullptr);
    EXPECT_EQ(lib().GetJTime(), 9 * 3600 + 5 * 60 + 3);
    Dest hundredths(12);
    EXPECT_STREQ(lib().Timeh(hundredths), "09:05:03.07");
    EXPECT_EQ(lib().StrTimeh(hundredths), 11u);
    fake.clock.now = {2000, 1, 3, 5, 23, 59, 59, 999};
    EXPECT_STREQ(lib().Timeh(hundredths), "23:59:59.99");
    Dest dest(64);
    EXPECT_STREQ(lib().GetTime(dest), fake.locale.timeText.c_str());
    EXPECT_EQ(fake.locale.time, fake.clock.now);
    for (auto call : {lib().GetTime, lib().Timeh, lib().GetDate}) EXPECT_EQ(call(nullptr), nullptr);
}

TEST_F(ClockSeam, SettingTheDateKeepsTheTime) {
    EXPECT_EQ(lib().DosSetDate(1999, 12, 31), 1);
    EXPECT_EQ(set(), withDate(1999, 12, 31));
    EXPECT_EQ(lib().DosSetDate(0x107CF, 0x10002, -1), 1) << "16 bits each";
    EXPECT_EQ(set(), withDate(1999, 2, 65535));
    EXPECT_EQ(lib().SetJDate(2451545), 1);
    EXPECT_EQ(set(), withDate(2000, 1, 1));
    EXPECT_EQ(lib().SetJDate(0), 1) << "left for the platform to refuse";
    EXPECT_EQ(set(), withDate(0, 0, 0));
    struct Row {
        const char* text;
        int year, month, day;
    };
    for (auto [text, year, month, day] :
         {Row{"7/4/1996", 1996, 7, 4}, Row{"12/31/95", 95, 12, 31}, Row{"2/30/2001", 2001, 2, 30}, Row{"", 0, 0, 0}}) {
        EXPECT_EQ(lib().SetDate(text), 1) << text;
        EXPECT_EQ(set(), withDate(year, month, day)) << text;
    }
    EXPECT_EQ(lib().SetDate(nullptr), 0);
    fake.clock.setResult = 0;
    EXPECT_EQ(lib().SetDate("1/1/2000") + lib().DosSetDate(2000, 1, 1) + lib().SetJDate(2451545), 0);
    EXPECT_EQ(fake.clock.sets.size(), 3u);
    fake.clock.setResult = 5;
    EXPECT_EQ(lib().DosSetDate(2000, 1, 1), 5);
}

TEST_F(ClockSeam, SettingTheTimeKeepsTheDate) {
    EXPECT_EQ(lib().DosSetTime(23, 59, 58), 1);
    EXPECT_EQ(set(), withTime(23, 59, 58));
    EXPECT_EQ(lib().DosSetTime(0x10001, -1, 60), 1) << "16 bits each";
    EXPECT_EQ(set(), withTime(1, 65535, 60));
    EXPECT_EQ(lib().SetJTime(-1), 1);
    EXPECT_EQ(set(), withTime(23, 59, 59));
    struct Row {
        const char* text;
        int hour, minute, second;
    };
    const Row rows[] = {
        {"1:15 pm", 13, 15, 0},
        {"12:15 PM", 12, 15, 0},
        {"12:15 AM", 12, 15, 0},
        {"1:15 Pm", 1, 15, 0},
        {"11:00PM", 23, 0, 0},
        {"PM", 12, 0, 0},
        {"pm 3:00", 12, 0, 0},  // the hour is what the text begins
                                // with
        {"13:02:03 pm", 13, 2, 3},
        {"", 0, 0, 0},
        {"99:98:97", 99, 98, 97},
        {"5:06:07 AM pm", 17, 6, 7},
    };
    for (auto [text, hour, minute, second] : rows) {
        EXPECT_EQ(lib().SetTime(text), 1) << text;
        EXPECT_EQ(set(), withTime(hour, minute, second)) << text;
    }
    EXPECT_EQ(lib().SetTime(nullptr), 0);
    fake.clock.setResult = 0;
    EXPECT_EQ(lib().SetTime("1:00") + lib().DosSetTime(1, 0, 0) + lib().SetJTime(0), 0);
    EXPECT_EQ(fake.clock.sets.size(), 3u);
}

TEST_F(ClockSeam, Sleeping) {
    struct Row {
        std::int32_t count;
        std::uint32_t delay, nap;
    };
    for (auto [count, delay, nap] : {Row{10, 100, 560}, Row{1, 10, 56}, Row{0, 0, 0}, Row{-1, 0, 0},
                                     Row{80000000, 800000000, 0xFFFFFFFE}, Row{kMost, 0xFFFFFFFE, 0xFFFFFFFE}}) {
        fake.clock.sleeps.clear();
        lib().Delay(count);
        lib().Nap(count);
        EXPECT_EQ(fake.clock.sleeps, (std::vector{delay, nap})) << count;
    }
}

// Each way to a text: what the platform is asked, and the text's way back.
TEST_F(ClockSeam, TextsOfThePlatform) {
    struct Row {
        char* (*call)(char* dest);
        const char* picture;
        Moment asked;
    };
    const Row rows[] = {
        {[](char* d) { return lib().IntToDate(2001, 2, 3, d); }, "MM/dd/yyyy", {2001, 2, 0, 3}},
        {[](char* d) { return lib().IntToDate(0x107D1, 0x10002, 0x10003, d); }, "MM/dd/yyyy", {2001, 2, 0, 3}},
        {[](char* d) { return lib().JulianToDate(2451545, d); }, "MM/dd/yyyy", {2000, 1, 0, 1}},
        {[](char* d) { return lib().JulianToDate(0, d); }, "MM/dd/yyyy", {}},
        {[](char* d) { return lib().NumToMon(9, d); }, "MMM", {2000, 9, 0, 1}},
        {[](char* d) { return lib().NumToMonth(12, d); }, "MMMM", {2000, 12, 0, 1}},
        {[](char* d) { return lib().NumToDay(1, d); }, "dddd", {2001, 1, 0, 7}},
        {[](char* d) { return lib().NumToDay(2, d); }, "dddd", {2001, 1, 1, 1}},
        {[](char* d) { return lib().NumToDay(7, d); }, "dddd", {2001, 1, 6, 6}},
        {[](char* d) { return lib().IntToDatef(1, 3, 2, "MMM", d); }, "MMM", {2000, 3, 0, 1}},
        {[](char* d) { return lib().IntToDatef(1, 3, 2, "MMMM", d); }, "MMMM", {2000, 3, 0, 1}},
        {[](char* d) { return lib().JulianToAnsi(2451545, d); }, "yyyyMMdd", {2000, 1, 0, 1}},
    };
    for (const Row& row : rows) {
        bool ansi = row.picture == std::string("yyyyMMdd");
        std::string text(ansi ? 8 : 31, 'x');
        Dest dest(ansi ? 9 : 48);
        for (auto [works, given, expected] :
             {std::tuple(true, text, text), {true, text + "x", std::string()}, {false, text, std::string()}}) {
            fake.locale.works = works;
            fake.locale.dateText = given;
            fake.locale.picture.clear();
            EXPECT_EQ(row.call(dest), dest.get());
            EXPECT_EQ(dest.text(), expected) << row.picture;
            EXPECT_EQ(fake.locale.picture, row.picture);
            EXPECT_EQ(fake.locale.date, row.asked) << row.picture;
        }
    }
    Dest dest(32);
    fake.locale = {};
    fake.locale.dateText = "Primus";
    EXPECT_EQ(lib().strnum2mon(1, dest), 6u);
    EXPECT_EQ(fake.locale.picture, "MMMM") << "kept: the full name";
    EXPECT_EQ(dest.text(), "Primus");
}

TEST_F(ClockSeam, TimesOfThePlatform) {
    struct Row {
        std::int32_t hour, minute, second;
        const char* plain;
    };
    const Row rows[] = {
        {9, 5, 3, "09:05:03"},          {24, 0, 0, "24:00:00"},  {100, 0, 0, "100:00:0"},
        {-5, -5, -5, "0-5:0-5:"},       {12, -1, 7, "12:0-1:0"}, {kMost, kMost, kMost, "21474836"},
        {-kMost - 1, 1, 1, "0-214748"}, {0, 0, 0, "00:00:00"},   {0x10001, 0, 0, "65537:00"},
    };
    for (const Row& row : rows) {
        Dest dest(64);
        fake.locale.works = true;
        EXPECT_EQ(lib().IntToTime(row.hour, row.minute, row.second, dest), dest.get());
        EXPECT_EQ(dest.text(), fake.locale.timeText);
        EXPECT_EQ(fake.locale.time, withTime(row.hour, row.minute, row.second)) << "the date of today";
        fake.locale.works = false;
        EXPECT_EQ(lib().StrIntToTime(row.hour, row.minute, row.second, dest), std::strlen(row.plain));
        EXPECT_EQ(dest.text(), row.plain);
    }
}

}  // namespace
}  // namespace vx::test
