// What load and unload do about locks.
#pragma once

namespace vx::platform {

void makeLocks();

// Only when the library goes and the process stays: no call comes any more.
void releaseLocks();

}  // namespace vx::platform
