// What a diskette drive takes and holds.
#pragma once

#include <cstdint>

namespace vx {

enum class DisketteQuestion { kLargestFormat, kMediumNow };

// The capacity code of a diskette drive (0 is A, 1 is B): 144 for 1.44 MB and so on, 0 if it is none of those known, -1
// if there is no such drive or it does not answer.
std::int32_t disketteCode(std::int32_t drive, DisketteQuestion question);

}  // namespace vx
