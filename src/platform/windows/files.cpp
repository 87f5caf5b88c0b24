// Open files of Windows. A handle is the system's, its low 32 bits: in 64-bit processes, too, handles of files have no
// more that count, and what is above is the sign's.
#include <windows.h>

#include <algorithm>

#include "platform/errors.h"
#include "platform/platform.h"
#include "platform/windows/system_time.h"

namespace vx::platform {
namespace {

HANDLE handleOf(std::int32_t handle) { return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(handle)); }

// A time that SetFileTime takes: none where it is to stay.
class GivenTime {
 public:
    explicit GivenTime(FileTime time) : given_(time != 0), time_(fileTime(time)) {}
    const FILETIME* get() const { return given_ ? &time_ : nullptr; }

 private:
    bool given_;
    FILETIME time_;
};

std::uint64_t wide(DWORD high, DWORD low) { return (static_cast<std::uint64_t>(high) << 32) | low; }

OVERLAPPED placeAt(std::int64_t position) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(position);
    place.OffsetHigh = static_cast<DWORD>(position >> 32);
    return place;
}

// Windows 95 refuses to read and write anywhere but where the handle stands.
bool hasPlaces() { return (GetVersion() & 0x80000000) == 0; }

class WindowsFiles final : public Files {
 public:
    std::int32_t open(const char* name, std::uint32_t mode) override {
        return static_cast<std::int32_t>(_lopen(name, static_cast<int>(mode)));
    }

    std::int32_t create(const char* name, std::uint32_t attributes) override {
        return static_cast<std::int32_t>(_lcreat(name, static_cast<int>(attributes)));
    }

    bool close(std::int32_t handle) override {
        if (handle >= 0) return CloseHandle(handleOf(handle));
        SetLastError(kInvalidHandle);  // Windows has such for the running process, and closing one is no failure to it
        return false;
    }

    std::int32_t read(std::int32_t handle, void* to, std::uint32_t count) override {
        std::uint32_t wanted = allowed(handle, count);
        if (wanted == 0 && count != 0 && size(handle) > kLastPosition) return refuse();
        DWORD done = 0;
        return ReadFile(handleOf(handle), to, wanted, &done, nullptr) ? static_cast<std::int32_t>(done) : -1;
    }

    std::int32_t write(std::int32_t handle, const void* from, std::uint32_t count) override {
        std::uint32_t wanted = allowed(handle, count);
        if (wanted == 0 && count != 0) return refuse();
        DWORD done = 0;
        return WriteFile(handleOf(handle), from, wanted, &done, nullptr) ? static_cast<std::int32_t>(done) : -1;
    }

    std::int32_t seek(std::int32_t handle, std::int32_t offset, std::int32_t origin) override {
        std::int64_t before = origin == kFromEnd ? move(handle, 0, kFromCurrent) : 0;
        if (before < 0) return -1;
        std::int64_t after = move(handle, offset, origin);
        if (after <= kLastPosition) return static_cast<std::int32_t>(after);
        move(handle, origin == kFromEnd ? before : after - offset, kFromStart);
        return refuse();
    }

    std::int32_t readAt(std::int32_t handle, std::int64_t position, void* to, std::uint32_t count) override {
        if (!hasPlaces()) return move(handle, position, kFromStart) < 0 ? -1 : read(handle, to, count);
        OVERLAPPED place = placeAt(position);
        DWORD before = GetLastError();
        DWORD done = 0;
        if (ReadFile(handleOf(handle), to, count, &done, &place)) return static_cast<std::int32_t>(done);
        if (GetLastError() != ERROR_HANDLE_EOF) return -1;
        SetLastError(before);  // the end of the file is no failure
        return 0;
    }

    std::int32_t writeAt(std::int32_t handle, std::int64_t position, const void* from, std::uint32_t count) override {
        if (count != 0 && (position < 0 || position >= kLastPosition)) return refuse();
        if (!hasPlaces()) return move(handle, position, kFromStart) < 0 ? -1 : write(handle, from, count);
        count = upToLast(position, count);
        OVERLAPPED place = placeAt(position);
        DWORD done = 0;
        return WriteFile(handleOf(handle), from, count, &done, &place) ? static_cast<std::int32_t>(done) : -1;
    }

