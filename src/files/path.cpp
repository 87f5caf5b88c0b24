// Path names taken apart and put together, temporary names, and chains of directories.
#include "files/path.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <iterator>

#include "entries/path.h"
#include "files/handles.h"
#include "platform/errors.h"
#include "platform/platform.h"
#include "strings/trim.h"

namespace vx {
namespace {

constexpr std::size_t kLongestPath = platform::kPathSize;  // of an item that MakePath takes

bool isSeparator(char c) { return c == '\\' || c == '/'; }

bool isLeadByte(char c) { return byteOf(c) >= 0x80 && platform::locale().isLeadByte(c); }

std::string_view cut(std::string_view piece) { return piece.substr(0, kPieceSize - 1); }

std::string_view driveOf(std::string_view path) { return path.substr(0, path.size() > 1 && path[1] == ':' ? 2 : 0); }

char* append(char* to, std::string_view piece) {
    moveBytes(to, piece.data(), piece.size());
    return to + piece.size();
}

}  // namespace

PathView viewPath(std::string_view path) {
    std::string_view drive = driveOf(path);
    path.remove_prefix(drive.size());
    std::size_t name = 0;
    std::size_t dot = 0;
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (isSeparator(path[i])) {
            name = i + 1;
        } else if (path[i] == '.') {
            dot = i;
        } else if (isLeadByte(path[i])) {
            ++i;
        }
    }
    bool dotted = dot >= name && dot < path.size() && path[dot] == '.';
    std::size_t extension = dotted ? dot : path.size();
    return {drive, cut(path.substr(0, name)), cut(path.substr(name, extension - name)), cut(path.substr(extension))};
}

PathParts splitPath(const char* path) {
    PathView view = viewPath(vx::view(path));
    PathParts parts;
    view.drive.copy(parts.drive, kDriveSize - 1);
    store(parts.directory, view.directory);
    store(parts.name, view.name);
    store(parts.extension, view.extension);
    return parts;
}

std::size_t findSeparator(std::string_view path, std::size_t from) {
    while (from < path.size() && !isSeparator(path[from])) from += isLeadByte(path[from]) ? 2 : 1;
    return std::min(from, path.size());
}

std::size_t lastComponent(std::string_view path) {
    std::size_t start = driveOf(path).size();
    for (std::size_t at = start; (at = findSeparator(path, at)) < path.size();) start = ++at;
    return start;
}

bool endsInSeparator(std::string_view path) {
    if (path.empty() || !isSeparator(path.back())) return false;
    if (path.size() < 2 || !isLeadByte(path[path.size() - 2])) return true;
    // What looks like a lead byte may itself be the second half of a character.
    std::size_t at = 0;
    while (at + 1 < path.size()) at += isLeadByte(path[at]) ? 2 : 1;
    return at < path.size();
}

std::size_t joinPath(const PathView& parts, char* to) {
    char* end = to;
    if (!parts.drive.empty()) {
        *end++ = parts.drive.front();
        *end++ = ':';
    }
    std::string_view directory = cut(parts.directory);
    end = append(end, directory);
    if (!directory.empty() && !endsInSeparator(directory)) *end++ = '\\';
    end = append(end, cut(parts.name));
    if (!parts.extension.empty() && parts.extension.front() != '.') *end++ = '.';
    end = append(end, cut(parts.extension));
    *end = '\0';
    return static_cast<std::size_t>(end - to);
}

std::size_t joinPath(const char* drive, const char* directory, const char* name, const char* extension, char* to) {
    return joinPath({view(drive), view(directory), view(name), view(extension)}, to);
}

std::size_t appendName(const char* file, const char* directory, char* to) {
    char path[kJoinedSize + 1];
    std::size_t size = joinPath(viewPath(view(directory)), path);
    char last = size != 0 ? path[size - 1] : ':';
    // kept: a slash at the end does not count, and gets a backslash behind it.
    if (last != ':' && (last != '\\' || !endsInSeparator({path, size}))) path[size++] = '\\';
    PathView whole = viewPath({path, size});
    PathView name = viewPath(view(file));
    return joinPath({whole.drive, whole.directory, name.name, name.extension}, to);
}

