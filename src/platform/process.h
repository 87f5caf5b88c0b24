// The process that has loaded the library, and the calling thread's last error.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vx::platform {

inline constexpr std::uint32_t kFailSilently = 1;

class Process {
 public:
    // The host program's full path in drive form, cut and terminated within `room`; an empty text if it is unknown.
    virtual void programPath(char* path, std::size_t room) = 0;

    // The calling thread's last error (errors.h).
    virtual std::uint32_t lastError() = 0;
    virtual void setLastError(std::uint32_t code) = 0;

    // Whether the system shows boxes on critical errors: kFailSilently or 0, for the whole process. The mode before.
    virtual std::uint32_t setErrorMode(std::uint32_t mode) = 0;

 protected:
    ~Process() = default;
};

// Keeps the system from showing boxes on critical errors for as long as this lives.
class SilentErrors {
 public:
    explicit SilentErrors(Process& process) : process_(process), before_(process.setErrorMode(kFailSilently)) {}
    ~SilentErrors() { process_.setErrorMode(before_); }
    SilentErrors(const SilentErrors&) = delete;
    SilentErrors& operator=(const SilentErrors&) = delete;

 private:
    Process& process_;
    std::uint32_t before_;
};

}  // namespace vx::platform
