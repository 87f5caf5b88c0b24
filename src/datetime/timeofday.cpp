// Times of day as texts, triples and seconds since midnight; the clock's time; sleeping.
#include "datetime/timeofday.h"

#include <algorithm>

#include "datetime/numbers.h"
#include "entries/timeofday.h"
#include "frame/text.h"
#include "platform/platform.h"

namespace vx {
namespace {

constexpr std::string_view kTimeDelimiter = ":";
constexpr std::int32_t kSecondsOfHour = 3600;
constexpr std::int32_t kSecondsOfDay = 86400;
constexpr std::size_t kPlainTimeSize = 8;

TimeOfDay timeOf(const platform::Moment& moment) { return {moment.hour, moment.minute, moment.second}; }
TimeOfDay now() { return timeOf(platform::clock().localTime()); }

// kept: the platform's record has 16 bits a field; what is above them is lost.
platform::Moment nowWith(const TimeOfDay& time) {
    platform::Moment moment = platform::clock().localTime();
    moment.hour = static_cast<std::uint16_t>(time.hour);
    moment.minute = static_cast<std::uint16_t>(time.minute);
    moment.second = static_cast<std::uint16_t>(time.second);
    return moment;
}

std::int32_t setNow(const TimeOfDay& time) { return platform::clock().setLocalTime(nowWith(time)); }

TimeOfDay timeOfSeconds(std::int32_t seconds) {
    seconds %= kSecondsOfDay;
    if (seconds < 0) seconds += kSecondsOfDay;
    return {seconds / kSecondsOfHour, seconds / 60 % 60, seconds % 60};
}

bool isValidTime(const TimeOfDay& time) {
    auto valid = [](std::int32_t part) { return part >= 0 && part <= 59; };
    return valid(time.hour) && valid(time.minute) && valid(time.second);  // kept: hours up to 59
}

// Nothing adjusts a time that is marked AM: its 12 stays noon.
TimeOfDay timeOfMarkedText(std::string_view text, TimeOfDay time) {
    bool afternoon = text.find("PM") != text.npos || text.find("pm") != text.npos;
    if (afternoon && time.hour < 12) time.hour += 12;
    return time;
}

// Without a terminator; returns its end.
char* putDigits(const TimeOfDay& time, char* to) {
    to = putTwoDigits(to, time.hour);
    *to++ = ':';
    to = putTwoDigits(to, time.minute);
    *to++ = ':';
    return putTwoDigits(to, time.second);
}

char* putPlainTime(const TimeOfDay& time, char* dest) {
    char text[3 * (1 + kLongestNumber) + 2];
    std::size_t size = static_cast<std::size_t>(putDigits(time, text) - text);
    return store(dest, {text, std::min(size, kPlainTimeSize)});
}

void sleepFor(std::int32_t count, std::uint32_t millisecondsEach) {
    sleepTimes(static_cast<std::uint32_t>(std::max(count, 0)), millisecondsEach);
}

}  // namespace

void sleepTimes(std::uint32_t count, std::uint32_t millisecondsEach) {
    constexpr std::uint64_t kLongest = 0xFFFFFFFE;  // one more would be for ever
    platform::clock().sleep(static_cast<std::uint32_t>(std::min(std::uint64_t{count} * millisecondsEach, kLongest)));
}

TimeOfDay timeOfText(const char* text) {
    auto fields = threeNumbers(view(text), kTimeDelimiter);
    return {fields[0], fields[1], fields[2]};
}

std::int32_t secondsOfDay(const TimeOfDay& time) {
    auto bits = [](std::int32_t value) { return static_cast<std::uint32_t>(value); };
    return static_cast<std::int32_t>((bits(time.hour) * 60 + bits(time.minute)) * 60 + bits(time.second));
}

char* putTime(const TimeOfDay& time, char* dest) {
    std::uint32_t size = platform::locale().formatTime(nowWith(time), dest, kTimeTextRoom);
    return size > 0 ? dest : putPlainTime(time, dest);
}

}  // namespace vx

using namespace vx;

void VX_CALL vx_TimeToInt(const char* text, int32_t* hour, int32_t* minute, int32_t* second) noexcept {
    if (text) storeTime(timeOfText(text), hour, minute, second);
}
int32_t VX_CALL vx_CheckTime(const char* text) noexcept { return text && isValidTime(timeOfText(text)); }

int32_t VX_CALL vx_IntToJTime(int32_t hour, int32_t minute, int32_t second) noexcept {
    return secondsOfDay({hour, minute, second});
}
void VX_CALL vx_JTimeToInt(int32_t seconds, int32_t* hour, int32_t* minute, int32_t* second) noexcept {
    storeTime(timeOfSeconds(seconds), hour, minute, second);
}

int32_t VX_CALL vx_GetJTime() noexcept { return secondsOfDay(now()); }
void VX_CALL vx_DosGetTime(int32_t* hour, int32_t* minute, int32_t* second) noexcept {
    storeTime(now(), hour, minute, second);
}

int32_t VX_CALL vx_DosSetTime(int32_t hour, int32_t minute, int32_t second) noexcept {
    return setNow({hour, minute, second});
}
// A missing text is no midnight.
int32_t VX_CALL vx_SetTime(const char* text) noexcept {
    return text ? setNow(timeOfMarkedText(text, timeOfText(text))) : 0;
}
int32_t VX_CALL vx_SetJTime(int32_t seconds) noexcept { return setNow(timeOfSeconds(seconds)); }

char* VX_CALL vx_IntToTime(int32_t hour, int32_t minute, int32_t second, char* dest) noexcept {
    return dest ? putTime({hour, minute, second}, dest) : nullptr;
}
char* VX_CALL vx_GetTime(char* dest) noexcept { return dest ? putTime(now(), dest) : nullptr; }

char* VX_CALL vx_Timeh(char* dest) noexcept {
    if (!dest) return nullptr;
    platform::Moment moment = platform::clock().localTime();
    char* end = putDigits(timeOf(moment), dest);
    *end++ = '.';
    *putTwoDigits(end, moment.milliseconds / 10) = '\0';
    return dest;
}

void VX_CALL vx_Delay(int32_t count) noexcept { sleepFor(count, 10); }
void VX_CALL vx_Nap(int32_t count) noexcept { sleepFor(count, 56); }
