// The made-up machine's drives and devices in the words of rows.
#pragma once

#include <algorithm>
#include <cstdio>
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
    const std::string& what = words[0].text;
    std::string letter = text(1);
    if (what == "drives") {  // these, all of them hard disks
        fake.volumes.drives.clear();
        for (char c : letter) fake.volumes.drives[c] = {};
    } else if (what == "space") {
        fake.volumes.drives[letter.at(0)].space = {number(2), number(3), number(4), number(5)};
    } else if (what == "label-fails") {
        fake.volumes.drives[letter.at(0)].labelError = number(2);
    } else if (what == "directory-of") {
        fake.volumes.drives[letter.at(0)].directory = text(2);
    } else if (what == "started-in") {  // lost when its drive is changed to without it
        fake.volumes.drives[letter.at(0)] = {.directory = text(2), .startedIn = true};
    } else if (what == "system-directories") {
        fake.volumes.system = fake.volumes.windows = text(1);
    } else if (what == "media") {  // that the drive's device tells
        fake.hardware.media = {{letter.at(0), numbers(2)}};
    } else if (what == "physical-drives") {
        fake.hardware.physicalDrives = numbers(1);
    } else if (what == "medium") {  // its sectors by DOS
        fake.hardware.mediumSectors = static_cast<std::uint16_t>(number(1));
    } else if (what == "diskette") {
        fake.hardware.diskette.replace(number(1), text(2).size(), text(2));
    } else if (what == "write-protected") {
        fake.hardware.writeProtected = true;
    } else if (what == "carry") {
        fake.hardware.carry = true;
    } else if (what == "no-dos-device") {
        fake.hardware.hasDosDevice = false;
    } else if (what == "cmos") {
        fake.hardware.cmos[number(1) & 127] = static_cast<std::uint8_t>(number(2));
    } else if (what == "working-directory") {
        fake.disk.directory = text(1);
    } else if (what == "fault") {  // at that call of the disk
        fake.disk.fault = {.atCall = static_cast<int>(number(1))};
    } else {
        return false;
    }
    return true;
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
