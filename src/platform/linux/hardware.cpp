// Hardware of Linux, as far as a process may ask for it.
#include <climits>
#include <cstdio>

#include "platform/linux/directory_reader.h"
#include "platform/linux/last_error.h"
#include "platform/linux/system_file.h"
#include "platform/platform.h"
#include "platform/processor.h"

namespace vx::platform {
namespace {

constexpr char kBlockDevices[] = "/sys/block";

// What the system tells of a block device, in a file of the device's directory.
struct DevicePath {
    char text[sizeof kBlockDevices + NAME_MAX + 16];

    DevicePath(const char* name, const char* file) {
        std::snprintf(text, sizeof text, "%s/%.*s/%s", kBlockDevices, NAME_MAX, name, file);
    }
};

// A disk of its own: no partition, no memory disk, no diskette, no CD.
bool isHardDisk(const char* name) {
    return ::faccessat(AT_FDCWD, DevicePath(name, "device").text, F_OK, 0) == 0 &&
           systemFile(DevicePath(name, "removable").text).starts_with('0');
}

std::uint32_t countHardDisks() {
    DirectoryReader directory(openDirectory(kBlockDevices));
    std::uint32_t count = 0;
    while (const char* name = directory.next()) {
        if (isHardDisk(name)) ++count;
    }
    return count;
}

class LinuxHardware final : public Hardware {
 public:
    bool callDos(DosService, DosRegisters&, const DosMemory&) override { return failed(false, kNotSupported); }

    // C:, the only drive, is no diskette drive.
    std::int32_t queryDrive(char, DriveQuery, std::span<DriveGeometry>) override { return failed(-1, kNotSupported); }

    // Disks belong to the system: the answer is the one that a process without the right to open them gets.
    bool canOpenPhysicalDrive(std::uint32_t number) override {
        return failed(false, number < countHardDisks() ? kAccessDenied : kFileNotFound);
    }

    std::uint8_t readCmos(std::uint8_t) override { return 0; }
    std::uint8_t readPort(std::uint16_t) override { return 0; }
    void writePort(std::uint16_t, std::uint8_t) override {}
    std::int32_t beep(std::uint32_t, std::uint32_t) override { return failed(0, kNotSupported); }

    std::uint32_t processorFamily() override { return platform::processorFamily(); }
};

constinit LinuxHardware linuxHardware;

}  // namespace

Hardware& systemHardware() { return linuxHardware; }

}  // namespace vx::platform
