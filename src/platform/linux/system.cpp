// Process of Linux, with the results that Windows would give.
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <cstring>

#include "platform/linux/last_error.h"
#include "platform/platform.h"

namespace vx::platform {
namespace {

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

 private:
    std::atomic<std::uint32_t> errorMode_ = 0;
};

LinuxProcess process;

}  // namespace

Process& systemProcess() { return process; }

}  // namespace vx::platform
