// Load and unload on Linux, by the loader's lists of functions.
#include "frame/library.h"

namespace {

__attribute__((constructor)) void onLoad() { vx::attach(); }
// At the process's end, too, where other libraries may call on: nothing but the open files goes here.
__attribute__((destructor)) void onUnload() { vx::detach(); }

}  // namespace
