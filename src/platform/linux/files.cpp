// Open files of Linux.
//
// A handle is a number of the registry. Each open file keeps its position itself, so that a read or write is one
// positioned call and a seek none; the descriptor's own position means nothing. Sharing modes are marks (sharing.h),
// which are placed after opening: where two programs claim a file at once, both step back and try again.
//
// Here and beside, calls whose names the library exports itself (exports/clashes.txt) are made in their forms with a
// directory, or by number.
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <algorithm>
#include <atomic>

#include "platform/linux/descriptor.h"
#include "platform/linux/file_state.h"
#include "platform/linux/last_error.h"
#include "platform/linux/names.h"
#include "platform/linux/region_locks.h"
#include "platform/linux/sharing.h"
#include "platform/platform.h"
#include "platform/registry.h"

namespace vx::platform {
namespace {

// A FIFO without a partner and a terminal are opened at once, and do not become the process's own.
constexpr int kOpenFlags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;

struct OpenFile {
    std::atomic<int> current{-1};  // the descriptor
    std::atomic<std::int64_t> position{0};
    bool reads = false;
    bool writes = false;
    RegionLocks locks;

    int descriptor() const { return current.load(std::memory_order_relaxed); }
};

std::uint32_t allowed(std::int64_t position, std::uint32_t count) {
    return static_cast<std::uint32_t>(std::min<std::int64_t>(count, kLastPosition - position));
}

// At the position; where the system knows none (a pipe, a terminal), just on.
ssize_t readOnce(int descriptor, std::int64_t position, void* to, std::size_t count) {
    return uninterrupted([&] {
        ssize_t done = ::pread(descriptor, to, count, position);
        return done < 0 && errno == ESPIPE ? ::read(descriptor, to, count) : done;
    });
}

// One call of the system reads no more than this.
constexpr ssize_t kMostAtOnce = 0x7FFFF000;

ssize_t readFrom(int descriptor, std::int64_t position, void* to, std::size_t count) {
    ssize_t done = readOnce(descriptor, position, to, count);
    if (done < kMostAtOnce) return done;
    std::size_t first = static_cast<std::size_t>(done);
    ssize_t more = readOnce(descriptor, position + done, static_cast<char*>(to) + first, count - first);
    return more > 0 ? done + more : done;
}

ssize_t writeOnce(int descriptor, std::int64_t position, const void* from, std::size_t count) {
    return uninterrupted([&] {
        ssize_t done = ::pwrite(descriptor, from, count, position);
        return done < 0 && errno == ESPIPE ? ::write(descriptor, from, count) : done;
    });
}

class LinuxFiles final : public Files {
 public:
    std::int32_t open(const char* name, std::uint32_t mode) override;
    std::int32_t create(const char* name, std::uint32_t attributes) override;
    bool close(std::int32_t handle) override;
    std::int32_t read(std::int32_t handle, void* to, std::uint32_t count) override;
    std::int32_t write(std::int32_t handle, const void* from, std::uint32_t count) override;
    std::int32_t seek(std::int32_t handle, std::int32_t offset, std::int32_t origin) override;
    std::int32_t readAt(std::int32_t handle, std::int64_t position, void* to, std::uint32_t count) override;
    std::int32_t writeAt(std::int32_t handle, std::int64_t position, const void* from, std::uint32_t count) override;
    std::int64_t size(std::int32_t handle) override;
    bool truncate(std::int32_t handle) override;
    bool flush(std::int32_t handle) override;
    bool lock(std::int32_t handle, std::uint32_t offset, std::uint32_t length) override;
    bool unlock(std::int32_t handle, std::uint32_t offset, std::uint32_t length) override;
    bool information(std::int32_t handle, FileInformation& information) override;
    bool setTimes(std::int32_t handle, const FileTimes& times) override;

 private:
    // Null, with the reason, if the handle is not open.
    OpenFile* opened(std::int32_t handle) {
        OpenFile* file = files_.find(handle);
        return file ? file : failed(static_cast<OpenFile*>(nullptr), kInvalidHandle);
    }
    std::int32_t handOut(Descriptor descriptor, bool reads, bool writes);
    std::int32_t start(Descriptor descriptor, const char* path, std::uint32_t attributes);

