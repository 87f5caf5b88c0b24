// Files, locale and process of Windows: the calls that the interfaces are named after.
#include <windows.h>

#include "platform/platform.h"

namespace vx::platform {
namespace {

class WindowsFiles final : public Files {
 public:
    bool close(std::int32_t handle) override { return _lclose(handle) == 0; }
};

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

    std::uint32_t formatNumber(const char* number, char* to, std::uint32_t room) override {
        int size = static_cast<int>(room);
        return static_cast<std::uint32_t>(GetNumberFormatA(0, LOCALE_NOUSEROVERRIDE, number, nullptr, to, size));
    }
};

class WindowsProcess final : public Process {
 public:
    void programPath(char* path, std::size_t room) override {
        DWORD length = GetModuleFileNameA(nullptr, path, static_cast<DWORD>(room));
        path[length < room ? length : room - 1] = '\0';  // Windows XP and before leave a cut path unterminated
    }
};

WindowsFiles files;
WindowsLocale locale;
WindowsProcess process;

}  // namespace

Files& systemFiles() { return files; }
Locale& systemLocale() { return locale; }
Process& systemProcess() { return process; }

}  // namespace vx::platform
