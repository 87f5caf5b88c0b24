#include "rows/call.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace vx::rows {
namespace {

using catalog::Argument;
using catalog::Kind;
using catalog::Result;
using Wanted = Value::Kind;

constexpr char kFiller = '~';
constexpr std::size_t kMostArguments = 16;
constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();

// Pages are kept: making them anew for each call would cost more than the calls.
GuardedBuffer& bufferAt(std::size_t i) {
    static std::array<GuardedBuffer, kMostArguments>& buffers = *new std::array<GuardedBuffer, kMostArguments>;
    return buffers.at(i);
}

std::string differs(const std::string& what, const std::string& wanted, const std::string& got) {
    return what + "wanted " + wanted + ", got " + got;
}

}  // namespace

Call::Call(const Row& row, const Form& form, Variables& variables)
    : form_(form), entry_(*form.entry), slots_(entry_.arguments.size()), values_(entry_.arguments.size()), result_{} {
    take(row, variables);
    place();
}

void Call::take(const Row& row, Variables& variables) {
    auto next = row.arguments.begin();
    auto given = row.given;
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        if (isSupplied(entry_.arguments[i].kind)) continue;
        if (next == row.arguments.end()) throw row.name + " takes more arguments";
        takeOne(i, *next++, variables);
    }
    // Behind the others, on which the room of a block may depend.
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        const Argument& argument = entry_.arguments[i];
        if (!isSupplied(argument.kind)) continue;
        auto isOfIt = [&](const auto& g) { return g.first == argument.name; };
        auto found = std::find_if(given.begin(), given.end(), isOfIt);
        if (found == given.end()) continue;
        auto value = std::find_if(row.given.begin(), row.given.end(), isOfIt);
        takeOne(i, value->second, variables);
        slots_[i].given = true;
        given.erase(found);
    }
    if (next != row.arguments.end()) throw row.name + " takes fewer arguments";
    if (!given.empty()) throw row.name + " has no supplied argument `" + given.front().first + "`";
}

void Call::takeOne(std::size_t i, const Value& value, Variables& variables) {
    const Argument& argument = entry_.arguments[i];
    Slot& slot = slots_[i];
    slot.value = &value;
    std::int64_t number = value.number;
    std::string text = value.text;
    bool isNumber = value.kind == Wanted::kNumber;
    if (value.kind == Wanted::kVariable) {
        auto found = variables.find(value.text);
        if (found == variables.end()) {
            if (argument.kind != Kind::kBlock) throw "nothing was kept as $" + value.text;
            found = variables.emplace(value.text, Variable{}).first;
            std::int64_t room = argument.room ? argument.room(values_.data()).value : 1;
            found->second.memory = std::make_unique<GuardedBuffer>();
            char* start = found->second.memory->place(static_cast<std::size_t>(room), false, '#');
            std::memset(start, 0, static_cast<std::size_t>(room));
        }
        const Variable& variable = found->second;
        slot.memory = variable.memory.get();
        isNumber = variable.isNumber;
        number = variable.number;
        text = variable.text;
    } else if (value.kind != Wanted::kNumber && value.kind != Wanted::kText && value.kind != Wanted::kNull) {
        throw "`" + shown(value) + "` is no argument";
    }
    slot.isNull = value.kind == Wanted::kNull;
    if (!isPointer(argument.kind)) {
        bool isCode = argument.kind == Kind::kChar && !isNumber && text.size() == 1;
        if (!isNumber && !isCode) throw std::string("`") + argument.name + "` takes a number, not " + shown(value);
        if (isCode) number = static_cast<unsigned char>(text[0]);
        if (form_.zeroBased && argument.kind == Kind::kPos) number = std::max<std::int64_t>(number - 1, kLowest);
        values_[i].number = isUnsigned(argument.kind) ? static_cast<std::int64_t>(static_cast<std::uint32_t>(number))
                                                      : static_cast<std::int64_t>(static_cast<std::int32_t>(number));
        return;
    }
    if (argument.kind == Kind::kOut) {
        if (!isNumber && !slot.isNull) throw std::string("`") + argument.name + "` takes a number";
        auto first = static_cast<std::int32_t>(number);
        slot.bytes.assign(reinterpret_cast<const char*>(&first), sizeof first);
        return;
    }
    if (isNumber) throw std::string("`") + argument.name + "` takes a text, not " + shown(value);
    slot.bytes = std::move(text);
    // What rooms are computed from.
    if (isText(argument.kind)) values_[i].constant = slot.isNull ? nullptr : slot.bytes.c_str();
}

