#include "cli/call.h"

#include <algorithm>
#include <cstring>

#include "cli/errors.h"

namespace vx::cli {
namespace {

using catalog::Argument;
using catalog::Kind;
using catalog::Result;

constexpr std::int64_t kMostRoom = std::int64_t{1} << 30;
constexpr std::size_t kSpare = 16;  // behind each room, so that every text in it has an end

bool hasMemory(Kind kind) { return isPointer(kind) && kind != Kind::kOut; }

bool hasInPlaceForm(const catalog::Entry& entry) {
    auto isInPlace = [](const Argument& a) { return a.inPlace >= 0 || a.kind == Kind::kEdit; };
    return std::any_of(entry.arguments.begin(), entry.arguments.end(), isInPlace);
}

std::string_view textAt(const char* start, const char* end) {
    return {start, strnlen(start, static_cast<std::size_t>(end - start))};
}

}  // namespace

Call::Call(const catalog::Entry& entry, const std::string& name, catalog::Function function,
           const std::vector<std::string>& typed, const CallOptions& options)
    : entry_(entry), function_(function), values_(entry.arguments.size()) {
    auto isGiven = [](const Argument& a) { return !isSupplied(a.kind); };
    if (std::count_if(entry.arguments.begin(), entry.arguments.end(), isGiven) !=
        static_cast<std::ptrdiff_t>(typed.size())) {
        throw UsageError(wrongCount(entry, name, typed.size()));
    }
    if (options.inPlace && !hasInPlaceForm(entry)) throw UsageError(name + " does not work in place");
    auto next = typed.begin();
    auto contents = options.contents;
    for (const Argument& argument : entry.arguments) {
        if (!isSupplied(argument.kind)) {
            addSlot(argument, &*next++, options);
        } else if (auto content = contents.extract(argument.name)) {
            addSlot(argument, &content.mapped(), options);
        } else {
            addSlot(argument, nullptr, options);
        }
    }
    if (!contents.empty()) {
        throw UsageError(name + " has no destination or memory block called " + contents.begin()->first);
    }
    // A text whose destination is NULL is a destination itself.
    for (const Slot& slot : slots_) {
        if (slot.isNull && slot.argument->inPlace >= 0) slots_[slot.argument->inPlace].isOutput = true;
    }
}

void Call::addSlot(const Argument& argument, const std::string* given, const CallOptions& options) {
    Slot slot{.argument = &argument, .typed = Typed(given ? *given : "", options.escapes, options.lines)};
    slot.isNull = (isPointer(argument.kind) && slot.typed.isNull()) || (options.inPlace && argument.inPlace >= 0);
    slot.isOutput = isSupplied(argument.kind) || argument.kind == Kind::kEdit;
    slot.isNumber = given && !slot.isNull && !hasMemory(argument.kind);
    if (!slot.typed.takesLine()) read(slot, {});
    slots_.push_back(std::move(slot));
}

bool Call::takesLine() const {
    return std::any_of(slots_.begin(), slots_.end(), [](const Slot& slot) { return slot.typed.takesLine(); });
}

void Call::read(Slot& slot, std::string_view line) {
    slot.typed.write(line, slot.text);
    if (slot.isNumber) slot.number = numberOf(*slot.argument, slot.text);
}

// The room that the table gives for the argument, by the values of all arguments in this run, with what is in front.
std::int64_t Call::room(const Slot& slot) const {
    std::int64_t room = slot.argument->room ? slot.argument->room(values_.data()).value : 0;
    room = std::max<std::int64_t>(room, 0) + static_cast<std::int64_t>(slot.front);
    if (room > kMostRoom) {
        throw UsageError("these arguments ask for " + std::to_string(room) + " bytes of memory for " +
                         slot.argument->name + "; vexlor supplies 1 GiB at most");
    }
    return room;
}

void Call::sizeMemory() {
    std::vector<std::size_t> sizes(slots_.size());
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        const Argument& argument = *slots_[i].argument;
        if (!hasMemory(argument.kind)) continue;
        std::int64_t offset = argument.before < 0 ? 0 : slots_[argument.before].number;
        slots_[i].front = static_cast<std::size_t>(std::max<std::int64_t>(-offset, 0));
        auto needed = static_cast<std::size_t>(room(slots_[i]));
        sizes[i] = std::max({sizes[i], needed, slots_[i].front + slots_[i].text.size()});
        if (argument.inPlace >= 0) sizes[argument.inPlace] = std::max(sizes[argument.inPlace], needed);
    }
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        if (!hasMemory(slots_[i].argument->kind)) continue;
        slots_[i].memory = std::string(slots_[i].front, '\0') + slots_[i].text;
        slots_[i].memory.resize(sizes[i] + kSpare);
    }
}

