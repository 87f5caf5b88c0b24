// Searching directories by lists of patterns, the caller's search blocks, and what is told of all that is found.
#include "files/filesearch.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <mutex>
#include <new>
#include <optional>

#include "datetime/dateformat.h"
#include "datetime/timeofday.h"
#include "entries/filesearch.h"
#include "files/walk.h"
#include "platform/errors.h"
#include "platform/lock.h"
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

namespace {

// The platform's searches that callers' blocks hold, and where each block lay when it began its search: only such a
// one is given up when its block is begun anew, and nothing that memory happens to look like.
class HeldSearches {
 public:
    void add(std::int32_t search, const void* block) {
        std::lock_guard guard(changing_);
        if (size_ == room_ && !grow()) return;  // without memory it stays open until it is released
        held_[size_++] = {search, block};
    }
    void remove(std::int32_t search) {
        std::lock_guard guard(changing_);
        Held* found = find(search);
        if (found != end()) *found = held_[--size_];
    }
    bool contains(std::int32_t search, const void* block) {
        std::lock_guard guard(changing_);
        Held* found = find(search);
        return found != end() && found->block == block;
    }

 private:
    struct Held {
        std::int32_t search;
        const void* block;
    };

    Held* end() { return held_ + size_; }
    Held* find(std::int32_t search) {
        return std::find_if(held_, end(), [search](const Held& held) { return held.search == search; });
    }
    bool grow() {
        Held* more = new (std::nothrow) Held[2 * room_];
        if (!more) return false;
        std::copy(held_, end(), more);
        if (held_ != first_) delete[] held_;
        held_ = more;
        room_ *= 2;
        return true;
    }

    platform::Lock changing_;
    Held first_[64] = {};
    Held* held_ = first_;
    std::size_t size_ = 0;
    std::size_t room_ = std::size(first_);
};

constinit HeldSearches heldSearches;

}  // namespace

bool SearchState::start() {
    for (;; ++number) {
        std::optional<Token> item;
        if (number > 0 && number < kAtEnd) {
            item = findToken(list, kListDelimiters, number);
        }
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
    for (auto item = nextToken(state.list, kListDelimiters, 0); item;
         item = nextToken(state.list, kListDelimiters, item->end())) {
        if (item->length >= sizeof state.pattern) return false;
        store(state.pattern, item->in(state.list));
        state.handle = platform::tree().findFirst(state.pattern, state.entry);
        if (state.handle == -1) return false;
        state.close();
        if (state.putName(flags, name) == 0 || !takes(flags, state.entry)) return false;
    }
    return true;
}

namespace {

// The caller's block: its fields lie packed in memory of any alignment, and may hold anything.
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

// When the current entry was last written, in local time.
std::optional<platform::Moment> written(const void* block) {
    SearchState state;
    if (!SearchBlock(block).loadEntry(state)) return std::nullopt;
    const std::uint32_t* halves = state.entry.written;
    platform::Moment moment;
    bool known = platform::clock().toLocalTime(std::uint64_t{halves[1]} << 32 | halves[0], moment);
    return known ? std::optional(moment) : std::nullopt;
}

std::optional<Date> writtenDate(const void* block) {
    std::optional<platform::Moment> moment = written(block);
    return moment ? std::optional(Date{moment->year, moment->month, moment->day}) : std::nullopt;
}

std::optional<TimeOfDay> writtenTime(const void* block) {
    std::optional<platform::Moment> moment = written(block);
    return moment ? std::optional(TimeOfDay{moment->hour, moment->minute, moment->second}) : std::nullopt;
}

char* putEmpty(char* dest) {
    *dest = '\0';
    return dest;
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
    if (!SearchBlock(block).loadEntry(state)) return putEmpty(dest);
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
    std::optional<Date> date = writtenDate(block);
    storeDate(date.value_or(Date{}), year, month, day);
    return date.has_value();
}

int32_t VX_CALL vx_FindDosTime(const void* block, int32_t* hour, int32_t* minute, int32_t* second) noexcept {
    std::optional<TimeOfDay> time = writtenTime(block);
    storeTime(time.value_or(TimeOfDay{}), hour, minute, second);
    return time.has_value();
}

int32_t VX_CALL vx_FindJDate(const void* block) noexcept {
    std::optional<Date> date = writtenDate(block);
    return date ? dayNumber(*date) : 0;
}

char* VX_CALL vx_FindDate(const void* block, char* dest) noexcept {
    if (!dest) return nullptr;
    std::optional<Date> date = writtenDate(block);
    return date ? putDate(*date, dest) : putEmpty(dest);
}

char* VX_CALL vx_FindDatef(const void* block, const char* picture, char* dest) noexcept {
    if (!dest) return nullptr;
    std::optional<Date> date = writtenDate(block);
    return date ? putPicturedDate(*date, picture, dest) : putEmpty(dest);
}

char* VX_CALL vx_FindTime(const void* block, char* dest) noexcept {
    if (!dest) return nullptr;
    std::optional<TimeOfDay> time = writtenTime(block);
    return time ? putTime(*time, dest) : putEmpty(dest);
}

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
