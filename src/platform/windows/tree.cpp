// The tree of names on Windows: the calls that the interface is named after, and numbers for searches.
#include <windows.h>

#include <cstring>

#include "platform/platform.h"
#include "platform/registry.h"

namespace vx::platform {
namespace {

static_assert(sizeof(FoundEntry) == sizeof(WIN32_FIND_DATAA));
static_assert(offsetof(FoundEntry, name) == offsetof(WIN32_FIND_DATAA, cFileName));
static_assert(offsetof(FoundEntry, shortName) == offsetof(WIN32_FIND_DATAA, cAlternateFileName));

WIN32_FIND_DATAA* record(FoundEntry& entry) { return reinterpret_cast<WIN32_FIND_DATAA*>(&entry); }

// A character that the code page lacks comes back as a question mark, which is in no name and would match others.
bool canBeGivenBack(const FoundEntry& entry) { return std::strchr(entry.name, '?') == nullptr; }

bool isDirectoryLink(std::uint32_t attributes) {
    return attributes != kNoAttributes && (attributes & kLink) && (attributes & kDirectoryEntry);
}

class WindowsTree final : public Tree {
 public:
    std::uint32_t attributes(const char* name) override { return GetFileAttributesA(name); }
    bool setAttributes(const char* name, std::uint32_t attributes) override {
        return SetFileAttributesA(name, attributes);
    }

    bool erase(const char* name) override {
        return isDirectoryLink(GetFileAttributesA(name)) ? RemoveDirectoryA(name) : DeleteFileA(name);
    }
    bool move(const char* from, const char* to) override { return MoveFileA(from, to); }
    bool createDirectory(const char* name) override { return CreateDirectoryA(name, nullptr); }
    bool removeDirectory(const char* name) override { return RemoveDirectoryA(name); }

    std::uint32_t fullPath(const char* name, char* path, std::uint32_t room) override {
        return GetFullPathNameA(name, room, path, nullptr);
    }

    std::int32_t findFirst(const char* pattern, FoundEntry& entry) override {
        HANDLE search = FindFirstFileA(pattern, record(entry));
        if (search == INVALID_HANDLE_VALUE) return -1;
        bool found = canBeGivenBack(entry) || goOn(search, entry);
        DWORD reason = GetLastError();
        std::int32_t number = found ? searches_.add([&](HANDLE& slot) { slot = search; }) : 0;
        if (number != 0) return number;
        FindClose(search);
        bool nothing = !found && reason == ERROR_NO_MORE_FILES;
        SetLastError(found ? ERROR_TOO_MANY_OPEN_FILES : nothing ? ERROR_FILE_NOT_FOUND : reason);
        return -1;
    }

    bool findNext(std::int32_t search, FoundEntry& entry) override {
        HANDLE* found = searches_.find(search);
        return found ? goOn(*found, entry) : refuse();
    }

    bool findClose(std::int32_t search) override {
        bool closed = false;
        bool known = searches_.remove(search, [&](HANDLE& slot) { closed = FindClose(slot); });
        return known ? closed : refuse();
    }

 private:
    static bool goOn(HANDLE search, FoundEntry& entry) {
        while (FindNextFileA(search, record(entry))) {
            if (canBeGivenBack(entry)) return true;
        }
        return false;
    }
    static bool refuse() {
        SetLastError(ERROR_INVALID_HANDLE);
        return false;
    }

    // For the system a search handle is an address, which it follows wherever it leads, and in 64-bit processes wider
    // than a number.
    Registry<HANDLE> searches_;
};

constinit WindowsTree windowsTree;

}  // namespace

Tree& systemTree() { return windowsTree; }

}  // namespace vx::platform
