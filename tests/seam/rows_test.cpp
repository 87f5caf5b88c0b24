// The rows that need a made-up machine, and that machine.
#include "tests/support/rows.h"

#include <memory>
#include <numeric>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "rows/runner.h"
#include "tests/lab/table_bytes.h"
#include "tests/seam/drive_words.h"
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
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d.%03d", m.year, m.month, m.day, m.hour, m.minute,
                  m.second, m.milliseconds);
    return text;
}

// What a date or time was asked for by, the time of day left out where it is midnight.
std::string askedFor(const lab::FixedLocale& locale) {
    if (locale.picture.empty()) return textOf(locale.time);
    std::string text = locale.picture + " " + textOf(locale.date);
    return text.substr(0, text.find(" 00:00:00.000"));
}

// The bytes of a table or one of its companions: `dbf NAME VERSION FIELDS RECORD...`, `dbt NAME MEMO...`, `fpt`, `blo`.
std::string bytesOf(const std::vector<Value>& words) {
    bool isTable = words[0].text == "dbf";
    std::vector<std::string> texts;
    for (std::size_t i = isTable ? 4 : 2; i < words.size(); ++i) texts.push_back(words[i].text);
    if (!isTable)
        return words[0].text == "dbt"   ? lab::dbtBytes(texts)
               : words[0].text == "fpt" ? lab::fptBytes(texts)
                                        : lab::bloBytes(texts);
    return lab::tableBytes(static_cast<int>(words.at(2).number), lab::fieldsOf(words.at(3).text), texts);
}

// `T-DBF-32-2` for two bytes at 32 of T.DBF; all that follow without the number of bytes, all without both.
std::optional<std::string> partOfFile(lab::MadeUpDisk& disk, std::string name) {
    std::vector<std::string> words;
    for (std::istringstream in(name); std::getline(in, name, '-');) words.push_back(name);
    if (words.size() < 2 || words.size() > 4) return {};
    lab::MadeUpDisk::Node* node = disk.find(words[0] + "." + words[1]);
    if (!node) return {};
    std::size_t at = words.size() > 2 ? std::stoul(words[2]) : 0;
    if (at > node->data.size()) return {};
    return node->data.substr(at, words.size() > 3 ? std::stoul(words[3]) : std::string::npos);
}

// The stand-ins of the platform, set by words.
class MadeUpMachine final : public rows::Machine {
 public:
    void begin() override {
        fake_ = std::make_unique<lab::FakePlatform>(door());
        silence_.watch(*fake_);
    }
    void end() override { fake_.reset(); }

