// All locks are one critical section: nothing has to be made for each, and none is left behind.
#include "platform/windows/lock.h"

#include <windows.h>

#include "platform/lock.h"

namespace vx::platform {
namespace {

CRITICAL_SECTION section;

}  // namespace

void makeLocks() { InitializeCriticalSection(&section); }
void releaseLocks() { DeleteCriticalSection(&section); }

void Lock::lock() { EnterCriticalSection(&section); }
void Lock::unlock() { LeaveCriticalSection(&section); }

}  // namespace vx::platform
