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

const char* const kNames[] = {"MadeUp"};
const Argument kCopying[] = {
    {"text", Kind::kStr, nullptr, -1, -1, -1, 0, -1, false, false, false, ""},
    {"dest", Kind::kDest, [](const Value* a) { return catalog::textLength(a[0]) + Size{1}; }, 0, -1, -1, 0, -1, false,
     false, false, ""},
};
const Argument kCounting[] = {{"text", Kind::kStr, nullptr, -1, -1, -1, 0, -1, false, false, false, ""},
                              {"at", Kind::kPos, nullptr, -1, -1, -1, 0, -1, false, false, false, ""}};

Entry entryOf(Invoke invoke, Result result, std::span<const Argument> arguments, int base = -1) {
    return {"made", kNames, arguments, result, base, -1, -1, false, invoke, "", "", "", "", ""};
}

char* target(const Value* a) { return a[1].text ? a[1].text : a[0].text; }

// What an entry of `text, dest` has to do; faulty ones do it and then something more.
void copy(Function, const Value* a, Value* r) {
    r->text = target(a);
    if (a[1].text) std::strcpy(a[1].text, a[0].text ? a[0].text : "");
}

// Runs the entry in some rounds; the first complaint, empty if there is none.
std::string complaintOf(const Entry& entry) {
    Caller caller([](const Entry&) { return Function{}; });
    for (std::uint64_t round = 0; round < 300; ++round) {
        if (!caller.tryEntry(entry, {5, round, 0})) return caller.complaint();
    }
    return {};
}

TEST(RandomCaller, LeavesACorrectEntryAlone) { EXPECT_EQ(complaintOf(entryOf(copy, Result::kDest, kCopying)), ""); }

TEST(RandomCaller, FindsFaultsThatDoNotCrash) {
    struct Row {
        Result result;
        std::span<const Argument> arguments;
        const char* complaint;
        Invoke invoke;
    };
    const Row rows[] = {
        {Result::kDest, kCopying, "without a terminator within its room",
         [](Function f, const Value* a, Value* r) {
             copy(f, a, r);
             if (a[0].text && a[1].text) a[1].text[std::strlen(a[0].text)] = 'x';
         }},
        {Result::kDest, kCopying, "as it was, without a terminator",
         [](Function, const Value* a, Value* r) { r->text = target(a); }},
        {Result::kDest, kCopying, "changed its source `text`",
         [](Function f, const Value* a, Value* r) {
             copy(f, a, r);
             if (a[0].text && *a[0].text) *a[0].text = '?';
         }},
        {Result::kDest, kCopying, "does not point to the destination",
         [](Function f, const Value* a, Value* r) {
             copy(f, a, r);
             r->text = a[0].text;
         }},
        {Result::kDest, kCopying, "result is NULL",
         [](Function f, const Value* a, Value* r) {
             copy(f, a, r);
             r->text = nullptr;
         }},
        {Result::kGiven, kCopying, "not the destination as it was given",
         [](Function f, const Value* a, Value* r) { copy(f, a, r); }},
        {Result::kInside, kCopying, "not point to a text within `dest`",
         [](Function f, const Value* a, Value* r) {
             copy(f, a, r);
             if (r->text) r->text += std::strlen(r->text) + 1;
         }},
        {Result::kInside, kCopying, "outside all arguments",
         [](Function f, const Value* a, Value* r) {
             copy(f, a, r);
             r->text = const_cast<char*>("constant");
         }},
        {Result::kDest, kCopying, "lay elsewhere",
         [](Function f, const Value* a, Value* r) {
             char before = a[1].text ? *a[1].text : 'a';
             copy(f, a, r);
             if (a[1].text && *a[1].text) *a[1].text = before;
         }},
        {Result::kBool, kCounting, "result 2 is outside", [](Function, const Value*, Value* r) { r->number = 2; }},
        {Result::kChar, kCounting, "result -1 is outside", [](Function, const Value*, Value* r) { r->number = -1; }},
        {Result::kInt, kCounting, "lay elsewhere",
         [](Function, const Value*, Value* r) {
             static int calls = 0;
             r->number = ++calls;
         }},
    };
    for (const Row& row : rows) {
        std::string complaint = complaintOf(entryOf(row.invoke, row.result, row.arguments));
        EXPECT_NE(complaint.find(row.complaint), std::string::npos) << row.complaint << " is not in: " << complaint;
        EXPECT_NE(complaint.find("MadeUp"), std::string::npos) << complaint;
    }
}