    bool set(const std::vector<Value>& words) override {
        lab::FakePlatform& fake = *fake_;
        const std::string& what = words[0].text;
        auto text = [&](std::size_t i) { return i < words.size() ? words[i].text : std::string(); };
        auto number = [&](std::size_t i) { return i < words.size() ? words[i].number : 0; };
        for (auto [name, result] : {std::pair("box", &fake.desktop.boxResult),
                                    {"beep-result", &fake.hardware.beepResult},
                                    {"log-off-result", &fake.desktop.logOffResult},
                                    {"set-result", &fake.clock.setResult}}) {
            if (what != name) continue;
            *result = static_cast<std::int32_t>(number(1));
            return true;
        }
        if (what == "windows95" || what == "win32s" || what == "windows-nt" || what == "unknown-system") {
            fake.process.id = what == "windows95"    ? platform::kWindows95Id
                              : what == "win32s"     ? platform::kWin32sId
                              : what == "windows-nt" ? platform::kWindowsNtId
                                                     : platform::kUnknownId;
        } else if (what == "clock") {
            fake.clock.now = momentOf(words);
        } else if (what == "command") {
            fake.process.command = text(1);
        } else if (what == "no-variables") {
            fake.process.variables.clear();
        } else if (what == "variable") {
            fake.process.variables.push_back(text(1));
        } else if (what == "program") {
            fake.process.path = text(1);
        } else if (what == "version") {
            fake.process.version = static_cast<std::uint32_t>(number(1));
        } else if (what == "family") {
            fake.hardware.family = static_cast<std::uint32_t>(number(1));
        } else if (what == "port") {
            fake.hardware.ports[static_cast<std::uint16_t>(number(1))] = static_cast<std::uint8_t>(number(2));
        } else if (what == "no-memory") {
            fake.process.memoryLeft = fake.desktop.memoryLeft = false;
        } else if (what == "no-focus") {
            fake.desktop.focus = 0;
        } else if (what == "clipboard-busy" || what == "clipboard-fails") {
            (what == "clipboard-busy" ? fake.desktop.clipboardOpens : fake.desktop.clipboardKeeps) = false;
        } else if (what == "memory") {
            fake.process.memory = {static_cast<std::uint64_t>(number(1)), static_cast<std::uint64_t>(number(2))};
        } else if (what == "date-text") {
            fake.locale.dateText = text(1);
        } else if (what == "time-text") {
            fake.locale.timeText = text(1);
        } else if (what == "number-text") {
            fake.locale.formatted = text(1);
        } else if (what == "file") {
            fake.disk.put(text(1), text(2));
        } else if (what == "files") {
            for (std::size_t i = 1; i < words.size(); ++i) fake.disk.put(text(i));
        } else if (what == "directory") {
            fake.disk.putDirectory(text(1));
        } else if (what == "dbf" || what == "dbt" || what == "fpt" || what == "blo") {
            fake.disk.put(text(1), bytesOf(words));
        } else if (what == "attributes" || what == "bytes" || what == "cut") {
            lab::MadeUpDisk::Node* node = fake.disk.find(text(1));
            if (!node) return false;
            auto at = static_cast<std::size_t>(number(2));
            if (what == "attributes") node->attributes = static_cast<std::uint32_t>(at);
            if (what == "bytes") node->data.replace(at, text(3).size(), text(3));
            if (what == "cut") node->data.resize(at);
        } else if (what == "in") {
            fake.disk.directory = text(1);
            fake.volumes.drives['C'].directory = text(1).substr(2);
        } else if (what == "link") {
            fake.disk.putLink(text(1), text(2));
        } else if (what == "short-name" || what == "written") {
            lab::MadeUpDisk::Node* node = fake.disk.find(text(1));
            if (!node) return false;
            if (what == "short-name") node->shortName = text(2);
            if (what == "written")
                fake.clock.toFileTime(momentOf({words.begin() + 1, words.end()}), node->times.written);
        } else if (what == "drops-ends") {
            fake.disk.dropsEnds = true;
        } else if (what == "fault") {
            fake.disk.fault = {.atCall = static_cast<int>(number(1)), .code = static_cast<std::uint32_t>(number(2))};
        } else if (what == "lead-bytes") {
            fake.locale.leadBytes = text(1);
        } else if (what == "free") {
            fake.volumes.bytesFree = static_cast<std::uint64_t>(number(1));
        } else if (what == "serial") {
            fake.volumes.drives[text(1).at(0)].serial = static_cast<std::uint32_t>(number(2));
        } else if (what == "lock") {
            std::int32_t handle = fake.disk.open(words[1].text.c_str(), platform::kReadWrite | platform::kDenyNone);
            fake.disk.lock(handle, static_cast<std::uint32_t>(number(2)), static_cast<std::uint32_t>(number(3)));
        } else if (what == "drive") {
            lab::MadeUpDrive drive{.kind = static_cast<platform::DriveKind>(number(2)), .label = text(3)};
            if (words.size() > 4) drive.fileSystem = text(4);
            fake.volumes.drives[text(1).at(0)] = drive;
        } else if (what == "no-drives") {
            fake.volumes.drives.clear();
        } else if (what == "drive-fails") {
            fake.volumes.drives[text(1).at(0)].error = static_cast<std::uint32_t>(number(2));
        } else if (what == "current") {
            fake.volumes.current = text(1).at(0);
        } else if (!setDrives(fake, words)) {
            return false;
        }
        fake.forgetClass();
        return true;
    }

    void beginCall() override { calls_ = fake_->disk.calls; }

