// The random caller's own test: entries with one fault each, which it must find; and one without, which it must not
// complain of.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "fuzz/caller.h"
#include "fuzz/checks.h"
#include "fuzz/watch.h"

namespace vx::fuzz {
namespace {

using catalog::Argument;
using catalog::Entry;
using catalog::Function;
using catalog::Kind;
using catalog::Result;
using catalog::Size;
using catalog::Value;

using Invoke = void (*)(Function, const Value*, Value*);
using Room = Size (*)(const Value*);

Argument argument(const char* name, Kind kind, Room room = nullptr, int inPlace = -1, int before = -1) {
    return {name, kind, room, inPlace, -1, -1, 0, before, false, false, false, ""};
}

Size roomOfCopy(const Value* a) { return catalog::textLength(a[0]) + Size{1}; }
Size roomOf33(const Value*) { return Size{33}; }

const char* const kNames[] = {"MadeUp"};
const Argument kCopying[] = {argument("text", Kind::kStr), argument("dest", Kind::kDest, roomOfCopy, 0)};
const Argument kCounting[] = {argument("text", Kind::kStr), argument("at", Kind::kPos)};
const Argument kFilling[] = {argument("block", Kind::kBlock, roomOf33)};

Entry entryOf(Invoke invoke, Result result, std::span<const Argument> arguments, int base = -1) {
    return {"made", kNames, arguments, result, base, -1, -1, false, invoke, "", "", "", "", ""};
}

std::int64_t lengthOf(const Value& text) { return catalog::textLength(text).value; }

// Runs the entry in some rounds; the first complaint, empty if there is none.
std::string complaintOf(const Entry& entry) {
    Caller caller([](const Entry&) { return Function{}; });
    for (std::uint64_t round = 0; round < 300; ++round) {
        if (!caller.tryEntry(entry, {5, round, 0})) return caller.complaint();
    }
    return {};
}

// What an entry does that copies `text` into `dest`, and what it does wrong then.
using Spoil = void (*)(const Value* a, Value* r);
Spoil spoil;

void copyAndSpoil(Function, const Value* a, Value* r) {
    r->text = a[1].text ? a[1].text : a[0].text;
    if (a[1].text) std::strcpy(a[1].text, a[0].text ? a[0].text : "");
    spoil(a, r);
}

std::string complaintOf(Spoil wrong, Result result, std::span<const Argument> arguments = kCopying) {
    spoil = wrong;
    Invoke only = [](Function, const Value* a, Value* r) { spoil(a, r); };
    return complaintOf(entryOf(arguments.data() == kCopying ? copyAndSpoil : only, result, arguments));
}

void nothing(const Value*, Value*) {}

TEST(RandomCaller, FindsFaultsThatDoNotCrash) {
    static int calls = 0;
    struct Row {
        const char* complaint;
        Result result;
        Spoil spoil;
        std::span<const Argument> arguments = kCopying;
    };
    const Row rows[] = {
        {"without a terminator within its room", Result::kDest,
         [](const Value* a, Value*) {
             if (a[0].text && a[1].text) a[1].text[lengthOf(a[0])] = 'x';
         }},
        {"changed its source `text`", Result::kDest,
         [](const Value* a, Value*) {
             if (a[0].text && *a[0].text) *a[0].text = '?';
         }},
        {"does not point to the destination", Result::kDest, [](const Value* a, Value* r) { r->text = a[0].text; }},
        {"result is NULL", Result::kDest, [](const Value*, Value* r) { r->text = nullptr; }},
        {"not the destination as it was given", Result::kGiven, nothing},
        {"not point to a text within `dest`", Result::kInside,
         [](const Value*, Value* r) {
             if (r->text) r->text += std::strlen(r->text) + 1;
         }},
        {"outside all arguments", Result::kInside, [](const Value*, Value* r) { r->constant = "constant"; }},
        {"lay elsewhere", Result::kDest,
         [](const Value* a, Value*) {
             if (a[1].text && *a[1].text) *a[1].text = static_cast<char>('A' + ++calls % 26);
         }},
        {"result 2 is outside", Result::kBool, [](const Value*, Value* r) { r->number = 2; }, kCounting},
        {"result -1 is outside", Result::kChar, [](const Value*, Value* r) { r->number = -1; }, kCounting},
        {"lay elsewhere", Result::kInt, [](const Value*, Value* r) { r->number = ++calls; }, kCounting},
        {"nor to its end", Result::kEnd,
         [](const Value* a, Value* r) { r->block = a[0].text ? a[0].text + 34 : nullptr; }, kFilling},
        {"nor to its end", Result::kEnd, [](const Value*, Value* r) { r->constant = "x"; }, kFilling},
    };
    for (const Row& row : rows) {
        std::string complaint = complaintOf(row.spoil, row.result, row.arguments);
        EXPECT_NE(complaint.find(row.complaint), std::string::npos) << row.complaint << " is not in: " << complaint;
        EXPECT_NE(complaint.find("MadeUp"), std::string::npos) << complaint;
    }
    EXPECT_EQ(complaintOf(nothing, Result::kDest), "");
    Spoil end = [](const Value* a, Value* r) { r->block = a[0].text ? a[0].text + 33 : nullptr; };
    EXPECT_EQ(complaintOf(end, Result::kEnd, kFilling), "");
}

// A write into the canaries is reported, one into an inaccessible page crashes: which one comes first is a draw.
TEST(RandomCallerDeathTest, FindsAccessOutside) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    static int offset;
    static bool writes;
    for (offset = -1; offset <= 1; offset += 2) {
        for (int i = 0; i < 2; ++i) {
            auto run = [i] {
                watch();
                writes = i == 1;
                std::string complaint = complaintOf(
                    [](const Value* a, Value*) {
                        volatile char* text = writes ? a[1].text : a[0].text;
                        if (text) text += offset < 0 ? -1 : lengthOf(a[0]) + 1;
                        if (text && writes) *text = '!';
                        if (text) (void)*text;
                    },
                    Result::kDest);
                std::fputs(complaint.c_str(), stderr);
                std::exit(complaint.empty() ? 0 : 1);
            };
            EXPECT_EXIT(run(), testing::ExitedWithCode(1), "MadeUp") << (i ? "writes" : "reads") << " at " << offset;
        }
    }
}

// Both forms on the same inputs, the first with a fault of one.
std::string faultBetween(const Entry& one, const Entry& other, bool zeroBased,
                         std::string (*faultOf)(const Call&, const Call&)) {
    Recall none;
    for (std::uint64_t round = 0; round < 300; ++round) {
        Plan plan = draw(one, {5, round, 0}, none);
        Plan otherPlan = planFor(other, plan, zeroBased);
        Call first, second;
        first.prepare(plan, {});
        first.make({});
        second.prepare(otherPlan, {});
        second.make({});
        std::string fault = faultOf(first, second);
        if (!fault.empty()) return fault;
    }
    return {};
}

TEST(RandomCaller, ComparesLengthForms) {
    spoil = nothing;
    Invoke right = [](Function f, const Value* a, Value* r) { copyAndSpoil(f, a, r), r->number = lengthOf(a[0]); };
    Invoke wrong = [](Function f, const Value* a, Value* r) {
        copyAndSpoil(f, a, r);
        r->number = std::min<std::int64_t>(lengthOf(a[0]), 70);
    };
    Entry pointer = entryOf(copyAndSpoil, Result::kDest, kCopying);
    EXPECT_EQ(faultBetween(entryOf(right, Result::kUint, kCopying), pointer, false, lengthFaultOf), "");
    EXPECT_NE(faultBetween(entryOf(wrong, Result::kUint, kCopying), pointer, false, lengthFaultOf), "");
}

TEST(RandomCaller, ComparesTwins) {
    // The first of two equal neighbours from a position on, 0-based.
    Invoke zero = [](Function, const Value* a, Value* r) {
        r->number = -1;
        for (std::int64_t i = std::max<std::int64_t>(a[1].number, 0); i + 1 < lengthOf(a[0]) && r->number < 0; ++i) {
            if (a[0].text[i] == a[0].text[i + 1]) r->number = i;
        }
    };
    Invoke one = [](Function, const Value* a, Value* r) {
        r->number = 0;
        for (std::int64_t i = std::max<std::int64_t>(a[1].number, 1); i < lengthOf(a[0]) && !r->number; ++i) {
            if (a[0].text[i - 1] == a[0].text[i]) r->number = i;
        }
    };
    Entry zeroBased = entryOf(zero, Result::kPos, kCounting, 0);
    EXPECT_EQ(faultBetween(entryOf(one, Result::kPos, kCounting, 1), zeroBased, true, twinFaultOf), "");
    EXPECT_NE(faultBetween(entryOf(zero, Result::kPos, kCounting, 1), zeroBased, true, twinFaultOf), "");
}

TEST(RandomCaller, GivesMemoryInFrontOfABlock) {
    Room room = [](const Value* a) { return std::max(Size{a[1].number} + Size{1}, Size{0}); };
    const Argument arguments[] = {argument("block", Kind::kBlock, room, -1, 1), argument("offset", Kind::kInt)};
    static int inFront;
    Spoil store = [](const Value* a, Value* r) {
        r->block = a[0].block;
        if (a[0].text) a[0].text[a[1].number] = 1;
        inFront += a[0].text && a[1].number < 0;
    };
    EXPECT_EQ(complaintOf(store, Result::kBlock, arguments), "");
    EXPECT_GT(inFront, 30);
}

// A draw that depends on the order in which a compiler evaluates things gives another sum on another system. Changed
// alphabets change it, too: then it must be one new number for all systems.
TEST(RandomCaller, DrawsTheSameEverywhere) {
    const Argument arguments[] = {
        argument("text", Kind::kStr),    argument("set", Kind::kStr),   argument("c", Kind::kChar),
        argument("count", Kind::kInt),   argument("mask", Kind::kUint), argument("handle", Kind::kHandle),
        argument("table", Kind::kTable), argument("found", Kind::kOut), argument("block", Kind::kBlock, roomOf33)};
    Entry entry = entryOf(nullptr, Result::kInt, arguments);
    std::uint64_t sum = 0;
    auto add = [&sum](std::uint64_t value) { sum = (sum ^ value) * 0x100000001B3u; };
    for (std::uint64_t round = 0; round < 2000; ++round) {
        for (const Input& input : draw(entry, {99, round, 0}, {}).inputs) {
            add(input.null);
            add(static_cast<std::uint64_t>(input.number));
            for (char c : input.bytes) add(static_cast<std::uint8_t>(c));
        }
    }
    EXPECT_EQ(sum, 4134171300250906603u);
}

}  // namespace
}  // namespace vx::fuzz
