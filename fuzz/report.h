// Words about a call.
#pragma once

#include <string>

#include "fuzz/call.h"

namespace vx::fuzz {

// How to make the call again, its arguments, and its result if there is one.
std::string described(const Call& call, bool returned);

}  // namespace vx::fuzz
