#include "rows/guarded_memory.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#if defined(_WIN32)
#include <windows.h>
#else
#include <sys/mman.h>
#endif
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#endif

namespace vx::rows {
namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kFirstCapacity = 16 * kPage;
constexpr std::size_t kCanaries = 1024;

// `size` accessible bytes between two inaccessible pages; null if the system refuses.
#if defined(_WIN32)
char* mapBetweenGuards(std::size_t size) {
    void* all = VirtualAlloc(nullptr, size + 2 * kPage, MEM_RESERVE, PAGE_NOACCESS);
    return static_cast<char*>(all ? VirtualAlloc(static_cast<char*>(all) + kPage, size, MEM_COMMIT, PAGE_READWRITE)
                                  : nullptr);
}
void unmap(char* pages, std::size_t) { VirtualFree(pages - kPage, 0, MEM_RELEASE); }
#else
char* mapBetweenGuards(std::size_t size) {
    void* all = mmap(nullptr, size + 2 * kPage, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (all == MAP_FAILED) return nullptr;
    char* pages = static_cast<char*>(all) + kPage;
    return mprotect(pages, size, PROT_READ | PROT_WRITE) == 0 ? pages : nullptr;
}
void unmap(char* pages, std::size_t size) { munmap(pages - kPage, size + 2 * kPage); }
#endif

// Under AddressSanitizer the canaries may not even be read.
#if defined(__SANITIZE_ADDRESS__)
void forbid(const char* bytes, std::size_t size) { __asan_poison_memory_region(bytes, size); }
void allow(const char* bytes, std::size_t size) { __asan_unpoison_memory_region(bytes, size); }
#else
void forbid(const char*, std::size_t) {}
void allow(const char*, std::size_t) {}
#endif

}  // namespace

char* GuardedBuffer::place(std::size_t size, bool atFront, char canary) {
    if (data_) allow(canaries(), canaryCount_);
    if (size > capacity_) reserve(size);
    size_ = size;
    data_ = atFront ? pages_ : pages_ + (capacity_ - size);
    canaryCount_ = std::min(capacity_ - size, kCanaries);
    canary_ = canary;
    std::memset(canaries(), canary_, canaryCount_);
    forbid(canaries(), canaryCount_);
    return data_;
}

std::optional<std::ptrdiff_t> GuardedBuffer::damage() const {
    if (!data_) return {};
    const char* first = canaries();
    const char* end = first + canaryCount_;
    allow(first, canaryCount_);
    const char* damaged = std::find_if(first, end, [this](char c) { return c != canary_; });
    forbid(first, canaryCount_);
    if (damaged == end) return {};
    return damaged - data_;
}

std::optional<std::ptrdiff_t> GuardedBuffer::offsetOf(const void* address) const {
    auto wanted = reinterpret_cast<std::uintptr_t>(address);
    auto start = reinterpret_cast<std::uintptr_t>(pages_) - kPage;
    if (!pages_ || wanted < start || wanted >= start + capacity_ + 2 * kPage) return {};
    return static_cast<const char*>(address) - data_;
}

void GuardedBuffer::reserve(std::size_t size) {
    release();
    capacity_ = kFirstCapacity;
    while (capacity_ < size) capacity_ *= 2;
    pages_ = mapBetweenGuards(capacity_);
    if (pages_) return;
    std::fprintf(stderr, "no memory for %zu bytes\n", capacity_);
    std::exit(2);
}

void GuardedBuffer::release() {
    if (pages_) {
        allow(pages_, capacity_);
        unmap(pages_, capacity_);
    }
    pages_ = data_ = nullptr;
    capacity_ = canaryCount_ = 0;
}

}  // namespace vx::rows