void Call::place() {
    std::vector<std::size_t> sizes(slots_.size());
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        const Argument& argument = entry_.arguments[i];
        Slot& slot = slots_[i];
        if (!isPointer(argument.kind)) continue;
        std::int64_t room = argument.room ? std::max<std::int64_t>(argument.room(values_.data()).value, 0) : 0;
        if (room > std::int64_t{1} << 28) throw std::string("the call needs too much memory");
        std::size_t own = slot.bytes.size() + isText(argument.kind);
        if (argument.kind == Kind::kOut) own = sizeof(std::int32_t);
        if (argument.before >= 0) {
            std::int64_t front = -values_[static_cast<std::size_t>(argument.before)].number;
            slot.front = static_cast<std::size_t>(std::max<std::int64_t>(front, 0));
            room += static_cast<std::int64_t>(slot.front);
        }
        if (argument.kind == Kind::kDest)
            own = slot.given ? slot.bytes.size() + 1 : 0;  // else the documented room only
        sizes[i] = std::max<std::size_t>({own, static_cast<std::size_t>(room), 1});
        if (isSupplied(argument.kind) && form_.without == static_cast<int>(i)) slot.isNull = true;
        if (argument.kind == Kind::kDest && (form_.inPlace || form_.onto >= 0)) slot.isNull = true;
        slot.written = argument.kind != Kind::kStr && argument.kind != Kind::kBytes && !slot.isNull;
        if (argument.kind == Kind::kDest && slot.isNull) {
            int onto = form_.onto >= 0 ? form_.onto : argument.inPlace;
            if (onto < 0) continue;
            auto text = static_cast<std::size_t>(onto);
            sizes[text] = std::max(sizes[text], sizes[i]);
            slots_[text].written = !slots_[text].isNull;
        }
    }
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        const Argument& argument = entry_.arguments[i];
        Slot& slot = slots_[i];
        if (!isPointer(argument.kind)) continue;
        values_[i].text = nullptr;
        if (slot.isNull) continue;
        if (slot.memory) {
            values_[i].text = slot.memory->data();
            continue;
        }
        slot.memory = &bufferAt(i);
        char* start = slot.memory->place(sizes[i], form_.atFront, form_.atFront ? ' ' : '#');
        bool isBlock = argument.kind == Kind::kBytes || argument.kind == Kind::kBlock;
        std::memset(start, isBlock && !slot.given ? 0 : kFiller, sizes[i]);
        if (argument.kind == Kind::kBytes) std::memset(start, 0, sizes[i]);
        if (argument.kind == Kind::kDest && argument.terminated) start[sizes[i] - 1] = '\0';
        std::memcpy(start, slot.bytes.data(), std::min(slot.bytes.size(), sizes[i]));
        if ((isText(argument.kind) || (argument.kind == Kind::kDest && slot.given)) && slot.bytes.size() < sizes[i])
            start[slot.bytes.size()] = '\0';
        slot.before.assign(start, sizes[i]);
        values_[i].text = start + slot.front;
    }
    if (form_.onto < 0) return;
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        if (entry_.arguments[i].kind == Kind::kDest)
            values_[i].text = values_[static_cast<std::size_t>(form_.onto)].text;
    }
}

void Call::make(catalog::Function function) { entry_.invoke(function, values_.data(), &result_); }

