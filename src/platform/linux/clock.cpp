// Clock of Linux, in the time zone of the process.
#include <time.h>

#include <algorithm>
#include <cerrno>

#include "platform/linux/last_error.h"
#include "platform/platform.h"

namespace vx::platform {
namespace {

constexpr long kNanosecondsPerMillisecond = 1'000'000;
constexpr FileTime kStepsPerMillisecond = 10'000;

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

long offsetAt(time_t seconds) {
    tm local{};
    ::localtime_r(&seconds, &local);
    return local.tm_gmtoff;
}

// Not by mktime: what that makes of a time that comes twice, or not at all, depends on what it was asked before.
time_t secondsOf(const Moment& moment) {
    constexpr time_t kDay = 86'400;
    std::chrono::sys_seconds midnight = std::chrono::sys_days(dateOf(moment));
    time_t asUniversal = midnight.time_since_epoch().count() + (moment.hour * 60 + moment.minute) * 60 + moment.second;
    ::tzset();
    long before = offsetAt(asUniversal - kDay);
    long after = offsetAt(asUniversal + kDay);
    bool isAfter = offsetAt(asUniversal - before) != before && offsetAt(asUniversal - after) == after;
    return asUniversal - (isAfter ? after : before);
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
        Moment moment = momentOf(static_cast<time_t>(time / FileTime{kStepsPerSecond}) - kSecondsTo1970,
                                 static_cast<int>(time % FileTime{kStepsPerSecond} / kStepsPerMillisecond));
        if (!isDate(moment)) return failed(false, kInvalidParameter);
        local = moment;
        return true;
    }

    bool toFileTime(const Moment& local, FileTime& time) override {
        if (!isDate(local) || !isTimeOfDay(local)) return failed(false, kInvalidParameter);
        std::int64_t seconds = secondsOf(local) + kSecondsTo1970;
        if (seconds < 0) return failed(false, kInvalidParameter);
        time = static_cast<FileTime>(seconds * kStepsPerSecond) + local.milliseconds * kStepsPerMillisecond;
        return true;
    }

    void sleep(std::uint32_t milliseconds) override {
        timespec left{.tv_sec = static_cast<time_t>(milliseconds / 1000),
                      .tv_nsec = static_cast<long>(milliseconds % 1000) * kNanosecondsPerMillisecond};
        while (::nanosleep(&left, &left) != 0 && errno == EINTR) {
        }
    }
};

LinuxClock linuxClock;

}  // namespace

Clock& systemClock() { return linuxClock; }

}  // namespace vx::platform
