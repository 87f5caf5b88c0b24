// Files made from others: copied, encrypted.
//
// Two things shall never happen: that a target which would be emptied is the source by another name or spelling, and
// that half a target is left behind. The system tells files apart by their identities; where it does not, their full
// paths do.
#include "files/copy.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "checksums/cipher.h"
#include "entries/wholefile.h"
#include "files/open_file.h"
#include "files/path.h"
#include "frame/text.h"
#include "platform/errors.h"

namespace vx {
namespace {

// As StrEmpty tells: NULL is no blank text.
bool isBlank(const char* text) { return text && text[std::strspn(text, " \t")] == '\0'; }

constexpr std::uint32_t kCopyBlock = 512 << 10;

// Copies what is left of a file, `most` bytes at most. Nothing if reading failed or writing fell short.
std::optional<std::int32_t> copyBytes(std::int32_t from, std::int32_t to, std::int32_t most) {
    TransferBuffer buffer(std::min(kCopyBlock, static_cast<std::uint32_t>(most)));
    std::int32_t done = 0;
    while (done < most) {
        std::uint32_t wanted = std::min(buffer.size(), static_cast<std::uint32_t>(most - done));
        std::int32_t got = platform::files().read(from, buffer.data(), wanted);
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        if (platform::files().write(to, buffer.data(), static_cast<std::uint32_t>(got)) != got) return std::nullopt;
        done += got;
    }
    return done;
}

// An open file to be read as a whole. Those with positions that cannot be told are refused.
bool inspect(const OpenFile& file, platform::FileInformation& information) {
    if (!platform::files().information(file.handle(), information)) return false;
    return information.size <= std::uint64_t{kMostBytes} || refuse(false, platform::kFileTooLarge);
}

enum class Target { kOther, kSource, kUnknown };

Target relationOfPaths(const char* a, const char* b) {
    char paths[2][platform::kPathSize];
    for (int i : {0, 1}) {
        std::uint32_t size = platform::tree().fullPath(textOf(i == 0 ? a : b), paths[i], platform::kPathSize);
        if (size == 0) return Target::kUnknown;
        if (size >= platform::kPathSize) return refuse(Target::kUnknown, platform::kFilenameTooLong);
    }
    return isSamePath(paths[0], paths[1]) ? Target::kSource : Target::kOther;
}

// Whether a target that would be emptied is the source by another name or another spelling. Unknown, with the reason,
// where that cannot be told: a target that is there and does not open could not be written either.
Target relationOf(const platform::FileInformation& source, const char* sourceName, const char* targetName) {
    std::uint32_t before = platform::process().lastError();
    OpenFile target = OpenFile::open(targetName, kReading);
    if (!target.isOpen()) {
        std::uint32_t reason = platform::process().lastError();
        bool isNew = reason == platform::kFileNotFound || reason == platform::kPathNotFound;
        return isNew ? refuse(Target::kOther, before) : Target::kUnknown;
    }
    platform::FileInformation found;
    bool known = platform::files().information(target.handle(), found) && found.identity.index != 0 &&
                 source.identity.index != 0;
    if (!known) return relationOfPaths(sourceName, targetName);
    return found.identity == source.identity ? Target::kSource : Target::kOther;
}

// Closes and removes what could not be made whole. The error code stays the cause's.
void discard(OpenFile& file, const char* name) {
    KeptError cause;
    file.close();
    platform::tree().erase(name);
}

// --- Encrypting ---

// The size of the blocks, each of which is encrypted by itself, belongs to the format of encrypted files.
constexpr std::uint32_t kCipherBlock = 32768;

// Reads all of a block, or what the file has left of it. -1 on failure.
std::int32_t readBlock(std::int32_t handle, char* to, std::uint32_t size) {
    std::uint32_t done = 0;
    while (done < size) {
        std::int32_t got = platform::files().read(handle, to + done, size - done);
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
        if (platform::files().write(to, buffer.data(), static_cast<std::uint32_t>(got)) != got) return false;
        left -= got;
    }
    return true;
}

bool encrypt(const char* sourceName, const char* targetName) {
    TransferBuffer buffer(kCipherBlock);
    platform::process().setLastError(platform::kNoError);
    OpenFile source = OpenFile::open(sourceName, kReading);
    platform::FileInformation information;
    if (!source.isOpen() || !inspect(source, information)) return false;
    bool inPlace = isBlank(targetName);
    if (!inPlace) {
        Target relation = relationOf(information, sourceName, targetName);
        if (relation == Target::kUnknown) return false;
        inPlace = relation == Target::kSource;
    }
    OpenFile target =
        inPlace ? OpenFile::open(sourceName, platform::kReadWrite | platform::kDenyNone) : OpenFile::create(targetName);
    if (!target.isOpen()) return false;
    if (encryptBytes(source.handle(), target.handle(), buffer) && target.close()) {
        source.close();
        return refuse(true, platform::kNoError);
    }
    if (!inPlace) discard(target, targetName);
    return false;
}

}  // namespace

std::int32_t copyFile(const char* sourceName, const char* targetName) {
    OpenFile source = OpenFile::open(sourceName, kReading);
    platform::FileInformation information;
    if (!source.isOpen() || !inspect(source, information)) return -1;
    Target relation = relationOf(information, sourceName, targetName);
    if (relation == Target::kSource) return refuse(-1, platform::kSharingViolation);
    if (relation == Target::kUnknown) return -1;
    OpenFile target = OpenFile::create(targetName);
    if (!target.isOpen()) return -1;
    std::optional<std::int32_t> copied = copyBytes(source.handle(), target.handle(), kMostBytes);
    {
        KeptError cause;
        platform::files().setTimes(target.handle(), information.times);
    }
    if (copied && target.close()) return *copied;
    discard(target, targetName);
    return -1;
}

}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_FCcopy(const char* source, const char* target) noexcept { return copyFile(source, target); }
int32_t VX_CALL vx_FCopyByte(int32_t source, int32_t target, int32_t count) noexcept {
    return copyBytes(source, target, std::max(count, 0)).value_or(-1);
}
int32_t VX_CALL vx_FEncrypt(const char* source, const char* target) noexcept { return encrypt(source, target); }
int32_t VX_CALL vx_FDecrypt(const char* source, const char* target) noexcept { return encrypt(source, target); }