// Before sizeMemory, what rooms are computed from; after it, what the function gets.
void Call::pass(std::size_t i) {
    Slot& slot = slots_[i];
    catalog::Value& value = values_[i];
    char* memory = slot.memory.empty() ? slot.text.data() : slot.memory.data() + slot.front;
    switch (slot.argument->kind) {
        case Kind::kStr:
        case Kind::kEdit:
        case Kind::kDest:
            value.text = slot.isNull ? nullptr : memory;
            break;
        case Kind::kBytes:
        case Kind::kBlock:
            value.block = slot.isNull ? nullptr : memory;
            break;
        case Kind::kOut:
            slot.out = static_cast<std::int32_t>(slot.number);
            value.numbers = slot.isNull ? nullptr : &slot.out;
            break;
        default:
            value.number = slot.number;
    }
}

const Outcome& Call::run(std::string_view line) {
    for (Slot& slot : slots_) {
        if (slot.typed.takesLine()) read(slot, line);
        slot.memory.clear();
    }
    for (std::size_t i = 0; i < slots_.size(); ++i) pass(i);
    sizeMemory();
    for (std::size_t i = 0; i < slots_.size(); ++i) pass(i);
    catalog::Value result{};
    entry_.invoke(function_, values_.data(), &result);
    collect(result);
    return outcome_;
}

std::string Call::remarks() const {
    std::string text;
    for (const Slot& slot : slots_) {
        std::size_t room = slot.memory.size() - std::min(slot.memory.size(), kSpare);
        if (slot.argument->kind != Kind::kBytes || slot.isNull || room <= slot.front + slot.text.size()) continue;
        text += std::string(slot.argument->name) + " has " + std::to_string(slot.text.size()) +
                " bytes, the call may read " + std::to_string(room) + ": the rest is zero\n";
    }
    return text;
}

Item Call::output(const Slot& slot) const {
    Item item{.label = slot.argument->name};
    const std::string& memory = slot.memory;
    if (slot.argument->kind == Kind::kOut) {
        item.form = Form::kNumber;
        item.number = slot.out;
    } else if (slot.argument->kind == Kind::kBlock) {
        item.form = Form::kBlock;
        item.bytes = std::string_view(memory).substr(0, memory.size() - kSpare);
    } else {
        item.form = Form::kText;
        item.bytes = textAt(memory.data(), memory.data() + memory.size());
    }
    return item;
}

Item Call::resultItem(const catalog::Value& result) {
    Item item{.label = "result"};
    if (entry_.result == Result::kVoid) return item;
    if (catalog::isNumber(entry_.result)) {
        item.form = entry_.result == Result::kChar ? Form::kCharacter : Form::kNumber;
        item.number = result.number;
        return item;
    }
    bool isBlock = !catalog::isText(entry_.result);
    const char* start = isBlock ? static_cast<const char*>(result.block) : result.constant;
    item.form = Form::kNull;
    if (!start) return item;
    for (const Slot& slot : slots_) {
        const char* memory = slot.memory.data();
        const char* end = memory + slot.memory.size();
        if (slot.memory.empty() || slot.isNull || start < memory || start >= end) continue;
        outcome_.within = slot.argument->name;
        outcome_.offset = start - memory - static_cast<std::ptrdiff_t>(slot.front);
        outcome_.resultIsOutput = slot.isOutput && outcome_.offset == 0;
        item.form = isBlock ? Form::kBlock : Form::kText;
        item.bytes = isBlock ? std::string_view(start, end - start - std::min<std::size_t>(end - start, kSpare))
                             : textAt(start, end);
        return item;
    }
    // Of a block that is not among the arguments nobody knows the size.
    item.form = isBlock ? Form::kNothing : Form::kText;
    if (!isBlock) item.bytes = start;
    return item;
}

void Call::collect(const catalog::Value& result) {
    outcome_ = {};
    outcome_.result = resultItem(result);
    for (const Slot& slot : slots_) {
        if (slot.isOutput && !slot.isNull) outcome_.outputs.push_back(output(slot));
    }
    outcome_.main = mainItem();
}

// The text that the function made: in a destination, in place, or as its result; a number where it makes none. Length
// forms are called for their number, and a memory block comes last.
Item Call::mainItem() const {
    const Outcome& o = outcome_;
    if (entry_.pointerForm >= 0) return o.result;
    if (o.resultIsOutput) {
        for (const Item& item : o.outputs) {
            if (item.label == o.within) return item;
        }
    }
    for (const Item& item : o.outputs) {
        if (item.form == Form::kText) return item;
    }
    bool hasResult = catalog::isText(entry_.result) || catalog::isNumber(entry_.result);
    return hasResult || o.outputs.empty() ? o.result : o.outputs.front();
}

}  // namespace vx::cli
