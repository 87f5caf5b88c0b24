#include "frame/library.h"

namespace {

__attribute__((constructor)) void onLoad() { vx::attach(nullptr); }
__attribute__((destructor)) void onUnload() { vx::detach(); }

}  // namespace
