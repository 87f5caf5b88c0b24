// Giving a file or directory another name, on the same file system or another.
#pragma once

#include <sys/stat.h>

namespace vx::platform {

// `from` has `state`; nothing has the name `to`. False, with the reason as last error, and all as it was, if it fails.
bool moveEntry(const char* from, const struct stat& state, const char* to);

}  // namespace vx::platform
