// The thread's last error, with Win32's codes. The system's own, errno, is translated where a call has failed and only
// there: what succeeds leaves the last error as it is, as on Windows.
#pragma once

#include <cstdint>

#include "platform/errors.h"

namespace vx::platform {

std::uint32_t lastError();
void setLastError(std::uint32_t code);

// The code that Windows gives for what went wrong in the system call that has just failed.
std::uint32_t systemErrorCode();

// Keep the reason of a failure; they return what the failed operation returns.
template <typename Result>
Result failed(Result result, std::uint32_t code) {
    setLastError(code);
    return result;
}
template <typename Result>
Result failedCall(Result result) {
    return failed(result, systemErrorCode());
}

}  // namespace vx::platform