    Registry<OpenFile> files_;
};

constinit LinuxFiles linuxFiles;

std::int32_t LinuxFiles::handOut(Descriptor descriptor, bool reads, bool writes) {
    std::int32_t handle = files_.add([&](OpenFile& file) {
        file.current.store(descriptor.get(), std::memory_order_relaxed);
        file.position.store(0, std::memory_order_relaxed);
        file.reads = reads;
        file.writes = writes;
    });
    if (handle == 0) return failed(-1, kTooManyOpenFiles);
    descriptor.release();
    return handle;
}

// Linux starts programs with room for fewer open files than Windows programs have. False if there is no more to have.
bool makeRoomForMore() {
    constexpr rlim_t kWanted = 0x11000;  // all handles, and some for the program's own use
    rlimit limit;
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= std::min(limit.rlim_max, kWanted)) return false;
    limit.rlim_cur = std::min(limit.rlim_max, kWanted);
    return ::setrlimit(RLIMIT_NOFILE, &limit) == 0;
}

// -1, with errno, on failure.
int openFor(const char* path, int flags, mode_t mode = 0) {
    auto open = [&] { return uninterrupted([&] { return ::openat(AT_FDCWD, path, flags | kOpenFlags, mode); }); };
    int descriptor = open();
    if (descriptor >= 0 || errno != EMFILE) return descriptor;
    bool more = makeRoomForMore();
    errno = EMFILE;
    return more ? open() : -1;
}

// Opens a file with the access that the mode asks for. A file that is only written is opened for reading, too, where
// that may be: marks are read locks.
Descriptor openPath(const char* path, std::uint32_t mode, struct stat& state) {
    bool writes = (mode & (kWrite | kReadWrite)) != 0;
    bool onlyWrites = writes && !(mode & kReadWrite);
    Descriptor descriptor(openFor(path, writes ? O_RDWR : O_RDONLY));
    if (!descriptor && onlyWrites && errno == EACCES) descriptor = Descriptor(openFor(path, O_WRONLY));
    if (!descriptor || ::fstat(descriptor.get(), &state) != 0) return Descriptor();
    if (S_ISREG(state.st_mode) || S_ISDIR(state.st_mode)) return descriptor;
    // A pipe that is open for both never lacks its reader.
    if (onlyWrites && S_ISFIFO(state.st_mode)) {
        descriptor.reset();
        descriptor = Descriptor(openFor(path, O_WRONLY));
    }
    if (descriptor) ::fcntl(descriptor.get(), F_SETFL, ::fcntl(descriptor.get(), F_GETFL) & ~O_NONBLOCK);
    return descriptor;
}

std::int32_t LinuxFiles::open(const char* name, std::uint32_t mode) {
    SystemName path(name);
    if (!path.valid()) return -1;
    unsigned marks = marksOf(mode);
    for (int attempt = 1;; ++attempt) {
        struct stat state;
        Descriptor descriptor;
        callWith(path, [&](const char* text) { return (descriptor = openPath(text, mode, state)).get(); });
        if (!descriptor) return failed(-1, errno == EAGAIN ? std::uint32_t{kSharingViolation} : systemErrorCode());
        bool refused = S_ISDIR(state.st_mode) || ((marks & kWrites) && isReadOnly(state.st_mode));
        if (refused) return failed(-1, kAccessDenied);
        if (!S_ISREG(state.st_mode) || placeMarks(descriptor.get(), marks)) {
            return handOut(std::move(descriptor), marks & kReads, marks & kWrites);
        }
        if (attempt == kClaimAttempts) return failed(-1, kSharingViolation);
        descriptor.reset();
        pauseBetweenClaims();
    }
}

// Whether the attributes and marks of a file that is there let it be emptied; then it is. False with the reason.
bool makeNew(int descriptor, std::uint32_t attributes) {
    FileInformation before;
    if (!readState(descriptor, before)) return failedCall(false);
    // A file that is hidden or a system file is made anew only as what it is.
    std::uint32_t kept = kReadOnly | (~attributes & (kHidden | kSystem));
    if (before.attributes & kept) return failed(false, kAccessDenied);
    if (!placeMarks(descriptor, kReads | kWrites)) return failed(false, kSharingViolation);
    bool done = writeAttributes(descriptor, attributes | kArchive) && ::syscall(SYS_ftruncate, descriptor, 0) == 0;
    return done || failedCall(false);
}

std::int32_t LinuxFiles::create(const char* name, std::uint32_t attributes) {
    attributes &= kReadOnly | kHidden | kSystem;
    for (int attempt = 1;; ++attempt) {
        SystemName path(name);
        if (!path.valid()) return -1;
        struct stat state;
        Descriptor descriptor;
        callWith(path, [&](const char* text) { return (descriptor = openPath(text, kReadWrite, state)).get(); });
        if (descriptor) {
            if (!S_ISREG(state.st_mode) || makeNew(descriptor.get(), attributes)) {
                return handOut(std::move(descriptor), true, true);
            }
            if (lastError() != kSharingViolation || attempt == kClaimAttempts) return -1;
            pauseBetweenClaims();
            continue;
        }
        if (errno != ENOENT) return failedCall(-1);
        if (path.asDirectory()) return failed(-1, kInvalidName);
        mode_t mode = attributes & kReadOnly ? 0444 : 0666;
        descriptor = Descriptor(openFor(path.text(), O_RDWR | O_CREAT | O_EXCL, mode));
        if (descriptor) return start(std::move(descriptor), path.text(), attributes);
        if (errno != EEXIST || attempt == kClaimAttempts) return failedCall(-1);
    }
}

// A file that has just been made. If it cannot be as it was asked for, it goes.
std::int32_t LinuxFiles::start(Descriptor descriptor, const char* path, std::uint32_t attributes) {
    placeMarks(descriptor.get(), kReads | kWrites);
    bool plain = (attributes & (kHidden | kSystem)) == 0;
    if (plain || writeAttributes(descriptor.get(), attributes | kArchive)) {
        return handOut(std::move(descriptor), true, true);
    }
    std::uint32_t reason = systemErrorCode();
    ::unlinkat(AT_FDCWD, path, 0);
    return failed(-1, reason);
}

bool LinuxFiles::close(std::int32_t handle) {
    bool closed = false;
    bool known = files_.remove(handle, [&](OpenFile& file) {
        int descriptor = file.current.exchange(-1, std::memory_order_relaxed);
        file.locks.clear(descriptor);
        // What an interrupted close closes is closed.
        closed = ::close(descriptor) == 0 || errno == EINTR;
    });
    if (!known) return failed(false, kInvalidHandle);
    return closed || failedCall(false);
}

std::int32_t LinuxFiles::read(std::int32_t handle, void* to, std::uint32_t count) {
    OpenFile* file = opened(handle);
    if (!file) return -1;
    std::int64_t position = file->position.load(std::memory_order_relaxed);
    if (position >= kLastPosition && size(handle) > kLastPosition) return failed(-1, kInvalidParameter);
    std::int32_t done = readAt(handle, position, to, allowed(position, count));
    if (done > 0) file->position.store(position + done, std::memory_order_relaxed);
    return done;
}

std::int32_t LinuxFiles::write(std::int32_t handle, const void* from, std::uint32_t count) {
    OpenFile* file = opened(handle);
    if (!file) return -1;
    std::int64_t position = file->position.load(std::memory_order_relaxed);
    std::int32_t done = writeAt(handle, position, from, count);
    if (done > 0) file->position.store(position + done, std::memory_order_relaxed);
    return done;
}

std::int32_t LinuxFiles::readAt(std::int32_t handle, std::int64_t position, void* to, std::uint32_t count) {
    OpenFile* file = opened(handle);
    if (!file) return -1;
    if (!file->reads) return failed(-1, kAccessDenied);
    if (position < 0) return failed(-1, kInvalidParameter);
    ssize_t done = readFrom(file->descriptor(), position, to, count);
    return done >= 0 ? static_cast<std::int32_t>(done) : failedCall(-1);
}

std::int32_t LinuxFiles::writeAt(std::int32_t handle, std::int64_t position, const void* from, std::uint32_t count) {
    OpenFile* file = opened(handle);
    if (!file) return -1;
    if (!file->writes) return failed(-1, kAccessDenied);
    if (count == 0) return 0;
    if (position < 0 || position >= kLastPosition) return failed(-1, kInvalidParameter);
    int descriptor = file->descriptor();
    std::uint32_t wanted = allowed(position, count);
    std::uint32_t written = 0;
    // What falls short is tried on: the second call tells the reason.
    while (written < wanted) {
        ssize_t done =
            writeOnce(descriptor, position + written, static_cast<const char*>(from) + written, wanted - written);
        if (done <= 0) {
            setLastError(done < 0 ? systemErrorCode() : std::uint32_t{kDiskFull});
            return written != 0 ? static_cast<std::int32_t>(written) : -1;
        }
        written += static_cast<std::uint32_t>(done);
    }
    return static_cast<std::int32_t>(written);
}

std::int32_t LinuxFiles::seek(std::int32_t handle, std::int32_t offset, std::int32_t origin) {
    OpenFile* file = opened(handle);
    if (!file) return -1;
    std::int64_t base = 0;
    if (origin == kFromCurrent) {
        base = file->position.load(std::memory_order_relaxed);
    } else if (origin == kFromEnd) {
        base = size(handle);
        if (base < 0) return -1;
    } else if (origin != kFromStart) {
        return failed(-1, kInvalidParameter);
    }
    std::int64_t position = base + offset;
    if (position < 0) return failed(-1, kNegativeSeek);
    if (position > kLastPosition) return failed(-1, kInvalidParameter);
    file->position.store(position, std::memory_order_relaxed);
    return static_cast<std::int32_t>(position);
}

std::int64_t LinuxFiles::size(std::int32_t handle) {
    OpenFile* file = opened(handle);
    if (!file) return -1;
    // The descriptor's own position serves nothing else, and finding its end is what costs least.
    int descriptor = file->descriptor();
    off_t end = ::lseek(descriptor, 0, SEEK_END);
    if (end >= 0) return end;
    struct stat state;
    // What the system makes up while it is read has no end to go to.
    return errno == EINVAL && ::fstat(descriptor, &state) == 0 ? state.st_size : failedCall(off_t{-1});
}

bool LinuxFiles::truncate(std::int32_t handle) {
    OpenFile* file = opened(handle);
    if (!file) return false;
    if (!file->writes) return failed(false, kAccessDenied);
    long done = uninterrupted(
        [&] { return ::syscall(SYS_ftruncate, file->descriptor(), file->position.load(std::memory_order_relaxed)); });
    return done == 0 || failedCall(false);
}

bool LinuxFiles::flush(std::int32_t handle) {
    OpenFile* file = opened(handle);
    if (!file) return false;
    if (!file->writes) return failed(false, kAccessDenied);
    int descriptor = file->descriptor();
    // EINVAL is what a pipe or a terminal answers, which keep nothing back.
    return uninterrupted([&] { return ::fsync(descriptor); }) == 0 || errno == EINVAL || failedCall(false);
}

bool LinuxFiles::lock(std::int32_t handle, std::uint32_t offset, std::uint32_t length) {
    OpenFile* file = opened(handle);
    return file && file->locks.lock(file->descriptor(), offset, length);
}

bool LinuxFiles::unlock(std::int32_t handle, std::uint32_t offset, std::uint32_t length) {
    OpenFile* file = opened(handle);
    return file && file->locks.unlock(file->descriptor(), offset, length);
}

bool LinuxFiles::information(std::int32_t handle, FileInformation& information) {
    OpenFile* file = opened(handle);
    if (!file) return false;
    int descriptor = file->descriptor();
    FileInformation found;
    if (!readState(descriptor, found)) return failedCall(false);
    found.volumeSerial = volumeSerial();
    information = found;
    return true;
}

bool LinuxFiles::setTimes(std::int32_t handle, const FileTimes& times) {
    OpenFile* file = opened(handle);
    if (!file) return false;
    auto given = [](FileTime time) { return time == 0 ? timespec{0, UTIME_OMIT} : timespecOf(time); };
    timespec both[] = {given(times.accessed), given(times.written)};
    int descriptor = file->descriptor();
    bool mayBend = times.written != 0 && !isHeldEverywhere(times.written);
    struct stat before;
    struct stat after;
    if (mayBend && ::fstat(descriptor, &before) != 0) return failedCall(false);
    if (::futimens(descriptor, both) != 0) return failedCall(false);
    if (!mayBend) return true;
    bool held = ::fstat(descriptor, &after) == 0 &&
                isHeldAs(times.written, fileTimeOf(after.st_mtim.tv_sec, after.st_mtim.tv_nsec));
    if (held) return true;
    const timespec old[] = {before.st_atim, before.st_mtim};
    ::futimens(descriptor, old);
    return failed(false, kInvalidParameter);
}

}  // namespace

Files& systemFiles() { return linuxFiles; }

}  // namespace vx::platform
