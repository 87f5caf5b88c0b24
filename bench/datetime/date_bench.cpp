// Dates against the best published conversions and the C library.
#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <random>

#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;

struct Civil {
    std::int32_t year, month, day;
};

constexpr std::int32_t kEpoch = 2440588;  // day number of 1 January 1970

// Neri and Schneider, "Euclidean affine functions and their application to calendar algorithms" (2023): the fastest
// conversions known. They are called, not inlined, as a library's would be.
__attribute__((noinline)) std::int32_t daysOfCivil(std::int32_t year, std::int32_t month, std::int32_t day) {
    std::uint32_t bump = month <= 2;
    std::uint32_t y = static_cast<std::uint32_t>(year) + 400 * 3670 - bump;
    std::uint32_t m = static_cast<std::uint32_t>(month) + (bump ? 12 : 0);
    std::uint32_t c = y / 100;
    std::uint32_t n = 1461 * y / 4 - c + c / 4 + (979 * m - 2919) / 32 + static_cast<std::uint32_t>(day) - 1;
    return static_cast<std::int32_t>(n - 536895458) + kEpoch;
}

__attribute__((noinline)) void civilOfDays(std::int32_t jd, std::int32_t* year, std::int32_t* month,
                                           std::int32_t* day) {
    std::uint32_t n1 = 4 * (static_cast<std::uint32_t>(jd - kEpoch) + 536895458) + 3;
    std::uint32_t c = n1 / 146097;
    std::uint32_t n2 = (n1 % 146097) | 3;
    std::uint64_t p = std::uint64_t{2939745} * n2;
    std::uint32_t z = static_cast<std::uint32_t>(p >> 32);
    std::uint32_t dayOfYear = static_cast<std::uint32_t>(p) / 2939745 / 4;
    std::uint32_t n3 = 2141 * dayOfYear + 197913;
    bool bump = dayOfYear >= 306;
    *year = static_cast<std::int32_t>(100 * c + z - 400 * 3670 + bump);
    *month = static_cast<std::int32_t>(bump ? (n3 >> 16) - 12 : n3 >> 16);
    *day = static_cast<std::int32_t>((n3 & 0xFFFF) / 2141 + 1);
}

std::int32_t lengthOf(std::int32_t year, std::int32_t month) {
    bool leap = (year & (year % 25 != 0 ? 3 : 15)) == 0;
    return month == 2 ? 28 + leap : 30 | (month ^ (month >> 3));
}

__attribute__((noinline)) std::int32_t monthsOn(std::int32_t jd, std::int32_t months) {
    Civil date;
    civilOfDays(jd, &date.year, &date.month, &date.day);
    bool last = date.day == lengthOf(date.year, date.month);
    std::int32_t month = date.year * 12 + date.month - 1 + months;
    date.year = month / 12;
    date.month = month % 12 + 1;
    std::int32_t length = lengthOf(date.year, date.month);
    return daysOfCivil(date.year, date.month, last || date.day > length ? length : date.day);
}

__attribute__((noinline)) std::int32_t weekdaysByFormula(std::int32_t from, std::int32_t to) {
    if (from > to) std::swap(from, to);
    std::int32_t days = to - from + 1;
    std::int32_t count = days / 7 * 5;
    for (std::int32_t rest = days % 7, dow = (from + 1) % 7; rest > 0; --rest, dow = dow == 6 ? 0 : dow + 1) {
        count += dow != 0 && dow != 6;
    }
    return count;
}

// Dates of three centuries in no order, one after the other, so that no branch of either side can be foretold.
struct Sample {
    Civil civil;
    std::int32_t jd;
    char text[16];
    std::tm time;
};

class Samples {
 public:
    Samples() {
        std::mt19937 random(6);
        for (Sample& sample : samples_) {
            sample.jd = static_cast<std::int32_t>(2378497 + random() % 110000);
            civilOfDays(sample.jd, &sample.civil.year, &sample.civil.month, &sample.civil.day);
            const Civil& c = sample.civil;
            std::snprintf(sample.text, sizeof sample.text, "%02d/%02d/%04d", c.month & 15, c.day & 31, c.year & 4095);
            sample.time = {};
            sample.time.tm_year = c.year - 1900;
            sample.time.tm_mon = c.month - 1;
            sample.time.tm_mday = c.day;
        }
    }
    const Sample& next() { return samples_[++index_ % samples_.size()]; }

 private:
    std::array<Sample, 256> samples_;
    std::size_t index_ = 0;
};

Samples samples;
char to[64];

const Cases cases([] {
    pair(
        "IntToJulian", 0,
        [call = lib().IntToJulian] {
            const Civil& c = samples.next().civil;
            return call(c.year, c.month, c.day);
        },
        [] {
            const Civil& c = samples.next().civil;
            return daysOfCivil(c.year, c.month, c.day);
        });
    pair(
        "JulianToInt", 0,
        [call = lib().JulianToInt] {
            Civil c;
            call(samples.next().jd, &c.year, &c.month, &c.day);
            return c.year + c.month + c.day;
        },
        [] {
            Civil c;
            civilOfDays(samples.next().jd, &c.year, &c.month, &c.day);
            return c.year + c.month + c.day;
        });
    static volatile std::int32_t months = 7;
    pair(
        "AddMonth", 0, [call = lib().AddMonth] { return call(samples.next().jd, months); },
        [] { return monthsOn(samples.next().jd, months); });
    pair(
        "Weekdays", 0, [call = lib().Weekdays] { return call(samples.next().jd, samples.next().jd); },
        [] { return weekdaysByFormula(samples.next().jd, samples.next().jd); });
    struct Picture {
        const char* name;
        const char* ours;
        const char* peers;
    };
    for (auto [name, ours, peers] : {Picture{"IntToDatef digits", "MM/DD/YYYY", "%m/%d/%Y"},
                                     Picture{"IntToDatef words", "MMMM dd, YYYY", "%B %-d, %Y"}}) {
        pair(
            name, 0,
            [=, call = lib().IntToDatef] {
                const Civil& c = samples.next().civil;
                return call(c.year, c.month, c.day, ours, to);
            },
            [=] {
                std::strftime(to, sizeof to, peers, &samples.next().time);
                return to;
            });
    }
    pair(
        "DateToJulian", 0, [call = lib().DateToJulian] { return call(samples.next().text); },
        [] {
            std::tm time{};
            strptime(samples.next().text, "%m/%d/%Y", &time);
            return daysOfCivil(time.tm_year + 1900, time.tm_mon + 1, time.tm_mday);
        });
    pair(
        "IntToDate", 0,
        [call = lib().IntToDate] {
            const Civil& c = samples.next().civil;
            return call(c.year, c.month, c.day, to);
        },
        [] {
            std::strftime(to, sizeof to, "%m/%d/%Y", &samples.next().time);
            return to;
        });
    pair(
        "DosGetDate", 0,
        [call = lib().DosGetDate] {
            Civil c;
            call(&c.year, &c.month, &c.day);
            return c.day;
        },
        [] {
            std::time_t now = std::time(nullptr);
            return std::localtime(&now)->tm_mday;  // reads the zone afresh, as ours does
        });
});

}  // namespace
}  // namespace vx::bench
