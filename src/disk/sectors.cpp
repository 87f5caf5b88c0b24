// Sectors of a drive read and written past the file system, and the serial number in its boot sector.
//
// Only Windows 95 lets a program do so: by DOS's absolute read and write, through its driver for DOS calls. Windows NT
// gives a notice, and where neither is there the calls say that all went well (kept).
#include "entries/sectors.h"

#include "disk/drives.h"
#include "frame/library.h"
#include "frame/notices.h"
#include "platform/platform.h"

namespace vx {
namespace {

bool transferByDos(platform::DosService service, std::int32_t drive, std::uint32_t first, std::uint16_t count,
                   void* buffer) {
    constexpr std::uint32_t kByPacket = 0xFFFFFFFF;
    platform::DiskPacket packet{first, count, 0};
    platform::DosRegisters registers{
        .ecx = kByPacket, .eax = static_cast<std::uint32_t>(drive), .flags = platform::kCarryFlag};
    platform::SilentErrors silent(platform::process());
    bool reached = platform::hardware().callDos(service, registers, {.packet = &packet, .sectors = buffer});
    return reached && !(registers.flags & platform::kCarryFlag);
}

bool transfer(platform::DosService service, const char* driveText, std::uint32_t first, std::uint16_t count,
              void* buffer) {
    std::int32_t drive = dosDriveNumber(driveText);
    if (drive == kNoDrive || !buffer) return false;
    switch (platformClass()) {
        case PlatformClass::kWindows95:
            return transferByDos(service, physicalDrive(drive), first, count, buffer);
        case PlatformClass::kWindowsNt:
            // kept: names ReadSector whichever of the two was called.
            notices::alert("ReadSector() for NT has not been implemented in this version.");
            return false;
        default:
            return true;
    }
}

// The first sector of a drive, which says how the drive is laid out.
class BootSector {
 public:
    explicit BootSector(std::int32_t drive) : name_{driveLetter(drive), '\0'} {}

    bool read() { return transfer(platform::kDosAbsoluteRead, name_, 0, 1, bytes_); }
    bool write() { return transfer(platform::kDosAbsoluteWrite, name_, 0, 1, bytes_); }

    // 0 if the sector has no extended boot record.
    std::uint32_t serial() const {
        if (bytes_[kSignature] != kExtended) return 0;
        std::uint32_t serial = 0;
        for (int i = 3; i >= 0; --i) serial = (serial << 8) | bytes_[kSerial + i];
        return serial;
    }
    void setSerial(std::uint32_t serial) {
        bytes_[kSignature] = kExtended;
        for (int i = 0; i < 4; ++i) bytes_[kSerial + i] = static_cast<std::uint8_t>(serial >> (8 * i));
    }

 private:
    static constexpr int kSignature = 38;
    static constexpr int kSerial = 39;
    static constexpr std::uint8_t kExtended = 0x29;

    char name_[2];
    std::uint8_t bytes_[4096] = {};  // the largest sector that drives have
};

std::int32_t diskNumber(std::int32_t drive, std::int32_t serial) {
    constexpr std::int32_t kOnlyRead = -2;
    BootSector sector(drive);
    if (!sector.read()) return -1;
    std::int32_t before = static_cast<std::int32_t>(sector.serial());
    if (serial == kOnlyRead) return before;
    sector.setSerial(static_cast<std::uint32_t>(serial));
    return sector.write() ? before : -1;
}

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_ReadSector(const char* drive, uint32_t first, uint32_t count, void* buffer) noexcept {
    return transfer(platform::kDosAbsoluteRead, drive, first, static_cast<std::uint16_t>(count), buffer);
}
int32_t VX_CALL vx_WriteSector(const char* drive, uint32_t first, uint32_t count, const void* buffer) noexcept {
    return transfer(platform::kDosAbsoluteWrite, drive, first, static_cast<std::uint16_t>(count),
                    const_cast<void*>(buffer));
}

// Only the low byte of the drive counts; a letter behind Z is no drive, and no other one in disguise.
int32_t VX_CALL vx_DiskNumber(int32_t drive, int32_t serial) noexcept {
    std::uint8_t number = static_cast<std::uint8_t>(drive);
    return number < kDriveLetters ? diskNumber(number, serial) : -1;
}
