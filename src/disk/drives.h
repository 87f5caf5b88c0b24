// Drives: texts and numbers that name them, and which there are.
#pragma once

#include <cstdint>

namespace vx {

inline constexpr std::int32_t kNoDrive = -1;
inline constexpr std::int32_t kDriveLetters = 26;

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

inline char driveLetter(std::int32_t drive) { return static_cast<char>('A' + drive); }

// The root directory of a drive, by its number from 1.
class DriveRoot {
 public:
    explicit DriveRoot(std::int32_t number) : text_{driveLetter(number - 1), ':', '\\', '\0'} {}
    const char* get() const { return text_; }

 private:
    char text_[4];
};

}  // namespace vx
