// Searches that go on from call to call, in a block of the caller's memory.
//
// The block's layout is fixed: callers have it in their own declarations, keep it on their stacks, copy it. Its fields
// lie packed, at any alignment, and it may hold anything by the time that it comes back; whatever is read of it is
// brought within bounds. Memory that no search was begun in is told by its missing signature.
#include <cstring>
#include <optional>

#include "entries/filesearch.h"
#include "files/filesearch.h"
#include "files/held_searches.h"
#include "files/written.h"
#include "frame/text.h"
#include "platform/platform.h"

namespace vx {
namespace {

// The fields of a block.
class SearchBlock {
 public:
    explicit SearchBlock(const void* at) : at_(static_cast<unsigned char*>(const_cast<void*>(at))) {}

    void begin(const char* list, SearchState& state) {
        SearchState before;
        if (load(before) && heldSearches.contains(before.handle, at_)) before.close();
        std::memset(at_, 0, kSize);
        put(kSignatureAt, kSignature);
        put(kFlagsAt, state.flags);
        state.block = at_;
        std::string_view kept(list, strnlen(list, kLongestList));
        state.list = {reinterpret_cast<char*>(at_ + kListAt), kept.size()};
        std::memcpy(at_ + kListAt, kept.data(), kept.size());
    }

    // False if no search was begun in it.
    bool load(SearchState& state) const {
        if (!at_ || get<std::uint32_t>(kSignatureAt) != kSignature) return false;
        state.block = at_;
        state.handle = get<std::int32_t>(kHandleAt);
        state.flags = get<std::uint32_t>(kFlagsAt);
        state.number = get<std::int32_t>(kNumberAt);
        const char* list = reinterpret_cast<const char*>(at_ + kListAt);
        state.list = {list, strnlen(list, kLongestList)};
        std::memcpy(state.pattern, at_ + kPatternAt, sizeof state.pattern);
        std::memcpy(&state.entry, at_ + kEntryAt, platform::kFoundEntrySize);
        state.pattern[sizeof state.pattern - 1] = '\0';
        state.entry.name[sizeof state.entry.name - 1] = '\0';
        state.entry.shortName[sizeof state.entry.shortName - 1] = '\0';
        return true;
    }

    // Also whether there is an entry.
    bool loadEntry(SearchState& state) const { return load(state) && state.entry.name[0]; }

    void save(const SearchState& state) {
        put(kHandleAt, state.handle);
        put(kNumberAt, state.number);
        std::memcpy(at_ + kPatternAt, state.pattern, sizeof state.pattern);
        std::memcpy(at_ + kEntryAt, &state.entry, platform::kFoundEntrySize);
    }

 private:
    static constexpr std::uint32_t kSignature = 41894;
    static constexpr std::size_t kSignatureAt = 0;
    static constexpr std::size_t kHandleAt = 4;
    static constexpr std::size_t kEntryAt = 8;
    static constexpr std::size_t kFlagsAt = kEntryAt + platform::kFoundEntrySize;
    static constexpr std::size_t kNumberAt = kFlagsAt + 4;
    static constexpr std::size_t kListAt = kNumberAt + 4;
    static constexpr std::size_t kPatternAt = kListAt + kLongestList + 1;
    static constexpr std::size_t kSize = kPatternAt + platform::kPathSize;
    static_assert(kFlagsAt == 326 && kListAt == 334 && kPatternAt == 855 && kSize == 1115);

    template <class T>
    T get(std::size_t offset) const {
        T value;
        std::memcpy(&value, at_ + offset, sizeof value);
        return value;
    }
    template <class T>
    void put(std::size_t offset, T value) {
        std::memcpy(at_ + offset, &value, sizeof value);
    }

    unsigned char* at_;
};

// When the current entry was last written.
std::optional<Written> written(const void* block) {
    SearchState state;
    if (!SearchBlock(block).loadEntry(state)) return std::nullopt;
    const std::uint32_t* halves = state.entry.written;
    return writtenAt((platform::FileTime{halves[1]} << 32) | halves[0]);
}

}  // namespace
}  // namespace vx

using namespace vx;

char* VX_CALL vx_FindFirst(void* block, const char* list, uint32_t flags, char* dest) noexcept {
    if (!dest) return nullptr;
    *dest = '\0';
    if (!block || !list) return dest;
    SearchState state;
    state.flags = flags;
    SearchBlock kept(block);
    kept.begin(list, state);
    bool found = state.start();
    kept.save(state);
    if (found) state.putName(flags, dest);
    return dest;
}

char* VX_CALL vx_FindNext(void* block, char* dest) noexcept {
    if (!dest) return nullptr;
    *dest = '\0';
    SearchState state;
    SearchBlock kept(block);
    if (!kept.load(state)) return dest;
    bool found = state.next();
    kept.save(state);
    if (found) state.putName(state.flags, dest);
    return dest;
}

void VX_CALL vx_FindRelease(void* block) noexcept {
    SearchState state;
    SearchBlock kept(block);
    if (!kept.load(state)) return;
    state.close();
    state.number = SearchState::kAtEnd;  // what was found last can still be asked for
    kept.save(state);
}

char* VX_CALL vx_FindName(const void* block, char* dest) noexcept {
    if (!dest) return nullptr;
    SearchState state;
    if (!SearchBlock(block).loadEntry(state)) return store(dest, {});
    state.putName(state.flags | kFullNames, dest);
    return dest;
}

uint32_t VX_CALL vx_FindSize(const void* block) noexcept {
    SearchState state;
    return SearchBlock(block).loadEntry(state) ? foundSize(state.entry) : 0;
}

int32_t VX_CALL vx_FindAttr(const void* block) noexcept {
    SearchState state;
    if (!SearchBlock(block).loadEntry(state)) return -1;
    return static_cast<std::int32_t>(libraryAttributes(state.entry.attributes));
}

int32_t VX_CALL vx_FindDosDate(const void* block, int32_t* year, int32_t* month, int32_t* day) noexcept {
    return tellDate(written(block), year, month, day);
}

int32_t VX_CALL vx_FindDosTime(const void* block, int32_t* hour, int32_t* minute, int32_t* second) noexcept {
    return tellTime(written(block), hour, minute, second);
}

int32_t VX_CALL vx_FindJDate(const void* block) noexcept { return dayNumberOf(written(block)); }

char* VX_CALL vx_FindDate(const void* block, char* dest) noexcept {
    return dest ? putDateOf(written(block), dest) : nullptr;
}

char* VX_CALL vx_FindDatef(const void* block, const char* picture, char* dest) noexcept {
    return dest ? putDateOf(written(block), picture, dest) : nullptr;
}

char* VX_CALL vx_FindTime(const void* block, char* dest) noexcept {
    return dest ? putTimeOf(written(block), dest) : nullptr;
}
