#include "platform/linux/names.h"

#include <algorithm>
#include <cstring>

#include "platform/linux/directory_reader.h"
#include "platform/linux/file_state.h"
#include "platform/linux/last_error.h"
#include "platform/linux/short_names.h"
#include "platform/linux/wildcards.h"

namespace vx::platform {
namespace {

bool isLetter(char c) { return lowered(c) >= 'a' && lowered(c) <= 'z'; }

bool isThere(const char* path) {
    struct stat state;
    return ownState(path, state) == 0;
}

bool sameButForCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lowered(x) == lowered(y); });
}

// How well an entry of a directory answers to a name, the best last.
enum class Match { kNone, kShortName, kWithoutEnd, kCase, kExact };

Match matchOf(std::string_view wanted, std::string_view name, bool byShortName) {
    if (sameButForCase(wanted, name)) return wanted == name ? Match::kExact : Match::kCase;
    if (sameButForCase(withoutEnd(wanted), name)) return Match::kWithoutEnd;
    if (!byShortName) return Match::kNone;
    char shortName[kShortNameSize];
    shortNameOf(name, shortName);
    return sameButForCase(wanted, shortName) ? Match::kShortName : Match::kNone;
}

}  // namespace

std::string_view withoutEnd(std::string_view name) {
    while (name.ends_with('.') || name.ends_with(' ')) name.remove_suffix(1);
    return name;
}

Start takeStart(const char*& name) {
    if (isSeparator(name[0]) && isSeparator(name[1])) return Start::kServer;
    if (isLetter(name[0]) && name[1] == ':') {
        if (raised(name[0]) != 'C') return Start::kOtherDrive;
        name += 2;
    }
    if (!isSeparator(*name)) return Start::kCurrentDirectory;
    while (isSeparator(*name)) ++name;
    return Start::kRoot;
}

std::string_view takeComponent(const char*& name) {
    const char* start = name;
    while (*name && !isSeparator(*name)) ++name;
    std::string_view component(start, static_cast<std::size_t>(name - start));
    while (isSeparator(*name)) ++name;
    return component;
}

SystemName::SystemName(const char* name, AllowWildcards wildcards) {
    text_[0] = '\0';
    std::size_t length = name ? std::strlen(name) : 0;
    if (length == 0 || length >= kPathSize) {
        setLastError(length == 0 ? kPathNotFound : kFilenameTooLong);
        return;
    }
    switch (takeStart(name)) {
        case Start::kServer:
            setLastError(kBadNetPath);
            return;
        case Start::kOtherDrive:
            setLastError(kPathNotFound);
            return;
        case Start::kRoot:
            text_[0] = '/';
            length_ = 1;
            break;
        case Start::kCurrentDirectory:
            break;
    }
    valid_ = addRest(name, wildcards);
    if (!valid_) setLastError(kInvalidName);
    if (length_ == 0) text_[length_++] = '.';
    text_[length_] = '\0';
}

bool SystemName::addRest(const char* name, AllowWildcards wildcards) {
    while (*name) {
        std::string_view component = takeComponent(name);
        asDirectory_ = isSeparator(name[-1]);
        bool isLast = !*name && !asDirectory_;
        bool mayBeWild = wildcards == AllowWildcards::kAnywhere || (wildcards == AllowWildcards::kInLast && isLast);
        if (!mayBeWild && hasWildcards(component)) return false;
        if (component == "..") {
            removeLast();
        } else if (component != "." && !add(component)) {
            return false;
        }
    }
    return true;
}

bool SystemName::falselyAsDirectory() const {
    struct stat state;
    return asDirectory_ && ::fstatat(AT_FDCWD, text_, &state, 0) == 0 && !S_ISDIR(state.st_mode);
}

bool SystemName::add(std::string_view component) {
    if (length_ + component.size() + 2 > sizeof text_) return false;
    if (length_ != 0 && text_[length_ - 1] != '/') text_[length_++] = '/';
    std::memcpy(text_ + length_, component.data(), component.size());
    length_ += component.size();
    text_[length_] = '\0';
    return true;
}

