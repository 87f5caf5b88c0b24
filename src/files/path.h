// Path names in drive form, taken apart and put together: what other families use of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "frame/text.h"
#include "platform/tree.h"

namespace vx {

// Rooms of the pieces with their terminators; what is longer is cut.
inline constexpr std::size_t kDriveSize = 3;
inline constexpr std::size_t kPieceSize = 256;

struct PathParts {
    char drive[kDriveSize] = "";      // letter and colon, or empty
    char directory[kPieceSize] = "";  // with its last separator
    char name[kPieceSize] = "";
    char extension[kPieceSize] = "";  // with its dot
};

// Room for any joined path: drive, directory, backslash, name, dot, extension.
inline constexpr std::size_t kJoinedSize = 2 + 3 * (kPieceSize - 1) + 2 + 1;

// Room that callers have for the path of a directory or program.
inline constexpr std::size_t kPathRoom = platform::kPathSize + 1;

inline bool isSeparator(char c) { return c == '\\' || c == '/'; }

// The letter and colon that a path begins with, or an empty text.
std::string_view drivePart(std::string_view path);

// Whether two paths differ in nothing but letter case.
bool isSamePath(std::string_view a, std::string_view b);

// NULL is an empty path.
PathParts splitPath(const char* path);

// The same pieces as parts of the path's text: nothing is copied.
struct PathView {
    std::string_view drive;
    std::string_view directory;
    std::string_view name;
    std::string_view extension;
};
PathView viewPath(std::string_view path);

// Puts the path of the pieces at `to`, which needs kJoinedSize; returns its length. A null piece is an empty one.
std::size_t joinPath(const char* drive, const char* directory, const char* name, const char* extension, char* to);
std::size_t joinPath(const PathView& parts, char* to);

inline std::size_t joinPath(const PathParts& parts, char* to) {
    return joinPath(parts.drive, parts.directory, parts.name, parts.extension, to);
}

// Puts a file's name and extension behind a directory, whose last component counts as one without a separator, too;
// `to` needs kJoinedSize. The length.
std::size_t appendName(const char* file, const char* directory, char* to);

// The first separator at `from` or behind it, else the path's size.
std::size_t findSeparator(std::string_view path, std::size_t from = 0);

// Where the last component begins: behind the last separator, or behind the drive.
std::size_t lastComponent(std::string_view path);

// Whether the last character is a backslash or slash, not the second half of a double-byte one.
bool endsInSeparator(std::string_view path);

}  // namespace vx
