// Whole files: copied, moved, compared, encrypted, wiped, tested, renamed, erased, measured.
#include "entries/wholefile.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <optional>

#include "checks/cipher.h"
#include "files/open_file.h"
#include "files/path.h"
#include "frame/text.h"
#include "platform/errors.h"
#include "platform/platform.h"

namespace vx {
namespace {

constexpr std::uint32_t kReading = platform::kRead | platform::kDenyNone;
constexpr std::uint32_t kChanging = platform::kReadWrite | platform::kDenyNone;
constexpr std::int32_t kMostBytes = std::numeric_limits<std::int32_t>::max();
static_assert(kMostBytes == platform::kLastPosition);

platform::Files& files() { return *platform::current().files; }
platform::Tree& tree() { return *platform::current().tree; }
platform::Process& process() { return *platform::current().process; }

const char* textOf(const char* name) { return name ? name : emptyText; }

// As StrEmpty tells: NULL is no blank text.
bool isBlank(const char* text) { return text && text[std::strspn(text, " \t")] == '\0'; }

template <typename Result>
Result refuse(Result result, std::uint32_t code) {
    process().setLastError(code);
    return result;
}

// Room for what is read and written at once: a little where there is no memory for more.
class TransferBuffer {
 public:
    explicit TransferBuffer(std::uint32_t wanted) : large_(new (std::nothrow) char[wanted]) {
        if (large_) size_ = wanted;
    }
    char* data() { return large_ ? large_.get() : small_; }
    std::uint32_t size() const { return size_; }

