#include "tests/lab/door.h"

#include "checksums/checksum.h"

#if defined(_WIN32)
#define VISIBLE
#else
#define VISIBLE __attribute__((visibility("default")))
#endif

extern "C" VISIBLE vx::lab::Door* vexlor32_seam() {
    static vx::lab::Door door{&vx::platform::current(), &vx::library, vx::attach, vx::detach, &vx::foldsCrc32};
    return &door;
}
