// The process that has loaded the library, and the calling thread's last error.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vx::platform {

inline constexpr std::uint32_t kFailSilently = 1;

// For the longest value that a variable has on Windows.
inline constexpr std::size_t kVariableRoom = 32768;

enum PlatformId : std::uint32_t { kWin32sId = 0, kWindows95Id = 1, kWindowsNtId = 2, kUnknownId = 0xFFFFFFFF };

// Physical memory in bytes.
struct Memory {
    std::uint64_t total;
    std::uint64_t available;
};

class Process {
 public:
    // The host program's full path in drive form, cut and terminated within `room`; an empty text if it is unknown.
    virtual void programPath(char* path, std::size_t room) = 0;

    // The calling thread's last error (errors.h).
    virtual std::uint32_t lastError() = 0;
    virtual void setLastError(std::uint32_t code) = 0;

    // Whether the system shows boxes on critical errors: kFailSilently or 0, for the whole process. The mode before.
    virtual std::uint32_t setErrorMode(std::uint32_t mode) = 0;

    // What the process was started with, the program first; it stays as long as the process does. On Linux it is put
    // together from the arguments: an empty one, or one with a blank or a tab, stands in double quotes.
    virtual const char* commandLine() = 0;

    // A copy of the environment: NAME=value texts one behind the other, an empty one behind the last. Null if there is
    // no memory. It is given back to releaseEnvironment (Environment, below).
    virtual char* copyEnvironment() = 0;
    virtual void releaseEnvironment(char* copy) = 0;

    // The value's length; `room` or more is what it needs, and nothing was written. 0 if the variable is empty or not
    // set (kVariableNotFound). A name counts in any letter case when no variable is named exactly so.
    virtual std::uint32_t variable(const char* name, char* value, std::uint32_t room) = 0;

    // The major version in the lowest byte, the minor one in the next.
    virtual std::uint32_t systemVersion() = 0;
    virtual PlatformId platformId() = 0;

    virtual Memory physicalMemory() = 0;

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

// A copy of the environment for as long as this lives.
class Environment {
 public:
    explicit Environment(Process& process) : process_(process), copy_(process.copyEnvironment()) {}
    ~Environment() {
        if (copy_) process_.releaseEnvironment(copy_);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

    // Its first entry; an empty one if there is none.
    const char* first() const { return copy_ ? copy_ : ""; }

 private:
    Process& process_;
    char* copy_;
};

}  // namespace vx::platform
