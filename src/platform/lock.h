// Keeps threads apart. Nothing has to be done for a lock when the process ends: calls that come later find it usable.
#pragma once

#include <atomic>
#include <cstdint>

namespace vx::platform {

// For std::lock_guard; a thread holds one lock at a time. On Windows all locks are one.
class Lock {
 public:
    void lock();
    void unlock();

 private:
    enum State : std::uint32_t { kFree, kHeld, kAwaited };

    [[maybe_unused]] std::atomic<std::uint32_t> state_{kFree};
};

}  // namespace vx::platform
