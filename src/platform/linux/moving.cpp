#include "platform/linux/moving.h"

#include <climits>
#include <cstdio>
#include <memory>
#include <new>

#include "platform/linux/descriptor.h"
#include "platform/linux/file_state.h"
#include "platform/linux/last_error.h"

namespace vx::platform {
namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 16;

bool remove(const char* path) { return ::unlinkat(AT_FDCWD, path, 0) == 0 || failedCall(false); }

// Ends a move that has made the target. If the source stays, the target goes.
bool removeSource(const char* from, const char* to) {
    if (remove(from)) return true;
    std::uint32_t reason = lastError();
    remove(to);
    return failed(false, reason);
}

// False, with errno, on failure.
bool copyContent(int from, int to) {
    ssize_t done;
    do {
        done = ::copy_file_range(from, nullptr, to, nullptr, std::size_t{1} << 30, 0);
    } while (done > 0);
    if (done == 0) return true;
    std::unique_ptr<char[]> block(new (std::nothrow) char[kBlockSize]);
    if (!block) {
        errno = ENOMEM;
        return false;
    }
    // On from where the faster way ended: both share the files' positions.
    while ((done = uninterrupted([&] { return ::read(from, block.get(), kBlockSize); })) > 0) {
        if (!writeAll(to, {block.get(), static_cast<std::size_t>(done)})) return false;
    }
    return done == 0;
}

// Owner and attributes as far as the other file system and the rights go; the times have to be kept.
bool copyState(int from, const struct stat& state, int to) {
    FileInformation information;
    if (!readState(from, information)) return false;
    bool owned = ::fchown(to, state.st_uid, state.st_gid) == 0;
    if (!owned && errno != EPERM && errno != EINVAL) return false;
    writeAttributes(to, information.attributes & ~std::uint32_t{kReadOnly});
    if (information.attributes & kReadOnly) copyRememberedPermissions(from, to);
    ::fchmod(to, state.st_mode & (owned ? 07777 : 01777));  // no program runs as an owner that it did not have
    timespec times[] = {state.st_atim, state.st_mtim};
    return ::futimens(to, times) == 0;
}

bool copyFile(const char* from, const char* to) {
    Descriptor source(::openat(AT_FDCWD, from, O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    struct stat state;
    if (!source || ::fstat(source.get(), &state) != 0) return failed(false, systemErrorCode());
    Descriptor target(::openat(AT_FDCWD, to, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!target) return failed(false, systemErrorCode());
    bool done = copyContent(source.get(), target.get()) && copyState(source.get(), state, target.get()) &&
                ::fsync(target.get()) == 0;
    if (done) return true;
    std::uint32_t reason = systemErrorCode();
    remove(to);
    return failed(false, reason);
}

bool copyLink(const char* from, const char* to) {
    char target[PATH_MAX];
    ssize_t length = ::readlinkat(AT_FDCWD, from, target, sizeof target - 1);
    if (length < 0) return failed(false, systemErrorCode());
    target[length] = '\0';
    return ::symlinkat(target, AT_FDCWD, to) == 0 || failedCall(false);
}

bool moveToOtherSystem(const char* from, const struct stat& state, const char* to) {
    bool isLink = S_ISLNK(state.st_mode);
    if (!isLink && !S_ISREG(state.st_mode)) return failed(false, kAccessDenied);
    if (!(isLink ? copyLink(from, to) : copyFile(from, to))) return false;
    return removeSource(from, to);
}

// For file systems that cannot rename without replacing: a second name is refused where there is one already.
bool moveByLink(const char* from, const struct stat& state, const char* to) {
    if (!S_ISDIR(state.st_mode)) {
        if (::linkat(AT_FDCWD, from, AT_FDCWD, to, 0) == 0) return removeSource(from, to);
        if (errno == EEXIST) return failed(false, kAlreadyExists);
    }
    struct stat taken;
    if (ownState(to, taken) == 0) return failed(false, kAlreadyExists);
    if (::renameat(AT_FDCWD, from, AT_FDCWD, to) == 0) return true;
    // A directory into itself.
    return failed(false, errno == EINVAL ? std::uint32_t{kAccessDenied} : systemErrorCode());
}

}  // namespace

bool moveEntry(const char* from, const struct stat& state, const char* to) {
    if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0) return true;
    switch (errno) {
        case EXDEV:
            return moveToOtherSystem(from, state, to);
        case EINVAL:
        case ENOSYS:
            return moveByLink(from, state, to);
        default:
            return failed(false, systemErrorCode());
    }
}

}  // namespace vx::platform
