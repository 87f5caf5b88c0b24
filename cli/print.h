// What a call gave back, for people, for scripts and for programs. Each form ends with a line end.
#pragma once

#include <string>

#include "cli/call.h"

namespace vx::cli {

enum class Style { kHuman, kRaw, kJson };

void append(std::string& to, Style style, const std::string& name, const Outcome& outcome);

}  // namespace vx::cli
