// Files opened, read, written and closed by their handles.
//
// Handles are the platform's own. The library only keeps a list of those that callers have open, to close them when it
// goes; one that is not in the list, because it came from elsewhere or the list was full, works like any other.
#include "files/handles.h"

#include <algorithm>
#include <iterator>

#include "entries/handles.h"
#include "entries/wholefile.h"
#include "files/walk.h"
#include "frame/text.h"
#include "platform/errors.h"

namespace vx {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

// The table's first slot that holds a value; null if there is none.
std::int32_t* slotWith(std::int32_t value) {
    auto slot = std::find(std::begin(library.handles), std::end(library.handles), value);
    return slot == std::end(library.handles) ? nullptr : slot;
}

std::int32_t recorded(std::int32_t handle) {
    if (handle != kNoHandle) record(handle);
    return handle;
}

// Whether no entry is seen under a name; with the reason if not.
// kept: a file without any attribute, not even the archive attribute, is not seen.
bool seesNone(const char* name) {
    using namespace platform;
    constexpr std::uint32_t kSeen = kReadOnly | kHidden | kSystem | kDirectoryEntry | kArchive;
    DirectorySearch search(name);
    if (!search.found()) return search.sawAll();
    return (search.entry().attributes & kSeen) == 0 || refuse(false, kFileExists);
}

// A count beyond all positions is for what is left of the file.
std::int32_t readBytes(std::int32_t handle, void* to, std::uint32_t count) {
    if (!to) return refuse(-1, platform::kInvalidParameter);
    if (count > std::uint32_t{kMostBytes}) {
        std::int32_t length = lengthOf(handle);
        std::int32_t position = length < 0 ? -1 : positionOf(handle);
        if (position < 0) return -1;
        count = static_cast<std::uint32_t>(std::max(length - position, 0));
    }
    return platform::files().read(handle, to, count);
}

std::int32_t readBytes(std::int32_t handle, void* to, std::int32_t count) {
    return readBytes(handle, to, static_cast<std::uint32_t>(std::max(count, 0)));
}

std::int32_t writeBytes(std::int32_t handle, const void* from, std::int32_t count) {
    if (count < 1) return 0;
    return from ? platform::files().write(handle, from, static_cast<std::uint32_t>(count))
                : refuse(-1, platform::kInvalidParameter);
}

template <class Number>
std::int32_t writeNumber(std::int32_t handle, std::int32_t value) {
    Number number = static_cast<Number>(value);
    return writeBytes(handle, &number, sizeof number);
}

// Texts can be longer than what one call writes.
std::int32_t sizeAtOnce(std::size_t size) { return static_cast<std::int32_t>(std::min<std::size_t>(size, kMostBytes)); }

std::int32_t replicate(std::int32_t handle, std::string_view text, std::int32_t count) {
    if (text.empty()) return count;  // kept: nothing is written, and a negative count comes back, too
    std::int32_t size = sizeAtOnce(text.size());
    std::int32_t done = 0;
    while (done < count) {
        ++done;
        if (writeBytes(handle, text.data(), size) != size) break;
    }
    return done;
}

}  // namespace

void record(std::int32_t handle) {
    if (std::int32_t* slot = slotWith(kNoHandle)) *slot = handle;
}

std::int32_t openRecorded(const char* name, std::uint32_t mode) {
    return recorded(platform::files().open(textOf(name), mode));
}

std::int32_t createRecorded(const char* name, std::uint32_t attributes) {
    return recorded(platform::files().create(textOf(name), attributes));
}

std::int32_t createNewRecorded(const char* name, std::uint32_t attributes) {
    return seesNone(textOf(name)) ? createRecorded(name, attributes) : -1;
}

bool closeRecorded(std::int32_t handle) {
    if (!platform::files().close(handle)) return false;
    if (std::int32_t* slot = slotWith(handle)) *slot = kNoHandle;
    return true;
}

std::int32_t lengthOf(std::int32_t handle) {
    std::int64_t size = platform::files().size(handle);
    return size <= platform::kLastPosition ? static_cast<std::int32_t>(size) : refuse(-1, platform::kInvalidParameter);
}

bool atEnd(std::int32_t handle) {
    std::int32_t position = positionOf(handle);
    return position == -1 || lengthOf(handle) <= position;
}

void putBack(std::int32_t handle, std::int32_t position) {
    platform::Process& process = platform::process();
    std::uint32_t code = process.lastError();
    if (platform::files().seek(handle, position, platform::kFromStart) != -1) process.setLastError(code);
}

bool readAll(std::int32_t handle, void* to, std::uint32_t size) {
    return platform::files().read(handle, to, size) == static_cast<std::int32_t>(size);
}

std::int32_t writeText(std::int32_t handle, std::string_view text) {
    return writeBytes(handle, text.data(), sizeAtOnce(text.size()));
}

}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_FOpen(const char* name, uint32_t mode) noexcept { return openRecorded(name, mode); }

int32_t VX_CALL vx_FCreate(const char* name, uint32_t attribute) noexcept { return createRecorded(name, attribute); }

int32_t VX_CALL vx_FCreatef(const char* name, uint32_t attribute) noexcept {
    return createNewRecorded(name, attribute);
}

int32_t VX_CALL vx_FClose(int32_t handle) noexcept { return closeRecorded(handle); }

int32_t VX_CALL vx_FRead(int32_t handle, void* buffer, uint32_t count) noexcept {
    return readBytes(handle, buffer, count);
}

int32_t VX_CALL vx_FWrite(int32_t handle, const void* buffer, int32_t count) noexcept {
    return writeBytes(handle, buffer, count);
}

