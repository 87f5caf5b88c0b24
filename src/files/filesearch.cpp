// Searches by lists of patterns.
//
// The list's patterns are searched one after the other by the platform. What it finds is filtered by attributes: by the
// mask of the flags, or, where that is empty, down to plain files. A search needs no more between two calls than what
// stands in SearchState, so callers can keep it in memory of theirs (search_block.cpp).
#include "files/filesearch.h"

#include <cstring>
#include <optional>

#include "entries/filesearch.h"
#include "files/held_searches.h"
#include "files/list.h"
#include "files/walk.h"
#include "platform/errors.h"
#include "platform/platform.h"

namespace vx {

using platform::FoundEntry;

std::uint32_t libraryAttributes(std::uint32_t attributes) {
    constexpr std::uint32_t kSame = kReadOnlyBit | kHiddenBit | kSystemBit | kDirectoryBit | kArchiveBit;
    return (attributes & kSame) | (attributes & platform::kCompressed ? kCompressedBit : 0u);
}

bool takes(std::uint32_t flags, const FoundEntry& entry) {
    std::uint32_t attributes = libraryAttributes(entry.attributes);
    bool hit = attributes & flags & kMaskBits;
    if (flags & kMaskOnly) return hit;
    if ((flags & kAllDirectories) && (attributes & kDirectoryBit)) return !isDots(entry.name);
    if (flags & kMaskBits) return hit;
    return attributes == 0 || (attributes & kArchiveBit);
}

constinit HeldSearches heldSearches;

bool SearchState::start() {
    for (;; ++number) {
        bool canBe = number > 0 && number < kAtEnd;  // the caller's block may hold anything
        std::optional<Token> item = canBe ? findToken(list, kListDelimiters, number) : std::nullopt;
        if (!item) {
            entry = {};
            return false;
        }
        if (item->length >= sizeof pattern) {
            platform::process().setLastError(platform::kFilenameTooLong);
            continue;
        }
        store(pattern, item->in(list));
        handle = platform::tree().findFirst(pattern, entry);
        if (handle != -1 && block) heldSearches.add(handle, block);
        if (handle != -1 && (takes(flags, entry) || step())) return true;
    }
}

bool SearchState::next() {
    if (handle != -1) {
        if (step()) return true;
        if (number < kAtEnd) ++number;
    }
    return start();
}

// To the pattern's next entry that is taken; behind the last one the platform's search is closed.
bool SearchState::step() {
    platform::Tree& tree = platform::tree();
    while (tree.findNext(handle, entry)) {
        if (takes(flags, entry)) return true;
    }
    close();
    return false;
}

void SearchState::close() {
    if (handle == -1) return;
    if (block) heldSearches.remove(handle);  // first: its number may be given out again at once
    platform::tree().findClose(handle);
    handle = -1;
}

std::size_t SearchState::putName(std::uint32_t nameFlags, char* to) const {
    bool isDot = std::strcmp(entry.name, ".") == 0;
    std::string_view name = (nameFlags & kShortNames) && !isDot ? entry.shortName : entry.name;
    if ((nameFlags & kFullNames) && !isDot && entry.name[0]) {
        PathView parts = viewPath(pattern);
        return joinPath({parts.drive, parts.directory, name, {}}, to);
    }
    store(to, name);
    return name.size();
}

bool isFile(const char* list, std::uint32_t flags) {
    SearchState state;
    state.flags = flags;
    state.list = view(list).substr(0, kLongestList);
    char name[kFoundNameSize];
    for (std::string_view item : ListItems(state.list)) {
        if (item.size() >= sizeof state.pattern) return false;
        store(state.pattern, item);
        state.handle = platform::tree().findFirst(state.pattern, state.entry);
        if (state.handle == -1) return false;
        state.close();
        if (state.putName(flags, name) == 0 || !takes(flags, state.entry)) return false;
    }
    return true;
}

}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_IsFile(const char* list, uint32_t flags) noexcept { return isFile(list, flags); }

uint32_t VX_CALL vx_DirSize(const char* list, uint32_t flags) noexcept {
    FileSearch search(view(list), flags);
    std::uint32_t sum = 0;
    while (search.next()) sum += foundSize(search.entry());
    return sum;
}

int32_t VX_CALL vx_FileCount(const char* list, uint32_t flags) noexcept {
    platform::Process& process = platform::process();
    process.setLastError(platform::kNoError);
    FileSearch search(view(list), flags);
    std::int32_t count = 0;
    while (search.next()) {
        // kept: whatever an earlier pattern left behind ends the count.
        std::uint32_t code = process.lastError();
        if (code != platform::kNoError) return code == platform::kNoMoreFiles ? count : -1;
        ++count;
    }
    return count;
}
