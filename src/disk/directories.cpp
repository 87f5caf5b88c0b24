// The current drive and directory, and directories made, removed, renamed and looked for.
#include <cstring>

#include "disk/drives.h"
#include "entries/diskspace.h"
#include "files/filefind.h"
#include "files/path.h"
#include "files/walk.h"
#include "frame/text.h"
#include "platform/platform.h"

namespace vx {
namespace {

char* putCurrentDirectory(const char* driveText, char* dest) {
    bool known = withDrive(driveText, false, [dest](std::int32_t number) {
        return platform::volumes().currentDirectory(number, dest, kPathRoom);
    });
    if (!known) *dest = '\0';
    return dest;
}

bool setDrive(const char* text) {
    if (!text || !*text) return false;
    return withDrive(text, false, [](std::int32_t number) { return platform::volumes().setCurrentDrive(number); });
}

// Going back by the directory: by its drive alone, a directory that the process was started in would be lost.
void goBack(std::int32_t drive, const char* directory) {
    if (!*directory || !platform::volumes().changeDirectory(directory)) platform::volumes().setCurrentDrive(drive);
}

bool changeDirectory(const char* path) {
    platform::SilentErrors silent(platform::process());
    std::int32_t drive = platform::volumes().currentDrive();
    char directory[kPathRoom];
    if (!platform::volumes().currentDirectory(0, directory, sizeof directory)) *directory = '\0';
    if (!platform::volumes().changeDirectory(textOf(path))) return false;
    if (platform::volumes().currentDrive() != drive) goBack(drive, directory);
    return true;
}

bool changeToListedDirectory(const char* name, const char* list) {
    if (!name || !*name) return false;
    platform::SilentErrors silent(platform::process());
    char roots[3 * kDriveLetters];
    char found[kPathRoom];
    if (findDirectoryInList(name, list && *list ? list : putDriveNames(';', roots), found) == 0) return false;
    PathParts parts = splitPath(found);
    char path[kJoinedSize];
    joinPath(parts, path);
    return changeDirectory(path) && setDrive(parts.drive);
}

bool directoryMatches(const char* path) {
    DirectorySearch search(path);
    while (search.found() && !isDirectory(search.entry())) search.next();
    return search.found();
}

bool renameDirectory(const char* old, const char* name) {
    platform::SilentErrors silent(platform::process());
    PathParts before = splitPath(old);
    bool isNamed = *before.name || *before.extension;
    if (!isNamed || !directoryMatches(old)) return false;
    PathParts after = splitPath(name);
    char path[kJoinedSize];
    joinPath(before.drive, before.directory, after.name, after.extension, path);
    return platform::tree().move(old, path);
}

}  // namespace
}  // namespace vx

using namespace vx;

char* VX_CALL vx_CurDrive(char* dest) noexcept {
    if (!dest) return nullptr;
    std::int32_t drive = platform::volumes().currentDrive();
    const char name[] = {driveLetter(drive - 1), ':'};
    return store(dest, drive > 0 ? std::string_view(name, sizeof name) : std::string_view());
}
char* VX_CALL vx_CurDir(const char* drive, char* dest) noexcept {
    return dest ? putCurrentDirectory(drive, dest) : nullptr;
}
char* VX_CALL vx_GetDir(const char* drive, char* dest) noexcept {
    if (!dest) return nullptr;
    const char* colon = std::strchr(putCurrentDirectory(drive, dest), ':');
    return store(dest, colon ? colon + 1 : "");
}

int32_t VX_CALL vx_SetDrive(const char* drive) noexcept { return setDrive(drive); }
int32_t VX_CALL vx_ChangeDir(const char* path) noexcept { return changeDirectory(path); }
int32_t VX_CALL vx_FChDir(const char* name, const char* list) noexcept { return changeToListedDirectory(name, list); }

char* VX_CALL vx_SysDir(char* dest) noexcept {
    if (dest && platform::volumes().systemDirectory(dest, kPathRoom) == 0) *dest = '\0';
    return dest;
}
char* VX_CALL vx_WinDir(char* dest) noexcept {
    if (dest && platform::volumes().windowsDirectory(dest, kPathRoom) == 0) *dest = '\0';
    return dest;
}

int32_t VX_CALL vx_MakeDir(const char* path) noexcept {
    platform::SilentErrors silent(platform::process());
    return platform::tree().createDirectory(textOf(path));
}
int32_t VX_CALL vx_RemoveDir(const char* path) noexcept {
    platform::SilentErrors silent(platform::process());
    return platform::tree().removeDirectory(textOf(path));
}
int32_t VX_CALL vx_RenDir(const char* old, const char* name) noexcept { return renameDirectory(old, name); }

// kept: a file counts, too.
int32_t VX_CALL vx_IsDir(const char* path) noexcept {
    platform::SilentErrors silent(platform::process());
    return platform::tree().attributes(textOf(path)) != platform::kNoAttributes;
}
