// Open files, by the library's 32-bit handles.
#pragma once

#include <cstdint>

namespace vx::platform {

class Files {
 public:
    // False if the handle is not open or the system refuses.
    virtual bool close(std::int32_t handle) = 0;

 protected:
    ~Files() = default;
};

}  // namespace vx::platform
