// Stand-ins for the platform: nothing that a test does through them reaches the machine.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "platform/platform.h"
#include "tests/lab/door.h"
#include "tests/lab/made_up_disk.h"
#include "tests/lab/made_up_hardware.h"
#include "tests/lab/made_up_volumes.h"

namespace vx::lab {

struct Box {
    platform::Window owner;
    std::string text;
    std::string title;
    platform::BoxIcon icon;
    bool operator==(const Box&) const = default;
};

// A clock that stands still. What it is set to and how long it sleeps is kept, and nothing happens.
class FixedClock final : public platform::Clock {
 public:
    platform::Moment now{2000, 1, 3, 5, 9, 5, 3, 70};  // a Wednesday
    std::int32_t setResult = 1;

    std::vector<platform::Moment> sets;
    std::vector<std::uint32_t> sleeps;
    int reads = 0;

    platform::Moment localTime() override {
        ++reads;
        return now;
    }
    std::int32_t setLocalTime(const platform::Moment& moment) override {
        sets.push_back(moment);
        return setResult;
    }
    // Two hours east of Greenwich.
    bool toLocalTime(platform::FileTime time, platform::Moment& local) override {
        if (time >> 63) return false;
        auto at = kFirst + std::chrono::milliseconds(time / kSteps) + kZone;
        auto day = std::chrono::floor<std::chrono::days>(at);
        std::chrono::year_month_day date{day};
        std::chrono::hh_mm_ss clock{at - day};
        auto field = [](auto value) { return static_cast<std::uint16_t>(value); };
        local = {field(int{date.year()}),        field(unsigned{date.month()}),    0,
                 field(unsigned{date.day()}),    field(clock.hours().count()),     field(clock.minutes().count()),
                 field(clock.seconds().count()), field(clock.subseconds().count())};
        return int{date.year()} < 30000;
    }
    bool toFileTime(const platform::Moment& m, platform::FileTime& time) override {
        if (!platform::isDate(m) || !platform::isTimeOfDay(m)) return false;
        auto at = std::chrono::sys_days(platform::dateOf(m)) + std::chrono::hours(m.hour) +
                  std::chrono::minutes(m.minute) + std::chrono::seconds(m.second) +
                  std::chrono::milliseconds(m.milliseconds) - kZone;
        time = static_cast<platform::FileTime>((at - kFirst) / std::chrono::milliseconds(1)) * kSteps + later;
        return true;
    }
    platform::FileTime later = 0;  // of the two stamps that a local time has where clocks are put back
    void sleep(std::uint32_t milliseconds) override { sleeps.push_back(milliseconds); }

 private:
    static constexpr platform::FileTime kSteps = 10'000;  // of a time stamp, in a millisecond
    static constexpr auto kFirst =
        std::chrono::sys_days(std::chrono::year{1601} / 1 / 1) + std::chrono::milliseconds(0);
    static constexpr std::chrono::hours kZone{2};
};

// Keeps the boxes and the clipboard texts instead of showing them; answers as it is told to.
class RecordedDesktop final : public platform::Desktop {
 public:
    platform::Window focus = 7;
    std::int32_t boxResult = 1;
    bool clipboardOpens = true;
    bool clipboardKeeps = true;
    bool memoryLeft = true;
    std::int32_t logOffResult = 1;

    std::vector<Box> boxes;
    std::vector<std::string> pasted;  // each with its terminator
    std::string steps;                // o open, a allocate, e empty, s set, c close
    int logOffs = 0;

    platform::Window focusWindow() override { return focus; }
    std::int32_t showBox(platform::Window owner, const char* text, const char* title, platform::BoxIcon icon) override {
        boxes.push_back({owner, text, title, icon});
        return boxResult;
    }
    bool openClipboard(platform::Window) override {
        steps += 'o';
        return clipboardOpens;
    }
    char* allocateClipboardText(std::size_t size) override {
        steps += 'a';
        memory_.assign(memoryLeft ? size : 0, '~');
        return memoryLeft ? memory_.data() : nullptr;
    }
    void emptyClipboard() override { steps += 'e'; }
    bool setClipboardText(char*) override {
        steps += 's';
        if (clipboardKeeps) pasted = {memory_};
        return clipboardKeeps;
    }
    void closeClipboard() override { steps += 'c'; }
    std::int32_t logOff() override {
        ++logOffs;
        return logOffResult;
    }

 private:
    std::string memory_;
};

class FixedLocale final : public platform::Locale {
 public:
    bool works = true;

    // A code page in which each character's upper case is the next one, its lower case the one before.
    std::uint32_t upperCase(char* c, std::uint32_t count) override { return shift(c, c, count, 1); }
    std::uint32_t lowerCase(char* c, std::uint32_t count) override { return shift(c, c, count, -1); }
    std::uint32_t mapToUpper(const char* from, char* to, std::uint32_t count) override {
        return shift(from, to, count, 2);
    }

