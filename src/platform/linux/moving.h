// Giving a file or directory another name, on the same file system or another.
//
// Windows refuses to replace what has the name, so this does, also when it comes into being meanwhile. To another file
// system a file or link is copied, with its attributes and times, and then deleted; a directory is refused, as there.
#pragma once

#include <sys/stat.h>

namespace vx::platform {

// `from` has `state`; nothing has the name `to`. False, with the reason as last error, and all as it was, if it fails.
bool moveEntry(const char* from, const struct stat& state, const char* to);

}  // namespace vx::platform
