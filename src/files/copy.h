// Copies of whole files, and the buffer that whole files go through.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <new>

#include "platform/files.h"

namespace vx {

inline constexpr std::int32_t kMostBytes = std::numeric_limits<std::int32_t>::max();
static_assert(kMostBytes == platform::kLastPosition);

// Room for what is read and written at once: a little where there is no memory for more.
class TransferBuffer {
 public:
    explicit TransferBuffer(std::uint32_t wanted) : large_(new (std::nothrow) char[wanted]) {
        if (large_) size_ = wanted;
    }
    char* data() { return large_ ? large_.get() : small_; }
    std::uint32_t size() const { return size_; }

 private:
    std::unique_ptr<char[]> large_;
    char small_[1024];
    std::uint32_t size_ = sizeof small_;
};

// The number of bytes copied; -1 on failure, and no target is left that could not be made whole.
std::int32_t copyFile(const char* sourceName, const char* targetName);

}  // namespace vx
