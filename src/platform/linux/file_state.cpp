// A file that becomes read-only loses write permissions that differ from file to file; they are kept with it, in an
// extended attribute of the library's own, and given back when it becomes writable again. They count only as long as
// nobody has changed the permissions since.
#include "platform/linux/file_state.h"

#include <sys/statfs.h>
#include <sys/xattr.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/linux/descriptor.h"
#include "platform/linux/system_file.h"

namespace vx::platform {
namespace {

constexpr std::int64_t kNanosecondsPerStep = 100;

// Shared with the other programs that keep DOS attributes: a text like "0x22", more may follow.
constexpr char kAttributeName[] = "user.DOSATTRIB";
constexpr std::uint32_t kStored = kHidden | kSystem | kArchive;

// The library's own: the permissions, in octal digits, that a file had before it was made read-only.
constexpr char kPermissionsName[] = "user.vexlor32.permissions";
constexpr mode_t kPermissions = 0777;
constexpr mode_t kWritePermissions = 0222;

// A file, by what the system calls take: the calls come in pairs that differ in nothing else.
struct ByDescriptor {
    int descriptor;

    int state(struct statx& to) const {
        return ::statx(descriptor, "", AT_EMPTY_PATH, STATX_BASIC_STATS | STATX_BTIME, &to);
    }
    ssize_t get(const char* name, char* to, std::size_t room) const { return ::fgetxattr(descriptor, name, to, room); }
    int set(const char* name, std::string_view value) const {
        return ::fsetxattr(descriptor, name, value.data(), value.size(), 0);
    }
    int remove(const char* name) const { return ::fremovexattr(descriptor, name); }
    int changeMode(mode_t mode) const { return ::fchmod(descriptor, mode); }
};

struct ByPath {
    const char* path;

