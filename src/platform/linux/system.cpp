// Files and process of Linux, with the results that Windows would give.
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstring>

#include "platform/platform.h"

namespace vx::platform {
namespace {

class LinuxFiles final : public Files {
 public:
    // Handles are numbers of the library's own, and none has been given out: no file can be open under one.
    bool close(std::int32_t) override { return false; }
};

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
};

LinuxFiles files;
LinuxProcess process;

}  // namespace

Files& systemFiles() { return files; }
Process& systemProcess() { return process; }

}  // namespace vx::platform
