// Clock of Linux, in the time zone of the process.
#include <time.h>

#include <algorithm>
#include <cerrno>

#include "platform/platform.h"

namespace vx::platform {
namespace {

constexpr long kNanosecondsPerMillisecond = 1'000'000;

std::uint16_t field(int value) { return static_cast<std::uint16_t>(value); }

class LinuxClock final : public Clock {
 public:
    Moment localTime() override {
        timespec now{};
        tm local{};
        ::clock_gettime(CLOCK_REALTIME, &now);
        ::tzset();  // localtime_r alone would stay in the zone that it saw first
        ::localtime_r(&now.tv_sec, &local);
        return {.year = field(local.tm_year + 1900),
                .month = field(local.tm_mon + 1),
                .dayOfWeek = field(local.tm_wday),
                .day = field(local.tm_mday),
                .hour = field(local.tm_hour),
                .minute = field(local.tm_min),
                .second = field(std::min(local.tm_sec, 59)),
                .milliseconds = field(static_cast<int>(now.tv_nsec / kNanosecondsPerMillisecond))};
    }

    std::int32_t setLocalTime(const Moment& moment) override {
        if (!isDate(moment) || !isTimeOfDay(moment)) return 0;
        tm local{};
        local.tm_year = moment.year - 1900;
        local.tm_mon = moment.month - 1;
        local.tm_mday = moment.day;
        local.tm_hour = moment.hour;
        local.tm_min = moment.minute;
        local.tm_sec = moment.second;
        local.tm_isdst = -1;
        timespec time{.tv_sec = ::mktime(&local), .tv_nsec = moment.milliseconds * kNanosecondsPerMillisecond};
        return ::clock_settime(CLOCK_REALTIME, &time) == 0;
    }

    void sleep(std::uint32_t milliseconds) override {
        timespec left{.tv_sec = static_cast<time_t>(milliseconds / 1000),
                      .tv_nsec = static_cast<long>(milliseconds % 1000) * kNanosecondsPerMillisecond};
        while (::nanosleep(&left, &left) != 0 && errno == EINTR) {
        }
    }
};

LinuxClock clock;

}  // namespace

Clock& systemClock() { return clock; }

}  // namespace vx::platform
