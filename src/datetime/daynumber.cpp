// Day numbers: the calendar in 32-bit integers. Results beyond the range wrap.
#include "datetime/daynumber.h"

#include <algorithm>
#include <cstring>

#include "datetime/numbers.h"
#include "datetime/systemdate.h"
#include "entries/daynumber.h"
#include "frame/text.h"

namespace vx {
namespace {

constexpr std::int32_t kFirstYear = 1584;
constexpr std::int32_t kLastNonDate = 2299603;  // 31 December 1583

constexpr std::uint32_t kQuartersOfCentury = 146097;  // the days of 400 years
constexpr std::uint32_t kQuartersOfYear = 1461;
constexpr std::int32_t kDaysOf5Months = 153;         // from March on, or from August
constexpr std::uint32_t kDayBeforeMarch0 = 1721119;  // the years of the conversions begin with March

constexpr std::int32_t kMonthsOfYear = 12;
constexpr std::int32_t kDaysOfWeek = 7;

// Month 0 is that of no date.
constexpr std::uint8_t kMonthLengths[2][kMonthsOfYear + 1] = {
    {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
    {0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
};

std::uint32_t unsignedOf(std::int32_t value) { return static_cast<std::uint32_t>(value); }
std::int32_t wrapped(std::uint32_t value) { return static_cast<std::int32_t>(value); }

// A multiple of 100 and of 16 is one of 400.
bool isLeap(std::int32_t year) { return (year & (year % 100 == 0 ? 15 : 3)) == 0; }

std::int32_t monthLength(std::int32_t year, std::int32_t month) {
    return month >= 0 && month <= kMonthsOfYear ? kMonthLengths[isLeap(year)][month] : 0;
}

// The date of a day, in the way of Neri and Schneider ("Euclidean affine functions and their application to calendar
// algorithms", 2023), without a loop or a table: the row JulianToInt of the benchmark.
//
// Time is counted in quarter days from the end of the first one of 1 March of year 0. A century, of 36524.25 days, then
// has 146097 of them and a year, of 365.25 days, has 1461: whole numbers, so that leap days need no rule of their own.
// And since years begin with March, the leap day is the last one of its year, and months have 30.6 days throughout.
//
// A division by 1461 is a multiplication by 2^32/1461: the product's upper half is the quotient, and its lower half,
// divided by the factor, the remainder. The same holds for 30.6 with 2^16/30.6. The factors are rounded; they are exact
// for all quarters of a century and all days of a year, which are all the values that get there.
constexpr std::uint32_t kYearsPerQuarter = 2939745;  // in units of 2^-32
constexpr std::uint32_t kMonthsPerDay = 2141;        // in units of 2^-16
constexpr std::uint32_t kMarch = (3u << 16) + 1305;  // the same, with what rounds the first days of months up

[[gnu::always_inline]] inline Date dateOfQuarters(std::uint32_t quarters) {
    std::uint32_t century = quarters / kQuartersOfCentury;
    std::uint32_t quarterOfCentury = (quarters % kQuartersOfCentury) | 3;  // the last one of its day
    std::uint64_t years = std::uint64_t{kYearsPerQuarter} * quarterOfCentury;
    std::uint32_t yearOfCentury = static_cast<std::uint32_t>(years >> 32);
    std::uint32_t dayOfYear = static_cast<std::uint32_t>(years) / kYearsPerQuarter / 4;
    std::uint32_t months = kMonthsPerDay * dayOfYear + kMarch;
    std::uint32_t month = months >> 16;  // 3 to 14: January and February end the year that began with March
    std::uint32_t day = (months & 0xFFFF) / kMonthsPerDay + 1;
    bool nextYear = month > kMonthsOfYear;
    return {wrapped(century * 100 + yearOfCentury + nextYear), wrapped(nextYear ? month - kMonthsOfYear : month),
            wrapped(day)};
}

// kept: past day 538592031 the count has wrapped, and some date comes out.
Date dateOfWrappedQuarters(std::int32_t quarters) {
    constexpr std::int32_t of100 = kQuartersOfCentury;
    std::int32_t years = quarters % of100 / 4 * 4 + 3;
    std::int32_t fifths = years % 1461 / 4 * 5 + 2;
    return {quarters / of100 * 100 + years / 1461, fifths / 153 + 3, fifths % 153 / 5 + 1};
}

// Inlined: a date that is returned goes through two registers that have to be packed and unpacked.
[[gnu::always_inline]] inline Date dateOf(std::int32_t day) {
    if (day <= kLastNonDate) return {};
    std::uint32_t quarters = 4 * (unsignedOf(day) - kDayBeforeMarch0) - 1;
    return wrapped(quarters) < 0 ? dateOfWrappedQuarters(wrapped(quarters)) : dateOfQuarters(quarters);
}

// Days behind the latest Sunday. kept: negative before day -1, and for the very last day, whose sum wraps.
std::int32_t daysFromSunday(std::int32_t day) { return wrapped(unsignedOf(day) + 1) % kDaysOfWeek; }

std::int32_t dayOfYear(std::int32_t day) {
    return wrapped(unsignedOf(day) - unsignedOf(dayNumber({dateOf(day).year, 1, 1})) + 1);
}

// Mondays to Fridays among the days 0 to `end` - 2, which stand in their weeks as 1 to `end` - 1.
std::uint32_t weekdaysBefore(std::uint32_t end) {
    std::uint32_t weeks = end / unsignedOf(kDaysOfWeek);
    std::uint32_t rest = end % unsignedOf(kDaysOfWeek);  // a Sunday, then weekdays
    return weeks * 5 + rest - (rest != 0);
}

std::int32_t weekdays(std::int32_t first, std::int32_t last) {
    if (first > last) std::swap(first, last);
    // kept: days before 0 and the very last one have no day of week that is one from Monday to Friday.
    constexpr std::uint32_t kEnd = 0x80000000;
    std::uint32_t start = first < 0 ? 0 : unsignedOf(first) + 1;
    std::uint32_t end = last < 0 ? 0 : std::min(unsignedOf(last) + 2, kEnd);
    return wrapped(weekdaysBefore(end) - weekdaysBefore(start));
}

std::int32_t addMonths(std::int32_t day, std::int32_t months) {
    Date date = dateOf(day);
    if (date.month < 1) return day;
    bool wasLast = date.day == monthLength(date.year, date.month);
    date.year += months / kMonthsOfYear;
    date.month += months % kMonthsOfYear;
    std::int32_t carry = (date.month > kMonthsOfYear) - (date.month < 1);
    date.year += carry;
    date.month -= carry * kMonthsOfYear;
    std::int32_t length = monthLength(date.year, date.month);
    if (wasLast || date.day > length) date.day = length;
    return dayNumber(date);
}

// The date texts' field order, by the letters of month, day and year.
constexpr std::string_view kFieldOrder = "mdy";
constexpr std::string_view kDateDelimiter = "/";

constexpr char kAnsiPicture[] = "yyyyMMdd";
constexpr std::size_t kAnsiSize = 8;

constexpr std::size_t fieldOf(char letter) { return std::min<std::size_t>(kFieldOrder.find(letter), 2); }

bool isValidDate(const char* text) {
    Date date = dateOfText(text);
    if (date.year < 20) date.year += 2000;  // kept: 20 to 99 stay years of the first century
    return date.year >= 1 && date.year <= 2100 && date.month >= 1 && date.month <= kMonthsOfYear && date.day >= 1 &&
           date.day <= monthLength(date.year, date.month);
}

// A date in eight digits, by position.
Date dateOfAnsi(const char* text) {
    if (!text) return {};
    text = skipWhite(text);
    std::string_view digits(text, strnlen(text, kAnsiSize));
    auto part = [digits](std::size_t start, std::size_t size) {
        std::string_view field = digits.substr(std::min(start, digits.size()), size);
        return takeNumber(field);
    };
    return {part(0, 4), part(4, 2), part(6, 2)};
}

}  // namespace

std::int32_t dayNumber(const Date& date) {
    if (date.year < kFirstYear) return 0;
    bool beforeMarch = date.month <= 2;
    std::uint32_t year = unsignedOf(date.year) - beforeMarch;
    std::int32_t month = beforeMarch ? date.month + 9 : date.month - 3;
    return wrapped(unsignedOf(wrapped(kQuartersOfCentury * (year / 100)) / 4) + kQuartersOfYear * (year % 100) / 4 +
                   unsignedOf(wrapped(kDaysOf5Months * unsignedOf(month) + 2) / 5) + unsignedOf(date.day) +
                   kDayBeforeMarch0);
}

Date dateOfDay(std::int32_t dayNumber) { return dateOf(dayNumber); }

std::int32_t dayOfWeek(std::int32_t dayNumber) { return daysFromSunday(dayNumber) + 1; }

Date dateOfText(const char* text) {
    auto fields = threeNumbers(view(text), kDateDelimiter);
    return {fields[fieldOf('y')], fields[fieldOf('m')], fields[fieldOf('d')]};
}

}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_IntToJulian(int32_t year, int32_t month, int32_t day) noexcept {
    return dayNumber({year, month, day});
}

void VX_CALL vx_JulianToInt(int32_t jd, int32_t* year, int32_t* month, int32_t* day) noexcept {
    storeDate(dateOf(jd), year, month, day);
}

int32_t VX_CALL vx_IsLeap(int32_t year) noexcept { return isLeap(year); }
int32_t VX_CALL vx_IsJLeap(int32_t jd) noexcept { return isLeap(dateOf(jd).year); }

int32_t VX_CALL vx_LastDay(int32_t jd) noexcept {
    Date date = dateOf(jd);
    return monthLength(date.year, date.month);
}

int32_t VX_CALL vx_JDow(int32_t jd) noexcept { return dayOfWeek(jd); }
int32_t VX_CALL vx_JDoy(int32_t jd) noexcept { return dayOfYear(jd); }
// kept: day 7 begins week 2
int32_t VX_CALL vx_JWoy(int32_t jd) noexcept { return dayOfYear(jd) / kDaysOfWeek + 1; }

int32_t VX_CALL vx_AtDow(int32_t jd, int32_t dow, int32_t weeks) noexcept {
    // kept: only the low three bits of the day count, so 0 is the Saturday before the week.
    return wrapped(unsignedOf(jd) - unsignedOf(daysFromSunday(jd)) + (unsignedOf(dow) & 7) - 1 +
                   unsignedOf(kDaysOfWeek) * unsignedOf(weeks));
}

int32_t VX_CALL vx_Weekdays(int32_t from, int32_t to) noexcept { return weekdays(from, to); }
int32_t VX_CALL vx_AddMonth(int32_t jd, int32_t months) noexcept { return addMonths(jd, months); }

void VX_CALL vx_DateToInt(const char* text, int32_t* year, int32_t* month, int32_t* day) noexcept {
    storeDate(dateOfText(text), year, month, day);
}
int32_t VX_CALL vx_DateToJulian(const char* text) noexcept { return dayNumber(dateOfText(text)); }
int32_t VX_CALL vx_CheckDate(const char* text) noexcept { return isValidDate(text); }
int32_t VX_CALL vx_AnsiToJulian(const char* text) noexcept { return dayNumber(dateOfAnsi(text)); }

char* VX_CALL vx_JulianToAnsi(int32_t jd, char* dest) noexcept {
    if (dest) putSystemDate(dateOfDay(jd), kAnsiPicture, dest, kAnsiSize + 1);
    return dest;
}
