#include "platform/linux/sharing.h"

#include <time.h>

#include "platform/files.h"
#include "platform/linux/descriptor.h"

namespace vx::platform {
namespace {

constexpr off_t kMarkPlace = (off_t{1} << 62) + 0x5658;
constexpr unsigned kMarks = 4;

// Locks the marks' bytes, neighbours in one call. False as soon as a call fails.
template <typename Call>
bool forMarks(unsigned marks, short type, Call call) {
    for (unsigned first = 0; first < kMarks;) {
        unsigned end = first;
        while ((marks >> end) & 1) ++end;
        if (end != first && !call(lockOn(type, kMarkPlace + first, end - first))) return false;
        first = end + 1;
    }
    return true;
}

// What of others stands against marks: against each access its denial, which is two bits above it, and the reverse.
unsigned opponentsOf(unsigned marks) { return ((marks << 2) | (marks >> 2)) & 0xF; }

void setMarks(int descriptor, unsigned marks, short type) {
    forMarks(marks, type, [&](struct flock lock) {
        ::fcntl(descriptor, F_OFD_SETLK, &lock);
        return true;
    });
}

}  // namespace

unsigned marksOf(std::uint32_t mode) {
    unsigned access = mode & kReadWrite ? kReads | kWrites : mode & kWrite ? kWrites : kReads;
    switch (mode & 0x70) {
        case kExclusive:
            return access | kDeniesReading | kDeniesWriting;
        case kDenyWrite:
            return access | kDeniesWriting;
        case kDenyRead:
            return access | kDeniesReading;
        default:
            return access;
    }
}

bool placeMarks(int descriptor, unsigned marks) {
    setMarks(descriptor, marks, F_RDLCK);
    bool alone = forMarks(opponentsOf(marks), F_WRLCK, [&](struct flock lock) {
        if (::fcntl(descriptor, F_OFD_GETLK, &lock) != 0 || lock.l_type == F_UNLCK) return true;
        return lock.l_start < kMarkPlace;  // another program's lock on all of the file is no mark
    });
    if (!alone) setMarks(descriptor, marks, F_UNLCK);
    return alone;
}

// Of no fixed length, lest the two meet again.
void pauseBetweenClaims() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    timespec pause{.tv_sec = 0, .tv_nsec = 500'000 + now.tv_nsec % 1'000'000};
    ::nanosleep(&pause, nullptr);
}

}  // namespace vx::platform
