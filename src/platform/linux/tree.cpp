// The tree of names on Linux: what Windows refuses is refused before the system is asked, which would often do it
// (deleting what is read-only or open, removing the current directory, renaming over what is there).
#include <cstdio>
#include <cstring>

#include "platform/linux/descriptor.h"
#include "platform/linux/file_state.h"
#include "platform/linux/last_error.h"
#include "platform/linux/moving.h"
#include "platform/linux/names.h"
#include "platform/linux/search.h"
#include "platform/linux/sharing.h"
#include "platform/platform.h"

namespace vx::platform {
namespace {

// The state of what has the name, a symbolic link's own. False, with the reason, if there is nothing.
bool find(SystemName& path, struct stat& state) {
    if (!path.valid()) return false;
    return callWith(path, [&](const char* text) { return ownState(text, state); }) == 0 || failedCall(false);
}

// Looks for a place for something new. False, with the reason, if the name is taken or its directory is missing.
bool findPlace(SystemName& path) {
    if (!path.valid()) return false;
    switch (path.look()) {
        case SystemName::Found::kThere:
            return failed(false, kAlreadyExists);
        case SystemName::Found::kNowhere:
            return failedCall(false);
        case SystemName::Found::kOnlyDirectory:
            break;
    }
    return true;
}

// Keeps others from opening a file until this goes out of scope. Refused, with the reason, while it is open.
class Hold {
 public:
    Hold(const char* path, const struct stat& state) {
        if (!S_ISREG(state.st_mode)) return;
        for (int attempt = 1;; ++attempt) {
            descriptor_ = Descriptor(openAnyhow(path));
            // What may not be opened is held by nobody that this could find.
            if (!descriptor_ || placeMarks(descriptor_.get(), kDeniesReading | kDeniesWriting)) return;
            if (attempt == kClaimAttempts) break;
            descriptor_.reset();
            pauseBetweenClaims();
        }
        refused_ = true;
        setLastError(kSharingViolation);
    }
    bool refused() const { return refused_; }

 private:
    static int openAnyhow(const char* path) {
        constexpr int kFlags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
        int descriptor = ::openat(AT_FDCWD, path, O_RDONLY | kFlags);
        return descriptor >= 0 || errno != EACCES ? descriptor : ::openat(AT_FDCWD, path, O_WRONLY | kFlags);
    }

