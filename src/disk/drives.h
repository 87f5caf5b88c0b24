// Drives: texts and numbers that name them, and which there are.
#pragma once

#include <cstdint>

#include "files/drive_root.h"
#include "platform/platform.h"

namespace vx {

inline constexpr std::int32_t kNoDrive = -1;

// A caller's drive text: its first character that is no blank. A missing text, or one of blanks only, is the current
// drive. driveNumber counts from 1 for A and knows existing drives only; dosDriveNumber counts from 0 and knows
// all letters. kNoDrive for what is no drive.
std::int32_t driveNumber(const char* text);
std::int32_t dosDriveNumber(const char* text);

// The existing drives, bit 0 for A.
std::uint32_t driveMask();

// By its number from 0. B exists wherever A does.
bool driveExists(std::int32_t drive);

// The drive to examine for drive B, by numbers from 0: A on a machine that lacks B. All others stand for themselves.
std::int32_t physicalDrive(std::int32_t drive);

// Calls `take` with the letter of each existing drive, in alphabetical order.
template <typename Take>
void forEachDrive(Take take) {
    std::uint32_t mask = driveMask();
    for (std::int32_t drive = 0; drive < kDriveLetters; ++drive) {
        if ((mask >> drive) & 1) take(driveLetter(drive));
    }
}

// The existing drives as "A:", "B:" and so on with a separator between them; returns `to`.
char* putDriveNames(char separator, char* to);

// The root directory of a drive, by its number from 1.
inline DriveRoot rootOf(std::int32_t number) { return DriveRoot(driveLetter(number - 1)); }

// What `work` gives for the drive that a caller's text names, by its number from 1, or `otherwise` for what is no
// drive. Meanwhile the system shows no boxes about drives without a medium.
template <typename Result, typename Work>
Result withDrive(const char* text, Result otherwise, Work work) {
    std::int32_t number = driveNumber(text);
    if (number == kNoDrive) return otherwise;
    platform::SilentErrors silent(platform::process());
    return work(number);
}

}  // namespace vx
