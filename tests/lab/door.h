// The one name that the lab library has beyond the product's: a door to its inside, for tests that replace the
// platform.
#pragma once

#include "frame/library.h"
#include "platform/platform.h"

namespace vx::lab {

struct Door {
    platform::Platform* platform;
    Library* library;
    void (*attach)();
    void (*detach)();
    bool* foldsCrc32;  // false: by tables, as on a processor without carry-less multiplication
};

using OpenDoor = Door* (*)();
inline constexpr char kDoorName[] = "vexlor32_seam";

}  // namespace vx::lab
