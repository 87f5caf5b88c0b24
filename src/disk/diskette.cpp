// A diskette's capacity follows from its number of sectors, which Windows 95 tells by the parameter block of DOS's
// driver, and Windows NT by media types, of which a drive has several: the one in it now, or the largest of those it
// takes.
#include "disk/diskette.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <span>

#include "disk/drives.h"
#include "frame/library.h"
#include "frame/notices.h"
#include "platform/platform.h"

namespace vx {
namespace {

struct Capacity {
    std::uint32_t sectors;
    std::int32_t code;
};
constexpr Capacity kCapacities[] = {{320, 160},  {360, 180},  {640, 320},  {720, 360},  {1232, 120}, {1440, 720},
                                    {2002, 250}, {2400, 120}, {2880, 144}, {4004, 500}, {5760, 288}};

// Windows NT's media types 0 to 10.
constexpr std::uint32_t kSectorsOfMedia[] = {0, 2400, 2880, 5760, 0, 1440, 720, 640, 640, 360, 320};

std::int32_t codeOf(std::uint32_t sectors) {
    auto found = std::find_if(std::begin(kCapacities), std::end(kCapacities),
                              [sectors](const Capacity& c) { return c.sectors == sectors; });
    return found == std::end(kCapacities) ? 0 : found->code;
}

std::uint32_t sectorsOf(const platform::DriveGeometry& medium) {
    return medium.mediaType < std::size(kSectorsOfMedia) ? kSectorsOfMedia[medium.mediaType] : 0;
}

// By DOS's "get device parameters": the total in the parameter block of the boot sector.
std::optional<std::uint32_t> sectorsByDos(std::int32_t drive, DisketteQuestion question) {
    constexpr std::uint32_t kGenericRequest = 0x440D;
    constexpr std::uint32_t kGetDeviceParameters = 0x0860;
    constexpr std::size_t kTotalSectors = 15;
    std::uint8_t parameters[32] = {};
    parameters[0] = question == DisketteQuestion::kMediumNow ? 1 : 0;
    platform::DosRegisters registers{.ebx = static_cast<std::uint32_t>(drive + 1),
                                     .ecx = kGetDeviceParameters,
                                     .eax = kGenericRequest,
                                     .flags = platform::kCarryFlag};
    platform::SilentErrors silent(platform::process());
    bool reached = platform::hardware().callDos(platform::kDosIoctl, registers, {.parameters = parameters});
    if (!reached || (registers.flags & platform::kCarryFlag)) return std::nullopt;
    return parameters[kTotalSectors] | (parameters[kTotalSectors + 1] << 8);
}

std::optional<std::uint32_t> sectorsByDevice(std::int32_t drive, DisketteQuestion question) {
    platform::DriveGeometry media[20];
    bool now = question == DisketteQuestion::kMediumNow;
    platform::SilentErrors silent(platform::process());
    std::int32_t count = platform::hardware().queryDrive(
        driveLetter(drive), now ? platform::kMediumNow : platform::kMediaTypes, std::span(media, now ? 1 : 20));
    if (count < 0) return std::nullopt;
    std::uint32_t most = 0;
    for (std::int32_t i = 0; i < count; ++i) most = std::max(most, sectorsOf(media[i]));
    return most;
}

std::optional<std::uint32_t> sectorsOfDrive(std::int32_t drive, DisketteQuestion question) {
    switch (platformClass()) {
        case PlatformClass::kWindows95:
            return sectorsByDos(drive, question);
        case PlatformClass::kWindowsNt:
            return sectorsByDevice(drive, question);
        case PlatformClass::kWin32s:
            notices::alert("DriveType() is unavailable in Win32s");  // kept: names DriveType in both
            return 0;
        default:
            return 0;
    }
}

}  // namespace

std::int32_t disketteCode(std::int32_t drive, DisketteQuestion question) {
    if (drive != 0 && drive != 1) return -1;
    std::optional<std::uint32_t> sectors = sectorsOfDrive(physicalDrive(drive), question);
    return sectors ? codeOf(*sectors) : -1;
}

}  // namespace vx
