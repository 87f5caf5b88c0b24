// Day numbers against the C++ library's calendar, and beyond it as they are defined; pictures; seconds of days.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <limits>
#include <tuple>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using namespace std::chrono;
using Triple = std::tuple<std::int32_t, std::int32_t, std::int32_t>;

constexpr std::int32_t kFirstDay = 2299604;  // 1 January 1584
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

Triple split(std::int32_t day) {
    std::int32_t year, month, dayOfMonth;
    lib().JulianToInt(day, &year, &month, &dayOfMonth);
    return {year, month, dayOfMonth};
}

std::int32_t numberOf(sys_days date) { return static_cast<std::int32_t>(date.time_since_epoch().count()) + 2440588; }
std::int32_t plain(auto field) { return static_cast<std::int32_t>(unsigned{field}); }

TEST(DayNumber, EveryDayOfTwelveCenturies) {
    for (sys_days at = year(1584) / 1 / 1; at < sys_days(year(2801) / 1 / 1); at += days(1)) {
        year_month_day date(at);
        std::int32_t y = int(date.year()), m = plain(date.month()), d = plain(date.day());
        std::int32_t number = numberOf(at), ofYear = number - numberOf(date.year() / 1 / 1) + 1;
        char slashes[32], digits[32];
        std::snprintf(slashes, sizeof slashes, "%d/%d/%d", m, d, y);
        std::snprintf(digits, sizeof digits, "%04d%02d%02d", y, m, d);
        const std::array got{lib().IntToJulian(y, m, d), lib().DateToJulian(slashes), lib().AnsiToJulian(digits),
                             lib().JDow(number),         lib().JDoy(number),          lib().JWoy(number),
                             lib().LastDay(number),      lib().IsJLeap(number),       lib().IsLeap(y)};
        std::int32_t dow = plain(weekday(at).c_encoding()) + 1, isLeap = date.year().is_leap();
        std::int32_t length = plain((date.year() / date.month() / last).day());
        ASSERT_EQ(got, (std::array{number, number, number, dow, ofYear, ofYear / 7 + 1, length, isLeap, isLeap}))
            << digits;
        ASSERT_EQ(split(number), Triple(y, m, d)) << digits;
        if (number % 61 != 0) continue;
        ASSERT_STREQ(lib().JulianToAnsi(number, Dest(9)), y < 1601 ? "" : digits);
    }
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
    if (day < kFirstDay) return {0, 0, 0};
    std::int32_t t = cut(4LL * day - 6884477);
    std::int32_t x = t % 146097 / 4 * 4 + 3;
    std::int32_t e = x % 1461 / 4 * 5 + 2;
    std::int32_t k = e / 153 + 1;
    return {t / 146097 * 100 + x / 1461 + k / 11, k >= 11 ? k - 10 : k + 2, e % 153 / 5 + 1};
}

std::int32_t definedDayOfWeek(std::int32_t day) { return cut(day + 1LL) % 7 + 1; }

TEST(DayNumber, AnyNumbers) {
    RandomTexts random(611);
    const std::int32_t edges[] = {kLeast, -1, 0, 2, 3, 12, 1584, 1469900, 1470000, 536870912, kMost - 1, kMost};
    auto any = [&] {
        return std::array{edges[random.number(0, 11)], random.number(kLeast, kMost), random.number(-20, 40),
                          random.number(-20, 600000000)}[static_cast<std::size_t>(random.number(0, 3))];
    };
    for (int i = 0; i < 30000; ++i) {
        std::int32_t a = any(), b = any(), day = any(), dow = definedDayOfWeek(day);
        ASSERT_EQ(lib().IntToJulian(a, b, day), definedNumber(a, b, day)) << a << ' ' << b << ' ' << day;
        ASSERT_EQ(split(day), definedTriple(day)) << day;
        ASSERT_EQ(lib().JDow(day), dow) << day;
        ASSERT_EQ(lib().AtDow(day, b, a), cut(std::int64_t{day} - dow + (b & 7) + 7LL * a)) << day;
        lib().LastDay(day), lib().JDoy(day), lib().AddMonth(day, b);
        auto [y, m, d] = split(day);
        ASSERT_TRUE(day < kFirstDay || day > 538592031 || lib().IntToJulian(y, m, d) == day) << day;
    }
}

