// Drives of a made-up machine: a diskette drive A, a hard disk C, a network drive F.
#pragma once

#include <algorithm>
#include <cctype>
#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "tests/lab/made_up_disk.h"

namespace vx::lab {

struct MadeUpDrive {
    platform::DriveKind kind = platform::kFixedDrive;
    std::string label = "";
    std::string fileSystem = "FAT";
    std::uint32_t serial = 0;
    platform::DiskSpace space{8, 512, 1000, 2000};
    std::string directory = "\\";
    std::uint32_t error = 0;       // what reading fails with; 0 works
    std::uint32_t labelError = 0;  // what setting the label fails with
    bool startedIn = false;  // the system lost its directory unless it is changed to: by its drive one gets the root
};

class MadeUpVolumes final : public platform::Volumes, public MadeUpDevice {
 public:
    std::map<char, MadeUpDrive> drives{{'A', {.kind = platform::kRemovableDrive, .serial = 0xA}},
                                       {'C', {.label = "SYSTEM", .serial = 0x1234ABCD}},
                                       {'F', {.kind = platform::kRemoteDrive, .fileSystem = "NET", .serial = 0xF}}};
    char current = 'C';
    std::optional<std::uint64_t> bytesFree;        // by the geometry if not given
    std::map<std::string, std::uint64_t> mounted;  // free bytes of volumes that are directories
    std::string system = "C:\\WINNT\\System32";
    std::string windows = "C:\\WINNT";
    std::string labels;  // every label that was set, in brackets; "-" for none

    std::uint32_t logicalDrives() override {
        std::uint32_t mask = 0;
        for (const auto& [letter, drive] : drives) mask |= 1u << (letter - 'A');
        return mask;
    }
    platform::DriveKind driveKind(const char* root) override {
        call();
        MadeUpDrive* drive = at(root);
        return drive ? drive->kind : platform::kNoRootDirectory;
    }
    bool information(const char* root, platform::VolumeInformation& information) override {
        MadeUpDrive* drive = working(root);
        if (!drive) return false;
        put(drive->label, information.label, sizeof information.label);
        put(drive->fileSystem, information.fileSystem, sizeof information.fileSystem);
        information.serial = drive->serial;
        return true;
    }
    bool setLabel(const char* root, const char* label) override {
        MadeUpDrive* drive = working(root);
        if (!drive) return false;
        if (drive->labelError) return refuse(false, drive->labelError);
        drive->label = label ? label : "";
        labels += label ? "[" + drive->label + "]" : "-";
        return true;
    }
    bool space(const char* root, platform::DiskSpace& space) override {
        MadeUpDrive* drive = working(root);
        if (drive) space = drive->space;
        return drive;
    }
    bool freeBytes(const char* directory, std::uint64_t& bytes) override {
        call();
        if (auto found = mounted.find(directory); found != mounted.end()) return bytes = found->second, true;
        platform::DiskSpace space{};
        if (std::strlen(directory) > 3) return refuse(false, platform::kPathNotFound);
        if (!this->space(directory, space)) return false;
        bytes = bytesFree.value_or(std::uint64_t{space.freeClusters} * space.sectorsPerCluster * space.bytesPerSector);
        return true;
    }
    std::int32_t currentDrive() override { return current - 'A' + 1; }
    bool setCurrentDrive(std::int32_t drive) override {
        call();
        char letter = static_cast<char>('A' + drive - 1);
        if (drive < 1 || drive > 26 || !drives.contains(letter)) return refuse(false, platform::kInvalidDrive);
        if (std::exchange(drives[letter].startedIn, false)) drives[letter].directory = "\\";
        current = letter;
        return true;
    }
    bool currentDirectory(std::int32_t number, char* path, std::size_t room) override {
        call();
        char letter = number == 0 ? current : static_cast<char>('A' + number - 1);
        auto found = drives.find(letter);
        if (found == drives.end()) return refuse(false, platform::kInvalidDrive);
        std::string full = std::string(1, letter) + ":" + found->second.directory;
        return full.size() < room ? put(full, path, room) : refuse(false, platform::kInsufficientBuffer);
    }
    bool changeDirectory(const char* path) override {
        call();
        MadeUpDrive* drive = path[0] && path[1] == ':' ? at(path) : &drives[current];
        if (!drive || !*path || std::strchr(path, '?')) return refuse(false, platform::kPathNotFound);
        if (path[0] && path[1] == ':') {
            current = letterOf(path);
            path += 2;
        }
        drive->startedIn = false;
        drive->directory = *path == '\\' ? path : drive->directory + (drive->directory.size() > 1 ? "\\" : "") + path;
        return true;
    }
    std::uint32_t systemDirectory(char* path, std::uint32_t room) override { return length(system, path, room); }
    std::uint32_t windowsDirectory(char* path, std::uint32_t room) override { return length(windows, path, room); }

 private:
    static char letterOf(const char* root) {
        return static_cast<char>(std::toupper(static_cast<unsigned char>(*root)));
    }
    MadeUpDrive* at(const char* root) {
        auto found = drives.find(letterOf(root));
        return found == drives.end() ? nullptr : &found->second;
    }
    MadeUpDrive* working(const char* root) {
        call();
        MadeUpDrive* drive = at(root);
        if (!drive) refuse(false, platform::kPathNotFound);
        if (drive && drive->error) refuse(false, drive->error);
        return drive && !drive->error ? drive : nullptr;
    }
    static bool put(const std::string& text, char* to, std::size_t room) {
        std::size_t kept = std::min(text.size(), room - 1);
        std::memcpy(to, text.data(), kept);
        to[kept] = '\0';
        return true;
    }
    static std::uint32_t length(const std::string& text, char* to, std::uint32_t room) {
        if (text.size() >= room) return 0;
        put(text, to, room);
        return static_cast<std::uint32_t>(text.size());
    }
};

}  // namespace vx::lab
