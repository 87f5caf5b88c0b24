#include "files/make_path.h"

#include "entries/path.h"
#include "files/list.h"
#include "files/path.h"
#include "frame/text.h"
#include "platform/errors.h"
#include "platform/platform.h"
#include "strings/trim.h"

namespace vx {
namespace {

// kept: one more than a path that the system takes.
bool isTooLong(std::string_view path) { return path.size() > platform::kPathSize; }

// A file that has the name of a directory refuses to become one, with the system's reason. One that another process
// makes between the two looks is there.
bool ensureDirectory(const char* path) {
    if (directoryExists(path) || platform::tree().createDirectory(path)) return true;
    return platform::process().lastError() == platform::kAlreadyExists && directoryExists(path);
}

enum class Made { kNothing, kAll, kFailed };

// Behind two separators, a server and a share come first: neither is a directory to be made.
Made makeDirectories(std::string_view item) {
    char path[platform::kPathSize + 1];
    store(path, item);
    std::size_t at = drivePart(item).size();
    bool onServer = at == 0 && isSeparator(path[0]) && isSeparator(path[1]);
    int given = onServer ? 2 : 0;
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

// Makes the directories of a list's items. Whether the last one is there; the work stops at the first that cannot be
// made.
bool makePath(std::string_view list) {
    ListItems items(list);
    if (items.empty() || isTooLong(*items.begin())) return false;
    platform::Process& process = platform::process();
    std::uint32_t before = process.setErrorMode(platform::kFailSilently);
    bool result = false;
    for (std::string_view item : items) {
        if (isTooLong(item)) return false;  // kept: the error mode stays as it was set
        Made made = makeDirectories(withoutBlanks(item));
        if (made != Made::kNothing) result = made == Made::kAll;
        if (made == Made::kFailed) break;
    }
    process.setErrorMode(before);
    return result;
}

}  // namespace

bool directoryExists(const char* path) {
    std::uint32_t attributes = platform::tree().attributes(path);
    return attributes != platform::kNoAttributes && (attributes & platform::kDirectoryEntry);
}

bool makeDirectory(std::string_view path) { return !isTooLong(path) && makeDirectories(path) != Made::kFailed; }

}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_MakePath(const char* list) noexcept { return makePath(view(list)); }
