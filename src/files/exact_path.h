// Paths of what is deleted: each is exactly the one that the platform makes of it, so that nothing that it would drop
// from a name (blanks and dots at an end, device names) can lead to another file.
#pragma once

#include <string_view>

#include "files/walk.h"

namespace vx {

// Whether a name is that of one entry of a directory: no path, no drive, neither "." nor "..".
bool isPlainName(std::string_view name);

// Whether the platform takes a path exactly as it is written: by its end, `exact`, if it is a relative one.
bool isTakenAs(const char* path, std::string_view exact);

// The absolute path that a caller's text names, with a separator behind it.
class TopPath {
 public:
    // False for a text that does not name one directory exactly, and for none.
    bool complete(const char* text);

    const WalkPath& path() const { return path_; }

 private:
    bool addRoot(std::string_view drive);
    bool addCurrent(std::string_view drive);
    bool addComponents(std::string_view text);
    bool addComponent(std::string_view name);
    bool dropComponent();
    bool isExact();

    WalkPath path_;
};

}  // namespace vx
