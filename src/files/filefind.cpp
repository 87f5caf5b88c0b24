// What lies in listed directories and below them, by its name.
//
// One path grows and shrinks with the walk (WalkPath): each function leaves it as it found it, or at what was found.
#include "files/filefind.h"

#include "entries/filesearch.h"
#include "files/list.h"
#include "files/make_path.h"
#include "files/path.h"
#include "files/walk.h"
#include "frame/text.h"
#include "platform/platform.h"

namespace vx {
namespace {

constexpr DelimiterSet kDirectoryDelimiters(";");

// Where a listed directory is, with a separator behind it. A drive alone stands for its root.
bool placeOf(std::string_view directory, WalkPath& place) {
    WalkPath given;
    char full[platform::kPathSize];
    bool isDrive = directory.size() == 2 && directory[1] == ':';
    if (!given.append(directory) || (isDrive && !given.append("\\"))) return false;
    std::uint32_t size = platform::tree().fullPath(given.text(), full, sizeof full);
    if (size == 0 || size >= sizeof full) return false;
    place.cut(0);
    return place.append({full, size}) && (endsInSeparator(place.view()) || place.append("\\"));
}

// Calls visit with the path of each listed directory until it returns true.
template <class Visit>
bool anyOfList(const char* list, Visit visit) {
    ListItems items(view(list), kDirectoryDelimiters);
    WalkPath place;
    if (items.empty()) return placeOf(".", place) && visit(place);
    for (std::string_view item : items) {
        if (placeOf(item, place) && visit(place)) return true;
    }
    return false;
}

// Makes `place`, a directory with its separator, the path of the first entry in it that matches. A name that ends in
// `.` or `..` would match an entry that is elsewhere.
bool findIn(WalkPath& place, std::string_view name) {
    std::size_t here = place.size();
    std::size_t last = lastComponent(name);
    if (isDots(name.substr(last)) || !place.append(name)) return false;
    DirectorySearch search(place.text());
    place.cut(here);
    for (; search.found(); search.next()) {
        if (isDots(search.entry().name)) continue;
        if (place.append(name.substr(0, last)) && place.append(search.entry().name)) return true;
        place.cut(here);
    }
    return false;
}

// The same, also in what is below the directory. Links are not followed: they may lead back.
bool findBelow(WalkPath& place, std::string_view name) {
    if (findIn(place, name)) return true;
    std::size_t here = place.size();
    if (!place.append("*.*")) return false;
    DirectorySearch search(place.text());
    place.cut(here);
    for (; search.found(); search.next()) {
        const platform::FoundEntry& entry = search.entry();
        if (!isSubdirectory(entry) || (entry.attributes & platform::kLink)) continue;
        if (place.appendDirectory(entry.name) && findBelow(place, name)) return true;
        place.cut(here);
    }
    return false;
}

}  // namespace

std::size_t findDirectoryInList(const char* name, const char* list, char* to) {
    std::size_t size = 0;
    if (!view(name).empty()) {
        anyOfList(list, [&](WalkPath& place) {
            if (!place.append(name) || !directoryExists(place.text())) return false;
            size = platform::tree().fullPath(place.text(), to, platform::kPathSize);
            if (size >= platform::kPathSize) size = 0;
            return size != 0;
        });
    }
    to[size] = '\0';
    return size;
}

}  // namespace vx

using namespace vx;

char* VX_CALL vx_FileFind(const char* name, const char* directories, char* dest) noexcept {
    if (!dest) return nullptr;
    auto find = [&](WalkPath& place) {
        if (!findBelow(place, view(name))) return false;
        store(dest, place.view());
        return true;
    };
    // Nothing is written before: the destination may be the text of the name.
    if (view(name).empty() || !anyOfList(directories, find)) *dest = '\0';
    return dest;
}
