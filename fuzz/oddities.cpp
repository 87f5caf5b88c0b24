#include "fuzz/oddities.h"

#include <algorithm>
#include <string_view>

namespace vx::fuzz {

using catalog::Entry;

namespace {

constexpr AskedRoom kAskedRooms[] = {
    {"DbfFieldGet", "", "DbfFieldSize", true},         {"strdbfFieldGet", "", "DbfFieldSize", true},
    {"DbfField", "DbfFieldPos", "DbfFieldSize", true}, {"strdbfField", "DbfFieldPos", "DbfFieldSize", true},
    {"DbfRecordGet", "", "DbfRecordSize", false},      {"strdbfRecordGet", "", "DbfRecordSize", false},
    {"DbfRecordPut", "", "DbfRecordSize", false},
};

}  // namespace

const AskedRoom* askedRoomOf(const Entry& entry) {
    auto found = std::find_if(std::begin(kAskedRooms), std::end(kAskedRooms),
                              [&](const AskedRoom& r) { return r.name == entry.main(); });
    return found == std::end(kAskedRooms) ? nullptr : found;
}

bool remembers(const Entry& entry) {
    // A length form does what its pointer form does.
    bool isOwn = entry.pointerForm < 0;
    return (isOwn ? entry : catalog::allEntries()[static_cast<std::size_t>(entry.pointerForm)]).remembers;
}

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
