#include <windows.h>

#include "frame/library.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) vx::attach(instance);
    if (reason == DLL_PROCESS_DETACH) vx::detach();
    return TRUE;
}