// A write into the canaries is reported, one into an inaccessible page crashes: which one comes first is a draw.
TEST(RandomCallerDeathTest, FindsAccessOutside) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    struct Row {
        const char* what;
        Invoke invoke;
    };
    const Row rows[] = {
        {"writes one byte before",
         [](Function f, const Value* a, Value* r) {
             copy(f, a, r);
             if (a[1].text) a[1].text[-1] = '!';
         }},
        {"writes one byte behind",
         [](Function f, const Value* a, Value* r) {
             copy(f, a, r);
             if (a[1].text) a[1].text[(a[0].text ? std::strlen(a[0].text) : 0) + 1] = '!';
         }},
        {"reads one byte before",
         [](Function f, const Value* a, Value* r) {
             copy(f, a, r);
             if (a[0].text) (void)*static_cast<volatile char*>(a[0].text - 1);
         }},
        {"reads one byte behind",
         [](Function f, const Value* a, Value* r) {
             copy(f, a, r);
             if (a[0].text) (void)*static_cast<volatile char*>(a[0].text + std::strlen(a[0].text) + 1);
         }},
    };
    for (const Row& row : rows) {
        auto run = [&row] {
            watch();
            std::string complaint = complaintOf(entryOf(row.invoke, Result::kDest, kCopying));
            std::fputs(complaint.c_str(), stderr);
            std::exit(complaint.empty() ? 0 : 1);
        };
        EXPECT_EXIT(run(), testing::ExitedWithCode(1), "MadeUp") << row.what;
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

std::int64_t lengthOf(const Value& text) { return catalog::textLength(text).value; }

TEST(RandomCaller, ComparesLengthForms) {
    Entry pointer = entryOf(copy, Result::kDest, kCopying);
    Entry right = entryOf(
        [](Function f, const Value* a, Value* r) {
            copy(f, a, r);
            r->number = lengthOf(a[0]);
        },
        Result::kUint, kCopying);
    Entry wrong = entryOf(
        [](Function f, const Value* a, Value* r) {
            copy(f, a, r);
            r->number = std::min<std::int64_t>(lengthOf(a[0]), 70);
        },
        Result::kUint, kCopying);
    EXPECT_EQ(faultBetween(right, pointer, false, lengthFaultOf), "");
    EXPECT_NE(faultBetween(wrong, pointer, false, lengthFaultOf), "");
}

TEST(RandomCaller, ComparesTwins) {
    // The first of two equal neighbours from a position on, 0-based.
    auto zero = [](Function, const Value* a, Value* r) {
        r->number = -1;
        for (std::int64_t i = std::max<std::int64_t>(a[1].number, 0); i + 1 < lengthOf(a[0]) && r->number < 0; ++i) {
            if (a[0].text[i] == a[0].text[i + 1]) r->number = i;
        }
    };
    auto one = [](Function, const Value* a, Value* r) {
        r->number = 0;
        for (std::int64_t i = std::max<std::int64_t>(a[1].number, 1); i < lengthOf(a[0]) && !r->number; ++i) {
            if (a[0].text[i - 1] == a[0].text[i]) r->number = i;
        }
    };
    Entry zeroBased = entryOf(zero, Result::kPos, kCounting, 0);
    Entry right = entryOf(one, Result::kPos, kCounting, 1);
    Entry unmoved = entryOf(zero, Result::kPos, kCounting, 1);
    EXPECT_EQ(faultBetween(right, zeroBased, true, twinFaultOf), "");
    EXPECT_NE(faultBetween(unmoved, zeroBased, true, twinFaultOf), "");
}

TEST(RandomCaller, ChecksTheEndOfABlock) {
    static const Argument arguments[] = {
        {"block", Kind::kBlock, [](const Value*) { return Size{33}; }, -1, -1, -1, 0, -1, false, false, false, ""},
    };
    auto end = [](Function, const Value* a, Value* r) { r->block = a[0].text ? a[0].text + 33 : nullptr; };
    auto beyond = [](Function, const Value* a, Value* r) { r->block = a[0].text ? a[0].text + 34 : nullptr; };
    auto elsewhere = [](Function, const Value*, Value* r) { r->constant = "x"; };
    EXPECT_EQ(complaintOf(entryOf(end, Result::kEnd, arguments)), "");
    EXPECT_NE(complaintOf(entryOf(beyond, Result::kEnd, arguments)), "");
    EXPECT_NE(complaintOf(entryOf(elsewhere, Result::kEnd, arguments)), "");
}

TEST(RandomCaller, GivesMemoryInFrontOfABlock) {
    static const Argument arguments[] = {
        {"block", Kind::kBlock, [](const Value* a) { return std::max(Size{a[1].number} + Size{1}, Size{0}); }, -1, -1,
         -1, 0, 1, false, false, false, ""},
        {"offset", Kind::kInt, nullptr, -1, -1, -1, 0, -1, false, false, false, ""},
    };
    static int inFront;
    auto store = [](Function, const Value* a, Value* r) {
        r->block = a[0].block;
        if (a[0].text) a[0].text[a[1].number] = 1;
        inFront += a[0].text && a[1].number < 0;
    };
    EXPECT_EQ(complaintOf(entryOf(store, Result::kBlock, arguments)), "");
    EXPECT_GT(inFront, 30);
}

// A draw that depends on the order in which a compiler evaluates things gives another sum on another system. Changed
// alphabets change it, too: then it must be one new number for all systems.
TEST(RandomCaller, DrawsTheSameEverywhere) {
    static const Argument arguments[] = {
        {"text", Kind::kStr, nullptr, -1, -1, -1, 0, -1, false, false, false, ""},
        {"set", Kind::kStr, nullptr, -1, -1, -1, 0, -1, false, false, false, ""},
        {"c", Kind::kChar, nullptr, -1, -1, -1, 0, -1, false, false, false, ""},
        {"count", Kind::kInt, nullptr, -1, -1, -1, 0, -1, false, false, false, ""},
        {"mask", Kind::kUint, nullptr, -1, -1, -1, 0, -1, false, false, false, ""},
        {"handle", Kind::kHandle, nullptr, -1, -1, -1, 0, -1, false, false, false, ""},
        {"table", Kind::kTable, nullptr, -1, -1, -1, 0, -1, false, false, false, ""},
        {"found", Kind::kOut, nullptr, -1, -1, -1, 0, -1, false, false, false, ""},
        {"block", Kind::kBlock, [](const Value*) { return Size{33}; }, -1, -1, -1, 0, -1, false, false, false, ""},
    };
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
