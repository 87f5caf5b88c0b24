#include "files/name_pattern.h"

#include <algorithm>

#include "entries/wholefile.h"
#include "files/path.h"
#include "frame/text.h"

namespace vx {

std::size_t fillPattern(std::string_view pattern, std::string_view from, char* to) {
    char* end = to;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '*') {
            end = putText(end, from.substr(std::min(i, from.size())));
            break;
        }
        if (pattern[i] == '?' && i >= from.size()) break;
        *end++ = (pattern[i] == '?') ? from[i] : pattern[i];
    }
    *end = '\0';
    return static_cast<std::size_t>(end - to);
}

namespace {

// kept: the name's extension has its dot and the pattern's has not, so ? takes the character one place earlier.
std::size_t mergePaths(const char* pattern, const char* name, char* to) {
    PathView wanted = viewPath(view(pattern));
    PathView given = viewPath(view(name));
    if (!wanted.extension.empty()) wanted.extension.remove_prefix(1);
    char filledName[kPieceSize];
    char filledExtension[kPieceSize];
    std::size_t nameSize = fillPattern(wanted.name, given.name, filledName);
    std::size_t extensionSize = fillPattern(wanted.extension, given.extension, filledExtension);
    return joinPath({wanted.drive.empty() ? given.drive : wanted.drive,
                     wanted.directory.empty() ? given.directory : wanted.directory,
                     {filledName, nameSize},
                     {filledExtension, extensionSize}},
                    to);
}

}  // namespace
}  // namespace vx

using namespace vx;

// Made aside: the name may be its own destination.
char* VX_CALL vx_FMerge(const char* pattern, const char* name, char* dest) noexcept {
    char* to = target(name, dest);
    if (!to) return nullptr;
    char path[kJoinedSize];
    return store(to, {path, mergePaths(pattern, name, path)});
}