 private:
    std::unique_ptr<char[]> large_;
    char small_[1024];
    std::uint32_t size_ = sizeof small_;
};

// --- Copies ---

constexpr std::uint32_t kCopyBlock = 512 << 10;

// Copies what is left of a file, `most` bytes at most. Nothing if reading failed or writing fell short.
std::optional<std::int32_t> copyBytes(std::int32_t from, std::int32_t to, std::int32_t most) {
    TransferBuffer buffer(std::min(kCopyBlock, static_cast<std::uint32_t>(most)));
    std::int32_t done = 0;
    while (done < most) {
        std::uint32_t wanted = std::min(buffer.size(), static_cast<std::uint32_t>(most - done));
        std::int32_t got = files().read(from, buffer.data(), wanted);
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        if (files().write(to, buffer.data(), static_cast<std::uint32_t>(got)) != got) return std::nullopt;
        done += got;
    }
    return done;
}

// An open file to be read as a whole. Those with positions that cannot be told are refused.
bool inspect(const OpenFile& file, platform::FileInformation& information) {
    if (!files().information(file.handle(), information)) return false;
    return information.size <= std::uint64_t{kMostBytes} || refuse(false, platform::kFileTooLarge);
}

enum class Target { kOther, kSource, kUnknown };

Target relationOfPaths(const char* a, const char* b) {
    char paths[2][platform::kPathSize];
    for (int i : {0, 1}) {
        std::uint32_t size = tree().fullPath(textOf(i == 0 ? a : b), paths[i], platform::kPathSize);
        if (size == 0) return Target::kUnknown;
        if (size >= platform::kPathSize) return refuse(Target::kUnknown, platform::kFilenameTooLong);
    }
    bool same = std::equal(paths[0], paths[0] + std::strlen(paths[0]) + 1, paths[1],
                           [](char x, char y) { return upper(x) == upper(y); });
    return same ? Target::kSource : Target::kOther;
}

// Whether a target that would be emptied is the source by another name or another spelling. Unknown, with the reason,
// where that cannot be told: a target that is there and does not open could not be written either.
Target relationOf(const platform::FileInformation& source, const char* sourceName, const char* targetName) {
    OpenFile target = OpenFile::open(targetName, kReading);
    if (!target) {
        std::uint32_t reason = process().lastError();
        bool isNew = reason == platform::kFileNotFound || reason == platform::kPathNotFound;
        return isNew ? Target::kOther : Target::kUnknown;
    }
    platform::FileInformation found;
    bool known = files().information(target.handle(), found) && found.identity.index != 0 && source.identity.index != 0;
    if (!known) return relationOfPaths(sourceName, targetName);
    return found.identity == source.identity ? Target::kSource : Target::kOther;
}

// Closes and removes what could not be made whole. The error code stays the cause's.
void discard(OpenFile& file, const char* name) {
    KeptError cause;
    file.close();
    tree().erase(name);
}

std::int32_t copyFile(const char* sourceName, const char* targetName) {
    OpenFile source = OpenFile::open(sourceName, kReading);
    platform::FileInformation information;
    if (!source || !inspect(source, information)) return -1;
    Target relation = relationOf(information, sourceName, targetName);
    if (relation == Target::kSource) return refuse(-1, platform::kSharingViolation);
    if (relation == Target::kUnknown) return -1;
    OpenFile target = OpenFile::create(targetName);
    if (!target) return -1;
    std::optional<std::int32_t> copied = copyBytes(source.handle(), target.handle(), kMostBytes);
    {
        KeptError cause;
        files().setTimes(target.handle(), information.times);
    }
    if (copied && target.close()) return *copied;
    discard(target, targetName);
    return -1;
}

// --- Moves ---

// kept: of a file that does not open, the search's size in 32 bits, of which the high word takes off.
std::int32_t fileSize(const char* name) {
    if (OpenFile file = OpenFile::open(name, kReading)) return files().seek(file.handle(), 0, platform::kFromEnd);
    platform::FoundEntry entry;
    std::int32_t search = tree().findFirst(textOf(name), entry);
    if (search == -1) return -1;
    tree().findClose(search);
    return static_cast<std::int32_t>(entry.sizeLow - entry.sizeHigh);
}

// The free space where a file is to be: other volumes may be mounted below a drive's root. Of directories that are yet
// to be made the nearest one that is there counts.
bool freeBytesFor(const PathView& path, std::uint64_t& bytes) {
    platform::Volumes& volumes = *platform::current().volumes;
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
    platform::SilentErrors silent(process());
    std::uint64_t bytes;
    if (!freeBytesFor(path, bytes)) return size <= 0;
    return size <= 0 || static_cast<std::uint64_t>(size) <= bytes || refuse(false, platform::kDiskFull);
}

bool isDirectory(const char* path) {
    platform::SilentErrors silent(process());
    std::uint32_t attributes = tree().attributes(path);
    return attributes != platform::kNoAttributes && (attributes & platform::kDirectoryEntry);
}

// A directory that is there needs no making, and may have the commas in its name that separate the paths of a list.
bool ensureDirectoryOf(const PathView& path) {
    char text[kDriveSize + kPieceSize];
    joinPath({path.drive, path.directory, {}, {}}, text);
    return path.directory.empty() || isDirectory(text) || makePath(text);
}

std::int32_t moveFile(const char* source, const char* directory, bool erases) {
    char target[kJoinedSize];
    PathView path = viewPath({target, appendName(source, directory, target)});
    if (!hasRoom(path, fileSize(source)) || !ensureDirectoryOf(path)) return -1;
    if (copyFile(source, target) < 0) return -1;
    std::int32_t size = fileSize(target);
    if (size < 0 || fileSize(source) != size) return -1;
    return erases && !tree().erase(textOf(source)) ? 1 : 0;
}

// --- Comparing, testing, wiping ---

constexpr std::uint32_t kCompareBlock = 64 << 10;

std::int64_t readableSize(const OpenFile& file) {
    std::int64_t size = files().size(file.handle());
    return size <= kMostBytes ? size : refuse(std::int64_t{-1}, platform::kFileTooLarge);
}

// The length of what two blocks have in common at their starts.
std::uint32_t commonLength(const char* a, const char* b, std::uint32_t size) {
    if (std::memcmp(a, b, size) == 0) return size;
    return static_cast<std::uint32_t>(std::mismatch(a, a + size, b).first - a);
}

std::int32_t compareFiles(const char* firstName, const char* secondName) {
    process().setLastError(platform::kNoError);
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
        if (!isRead(files().read(first.handle(), a, count))) return -1;
        if (!isRead(files().read(second.handle(), b, count))) return -1;
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
    process().setLastError(platform::kNoError);
    std::int64_t position = 0;
    std::int32_t got;
    do {
        got = files().readAt(file.handle(), position, buffer.data(), buffer.size());
        position += got;
    } while (got > 0);
    return got == 0 && process().lastError() == platform::kNoError;
}

// Writes a buffer over the whole length of a file, down to the disk, and goes back to the start.
bool overwrite(const OpenFile& file, std::int64_t size, TransferBuffer& buffer) {
    for (std::int64_t left = size; left > 0;) {
        std::uint32_t count = static_cast<std::uint32_t>(std::min<std::int64_t>(buffer.size(), left));
        std::int32_t written = files().write(file.handle(), buffer.data(), count);
        if (written != static_cast<std::int32_t>(count)) return false;
        left -= count;
    }
    return files().flush(file.handle()) && files().seek(file.handle(), 0, platform::kFromStart) == 0;
}

// A link is removed, and what it leads to is left alone.
bool wipe(const char* name) {
    constexpr int kPasses = 6;
    constexpr std::uint32_t kWipeBlock = 64 << 10;
    std::uint32_t attributes = tree().attributes(textOf(name));
    if (attributes == platform::kNoAttributes) return false;
    if (attributes & platform::kLink) return tree().erase(name);
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
    return tree().erase(name);
}

// --- Encrypting ---

// The size of the blocks, each of which is encrypted by itself, belongs to the format of encrypted files.
constexpr std::uint32_t kCipherBlock = 32768;

// Reads all of a block, or what the file has left of it. -1 on failure.
std::int32_t readBlock(std::int32_t handle, char* to, std::uint32_t size) {
    std::uint32_t done = 0;
    while (done < size) {
        std::int32_t got = files().read(handle, to + done, size - done);
        if (got < 0) return -1;
        if (got == 0) break;
        done += static_cast<std::uint32_t>(got);
    }
    return static_cast<std::int32_t>(done);
}

bool encryptBytes(std::int32_t from, std::int32_t to, TransferBuffer& buffer) {
    for (std::int32_t left = kMostBytes; left > 0;) {
        std::int32_t got = readBlock(from, buffer.data(), std::min(buffer.size(), static_cast<std::uint32_t>(left)));
        if (got <= 0) return got == 0;
        applyBufferCipher(buffer.data(), static_cast<std::size_t>(got));
        if (files().write(to, buffer.data(), static_cast<std::uint32_t>(got)) != got) return false;
        left -= got;
    }
    return true;
}

bool encrypt(const char* sourceName, const char* targetName) {
    TransferBuffer buffer(kCipherBlock);
    process().setLastError(platform::kNoError);
    OpenFile source = OpenFile::open(sourceName, kReading);
    platform::FileInformation information;
    if (!source || !inspect(source, information)) return false;
    bool inPlace = isBlank(targetName);
    if (!inPlace) {
        Target relation = relationOf(information, sourceName, targetName);
        if (relation == Target::kUnknown) return false;
        inPlace = relation == Target::kSource;
    }
    OpenFile target = inPlace ? OpenFile::open(sourceName, kChanging) : OpenFile::create(targetName);
    if (!target) return false;
    if (encryptBytes(source.handle(), target.handle(), buffer) && target.close()) {
        source.close();
        return refuse(true, platform::kNoError);
    }
    if (!inPlace) discard(target, targetName);
    return false;
}

// --- Texts and names ---

std::int32_t replicate(std::int32_t handle, std::string_view text, std::int32_t count) {
    if (text.empty()) return count;  // kept: nothing is written, and a negative count comes back, too
    std::uint32_t size = static_cast<std::uint32_t>(std::min(text.size(), std::size_t{kMostBytes}));
    std::int32_t done = 0;
    while (done < count) {
        ++done;
        if (files().write(handle, text.data(), size) != static_cast<std::int32_t>(size)) break;
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
    platform::SilentErrors silent(process());
    platform::FileInformation file;
    if (!files().information(handle, file)) return -1;
    platform::Volumes& volumes = *platform::current().volumes;
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

ENTRY(int32_t, FCcopy)(const char* source, const char* target) noexcept { return copyFile(source, target); }
ENTRY(int32_t, FCopyByte)(int32_t source, int32_t target, int32_t count) noexcept {
    return copyBytes(source, target, std::max(count, 0)).value_or(-1);
}
ENTRY(int32_t, FMove)(const char* source, const char* directory, int32_t erase) noexcept {
    return moveFile(source, directory, erase == 1);  // kept: any other flag keeps the source
}
ENTRY(int32_t, FCompare)(const char* first, const char* second) noexcept { return compareFiles(first, second); }
ENTRY(int32_t, WipeFile)(const char* name) noexcept { return wipe(name); }
ENTRY(int32_t, FileTest)(const char* name) noexcept { return canBeRead(name); }
ENTRY(int32_t, FRename)(const char* from, const char* to) noexcept {
    return zeroOr(tree().move(textOf(from), textOf(to)));
}
ENTRY(int32_t, FErase)(const char* name) noexcept { return zeroOr(tree().erase(textOf(name))); }
ENTRY(int32_t, FileSize)(const char* name) noexcept { return fileSize(name); }
ENTRY(int32_t, FReplicate)(int32_t handle, const char* text, int32_t count) noexcept {
    return replicate(handle, view(text), count);
}
ENTRY(int32_t, FEncrypt)(const char* source, const char* target) noexcept { return encrypt(source, target); }
ENTRY(int32_t, FDecrypt)(const char* source, const char* target) noexcept { return encrypt(source, target); }

// Made aside: the name may be its own destination.
ENTRY(char*, FMerge)(const char* pattern, const char* name, char* dest) noexcept {
    char* to = target(name, dest);
    if (!to) return nullptr;
    char path[kJoinedSize];
    return store(to, {path, mergePaths(pattern, name, path)});
}

ENTRY(int32_t, FileDrive)(int32_t handle) noexcept { return driveOf(handle); }
// kept: no drive is ever told as remote, so no file is on one.
ENTRY(int32_t, FRemote)(int32_t) noexcept { return 0; }
