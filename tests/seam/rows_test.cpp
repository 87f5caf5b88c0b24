// The rows that need a made-up machine, and that machine.
#include "tests/support/rows.h"

#include <memory>
#include <string>

#include "rows/runner.h"
#include "tests/seam/seam.h"

namespace vx::test {
namespace {

using rows::Value;

Value textValue(const std::string& text) { return {Value::Kind::kText, 0, text}; }
Value numberValue(std::int64_t number) { return {Value::Kind::kNumber, number, {}}; }

platform::Moment momentOf(const std::vector<Value>& words) {
    auto field = [&](std::size_t i) { return static_cast<std::uint16_t>(i < words.size() ? words[i].number : 0); };
    platform::Moment moment{field(1), field(2), 0, field(3), field(4), field(5), field(6), field(7)};
    moment.dayOfWeek = static_cast<std::uint16_t>(std::chrono::weekday(dateOf(moment)).c_encoding());
    return moment;
}

std::string textOf(const platform::Moment& m) {
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", m.year, m.month, m.day, m.hour, m.minute,
                  m.second);
    return text;
}

// The stand-ins of the platform, set by words.
class MadeUpMachine final : public rows::Machine {
 public:
    void begin() override { fake_ = std::make_unique<lab::FakePlatform>(door()); }
    void end() override { fake_.reset(); }

    bool set(const std::vector<Value>& words) override {
        lab::FakePlatform& fake = *fake_;
        const std::string& what = words[0].text;
        auto text = [&](std::size_t i) { return i < words.size() ? words[i].text : std::string(); };
        auto number = [&](std::size_t i) { return i < words.size() ? words[i].number : 0; };
        if (what == "windows95" || what == "win32s" || what == "windows-nt") {
            fake.process.id = what == "windows95" ? platform::kWindows95Id
                              : what == "win32s"  ? platform::kWin32sId
                                                  : platform::kWindowsNtId;
        } else if (what == "clock") {
            fake.clock.now = momentOf(words);
        } else if (what == "command") {
            fake.process.command = text(1);
        } else if (what == "variable") {
            fake.process.variables.push_back(text(1));
        } else if (what == "memory") {
            fake.process.memory = {static_cast<std::uint64_t>(number(1)), static_cast<std::uint64_t>(number(2))};
        } else if (what == "date-text") {
            fake.locale.dateText = text(1);
        } else if (what == "time-text") {
            fake.locale.timeText = text(1);
        } else if (what == "number-text") {
            fake.locale.formatted = text(1);
        } else if (what == "box") {
            fake.desktop.boxResult = static_cast<std::int32_t>(number(1));
        } else if (what == "file") {
            fake.disk.put(text(1), text(2));
        } else if (what == "directory") {
            fake.disk.putDirectory(text(1));
        } else if (what == "attributes") {
            lab::MadeUpDisk::Node* node = fake.disk.find(text(1));
            if (!node) return false;
            node->attributes = static_cast<std::uint32_t>(number(2));
        } else if (what == "drive") {
            lab::MadeUpDrive drive{.kind = static_cast<platform::DriveKind>(number(2)), .label = text(3)};
            if (words.size() > 4) drive.fileSystem = text(4);
            fake.volumes.drives[text(1).at(0)] = drive;
        } else if (what == "drive-fails") {
            fake.volumes.drives[text(1).at(0)].error = static_cast<std::uint32_t>(number(2));
        } else if (what == "current") {
            fake.volumes.current = text(1).at(0);
        } else {
            return false;
        }
        fake.forgetClass();
        return true;
    }

    const Value* observed(const std::string& name) override {
        const lab::FakePlatform& fake = *fake_;
        if (name == "box") {
            seen_ = textValue(fake.desktop.boxes.empty() ? "" : fake.desktop.boxes.back().text);
        } else if (name == "title") {
            seen_ = textValue(fake.desktop.boxes.empty() ? "" : fake.desktop.boxes.back().title);
        } else if (name == "boxes") {
            seen_ = numberValue(static_cast<std::int64_t>(fake.desktop.boxes.size()));
        } else if (name == "clipboard") {
            seen_ = textValue(fake.desktop.pasted.empty() ? "" : fake.desktop.pasted.back().c_str());
        } else if (name == "slept") {
            seen_ = numberValue(fake.clock.sleeps.empty() ? 0 : fake.clock.sleeps.back());
        } else if (name == "set") {
            seen_ = textValue(fake.clock.sets.empty() ? "" : textOf(fake.clock.sets.back()));
        } else if (name == "labels") {
            seen_ = textValue(fake.volumes.labels);
        } else if (name == "names") {
            std::string names;
            for (const std::string& path : fake.disk.names()) names += (names.empty() ? "" : " ") + path;
            seen_ = textValue(names);
        } else if (name == "beeps") {
            seen_ = textValue("");
            for (auto [frequency, milliseconds] : fake.hardware.beeps)
                seen_.text += std::to_string(frequency) + " Hz " + std::to_string(milliseconds) + " ms;";
        } else {
            return nullptr;
        }
        return &seen_;
    }

 private:
    std::unique_ptr<lab::FakePlatform> fake_;
    Value seen_;
};

MadeUpMachine machine;
const bool registered = registerRows(&machine);

}  // namespace
}  // namespace vx::test
