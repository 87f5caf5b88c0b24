// The made-up machine's drives and devices in the words of rows.
#pragma once

#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "rows/script.h"
#include "tests/lab/fakes.h"

namespace vx::test {

// Whether calls since the last look that may reach for a disk were all made without the system's boxes, which are on
// again: 1, 0 if there were none, -1 if not.
class Silence {
 public:
    void watch(lab::FakePlatform& fake) {
        process_ = &fake.process;
        seen_ = 0;
        fake.volumes.onCall = fake.hardware.onCall = fake.disk.onCall = [this] {
            bool isSilent = process_->errorMode == platform::kFailSilently;
            seen_ = isSilent && seen_ >= 0 ? 1 : -1;
        };
    }
    int take() { return process_->errorMode ? -1 : std::exchange(seen_, 0); }

 private:
    const lab::FixedProcess* process_ = nullptr;
    int seen_ = 0;
};

// Sets what the words say; false if they are none of these.
inline bool setDrives(lab::FakePlatform& fake, const std::vector<rows::Value>& words) {
    auto text = [&](std::size_t i) { return i < words.size() ? words[i].text : std::string(); };
    auto number = [&](std::size_t i) { return i < words.size() ? static_cast<std::uint32_t>(words[i].number) : 0u; };
    auto numbers = [&](std::size_t i) {
        std::istringstream in(text(i));
        std::vector<std::uint32_t> all;
        for (std::uint32_t one; in >> one;) all.push_back(one);
        return all;
    };
    const std::string letter = text(1);
    lab::MadeUpVolumes& volumes = fake.volumes;
    lab::MadeUpHardware& hardware = fake.hardware;
    auto drive = [&]() -> lab::MadeUpDrive& { return volumes.drives[letter.at(0)]; };
    auto onlyHardDisks = [&] {
        volumes.drives.clear();
        for (char c : letter) volumes.drives[c] = {};
    };
    const std::map<std::string, std::function<void()>> all{
        {"drives", onlyHardDisks},
        {"space",
         [&] {
             drive().space = {number(2), number(3), number(4), number(5)};
         }},
        {"label-fails", [&] { drive().labelError = number(2); }},
        {"directory-of", [&] { drive().directory = text(2); }},
        // Lost when its drive is changed to without it.
        {"started-in", [&] { drive() = {.directory = text(2), .startedIn = true}; }},
        {"system-directories", [&] { volumes.system = volumes.windows = letter; }},
        {"media",
         [&] {
             hardware.media = {{letter.at(0), numbers(2)}};
         }},  // that the drive's device tells
        {"physical-drives", [&] { hardware.physicalDrives = numbers(1); }},
        {"medium", [&] { hardware.mediumSectors = static_cast<std::uint16_t>(number(1)); }},  // its sectors by DOS
        {"diskette", [&] { hardware.diskette.replace(number(1), text(2).size(), text(2)); }},
        {"write-protected", [&] { hardware.writeProtected = true; }},
        {"carry", [&] { hardware.carry = true; }},
        {"no-dos-device", [&] { hardware.hasDosDevice = false; }},
        {"cmos", [&] { hardware.cmos[number(1) & 127] = static_cast<std::uint8_t>(number(2)); }},
        {"working-directory", [&] { fake.disk.directory = letter; }},
    };
    auto found = all.find(words[0].text);
    if (found != all.end()) found->second();
    return found != all.end();
}

// The last call of the DOS device: `read drive 0: 3 from 1437`, and what else it was told.
inline std::string shownCall(const lab::DosCall& call) {
    auto [service, registers, packet, parameters, sectors] = call;
    char text[160];
    if (service == platform::kDosIoctl) {
        bool rest =
            parameters.find_first_not_of('\0', 1) != parameters.npos || parameters.size() != 32 || !packet.empty();
        std::snprintf(text, sizeof text, "request %X %X of %u, special %d%s", registers.eax, registers.ecx,
                      registers.ebx, parameters[0], rest || registers.esi || registers.edi ? " and more" : "");
    } else {
        platform::DiskPacket content{};
        std::memcpy(&content, packet.data(), std::min(packet.size(), sizeof content));
        std::snprintf(text, sizeof text, "%s drive %u: %u from %u%s",
                      service == platform::kDosAbsoluteRead ? "read" : "write", registers.eax, unsigned{content.count},
                      unsigned{content.firstSector},
                      registers.ecx != 0xFFFFFFFF || registers.edx || !parameters.empty() ? " and more" : "");
    }
    return std::string(text) + (registers.flags == platform::kCarryFlag ? "" : ", no carry flag");
}

// What calls did to the drives and devices; nothing if the name is none of these.
inline std::optional<std::string> seenOfDrives(lab::FakePlatform& fake, const std::string& name) {
    if (name == "queries") return fake.hardware.queries;
    if (name == "dos")  // since the last look
        return fake.hardware.dosCalls.empty() ? "" : shownCall(std::exchange(fake.hardware.dosCalls, {}).back());
    if (name == "error") return std::to_string(fake.process.error);
    if (name == "open") return std::to_string(fake.disk.openFiles() + fake.disk.openSearches());
    if (name == "here") {
        char letter = fake.volumes.current;
        return std::string{letter, ':'} + fake.volumes.drives[letter].directory;
    }
    return {};
}

}  // namespace vx::test
