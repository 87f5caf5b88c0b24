// Path names taken apart and put together.
//
// All goes by the text alone, whatever lies on the disk. A separator or a dot only counts where it is a character by
// itself: in the system's double-byte code pages it may be the second half of one.
#include "files/path.h"

#include <algorithm>

#include "entries/path.h"
#include "files/handles.h"
#include "platform/platform.h"

namespace vx {
namespace {

bool isLeadByte(char c) { return byteOf(c) >= 0x80 && platform::locale().isLeadByte(c); }

std::string_view cut(std::string_view piece) { return piece.substr(0, kPieceSize - 1); }

}  // namespace

std::string_view drivePart(std::string_view path) { return path.substr(0, path.size() > 1 && path[1] == ':' ? 2 : 0); }

bool isSamePath(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, [](char x, char y) { return upper(x) == upper(y); });
}

PathView viewPath(std::string_view path) {
    std::string_view drive = drivePart(path);
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
    std::size_t start = drivePart(path).size();
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
    end = putText(end, directory);
    if (!directory.empty() && !endsInSeparator(directory)) *end++ = '\\';
    end = putText(end, cut(parts.name));
    if (!parts.extension.empty() && parts.extension.front() != '.') *end++ = '.';
    end = putText(end, cut(parts.extension));
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
    bool ended = last == ':' || (last == '\\' && endsInSeparator({path, size}));
    if (!ended) path[size++] = '\\';
    PathView whole = viewPath({path, size});
    PathView name = viewPath(view(file));
    return joinPath({whole.drive, whole.directory, name.name, name.extension}, to);
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
    return dest ? store(dest, drivePart(view(path))) : nullptr;
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
    store(putText(dest, parts.name), parts.extension);
    return dest;
}

char* VX_CALL vx_TrueName(const char* path, char* dest) noexcept {
    if (!dest) return nullptr;
    char full[platform::kPathSize];
    std::uint32_t size = platform::tree().fullPath(textOf(path), full, sizeof full);
    return store(dest, {full, size < sizeof full ? size : 0});
}

char* VX_CALL vx_FAppendName(const char* file, const char* directory, char* dest) noexcept {
    if (!dest) return nullptr;
    char path[kJoinedSize];
    return store(dest, {path, appendName(file, directory, path)});
}
