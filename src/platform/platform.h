// The platform seam: all that the library asks of the operating system, grouped into small interfaces.
//
// Each operation means the same on every system, Win32 results included. `current()` is what families call through;
// tests put their own objects in its places. A new group of operations is a header of its own, a
// member here and a line in platform.cpp.
#pragma once

#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/hardware.h"
#include "platform/locale.h"
#include "platform/process.h"
#include "platform/tree.h"
#include "platform/volumes.h"

namespace vx::platform {

struct Platform {
    Clock* clock;
    Desktop* desktop;
    Files* files;
    Hardware* hardware;
    Locale* locale;
    Process* process;
    Tree* tree;
    Volumes* volumes;
};

Platform& current();

// The operating system's own, defined in linux/ and windows/.
Clock& systemClock();
Desktop& systemDesktop();
Files& systemFiles();
Hardware& systemHardware();
Locale& systemLocale();
Process& systemProcess();
Tree& systemTree();
Volumes& systemVolumes();

}  // namespace vx::platform
