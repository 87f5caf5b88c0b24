// Stand-ins for the platform: nothing that a test does through them reaches the machine.
#pragma once

#include <algorithm>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "tests/lab/door.h"

namespace vx::lab {

struct Box {
    platform::Window owner;
    std::string text;
    std::string title;
    platform::BoxIcon icon;
    bool operator==(const Box&) const = default;
};

// Keeps the boxes and the clipboard texts instead of showing them; answers as it is told to.
class RecordedDesktop final : public platform::Desktop {
 public:
    platform::Window focus = 7;
    std::int32_t boxResult = 1;
    bool clipboardOpens = true;
    bool memoryLeft = true;
    std::int32_t logOffResult = 1;

    std::vector<Box> boxes;
    std::vector<std::string> pasted;  // each with its terminator
    std::string steps;                // o open, a allocate, e empty, s set, c close
    int logOffs = 0;

    platform::Window focusWindow() override { return focus; }
    std::int32_t showBox(platform::Window owner, const char* text, const char* title, platform::BoxIcon icon) override {
        if (boxes.size() < kMostBoxes) boxes.push_back({owner, text, title, icon});
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
    void setClipboardText(char*) override {
        steps += 's';
        pasted = {memory_};
    }
    void closeClipboard() override { steps += 'c'; }
    std::int32_t logOff() override {
        ++logOffs;
        return logOffResult;
    }

 private:
    static constexpr std::size_t kMostBoxes = 100;
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

    std::string formatted = "1,234,567.00";
    std::uint32_t formatNumber(const char*, char* to, std::uint32_t room) override {
        if (!works || formatted.size() >= room) return 0;
        std::memcpy(to, formatted.c_str(), formatted.size() + 1);
        return static_cast<std::uint32_t>(formatted.size() + 1);
    }

 private:
    std::uint32_t shift(const char* from, char* to, std::uint32_t count, int by) {
        for (std::uint32_t i = 0; i < count; ++i) to[i] = static_cast<char>(from[i] + by);
        return works ? count : count - 1;
    }
};

class FixedProcess final : public platform::Process {
 public:
    std::string path = "C:\\hosts\\host.exe";
    void programPath(char* to, std::size_t room) override {
        std::size_t kept = std::min(path.size(), room - 1);
        std::memcpy(to, path.data(), kept);
        to[kept] = '\0';
    }
};

class CountedFiles final : public platform::Files {
 public:
    std::set<std::int32_t> failing;
    std::vector<std::int32_t> closed;
    bool close(std::int32_t handle) override {
        closed.push_back(handle);
        return !failing.contains(handle);
    }
};

// Puts one stand-in of each kind in the platform's places, and takes them out again.
class FakePlatform {
 public:
    explicit FakePlatform(Door* door) : door_(door), system_(*door->platform) {
        *door->platform = {&desktop, &files, &locale, &process};
    }
    ~FakePlatform() { *door_->platform = system_; }
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    RecordedDesktop desktop;
    CountedFiles files;
    FixedLocale locale;
    FixedProcess process;

 private:
    Door* door_;
    platform::Platform system_;
};

}  // namespace vx::lab
