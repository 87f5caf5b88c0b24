// Which drives there are and of what kind, by drive texts, and which hard disks and diskette drives the machine has.
//
// Letters are what Windows tells; hard disks and diskette drives are asked for below it: of the CMOS memory where
// programs may read it, else by trying to open the physical drives one after the other.
#include "disk/drives.h"

#include <bit>
#include <optional>
#include <string_view>

#include "disk/config_file.h"
#include "disk/diskette.h"
#include "entries/drives.h"
#include "frame/text.h"
#include "platform/errors.h"
#include "platform/platform.h"
#include "strings/trim.h"

namespace vx {
namespace {

constexpr std::int32_t kBadKind = -1;

// The 0-based number of a letter; nothing for a text without one.
std::optional<std::int32_t> namedDrive(std::string_view text) {
    char letter = upper(text.front());
    if (!(library.types[byteOf(text.front())] & kAlpha) || letter < 'A' || letter > 'Z') return std::nullopt;
    return letter - 'A';
}

// What a remote drive counts as.
std::int32_t kindOfRemote(const char* root) {
    platform::VolumeInformation information;
    if (!platform::volumes().information(root, information)) return kBadKind;
    // kept: the file system is looked for in the text, so CDFS is none, and no remote drive is ever told as remote.
    bool isCdRom = std::string_view("CD").find(information.fileSystem) != std::string_view::npos;
    return isCdRom ? std::int32_t{platform::kCdRomDrive} : kBadKind;
}

std::int32_t kindOf(const char* driveText) {
    return withDrive(driveText, kBadKind, [](std::int32_t number) {
        DriveRoot root = rootOf(number);
        platform::DriveKind kind = platform::volumes().driveKind(root.get());
        return kind == platform::kRemoteDrive ? kindOfRemote(root.get()) : static_cast<std::int32_t>(kind);
    });
}

bool isReady(const char* driveText) {
    return withDrive(driveText, false, [](std::int32_t number) {
        platform::DiskSpace space;
        return platform::volumes().space(rootOf(number).get(), space);
    });
}

bool hasMedium(const char* driveText) {
    return withDrive(driveText, false, [](std::int32_t number) {
        platform::VolumeInformation information;
        return platform::volumes().information(rootOf(number).get(), information);
    });
}

// Whether the machine is asked by its CMOS memory.
bool asksCmos() { return platformClass() == PlatformClass::kWindows95 || platformClass() == PlatformClass::kWin32s; }

std::int32_t countFloppies() {
    constexpr std::uint8_t kFloppyTypes = 0x10;
    if (!asksCmos()) return static_cast<std::int32_t>(driveMask() & 3);  // kept: a mask, 3 for two drives, 2 for B only
    std::uint8_t types = platform::hardware().readCmos(kFloppyTypes);
    return ((types & 0xF0) != 0) + ((types & 0x0F) != 0);
}

std::int32_t countPhysicalDrives() {
    constexpr std::uint32_t kMost = 8;
    platform::SilentErrors silent(platform::process());
    std::uint32_t number = 0;
    auto isThere = [&] {
        return platform::hardware().canOpenPhysicalDrive(number) ||
               platform::process().lastError() == platform::kAccessDenied;
    };
    while (number < kMost && isThere()) ++number;
    return static_cast<std::int32_t>(number);
}

std::int32_t countHardDisks() {
    constexpr std::uint8_t kFirstType = 0x19;
    constexpr std::uint8_t kSecondType = 0x1A;
    if (!asksCmos()) return countPhysicalDrives();
    return (platform::hardware().readCmos(kFirstType) != 0) + (platform::hardware().readCmos(kSecondType) != 0);
}

std::int32_t lastDrive() {
    constexpr std::int32_t kAssumed = 4;
    if (std::optional<std::int32_t> configured = configuredLastDrive()) return *configured;
    std::uint32_t mask = driveMask();
    return mask ? std::bit_width(mask) - 1 : kAssumed;
}

}  // namespace

std::int32_t driveNumber(const char* text) {
    std::string_view name = withoutLeadingBlanks(view(text));
    if (name.empty()) {
        std::int32_t current = platform::volumes().currentDrive();
        return current > 0 ? current : kNoDrive;
    }
    std::optional<std::int32_t> drive = namedDrive(name);
    return drive && driveExists(*drive) ? *drive + 1 : kNoDrive;
}

std::int32_t dosDriveNumber(const char* text) {
    std::string_view name = withoutLeadingBlanks(view(text));
    return name.empty() ? platform::volumes().currentDrive() - 1 : namedDrive(name).value_or(kNoDrive);
}

std::uint32_t driveMask() { return platform::volumes().logicalDrives() & ((1u << kDriveLetters) - 1); }

bool driveExists(std::int32_t drive) {
    if (drive < 0 || drive >= kDriveLetters) return false;
    std::uint32_t mask = driveMask();
    std::uint32_t withB = mask | ((mask & 1) << 1);
    return (withB >> drive) & 1;
}

std::int32_t physicalDrive(std::int32_t drive) { return (drive == 1 && (driveMask() & 3) == 1) ? 0 : drive; }

char* putDriveNames(char separator, char* to) {
    char* end = to;
    forEachDrive([&](char letter) {
        if (end != to) *end++ = separator;
        *end++ = letter;
        *end++ = ':';
    });
    *end = '\0';
    return to;
}

}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_IsDisk(const char* drive) noexcept { return driveNumber(drive) != kNoDrive; }
int32_t VX_CALL vx_IsDrive(const char* drive) noexcept { return isReady(drive); }
int32_t VX_CALL vx_IsDosDisk(int32_t drive) noexcept { return driveExists(drive); }
int32_t VX_CALL vx_DosDrive(const char* drive) noexcept { return dosDriveNumber(drive); }

int32_t VX_CALL vx_IsFixed(const char* drive) noexcept { return kindOf(drive) == platform::kFixedDrive; }
int32_t VX_CALL vx_IsRemovable(const char* drive) noexcept { return kindOf(drive) == platform::kRemovableDrive; }
int32_t VX_CALL vx_IsFloppy(const char* drive) noexcept { return kindOf(drive) == platform::kRemovableDrive; }
int32_t VX_CALL vx_IsRemote(const char* drive) noexcept { return kindOf(drive) == platform::kRemoteDrive; }
int32_t VX_CALL vx_IsCdRom(const char* drive) noexcept { return kindOf(drive) == platform::kCdRomDrive; }
int32_t VX_CALL vx_MediaType(const char* drive) noexcept { return hasMedium(drive) ? 1 : -1; }

int32_t VX_CALL vx_DriveType(int32_t drive) noexcept { return disketteCode(drive, DisketteQuestion::kLargestFormat); }
int32_t VX_CALL vx_DiskType(int32_t drive) noexcept { return disketteCode(drive, DisketteQuestion::kMediumNow); }

char* VX_CALL vx_AllDrives(char* dest) noexcept { return dest ? putDriveNames(' ', dest) : nullptr; }

char* VX_CALL vx_DriveStr(char* dest) noexcept {
    if (!dest) return nullptr;
    char* end = dest;
    forEachDrive([&end](char letter) { *end++ = letter; });
    *end = '\0';
    return dest;
}

int32_t VX_CALL vx_Numfloppy() noexcept { return countFloppies(); }
int32_t VX_CALL vx_NumFixed() noexcept { return countHardDisks(); }
int32_t VX_CALL vx_LastDrive() noexcept { return lastDrive(); }
