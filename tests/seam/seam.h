#pragma once

#include "tests/lab/fakes.h"
#include "tests/support/library.h"

namespace vx::test {

inline lab::Door* door() { return reinterpret_cast<lab::OpenDoor>(address(lab::kDoorName))(); }

}  // namespace vx::test
