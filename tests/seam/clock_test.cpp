// The clock's date and time, setting it, sleeping, and texts that the platform makes: against a clock that stands
// still. The system's own clock: time stamps and local time.
#include <gtest/gtest.h>

#include <cstdio>
#include <limits>

#include "tests/support/environment.h"
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
    for (auto [text, hour, minute, second] :
         {Row{"1:15 pm", 13, 15, 0}, Row{"12:15 PM", 12, 15, 0}, Row{"12:15 AM", 12, 15, 0}, Row{"1:15 Pm", 1, 15, 0},
          Row{"11:00PM", 23, 0, 0}, Row{"PM", 12, 0, 0}, Row{"pm 3:00", 12, 0, 0}, Row{"13:02:03 pm", 13, 2, 3},
          Row{"-1:00 pm", 11, 0, 0}, Row{"", 0, 0, 0}, Row{"99:98:97", 99, 98, 97}, Row{"5:06:07 AM pm", 17, 6, 7}}) {
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

using platform::FileTime;

platform::Clock& systemClock() { return *door()->platform->clock; }

constexpr FileTime kSecond = 10'000'000;
constexpr FileTime kEndOf2107 = 507ull * 146097 / 400 * 86400 * kSecond;

void expectRoundTrips(const std::string& zone) {
    for (FileTime time = 86400 * kSecond; time < kEndOf2107; time += 300007 * kSecond + 10'000) {
        Moment local, again;
        FileTime back = 0;
        ASSERT_TRUE(systemClock().toLocalTime(time, local) && systemClock().toFileTime(local, back)) << zone << time;
        if (back == time) continue;
        ASSERT_LT(back, time) << zone << ": the first of two";
        ASSERT_TRUE(systemClock().toLocalTime(back, again));
        ASSERT_EQ(again, local) << zone << time;
    }
}

TEST(SystemClock, TimeStampsThereAndBack) {
    expectRoundTrips("here");
#if !defined(_WIN32)
    for (const char* zone : {"UTC", "Europe/Berlin", "America/St_Johns", "Pacific/Apia"}) {
        InZone there(zone);
        expectRoundTrips(zone);
    }
#endif
}

TEST(SystemClock, RefusesWhatIsNoMoment) {
    for (Moment none :
         {Moment{2023, 2, 0, 29}, Moment{2024, 13, 0, 1}, Moment{2024, 0, 0, 1}, Moment{2024, 1, 0, 0},
          Moment{1600, 12, 0, 31}, Moment{30828, 1, 0, 1}, Moment{}, Moment{2024, 1, 0, 1, 24},
          Moment{2024, 1, 0, 1, 0, 60}, Moment{2024, 1, 0, 1, 0, 0, 60}, Moment{2024, 1, 0, 1, 0, 0, 0, 1000}}) {
        FileTime time = 7;
        door()->platform->process->setLastError(0);
        EXPECT_FALSE(systemClock().toFileTime(none, time)) << none.year << '-' << none.month << '-' << none.day;
        EXPECT_EQ(time, 7u);
        EXPECT_EQ(door()->platform->process->lastError(), 87u);
    }
}

#if !defined(_WIN32)
// "2000-12-31 23:59:59"
Moment momentOf(const char* text) {
    Moment moment;
    std::sscanf(text, "%hu-%hu-%hu %hu:%hu:%hu", &moment.year, &moment.month, &moment.day, &moment.hour, &moment.minute,
                &moment.second);
    return moment;
}

FileTime stampOf(const char* universal) {
    Moment moment = momentOf(universal);
    auto days =
        std::chrono::sys_days(platform::dateOf(moment)) - std::chrono::sys_days(std::chrono::year(1601) / 1 / 1);
    return (static_cast<FileTime>(days.count()) * 86400 + moment.hour * 3600u + moment.minute * 60u + moment.second) *
           kSecond;
}

// Where clocks change, and where a day was left out.
TEST(SystemClock, ChangesOfClocks) {
    struct Row {
        const char* zone;
        const char* local;
        const char* universal;
        const char* second = nullptr;  // where the local time comes twice
        const char* shown = nullptr;   // where it does not come at all
    };
    const Row rows[] = {
        {"Europe/Berlin", "2024-03-31 01:59:59", "2024-03-31 00:59:59"},
        {"Europe/Berlin", "2024-03-31 02:30:00", "2024-03-31 01:30:00", nullptr, "2024-03-31 03:30:00"},
        {"Europe/Berlin", "2024-03-31 03:00:00", "2024-03-31 01:00:00"},
        {"Europe/Berlin", "2024-10-27 01:59:59", "2024-10-26 23:59:59"},
        {"Europe/Berlin", "2024-10-27 02:30:00", "2024-10-27 00:30:00", "2024-10-27 01:30:00"},
        {"Europe/Berlin", "2024-10-27 03:00:00", "2024-10-27 02:00:00"},
        {"America/St_Johns", "2024-03-10 01:59:59", "2024-03-10 05:29:59"},
        {"America/St_Johns", "2024-03-10 03:00:00", "2024-03-10 05:30:00"},
        {"America/St_Johns", "2024-11-03 01:00:00", "2024-11-03 03:30:00", "2024-11-03 04:30:00"},
        {"Pacific/Apia", "2011-12-29 23:59:59", "2011-12-30 09:59:59"},
        {"Pacific/Apia", "2011-12-30 12:00:00", "2011-12-30 22:00:00", nullptr, "2011-12-31 12:00:00"},
        {"Pacific/Apia", "2011-12-31 00:00:00", "2011-12-30 10:00:00"},
        {"EAST-1", "1601-01-01 01:00:00", "1601-01-01 00:00:00"},
        {"UTC", "30827-12-31 23:59:59", "30827-12-31 23:59:59"},
    };
    for (const Row& row : rows) {
        if (std::strchr(row.zone, '/') && !std::filesystem::exists(std::string("/usr/share/zoneinfo/") + row.zone)) {
            GTEST_SKIP() << "the time zone " << row.zone << " is not installed";
        }
        InZone there(row.zone);
        Moment local;
        for (const char* universal : {row.universal, row.second ? row.second : row.universal}) {
            EXPECT_TRUE(systemClock().toLocalTime(stampOf(universal), local));
            local.dayOfWeek = 0;
            EXPECT_EQ(local, momentOf(row.shown ? row.shown : row.local)) << row.zone << ' ' << universal;
        }
        for (const char* before : {"2024-01-15 12:00:00", "2024-07-15 12:00:00"}) {
            FileTime time = 0;
            EXPECT_TRUE(systemClock().toFileTime(momentOf(before), time));
            EXPECT_TRUE(systemClock().toFileTime(momentOf(row.local), time));
            EXPECT_EQ(time, stampOf(row.universal)) << row.zone << ' ' << row.local << " asked after " << before;
        }
    }
}

TEST(SystemClock, RefusesWhatIsBeyondItsYears) {
    Moment local{1};
    for (auto [zone, stamp] : {std::pair("WEST+1", FileTime{0}),
                               {"UTC", stampOf("30827-12-31 23:59:59") + kSecond},
                               {"UTC", FileTime{1} << 63},
                               {"UTC", ~FileTime{0}}}) {
        InZone there(zone);
        door()->platform->process->setLastError(0);
        EXPECT_FALSE(systemClock().toLocalTime(stamp, local)) << stamp;
        EXPECT_EQ(local, Moment{1});
        EXPECT_EQ(door()->platform->process->lastError(), 87u);
    }
    InZone there("EAST-1");
    FileTime time = 7;
    EXPECT_FALSE(systemClock().toFileTime(momentOf("1601-01-01 00:59:59"), time));
    EXPECT_EQ(time, 7u);
}
#endif

}  // namespace
}  // namespace vx::test