    std::string leadBytes;  // of the code page's double-byte characters
    bool isLeadByte(char c) override { return leadBytes.find(c) != std::string::npos; }

    std::string formatted = "1,234,567.00";
    std::uint32_t formatNumber(const char*, char* to, std::uint32_t room) override { return put(formatted, to, room); }

    // Any date is one, and as long as it may be.
    std::string dateText = "the thirty-one bytes of one day";
    std::string timeText = "9 hours 5 minutes 3 seconds";
    std::string picture;  // of the last date; empty if a time was last
    platform::Moment date;
    platform::Moment time;
    std::uint32_t formatDate(const platform::Moment& moment, const char* text, char* to, std::uint32_t room) override {
        date = moment;
        picture = text;
        return put(dateText, to, room);
    }
    std::uint32_t formatTime(const platform::Moment& moment, char* to, std::uint32_t room) override {
        time = moment;
        picture.clear();
        return put(timeText, to, room);
    }

 private:
    std::uint32_t put(const std::string& text, char* to, std::uint32_t room) const {
        if (!works || text.size() >= room) return 0;
        std::memcpy(to, text.c_str(), text.size() + 1);
        return static_cast<std::uint32_t>(text.size() + 1);
    }
    std::uint32_t shift(const char* from, char* to, std::uint32_t count, int by) {
        for (std::uint32_t i = 0; i < count; ++i) to[i] = static_cast<char>(from[i] + by);
        return works ? count : count - 1;
    }
};

class FixedProcess final : public platform::Process {
 public:
    std::string path = "C:\\hosts\\host.exe";
    std::uint32_t error = 0;
    std::uint32_t errorMode = 0;

    void programPath(char* to, std::size_t room) override {
        std::size_t kept = std::min(path.size(), room - 1);
        std::memcpy(to, path.data(), kept);
        to[kept] = '\0';
    }
    std::uint32_t lastError() override { return error; }
    void setLastError(std::uint32_t code) override { error = code; }
    std::uint32_t setErrorMode(std::uint32_t mode) override { return std::exchange(errorMode, mode); }

    // Windows NT 4.0 with 16 MB.
    std::string command = "host.exe";
    std::vector<std::string> variables{"COMSPEC=C:\\WINNT\\cmd.exe", "SystemDrive=C:", "empty="};
    std::uint32_t version = 4;
    platform::PlatformId id = platform::kWindowsNtId;
    platform::Memory memory{16 << 20, 5 << 20};
    bool memoryLeft = true;
    int copies = 0;  // of the environment, not given back

    const char* commandLine() override { return command.c_str(); }
    char* copyEnvironment() override {
        if (!memoryLeft) return nullptr;
        std::string all;
        for (const std::string& variable : variables) all += variable + '\0';
        char* copy = new char[all.size() + 1];
        std::memcpy(copy, all.c_str(), all.size() + 1);
        ++copies;
        return copy;
    }
    void releaseEnvironment(char* copy) override {
        delete[] copy;
        --copies;
    }
    std::uint32_t variable(const char* name, char* value, std::uint32_t room) override {
        std::string start = upperCased(name) + '=';
        for (const std::string& variable : variables) {
            if (upperCased(variable.substr(0, start.size())) != start) continue;
            std::uint32_t length = static_cast<std::uint32_t>(variable.size() - start.size());
            if (length >= room) return length + 1;
            std::memcpy(value, variable.c_str() + start.size(), length + 1);
            return length;
        }
        error = platform::kVariableNotFound;
        return 0;
    }
    std::uint32_t systemVersion() override { return version; }
    platform::PlatformId platformId() override { return id; }
    platform::Memory physicalMemory() override { return memory; }
};

// Puts one stand-in of each kind in the platform's places, and takes them out again.
class FakePlatform {
 public:
    explicit FakePlatform(Door* door) : door_(door), system_(*door->platform) {
        *door->platform = {&clock, &desktop, &disk, &hardware, &locale, &process, &disk, &volumes};
        forgetClass();
        disk.process = hardware.process = volumes.process = &process;
    }
    ~FakePlatform() {
        *door_->platform = system_;
        std::ranges::fill(door_->library->handles, kNoHandle);  // they belonged to the made-up disk
        forgetClass();
    }
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    // The library asks for the system's class once; after this, once more.
    void forgetClass() { door_->library->platformClass = PlatformClass::kUnknown; }

    FixedClock clock;
    RecordedDesktop desktop;
    MadeUpDisk disk;
    MadeUpHardware hardware;
    FixedLocale locale;
    FixedProcess process;
    MadeUpVolumes volumes;

 private:
    Door* door_;
    platform::Platform system_;
};

}  // namespace vx::lab
