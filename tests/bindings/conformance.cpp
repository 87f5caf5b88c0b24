#include "tests/bindings/conformance.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "rows/runner.h"

namespace {

using namespace vx;
using catalog::Entry;
using catalog::Kind;
using catalog::Result;
using rows::Passed;

constexpr std::size_t kMostShown = 20;

// What a friendly function makes by itself and gives back.
bool isMade(Kind kind) { return kind == Kind::kDest || kind == Kind::kOut; }

// The call that is being made.
struct Given {
    int kind;
    std::int64_t number = 0;
    char* memory = nullptr;
    std::size_t size = 0;
    std::size_t offset = 0;
    char* copy = nullptr;
};
struct Gave {
    enum class What { kNull, kNumber, kPlace, kText } what;
    std::int64_t number = 0;
    const char* place = nullptr;
    std::string text;
};
std::vector<Given> given;
std::vector<Gave> gave;
std::string refusal;

Given exactGiven(const Passed& p) {
    static constexpr char kKinds[] = "nzm=";
    auto number = p.how == Passed::How::kSame ? static_cast<std::int64_t>(p.sameAs) : p.number;
    return {kKinds[static_cast<int>(p.how)], number, p.memory, p.size, p.offset};
}

class Caller : public rows::Remote {
 public:
    Caller(int first, void (*call)(const char*, int), bool isFriendly)
        : first_(first), call_(call), isFriendly_(isFriendly) {}

    void call(const Entry& entry, const std::string& name, std::span<const Passed> arguments,
              catalog::Value& result) override {
        given.clear();
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            Kind kind = entry.arguments[i].kind;
            if (!isFriendly_) given.push_back(exactGiven(arguments[i]));
            if (isFriendly_ && !isMade(kind) && kind != Kind::kAny)
                given.push_back(friendly(entry, kind, arguments[i]));
        }
        for (Given& g : given) {
            if (g.kind == '=') g.memory = given[g.number].memory, g.offset = given[g.number].offset;
        }
        make(isFriendly_ ? entry.main() : name.c_str());
        if (isFriendly_)
            takeFriendly(entry, arguments, result);
        else
            takeExact(entry, result);
        bool isUnsigned = entry.result == Result::kUint || entry.result == Result::kTable;
        bool fits = isUnsigned ? result.number >= 0 && result.number <= UINT32_MAX
                               : result.number >= INT32_MIN && result.number <= INT32_MAX;
        if (catalog::isNumber(entry.result) && !fits)  // rows compare 32 bits
            throw "gave " + std::to_string(result.number) + ", which the result's type cannot be";
    }

    void enter(const std::filesystem::path& directory) override { std::filesystem::current_path(directory); }

    // What is given already.
    void make(const char* name) {
        gave.clear();
        refusal.clear();
        call_(name, static_cast<int>(given.size()));
        if (!refusal.empty()) throw refusal;
    }

    // What was lent.
    void takeBack() {
        for (const Given& g : given) {
            if (g.copy) std::memcpy(g.memory, g.copy, g.size);
        }
    }

 private:
    int shift(const Entry& entry) const { return entry.base == 1 && first_ == 0 ? 1 : 0; }

    // Texts end at their NUL; a block is passed whole.
    Given friendly(const Entry& entry, Kind kind, const Passed& argument) const {
        Given g = exactGiven(argument);
        if (kind == Kind::kPos) g.number -= shift(entry);
        if (kind == Kind::kTable || kind == Kind::kHandle) g.kind = kind == Kind::kTable ? 'T' : 'F';
        if (g.kind != 'm') return g;
        g.kind = catalog::isText(kind) ? 't' : kind == Kind::kBytes ? 'b' : 'B';
        if (g.kind == 't') g.size = strnlen(g.memory, g.size);
        return g;
    }

    void takeExact(const Entry& entry, catalog::Value& result) {
        if (gave.size() != (entry.result == Result::kVoid ? 0 : 1)) throw std::string("not one result");
        result.text = nullptr;
        if (!gave.empty() && gave[0].what == Gave::What::kNumber) result.number = gave[0].number;
        if (!gave.empty() && gave[0].what == Gave::What::kPlace) result.text = here(gave[0].place);
        takeBack();
    }

    // A place in a copy, as that in the memory.
    static char* here(const char* place) {
        for (std::size_t beyond : {0, 1}) {  // the end of one may be the beginning of another
            for (const Given& g : given) {
                auto offset = reinterpret_cast<std::uintptr_t>(place) - reinterpret_cast<std::uintptr_t>(g.copy);
                if (g.copy && offset < g.size + beyond) return g.memory + offset;
            }
        }
        return const_cast<char*>(place);
    }

