// Searches through one directory, by numbers.
#pragma once

#include <cstdint>

#include "platform/tree.h"

namespace vx::platform {

// As Tree's.
std::int32_t startSearch(const char* pattern, FoundEntry& entry);
bool continueSearch(std::int32_t search, FoundEntry& entry);
bool endSearch(std::int32_t search);

}  // namespace vx::platform
