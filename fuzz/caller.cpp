#include "fuzz/caller.h"

#include <algorithm>
#include <cstdio>

#include "fuzz/checks.h"
#include "fuzz/watch.h"

namespace vx::fuzz {
namespace {

constexpr const char* kItself = "itself";
constexpr const char* kElsewhere = "itself, with its arguments elsewhere";

}  // namespace

bool Caller::tryEntry(const catalog::Entry& entry, const Turn& turn) {
    plan_ = draw(entry, turn, recall_);
    Random random = turn.randomFor(std::string("layout of ") + entry.main());
    Layout layout = drawLayout(random);
    if (!askRoom(layout) || !make(first_, plan_, layout, kItself)) return false;
    Seen seen = first_.seen();
    recall_.keep(plan_, seen.number, seen.after);
    if (remembers(entry)) return true;
    // What the host holds is as long as the first call shows: the other calls get no more room than that.
    std::size_t longest = 0;
    for (const std::string& text : seen.after) longest = std::max(longest, text.size());
    std::int64_t wide = catalog::hostRoom().value;
    catalog::setHostRoom(static_cast<std::int64_t>(longest) + 1);
    bool right = compare(entry, random, layout);
    catalog::setHostRoom(wide);
    return right;
}

bool Caller::askRoom(const Layout& layout) {
    const AskedRoom* asked = askedRoomOf(*plan_.entry);
    if (!asked) return true;
    otherPlan_ = plan_;
    for (std::string_view name : {asked->first, asked->last}) {
        if (name.empty()) continue;
        otherPlan_.entry = catalog::find(name);
        otherPlan_.inputs.resize(otherPlan_.entry->arguments.size());
        if (!make(second_, otherPlan_, layout, "what tells the room")) return false;
        if (name == asked->first) otherPlan_.inputs[1].number = second_.result().number;
    }
    plan_.room = second_.result().number + asked->terminator;
    plan_.unterminated = !asked->terminator;
    return true;
}

bool Caller::compare(const catalog::Entry& entry, Random& random, const Layout& layout) {
    Layout opposite = layout.opposite(random);
    if (!make(second_, plan_, opposite, kElsewhere)) return false;
    std::string fault = differenceOf(first_, second_);
    if (!fault.empty()) return complain(fault, second_, kElsewhere);
    return compareWith(entry.pointerForm, false, "the pointer form of a length form", lengthFaultOf, opposite) &&
           compareWith(entry.zeroTwin, true, "the 0-based twin of an entry", twinFaultOf, opposite);
}

bool Caller::compareWith(int other, bool zeroBased, const char* purpose,
                         std::string (*faultBetween)(const Call&, const Call&), const Layout& layout) {
    if (other < 0) return true;
    otherPlan_ = planFor(catalog::allEntries()[static_cast<std::size_t>(other)], plan_, zeroBased);
    if (!make(second_, otherPlan_, layout, purpose)) return false;
    std::string fault = faultBetween(first_, second_);
    return fault.empty() || complain(fault, first_, kItself);
}

bool Caller::make(Call& call, const Plan& plan, const Layout& layout, const char* purpose) {
    call.prepare(plan, layout);
    if (printing) std::fputs(described(call, false).c_str(), stderr);
    beginCall(call, purpose);
    call.make(find_(*plan.entry));
    endCall();
    ++callsMade_;
    std::string fault = faultOf(call);
    return fault.empty() || complain(fault, call, purpose);
}

bool Caller::complain(const std::string& fault, const Call& call, const char* purpose) {
    complaint_ = "random caller: " + fault + "\n  in a call made as " + purpose + "\n" + described(call, true);
    return false;
}

}  // namespace vx::fuzz
