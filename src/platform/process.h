// The process that has loaded the library.
#pragma once

#include <cstddef>

namespace vx::platform {

class Process {
 public:
    // The host program's full path in drive form, cut and terminated within `room`; an empty text if it is unknown.
    virtual void programPath(char* path, std::size_t room) = 0;

 protected:
    ~Process() = default;
};

}  // namespace vx::platform
