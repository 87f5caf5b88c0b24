// What must hold after every call, and between calls on equal inputs. Each check gives its complaint, empty if there is
// none.
#pragma once

#include <string>

#include "fuzz/call.h"

namespace vx::fuzz {

// After a single call: nothing written outside, sources unchanged, texts terminated, the result as the table says.
std::string faultOf(const Call& call);

// Two calls of one entry on equal inputs that lie elsewhere.
std::string differenceOf(const Call& one, const Call& other);

// A length form and its pointer form.
std::string lengthFaultOf(const Call& length, const Call& pointer);

// A 1-based entry and its 0-based twin, called with positions shifted.
std::string twinFaultOf(const Call& one, const Call& zero);

// The plan for the other entry, on the same inputs; positions move down by one for a 0-based twin.
Plan planFor(const catalog::Entry& other, const Plan& plan, bool zeroBased);

}  // namespace vx::fuzz
