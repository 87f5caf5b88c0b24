// Clock of Linux, in the time zone of the process.
#include <time.h>

#include <algorithm>
#include <cerrno>

#include "platform/linux/last_error.h"
#include "platform/platform.h"

namespace vx::platform {
namespace {

constexpr long kNanosecondsPerMillisecond = 1'000'000;

constexpr FileTime kStepsPerSecond = 10'000'000;
constexpr FileTime kStepsPerMillisecond = 10'000;
constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;  // from 1601

std::uint16_t field(int value) { return static_cast<std::uint16_t>(value); }

Moment momentOf(time_t seconds, int milliseconds) {
    tm local{};
    ::tzset();  // localtime_r alone would stay in the zone that it saw first
    ::localtime_r(&seconds, &local);
    return {.year = field(local.tm_year + 1900),
            .month = field(local.tm_mon + 1),
            .dayOfWeek = field(local.tm_wday),
            .day = field(local.tm_mday),
            .hour = field(local.tm_hour),
            .minute = field(local.tm_min),
            .second = field(std::min(local.tm_sec, 59)),
            .milliseconds = field(milliseconds)};
}

time_t secondsOf(const Moment& moment) {
    tm local{};
    local.tm_year = moment.year - 1900;
    local.tm_mon = moment.month - 1;
    local.tm_mday = moment.day;
    local.tm_hour = moment.hour;
    local.tm_min = moment.minute;
    local.tm_sec = moment.second;
    local.tm_isdst = -1;
    return ::mktime(&local);
}

class LinuxClock final : public Clock {
 public:
    Moment localTime() override {
        timespec now{};
        ::clock_gettime(CLOCK_REALTIME, &now);
        return momentOf(now.tv_sec, static_cast<int>(now.tv_nsec / kNanosecondsPerMillisecond));
    }

    std::int32_t setLocalTime(const Moment& moment) override {
        if (!isDate(moment) || !isTimeOfDay(moment)) return 0;
        timespec time{.tv_sec = secondsOf(moment), .tv_nsec = moment.milliseconds * kNanosecondsPerMillisecond};
        return ::clock_settime(CLOCK_REALTIME, &time) == 0;
    }

    bool toLocalTime(FileTime time, Moment& local) override {
        if (time >= FileTime{1} << 63) return failed(false, kInvalidParameter);  // as Windows does
        Moment moment = momentOf(static_cast<time_t>(time / kStepsPerSecond) - kSecondsTo1970,
                                 static_cast<int>(time % kStepsPerSecond / kStepsPerMillisecond));
        if (!isDate(moment)) return failed(false, kInvalidParameter);
        local = moment;
        return true;
    }

    bool toFileTime(const Moment& local, FileTime& time) override {
        if (!isDate(local) || !isTimeOfDay(local)) return failed(false, kInvalidParameter);
        std::int64_t seconds = secondsOf(local) + kSecondsTo1970;
        if (seconds < 0) return failed(false, kInvalidParameter);
        time = static_cast<FileTime>(seconds) * kStepsPerSecond + local.milliseconds * kStepsPerMillisecond;
        return true;
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
