// Hardware of Windows: devices through DeviceIoControl, and the ports of Windows 95 and Win32s.
#include <windows.h>

#include <cstdio>

#include "platform/platform.h"
#include "platform/processor.h"

namespace vx::platform {
namespace {

constexpr char kDosDevice[] = "\\\\.\\vwin32";

class Device {
 public:
    Device(const char* name, DWORD access, DWORD share, DWORD disposition)
        : handle_(CreateFileA(name, access, share, nullptr, disposition, 0, nullptr)) {}
    ~Device() {
        if (!isOpen()) return;
        DWORD reason = GetLastError();
        CloseHandle(handle_);
        SetLastError(reason);
    }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }

    bool control(DWORD code, void* in, DWORD inSize, void* out, DWORD outSize, DWORD& given) const {
        return isOpen() && DeviceIoControl(handle_, code, in, inSize, out, outSize, &given, nullptr);
    }

 private:
    HANDLE handle_;
};

// For the DOS device, which only systems of 32-bit processes have: once it is open, addresses are no longer than this.
std::uint32_t addressOf(void* memory) { return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(memory)); }

// Windows NT ends a process that executes a port instruction.
bool hasPorts() { return (GetVersion() & 0x80000000) != 0; }

std::uint8_t in(std::uint16_t port) {
    std::uint8_t value;
    __asm__ volatile("inb %1, %0" : "=a"(value) : "Nd"(port));
    return value;
}

void out(std::uint16_t port, std::uint8_t value) { __asm__ volatile("outb %0, %1" : : "a"(value), "Nd"(port)); }

class WindowsHardware final : public Hardware {
 public:
    bool callDos(DosService service, DosRegisters& registers, const DosMemory& memory) override {
        Device device(kDosDevice, 0, 0, OPEN_EXISTING);
        if (!device.isOpen()) return false;
        if (memory.packet) {
            memory.packet->buffer = addressOf(memory.sectors);
            registers.ebx = addressOf(memory.packet);
        }
        if (memory.parameters) registers.edx = addressOf(memory.parameters);
        DWORD given = 0;
        return device.control(service, &registers, sizeof registers, &registers, sizeof registers, given);
    }

    std::int32_t queryDrive(char letter, DriveQuery query, std::span<DriveGeometry> entries) override {
        const char name[] = {'\\', '\\', '.', '\\', letter, ':', '\0'};
        Device device(name, 0, FILE_SHARE_READ, OPEN_ALWAYS);
        DWORD given = 0;
        if (!device.control(query, nullptr, 0, entries.data(), static_cast<DWORD>(entries.size_bytes()), given)) {
            return -1;
        }
        return static_cast<std::int32_t>(given / sizeof(DriveGeometry));
    }

    bool canOpenPhysicalDrive(std::uint32_t number) override {
        char name[32];
        std::snprintf(name, sizeof name, "\\\\.\\PHYSICALDRIVE%u", static_cast<unsigned>(number));
        return Device(name, GENERIC_READ | GENERIC_WRITE, 0, OPEN_EXISTING).isOpen();
    }

    std::uint8_t readCmos(std::uint8_t index) override {
        constexpr std::uint16_t kIndexPort = 0x70;
        constexpr std::uint16_t kDataPort = 0x71;
        if (!hasPorts()) return 0;
        __asm__ volatile("cli");
        out(kIndexPort, index);
        std::uint8_t value = in(kDataPort);
        __asm__ volatile("sti");
        return value;
    }
    std::uint8_t readPort(std::uint16_t port) override { return hasPorts() ? in(port) : std::uint8_t{0}; }
    void writePort(std::uint16_t port, std::uint8_t value) override {
        if (hasPorts()) out(port, value);
    }

    std::int32_t beep(std::uint32_t frequency, std::uint32_t milliseconds) override {
        return Beep(frequency, milliseconds);
    }

    std::uint32_t processorFamily() override { return platform::processorFamily(); }
};

WindowsHardware windowsHardware;

}  // namespace

Hardware& systemHardware() { return windowsHardware; }

}  // namespace vx::platform
