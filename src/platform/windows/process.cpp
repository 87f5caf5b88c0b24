// Process of Windows: the calls that the interface is named after, those that the oldest systems have.
#include <windows.h>

#include "platform/platform.h"

namespace vx::platform {
namespace {

class WindowsProcess final : public Process {
 public:
    void programPath(char* path, std::size_t room) override {
        DWORD length = GetModuleFileNameA(nullptr, path, static_cast<DWORD>(room));
        path[length < room ? length : room - 1] = '\0';  // Windows XP and before leave a cut path unterminated
    }

    std::uint32_t lastError() override { return GetLastError(); }
    void setLastError(std::uint32_t code) override { SetLastError(code); }
    std::uint32_t setErrorMode(std::uint32_t mode) override { return SetErrorMode(mode); }

    const char* commandLine() override { return GetCommandLineA(); }

    char* copyEnvironment() override { return GetEnvironmentStringsA(); }
    void releaseEnvironment(char* copy) override { FreeEnvironmentStringsA(copy); }
    std::uint32_t variable(const char* name, char* value, std::uint32_t room) override {
        return GetEnvironmentVariableA(name, value, room);
    }

    std::uint32_t systemVersion() override { return GetVersion(); }
    PlatformId platformId() override {
        OSVERSIONINFOA version{};
        version.dwOSVersionInfoSize = sizeof version;
        static_assert(sizeof version == 148);
        return GetVersionExA(&version) ? static_cast<PlatformId>(version.dwPlatformId) : kUnknownId;
    }

    Memory physicalMemory() override {
        MEMORYSTATUS memory{};
        memory.dwLength = sizeof memory;
        GlobalMemoryStatus(&memory);
        return {memory.dwTotalPhys, memory.dwAvailPhys};
    }
};

WindowsProcess windowsProcess;

}  // namespace

Process& systemProcess() { return windowsProcess; }

}  // namespace vx::platform