TEST(DayNumber, WeekdaysAgainstAWalk) {
    RandomTexts random(613);
    for (int i = 0; i < 2000; ++i) {
        const int starts[] = {random.number(-40, 40), random.number(kFirstDay, 2900000),
                              random.number(kMost - 500, kMost)};
        std::int32_t start = starts[i % 3], longest = random.oneIn(50) ? 30000 : 60, count = 0;
        std::int32_t end = start + std::min(random.number(0, longest), kMost - std::max(start, 0));
        for (std::int64_t day = start; day <= end; ++day) {
            std::int32_t dow = definedDayOfWeek(cut(day));
            count += dow >= 2 && dow <= 6;
        }
        ASSERT_EQ(lib().Weekdays(start, end), count) << start << ".." << end;
        ASSERT_EQ(lib().Weekdays(end, start), count) << end << ".." << start;
    }
}

TEST(DayNumber, MonthsAgainstTheCalendar) {
    RandomTexts random(614);
    for (int i = 0; i < 4000; ++i) {
        year_month_day from = sys_days(days(random.number(kFirstDay, 2900000) - 2440588));
        year_month month = from.year() / from.month();
        if (i % 3 == 0) from = month / last;
        int count = random.number(-5000, 5000);
        year_month to = month + months(count);
        day end = (to / last).day();
        day reached = from == month / last ? end : std::min(from.day(), end);
        std::int32_t expected = to.year() < year(1584) ? 0 : numberOf(to / reached);
        ASSERT_EQ(lib().AddMonth(numberOf(from), count), expected) << numberOf(from) << " + " << count;
    }
}

TEST(Picture, AgainstTheRules) {
    RandomTexts random(621);
    for (int i = 0; i < 3000; ++i) {
        std::string picture = "DDD/" + random.text("DDMMYYdmy/", 16), expected;
        int year = random.number(-3000, 3000), month = random.number(0, 13), day = i % 300, last = day % 10;
        const char* suffix = day / 10 % 10 == 1 || last > 3 ? "th" : std::array{"th", "st", "nd", "rd"}[last];
        std::string y = std::to_string(year), m = std::to_string(month), d = std::to_string(day);
        std::string m2 = (month < 10 ? "0" : "") + m, d2 = (day < 10 ? "0" : "") + d, y2 = std::to_string(year % 100);
        Dest shortName(32), fullName(32), dest(picture.size() * 11 + 1);
        lib().NumToMon(month, shortName), lib().NumToMonth(month, fullName);
        const std::string tokens[] = {"MMMM", "MMM", "MM", "mm", "DDDD", "DDD", "DD", "dd", "YYYY", "YY"};
        const std::string texts[] = {fullName.text(), shortName.text(), m2, m, d + suffix, d + suffix, d2, d, y, y2};
        for (std::size_t at = 0; at < picture.size();) {
            std::string_view rest = std::string_view(picture).substr(at);
            auto found = std::ranges::find_if(tokens, [rest](const std::string& token) {
                return rest.starts_with(token) && !(token == "YY" && rest.starts_with("YYY"));
            });
            bool isToken = found != std::end(tokens);
            expected += isToken ? texts[found - tokens] : picture.substr(at, 1);
            at += isToken ? found->size() : 1;
        }
        ASSERT_EQ(lib().IntToDatef(year, month, day, picture.c_str(), dest), expected) << picture;
    }
}

TEST(TimeOfDay, SecondsOfAnyNumber) {
    std::int32_t ofDay = 20 * 3600 + 45 * 60 + 52;  // 2^31 seconds before midnight
    for (std::int64_t at = kLeast, step; at <= kMost; at += step) {
        std::int32_t hour, minute, second;
        lib().JTimeToInt(cut(at), &hour, &minute, &second);
        ASSERT_TRUE(hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60) << at;
        ASSERT_EQ(hour * 3600 + minute * 60 + second, ofDay) << at;
        ASSERT_EQ(lib().IntToJTime(hour, minute, second), ofDay) << at;
        step = at > -100000 && at < 200000 ? 1 : 9973;
        ofDay = cut((ofDay + step) % 86400);
    }
}

}  // namespace
}  // namespace vx::test
