#include "rows/setup.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <sstream>
#include <system_error>

namespace vx::rows {
namespace {

#if defined(_WIN32)
constexpr const char* kSystem = "windows";
#else
constexpr const char* kSystem = "linux";
#endif

Value number(std::int64_t of) { return {.kind = Value::Kind::kNumber, .number = of, .text = {}}; }

bool isSetting(const Setup& setup, const char* word) { return !setup.words.empty() && setup.words[0].text == word; }

}  // namespace

bool Surroundings::isFor(const Block& block, const Host& host) {
    auto asks = [&](const char* word) {
        return std::any_of(block.setups.begin(), block.setups.end(),
                           [&](const Setup& s) { return isSetting(s, word); });
    };
    for (const Setup& setup : block.setups) {
        if (isSetting(setup, "system") && (setup.words.size() != 2 || setup.words[1].text != kSystem)) return false;
    }
    return asks("machine") == (host.machine != nullptr);
}

Surroundings::Surroundings(const Block& block, const Host& host, Variables& variables)
    : block_(block), host_(host), variables_(variables) {
    try {
        for (const Setup& setup : block.setups) {
            set(setup);
            ++done_;
        }
    } catch (...) {
        takeBack();
        throw;
    }
}

// NOLINTNEXTLINE(bugprone-exception-escape): the calls were tried before
Surroundings::~Surroundings() { takeBack(); }

void Surroundings::set(const Setup& setup) {
    if (setup.until) makeCall(*setup.until, true);  // what is wrong with it shows now, not at the end
    if (setup.call) {
        makeCall(*setup.call);
        return;
    }
    const std::string& word = setup.words[0].text;
    auto isTexts = [&](std::size_t count) { return setup.words.size() == count + 1; };
    if (word == "directory" && isTexts(0)) {
        makeDirectory();
    } else if (word == "file" && isTexts(2)) {
        if (directory_.empty())
            throw ScriptError(setup.file, setup.line, "`with file` needs `with directory` before it");
        std::filesystem::path path = directory_ / setup.words[1].text;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << setup.words[2].text;
    } else if (word == "table" && setup.words.size() > 2 && isPlace()) {
        makeTable(setup);
    } else if (word == "machine" && host_.machine) {
        if (!hasMachine_) host_.machine->begin();
        hasMachine_ = true;
        bool isKnown = setup.words.size() == 1 || host_.machine->set({setup.words.begin() + 1, setup.words.end()});
        if (!isKnown) throw ScriptError(setup.file, setup.line, "the made-up machine has no such setting");
    } else if (word != "system") {
        throw ScriptError(setup.file, setup.line, "no such set-up: " + word);
    }
}

void Surroundings::makeDirectory() {
    auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    directory_ = std::filesystem::temp_directory_path() / ("vexlor-rows-" + std::to_string(ticks));
    std::filesystem::create_directories(directory_);
    before_ = std::filesystem::current_path();
    std::filesystem::current_path(directory_);
    if (host_.remote) host_.remote->enter(directory_);
}

void Surroundings::makeTable(const Setup& setup) {
    table_ = makeCall(setup, "DbfStrCreate", {setup.words[1], setup.words[2]});
    if (table_ == 0) throw ScriptError(setup.file, setup.line, "the table cannot be made");
    variables_["table"] = {.isNumber = true, .number = table_, .text = {}, .memory = nullptr};
    for (std::size_t i = 3; i < setup.words.size(); ++i) {
        makeCall(setup, "DbfAppend", {number(table_), number(1)});
        std::istringstream values(setup.words[i].text);
        std::string value;
        for (int field = 1; std::getline(values, value, '|'); ++field) {
            Value text{.kind = Value::Kind::kText, .number = 0, .text = value};
            if (makeCall(setup, "DbfFieldPut", {number(table_), number(field), text}) != 1)
                throw ScriptError(setup.file, setup.line, "the table takes no `" + value + "`");
        }
    }
    makeCall(setup, "DbfGoto", {number(table_), number(1)});
}

std::int64_t Surroundings::makeCall(const Setup& setup, const char* name, std::vector<Value> arguments) {
    Row row;
    row.file = setup.file;
    row.line = setup.line;
    row.name = name;
    row.arguments = std::move(arguments);
    return makeCall(row);
}

std::int64_t Surroundings::makeCall(const Row& row, bool onlyTried) {
    const catalog::Entry* entry = catalog::find(row.name);
    if (!entry) throw ScriptError(row.file, row.line, "there is no function " + row.name);
    Variables none;
    Form form{.label = "", .entry = entry, .name = row.name};
    try {
        Call call(row, form, none);
        if (onlyTried) return 0;
        makeBy(host_, call, form);
        return call.number();
    } catch (const std::string& what) {
        throw ScriptError(row.file, row.line, what);
    }
}

void Surroundings::takeBack() {
    for (; done_ > 0; --done_) {
        const Setup& setup = block_.setups[done_ - 1];
        if (setup.until) makeCall(*setup.until);
    }
    if (table_) {
        Setup nowhere;
        makeCall(nowhere, "DbfClose", {number(table_)});
    }
    if (hasMachine_) host_.machine->end();
    if (directory_.empty()) return;
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
    if (host_.remote) host_.remote->enter(before_);
    std::filesystem::remove_all(directory_, ignored);
}

}  // namespace vx::rows
