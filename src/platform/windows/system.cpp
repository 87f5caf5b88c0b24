// Files and process of Windows: the calls that the interfaces are named after.
#include <windows.h>

#include "platform/platform.h"

namespace vx::platform {
namespace {

class WindowsFiles final : public Files {
 public:
    bool close(std::int32_t handle) override { return _lclose(handle) == 0; }
};

class WindowsProcess final : public Process {
 public:
    void programPath(char* path, std::size_t room) override {
        DWORD length = GetModuleFileNameA(nullptr, path, static_cast<DWORD>(room));
        path[length < room ? length : room - 1] = '\0';  // Windows XP and before leave a cut path unterminated
    }
};

WindowsFiles files;
WindowsProcess process;

}  // namespace

Files& systemFiles() { return files; }
Process& systemProcess() { return process; }

}  // namespace vx::platform
