#include "fuzz/oddities.h"

#include <algorithm>
#include <string_view>

namespace vx::fuzz {

using catalog::Entry;

namespace {

struct Skipped {
    std::string_view name;
    const char* reason;
};
// Nothing so far: what acts on the machine goes through the platform seam, and the fakes of tests/lab stand there.
constexpr std::span<const Skipped> kSkipped{};

constexpr AskedRoom kAskedRooms[] = {
    {"DbfFieldGet", "", "DbfFieldSize", true},         {"strdbfFieldGet", "", "DbfFieldSize", true},
    {"DbfField", "DbfFieldPos", "DbfFieldSize", true}, {"strdbfField", "DbfFieldPos", "DbfFieldSize", true},
    {"DbfRecordGet", "", "DbfRecordSize", false},      {"strdbfRecordGet", "", "DbfRecordSize", false},
    {"DbfRecordPut", "", "DbfRecordSize", false},
};

// The entry whose behaviour an entry shares: the pointer form of a length form.
const Entry& behindOf(const Entry& entry) {
    return entry.pointerForm < 0 ? entry : catalog::allEntries()[static_cast<std::size_t>(entry.pointerForm)];
}

}  // namespace

const char* whySkipped(const Entry& entry) {
    auto found =
        std::find_if(kSkipped.begin(), kSkipped.end(), [&](const Skipped& s) { return s.name == entry.main(); });
    return found == kSkipped.end() ? nullptr : found->reason;
}

const AskedRoom* askedRoomOf(const Entry& entry) {
    auto found = std::find_if(std::begin(kAskedRooms), std::end(kAskedRooms),
                              [&](const AskedRoom& r) { return r.name == entry.main(); });
    return found == std::end(kAskedRooms) ? nullptr : found;
}

bool remembers(const Entry& entry) { return behindOf(entry).remembers; }

bool givesConstantWithoutDest(const Entry& entry) {
    return std::any_of(entry.arguments.begin(), entry.arguments.end(),
                       [](const catalog::Argument& a) { return a.nullGivesConstant; });
}

bool leftAlone(const Plan& plan) {
    auto leaves = [&](const catalog::Argument& a) {
        return (a.untouchedWithout >= 0 && plan.inputs[static_cast<std::size_t>(a.untouchedWithout)].null) ||
               (a.untouchedBelow >= 0 && plan.inputs[static_cast<std::size_t>(a.untouchedBelow)].number < a.limit);
    };
    const auto& arguments = plan.entry->arguments;
    return std::any_of(arguments.begin(), arguments.end(), leaves);
}

}  // namespace vx::fuzz
