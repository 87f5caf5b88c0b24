// The rows that need a made-up machine, and that machine.
#include "tests/support/rows.h"

#include <algorithm>
#include <concepts>
#include <cstdio>
#include <functional>
#include <iterator>
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
#include "tests/seam/seam.h"

namespace vx::test {
namespace {

using rows::Value;

Value seen(const std::string& text) { return {Value::Kind::kText, 0, text}; }
template <std::integral Integer>
Value seen(Integer number) {
    return {Value::Kind::kNumber, static_cast<std::int64_t>(number), {}};
}

// A word's number, as whatever it is for.
struct Number {
    std::int64_t value;
    template <typename As>
    operator As() const {
        return static_cast<As>(value);
    }
};

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

template <typename Items, typename Show = std::identity>
std::string joined(const Items& items, const std::string& gap, Show show = {}) {
    std::string all;
    for (const auto& item : items) all += (all.empty() ? "" : gap) + show(item);
    return all;
}

std::string shownBeep(std::pair<std::uint32_t, std::uint32_t> beep) {
    std::string length = beep.second == platform::kUntilNextBeep ? "" : " for " + std::to_string(beep.second) + " ms";
    return std::to_string(beep.first) + " Hz" + length;
}

std::string shownPort(std::pair<std::uint16_t, std::uint8_t> write) {
    char text[16];
    std::snprintf(text, sizeof text, "%02X=%02X", write.first, write.second);
    return text;
}

// Without the one terminator that belongs to it.
std::string clipboardOf(const lab::RecordedDesktop& desktop) {
    std::string pasted = desktop.pasted.empty() ? std::string(1, '\0') : desktop.pasted.back();
    return pasted.ends_with('\0') ? pasted.substr(0, pasted.size() - 1) : pasted + " without end";
}

// The last call of the DOS device: `read drive 0: 3 from 1437`, and what else it was told.
std::string shownCall(const lab::DosCall& call) {
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
        lab::FixedProcess& process = fake.process;
        lab::MadeUpDisk& disk = fake.disk;
        lab::MadeUpHardware& hardware = fake.hardware;
        lab::MadeUpVolumes& volumes = fake.volumes;
        auto text = [&](std::size_t i) { return i < words.size() ? words[i].text : std::string(); };
        auto number = [&](std::size_t i) { return Number{i < words.size() ? words[i].number : 0}; };
        auto numbers = [&](std::size_t i) {
            std::istringstream in(text(i));
            return std::vector<std::uint32_t>(std::istream_iterator<std::uint32_t>(in), {});
        };
        auto drive = [&]() -> lab::MadeUpDrive& { return volumes.drives[text(1).at(0)]; };
        auto setDrive = [&] {
            drive() = {.kind = number(2), .label = text(3)};
            if (words.size() > 4) drive().fileSystem = text(4);
        };
        auto setMemory = [&] { process.memory = {number(1), number(2)}; };
        auto setSpace = [&] { drive().space = {number(2), number(3), number(4), number(5)}; };
        auto onlyHardDisks = [&] {
            volumes.drives.clear();
            for (char c : text(1)) volumes.drives[c] = {};
        };
        // Lost when its drive is changed to without it.
        auto startIn = [&] { drive() = {.directory = text(2), .startedIn = true}; };
        lab::MadeUpDisk::Node none;
        bool isMissing = false;
        auto node = [&]() -> lab::MadeUpDisk::Node& {
            lab::MadeUpDisk::Node* found = disk.find(text(1));
            isMissing = !found;
            return found ? *found : none;
        };
        auto written = [&](const std::vector<Value>& moment) {
            fake.clock.toFileTime(momentOf(moment), node().times.written);
        };
        auto bytes = [&] { disk.put(text(1), bytesOf(words)); };
        auto files = [&] {
            for (std::size_t i = 1; i < words.size(); ++i) disk.put(text(i));
        };
        auto lock = [&](std::int32_t handle) { disk.lock(handle, number(2), number(3)); };
        const std::map<std::string, std::function<void()>> all = {
            {"box", [&] { fake.desktop.boxResult = number(1); }},
            {"beep-result", [&] { hardware.beepResult = number(1); }},
            {"log-off-result", [&] { fake.desktop.logOffResult = number(1); }},
            {"set-result", [&] { fake.clock.setResult = number(1); }},
            {"windows95", [&] { process.id = platform::kWindows95Id; }},
            {"windows-nt", [&] { process.id = platform::kWindowsNtId; }},
            {"win32s", [&] { process.id = platform::kWin32sId; }},
            {"unknown-system", [&] { process.id = platform::kUnknownId; }},
            {"clock", [&] { fake.clock.now = momentOf(words); }},
            {"command", [&] { process.command = text(1); }},
            {"no-variables", [&] { process.variables.clear(); }},
            {"variable", [&] { process.variables.push_back(text(1)); }},
            {"program", [&] { process.path = text(1); }},
            {"version", [&] { process.version = number(1); }},
            {"family", [&] { hardware.family = number(1); }},
            {"port", [&] { hardware.ports[number(1)] = number(2); }},
            {"no-memory", [&] { process.memoryLeft = fake.desktop.memoryLeft = false; }},
            {"no-focus", [&] { fake.desktop.focus = 0; }},
            {"clipboard-busy", [&] { fake.desktop.clipboardOpens = false; }},
            {"clipboard-fails", [&] { fake.desktop.clipboardKeeps = false; }},
            {"memory", setMemory},
            {"date-text", [&] { fake.locale.dateText = text(1); }},
            {"time-text", [&] { fake.locale.timeText = text(1); }},
            {"number-text", [&] { fake.locale.formatted = text(1); }},
            {"lead-bytes", [&] { fake.locale.leadBytes = text(1); }},
            {"file", [&] { disk.put(text(1), text(2)); }},
            {"files", files},
            {"directory", [&] { disk.putDirectory(text(1)); }},
            {"dbf", bytes},
            {"dbt", bytes},
            {"fpt", bytes},
            {"blo", bytes},
            {"attributes", [&] { node().attributes = number(2); }},
            {"bytes", [&] { node().data.replace(number(2), text(3).size(), text(3)); }},
            {"cut", [&] { node().data.resize(number(2)); }},
            {"in", [&] { disk.directory = text(1), volumes.drives['C'].directory = text(1).substr(2); }},
            {"working-directory", [&] { disk.directory = text(1); }},
            {"link", [&] { disk.putLink(text(1), text(2)); }},
            {"short-name", [&] { node().shortName = text(2); }},
            {"written", [&] { written(std::vector(words.begin() + 1, words.end())); }},
            {"drops-ends", [&] { disk.dropsEnds = true; }},
            {"fault", [&] { disk.fault.atCall = number(1), disk.fault.code = number(2); }},
            {"lock", [&] { lock(disk.open(text(1).c_str(), platform::kReadWrite | platform::kDenyNone)); }},
            {"free", [&] { volumes.bytesFree = number(1).value; }},
            {"drive", setDrive},
            {"drives", onlyHardDisks},
            {"no-drives", [&] { volumes.drives.clear(); }},
            {"serial", [&] { drive().serial = number(2); }},
            {"space", setSpace},
            {"drive-fails", [&] { drive().error = number(2); }},
            {"label-fails", [&] { drive().labelError = number(2); }},
            {"current", [&] { volumes.current = text(1).at(0); }},
            {"directory-of", [&] { drive().directory = text(2); }},
            {"started-in", startIn},
            {"system-directories", [&] { volumes.system = volumes.windows = text(1); }},
            {"media", [&] { (hardware.media.clear(), hardware.media[text(1).at(0)]) = numbers(2); }},
            {"physical-drives", [&] { hardware.physicalDrives = numbers(1); }},
            {"medium", [&] { hardware.mediumSectors = number(1); }},  // its sectors by DOS
            {"diskette", [&] { hardware.diskette.replace(number(1), text(2).size(), text(2)); }},
            {"write-protected", [&] { hardware.writeProtected = true; }},
            {"carry", [&] { hardware.carry = true; }},
            {"no-dos-device", [&] { hardware.hasDosDevice = false; }},
            {"cmos", [&] { hardware.cmos[words[1].number & 127] = number(2); }},
        };
        auto found = all.find(words[0].text);
        if (found == all.end()) return false;
        found->second();
        fake.forgetClass();
        return !isMissing;
    }

