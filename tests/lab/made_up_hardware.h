// Devices of a made-up machine, Windows 95 or NT: a diskette in memory, media lists, CMOS, ports, a speaker.
#pragma once

#include <algorithm>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "tests/lab/made_up_disk.h"

namespace vx::lab {

// A call of the DOS device as it came in; packet and parameters as bytes, empty where there were none.
struct DosCall {
    platform::DosService service;
    platform::DosRegisters registers;
    std::string packet;
    std::string parameters;
    const void* sectors;
};

class MadeUpHardware final : public platform::Hardware, public MadeUpDevice {
 public:
    // The DOS device: its diskette has sectors of 512 bytes, which reads and writes beyond the end set the carry flag
    // for.
    bool hasDosDevice = true;
    bool carry = false;  // every service fails
    std::uint16_t mediumSectors = 1440;
    std::string diskette = std::string(std::size_t{1440} * kSectorSize, '\0');
    bool writeProtected = false;
    std::vector<DosCall> dosCalls;

    // The drive devices of Windows NT: the media types of each, the one in it first.
    std::map<char, std::vector<std::uint32_t>> media{{'A', {5, 2, 5}}};
    std::string queries;  // letter and g for the medium or t for the types, and the entries asked for

    std::vector<std::uint32_t> physicalDrives;  // what opening each fails with, 0 opens it
    std::uint8_t cmos[128] = {};
    std::map<std::uint16_t, std::uint8_t> ports;
    std::vector<std::pair<std::uint16_t, std::uint8_t>> portWrites;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> beeps;
    std::int32_t beepResult = 1;
    std::uint32_t family = 6;

    bool callDos(platform::DosService service, platform::DosRegisters& registers,
                 const platform::DosMemory& memory) override {
        call();
        dosCalls.push_back({service, registers, bytes(memory.packet, sizeof(platform::DiskPacket)),
                            bytes(memory.parameters, kParameterBytes), memory.sectors});
        if (!hasDosDevice) return refuse(false, platform::kNotSupported);
        bool done = !carry && serve(service, memory);
        registers.flags = done ? registers.flags & ~platform::kCarryFlag : registers.flags | platform::kCarryFlag;
        return true;
    }

    std::int32_t queryDrive(char letter, platform::DriveQuery query,
                            std::span<platform::DriveGeometry> entries) override {
        call();
        bool types = query == platform::kMediaTypes;
        queries += std::string{letter, types ? 't' : 'g'} + std::to_string(entries.size()) + ' ';
        auto found = media.find(letter);
        if (found == media.end()) return refuse(-1, platform::kFileNotFound);
        std::size_t count = std::min(found->second.size(), entries.size());
        for (std::size_t i = 0; i < count; ++i) entries[i] = {80, found->second[i], 2, 18, 512};
        return static_cast<std::int32_t>(count);
    }

    bool canOpenPhysicalDrive(std::uint32_t number) override {
        call();
        std::uint32_t code = number < physicalDrives.size() ? physicalDrives[number] : platform::kFileNotFound;
        return code == 0 || refuse(false, code);
    }

    std::uint8_t readCmos(std::uint8_t index) override { return cmos[index & 127]; }
    std::uint8_t readPort(std::uint16_t port) override { return ports[port]; }
    void writePort(std::uint16_t port, std::uint8_t value) override {
        portWrites.push_back({port, value});
        ports[port] = value;
    }
    std::int32_t beep(std::uint32_t frequency, std::uint32_t milliseconds) override {
        beeps.push_back({frequency, milliseconds});
        return beepResult;
    }
    std::uint32_t processorFamily() override { return family; }

 private:
    static constexpr std::size_t kSectorSize = 512;
    static constexpr std::size_t kParameterBytes = 32;

    static std::string bytes(const void* from, std::size_t size) {
        return from ? std::string(static_cast<const char*>(from), size) : std::string();
    }

    bool serve(platform::DosService service, const platform::DosMemory& memory) {
        if (service == platform::kDosIoctl) {
            auto* block = static_cast<std::uint8_t*>(memory.parameters);
            std::uint16_t sectors = block[0] ? mediumSectors : std::uint16_t{2880};
            std::memcpy(block + 15, &sectors, sizeof sectors);
            return true;
        }
        std::uint64_t from = std::uint64_t{memory.packet->firstSector} * kSectorSize;
        std::uint64_t size = std::uint64_t{memory.packet->count} * kSectorSize;
        if (from + size > diskette.size()) return false;
        char* content = diskette.data() + from;
        if (service == platform::kDosAbsoluteRead) return std::memcpy(memory.sectors, content, size);
        return !writeProtected && std::memcpy(content, memory.sectors, size);
    }
};

}  // namespace vx::lab
