// A word that threads wait on. Unlocking wakes another only if one may be asleep, so that a lock that nobody waits for
// costs no system call.
#include "platform/lock.h"

namespace vx::platform {

void Lock::lock() {
    std::uint32_t before = kFree;
    if (state_.compare_exchange_strong(before, kHeld, std::memory_order_acquire)) return;
    while (state_.exchange(kAwaited, std::memory_order_acquire) != kFree) {
        state_.wait(kAwaited, std::memory_order_relaxed);
    }
}

void Lock::unlock() {
    if (state_.exchange(kFree, std::memory_order_release) == kAwaited) state_.notify_one();
}

}  // namespace vx::platform
