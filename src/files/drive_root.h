// Drives by their letters, and their root directories.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vx {

inline constexpr std::int32_t kDriveLetters = 26;

// By the drive's number from 0.
inline char driveLetter(std::int32_t drive) { return static_cast<char>('A' + drive); }

inline constexpr std::size_t kRootSize = 3;  // of "C:\"

class DriveRoot {
 public:
    explicit DriveRoot(char letter) : text_{letter, ':', '\\', '\0'} {}
    const char* get() const { return text_; }

 private:
    char text_[kRootSize + 1];
};

}  // namespace vx
