// The rows that need a made-up machine, and that machine.
#include "tests/support/rows.h"

#include <functional>
#include <map>
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
    return lab::tableBytes(static_cast<int>(words.at(2).number), words.at(3).text, texts);
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
        auto small = [&](std::size_t i) { return static_cast<std::int32_t>(number(i)); };
        auto word = [&](std::size_t i) { return static_cast<std::uint32_t>(number(i)); };
        auto drive = [&]() -> lab::MadeUpDrive& { return fake.volumes.drives[text(1).at(0)]; };
        lab::MadeUpDisk::Node none;
        bool isMissing = false;
        auto node = [&]() -> lab::MadeUpDisk::Node& {
            lab::MadeUpDisk::Node* found = fake.disk.find(text(1));
            isMissing = !found;
            return found ? *found : none;
        };
        auto bytes = [&] { fake.disk.put(text(1), bytesOf(words)); };
        const std::map<std::string, std::function<void()>> all = {
            {"box", [&] { fake.desktop.boxResult = small(1); }},
            {"beep-result", [&] { fake.hardware.beepResult = small(1); }},
            {"log-off-result", [&] { fake.desktop.logOffResult = small(1); }},
            {"set-result", [&] { fake.clock.setResult = small(1); }},
            {"windows95", [&] { fake.process.id = platform::kWindows95Id; }},
            {"windows-nt", [&] { fake.process.id = platform::kWindowsNtId; }},
            {"win32s", [&] { fake.process.id = platform::kWin32sId; }},
            {"unknown-system", [&] { fake.process.id = platform::kUnknownId; }},
            {"clock", [&] { fake.clock.now = momentOf(words); }},
            {"command", [&] { fake.process.command = text(1); }},
            {"no-variables", [&] { fake.process.variables.clear(); }},
            {"variable", [&] { fake.process.variables.push_back(text(1)); }},
            {"program", [&] { fake.process.path = text(1); }},
            {"version", [&] { fake.process.version = word(1); }},
            {"family", [&] { fake.hardware.family = word(1); }},
            {"port",
             [&] {
                 fake.hardware.ports[static_cast<std::uint16_t>(number(1))] = static_cast<std::uint8_t>(number(2));
             }},
            {"no-memory", [&] { fake.process.memoryLeft = fake.desktop.memoryLeft = false; }},
            {"no-focus", [&] { fake.desktop.focus = 0; }},
            {"clipboard-busy", [&] { fake.desktop.clipboardOpens = false; }},
            {"clipboard-fails", [&] { fake.desktop.clipboardKeeps = false; }},
            {"memory",
             [&] {
                 fake.process.memory = {static_cast<std::uint64_t>(number(1)), static_cast<std::uint64_t>(number(2))};
             }},
            {"date-text", [&] { fake.locale.dateText = text(1); }},
            {"time-text", [&] { fake.locale.timeText = text(1); }},
            {"number-text", [&] { fake.locale.formatted = text(1); }},
            {"file", [&] { fake.disk.put(text(1), text(2)); }},
            {"files",
             [&] {
                 for (std::size_t i = 1; i < words.size(); ++i) fake.disk.put(text(i));
             }},
            {"directory", [&] { fake.disk.putDirectory(text(1)); }},
            {"dbf", bytes},
            {"dbt", bytes},
            {"fpt", bytes},
            {"blo", bytes},
            {"attributes", [&] { node().attributes = word(2); }},
            {"bytes", [&] { node().data.replace(word(2), text(3).size(), text(3)); }},
            {"cut", [&] { node().data.resize(word(2)); }},
            {"in", [&] { fake.disk.directory = text(1), fake.volumes.drives['C'].directory = text(1).substr(2); }},
            {"link", [&] { fake.disk.putLink(text(1), text(2)); }},
            {"short-name", [&] { node().shortName = text(2); }},
            {"written",
             [&] {
                 fake.clock.toFileTime(momentOf({words.begin() + 1, words.end()}), node().times.written);
             }},
            {"drops-ends", [&] { fake.disk.dropsEnds = true; }},
            {"fault", [&] { fake.disk.fault = {.atCall = small(1), .code = word(2)}; }},
            {"lead-bytes", [&] { fake.locale.leadBytes = text(1); }},
            {"free", [&] { fake.volumes.bytesFree = static_cast<std::uint64_t>(number(1)); }},
            {"serial", [&] { drive().serial = word(2); }},
            {"lock",
             [&] {
                 fake.disk.lock(fake.disk.open(text(1).c_str(), platform::kReadWrite | platform::kDenyNone), word(2),
                                word(3));
             }},
            {"drive",
             [&] {
                 drive() = {.kind = static_cast<platform::DriveKind>(number(2)), .label = text(3)};
                 if (words.size() > 4) drive().fileSystem = text(4);
             }},
            {"no-drives", [&] { fake.volumes.drives.clear(); }},
            {"drive-fails", [&] { drive().error = word(2); }},
            {"current", [&] { fake.volumes.current = text(1).at(0); }},
        };
        auto found = all.find(what);
        if (found == all.end() && !setDrives(fake, words)) return false;
        if (found != all.end()) found->second();
        fake.forgetClass();
        return !isMissing;
    }

    void beginCall() override { calls_ = fake_->disk.calls; }

    const Value* observed(const std::string& name) override {
        lab::FakePlatform& fake = *fake_;
        lab::RecordedDesktop& desktop = fake.desktop;
        const lab::Box box = desktop.boxes.empty() ? lab::Box{} : desktop.boxes.back();
        // What is since the last look: beeps, ports, reads, steps.
        const std::map<std::string, std::function<Value()>> all = {
            {"box", [&] { return textValue(box.text); }},
            {"title", [&] { return textValue(box.title); }},
            {"owner", [&] { return numberValue(static_cast<std::int64_t>(box.owner)); }},
            {"icon", [&] { return textValue(box.icon == platform::BoxIcon::kInformation ? "information" : ""); }},
            {"boxes", [&] { return numberValue(static_cast<std::int64_t>(desktop.boxes.size())); }},
            {"clipboard",
             [&] {
                 // Without the one terminator that belongs to it.
                 std::string pasted = desktop.pasted.empty() ? std::string(1, '\0') : desktop.pasted.back();
                 bool ends = pasted.ends_with('\0');
                 return textValue(ends ? pasted.substr(0, pasted.size() - 1) : pasted + " without end");
             }},
            {"clipboard-steps", [&] { return textValue(std::exchange(desktop.steps, {})); }},
            {"log-offs", [&] { return numberValue(desktop.logOffs); }},
            {"copies", [&] { return numberValue(fake.process.copies); }},
            {"asked", [&] { return textValue(askedFor(fake.locale)); }},
            {"reads", [&] { return numberValue(std::exchange(fake.clock.reads, 0)); }},
            {"slept", [&] { return numberValue(fake.clock.sleeps.empty() ? 0 : fake.clock.sleeps.back()); }},
            {"slept-in-all",
             [&] { return numberValue(std::accumulate(fake.clock.sleeps.begin(), fake.clock.sleeps.end(), 0)); }},
            {"calls", [&] { return numberValue(fake.disk.calls - calls_); }},
            {"blocks", [&] { return textValue(lab::blocksOf(fake.disk.find("T.BLO")->data)); }},
            {"locks", [&] { return textValue(fake.disk.locks()); }},
            {"set", [&] { return textValue(fake.clock.sets.empty() ? "" : textOf(fake.clock.sets.back())); }},
            {"labels", [&] { return textValue(fake.volumes.labels); }},
            {"names",
             [&] {
                 std::string names;
                 for (const std::string& path : fake.disk.names()) names += (names.empty() ? "" : " ") + path;
                 return textValue(names);
             }},
            {"error", [&] { return numberValue(fake.process.error); }},
            {"error-mode", [&] { return numberValue(fake.process.errorMode); }},
            {"directory", [&] { return textValue(fake.volumes.drives.at('C').directory); }},
            {"searches", [&] { return numberValue(static_cast<std::int64_t>(fake.disk.openSearches())); }},
            {"beeps",
             [&] {
                 std::string beeps;
                 for (auto [frequency, milliseconds] : std::exchange(fake.hardware.beeps, {})) {
                     beeps += (beeps.empty() ? "" : ", ") + std::to_string(frequency) + " Hz";
                     if (milliseconds != platform::kUntilNextBeep)
                         beeps += " for " + std::to_string(milliseconds) + " ms";
                 }
                 return textValue(beeps);
             }},
            {"ports",
             [&] {
                 std::string ports;
                 char text[16];
                 for (auto [port, value] : std::exchange(fake.hardware.portWrites, {})) {
                     std::snprintf(text, sizeof text, "%s%02X=%02X", ports.empty() ? "" : " ", port, value);
                     ports += text;
                 }
                 return textValue(ports);
             }},
            {"silent", [&] { return numberValue(silence_.take()); }},
        };
        auto found = all.find(name);
        auto text = found == all.end() ? partOfFile(fake.disk, name) : std::nullopt;
        if (found == all.end() && !text) text = seenOfDrives(fake, name);
        if (found == all.end() && !text) return nullptr;
        seen_ = text ? textValue(*text) : found->second();
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
