// Dates as texts by pictures and by the system, names, and today's date.
#include <gtest/gtest.h>

#include <ctime>
#include <limits>
#include <tuple>

#include "tests/support/environment.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

#if defined(_WIN32)
#include <windows.h>
#endif

namespace vx::test {
namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

std::string nameOf(char*(VX_CALL* call)(std::int32_t, char*), std::int32_t number) {
    Dest dest(32);
    EXPECT_EQ(call(number, dest), dest.get());
    return dest.text();
}

std::string pictured(std::int32_t year, std::int32_t month, std::int32_t day, const std::string& picture) {
    Dest dest(picture.size() * 11 + 1);
    EXPECT_EQ(lib().IntToDatef(year, month, day, picture.c_str(), dest), dest.get());
    EXPECT_EQ(lib().stritodatef(year, month, day, picture.c_str(), dest), dest.text().size());
    return dest.text();
}

TEST(Picture, Tokens) {
    struct Row {
        std::int32_t year, month, day;
        const char* picture;
        const char* text;
    };
    const Row rows[] = {
        {2005, 3, 7, "MM/DD/YY", "03/07/5"},
        {1996, 7, 4, "mm/dd/YYYY", "7/4/1996"},
        {2000, 11, 12, "YYYYMMDD", "20001112"},
        {2000, 1, 5, "", ""},
        {2000, 1, 5, "no token: y yy yyyy D M Y d m", "no token: y yy yyyy D M Y d m"},
        {2000, 1, 13, "DDDD", "13th"},
        {2000, 1, 23, "DDDD, DDD", "23rd, 23rd"},
        {2000, 1, 5, "DDDDD DDDDDD DDDDDDD", "5thD 5th05 5th5th"},
        {2000, 9, 5, "ddd dddd ddddd mmm mmmm", "5d 55 55d 9m 99"},
        {1996, 1, 5, "Y YY YYY YYYY YYYYY YYYYYY YYYYYYY", "Y 96 Y96 1996 1996Y 199696 1996Y96"},
        {2000, 1, 5, "YY", "0"},
        {-1996, -7, -4, "YY YYYY MM mm DD dd DDD", "-96 -1996 0-7 -7 0-4 -4 -4th"},
        {0, 0, 0, "MM/DD/YYYY mm dd DDD YY [MMM][MMMM]", "00/00/0 0 0 0th 0 [][]"},
        {1, 13, 31, "MM[MMM][MMMM]", "13[][]"},
        {kLeast, kLeast, kMost, "MM DD YYYY YY mm dd DDD",
         "0-2147483648 2147483647 -2147483648 -48 -2147483648 2147483647 2147483647th"},
        {2000, 1, 5, "\\DD 'mm' \x80%s%n", "\\05 '1' \x80%s%n"},
        {2000, 1, 5, "dD Dd mM Mm", "dD Dd mM Mm"},
    };
    for (const Row& row : rows) EXPECT_EQ(pictured(row.year, row.month, row.day, row.picture), row.text) << row.picture;
    Dest dest(1);
    EXPECT_EQ(lib().IntToDatef(2000, 1, 5, nullptr, dest), dest.get());
    EXPECT_EQ(dest.text(), "");
    EXPECT_EQ(lib().IntToDatef(2000, 1, 5, "MM", nullptr), nullptr);
    EXPECT_EQ(lib().stritodatef(2000, 1, 5, "MM", nullptr), 0u);
}

// The expansion as a list of rules.
std::string expanded(std::int32_t year, std::int32_t month, std::int32_t day, std::string picture) {
    auto twoDigits = [](std::int32_t n) { return (n < 10 ? "0" : "") + std::to_string(n); };
    const char* suffix = day % 10 == 1 ? "st" : day % 10 == 2 ? "nd" : day % 10 == 3 ? "rd" : "th";
    std::string ordinal = std::to_string(day) + (day / 10 % 10 == 1 ? "th" : suffix);
    const std::pair<std::string, std::string> rules[] = {{"MMMM", nameOf(lib().NumToMonth, month)},
                                                         {"MMM", nameOf(lib().NumToMon, month)},
                                                         {"MM", twoDigits(month)},
                                                         {"mm", std::to_string(month)},
                                                         {"DDDD", ordinal},
                                                         {"DDD", ordinal},
                                                         {"DD", twoDigits(day)},
                                                         {"dd", std::to_string(day)},
                                                         {"YYYY", std::to_string(year)},
                                                         {"YY", std::to_string(year % 100)}};
    std::string result;
    while (!picture.empty()) {
        std::string token = picture.substr(0, 1), text = token;
        for (const auto& [longer, expansion] : rules) {
            if (!picture.starts_with(longer) || (longer == "YY" && picture.starts_with("YYY"))) continue;
            token = longer, text = expansion;
            break;
        }
        result += text;
        picture.erase(0, token.size());
    }
    return result;
}

TEST(Picture, AgainstTheRules) {
    RandomTexts random(621);
    for (int i = 0; i < 5000; ++i) {
        std::string picture = "DDD/" + random.text("DDMMYYdmy/", 16);
        std::int32_t year = random.number(-3000, 3000), month = random.number(0, 13), day = i % 300;
        ASSERT_EQ(pictured(year, month, day, picture), expanded(year, month, day, picture)) << picture;
    }
}

TEST(Picture, OfDayNumbers) {
    Dest dest(48);
    EXPECT_STREQ(lib().GetJDatef(0, "MM/DD/YYYY", dest), "00/00/0");
    EXPECT_STREQ(lib().GetJDatef(2451545, "mm-dd-YYYY", dest), "1-1-2000");
    EXPECT_EQ(lib().strjdatef(2451545, "YYYY", dest), 4u);
    EXPECT_EQ(lib().Dtow(2451549, dest), dest.get());
    EXPECT_EQ(dest.text(), nameOf(lib().NumToMonth, 1) + " 5, 2000");
    EXPECT_STREQ(lib().Dtow(-1, dest), " 0, 0");
    for (std::int32_t day : {538592031, 538592032, 540000000, kMost}) {
        std::uint32_t size = lib().strdtow(day, dest);
        EXPECT_EQ(dest.text().size(), size) << day;
    }
    EXPECT_EQ(lib().GetJDatef(2451545, "YYYY", nullptr), nullptr);
    EXPECT_EQ(lib().Dtow(2451545, nullptr), nullptr);
    EXPECT_EQ(lib().GetDatef("YYYY", nullptr), nullptr);
}

TEST(SystemDate, DatesThatTheSystemKnows) {
    struct Row {
        std::int32_t year, month, day;
        const char* text;
    };
    const Row rows[] = {
        {2000, 1, 5, "01/05/2000"},
        {1601, 1, 1, "01/01/1601"},
        {1600, 12, 31, ""},
        {9999, 12, 31, "12/31/9999"},
        {30827, 12, 31, "12/31/30827"},
        {30828, 1, 1, ""},
        {2000, 2, 29, "02/29/2000"},
        {1900, 2, 29, ""},
        {2001, 4, 31, ""},
        {2001, 0, 1, ""},
        {2001, 13, 1, ""},
        {2001, 1, 0, ""},
        {2001, 1, 32, ""},
        {0, 0, 0, ""},
        {-2000, 1, 1, ""},
        {2001, 257, 1, ""},
        {2001, 1, 257, ""},
        {96, 7, 4, ""},
        {65536 + 2001, 1, 1, "01/01/2001"},  // kept: 16 bits each
        {kLeast, kLeast, kLeast, ""},
        {kMost, kMost, kMost, ""},
    };
    for (const Row& row : rows) {
        Dest dest(32);
        EXPECT_EQ(lib().IntToDate(row.year, row.month, row.day, dest), dest.get());
        EXPECT_EQ(dest.text(), row.text) << row.year << '-' << row.month << '-' << row.day;
        EXPECT_EQ(lib().stritod(row.year, row.month, row.day, dest), std::strlen(row.text));
    }
    Dest dest(32);
    for (std::int32_t day = 2305815; day < 2500000; day += 1009) {
        ASSERT_EQ(lib().DateToJulian(lib().JulianToDate(day, dest)), day);
        ASSERT_EQ(lib().strjtod(day, dest), 10u) << day;
    }
    EXPECT_STREQ(lib().JulianToDate(0, dest), "");
    for (auto call : {lib().JulianToDate, lib().NumToMon, lib().NumToMonth, lib().NumToDay}) {
        EXPECT_EQ(call(1, nullptr), nullptr);
    }
    EXPECT_EQ(lib().IntToDate(2000, 1, 1, nullptr), nullptr);
    EXPECT_EQ(lib().strnum2mon(1, nullptr), 0u);
}

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

TEST(SystemDate, InASecondLocale) {
    EXPECT_EQ(rerun("LC_ALL=C", "SystemNames.*"), "");
    rerunInSecondLocale("SystemNames.*:LocaleTime.*");
}
#endif

TEST(SystemNames, AreTheLocales) {
    for (std::int32_t month = 1; month <= 12; ++month) {
        EXPECT_EQ(nameOf(lib().NumToMon, month), shortMonth(month));
        EXPECT_EQ(nameOf(lib().NumToMonth, month), fullMonth(month));
        Dest dest(32);
        EXPECT_EQ(lib().strnum2month(month, dest), fullMonth(month).size());
        EXPECT_EQ(lib().strnum2mon(month, dest), fullMonth(month).size()) << "kept: the full name";
        EXPECT_EQ(dest.text(), fullMonth(month));
        EXPECT_EQ(pictured(1, month, 1, "MMM MMMM"), shortMonth(month) + " " + fullMonth(month));
    }
    for (std::int32_t day = 1; day <= 7; ++day) {
        EXPECT_EQ(nameOf(lib().NumToDay, day), fullDay(day));
        EXPECT_EQ(lib().strnum2day(day, Dest(32)), fullDay(day).size());
    }
    for (std::int32_t none : {0, 13, -1, kLeast, kMost}) {
        EXPECT_EQ(nameOf(lib().NumToMon, none) + nameOf(lib().NumToMonth, none) + nameOf(lib().NumToDay, none), "");
        EXPECT_EQ(lib().strnum2mon(none, Dest(32)), 0u);
    }
    EXPECT_EQ(nameOf(lib().NumToDay, 8), "");
}

std::tuple<int, int, int, int> systemToday() {
#if defined(_WIN32)
    SYSTEMTIME now;
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wDayOfWeek};
#else
    std::time_t now = std::time(nullptr);
    std::tm local = *std::localtime(&now);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_wday};
