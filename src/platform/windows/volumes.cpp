// Drives of Windows. A current directory of each drive is something that the C runtime keeps; the system knows one.
#include <direct.h>
#include <windows.h>

#include "platform/platform.h"

namespace vx::platform {
namespace {

// The first Windows 95 has no such call, so it is asked for.
bool freeSpace(const char* root, ULARGE_INTEGER& free) {
    using Call = BOOL(WINAPI*)(LPCSTR, PULARGE_INTEGER, PULARGE_INTEGER, PULARGE_INTEGER);
    FARPROC found = GetProcAddress(GetModuleHandleA("KERNEL32.DLL"), "GetDiskFreeSpaceExA");
    if (found) return reinterpret_cast<Call>(reinterpret_cast<void*>(found))(root, &free, nullptr, nullptr);
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return false;
}

// The length, if the text fits.
std::uint32_t fitting(UINT length, std::uint32_t room) { return length < room ? length : 0; }

class WindowsVolumes final : public Volumes {
 public:
    std::uint32_t logicalDrives() override { return GetLogicalDrives(); }
    DriveKind driveKind(const char* root) override { return static_cast<DriveKind>(GetDriveTypeA(root)); }

    bool information(const char* root, VolumeInformation& volume) override {
        DWORD longestName;
        DWORD flags;
        DWORD serial;
        if (!GetVolumeInformationA(root, volume.label, sizeof volume.label, &serial, &longestName, &flags,
                                   volume.fileSystem, sizeof volume.fileSystem)) {
            return false;
        }
        volume.serial = serial;
        return true;
    }

    bool setLabel(const char* root, const char* label) override { return SetVolumeLabelA(root, label); }

    bool space(const char* root, DiskSpace& space) override {
        DWORD sectors;
        DWORD bytes;
        DWORD free;
        DWORD total;
        if (!GetDiskFreeSpaceA(root, &sectors, &bytes, &free, &total)) return false;
        space = {sectors, bytes, free, total};
        return true;
    }

    bool freeBytes(const char* root, std::uint64_t& bytes) override {
        ULARGE_INTEGER free;
        if (!freeSpace(root, free)) return false;
        bytes = free.QuadPart;
        return true;
    }

    std::int32_t currentDrive() override { return _getdrive(); }
    bool setCurrentDrive(std::int32_t drive) override { return _chdrive(drive) == 0; }
    bool currentDirectory(std::int32_t drive, char* path, std::size_t room) override {
        return _getdcwd(drive, path, static_cast<int>(room)) != nullptr;
    }
    bool changeDirectory(const char* path) override { return _chdir(path) == 0; }

    std::uint32_t systemDirectory(char* path, std::uint32_t room) override {
        return fitting(GetSystemDirectoryA(path, room), room);
    }
    std::uint32_t windowsDirectory(char* path, std::uint32_t room) override {
        return fitting(GetWindowsDirectoryA(path, room), room);
    }
};

WindowsVolumes windowsVolumes;

}  // namespace

Volumes& systemVolumes() { return windowsVolumes; }

}  // namespace vx::platform
