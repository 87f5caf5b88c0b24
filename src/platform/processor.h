// The processor's family, which no system tells in the same way.
#pragma once

#include <cstdint>

namespace vx::platform {

// 3 for a processor whose alignment-check flag is fixed, 4 for one whose ID flag is, else the family by CPUID.
std::uint32_t processorFamily();

}  // namespace vx::platform
