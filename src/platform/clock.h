// The machine's clock, in local time.
#pragma once

#include <cstdint>

#include "platform/moment.h"

namespace vx::platform {

class Clock {
 public:
    virtual Moment localTime() = 0;

    // Sets the clock; the day of the week does not count. The system's result: 0 if the moment does not exist, or the
    // process has no right to set the clock.
    virtual std::int32_t setLocalTime(const Moment& moment) = 0;

    // Between a time stamp and local time; false, and nothing written, for what the system cannot convert. Windows
    // takes today's offset for all dates, Linux the one of the date: there, a local time that comes twice is its first,
    // and one that a change of clocks skips lies as far behind the gap as in it.
    virtual bool toLocalTime(FileTime time, Moment& local) = 0;
    virtual bool toFileTime(const Moment& local, FileTime& time) = 0;

    virtual void sleep(std::uint32_t milliseconds) = 0;

 protected:
    ~Clock() = default;
};

}  // namespace vx::platform
