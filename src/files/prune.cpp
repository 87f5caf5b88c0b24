// Deleting by patterns and by trees of directories.
//
// What is deleted is never more than what was named: every path that is handed to the platform's deletion is an exact
// one (exact_path.h); names that were found never go through a list of patterns; links are never followed.
#include <algorithm>

#include "entries/filesearch.h"
#include "files/drive_root.h"
#include "files/exact_path.h"
#include "files/filesearch.h"
#include "files/list.h"
#include "files/walk.h"
#include "platform/errors.h"
#include "platform/platform.h"

namespace vx {
namespace {

using platform::FoundEntry;

std::int32_t result(bool good) { return good ? 0 : -1; }

// What both walks share: the directory where they are, and what they do with its entries.
class TreeWalk {
 protected:
    enum class Place { kDirectory, kLink, kNothing, kUnknown };

    explicit TreeWalk(const WalkPath& top) : path_(top) {}

    bool isRoot() const { return path_.size() <= kRootSize; }

    // The directory's path without a separator behind it, but for a root.
    const char* directory() {
        if (!isRoot()) path_.cut(path_.size() - 1);
        return path_.text();
    }
    void reenter(std::size_t here) {
        path_.cut(here - 1);
        path_.append("\\");
    }

    // What is there now, which need not be what a search has found.
    Place place() {
        std::size_t here = path_.size();
        std::uint32_t attributes = platform::tree().attributes(directory());
        bool exact = attributes == platform::kNoAttributes || isTakenAs(path_.text(), path_.view());
        reenter(here);
        if (!exact) return Place::kUnknown;
        if (attributes == platform::kNoAttributes) {
            std::uint32_t code = platform::process().lastError();
            bool gone = code == platform::kFileNotFound || code == platform::kPathNotFound;
            return gone ? Place::kNothing : Place::kUnknown;
        }
        if (!(attributes & platform::kDirectoryEntry)) return Place::kNothing;
        return attributes & platform::kLink ? Place::kLink : Place::kDirectory;
    }

    // Calls visit for every entry that matches; false if entries may have been missed.
    template <class Visit>
    bool each(std::string_view pattern, Visit visit) {
        std::size_t here = path_.size();
        if (!path_.append(pattern)) return false;
        DirectorySearch search(path_.text());
        path_.cut(here);
        for (; search.found(); search.next()) {
            visit(search.entry());
            path_.cut(here);
        }
        return search.sawAll();
    }

    // Calls visit in every subdirectory, links among them; with false for one whose path cannot be used.
    template <class Visit>
    bool eachSubdirectory(Visit visit) {
        return each("*.*", [&](const FoundEntry& entry) {
            if (!isSubdirectory(entry)) return;
            visit(entry, isPlainName(entry.name) && path_.appendDirectory(entry.name));
        });
    }

    // The normal and archive files that match.
    bool eraseFiles(std::string_view pattern) {
        bool good = true;
        bool sawAll = each(pattern, [&](const FoundEntry& entry) {
            if (isDirectory(entry) || !takes(kFullNames, entry)) return;
            bool whole = isPlainName(entry.name) && path_.append(entry.name);
            if (!whole || !isTakenAs(path_.text(), path_.view()) || !platform::tree().erase(path_.text())) good = false;
        });
        return good && sawAll;
    }

    WalkPath path_;
};

class Pruning : TreeWalk {
 public:
    Pruning(const WalkPath& top, std::int32_t mode) : TreeWalk(top), mode_(mode) {}

    bool run() { return prune(kTop); }

 private:
    static constexpr int kTop = 1;
    static constexpr std::int32_t kEverything = 0;
    static constexpr std::int32_t kKeepTopFiles = 2;  // from here on
    static constexpr std::int32_t kKeepDirectories = 4;