// Nothing is above the root; above the current directory only its own `..` leads.
void SystemName::removeLast() {
    std::string_view path = view();
    if (path == "/") return;
    if (path.empty() || path == ".." || path.ends_with("/..")) {
        add("..");
        return;
    }
    std::size_t slash = path.rfind('/');
    length_ = slash == std::string_view::npos ? 0 : std::max<std::size_t>(slash, 1);
}

bool SystemName::makeAbsolute() {
    if (text_[0] == '/') return true;
    char written[kPathSize];
    std::memcpy(written, text_, length_ + 1);
    if (::syscall(SYS_getcwd, text_, sizeof text_) < 0 || text_[0] != '/') return failed(false, kPathNotFound);
    length_ = std::strlen(text_);
    bool kept = asDirectory_;  // addRest tells it of the part that it adds
    bool done = addRest(written, AllowWildcards::kAnywhere);
    asDirectory_ = kept;
    return done || failed(false, kFilenameTooLong);
}

bool SystemName::splitLast(char (&last)[kPathSize]) {
    std::string_view path = view();
    std::size_t slash = path.rfind('/');
    std::string_view component = path.substr(slash + 1);
    if (component.empty() || component == "." || component == ".." || component.size() >= kPathSize) return false;
    std::memcpy(last, component.data(), component.size());
    last[component.size()] = '\0';
    length_ = slash == std::string_view::npos ? 0 : std::max<std::size_t>(slash, 1);
    if (length_ == 0) text_[length_++] = '.';
    text_[length_] = '\0';
    return true;
}

SystemName::Found SystemName::look() {
    if (isThere(text_)) return Found::kThere;
    return isMissing(errno) ? lookFurther() : Found::kNowhere;
}

// Component by component from the start: what is there as written stays, the others are replaced by what answers to
// them.
SystemName::Found SystemName::lookFurther() {
    // As a rule no more than the last component is missing.
    Found found = findLast();
    if (found != Found::kNowhere) return found;
    char written[sizeof text_];
    std::memcpy(written, text_, length_ + 1);
    const char* rest = written;
    length_ = 0;
    if (*rest == '/') text_[length_++] = *rest++;
    while (*rest) {
        std::string_view component = takeComponent(rest);
        if (!add(component)) {
            errno = ENAMETOOLONG;
            return Found::kNowhere;
        }
        if (isThere(text_)) continue;
        found = findLast();
        if (found == Found::kThere) continue;
        if (*rest == '\0' && found == Found::kOnlyDirectory) return found;
        errno = ENOTDIR;
        return Found::kNowhere;
    }
    return Found::kThere;
}

// Replaces the last component by the entry of its directory that answers to it best, the first in byte order of
// several.
SystemName::Found SystemName::findLast() {
    std::size_t slash = view().rfind('/');
    std::size_t start = slash == std::string_view::npos ? 0 : slash + 1;
    char wanted[kPathSize];
    std::memcpy(wanted, text_ + start, length_ - start + 1);

    // Cut for a moment to what names the directory.
    text_[start] = '\0';
    DirectoryReader directory(openDirectory(start == 0 ? "." : text_));
    std::memcpy(text_ + start, wanted, length_ - start + 1);
    if (!directory && isMissing(errno)) return Found::kNowhere;

    // In a directory that may not be read, only what is written counts.
    bool byShortName = mayBeShortName(wanted);
    Match best = Match::kNone;
    char found[NAME_MAX + 1];
    while (const char* name = directory.next()) {
        Match match = matchOf(wanted, name, byShortName);
        if (match == Match::kNone || match < best) continue;
        if (match == best && std::string_view(name) >= found) continue;
        best = match;
        std::memcpy(found, name, std::strlen(name) + 1);
    }
    errno = ENOENT;
    if (best == Match::kNone) return Found::kOnlyDirectory;
    length_ = start;
    if (add(found)) return Found::kThere;
    errno = ENAMETOOLONG;
    return Found::kNowhere;
}

std::size_t toDriveForm(std::string_view path, char* to, std::size_t room) {
    if (path.empty() || path[0] != '/' || path.size() + 3 > room || path.find('\\') != std::string_view::npos) return 0;
    std::memcpy(to, "C:", 2);
    std::replace_copy(path.begin(), path.end(), to + 2, '/', '\\');
    to[2 + path.size()] = '\0';
    return 2 + path.size();
}

}  // namespace vx::platform
