// Moments: a local date and time of day, field by field, and a file's time stamp.
#pragma once

#include <chrono>
#include <cstdint>

namespace vx::platform {

// Steps of 100 ns since the start of 1601, universal time.
using FileTime = std::uint64_t;
inline constexpr std::int64_t kStepsPerSecond = 10'000'000;
inline constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;

// Stamps that every file system holds: from where FAT begins to where 31 bits of seconds end, less a day for the zones.
inline bool isHeldEverywhere(FileTime time) {
    constexpr std::int64_t kFirst = 315'619'200, kLast = 2'147'385'600;  // seconds of 1970
    std::int64_t seconds = static_cast<std::int64_t>(time / kStepsPerSecond) - kSecondsTo1970;
    return seconds >= kFirst && seconds < kLast;
}

// Whether a file has the stamp that it was given; a file system may round it, FAT to two seconds.
inline bool isHeldAs(FileTime given, FileTime held) {
    return (given > held ? given - held : held - given) <= 2 * FileTime{kStepsPerSecond};
}

// In the order of Win32's SYSTEMTIME.
struct Moment {
    std::uint16_t year = 0;
    std::uint16_t month = 0;
    std::uint16_t dayOfWeek = 0;  // Sunday is 0
    std::uint16_t day = 0;
    std::uint16_t hour = 0;
    std::uint16_t minute = 0;
    std::uint16_t second = 0;
    std::uint16_t milliseconds = 0;

    bool operator==(const Moment&) const = default;
};

inline std::chrono::year_month_day dateOf(const Moment& moment) {
    return {std::chrono::year{moment.year}, std::chrono::month{moment.month}, std::chrono::day{moment.day}};
}

// The dates that Windows accepts. The day of the week does not count.
inline bool isDate(const Moment& moment) {
    return moment.year >= 1601 && moment.year <= 30827 && moment.month <= 12 && moment.day <= 31 && dateOf(moment).ok();
}

inline bool isTimeOfDay(const Moment& moment) {
    return moment.hour < 24 && moment.minute < 60 && moment.second < 60 && moment.milliseconds < 1000;
}

}  // namespace vx::platform
