// Locale of Windows: the calls that the interface is named after.
#include "platform/platform.h"
#include "platform/windows/system_time.h"

namespace vx::platform {
namespace {

class WindowsLocale final : public Locale {
 public:
    std::uint32_t upperCase(char* characters, std::uint32_t count) override {
        return CharUpperBuffA(characters, count);
    }
    std::uint32_t lowerCase(char* characters, std::uint32_t count) override {
        return CharLowerBuffA(characters, count);
    }

    std::uint32_t mapToUpper(const char* from, char* to, std::uint32_t count) override {
        int size = static_cast<int>(count);
        return static_cast<std::uint32_t>(LCMapStringA(0, LCMAP_UPPERCASE, from, size, to, size));
    }

    bool isLeadByte(char c) override { return IsDBCSLeadByte(static_cast<BYTE>(c)); }

    std::uint32_t formatNumber(const char* number, char* to, std::uint32_t room) override {
        int size = static_cast<int>(room);
        return static_cast<std::uint32_t>(GetNumberFormatA(0, LOCALE_NOUSEROVERRIDE, number, nullptr, to, size));
    }

    // Some systems take 30 February for 1 March instead of refusing it.
    std::uint32_t formatDate(const Moment& date, const char* picture, char* to, std::uint32_t room) override {
        if (!isDate(date)) return 0;
        SYSTEMTIME time = systemTime(date);
        int size = static_cast<int>(room);
        return static_cast<std::uint32_t>(GetDateFormatA(LOCALE_SYSTEM_DEFAULT, 0, &time, picture, to, size));
    }

    std::uint32_t formatTime(const Moment& moment, char* to, std::uint32_t room) override {
        SYSTEMTIME time = systemTime(moment);
        int size = static_cast<int>(room);
        constexpr DWORD kPlain = TIME_NOTIMEMARKER | TIME_FORCE24HOURFORMAT;
        return static_cast<std::uint32_t>(GetTimeFormatA(0, kPlain, &time, nullptr, to, size));
    }
};

WindowsLocale windowsLocale;

}  // namespace

Locale& systemLocale() { return windowsLocale; }

}  // namespace vx::platform
