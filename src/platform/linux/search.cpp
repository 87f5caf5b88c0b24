#include "platform/linux/search.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/linux/directory_reader.h"
#include "platform/linux/file_state.h"
#include "platform/linux/last_error.h"
#include "platform/linux/names.h"
#include "platform/linux/short_names.h"
#include "platform/linux/wildcards.h"
#include "platform/registry.h"

namespace vx::platform {
namespace {

// Names that match, found when the search begins; what they stand for is looked up when their turn comes. They are
// handed out in the order of Windows' own file systems, and what comes and goes in the directory meanwhile cannot have
// one shown twice.
struct Search {
    char directory[PATH_MAX];  // absolute: the current one may change meanwhile
    std::string names;         // each with its terminator
    std::vector<std::uint32_t> starts;
    std::size_t next = 0;

    void add(std::string_view name) {
        starts.push_back(static_cast<std::uint32_t>(names.size()));
        names.append(name).push_back('\0');
    }
    void sortFrom(std::size_t first);
    bool give(FoundEntry& entry);
};

bool lessButForCase(const char* a, const char* b) {
    std::string_view x = a, y = b;
    auto less = [](char c, char d) {
        return static_cast<unsigned char>(raised(c)) < static_cast<unsigned char>(raised(d));
    };
    if (std::lexicographical_compare(x.begin(), x.end(), y.begin(), y.end(), less)) return true;
    if (std::lexicographical_compare(y.begin(), y.end(), x.begin(), x.end(), less)) return false;
    return x < y;
}

void Search::sortFrom(std::size_t first) {
    const char* text = names.data();
    std::sort(starts.begin() + static_cast<std::ptrdiff_t>(first), starts.end(),
              [text](std::uint32_t a, std::uint32_t b) { return lessButForCase(text + a, text + b); });
}

bool canBeGivenBack(std::string_view name) {
    return name.size() < kPathSize && name.find_first_of("\\?*") == std::string_view::npos &&
           (name.size() < 2 || name[1] != ':');
}

void put(FileTime time, std::uint32_t (&halves)[2]) {
    halves[0] = static_cast<std::uint32_t>(time);
    halves[1] = static_cast<std::uint32_t>(time >> 32);
}

void describe(const FileInformation& information, std::string_view name, FoundEntry& entry) {
    std::memset(&entry, 0, sizeof entry);
    entry.attributes = information.attributes;
    put(information.times.created, entry.created);
    put(information.times.accessed, entry.accessed);
    put(information.times.written, entry.written);
    entry.sizeHigh = static_cast<std::uint32_t>(information.size >> 32);
    entry.sizeLow = static_cast<std::uint32_t>(information.size);
    std::memcpy(entry.name, name.data(), name.size());
    if (name != "." && name != "..") shortNameOf(name, entry.shortName);
}

// The next entry that is still there.
bool Search::give(FoundEntry& entry) {
    std::size_t length = std::strlen(directory);
    while (next < starts.size()) {
        std::string_view name = names.data() + starts[next++];
        char path[PATH_MAX];
        if (length + 1 + name.size() + 1 > sizeof path) continue;
        std::memcpy(path, directory, length);
        path[length] = '/';
        std::memcpy(path + length + 1, name.data(), name.size() + 1);
        FileInformation information;
        if (!readState(path, information)) {
            if (isMissing(errno)) continue;
            information = {};
            information.attributes = kNormal;
        }
        describe(information, name, entry);
        return true;
    }
    return false;
}

bool collect(SystemName& path, std::string_view pattern, Search& search) {
    DirectoryReader directory(callWith(path, openDirectory));
    if (!directory) return failed(false, isMissing(errno) ? std::uint32_t{kPathNotFound} : systemErrorCode());
    std::memcpy(search.directory, path.text(), path.view().size() + 1);

    Wildcards wildcards(pattern);
    bool byShortName = pattern.find('~') != std::string_view::npos;
    auto matches = [&](std::string_view name) {
        if (wildcards.match(name)) return true;
        if (!byShortName) return false;
        char shortName[kShortNameSize];
        shortNameOf(name, shortName);
        return shortName[0] != '\0' && wildcards.match(shortName);
    };
    if (path.view() != "/") {
        for (const char* name : {".", ".."}) {
            if (wildcards.match(name)) search.add(name);
        }
    }
    std::size_t dots = search.starts.size();
    while (const char* name = directory.next()) {
        if (canBeGivenBack(name) && matches(name)) search.add(name);
    }
    search.sortFrom(dots);
    return true;
}

// The one entry of that name.
bool collectOne(SystemName& path, std::string_view name, Search& search) {
    if (!path.add(name)) return failed(false, kFilenameTooLong);
    if (path.look() != SystemName::Found::kThere) return failedCall(false);
    char found[kPathSize];
    if (!path.splitLast(found) || !canBeGivenBack(found)) return failed(false, kFileNotFound);
    std::memcpy(search.directory, path.text(), path.view().size() + 1);
    search.add(found);
    return true;
}

constinit Registry<Search*> searches;

}  // namespace

std::int32_t startSearch(const char* pattern, FoundEntry& entry) try {
    SystemName path(pattern, SystemName::AllowWildcards::kInLast);
    if (!path.valid() || !path.makeAbsolute()) return -1;
    char last[kPathSize];
    if (path.asDirectory() || !path.splitLast(last)) return failed(-1, kFileNotFound);
    std::unique_ptr<Search> search(new Search);
    bool collected = hasWildcards(last) ? collect(path, last, *search) : collectOne(path, last, *search);
    if (!collected) return -1;
    FoundEntry first;
    if (!search->give(first)) return failed(-1, kFileNotFound);
    std::int32_t handle = searches.add([&](Search*& slot) { slot = search.get(); });
    if (handle == 0) return failed(-1, kTooManyOpenFiles);
    search.release();
    entry = first;
    return handle;
} catch (const std::bad_alloc&) {
    return failed(-1, kNotEnoughMemory);
}

bool continueSearch(std::int32_t search, FoundEntry& entry) {
    Search** found = searches.find(search);
    if (!found) return failed(false, kInvalidHandle);
    return (*found)->give(entry) || failed(false, kNoMoreFiles);
}

bool endSearch(std::int32_t search) {
    return searches.remove(search, [](Search*& slot) { delete std::exchange(slot, nullptr); }) ||
           failed(false, kInvalidHandle);
}

}  // namespace vx::platform
