// Searches through one directory, by numbers.
//
// All names that match are collected and sorted when a search begins; then the directory is closed again. A name
// without wildcards is looked for as any other name is, which reads no directory as a rule.
#pragma once

#include <cstdint>

#include "platform/tree.h"

namespace vx::platform {

// As Tree's.
std::int32_t startSearch(const char* pattern, FoundEntry& entry);
bool continueSearch(std::int32_t search, FoundEntry& entry);
bool endSearch(std::int32_t search);

}  // namespace vx::platform