void Call::make(Remote& remote) {
    std::vector<Passed> passed(slots_.size());
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        const Slot& slot = slots_[i];
        if (!isPointer(entry_.arguments[i].kind)) {
            passed[i].number = values_[i].number;
        } else if (slot.memory && !slot.isNull) {
            passed[i] = {.how = Passed::How::kMemory,
                         .memory = slot.memory->data(),
                         .size = slot.memory->size(),
                         .offset = slot.front};
        } else {
            passed[i].how = Passed::How::kNull;
        }
    }
    if (form_.onto >= 0) {
        auto text = static_cast<std::size_t>(form_.onto);
        for (std::size_t i = 0; i < slots_.size(); ++i) {
            if (entry_.arguments[i].kind == Kind::kDest) passed[i] = {.how = Passed::How::kSame, .sameAs = text};
        }
    }
    remote.call(entry_, form_.name, passed, result_);
}

std::string Call::memoryFault() const {
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        const Slot& slot = slots_[i];
        if (!slot.memory || slot.isNull) continue;
        std::string name = entry_.arguments[i].name;
        if (auto offset = slot.memory->damage()) return "wrote outside `" + name + "`, at " + std::to_string(*offset);
        if (slot.before.empty() || slot.written) continue;
        if (std::memcmp(slot.memory->data(), slot.before.data(), slot.before.size()) != 0)
            return "changed its source `" + name + "`";
    }
    return {};
}

std::optional<std::string> Call::outputText(std::size_t i) const {
    const Slot& slot = slots_[i];
    if (!slot.memory || slot.isNull) return {};
    const char* start = slot.memory->data();
    return std::string(start, strnlen(start, slot.memory->size()));
}

std::optional<std::string> Call::text() const {
    if (catalog::isText(entry_.result) && result_.constant) {
        // A text that the call left without an end shows as one that goes on to the end of its memory.
        for (const Slot& slot : slots_) {
            if (!slot.memory || slot.isNull) continue;
            auto offset = slot.memory->offsetOf(result_.constant);
            auto size = static_cast<std::ptrdiff_t>(slot.memory->size());
            if (!offset) continue;
            if (*offset < 0 || *offset >= size) return {};
            return std::string(result_.constant, strnlen(result_.constant, static_cast<std::size_t>(size - *offset)));
        }
        return std::string(result_.constant);
    }
    return written();
}

std::optional<std::string> Call::written() const {
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        Kind kind = entry_.arguments[i].kind;
        bool isOutput = kind == Kind::kDest || kind == Kind::kEdit || (kind == Kind::kStr && slots_[i].written);
        if (!isOutput) continue;
        if (auto text = outputText(i)) return text;
    }
    return {};
}

std::string Call::resultPlace() const {
    if (!result_.block) return "@null";
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        if (!slots_[i].memory || slots_[i].isNull) continue;
        auto offset = slots_[i].memory->offsetOf(result_.block);
        if (offset) *offset -= static_cast<std::ptrdiff_t>(slots_[i].front);
        if (offset) return entry_.arguments[i].name + (*offset ? "+" + std::to_string(*offset) : "");
    }
    return "elsewhere";
}

std::string Call::compareNumber(std::int64_t wanted) const {
    if (!catalog::isNumber(entry_.result)) return "the call gives no number";
    if (form_.zeroBased && entry_.result == Result::kPos) --wanted;
    auto got = static_cast<std::uint32_t>(result_.number);
    if (static_cast<std::uint32_t>(wanted) == got) return {};
    return differs("", std::to_string(wanted),
                   std::to_string(wanted < 0 ? static_cast<std::int32_t>(got) : result_.number));
}