    bool prune(int level) {
        switch (place()) {
            case Place::kUnknown:
                return false;
            case Place::kNothing:
                return !removes(level);
            case Place::kLink:
                return removes(level) ? remove() : level != kTop;
            case Place::kDirectory:
                break;
        }
        bool good = true;
        bool sawAll = eachSubdirectory([&](const FoundEntry&, bool entered) {
            if (!entered || !prune(level + 1)) good = false;
        });
        if ((level != kTop || mode_ < kKeepTopFiles) && !eraseFiles("*.*")) good = false;
        if (removes(level) && !remove()) good = false;
        return good && sawAll;
    }

    bool removes(int level) const {
        return !isRoot() && (mode_ == kEverything || (level != kTop && mode_ != kKeepDirectories));
    }

    bool remove() {
        std::size_t here = path_.size();
        const char* name = directory();
        leave(name);
        bool removed = platform::tree().removeDirectory(name);
        reenter(here);
        return removed;
    }

    // A process does not stay in a directory that goes.
    static void leave(std::string_view name) {
        platform::Volumes& volumes = platform::volumes();
        char current[platform::kPathSize];
        if (!volumes.currentDirectory(0, current, sizeof current)) return;
        if (isSamePath(name, current)) volumes.changeDirectory("..");
    }

    std::int32_t mode_;
};

class FilePruning : TreeWalk {
 public:
    FilePruning(const WalkPath& top, std::string_view patterns) : TreeWalk(top), patterns_(patterns) {}

    bool run() { return prune(true); }

 private:
    bool prune(bool top) {
        switch (place()) {
            case Place::kUnknown:
                return false;
            case Place::kNothing:
                return true;
            case Place::kLink:
                return !top;
            case Place::kDirectory:
                break;
        }
        bool last = true;  // kept: an earlier subdirectory's failure is forgotten
        bool good = eachSubdirectory([&](const FoundEntry& entry, bool entered) {
            if (!(entry.attributes & platform::kLink)) last = entered && prune(false);
        });
        if (!last) good = false;
        for (std::string_view pattern : ListItems(patterns_)) {
            if (!eraseFiles(pattern)) good = false;
        }
        return good;
    }

    std::string_view patterns_;
};

// Patterns of files in a directory, of which none leads out of it.
bool stayInDirectory(std::string_view patterns) {
    for (std::string_view pattern : ListItems(patterns)) {
        if (!isPlainName(pattern)) return false;
    }
    return true;
}

// The patterns of a list that lie wholly in what is kept of it: half a pattern may match more than the whole.
std::string_view wholePatterns(std::string_view list) {
    std::size_t end = std::min(list.size(), kLongestList);
    while (end > 0 && end < list.size() && !kListDelimiters.contains(list[end])) --end;
    return list.substr(0, end);
}

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_FEraseAll(const char* list) noexcept {
    FileSearch search(wholePatterns(view(list)), kFullNames);
    std::int32_t count = 0;
    while (search.next()) {
        const platform::FoundEntry& entry = search.entry();
        std::string_view pattern = search.pattern();
        WalkPath path;
        bool whole = isPlainName(entry.name) && path.append(pattern.substr(0, lastComponent(pattern))) &&
                     path.append(entry.name);
        if (whole && !isDirectory(entry) && isTakenAs(path.text(), entry.name) && platform::tree().erase(path.text()))
            ++count;
    }
    return count;
}

int32_t VX_CALL vx_FPrune(const char* path, const char* list) noexcept {
    platform::SilentErrors silent(platform::process());
    TopPath top;
    if (!top.complete(path) || !stayInDirectory(view(list))) return -1;
    return result(FilePruning(top.path(), view(list)).run());
}

int32_t VX_CALL vx_Prune(const char* path, int32_t mode) noexcept {
    platform::SilentErrors silent(platform::process());
    TopPath top;
    if (mode < 0 || mode > 4 || !top.complete(path)) return -1;
    return result(Pruning(top.path(), mode).run());
}
