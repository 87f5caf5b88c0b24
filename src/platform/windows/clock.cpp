// Clock of Windows.
#include "platform/platform.h"
#include "platform/windows/system_time.h"

namespace vx::platform {
namespace {

class WindowsClock final : public Clock {
 public:
    Moment localTime() override {
        SYSTEMTIME time;
        GetLocalTime(&time);
        return std::bit_cast<Moment>(time);
    }

    // Some systems take 30 February for 1 March instead of refusing it.
    std::int32_t setLocalTime(const Moment& moment) override {
        SYSTEMTIME time = systemTime(moment);
        return isDate(moment) && isTimeOfDay(moment) ? SetLocalTime(&time) : 0;
    }

    void sleep(std::uint32_t milliseconds) override { Sleep(milliseconds); }
};

WindowsClock clock;

}  // namespace

Clock& systemClock() { return clock; }

}  // namespace vx::platform
