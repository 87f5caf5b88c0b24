// Directories made with those on the way to them.
#pragma once

#include <string_view>

namespace vx {

bool directoryExists(const char* path);

// Makes one directory, with those on the way.
bool makeDirectory(std::string_view path);

}  // namespace vx
