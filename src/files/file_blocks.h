// A file read from a position on in large blocks, with memory that does not depend on its size.
//
// What a caller has not done with at the end of a block - the start of a line, or as much of a text as may be the start
// of an occurrence - is kept in front of the next one, so that it only ever looks at one piece of memory. Reading is at
// positions, so the handle's own does not move.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>

#include "files/handles.h"
#include "platform/errors.h"

namespace vx {

class FileBlocks {
 public:
    static constexpr std::size_t kLargest = std::size_t{1} << 17;

    // Up to `mostKept` bytes of a block can be kept for the next one.
    FileBlocks(std::int32_t handle, std::int64_t position, std::size_t mostKept)
        : handle_(handle),
          position_(position),
          mostKept_(mostKept),
          memory_(new (std::nothrow) char[mostKept + kLargest]) {
        if (!memory_) platform::process().setLastError(platform::kNotEnoughMemory);
    }

    explicit operator bool() const { return memory_ != nullptr; }

    // Reads up to `size` bytes and puts the last `kept` ones of those before in front of them. How many bytes are
    // fresh; -1 on failure.
    std::int32_t read(std::size_t kept, std::size_t size) {
        char* fresh = memory_.get() + mostKept_;
        if (kept > 0) std::memmove(fresh - kept, bytes_.data() + bytes_.size() - kept, kept);
        size = std::min(size, kLargest);
        std::int32_t read = platform::files().readAt(handle_, position_, fresh, static_cast<std::uint32_t>(size));
        position_ += std::max(read, 0);
        bytes_ = {fresh - kept, kept + static_cast<std::size_t>(std::max(read, 0))};
        return read;
    }

    std::string_view bytes() const { return bytes_; }
    char* fresh() { return memory_.get() + mostKept_; }

    // Of the first byte, and behind the last one.
    std::int64_t start() const { return position_ - static_cast<std::int64_t>(bytes_.size()); }
    std::int64_t position() const { return position_; }

 private:
    std::int32_t handle_;
    std::int64_t position_;
    std::size_t mostKept_;
    std::unique_ptr<char[]> memory_;
    std::string_view bytes_;
};

// Sizes of blocks when the work may soon be done.
class GrowingSize {
 public:
    std::size_t next() { return size_ = std::min(size_ * 4, FileBlocks::kLargest); }

 private:
    std::size_t size_ = 2048;
};

}  // namespace vx
