// Copies of whole files, and the buffer that whole files go through.
#pragma once

#include <cstdint>
#include <memory>
#include <new>

namespace vx {

// Room for what is read and written at once. Any size does for a pass over a file, so where there is no memory for the
// one wanted, a little on the stack goes on with the work, only slower. (FileBlocks, whose blocks must hold what is
// kept of the one before, says so instead.)
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
