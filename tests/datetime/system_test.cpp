// Names, times and the clock of the system that this is.
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <ctime>

#include "tests/support/environment.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

#if defined(_WIN32)
#include <windows.h>
#endif

namespace vx::test {
namespace {

// The system's own name of a month (short or full) or day of the week, asked for in another way.
#if defined(_WIN32)
std::string systemName(LCTYPE first, int index) {
    char name[80] = "";
    GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, first + static_cast<LCTYPE>(index), name, sizeof name);
    return name;
}
std::string shortMonth(int month) { return systemName(LOCALE_SABBREVMONTHNAME1, month - 1); }
std::string fullMonth(int month) { return systemName(LOCALE_SMONTHNAME1, month - 1); }
std::string fullDay(int day) { return systemName(LOCALE_SDAYNAME1, (day + 5) % 7); }
#else
std::string systemName(const char* format, int month, int dayOfWeek) {
    static const locale_t wanted = newlocale(LC_ALL_MASK, "", nullptr);
    static const locale_t user = wanted ? wanted : newlocale(LC_ALL_MASK, "C", nullptr);
    std::tm time{};
    time.tm_mon = month;
    time.tm_wday = dayOfWeek;
    char name[80] = "";
    strftime_l(name, sizeof name, format, &time, user);
    return name;
}
std::string shortMonth(int month) { return systemName("%Ob", month - 1, 0); }
std::string fullMonth(int month) { return systemName("%OB", month - 1, 0); }
std::string fullDay(int day) { return systemName("%A", 0, day - 1); }

TEST(SystemDate, InOtherLocales) {
    for (const char* locale : {"LC_ALL=C", "LC_ALL=not_installed"}) EXPECT_EQ(rerun(locale, "SystemLocale.*"), "");
    rerunInSecondLocale("SystemLocale.*");
}
#endif

TEST(SystemLocale, Names) {
    Dest name(32), names(100);
    for (std::int32_t month = 1; month <= 12; ++month) {
        EXPECT_EQ(lib().NumToMon(month, name), shortMonth(month));
        EXPECT_EQ(lib().NumToMonth(month, name), fullMonth(month));
        EXPECT_EQ(lib().IntToDatef(1, month, 1, "MMM MMMM", names), shortMonth(month) + " " + fullMonth(month));
    }
    for (std::int32_t day = 1; day <= 7; ++day) EXPECT_EQ(lib().NumToDay(day, name), fullDay(day));
}

// US English, C included, writes a time without a leading zero.
TEST(SystemLocale, TimesInTwentyFourHours) {
    std::string locale = "en_US";
#if !defined(_WIN32)
    const char* name = std::setlocale(LC_TIME, "");
    locale = name ? name : "C";  // what is not installed
    std::setlocale(LC_TIME, "C");
#endif
    bool russian = locale.starts_with("ru_RU");
    if (!russian && locale != "C" && !locale.starts_with("C.") && !locale.starts_with("en_US"))
        GTEST_SKIP() << "no expectation for the locale " << locale;
    for (std::int32_t seconds = 0; seconds < 86400; seconds += 7) {
        std::int32_t hour = seconds / 3600, minute = seconds / 60 % 60, second = seconds % 60;
        char expected[16], dest[64];
        std::snprintf(expected, sizeof expected, russian ? "%02d:%02d:%02d" : "%d:%02d:%02d", hour, minute, second);
        ASSERT_STREQ(lib().IntToTime(hour, minute, second, dest), expected);
    }
}

using Now = std::array<std::int32_t, 7>;

Now systemNow() {
#if defined(_WIN32)
    SYSTEMTIME now;
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wDayOfWeek, now.wHour, now.wMinute, now.wSecond};
#else
    std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());  // time() may lag behind
    std::tm t = *std::localtime(&now);
    return {t.tm_year + 1900, t.tm_mon + 1, t.tm_mday, t.tm_wday, t.tm_hour, t.tm_min, t.tm_sec};
#endif
}

void expectNow() {
    Now before, got;
    do {
        before = systemNow();
        lib().DosGetDate(&got[0], &got[1], &got[2]), lib().DosGetTime(&got[4], &got[5], &got[6]);
        got[3] = lib().Dow() - 1;
    } while (before != systemNow());  // a second began
    EXPECT_EQ(got, before);
}

TEST(SystemDate, NowIsTheSystems) {
    expectNow();
#if !defined(_WIN32)
    for (const char* zone : {"FAR-14", "FAR+12", "Pacific/Kiritimati", "America/St_Johns"}) {
        InZone there(zone);
        expectNow();
    }
#endif
}

TEST(SystemTime, Waiting) {
    auto start = std::chrono::steady_clock::now();
    lib().Delay(3), lib().Nap(1), lib().Delay(-1);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(80));
}

}  // namespace
}  // namespace vx::test