    void takeFriendly(const Entry& entry, std::span<const Passed> arguments, catalog::Value& result) {
        std::size_t next = 0;
        auto take = [&]() -> const Gave& {
            if (next == gave.size()) throw std::string("an output is missing");
            return gave[next++];
        };
        std::vector<std::size_t> outputs;
        std::vector<std::size_t> blocks;
        const Passed* text = nullptr;  // the first that comes back
        const Passed* last = nullptr;
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            Kind kind = entry.arguments[i].kind;
            if (isMade(kind) || kind == Kind::kEdit) outputs.push_back(i);
            if (kind == Kind::kBlock && arguments[i].how == Passed::How::kMemory) blocks.push_back(i);
            if (!text && (kind == Kind::kDest || kind == Kind::kEdit)) text = &arguments[i];
            if (kind == Kind::kStr) last = &arguments[i];
        }
        // Where the result lies if it is none of its own, or counts.
        const Passed* place = text ? text : !blocks.empty() ? &arguments[blocks[0]] : last;
        outputs.insert(outputs.end(), blocks.begin(), blocks.end());
        result.text = nullptr;
        if (catalog::isNumber(entry.result)) {
            const Gave& g = take();
            result.number = g.what == Gave::What::kNumber ? g.number : entry.result == Result::kHandle ? -1 : 0;
            if (entry.result == Result::kPos) result.number += shift(entry);
        } else if (entry.result == Result::kConst) {
            const Gave& g = take();
            if (g.what == Gave::What::kText) result.constant = texts_.emplace_back(g.text).c_str();
        } else if (entry.result == Result::kInside || entry.result == Result::kEnd) {
            const Gave& g = take();
            bool isSome = g.what == Gave::What::kNumber;
            if (isSome && (!place || !place->memory)) throw std::string("the result lies in no memory of the call");
            if (isSome) result.text = place->memory + g.number;
        } else if (entry.result == Result::kGiven && entry.arguments.back().kind == Kind::kStr) {
            result.text = arguments.back().memory;  // callers of friendly functions have it
        } else if (entry.result != Result::kVoid && place != last) {
            result.text = place->memory;
        }
        for (std::size_t i : outputs) {
            const Gave& g = take();
            bool isNull = g.what == Gave::What::kNull;
            if (isNull && &arguments[i] == text && entry.result == Result::kDest) result.text = nullptr;
            if (arguments[i].how == Passed::How::kMemory && !isNull) fill(arguments[i], g, entry.arguments[i].kind);
        }
        if (next != gave.size()) throw std::string("more outputs than the table says");
    }

    static void fill(const Passed& argument, const Gave& g, Kind kind) {
        if (kind == Kind::kOut) {
            auto number = static_cast<std::int32_t>(g.number);
            std::memcpy(argument.memory, &number, sizeof number);
            return;
        }
        std::size_t end = kind == Kind::kBlock ? 0 : 1;
        if (g.text.size() + end > argument.size)
            throw "gave " + std::to_string(g.text.size()) + " bytes, more than the documented room";
        std::memcpy(argument.memory, g.text.c_str(), g.text.size() + end);
    }

    int first_;
    void (*call_)(const char*, int);
    bool isFriendly_;
    std::deque<std::string> texts_;  // results that lie elsewhere
};

std::vector<rows::Block> allRows() {
    std::vector<rows::Block> all;
    for (const auto& entry : std::filesystem::directory_iterator(VEXLOR_ROWS)) {
        std::ifstream file(entry.path(), std::ios::binary);
        std::string text{std::istreambuf_iterator<char>(file), {}};
        for (rows::Block& block : rows::parse(entry.path().filename().string(), text)) all.push_back(std::move(block));
    }
    return all;
}

// Whether nobody can make the call by friendly functions: they have no length forms, make destinations themselves, and
// take open tables and files only.
bool isForExactOnly(const rows::Row& row, std::set<std::string>& closed) {
    const catalog::Entry* entry = catalog::find(row.name);
    if (!entry || entry->pointerForm >= 0) return entry;
    std::size_t next = 0;
    for (const catalog::Argument& argument : entry->arguments) {
        auto isGiven = [&](const auto& given) { return given.first == argument.name; };
        if (isMade(argument.kind)) {
            if (std::any_of(row.given.begin(), row.given.end(), isGiven)) return true;
        } else if (argument.kind != catalog::Kind::kBlock && next < row.arguments.size()) {
            const rows::Value& value = row.arguments[next];
            bool isObject = argument.kind == catalog::Kind::kTable || argument.kind == catalog::Kind::kHandle;
            if (isObject && (value.kind != rows::Value::Kind::kVariable || closed.contains(value.text))) return true;
            ++next;
        }
    }
    if (row.name == "DbfClose" || row.name == "FClose") closed.insert(row.arguments[0].text);
    return false;
}

std::vector<rows::Block> allExamples() {
    std::vector<rows::Block> all;
    for (const catalog::Entry& entry : catalog::allEntries()) {
        for (rows::Block& block : rows::parse("example", entry.examples)) {
            std::set<std::string> closed;
            std::erase_if(block.rows, [&](const rows::Row& row) { return isForExactOnly(row, closed); });
            all.push_back(std::move(block));
        }
    }
    return all;
}

