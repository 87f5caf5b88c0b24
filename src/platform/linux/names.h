// Names in drive form, and what the system has under them.
//
// A name is turned into a path of Linux by its text alone; `.` and `..` are worked out before any link is followed, as
// Windows does. The system is then asked for the path as it is written, which as a rule is all: one call, no directory
// read. Only where nothing is there, each component that is missing is looked for in its directory, in any letter case,
// without dots and blanks at its end, and as a short name (callWith, look).
#pragma once

#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/linux/descriptor.h"
#include "platform/tree.h"

namespace vx::platform {

inline char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
inline char raised(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }
inline bool isSeparator(char c) { return c == '\\' || c == '/'; }

// Windows drops blanks and dots at the end of a name.
std::string_view withoutEnd(std::string_view name);

// What a name begins with.
enum class Start {
    kRoot,
    kCurrentDirectory,
    kOtherDrive,
    kServer,
};

// Takes the drive and the separators behind it off the name. Another drive stays.
Start takeStart(const char*& name);

// Takes the next component off the name; an empty one at its end. Separators behind it go, too.
std::string_view takeComponent(const char*& name);

// A name for the system's calls. `.` and `..` are worked out by the text alone, as Windows does.
class SystemName {
 public:
    enum class AllowWildcards { kNowhere, kInLast, kAnywhere };
    enum class Found {
        kThere,
        kOnlyDirectory,  // the last component is missing; the text names what could be made
        kNowhere,
    };

    explicit SystemName(const char* name, AllowWildcards wildcards = AllowWildcards::kNowhere);

    // False, with the reason as last error, if nothing can have that name.
    bool valid() const { return valid_; }

    // As it was written, until `look` has found it under another name.
    const char* text() const { return text_; }
    std::string_view view() const { return {text_, length_}; }

    // A separator was behind the last component.
    bool asDirectory() const { return asDirectory_; }

    // The same where something else than a directory is: on Windows nothing has such a name.
    bool falselyAsDirectory() const;

    // Puts the current directory in front. False, with the reason, if that cannot be told.
    bool makeAbsolute();

    // Takes off the last component and puts it at `last`; the text then names its directory. False if there is none.
    bool splitLast(char (&last)[kPathSize]);

    // Goes on below; false if that is too long.
    bool add(std::string_view component);

    // Looks for what has that name: as it is written, then in any case, then as a short name. errno says what is
    // missing: ENOENT the last component, ENOTDIR what leads to it.
    Found look();

    // The same when it is known that nothing is there as it is written.
    Found lookFurther();

 private:
    void removeLast();
    bool addRest(const char* name, AllowWildcards wildcards);
    Found findLast();

    bool valid_ = false;
    bool asDirectory_ = false;
    std::size_t length_ = 0;
    char text_[PATH_MAX];
};

inline bool isMissing(int error) { return error == ENOENT || error == ENOTDIR; }

// Runs a system call that takes a name: with the name as it is written, and if that is not there, with what `look`
// finds. Below 0, with errno set, is failure.
template <typename Call>
auto callWith(SystemName& name, Call call) -> decltype(call(name.text())) {
    auto attempt = [&]() -> decltype(call(name.text())) {
        if (!name.falselyAsDirectory()) return uninterrupted([&] { return call(name.text()); });
        errno = ENOTDIR;
        return -1;
    };
    auto result = attempt();
    if (result >= 0 || !isMissing(errno) || name.lookFurther() != SystemName::Found::kThere) return result;
    return attempt();
}

// The system's absolute path in drive form. The length; 0, and nothing written, if it does not fit or cannot be given
// back exactly.
std::size_t toDriveForm(std::string_view path, char* to, std::size_t room);

}  // namespace vx::platform