std::size_t fillPattern(std::string_view pattern, std::string_view from, char* to) {
    char* end = to;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '*') {
            end = append(end, from.substr(std::min(i, from.size())));
            break;
        }
        if (pattern[i] == '?' && i >= from.size()) break;
        *end++ = pattern[i] == '?' ? from[i] : pattern[i];
    }
    *end = '\0';
    return static_cast<std::size_t>(end - to);
}

namespace {

// The numbers behind temporary names, of one sequence for all threads. Where it starts differs from process to process,
// so that two which make names of one template at a time do not meet in all their tries.
class NameNumbers {
 public:
    std::uint32_t next() {
        static const std::uint64_t start = somewhere();
        std::uint64_t step = count_.fetch_add(1, std::memory_order_relaxed) + std::uint64_t{1};
        return static_cast<std::uint32_t>(mix(start + step * 0x9E3779B97F4A7C15) >> 33);
    }

 private:
    static std::uint64_t mix(std::uint64_t bits) {
        bits = (bits ^ bits >> 30) * 0xBF58476D1CE4E5B9;
        bits = (bits ^ bits >> 27) * 0x94D049BB133111EB;
        return bits ^ bits >> 31;
    }

    // The time to the finest step that there is, and where the system has put this process's stack and code.
    static std::uint64_t somewhere() {
        char here;
        std::uint64_t bits = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
        bits = mix(bits) ^ static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
        bits = mix(bits) ^ reinterpret_cast<std::uintptr_t>(&here);
        return mix(bits) ^ reinterpret_cast<std::uintptr_t>(&emptyText);
    }

    std::atomic<std::uint32_t> count_{0};
};

NameNumbers nameNumbers;

constexpr std::size_t kRandomName = 8;  // characters before the dot; three follow it

// Digits: twelve numbers, each below its place, of which the ones below 12 and 11 may take two.
class RandomName {
 public:
    RandomName() {
        char* end = digits_;
        for (std::uint32_t below = 12; below > 0; --below) {
            std::uint32_t number = nameNumbers.next() % below;
            if (number >= 10) *end++ = '1';
            *end++ = static_cast<char>('0' + number % 10);
        }
        digits_[kRandomName] = '.';
    }

    std::string_view name() const { return {digits_, kRandomName}; }
    std::string_view extension() const { return {digits_ + kRandomName, 4}; }

 private:
    char digits_[14];
};

std::size_t makeTemporaryName(const char* pattern, char* to) {
    PathView parts = viewPath(view(pattern));
    RandomName random;
    char name[kPieceSize];
    char extension[kPieceSize];
    std::size_t nameSize = fillPattern(parts.name, random.name(), name);
    std::size_t extensionSize = fillPattern(parts.extension, random.extension(), extension);
    return joinPath({parts.drive, parts.directory, {name, nameSize}, {extension, extensionSize}}, to);
}

constexpr int kMostTries = 100;

// Any existing name is refused, also one that FCreatef would not see; the handle is closed at detach like its.
std::int32_t createNew(const char* name, std::uint32_t attributes) {
    if (platform::tree().attributes(name) != platform::kNoAttributes) return kNoHandle;
    return createRecorded(name, attributes);
}

// A file that has the name of a directory refuses to become one, with the system's reason. One that another process
// makes between the two looks is there.
bool ensureDirectory(const char* path) {
    if (directoryExists(path) || platform::tree().createDirectory(path)) return true;
    return platform::process().lastError() == platform::kAlreadyExists && directoryExists(path);
}

enum class Made { kNothing, kAll, kFailed };

// Behind two separators, a server and a share come first: neither is a directory to be made.
Made makeDirectories(std::string_view item) {
    char path[kLongestPath + 1];
    store(path, item);
    std::size_t at = driveOf(item).size();
    int given = at == 0 && isSeparator(path[0]) && isSeparator(path[1]) ? 2 : 0;
    Made made = Made::kNothing;
    for (;;) {
        while (isSeparator(path[at])) ++at;
        if (at >= item.size()) return made;
        at = findSeparator(item, at);
        if (given-- > 0) continue;
        path[at] = '\0';
        if (!ensureDirectory(path)) return Made::kFailed;
        if (at < item.size()) path[at] = item[at];
        made = Made::kAll;
    }
}

}  // namespace

bool directoryExists(const char* path) {
    std::uint32_t attributes = platform::tree().attributes(path);
    return attributes != platform::kNoAttributes && (attributes & platform::kDirectoryEntry);
}