    int state(struct statx& to) const { return ::statx(AT_FDCWD, path, 0, STATX_BASIC_STATS | STATX_BTIME, &to); }
    ssize_t get(const char* name, char* to, std::size_t room) const { return ::getxattr(path, name, to, room); }
    int set(const char* name, std::string_view value) const {
        return ::setxattr(path, name, value.data(), value.size(), 0);
    }
    int remove(const char* name) const { return ::removexattr(path, name); }
    int changeMode(mode_t mode) const { return ::chmod(path, mode); }
};

FileTime fileTimeOf(const statx_timestamp& stamp) { return platform::fileTimeOf(stamp.tv_sec, stamp.tv_nsec); }

std::uint32_t withoutStored(mode_t mode) { return S_ISDIR(mode) ? 0u : kArchive; }

template <typename File>
std::uint32_t storedAttributes(const File& file, mode_t mode) {
    char text[64];
    ssize_t size = S_ISDIR(mode) || S_ISREG(mode) ? file.get(kAttributeName, text, sizeof text) : -1;
    if (size < 0) return withoutStored(mode);
    std::string_view value(text, static_cast<std::size_t>(size));
    std::uint32_t bits = 0;
    if (!value.starts_with("0x")) return withoutStored(mode);
    if (std::from_chars(text + 2, text + size, bits, 16).ec != std::errc()) return withoutStored(mode);
    return bits & kStored;
}

template <typename File>
void fill(const File& file, const struct statx& state, FileInformation& information) {
    mode_t mode = state.stx_mode;
    std::uint32_t attributes = storedAttributes(file, mode);
    if (isReadOnly(mode)) attributes |= kReadOnly;
    if (S_ISDIR(mode)) attributes |= kDirectoryEntry;
    information.attributes = attributes != 0 ? attributes : std::uint32_t{kNormal};

    FileTimes& times = information.times;
    times.accessed = fileTimeOf(state.stx_atime);
    times.written = fileTimeOf(state.stx_mtime);
    times.created = state.stx_mask & STATX_BTIME ? fileTimeOf(state.stx_btime)
                                                 : std::min(times.written, fileTimeOf(state.stx_ctime));
    information.size = S_ISDIR(mode) ? 0 : state.stx_size;
    information.identity = {(std::uint64_t{state.stx_dev_major} << 32) | state.stx_dev_minor, state.stx_ino};
}

// What a file may be written by again after it was read-only: who reads it, as far as new files allow.
mode_t writable(mode_t mode, mode_t mask) {
    mode_t readers = mode & 0044;
    return mode | S_IWUSR | ((readers >> 1) & ~mask);
}

// Asking umask itself would change it for the other threads meanwhile.
mode_t newFileMask() {
    constexpr std::string_view kKey = "Umask:\t";
    std::string status = systemFile("/proc/self/status");
    std::size_t found = status.find(kKey);
    unsigned mask = 022;
    if (found != std::string::npos) {
        std::from_chars(status.data() + found + kKey.size(), status.data() + status.size(), mask, 8);
    }
    return mask;
}

template <typename File>
bool store(const File& file, mode_t mode, const char* name, std::string_view value) {
    if (file.set(name, value) == 0) return true;
    if (errno != EACCES || (mode & S_IWUSR)) return false;
    // The owner of a read-only file may change its attributes on Windows; here only while it can be written.
    if (file.changeMode(mode | S_IWUSR) != 0) return false;
    bool done = file.set(name, value) == 0;
    KeptErrno kept;
    file.changeMode(mode);
    return done;
}

template <typename File>
bool storeAttributes(const File& file, mode_t mode, std::uint32_t attributes) {
    char text[16];
    int size = std::snprintf(text, sizeof text, "0x%x", attributes & kStored);
    return store(file, mode, kAttributeName, {text, static_cast<std::size_t>(size)});
}

// The permissions are remembered with the file where its system can do so.
template <typename File>
bool protect(const File& file, mode_t mode) {
    char text[16];
    int size = std::snprintf(text, sizeof text, "%o", mode & kPermissions);
    bool remembered = store(file, mode, kPermissionsName, {text, static_cast<std::size_t>(size)});
    if (file.changeMode(mode & ~kWritePermissions) == 0) return true;
    KeptErrno kept;
    if (remembered) file.remove(kPermissionsName);
    return false;
}

// 0 if they are not known, or others than these were made of them since.
template <typename File>
mode_t rememberedPermissions(const File& file, mode_t mode) {
    char text[16];
    ssize_t size = file.get(kPermissionsName, text, sizeof text);
    unsigned before = 0;
    if (size <= 0 || std::from_chars(text, text + size, before, 8).ec != std::errc()) return 0;
    return (before & ~kWritePermissions) == (mode & kPermissions) ? before : 0;
}

template <typename File>
bool unprotect(const File& file, mode_t mode) {
    mode_t before = rememberedPermissions(file, mode);
    if (file.changeMode(before != 0 ? mode | before : writable(mode, newFileMask())) != 0) return false;
    file.remove(kPermissionsName);
    return true;
}

template <typename File>
bool write(const File& file, std::uint32_t attributes) {
    struct statx state;
    if (file.state(state) != 0) return false;
    mode_t mode = state.stx_mode & 07777;
    if (storedAttributes(file, state.stx_mode) != (attributes & kStored)) {
        if (!storeAttributes(file, mode, attributes)) return false;
    }
    bool readOnly = (attributes & kReadOnly) != 0;
    if (readOnly == isReadOnly(mode)) return true;
    return readOnly ? protect(file, mode) : unprotect(file, mode);
}

std::uint32_t serialOf(const struct statfs& system) {
    std::uint32_t halves[2];
    static_assert(sizeof halves == sizeof system.f_fsid);
    std::memcpy(halves, &system.f_fsid, sizeof halves);
    std::uint32_t serial = halves[0] ^ halves[1];
    return serial != 0 ? serial : static_cast<std::uint32_t>(system.f_type) | 1;
}

}  // namespace

FileTime fileTimeOf(std::int64_t seconds, std::int64_t nanoseconds) {
    if (seconds < -kSecondsTo1970) return 0;
    return static_cast<FileTime>(seconds + kSecondsTo1970) * kStepsPerSecond +
           static_cast<FileTime>(nanoseconds / kNanosecondsPerStep);
}

timespec timespecOf(FileTime time) {
    return {.tv_sec = static_cast<time_t>(time / kStepsPerSecond) - kSecondsTo1970,
            .tv_nsec = static_cast<long>(time % kStepsPerSecond * kNanosecondsPerStep)};
}

bool readState(int descriptor, FileInformation& information) {
    struct statx state;
    ByDescriptor file{descriptor};
    if (file.state(state) != 0) return false;
    fill(file, state, information);
    return true;
}

bool readState(const char* path, FileInformation& information) {
    struct statx own;
    if (::statx(AT_FDCWD, path, AT_SYMLINK_NOFOLLOW, STATX_BASIC_STATS | STATX_BTIME, &own) != 0) return false;
    ByPath file{path};
    struct statx target;
    bool isLink = S_ISLNK(own.stx_mode);
    fill(file, isLink && file.state(target) == 0 ? target : own, information);
    if (isLink) information.attributes = (information.attributes & ~std::uint32_t{kNormal}) | kLink;
    return true;
}

bool writeAttributes(int descriptor, std::uint32_t attributes) { return write(ByDescriptor{descriptor}, attributes); }
bool writeAttributes(const char* path, std::uint32_t attributes) { return write(ByPath{path}, attributes); }

void copyRememberedPermissions(int from, int to) {
    char text[16];
    ssize_t size = ::fgetxattr(from, kPermissionsName, text, sizeof text);
    if (size > 0) ::fsetxattr(to, kPermissionsName, text, static_cast<std::size_t>(size), 0);
}

std::uint32_t volumeSerial() {
    struct statfs system;
    return ::statfs("/", &system) == 0 ? serialOf(system) : 1;
}

}  // namespace vx::platform