int32_t VX_CALL vx_hread(int32_t handle, void* buffer, int32_t count) noexcept {
    return readBytes(handle, buffer, count);
}

void VX_CALL vx_hwrite(int32_t handle, const void* buffer, int32_t count) noexcept {
    writeBytes(handle, buffer, count);
}

int32_t VX_CALL vx_FSeek(int32_t handle, int32_t offset, int32_t origin) noexcept {
    return platform::files().seek(handle, offset, origin);
}

int32_t VX_CALL vx_FTell(int32_t handle) noexcept { return positionOf(handle); }

int32_t VX_CALL vx_FLen(int32_t handle) noexcept { return lengthOf(handle); }

int32_t VX_CALL vx_FBof(int32_t handle) noexcept { return positionOf(handle) == 0; }

int32_t VX_CALL vx_FEof(int32_t handle) noexcept { return atEnd(handle); }

int32_t VX_CALL vx_FTruncate(int32_t handle) noexcept { return platform::files().truncate(handle); }

int32_t VX_CALL vx_FCommit(int32_t handle) noexcept {
    platform::files().flush(handle);
    return 0;  // kept: the flush done, a descriptor of the C runtime is looked for, and a handle is none
}

int32_t VX_CALL vx_FAccess(int32_t handle, int32_t, int32_t, int32_t) noexcept {
    positionOf(handle);  // leaves the reason when the handle is not open
    return 0;            // kept: it locks descriptors of the C runtime, and a handle is none
}

// kept: duplicates descriptors of the C runtime, and a handle is none.
int32_t VX_CALL vx_FDupe(int32_t) noexcept { return -1; }

int32_t VX_CALL vx_ValidHandle(int32_t handle) noexcept {
    platform::FileInformation information;
    return platform::files().information(handle, information);
}

uint32_t VX_CALL vx_FError() noexcept { return platform::process().lastError(); }

void VX_CALL vx_SetFError(uint32_t code) noexcept { platform::process().setLastError(code); }

uint32_t VX_CALL vx_FReadDword(int32_t handle) noexcept {
    return readNumber<std::uint32_t>(handle).value_or(0xFFFFFFFF);
}
int32_t VX_CALL vx_FReadLong(int32_t handle) noexcept { return readNumber<std::int32_t>(handle).value_or(-1); }
int32_t VX_CALL vx_FReadInt(int32_t handle) noexcept { return readNumber<std::int32_t>(handle).value_or(-1); }
int32_t VX_CALL vx_FReadWord(int32_t handle) noexcept { return readNumber<std::uint16_t>(handle).value_or(0xFFFF); }
int32_t VX_CALL vx_FReadByte(int32_t handle) noexcept { return readNumber<std::uint8_t>(handle).value_or(0xFF); }

int32_t VX_CALL vx_FWriteDword(int32_t handle, uint32_t value) noexcept {
    return writeNumber<std::uint32_t>(handle, static_cast<std::int32_t>(value));
}
int32_t VX_CALL vx_FWriteLong(int32_t handle, int32_t value) noexcept {
    return writeNumber<std::int32_t>(handle, value);
}
int32_t VX_CALL vx_FWriteInt(int32_t handle, int32_t value) noexcept {
    return writeNumber<std::int32_t>(handle, value);
}
int32_t VX_CALL vx_FWriteword(int32_t handle, int32_t value) noexcept {
    return writeNumber<std::uint16_t>(handle, value);
}
int32_t VX_CALL vx_FWriteByte(int32_t handle, int32_t value) noexcept {
    return writeNumber<std::uint8_t>(handle, value);
}

char* VX_CALL vx_FReadStr(int32_t handle, char* buffer, int32_t count) noexcept {
    if (!buffer) return nullptr;
    std::int32_t size = readBytes(handle, buffer, count);
    buffer[std::max(size, 0)] = '\0';
    return buffer;
}

int32_t VX_CALL vx_FReads(int32_t handle, void* buffer, int32_t count, int32_t delimiter) noexcept {
    if (!buffer) return refuse(-1, platform::kInvalidParameter);
    char* text = static_cast<char*>(buffer);
    *text = '\0';
    std::int32_t size = readBytes(handle, text, count);
    if (size < 0 || delimiter < 0) return size;  // kept: a plain read, nothing terminates it
    std::size_t read = static_cast<std::size_t>(size);
    const void* found = std::memchr(text, delimiter & 0xFF, read);
    std::size_t consumed = found ? static_cast<std::size_t>(static_cast<const char*>(found) - text) + 1 : read;
    text[consumed] = '\0';
    if (consumed < read) {
        platform::files().seek(handle, static_cast<std::int32_t>(consumed) - size, platform::kFromCurrent);
    }
    return static_cast<std::int32_t>(consumed);
}

int32_t VX_CALL vx_FWrites(int32_t handle, const char* text) noexcept {
    if (!text) text = emptyText;
    return writeBytes(handle, text, sizeAtOnce(std::strlen(text) + 1));
}

int32_t VX_CALL vx_FWritestr(int32_t handle, const char* text) noexcept { return writeText(handle, view(text)); }

int32_t VX_CALL vx_FWriteLine(int32_t handle, const char* text) noexcept {
    std::string_view line = view(text);
    auto writes = [handle](std::string_view part) {
        return writeText(handle, part) == static_cast<std::int64_t>(part.size());
    };
    bool written = !line.empty() && writes(line);
    bool ended = writes(kLineEnd);
    return written || ended;  // kept: either of the two is enough
}

int32_t VX_CALL vx_FReplicate(int32_t handle, const char* text, int32_t count) noexcept {
    return replicate(handle, view(text), count);
}
