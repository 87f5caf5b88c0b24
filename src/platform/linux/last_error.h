// The thread's last error, with Win32's codes.
#pragma once

#include <cstdint>

#include "platform/errors.h"

namespace vx::platform {

std::uint32_t lastError();
void setLastError(std::uint32_t code);

// The code that Windows gives for what went wrong here.
std::uint32_t codeOf(int systemError);

// Keep the reason of a failure; they return what the failed operation returns.
template <typename Result>
Result failed(Result result, std::uint32_t code) {
    setLastError(code);
    return result;
}

// Of the system call that has just failed.
std::uint32_t systemErrorCode();

}  // namespace vx::platform
