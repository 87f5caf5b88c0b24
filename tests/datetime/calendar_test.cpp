// Day numbers against the calendar of the C++ library, and beyond it against the conversions as they are defined;
// pictures against their rules; seconds of days.
#include <gtest/gtest.h>

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
std::int32_t numberOf(unsigned value) { return static_cast<std::int32_t>(value); }

TEST(DayNumber, EveryDayOfTwelveCenturies) {
    for (sys_days at = year(1584) / 1 / 1; at < sys_days(year(2801) / 1 / 1); at += days(1)) {
        year_month_day date(at);
        std::int32_t y = int(date.year()), m = numberOf(unsigned(date.month())), d = numberOf(unsigned(date.day()));
        std::int32_t number = numberOf(at), ofYear = number - numberOf(date.year() / 1 / 1) + 1;
        char slashes[32], digits[32];
        std::snprintf(slashes, sizeof slashes, "%d/%d/%d", m, d, y);
        std::snprintf(digits, sizeof digits, "%04d%02d%02d", y, m, d);
        ASSERT_EQ(lib().IntToJulian(y, m, d), number) << digits;
        ASSERT_EQ(split(number), Triple(y, m, d)) << digits;
        ASSERT_EQ(lib().DateToJulian(slashes), number) << digits;
        ASSERT_EQ(lib().AnsiToJulian(digits), number) << digits;
        ASSERT_EQ(lib().JDow(number), numberOf(weekday(at).c_encoding()) + 1) << digits;
        ASSERT_EQ(lib().JDoy(number), ofYear) << digits;
        ASSERT_EQ(lib().JWoy(number), ofYear / 7 + 1) << digits;
        ASSERT_EQ(lib().LastDay(number), numberOf(unsigned((date.year() / date.month() / last).day()))) << digits;
        ASSERT_EQ(lib().IsJLeap(number), date.year().is_leap()) << digits;
        ASSERT_EQ(lib().IsLeap(y), date.year().is_leap()) << digits;
        if (number % 61 != 0) continue;
        Dest dest(32);
        ASSERT_STREQ(lib().JulianToAnsi(number, dest), y < 1601 ? "" : digits);
        std::snprintf(slashes, sizeof slashes, "%02d/%02d/%04d", m, d, y);
        ASSERT_STREQ(lib().JulianToDate(number, dest), y < 1601 ? "" : slashes);
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
        int kind = random.number(0, 3);
        return kind == 0   ? edges[random.number(0, 11)]
               : kind == 1 ? random.number(kLeast, kMost)
                           : random.number(-20, kind == 2 ? 40 : 600000000);
    };
    for (int i = 0; i < 30000; ++i) {
        std::int32_t a = any(), b = any(), day = any(), dow = definedDayOfWeek(day);
        ASSERT_EQ(lib().IntToJulian(a, b, day), definedNumber(a, b, day)) << a << ' ' << b << ' ' << day;
        ASSERT_EQ(split(day), definedTriple(day)) << day;
        ASSERT_EQ(lib().JDow(day), dow) << day;
        ASSERT_EQ(lib().AtDow(day, b, a), cut(std::int64_t{day} - dow + (b & 7) + 7LL * a)) << day;
        lib().LastDay(day), lib().JDoy(day), lib().AddMonth(day, b);
        if (auto [y, m, d] = split(day); day >= kFirstDay && day <= 538592031) {
            ASSERT_EQ(lib().IntToJulian(y, m, d), day);
        }
    }
}

TEST(DayNumber, WeekdaysAgainstAWalk) {
    RandomTexts random(613);
    for (int i = 0; i < 2000; ++i) {
        const std::int32_t starts[] = {random.number(-40, 40), random.number(kFirstDay, 2900000),
                                       kMost - random.number(0, 500)};
        std::int32_t start = starts[i % 3], longest = random.oneIn(50) ? 30000 : 60, count = 0;
        auto end =
            static_cast<std::int32_t>(std::min<std::int64_t>(std::int64_t{start} + random.number(0, longest), kMost));
        for (std::int64_t day = start; day <= end; ++day) {
            std::int32_t dow = definedDayOfWeek(static_cast<std::int32_t>(day));
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

// The expansion as a list of rules.
std::string expanded(std::int32_t year, std::int32_t month, std::int32_t day, std::string picture) {
    auto twoDigits = [](std::int32_t n) { return (n < 10 ? "0" : "") + std::to_string(n); };
    const char* suffix = day % 10 == 1 ? "st" : day % 10 == 2 ? "nd" : day % 10 == 3 ? "rd" : "th";
    std::string ordinal = std::to_string(day) + (day / 10 % 10 == 1 ? "th" : suffix);
    Dest shortName(32), fullName(32);
    lib().NumToMon(month, shortName), lib().NumToMonth(month, fullName);
    const std::pair<std::string, std::string> rules[] = {{"MMMM", fullName.text()},
                                                         {"MMM", shortName.text()},
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
        Dest dest(picture.size() * 11 + 1);
        ASSERT_EQ(lib().IntToDatef(year, month, day, picture.c_str(), dest), expanded(year, month, day, picture))
            << picture;
    }
}

TEST(TimeOfDay, SecondsOfAnyNumber) {
    std::int32_t ofDay = 20 * 3600 + 45 * 60 + 52;  // 2^31 seconds before midnight
    for (std::int64_t at = kLeast, step; at <= kMost; at += step) {
        std::int32_t hour, minute, second;
        lib().JTimeToInt(static_cast<std::int32_t>(at), &hour, &minute, &second);
        ASSERT_TRUE(hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60) << at;
        ASSERT_EQ(hour * 3600 + minute * 60 + second, ofDay) << at;
        ASSERT_EQ(lib().IntToJTime(hour, minute, second), ofDay) << at;
        step = at > -100000 && at < 200000 ? 1 : 9973;
        for (ofDay += static_cast<std::int32_t>(step); ofDay >= 86400;) ofDay -= 86400;
    }
}

}  // namespace
}  // namespace vx::test
