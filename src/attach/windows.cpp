// Load and unload on Windows.
#include <windows.h>

#include "frame/library.h"
#include "platform/windows/lock.h"

extern "C" {

// No header declares what the runtime calls.
void _lock(int);
void _unlock(int);
BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID);

// The C runtime's start-up code takes these for its list of exit functions. The MSVCRT.DLL of Windows NT 4.0 has
// neither, and the list of a library changes only while it is loaded and unloaded, one thread at a time.
void _lock(int) {}
void _unlock(int) {}

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID processEnds) {
    if (reason == DLL_PROCESS_ATTACH) {
        vx::platform::makeLocks();
        vx::attach();
    }
    if (reason == DLL_PROCESS_DETACH) {
        vx::detach();
        // Other libraries may call on while the process ends.
        if (!processEnds) vx::platform::releaseLocks();
    }
    return TRUE;
}

}  // extern "C"