    const Value* observed(const std::string& name) override {
        lab::FakePlatform& fake = *fake_;
        const lab::Box box = fake.desktop.boxes.empty() ? lab::Box{} : fake.desktop.boxes.back();
        if (name == "box") {
            seen_ = textValue(box.text);
        } else if (name == "title") {
            seen_ = textValue(box.title);
        } else if (name == "owner") {
            seen_ = numberValue(static_cast<std::int64_t>(box.owner));
        } else if (name == "icon") {
            seen_ = textValue(box.icon == platform::BoxIcon::kInformation ? "information" : "");
        } else if (name == "boxes") {
            seen_ = numberValue(static_cast<std::int64_t>(fake.desktop.boxes.size()));
        } else if (name == "clipboard") {
            // Without the one terminator that belongs to it.
            std::string pasted = fake.desktop.pasted.empty() ? std::string(1, '\0') : fake.desktop.pasted.back();
            seen_ = textValue(pasted.ends_with('\0') ? pasted.substr(0, pasted.size() - 1) : pasted + " without end");
        } else if (name == "clipboard-steps") {
            seen_ = textValue(std::exchange(fake.desktop.steps, {}));
        } else if (name == "log-offs") {
            seen_ = numberValue(fake.desktop.logOffs);
        } else if (name == "copies") {
            seen_ = numberValue(fake.process.copies);
        } else if (name == "asked") {
            seen_ = textValue(askedFor(fake.locale));
        } else if (name == "reads") {
            seen_ = numberValue(std::exchange(fake.clock.reads, 0));
        } else if (name == "slept") {
            seen_ = numberValue(fake.clock.sleeps.empty() ? 0 : fake.clock.sleeps.back());
        } else if (name == "slept-in-all") {
            seen_ = numberValue(std::accumulate(fake.clock.sleeps.begin(), fake.clock.sleeps.end(), 0));
        } else if (name == "calls") {
            seen_ = numberValue(fake.disk.calls - calls_);
        } else if (name == "blocks") {
            seen_ = textValue(lab::blocksOf(fake_->disk.find("T.BLO")->data));
        } else if (name == "locks") {
            seen_ = textValue(fake.disk.locks());
        } else if (auto part = partOfFile(fake_->disk, name)) {
            seen_ = textValue(*part);
        } else if (name == "set") {
            seen_ = textValue(fake.clock.sets.empty() ? "" : textOf(fake.clock.sets.back()));
        } else if (name == "labels") {
            seen_ = textValue(fake.volumes.labels);
        } else if (name == "names") {
            std::string names;
            for (const std::string& path : fake.disk.names()) names += (names.empty() ? "" : " ") + path;
            seen_ = textValue(names);
        } else if (name == "error") {
            seen_ = numberValue(fake.process.error);
        } else if (name == "error-mode") {
            seen_ = numberValue(fake.process.errorMode);
        } else if (name == "directory") {
            seen_ = textValue(fake.volumes.drives.at('C').directory);
        } else if (name == "searches") {
            seen_ = numberValue(static_cast<std::int64_t>(fake.disk.openSearches()));
        } else if (name == "beeps") {  // since the last look
            seen_ = textValue("");
            for (auto [frequency, milliseconds] : std::exchange(fake.hardware.beeps, {})) {
                seen_.text += (seen_.text.empty() ? "" : ", ") + std::to_string(frequency) + " Hz";
                if (milliseconds != platform::kUntilNextBeep)
                    seen_.text += " for " + std::to_string(milliseconds) + " ms";
            }
        } else if (name == "ports") {  // since the last look
            seen_ = textValue("");
            for (auto [port, value] : std::exchange(fake.hardware.portWrites, {})) {
                char text[16];
                std::snprintf(text, sizeof text, "%s%02X=%02X", seen_.text.empty() ? "" : " ", port, value);
                seen_.text += text;
            }
        } else if (name == "silent") {
            seen_ = numberValue(silence_.take());
        } else if (auto text = seenOfDrives(fake, name)) {
            seen_ = textValue(*text);
        } else {
            return nullptr;
        }
        return &seen_;
    }

 private:
    std::unique_ptr<lab::FakePlatform> fake_;
    Silence silence_;
    Value seen_;
    int calls_ = 0;
};

MadeUpMachine machine;
const bool registered = registerRows(&machine);

}  // namespace
}  // namespace vx::test
