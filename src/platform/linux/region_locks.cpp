#include "platform/linux/region_locks.h"

#include <memory>
#include <mutex>
#include <new>

#include "platform/linux/descriptor.h"
#include "platform/linux/last_error.h"

namespace vx::platform {
namespace {

int call(int descriptor, int command, short type, std::uint64_t start, std::uint64_t end, short* found = nullptr) {
    struct flock lock = lockOn(type, static_cast<off_t>(start), static_cast<off_t>(end - start));
    int result = uninterrupted([&] { return ::fcntl(descriptor, command, &lock); });
    if (found) *found = lock.l_type;
    return result;
}

// A descriptor for reading takes read locks only. One of those is as good as long as no other file holds one.
bool acquireForReading(int descriptor, std::uint64_t start, std::uint64_t end) {
    if (call(descriptor, F_OFD_SETLK, F_RDLCK, start, end) != 0) return false;
    short found = F_UNLCK;
    if (call(descriptor, F_OFD_GETLK, F_WRLCK, start, end, &found) == 0 && found == F_UNLCK) return true;
    call(descriptor, F_OFD_SETLK, F_UNLCK, start, end);
    errno = EAGAIN;
    return false;
}

bool acquire(int descriptor, std::uint64_t start, std::uint64_t end) {
    if (start == end || call(descriptor, F_OFD_SETLK, F_WRLCK, start, end) == 0) return true;
    return errno == EBADF && acquireForReading(descriptor, start, end);
}

// A length of 0 would mean up to the end of the file here.
void release(int descriptor, std::uint64_t start, std::uint64_t end) {
    if (start != end) call(descriptor, F_OFD_SETLK, F_UNLCK, start, end);
}

}  // namespace

bool RegionLocks::holdsOverlap(std::uint64_t start, std::uint64_t end) const {
    for (const Range* range = ranges_; range; range = range->next) {
        if (start < range->end && range->start < end) return true;
    }
    return false;
}

bool RegionLocks::lock(int descriptor, std::uint32_t offset, std::uint32_t length) {
    std::uint64_t end = std::uint64_t{offset} + length;
    std::unique_ptr<Range> range(new (std::nothrow) Range{offset, end, nullptr});
    if (!range) return failed(false, kNotEnoughMemory);
    std::lock_guard guard(changing_);
    if (holdsOverlap(offset, end)) return failed(false, kLockViolation);
    if (!acquire(descriptor, offset, end)) return failedCall(false);
    range->next = ranges_;
    ranges_ = range.release();
    return true;
}

bool RegionLocks::unlock(int descriptor, std::uint32_t offset, std::uint32_t length) {
    std::uint64_t end = std::uint64_t{offset} + length;
    std::lock_guard guard(changing_);
    for (Range** link = &ranges_; *link; link = &(*link)->next) {
        if ((*link)->start != offset || (*link)->end != end) continue;
        std::unique_ptr<Range> range(*link);
        *link = range->next;
        release(descriptor, offset, end);
        return true;
    }
    return failed(false, kNotLocked);
}

void RegionLocks::clear(int descriptor) {
    std::lock_guard guard(changing_);
    while (ranges_) {
        std::unique_ptr<Range> range(ranges_);
        ranges_ = range->next;
        release(descriptor, range->start, range->end);
    }
}

}  // namespace vx::platform
