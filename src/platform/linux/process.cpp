// Process of Linux, with the results that Windows would give: to callers it is a Windows NT 4.0 with C: as its drive.
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include "platform/linux/last_error.h"
#include "platform/linux/process_data.h"
#include "platform/linux/system_file.h"
#include "platform/platform.h"

namespace vx::platform {
namespace {

// The number behind a key, which counts kilobytes.
std::uint64_t bytesIn(const char* text, const char* key) {
    const char* line = std::strstr(text, key);
    return line ? std::strtoull(line + std::strlen(key), nullptr, 10) * 1024 : 0;
}

class LinuxProcess final : public Process {
 public:
    void programPath(char* path, std::size_t room) override {
        char link[PATH_MAX];
        ssize_t length = ::readlink("/proc/self/exe", link, sizeof link);
        if (room == 0) return;
        if (length <= 0 || room < 3) {
            *path = '\0';
            return;
        }
        std::replace(link, link + length, '/', '\\');
        std::size_t kept = std::min(static_cast<std::size_t>(length), room - 3);
        std::memcpy(path, "C:", 2);
        std::memcpy(path + 2, link, kept);
        path[2 + kept] = '\0';
    }

    std::uint32_t lastError() override { return platform::lastError(); }
    void setLastError(std::uint32_t code) override { platform::setLastError(code); }

    // No system call of Linux shows a box; the mode is kept for who asks for it.
    std::uint32_t setErrorMode(std::uint32_t mode) override { return errorMode_.exchange(mode); }

    const char* commandLine() override {
        // Never destroyed: callers keep the text, and calls come until the process is gone.
        alignas(std::string) static std::byte room[sizeof(std::string)];
        static const std::string* line = new (room) std::string(joinedArguments());
        return line->c_str();
    }

    char* copyEnvironment() override {
        char* copy = copyVariables();
        return copy ? copy : failed(copy, kNotEnoughMemory);
    }
    void releaseEnvironment(char* copy) override { delete[] copy; }

    std::uint32_t variable(const char* name, char* value, std::uint32_t room) override {
        const char* found = findVariable(name);
        if (!found) return failed(0u, kVariableNotFound);
        std::uint32_t length = static_cast<std::uint32_t>(std::strlen(found));
        if (length >= room) return length + 1;
        std::memcpy(value, found, length + 1);
        return length;
    }

    // As Windows NT 4.0.
    std::uint32_t systemVersion() override { return 4; }
    PlatformId platformId() override { return kWindowsNtId; }

    Memory physicalMemory() override {
        std::string text = systemFile("/proc/meminfo");
        return {bytesIn(text.c_str(), "MemTotal:"), bytesIn(text.c_str(), "MemAvailable:")};
    }

 private:
    std::atomic<std::uint32_t> errorMode_ = 0;
};

LinuxProcess linuxProcess;

}  // namespace

Process& systemProcess() { return linuxProcess; }

}  // namespace vx::platform
