// The files by which Linux tells about itself.
#pragma once

#include <string>

namespace vx::platform {

// The contents of a file like /proc/meminfo; an empty text if it cannot be read.
std::string systemFile(const char* name) noexcept;

}  // namespace vx::platform
