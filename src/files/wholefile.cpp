// Files as the tree of names has them: moved, renamed, erased, measured, and the drives that they are on.
#include "entries/wholefile.h"

#include <bit>
#include <cstring>

#include "files/copy.h"
#include "files/drive_root.h"
#include "files/filesearch.h"
#include "files/make_path.h"
#include "files/open_file.h"
#include "files/path.h"
#include "files/walk.h"
#include "frame/text.h"
#include "platform/errors.h"
#include "platform/platform.h"

namespace vx {
namespace {

// --- Moves ---

// Of a file that does not open, what a search tells.
std::int32_t fileSize(const char* name) {
    if (OpenFile file = OpenFile::open(name, kReading); file.isOpen()) {
        return platform::files().seek(file.handle(), 0, platform::kFromEnd);
    }
    DirectorySearch search(textOf(name));
    return search.found() ? static_cast<std::int32_t>(foundSize(search.entry())) : -1;
}

// The free space where a file is to be: other volumes may be mounted below a drive's root. Of directories that are yet
// to be made the nearest one that is there counts.
bool freeBytesFor(const PathView& path, std::uint64_t& bytes) {
    platform::Volumes& volumes = platform::volumes();
    char text[kDriveSize + kPieceSize];
    joinPath({path.drive, path.directory, {}, {}}, text);
    for (std::size_t size = std::strlen(text); size > path.drive.size(); size = lastComponent({text, size - 1})) {
        text[size] = '\0';
        if (volumes.freeBytes(text, bytes)) return true;
    }
    char letter = path.drive.empty() ? driveLetter(volumes.currentDrive() - 1) : path.drive.front();
    return volumes.freeBytes(DriveRoot(letter).get(), bytes);
}

bool hasRoom(const PathView& path, std::int32_t size) {
    platform::SilentErrors silent(platform::process());
    std::uint64_t bytes;
    if (!freeBytesFor(path, bytes)) return size <= 0;
    return size <= 0 || static_cast<std::uint64_t>(size) <= bytes || refuse(false, platform::kDiskFull);
}

// Of one that is there, those on the way are not looked at. Commas in its name separate nothing: it is one directory.
bool ensureDirectoryOf(const PathView& path) {
    char text[kDriveSize + kPieceSize];
    std::size_t size = joinPath({path.drive, path.directory, {}, {}}, text);
    platform::SilentErrors silent(platform::process());
    return directoryExists(text) || makeDirectory({text, size});
}

// A piece of the greatest size may have been cut.
bool isWhole(const PathView& path) {
    return path.directory.size() < kPieceSize - 1 || refuse(false, platform::kFilenameTooLong);
}

std::int32_t moveFile(const char* source, const char* directory, bool erases) {
    char target[kJoinedSize];
    PathView path = viewPath({target, appendName(source, directory, target)});
    if (!isWhole(path) || !hasRoom(path, fileSize(source)) || !ensureDirectoryOf(path)) return -1;
    if (copyFile(source, target) < 0) return -1;
    std::int32_t size = fileSize(target);
    if (size < 0 || fileSize(source) != size) return -1;
    return erases && !platform::tree().erase(textOf(source)) ? 1 : 0;
}

// --- Drives ---

// The drive, from 0 for A, of the volume that a file is on. The first one, often for diskettes, is asked last.
std::int32_t driveHolding(std::int32_t handle) {
    platform::SilentErrors silent(platform::process());
    platform::FileInformation file;
    if (!platform::files().information(handle, file)) return -1;
    platform::Volumes& volumes = platform::volumes();
    auto isOn = [&](int drive) {
        platform::VolumeInformation volume;
        return volumes.information(DriveRoot(driveLetter(drive)).get(), volume) && volume.serial == file.volumeSerial;
    };
    std::uint32_t drives = volumes.logicalDrives() & ((1u << kDriveLetters) - 1);
    if (drives == 0) return -1;
    for (std::uint32_t rest = drives & (drives - 1); rest != 0; rest &= rest - 1) {
        if (int drive = std::countr_zero(rest); isOn(drive)) return drive;
    }
    int first = std::countr_zero(drives);
    return isOn(first) ? first : -1;
}

std::int32_t zeroOr(bool done) { return done ? 0 : -1; }

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_FMove(const char* source, const char* directory, int32_t erase) noexcept {
    return moveFile(source, directory, erase == 1);  // kept: any other flag keeps the source
}
int32_t VX_CALL vx_FRename(const char* from, const char* to) noexcept {
    return zeroOr(platform::tree().move(textOf(from), textOf(to)));
}
int32_t VX_CALL vx_FErase(const char* name) noexcept { return zeroOr(platform::tree().erase(textOf(name))); }
int32_t VX_CALL vx_FileSize(const char* name) noexcept { return fileSize(name); }

int32_t VX_CALL vx_FileDrive(int32_t handle) noexcept { return driveHolding(handle); }
// kept: no drive is ever told as remote, so no file is on one.
int32_t VX_CALL vx_FRemote(int32_t) noexcept { return 0; }
