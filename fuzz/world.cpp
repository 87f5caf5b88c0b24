#include "fuzz/world.h"

#include <algorithm>
#include <cstring>

#include "fuzz/texts.h"
#include "tests/lab/table_bytes.h"

namespace vx::fuzz {
namespace {

// The names are among the texts that are drawn.
void fill(lab::MadeUpDisk& disk, Random& random) {
    disk.capacity = 1 << 16;
    disk.put("C:\\DATA\\LETTER.TXT", "Dear reader,\r\n\r\nall is well.\nYours\r\n");
    disk.put("C:\\DATA\\EMPTY.TXT");
    disk.put("C:\\DATA\\LONG.TXT", std::string(5000, 'x') + "\n" + std::string(3000, 'y'));
    disk.put("C:\\DATA\\READONLY.TXT", "kept").attributes = platform::kReadOnly;
    disk.put("C:\\DATA\\SUB\\NAME.EXT", "1234567890");
    // A fault that came and went would let two equal calls differ.
    if (random.oneIn(4)) disk.fault = {.atCall = 1, .lasts = true, .fallsShort = random.oneIn(2)};
}

}  // namespace

World::World(lab::Door* door) : door_(door), fakes_(std::make_unique<lab::FakePlatform>(door)) {
    std::memcpy(loaded_, state(), sizeof loaded_);
}

void World::renew(Random& random) {
    fakes_.reset();
    fakes_ = std::make_unique<lab::FakePlatform>(door_);
    fakes_->desktop.focus = random.oneIn(4) ? 0 : 7;
    fakes_->desktop.boxResult = random.oneIn(4) ? 0 : 1;
    fakes_->desktop.clipboardOpens = !random.oneIn(4);
    fakes_->desktop.memoryLeft = !random.oneIn(4);
    fakes_->desktop.logOffResult = random.oneIn(4) ? 0 : 1;
    fill(fakes_->disk, random);
    chooseSystem(random);
    restoreState();
}

// Texts stay below the room that the table's rooms of `host` have here.
void World::chooseSystem(Random& random) {
    constexpr platform::PlatformId kIds[] = {platform::kWindowsNtId, platform::kWindows95Id, platform::kWin32sId,
                                             platform::kUnknownId};
    lab::FixedProcess& process = fakes_->process;
    process.id = random.of(kIds);
    process.memoryLeft = !random.oneIn(8);
    for (int i = random.between(0, 8); i > 0; --i) {
        std::string text = drawText(random, random.oneIn(2) ? "a \t\"" : drawAlphabet(random));
        process.command += ' ' + text.substr(0, 100);
        process.variables.push_back("V" + std::to_string(i) + '=' + text.substr(0, 1000));
    }
    process.command.erase(0, random.below(12));
    for (const char* name : {"COMSPEC", "SystemDrive", "PATH"}) {
        std::uint32_t way = random.below(4);
        if (way == 0) continue;  // as it was
        std::string start = std::string(name) + '=';
        std::erase_if(process.variables, [&](const std::string& variable) { return variable.starts_with(start); });
        std::string value = way == 1 ? drawWellFormed(random) : drawText(random, "aBcZ:\\/; .");
        if (way < 3) process.variables.push_back(start + value.substr(0, 1000));
    }
    for (std::string* directory : {&fakes_->volumes.system, &fakes_->volumes.windows}) {
        if (random.oneIn(4)) *directory = drawText(random, "C:\\ab .").substr(0, 1000);
    }
    if (random.oneIn(2)) {
        std::string lines = drawText(random, "");
        lines += "\nLASTDRIVE" + drawText(random, "=zZ \n");
        fakes_->disk.put("C:\\CONFIG.SYS", lines);
    }
    fakes_->hardware.hasDosDevice = !random.oneIn(4);
    fakes_->hardware.carry = random.oneIn(4);
    fakes_->hardware.beepResult = random.oneIn(4) ? 0 : 1;
    if (random.oneIn(4)) fakes_->volumes.current = 'F';
    if (random.oneIn(4)) fakes_->volumes.drives['F'].error = platform::kNotReady;
}

std::vector<const char*> World::putTables(Random& random) {
    using lab::blobReference;
    using lab::memoReference;
    lab::MadeUpDisk& disk = fakes_->disk;
    disk.put("PLAIN.DBF",
             lab::tableBytes(0x03, "a,C,9:ab,N,6,2:b,D,8:1,L,1: ,X,3:A,F,5", std::vector<std::string>(100, " text")));
    disk.put("DBASE.DBF", lab::tableBytes(0xC3, "a,M,10:b,B,20:A,C,300:1,V,4",
                                          {" " + memoReference(1) + blobReference(64, 5), "*"}));
    disk.put("DBASE.DBT", lab::dbtBytes({"a memo"}));
    disk.put("DBASE.BLO", lab::bloBytes({"blob", "other"}));
    disk.put("FOX.DBF", lab::tableBytes(0xF5, "a,M,10:b,C,30", {" " + memoReference(8), "*"}));
    disk.put("FOX.FPT", lab::fptBytes({"a memo"}));
    // Damaged ones, too, most often where numbers are.
    for (const char* name : {"PLAIN.DBF", "DBASE.DBF", "DBASE.DBT", "DBASE.BLO", "FOX.DBF", "FOX.FPT"}) {
        std::string& bytes = disk.find(name)->data;
        while (random.oneIn(4)) bytes[random.below(random.oneIn(2) ? 100 : 500) % bytes.size()] ^= 1 << random.below(8);
    }
    return {"PLAIN", "DBASE", "FOX"};
}

// From the tables of characters to the fill character.
char* World::state() const { return reinterpret_cast<char*>(door_->library) + offsetof(Library, upper); }

void World::restoreState() {
    std::memcpy(state(), loaded_, sizeof loaded_);
    auto& handles = door_->library->handles;
    std::fill(std::begin(handles), std::end(handles), kNoHandle);  // they belonged to the disk before
}

}  // namespace vx::fuzz
