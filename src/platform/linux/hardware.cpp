// Hardware of Linux, as far as a process may ask for it.
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <memory>
#include <string>

#include "platform/linux/last_error.h"
#include "platform/linux/system_file.h"
#include "platform/platform.h"
#include "platform/processor.h"

namespace vx::platform {
namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const { ::closedir(directory); }
};

constexpr char kBlockDevices[] = "/sys/block";

// A disk of its own: no partition, no memory disk, no diskette, no CD.
bool isHardDisk(const char* name) noexcept try {
    std::string device = std::string(kBlockDevices) + '/' + name;
    return ::faccessat(AT_FDCWD, (device + "/device").c_str(), F_OK, 0) == 0 &&
           systemFile((device + "/removable").c_str()).starts_with('0');
} catch (const std::bad_alloc&) {
    return false;
}

std::uint32_t countHardDisks() {
    std::unique_ptr<DIR, CloseDirectory> directory(::opendir(kBlockDevices));
    std::uint32_t count = 0;
    while (const dirent* entry = directory ? ::readdir(directory.get()) : nullptr) {
        if (entry->d_name[0] != '.' && isHardDisk(entry->d_name)) ++count;
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