// What never reaches the library: the language's own error says so, and nothing is written.
void checkRefusals(Caller& caller, int traits, const char* errors, rows::Report& report) {
    char bytes[] = "a\0b~~~~~";
    char chinese[] = "\xE4\xB8\x80";
    char path[] = "/tmp/vexlor_refusals_XXXXXX";
    auto number = [](std::int64_t n) { return Given{'n', n}; };
    auto text = [](char* start, std::size_t size) { return Given{'t', 0, start, size}; };
    auto block = [&](int kind, std::size_t size) { return Given{kind, 0, bytes, size}; };
    auto make = [&](const char* name, std::vector<Given> arguments) {
        given = std::move(arguments);
        caller.make(name);
    };
    auto refuse = [&](bool isPossible, const char* name, std::vector<Given> arguments) {
        if (!isPossible) return;
        ++report.calls;
        std::string words = "was not refused";
        try {
            make(name, std::move(arguments));
        } catch (const std::string& error) {
            words = error;
        }
        caller.takeBack();
        if (!std::regex_search(words, std::regex(errors))) report.failures.push_back(std::string(name) + " " + words);
        if (std::memcmp(bytes, "a\0b~~~~~", sizeof bytes) != 0) report.failures.push_back(std::string(name) + " wrote");
    };
    if (!vxc_is_friendly()) {
        refuse(traits & kArrays, "StrAllTrim", {block('m', 1), {'m', 0, bytes + 3, 5}});
        return refuse(traits & kWide, "ChrUpper", {number(std::int64_t{1} << 32)});
    }
    close(mkstemp(path));
    make("FOpen", {text(path, std::strlen(path)), number(0)});
    Given closed{'F', gave.at(0).number};
    make("FClose", {closed});
    std::filesystem::remove(path);
    refuse(true, "FLen", {closed});
    refuse(true, "FClose", {closed});
    refuse(true, "AllTrim", {text(bytes, 3)});
    refuse(traits & kUnicode, "AllTrim", {{'u', 0, chinese, 3}});
    refuse(true, "Replicate", {text(bytes + 3, 5), number(INT32_MAX)});
    refuse(true, "_int2blob", {block('B', 8), number(6), number(7)});
    refuse(true, "MemCopy", {block('B', 8), block('b', 1), number(2)});
    refuse(traits & kWide, "Crc32", {block('b', 8), number(-1), number(1)});
}

}  // namespace

int vxc_kind(int i) { return given.at(i).kind; }
std::int64_t vxc_number(int i) { return given.at(i).number; }
char* vxc_memory(int i) { return given.at(i).memory; }
std::int64_t vxc_size(int i) { return static_cast<std::int64_t>(given.at(i).size); }
std::int64_t vxc_offset(int i) { return static_cast<std::int64_t>(given.at(i).offset); }
char* vxc_pointer(int i) { return given.at(i).memory + given.at(i).offset; }
void vxc_lend(int i, char* place) {
    Given& g = given.at(i);
    if (g.size > 0) std::memcpy(place, g.memory, g.size);
    g.copy = place;
}
void vxc_gave_number(std::int64_t number) { gave.push_back({Gave::What::kNumber, number, nullptr, {}}); }
void vxc_gave_place(const char* place) {
    gave.push_back({place ? Gave::What::kPlace : Gave::What::kNull, 0, place, {}});
}
void vxc_gave_text(const char* text, std::int64_t size) {
    gave.push_back({Gave::What::kText, 0, nullptr, std::string(text, static_cast<std::size_t>(size))});
}
void vxc_gave_null() { gave.push_back({Gave::What::kNull, 0, nullptr, {}}); }
void vxc_refused(const char* words) { refusal = std::string("refused: ") + words; }

int vxc_is_friendly() {
    const char* layer = std::getenv("VEXLOR_LAYER");
    return layer && std::strcmp(layer, "friendly") == 0;
}

int vxc_run(int traits, const char* errors, void (*call)(const char*, int)) {
    bool isFriendly = vxc_is_friendly();
    Caller caller(traits & kFromOne, call, isFriendly);
    rows::Host host{.find = nullptr, .machine = nullptr, .remote = &caller, .onlyRows = isFriendly};
    rows::Report report;
    try {
        report = rows::run(isFriendly ? allExamples() : allRows(), host);
        checkRefusals(caller, traits, errors, report);
    } catch (const std::exception& error) {
        report.failures.push_back(error.what());
    } catch (const std::string& error) {
        report.failures.push_back(error);
    }
    for (std::size_t i = 0; i < report.failures.size() && i < kMostShown; ++i)
        std::fprintf(stderr, "%s\n", report.failures[i].c_str());
    std::printf("%d rows, %d calls, %zu failures; %d blocks left, which need a made-up machine or another system\n",
                report.rows, report.calls, report.failures.size(), report.left);
    std::fflush(stdout);
    return !report.failures.empty() || report.rows == 0;
}
