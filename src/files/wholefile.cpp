// Whole files: moved, compared, wiped, tested, renamed, erased, measured.
#include "entries/wholefile.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>

#include "files/copy.h"
#include "files/open_file.h"
#include "files/path.h"
#include "frame/text.h"
#include "platform/errors.h"
#include "platform/platform.h"

namespace vx {
namespace {

// --- Moves ---

// kept: of a file that does not open, the search's size in 32 bits, of which the high word takes off.
std::int32_t fileSize(const char* name) {
    if (OpenFile file = OpenFile::open(name, kReading)) {
        return platform::files().seek(file.handle(), 0, platform::kFromEnd);
    }
    platform::FoundEntry entry;
    std::int32_t search = platform::tree().findFirst(textOf(name), entry);
    if (search == -1) return -1;
    platform::tree().findClose(search);
    return static_cast<std::int32_t>(entry.sizeLow - entry.sizeHigh);
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
    char letter = path.drive.empty() ? static_cast<char>('A' + volumes.currentDrive() - 1) : path.drive.front();
    const char root[] = {letter, ':', '\\', '\0'};
    return volumes.freeBytes(root, bytes);
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

// --- Comparing, testing, wiping ---

constexpr std::uint32_t kCompareBlock = 64 << 10;

std::int64_t readableSize(const OpenFile& file) {
    std::int64_t size = platform::files().size(file.handle());
    return size <= kMostBytes ? size : refuse(std::int64_t{-1}, platform::kFileTooLarge);
}

// The length of what two blocks have in common at their starts.
std::uint32_t commonLength(const char* a, const char* b, std::uint32_t size) {
    if (std::memcmp(a, b, size) == 0) return size;
    return static_cast<std::uint32_t>(std::mismatch(a, a + size, b).first - a);
}

std::int32_t compareFiles(const char* firstName, const char* secondName) {
    platform::process().setLastError(platform::kNoError);
    std::unique_ptr<char[]> blocks(new (std::nothrow) char[2 * kCompareBlock]);
    if (!blocks) return refuse(-1, platform::kNotEnoughMemory);
    OpenFile first = OpenFile::open(firstName, kReading);
    if (!first) return -1;
    OpenFile second = OpenFile::open(secondName, kReading);
    if (!second) return -1;
    std::int64_t firstSize = readableSize(first);
    std::int64_t secondSize = firstSize >= 0 ? readableSize(second) : -1;
    if (secondSize < 0) return -1;

    char* a = blocks.get();
    char* b = a + kCompareBlock;
    std::int32_t common = static_cast<std::int32_t>(std::min(firstSize, secondSize));
    for (std::int32_t done = 0; done < common;) {
        std::uint32_t count = std::min(kCompareBlock, static_cast<std::uint32_t>(common - done));
        auto isRead = [count](std::int32_t got) { return got == static_cast<std::int32_t>(count); };
        if (!isRead(platform::files().read(first.handle(), a, count))) return -1;
        if (!isRead(platform::files().read(second.handle(), b, count))) return -1;
        std::uint32_t equal = commonLength(a, b, count);
        done += static_cast<std::int32_t>(equal);
        if (equal < count) return done + 1;
    }
    return firstSize == secondSize ? 0 : common + 1;
}

bool canBeRead(const char* name) {
    constexpr std::uint32_t kTestBlock = 256 << 10;
    OpenFile file = OpenFile::open(name, kReading);
    if (!file) return false;
    TransferBuffer buffer(kTestBlock);
    platform::process().setLastError(platform::kNoError);
    std::int64_t position = 0;
    std::int32_t got;
    do {
        got = platform::files().readAt(file.handle(), position, buffer.data(), buffer.size());
        position += got;
    } while (got > 0);
    return got == 0 && platform::process().lastError() == platform::kNoError;
}

// Writes a buffer over the whole length of a file, down to the disk, and goes back to the start.
bool overwrite(const OpenFile& file, std::int64_t size, TransferBuffer& buffer) {
    for (std::int64_t left = size; left > 0;) {
        std::uint32_t count = static_cast<std::uint32_t>(std::min<std::int64_t>(buffer.size(), left));
        std::int32_t written = platform::files().write(file.handle(), buffer.data(), count);
        if (written != static_cast<std::int32_t>(count)) return false;
        left -= count;
    }
    return platform::files().flush(file.handle()) &&
           platform::files().seek(file.handle(), 0, platform::kFromStart) == 0;
}

// A link is removed, and what it leads to is left alone.
bool wipe(const char* name) {
    constexpr int kPasses = 6;
    constexpr std::uint32_t kWipeBlock = 64 << 10;
    std::uint32_t attributes = platform::tree().attributes(textOf(name));
    if (attributes == platform::kNoAttributes) return false;
    // What is behind it would be wiped, or would stay while the caller is told that it is gone.
    if (attributes & platform::kLink) return refuse(false, platform::kAccessDenied);
    OpenFile file = OpenFile::open(name, platform::kReadWrite);
    if (!file) return false;
    std::int64_t size = readableSize(file);
    if (size < 0) return false;
    TransferBuffer buffer(kWipeBlock);
    for (int pass = 1; pass <= kPasses; ++pass) {
        std::memset(buffer.data(), pass % 2 ? 0x00 : 0xFF, buffer.size());
        if (!overwrite(file, size, buffer)) return false;
    }
    file.close();
    return platform::tree().erase(name);
}

// --- Texts and names ---

std::int32_t replicate(std::int32_t handle, std::string_view text, std::int32_t count) {
    if (text.empty()) return count;  // kept: nothing is written, and a negative count comes back, too
    std::uint32_t size = static_cast<std::uint32_t>(std::min(text.size(), std::size_t{kMostBytes}));
    std::int32_t done = 0;
    while (done < count) {
        ++done;
        if (platform::files().write(handle, text.data(), size) != static_cast<std::int32_t>(size)) break;
    }
    return done;
}

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

// The drive, from 0 for A, of the volume that a file is on. The first one, often for diskettes, is asked last.
std::int32_t driveOf(std::int32_t handle) {
    constexpr std::uint32_t kLetters = 26;
    platform::SilentErrors silent(platform::process());
    platform::FileInformation file;
    if (!platform::files().information(handle, file)) return -1;
    platform::Volumes& volumes = platform::volumes();
    auto isOn = [&](int drive) {
        const char root[] = {static_cast<char>('A' + drive), ':', '\\', '\0'};
        platform::VolumeInformation volume;
        return volumes.information(root, volume) && volume.serial == file.volumeSerial;
    };
    std::uint32_t drives = volumes.logicalDrives() & ((1u << kLetters) - 1);
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
int32_t VX_CALL vx_FCompare(const char* first, const char* second) noexcept { return compareFiles(first, second); }
int32_t VX_CALL vx_WipeFile(const char* name) noexcept { return wipe(name); }
int32_t VX_CALL vx_FileTest(const char* name) noexcept { return canBeRead(name); }
int32_t VX_CALL vx_FRename(const char* from, const char* to) noexcept {
    return zeroOr(platform::tree().move(textOf(from), textOf(to)));
}
int32_t VX_CALL vx_FErase(const char* name) noexcept { return zeroOr(platform::tree().erase(textOf(name))); }
int32_t VX_CALL vx_FileSize(const char* name) noexcept { return fileSize(name); }
int32_t VX_CALL vx_FReplicate(int32_t handle, const char* text, int32_t count) noexcept {
    return replicate(handle, view(text), count);
}

// Made aside: the name may be its own destination.
char* VX_CALL vx_FMerge(const char* pattern, const char* name, char* dest) noexcept {
    char* to = target(name, dest);
    if (!to) return nullptr;
    char path[kJoinedSize];
    return store(to, {path, mergePaths(pattern, name, path)});
}

int32_t VX_CALL vx_FileDrive(int32_t handle) noexcept { return driveOf(handle); }
// kept: no drive is ever told as remote, so no file is on one.
int32_t VX_CALL vx_FRemote(int32_t) noexcept { return 0; }
