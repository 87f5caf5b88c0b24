// The platform seam: all that the library asks of the operating system, grouped into small interfaces.
//
// Each operation means the same on every system, Win32 results included. Families call `platform::files()` and its
// likes; tests put their own objects into the places of `current()`. A new group of operations is a header of its own,
// a member and a function here and a line in platform.cpp.
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

inline Clock& clock() { return *current().clock; }
inline Desktop& desktop() { return *current().desktop; }
inline Files& files() { return *current().files; }
inline Hardware& hardware() { return *current().hardware; }
inline Locale& locale() { return *current().locale; }
inline Process& process() { return *current().process; }
inline Tree& tree() { return *current().tree; }
inline Volumes& volumes() { return *current().volumes; }

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