    std::int64_t size(std::int32_t handle) override {
        DWORD high = 0;
        return unlessFailed(high, [&] { return GetFileSize(handleOf(handle), &high); });
    }

    bool truncate(std::int32_t handle) override {
        if (move(handle, 0, kFromCurrent) > kLastPosition) return refuse(false);
        return SetEndOfFile(handleOf(handle));
    }

    bool flush(std::int32_t handle) override { return FlushFileBuffers(handleOf(handle)); }

    bool lock(std::int32_t handle, std::uint32_t offset, std::uint32_t length) override {
        return LockFile(handleOf(handle), offset, 0, length, 0);
    }

    bool unlock(std::int32_t handle, std::uint32_t offset, std::uint32_t length) override {
        return UnlockFile(handleOf(handle), offset, 0, length, 0);
    }

    bool information(std::int32_t handle, FileInformation& information) override {
        BY_HANDLE_FILE_INFORMATION found;
        if (!GetFileInformationByHandle(handleOf(handle), &found)) return false;
        information = {.attributes = found.dwFileAttributes,
                       .times = {fileTime(found.ftCreationTime), fileTime(found.ftLastAccessTime),
                                 fileTime(found.ftLastWriteTime)},
                       .volumeSerial = found.dwVolumeSerialNumber,
                       .size = wide(found.nFileSizeHigh, found.nFileSizeLow),
                       .identity = {found.dwVolumeSerialNumber, wide(found.nFileIndexHigh, found.nFileIndexLow)}};
        return true;
    }

    bool setTimes(std::int32_t handle, const FileTimes& times) override {
        HANDLE file = handleOf(handle);
        bool mayBend = times.written != 0 && !isHeldEverywhere(times.written);
        FILETIME created;
        FILETIME accessed;
        FILETIME written;
        if (mayBend && !GetFileTime(file, &created, &accessed, &written)) return false;
        bool set = SetFileTime(file, GivenTime(times.created).get(), GivenTime(times.accessed).get(),
                               GivenTime(times.written).get());
        if (!set || !mayBend) return set;
        FILETIME now;
        if (GetFileTime(file, nullptr, nullptr, &now) && isHeldAs(times.written, fileTime(now))) return true;
        SetFileTime(file, &created, &accessed, &written);
        return refuse(false);
    }

 private:
    template <typename Result = std::int32_t>
    static Result refuse(Result result = -1) {
        SetLastError(kInvalidParameter);
        return result;
    }

    static std::uint32_t upToLast(std::int64_t position, std::uint32_t count) {
        return static_cast<std::uint32_t>(std::clamp<std::int64_t>(kLastPosition - position, 0, count));
    }

    // How much of a transfer lies before the last position. What has no positions, a pipe, has no last one.
    static std::uint32_t allowed(std::int32_t handle, std::uint32_t count) {
        DWORD before = GetLastError();
        std::int64_t position = move(handle, 0, kFromCurrent);
        if (position >= 0) return upToLast(position, count);
        SetLastError(before);
        return count;
    }

    static std::int64_t move(std::int32_t handle, std::int64_t distance, std::int32_t origin) {
        LONG high = static_cast<LONG>(distance >> 32);
        return unlessFailed(high, [&] {
            return SetFilePointer(handleOf(handle), static_cast<LONG>(distance), &high, static_cast<DWORD>(origin));
        });
    }

    // What a call gives in two halves. The low one that tells a failure is also one of a number: then the last error
    // decides, and stays what it was when there was none.
    template <typename High, typename Call>
    static std::int64_t unlessFailed(const High& high, Call call) {
        DWORD before = GetLastError();
        SetLastError(kNoError);
        DWORD low = call();
        if (low == INVALID_FILE_SIZE && GetLastError() != kNoError) return -1;
        SetLastError(before);
        return (static_cast<std::int64_t>(high) << 32) | low;
    }
};

WindowsFiles windowsFiles;

}  // namespace

Files& systemFiles() { return windowsFiles; }

}  // namespace vx::platform
