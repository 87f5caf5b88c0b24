#include "fuzz/checks.h"

#include <cstring>
#include <limits>

namespace vx::fuzz {

using catalog::Kind;
using catalog::Result;

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

std::size_t firstOf(const Call& call, Kind kind) {
    for (std::size_t i = 0; i < call.arguments().size(); ++i) {
        if (call.arguments()[i].kind == kind) return i;
    }
    return kNone;
}

std::string memoryFaultOf(const Call& call) {
    for (std::size_t i = 0; i < call.arguments().size(); ++i) {
        if (!call.need(i).bytes) continue;
        const catalog::Argument& argument = call.arguments()[i];
        std::string name = "`" + std::string(argument.name) + "`";
        if (auto offset = call.buffer(i).damage())
            return "wrote outside " + name + ", at offset " + std::to_string(*offset);
        if (!call.need(i).written) {
            if (!call.untouched(i)) return "changed its source " + name;
            continue;
        }
        if (!call.need(i).text) continue;
        if (argument.kind == Kind::kDest && leftAlone(call.plan())) {
            if (!call.untouched(i)) return "wrote to " + name + ", which this call must leave alone";
        } else if (!call.terminated(i)) {
            return call.untouched(i) ? "left " + name + " as it was, without a terminator"
                                     : "left " + name + " without a terminator within its room";
        }
    }
    return {};
}

std::string numberFaultOf(const Call& call) {
    std::int64_t number = call.result().number;
    Result kind = call.entry().result;
    bool isWrong = (kind == Result::kBool && (number < 0 || number > 1)) ||
                   (kind == Result::kChar && (number < 0 || number > 255)) ||
                   (kind == Result::kHandle && number < -1) ||
                   (kind == Result::kPos && number < (call.entry().base == 0 ? -1 : 0));
    return isWrong ? "the result " + std::to_string(number) + " is outside what its kind allows" : "";
}

// What a text result points to when it is none of the arguments: constant, terminated somewhere near.
std::string constantFaultOf(const Call& call) {
    constexpr std::size_t kLongest = 4096;
    if (call.find(call.result().block)) return "the result points into an argument's memory, at the wrong place";
    return strnlen(call.resultText(), kLongest) < kLongest ? "" : "the result points to an unterminated text";
}

// The text that an entry works on when it has no destination.
std::size_t workedOnBy(const Call& call) {
    std::size_t dest = firstOf(call, Kind::kDest);
    if (dest != kNone && call.arguments()[dest].inPlace >= 0)
        return static_cast<std::size_t>(call.arguments()[dest].inPlace);
    std::size_t edited = firstOf(call, Kind::kEdit);
    if (edited != kNone) return edited;
    std::size_t text = firstOf(call, Kind::kStr);
    return text != kNone ? text : firstOf(call, Kind::kBytes);
}

std::string destFaultOf(const Call& call) {
    std::size_t dest = firstOf(call, Kind::kDest);
    std::size_t text = workedOnBy(call);
    bool inPlace = dest == kNone || call.arguments()[dest].inPlace >= 0;
    const char* expected = dest != kNone ? call.pointer(dest) : nullptr;
    if (!expected && inPlace && text != kNone) expected = call.pointer(text);
    const char* result = call.resultText();
    if (!expected && !inPlace && givesConstantWithoutDest(call.entry()))
        return result ? constantFaultOf(call) : "the result is NULL";
    if (result == expected) return {};
    if (result && text != kNone && !call.pointer(text)) return constantFaultOf(call);
    if (!expected && !inPlace) return "the destination is NULL and the result is not";
    return result ? "the result does not point to the destination" : "the result is NULL";
}

std::string insideFaultOf(const Call& call) {
    if (!call.result().block) return {};
    auto place = call.find(call.result().block);
    if (!place) {
        std::size_t text = workedOnBy(call);
        return text != kNone && !call.pointer(text) ? constantFaultOf(call) : "the result points outside all arguments";
    }
    std::int64_t room = call.need(place->argument).bytes;
    bool within = place->offset >= 0 && place->offset < room &&
                  std::memchr(call.resultText(), 0, static_cast<std::size_t>(room - place->offset)) != nullptr;
    return within ? ""
                  : "the result does not point to a text within `" +
                        std::string(call.arguments()[place->argument].name) + "`";
}

std::string resultFaultOf(const Call& call) {
    switch (call.entry().result) {
        case Result::kDest:
            return destFaultOf(call);
        case Result::kGiven: {
            std::size_t dest = firstOf(call, Kind::kDest);
            bool same = dest == kNone || call.resultText() == call.pointer(dest);
            return same ? "" : "the result is not the destination as it was given";
        }
        case Result::kInside:
            return insideFaultOf(call);
        case Result::kConst:
            return call.resultText() ? constantFaultOf(call) : "the result is NULL";
        case Result::kBlock: {
            std::size_t block = firstOf(call, Kind::kBlock);
            bool same = !call.result().block || block == kNone || call.resultText() == call.pointer(block);
            return same ? "" : "the result is not the block";
        }
        case Result::kEnd: {
            if (!call.result().block) return {};
            auto place = call.find(call.result().block);
            bool within = place && place->argument == firstOf(call, Kind::kBlock) && place->offset >= 0 &&
                          place->offset <= call.need(place->argument).bytes;
            return within ? "" : "the result points neither into the block nor to its end";
        }
        case Result::kVoid:
            return {};
        default:
            return numberFaultOf(call);
    }
}

std::string writtenDifference(const Call& call, const Seen& one, const Seen& other) {
    for (std::size_t i = 0; i < one.after.size(); ++i) {
        if (one.after[i] != other.after[i])
            return "it left other bytes in `" + std::string(call.arguments()[i].name) + "`";
    }
    return {};
}

}  // namespace