    void beginCall() override { calls_ = fake_->disk.calls; }

    const Value* observed(const std::string& name) override {
        lab::FakePlatform& fake = *fake_;
        lab::RecordedDesktop& desktop = fake.desktop;
        lab::MadeUpHardware& hardware = fake.hardware;
        auto& sets = fake.clock.sets;
        auto& sleeps = fake.clock.sleeps;
        const lab::Box box = desktop.boxes.empty() ? lab::Box{} : desktop.boxes.back();
        // Beeps, ports, reads, steps and calls of DOS are those since the last look.
        auto dos = [&] { return std::exchange(hardware.dosCalls, {}); };
        auto here = [&](char letter) { return std::string{letter, ':'} + fake.volumes.drives[letter].directory; };
        const std::map<std::string, std::function<Value()>> all = {
            {"box", [&] { return seen(box.text); }},
            {"title", [&] { return seen(box.title); }},
            {"owner", [&] { return seen(box.owner); }},
            {"icon", [&] { return seen(box.icon == platform::BoxIcon::kInformation ? "information" : ""); }},
            {"boxes", [&] { return seen(desktop.boxes.size()); }},
            {"clipboard", [&] { return seen(clipboardOf(desktop)); }},
            {"clipboard-steps", [&] { return seen(std::exchange(desktop.steps, {})); }},
            {"log-offs", [&] { return seen(desktop.logOffs); }},
            {"copies", [&] { return seen(fake.process.copies); }},
            {"asked", [&] { return seen(askedFor(fake.locale)); }},
            {"reads", [&] { return seen(std::exchange(fake.clock.reads, 0)); }},
            {"slept", [&] { return seen(sleeps.empty() ? 0 : sleeps.back()); }},
            {"slept-in-all", [&] { return seen(std::accumulate(sleeps.begin(), sleeps.end(), 0)); }},
            {"calls", [&] { return seen(fake.disk.calls - calls_); }},
            {"blocks", [&] { return seen(lab::blocksOf(fake.disk.find("T.BLO")->data)); }},
            {"locks", [&] { return seen(fake.disk.locks()); }},
            {"set", [&] { return seen(sets.empty() ? "" : textOf(sets.back())); }},
            {"labels", [&] { return seen(fake.volumes.labels); }},
            {"names", [&] { return seen(joined(fake.disk.names(), " ")); }},
            {"error", [&] { return seen(fake.process.error); }},
            {"error-mode", [&] { return seen(fake.process.errorMode); }},
            {"directory", [&] { return seen(fake.volumes.drives.at('C').directory); }},
            {"here", [&] { return seen(here(fake.volumes.current)); }},
            {"searches", [&] { return seen(fake.disk.openSearches()); }},
            {"open", [&] { return seen(std::to_string(fake.disk.openFiles() + fake.disk.openSearches())); }},
            {"beeps", [&] { return seen(joined(std::exchange(hardware.beeps, {}), ", ", shownBeep)); }},
            {"ports", [&] { return seen(joined(std::exchange(hardware.portWrites, {}), " ", shownPort)); }},
            {"queries", [&] { return seen(hardware.queries); }},
            {"dos", [&] { return seen(hardware.dosCalls.empty() ? "" : shownCall(dos().back())); }},
            {"silent", [&] { return seen(silence_.take()); }},
        };
        auto found = all.find(name);
        auto part = found == all.end() ? partOfFile(fake.disk, name) : std::nullopt;
        if (found == all.end() && !part) return nullptr;
        seen_ = part ? seen(*part) : found->second();
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
