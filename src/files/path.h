// Path names in drive form, taken apart and put together: what other families use of them.
#pragma once

#include <cstddef>

namespace vx {

// Rooms of the pieces with their terminators; what is longer is cut.
inline constexpr std::size_t kDriveSize = 3;
inline constexpr std::size_t kPieceSize = 256;

struct PathParts {
    char drive[kDriveSize] = "";     // letter and colon, or empty
    char directory[kPieceSize] = "";  // with its last separator
    char name[kPieceSize] = "";
    char extension[kPieceSize] = "";  // with its dot
};

// Room for any joined path: drive, directory, backslash, name, dot, extension.
inline constexpr std::size_t kJoinedSize = 2 + 3 * (kPieceSize - 1) + 2 + 1;

// NULL is an empty path.
PathParts splitPath(const char* path);

// Puts the path of the pieces at `to`, which needs kJoinedSize; returns its length. A null piece is an empty one.
std::size_t joinPath(const char* drive, const char* directory, const char* name, const char* extension, char* to);

inline std::size_t joinPath(const PathParts& parts, char* to) {
    return joinPath(parts.drive, parts.directory, parts.name, parts.extension, to);
}

}  // namespace vx
