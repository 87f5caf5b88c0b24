// The machine below the system: drive devices, CMOS memory, speaker, processor. Failures set the thread's last error
// (Process).
//
// DOS services, CMOS memory and ports are those of Windows 95 and Win32s. Elsewhere a service fails, reading gives 0,
// writing does nothing, and no port is touched.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vx::platform {

enum DosService : std::uint32_t { kDosIoctl = 1, kDosAbsoluteRead = 2, kDosAbsoluteWrite = 3 };

// The processor's registers for a DOS service, in the order in which the \\.\vwin32 device takes and gives them.
struct DosRegisters {
    std::uint32_t ebx = 0;
    std::uint32_t edx = 0;
    std::uint32_t ecx = 0;
    std::uint32_t eax = 0;
    std::uint32_t edi = 0;
    std::uint32_t esi = 0;
    std::uint32_t flags = 0;
};
static_assert(sizeof(DosRegisters) == 28);
inline constexpr std::uint32_t kCarryFlag = 1;

// What an absolute read or write is told, in DOS's layout.
#pragma pack(push, 1)
struct DiskPacket {
    std::uint32_t firstSector;
    std::uint16_t count;
    std::uint32_t buffer;
};
#pragma pack(pop)
static_assert(sizeof(DiskPacket) == 10 && offsetof(DiskPacket, buffer) == 6);

// The memory that a service works on. Its addresses reach the device where the comments say; what is null leaves its
// register as it is.
struct DosMemory {
    DiskPacket* packet = nullptr;  // in EBX
    void* sectors = nullptr;       // in the packet's `buffer`
    void* parameters = nullptr;    // in EDX
};

// One medium that fits a drive, in the layout of Win32's DISK_GEOMETRY.
struct DriveGeometry {
    std::uint64_t cylinders;
    std::uint32_t mediaType;
    std::uint32_t tracksPerCylinder;
    std::uint32_t sectorsPerTrack;
    std::uint32_t bytesPerSector;
};
static_assert(sizeof(DriveGeometry) == 24);

// By their control codes: the medium in the drive; all media that the drive takes.
enum DriveQuery : std::uint32_t { kMediumNow = 0x70000, kMediaTypes = 0x70C00 };

class Hardware {
 public:
    // Calls a service of Windows 95's \\.\vwin32 device. False if there is no such device, or the call does not reach
    // it; whether the service did its work shows in the carry flag.
    virtual bool callDos(DosService service, DosRegisters& registers, const DosMemory& memory) = 0;

    // Asks the device of a drive, as Windows NT has it. The number of entries filled, -1 on failure.
    virtual std::int32_t queryDrive(char letter, DriveQuery query, std::span<DriveGeometry> entries) = 0;

    // Whether a hard disk, counted from 0, can be opened for reading and writing by this process alone. Nothing is read
    // from it; kAccessDenied says that it is there.
    virtual bool canOpenPhysicalDrive(std::uint32_t number) = 0;

    virtual std::uint8_t readCmos(std::uint8_t index) = 0;
    virtual std::uint8_t readPort(std::uint16_t port) = 0;
    virtual void writePort(std::uint16_t port, std::uint8_t value) = 0;

    // Sounds the speaker; a duration of kUntilNextBeep returns at once. The system's result, 0 on failure. On Linux
    // there is no speaker to ask, and nothing sounds.
    virtual std::int32_t beep(std::uint32_t frequency, std::uint32_t milliseconds) = 0;

    // 3 and 4 for a 386 and a 486, else the family that the processor itself tells.
    virtual std::uint32_t processorFamily() = 0;

 protected:
    ~Hardware() = default;
};

inline constexpr std::uint32_t kUntilNextBeep = 0xFFFFFFFF;

}  // namespace vx::platform
