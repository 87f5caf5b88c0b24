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

    bool toLocalTime(FileTime time, Moment& local) override {
        FILETIME universal = fileTime(time);
        FILETIME shifted;
        SYSTEMTIME fields;
        if (!FileTimeToLocalFileTime(&universal, &shifted) || !FileTimeToSystemTime(&shifted, &fields)) return false;
        local = std::bit_cast<Moment>(fields);
        return true;
    }

    bool toFileTime(const Moment& local, FileTime& time) override {
        SYSTEMTIME fields = systemTime(local);
        FILETIME shifted;
        FILETIME universal;
        if (!isDate(local)) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return false;
        }
        if (!SystemTimeToFileTime(&fields, &shifted) || !LocalFileTimeToFileTime(&shifted, &universal)) return false;
        time = fileTime(universal);
        return true;
    }

    void sleep(std::uint32_t milliseconds) override { Sleep(milliseconds); }
};

WindowsClock windowsClock;

}  // namespace

Clock& systemClock() { return windowsClock; }

}  // namespace vx::platform
