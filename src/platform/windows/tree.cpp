// The tree of names on Windows.
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <new>
#include <vector>

#include "platform/platform.h"

namespace vx::platform {
namespace {

static_assert(sizeof(FoundEntry) == sizeof(WIN32_FIND_DATAA));
static_assert(offsetof(FoundEntry, name) == offsetof(WIN32_FIND_DATAA, cFileName));
static_assert(offsetof(FoundEntry, shortName) == offsetof(WIN32_FIND_DATAA, cAlternateFileName));

WIN32_FIND_DATAA* record(FoundEntry& entry) { return reinterpret_cast<WIN32_FIND_DATAA*>(&entry); }

HANDLE handleOf(std::int32_t search) { return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(search)); }

// A character that the code page lacks comes back as a question mark, which is in no name and would match others.
bool canBeGivenBack(const FoundEntry& entry) { return std::strchr(entry.name, '?') == nullptr; }

bool isDirectoryLink(std::uint32_t attributes) {
    return attributes != kNoAttributes && (attributes & kLink) && (attributes & kDirectoryEntry);
}

// The searches that are open. For the system a search handle is an address, which it follows wherever it leads: one
// that comes out of a caller's memory must be one of these.
class OpenSearches {
 public:
    bool add(HANDLE search) {
        std::lock_guard lock(changing_);
        try {
            open_.push_back(search);
        } catch (const std::bad_alloc&) {
            return false;
        }
        return true;
    }
    bool contains(HANDLE search) {
        std::lock_guard lock(changing_);
        return std::find(open_.begin(), open_.end(), search) != open_.end();
    }
    bool remove(HANDLE search) {
        std::lock_guard lock(changing_);
        auto found = std::find(open_.begin(), open_.end(), search);
        if (found == open_.end()) return false;
        open_.erase(found);
        return true;
    }

 private:
    std::mutex changing_;
    std::vector<HANDLE> open_;
};

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
        if (found && open_.add(search)) return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(search));
        FindClose(search);
        bool nothing = !found && reason == ERROR_NO_MORE_FILES;
        SetLastError(found ? ERROR_NOT_ENOUGH_MEMORY : nothing ? ERROR_FILE_NOT_FOUND : reason);
        return -1;
    }

    bool findNext(std::int32_t search, FoundEntry& entry) override {
        return open_.contains(handleOf(search)) ? goOn(handleOf(search), entry) : refuse();
    }

    bool findClose(std::int32_t search) override {
        return open_.remove(handleOf(search)) ? FindClose(handleOf(search)) : refuse();
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

    OpenSearches open_;
};

WindowsTree tree;

}  // namespace

Tree& systemTree() { return tree; }

}  // namespace vx::platform