#endif
}

void expectToday(const char* zone) {
    for (auto before = systemToday();; before = systemToday()) {
        std::int32_t year, month, day;
        lib().DosGetDate(&year, &month, &day);
        std::int32_t number = lib().GetJDate(), dayOfWeek = lib().Dow();
        Dest date(32), byPicture(111);
        lib().GetDate(date), lib().GetDatef("MM/DD/YYYY", byPicture);
        if (before != systemToday()) continue;  // midnight came
        EXPECT_EQ(std::tuple(year, month, day, dayOfWeek - 1), before) << zone;
        EXPECT_EQ(number, lib().IntToJulian(year, month, day)) << zone;
        EXPECT_EQ(dayOfWeek, lib().JDow(number)) << zone;
        EXPECT_EQ(lib().DateToJulian(date), number) << zone;
        EXPECT_EQ(byPicture.text(), date.text()) << zone;
        EXPECT_EQ(lib().strgetdate(date), 10u);
        break;
    }
}

TEST(SystemDate, TodayIsTheSystems) {
    expectToday("here");
#if !defined(_WIN32)
    for (const char* zone : {"FAR-14", "FAR+12", "Pacific/Kiritimati", "America/St_Johns"}) {
        InZone there(zone);
        expectToday(zone);
    }
#endif
}

}  // namespace
}  // namespace vx::test