bool makePath(const char* list) {
    std::string_view all = view(list);
    std::optional<Token> item = nextToken(all, kListDelimiters, 0);
    if (!item || item->length > kLongestPath) return false;
    platform::Process& process = platform::process();
    std::uint32_t before = process.setErrorMode(platform::kFailSilently);
    bool result = false;
    for (; item; item = nextToken(all, kListDelimiters, item->end())) {
        if (item->length > kLongestPath) return false;  // kept: the error mode stays as it was set
        Made made = makeDirectories(withoutBlanks(item->in(all)));
        if (made != Made::kNothing) result = made == Made::kAll;
        if (made == Made::kFailed) break;
    }
    process.setErrorMode(before);
    return result;
}

bool makeDirectory(std::string_view path) {
    return path.size() <= kLongestPath && makeDirectories(path) != Made::kFailed;
}

namespace {

// Joined aside: the destination may be the text that the pieces lie in.
char* putJoined(char* dest, const PathView& parts) {
    char path[kJoinedSize];
    return store(dest, {path, joinPath(parts, path)});
}

void putPiece(char* dest, std::string_view piece) {
    if (dest) store(dest, piece);
}

}  // namespace
}  // namespace vx

using namespace vx;

void VX_CALL vx_FSsplit(const char* path, char* drive, char* directory, char* name, char* extension) noexcept {
    PathParts parts = splitPath(path);
    putPiece(drive, parts.drive);
    putPiece(directory, parts.directory);
    putPiece(name, parts.name);
    putPiece(extension, parts.extension);
}

char* VX_CALL vx_FMake(const char* drive, const char* directory, const char* name, const char* extension,
                       char* dest) noexcept {
    return dest ? putJoined(dest, {view(drive), view(directory), view(name), view(extension)}) : nullptr;
}

char* VX_CALL vx_FParsedr(const char* path, char* dest) noexcept {
    return dest ? store(dest, driveOf(view(path))) : nullptr;
}

char* VX_CALL vx_FParsed(const char* path, char* dest) noexcept {
    if (!dest) return nullptr;
    std::string_view directory = viewPath(view(path)).directory;
    // kept: a slash stays, and so does a directory that is nothing but a backslash.
    if (directory.size() > 1 && directory.back() == '\\' && endsInSeparator(directory)) directory.remove_suffix(1);
    return store(dest, directory);
}

char* VX_CALL vx_FParsefn(const char* path, char* dest) noexcept {
    return dest ? store(dest, viewPath(view(path)).name) : nullptr;
}

char* VX_CALL vx_FParsefx(const char* path, char* dest) noexcept {
    return dest ? store(dest, viewPath(view(path)).extension) : nullptr;
}

char* VX_CALL vx_FParsef(const char* path, char* dest) noexcept {
    if (!dest) return nullptr;
    PathView parts = viewPath(view(path));
    // No terminator in between: the destination may be the text that the pieces lie in.
    store(append(dest, parts.name), parts.extension);
    return dest;
}

char* VX_CALL vx_TrueName(const char* path, char* dest) noexcept {
    if (!dest) return nullptr;
    char full[platform::kPathSize];
    std::uint32_t size = platform::tree().fullPath(path ? path : emptyText, full, sizeof full);
    return store(dest, {full, size < sizeof full ? size : 0});
}

char* VX_CALL vx_FAppendName(const char* file, const char* directory, char* dest) noexcept {
    if (!dest) return nullptr;
    char path[kJoinedSize];
    return store(dest, {path, appendName(file, directory, path)});
}

char* VX_CALL vx_FTempName(const char* pattern, char* dest) noexcept {
    if (!dest) return nullptr;
    char path[kJoinedSize];
    return store(dest, {path, makeTemporaryName(pattern, path)});
}

int32_t VX_CALL vx_FUnique(const char* pattern, uint32_t attribute, char* dest) noexcept {
    if (!dest) return kNoHandle;
    char path[kJoinedSize];
    for (int tries = 0; tries < kMostTries; ++tries) {
        std::size_t size = makeTemporaryName(pattern, path);
        std::int32_t handle = createNew(path, attribute);
        if (handle == kNoHandle) continue;
        store(dest, {path, size});
        return handle;
    }
    *dest = '\0';
    return kNoHandle;
}

int32_t VX_CALL vx_MakePath(const char* list) noexcept { return makePath(list); }
