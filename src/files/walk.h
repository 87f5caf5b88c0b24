// Walking through trees of directories: one platform search at a time, and the path where the walk stands.
#pragma once

#include <cstring>
#include <string_view>

#include "files/handles.h"
#include "files/path.h"
#include "platform/errors.h"
#include "platform/platform.h"

namespace vx {

inline bool isDirectory(const platform::FoundEntry& entry) { return entry.attributes & platform::kDirectoryEntry; }

// The entries "." and "..": every directory has them, and no walk goes there.
inline bool isDots(std::string_view name) { return name == "." || name == ".."; }

inline bool isSubdirectory(const platform::FoundEntry& entry) { return isDirectory(entry) && !isDots(entry.name); }

// The platform's search for one pattern, closed when this ends; the last error stays that of the search.
class DirectorySearch {
 public:
    explicit DirectorySearch(const char* pattern)
        : handle_(platform::tree().findFirst(pattern, entry_)), found_(handle_ != -1) {
        noteEnd();
    }
    ~DirectorySearch() {
        KeptError reason;
        if (handle_ != -1) platform::tree().findClose(handle_);
    }
    DirectorySearch(const DirectorySearch&) = delete;
    DirectorySearch& operator=(const DirectorySearch&) = delete;

    // Whether there is an entry; next() goes to the one behind it.
    bool found() const { return found_; }
    const platform::FoundEntry& entry() const { return entry_; }
    void next() {
        found_ = platform::tree().findNext(handle_, entry_);
        noteEnd();
    }

    // False if entries may be missing: the search came to its end by a failure.
    bool sawAll() const { return sawAll_; }

 private:
    static platform::Tree& tree() { return platform::tree(); }

    void noteEnd() {
        if (found_) return;
        std::uint32_t code = platform::process().lastError();
        bool nothing = code == platform::kFileNotFound || code == platform::kPathNotFound;
        sawAll_ = code == platform::kNoMoreFiles || (nothing && handle_ == -1);
    }

    platform::FoundEntry entry_;
    std::int32_t handle_;
    bool found_;
    bool sawAll_ = true;
};

// A path that grows and shrinks with the walk, and is never longer than the platform takes.
class WalkPath {
 public:
    const char* text() const { return text_; }
    std::string_view view() const { return {text_, size_}; }
    std::size_t size() const { return size_; }

    // False, and nothing changes, if it would become too long.
    bool append(std::string_view piece) {
        if (piece.size() >= sizeof text_ - size_) return false;
        std::memcpy(text_ + size_, piece.data(), piece.size());
        cut(size_ + piece.size());
        return true;
    }
    bool appendDirectory(std::string_view name) {
        std::size_t before = size_;
        if (append(name) && append("\\")) return true;
        cut(before);
        return false;
    }
    void cut(std::size_t size) {
        size_ = size;
        text_[size] = '\0';
    }

 private:
    char text_[platform::kPathSize] = "";
    std::size_t size_ = 0;
};

}  // namespace vx
