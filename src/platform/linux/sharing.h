// Who has a file open, and what they deny to others: marks that every process sees that uses the library.
//
// A mark is a read lock on a byte far behind any data. The open file holds it, so it goes with the last descriptor,
// whatever ends the process. Who opens a file places its own marks first and looks for others' afterwards: of two that
// come at the same time, at least one sees the other. Where the file system has no such locks, nothing is denied.
#pragma once

#include <cstdint>

namespace vx::platform {

enum Mark : unsigned {
    kReads = 1,
    kWrites = 2,
    kDeniesReading = 4,
    kDeniesWriting = 8,
};

// Of a handle that is opened with these OpenMode bits.
unsigned marksOf(std::uint32_t mode);

// Places marks. False, and none is placed, if another open file's stand against them.
bool placeMarks(int descriptor, unsigned marks);

// How often a claim on a file is tried: two that claim at the same time see each other and both step back.
inline constexpr int kClaimAttempts = 3;
void pauseBetweenClaims();

}  // namespace vx::platform
