// Memory whose neighbours give every access outside away: an inaccessible page on one side, canary bytes on the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace vx::rows {

class GuardedBuffer {
 public:
    GuardedBuffer() = default;
    ~GuardedBuffer() { release(); }
    GuardedBuffer(const GuardedBuffer&) = delete;
    GuardedBuffer& operator=(const GuardedBuffer&) = delete;

    // Makes `size` bytes available right behind an inaccessible page, or right before one, and sets the canary bytes on
    // the open side. The contents are left as they were. Ends the program if the system has no memory left.
    char* place(std::size_t size, bool atFront, char canary);

    char* data() const { return data_; }
    std::size_t size() const { return size_; }
    bool atFront() const { return data_ == pages_; }

    // Where the open side has been written to, as an offset from data().
    std::optional<std::ptrdiff_t> damage() const;

    // The offset of an address in this buffer, its canaries or its inaccessible pages.
    std::optional<std::ptrdiff_t> offsetOf(const void* address) const;

 private:
    void reserve(std::size_t size);
    void release();
    char* canaries() const { return atFront() ? data_ + size_ : data_ - canaryCount_; }

    char* pages_ = nullptr;  // accessible ones, an inaccessible one before and behind
    std::size_t capacity_ = 0;
    char* data_ = nullptr;
    std::size_t size_ = 0;
    std::size_t canaryCount_ = 0;
    char canary_ = 0;
};

}  // namespace vx::rows