    Descriptor descriptor_;
    bool refused_ = false;
};

// The name that a move gives: the one as it is written, also where that is the moved entry's own in another case.
bool findTarget(const char* name, const SystemName& from, SystemName& target) {
    if (!target.valid() || !target.makeAbsolute()) return false;
    char written[kPathSize];
    bool named = SystemName(name).splitLast(written);
    switch (target.look()) {
        case SystemName::Found::kOnlyDirectory:
            return true;
        case SystemName::Found::kNowhere:
            return failedCall(false);
        case SystemName::Found::kThere:
            break;
    }
    char found[kPathSize];
    if (!named || target.view() != from.view() || !target.splitLast(found)) return failed(false, kAlreadyExists);
    return target.add(written) || failed(false, kFilenameTooLong);
}

bool isCurrentDirectory(const struct stat& state) {
    struct stat current;
    return ::fstatat(AT_FDCWD, ".", &current, 0) == 0 && current.st_dev == state.st_dev &&
           current.st_ino == state.st_ino;
}

class LinuxTree final : public Tree {
 public:
    std::uint32_t attributes(const char* name) override;
    bool setAttributes(const char* name, std::uint32_t attributes) override;
    bool erase(const char* name) override;
    bool move(const char* from, const char* to) override;
    bool createDirectory(const char* name) override;
    bool removeDirectory(const char* name) override;
    std::uint32_t fullPath(const char* name, char* path, std::uint32_t room) override;
    std::int32_t findFirst(const char* pattern, FoundEntry& entry) override { return startSearch(pattern, entry); }
    bool findNext(std::int32_t search, FoundEntry& entry) override { return continueSearch(search, entry); }
    bool findClose(std::int32_t search) override { return endSearch(search); }
};

constinit LinuxTree linuxTree;

std::uint32_t LinuxTree::attributes(const char* name) {
    SystemName path(name);
    if (!path.valid()) return kNoAttributes;
    FileInformation information;
    auto read = [&](const char* text) { return readState(text, information) ? 0 : -1; };
    return callWith(path, read) == 0 ? information.attributes : failedCall(kNoAttributes);
}

bool LinuxTree::setAttributes(const char* name, std::uint32_t attributes) {
    SystemName path(name);
    if (!path.valid()) return false;
    auto write = [&](const char* text) { return writeAttributes(text, attributes) ? 0 : -1; };
    return callWith(path, write) == 0 || failedCall(false);
}

bool LinuxTree::erase(const char* name) {
    SystemName path(name);
    struct stat state;
    if (!find(path, state)) return false;
    bool isLink = S_ISLNK(state.st_mode);
    if (!isLink && (S_ISDIR(state.st_mode) || isReadOnly(state.st_mode))) return failed(false, kAccessDenied);
    Hold hold(path.text(), state);
    return !hold.refused() && (::unlinkat(AT_FDCWD, path.text(), 0) == 0 || failedCall(false));
}

bool LinuxTree::move(const char* from, const char* to) {
    SystemName path(from);
    struct stat state;
    if (!path.valid() || !path.makeAbsolute() || !find(path, state)) return false;
    SystemName target(to);
    if (!findTarget(to, path, target)) return false;
    if (target.view() == path.view()) return true;
    Hold hold(path.text(), state);
    return !hold.refused() && moveEntry(path.text(), state, target.text());
}

bool LinuxTree::createDirectory(const char* name) {
    SystemName path(name);
    if (!findPlace(path)) return false;
    return ::mkdirat(AT_FDCWD, path.text(), 0777) == 0 || failedCall(false);
}

bool LinuxTree::removeDirectory(const char* name) {
    SystemName path(name);
    struct stat state;
    if (!find(path, state)) return false;
    if (S_ISLNK(state.st_mode)) {
        struct stat target;
        bool leads = ::fstatat(AT_FDCWD, path.text(), &target, 0) == 0 && S_ISDIR(target.st_mode);
        if (!leads) return failed(false, kDirectory);
        return ::unlinkat(AT_FDCWD, path.text(), 0) == 0 || failedCall(false);
    }
    if (!S_ISDIR(state.st_mode)) return failed(false, kDirectory);
    if (isReadOnly(state.st_mode)) return failed(false, kAccessDenied);
    if (isCurrentDirectory(state)) return failed(false, kSharingViolation);
    return ::unlinkat(AT_FDCWD, path.text(), AT_REMOVEDIR) == 0 || failedCall(false);
}

// A matter of texts alone, so that also other drives and servers, and patterns, have full paths.
std::uint32_t LinuxTree::fullPath(const char* name, char* path, std::uint32_t room) {
    const char* rest = name ? name : "";
    Start start = takeStart(rest);
    char rooted[kPathSize + 1];
    if (start == Start::kOtherDrive) {
        std::snprintf(rooted, sizeof rooted, "\\%s", isSeparator(name[2]) ? name + 3 : name + 2);
    }
    const char* given = start == Start::kServer ? name + 1 : start == Start::kOtherDrive ? rooted : name;
    SystemName full(given, SystemName::AllowWildcards::kAnywhere);
    if (!full.valid() || !full.makeAbsolute()) return 0;
    char text[PATH_MAX + 4];
    std::size_t length = toDriveForm(full.view(), text, sizeof text - 1);
    if (length == 0) return failed(0u, kPathNotFound);
    char* begin = text;
    if (start == Start::kOtherDrive) begin[0] = name[0];
    if (start == Start::kServer) {
        begin += 1;
        begin[0] = '\\';
        --length;
    }
    if (full.asDirectory() && begin[length - 1] != '\\') begin[length++] = '\\';
    begin[length] = '\0';
    if (length >= room) return static_cast<std::uint32_t>(length + 1);
    std::memcpy(path, begin, length + 1);
    return static_cast<std::uint32_t>(length);
}

}  // namespace

Tree& systemTree() { return linuxTree; }

}  // namespace vx::platform