std::string faultOf(const Call& call) {
    std::string fault = memoryFaultOf(call);
    return fault.empty() ? resultFaultOf(call) : fault;
}

std::string differenceOf(const Call& one, const Call& other) {
    Seen a = one.seen();
    Seen b = other.seen();
    std::string difference = writtenDifference(one, a, b);
    if (a.number != b.number) difference = "the result was " + std::to_string(a.number);
    if (a.place != b.place) difference = "the result pointed to " + a.place;
    if (a.text != b.text) difference = "the result was another text";
    if (difference.empty()) return {};
    return difference +
           " when the same arguments lay elsewhere (if it keeps something from call to call, say so in "
           "its table)";
}

std::string lengthFaultOf(const Call& length, const Call& pointer) {
    Seen text = pointer.seen();
    const std::string* measured = &text.text;
    std::size_t dest = firstOf(pointer, Kind::kDest);
    // A pointer form that gives NULL for in-place work is measured by the text that it leaves behind.
    if (text.place == "NULL" && dest != kNone && !pointer.pointer(dest) && pointer.arguments()[dest].inPlace >= 0)
        measured = &text.after[static_cast<std::size_t>(pointer.arguments()[dest].inPlace)];
    if (length.result().number != static_cast<std::int64_t>(measured->size()))
        return "the pointer form gave a text of " + std::to_string(measured->size()) + " characters";
    std::string difference = writtenDifference(length, length.seen(), text);
    return difference.empty() ? difference : difference + " than the pointer form";
}

std::string twinFaultOf(const Call& one, const Call& zero) {
    Seen a = one.seen();
    Seen b = zero.seen();
    std::int64_t expected = one.entry().result == Result::kPos ? b.number + 1 : b.number;
    if (a.number != expected) return "the 0-based twin gave " + std::to_string(b.number);
    if (a.place != b.place) return "the 0-based twin's result points to " + b.place;
    std::string difference = a.text == b.text ? writtenDifference(one, a, b) : "the result is another text";
    return difference.empty() ? difference : difference + " than the 0-based twin's";
}

Plan planFor(const catalog::Entry& other, const Plan& plan, bool zeroBased) {
    Plan result = plan;
    result.entry = &other;
    for (std::size_t i = 0; zeroBased && i < result.inputs.size(); ++i) {
        std::int64_t& number = result.inputs[i].number;
        bool moves = other.arguments[i].kind == Kind::kPos && number != std::numeric_limits<std::int32_t>::min();
        if (moves) --number;
    }
    return result;
}

}  // namespace vx::fuzz
