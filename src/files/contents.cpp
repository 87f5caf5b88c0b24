// Files gone over from their first byte to their last: compared, tested, wiped. What is compared or wiped is measured
// first: a file that has become shorter meanwhile is a failure, and what has been added to one does not count.
#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

#include "entries/wholefile.h"
#include "files/copy.h"
#include "files/open_file.h"
#include "frame/text.h"
#include "platform/errors.h"
#include "platform/platform.h"

namespace vx {
namespace {

constexpr std::uint32_t kCompareBlock = 64 << 10;

std::int64_t readableSize(const OpenFile& file) {
    std::int64_t size = file.size();
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
    if (!blocks) return refuse(std::int32_t{-1}, platform::kNotEnoughMemory);
    OpenFile first = OpenFile::open(firstName, kReading);
    if (!first.isOpen()) return -1;
    OpenFile second = OpenFile::open(secondName, kReading);
    if (!second.isOpen()) return -1;
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
    if (!file.isOpen()) return false;
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
    return file.commit() && platform::files().seek(file.handle(), 0, platform::kFromStart) == 0;
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
    if (!file.isOpen()) return false;
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

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_FCompare(const char* first, const char* second) noexcept { return compareFiles(first, second); }
int32_t VX_CALL vx_WipeFile(const char* name) noexcept { return wipe(name); }
int32_t VX_CALL vx_FileTest(const char* name) noexcept { return canBeRead(name); }