std::string Call::compare(const Value& wanted, Variables& variables) const {
    switch (wanted.kind) {
        case Wanted::kNumber:
            return compareNumber(wanted.number);
        case Wanted::kVoid:
            return entry_.result == Result::kVoid ? "" : "the call gives something: say what";
        case Wanted::kNull:
            if (catalog::isNumber(entry_.result)) return "the call gives a number";
            return result_.block ? differs("", "@null", resultPlace()) : "";
        case Wanted::kPlace: {
            if (catalog::isNumber(entry_.result)) return "the call gives a number";
            std::string place = resultPlace();
            return place == shown(wanted) ? "" : differs("", shown(wanted), place);
        }
        case Wanted::kVariable: {
            Variable& variable = variables[wanted.text];
            variable.isNumber = catalog::isNumber(entry_.result);
            variable.number = result_.number;
            if (!variable.isNumber) variable.text = text().value_or("");
            bool failed = (entry_.result == Result::kHandle && result_.number == -1) ||
                          (entry_.result == Result::kTable && result_.number == 0);
            return failed ? differs("", "a handle", std::to_string(result_.number)) : "";
        }
        default:
            break;
    }
    if (entry_.result == Result::kChar && wanted.text.size() == 1)
        return compareNumber(static_cast<unsigned char>(wanted.text[0]));
    if (entry_.result == Result::kBlock || entry_.result == Result::kEnd) {
        for (std::size_t i = 0; i < slots_.size(); ++i) {
            if (entry_.arguments[i].kind == Kind::kBlock) return compareBlock(i, wanted.text);
        }
    }
    std::optional<std::string> got = text();
    if (got && *got == wanted.text) return {};
    return differs("", inQuotes(wanted.text), got ? inQuotes(*got) : "no text");
}

// A block's first bytes; those behind them have to be as they were.
std::string Call::compareBlock(std::size_t i, const std::string& wanted) const {
    const Slot& slot = slots_[i];
    if (!slot.memory || slot.isNull) return "there is no block";
    std::string got(slot.memory->data(), slot.memory->size());
    if (got.size() < wanted.size()) return differs("", inQuotes(wanted), inQuotes(got));
    if (got.substr(0, wanted.size()) != wanted)
        return differs("", inQuotes(wanted), inQuotes(got.substr(0, wanted.size())));
    bool same = slot.before.empty() || got.substr(wanted.size()) == slot.before.substr(wanted.size());
    return same ? "" : "behind the first " + std::to_string(wanted.size()) + " bytes the block was changed";
}

std::string Call::compareOutput(const std::string& name, const Value& wanted, Variables& variables) const {
    if (name == "result") return compare(wanted, variables);
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        const Argument& argument = entry_.arguments[i];
        if (name != argument.name) continue;
        if (slots_[i].isNull) return {};
        if (argument.kind == Kind::kOut) {
            std::int32_t got;
            std::memcpy(&got, slots_[i].memory->data(), sizeof got);
            if (wanted.kind == Wanted::kVariable) {
                variables[wanted.text].isNumber = true;
                variables[wanted.text].number = got;
                return {};
            }
            bool same = wanted.kind == Wanted::kNumber && got == static_cast<std::int32_t>(wanted.number);
            return same ? "" : differs(name + ": ", shown(wanted), std::to_string(got));
        }
        if (argument.kind == Kind::kBlock) return compareBlock(i, wanted.text);
        std::string got = outputText(i).value_or("");
        if (wanted.kind == Wanted::kVariable) {
            variables[wanted.text].text = got;
            return {};
        }
        bool same = wanted.kind == Wanted::kText && got == wanted.text;
        return same ? "" : differs(name + ": ", shown(wanted), inQuotes(got));
    }
    return {};
}

bool Call::knows(const std::string& output) const {
    auto isCalled = [&](const Argument& a) { return output == a.name; };
    return output == "result" || std::any_of(entry_.arguments.begin(), entry_.arguments.end(), isCalled);
}

std::vector<std::string> Call::differences(const Row& row, Variables& variables) const {
    std::vector<std::string> all;
    auto add = [&](std::string difference) {
        if (!difference.empty()) all.push_back(std::move(difference));
    };
    add(memoryFault());
    const Value* outcome = &*row.outcome;
    for (const auto& [name, value] : row.outputs) {
        if (name == "in-place" && form_.inPlace) outcome = &value;
    }
    // What works in place may give NULL, and has no other place for its text.
    bool isElsewhere = outcome->kind == Wanted::kPlace && (form_.inPlace || form_.onto >= 0);
    if (!isElsewhere) add(compare(*outcome, variables));
    for (const auto& [name, value] : row.outputs) {
        bool isPlace = name == "result" && value.kind != Wanted::kNumber && (form_.inPlace || form_.onto >= 0);
        if (!isPlace && knows(name)) add(compareOutput(name, value, variables));
    }
    return all;
}

}  // namespace vx::rows
