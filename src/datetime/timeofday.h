// Times of day: what other families use of them.
#pragma once

#include <cstdint>

namespace vx {

struct TimeOfDay {
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;
};

// Hours, minutes and seconds of a text like 23:59:59, not checked; NULL is empty.
TimeOfDay timeOfText(const char* text);

std::int32_t secondsOfDay(const TimeOfDay& time);

// Puts a time at `dest` as the user's locale writes it, or as hh:mm:ss if the system knows no such time; returns
// `dest`.
inline constexpr std::uint32_t kTimeTextRoom = 64;
char* putTime(const TimeOfDay& time, char* dest);

// Stores the parts of a time that have a place.
inline void storeTime(const TimeOfDay& time, std::int32_t* hour, std::int32_t* minute, std::int32_t* second) {
    if (hour) *hour = time.hour;
    if (minute) *minute = time.minute;
    if (second) *second = time.second;
}

// Sleeps `count` times so many milliseconds, at most as long as the platform can without sleeping for ever.
void sleepTimes(std::uint32_t count, std::uint32_t millisecondsEach);

}  // namespace vx
