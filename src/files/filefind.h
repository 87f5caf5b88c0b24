// Looking through lists of directories: what other families use of it.
#pragma once

#include <cstddef>

namespace vx {

// The full name of the directory called `name` in the first of the listed directories (";" between them) that has one:
// not in what is below them. `to` needs platform::kPathSize; empty if there is none. The length.
std::size_t findDirectoryInList(const char* name, const char* list, char* to);

}  // namespace vx
