// What a call gave back, for people, for scripts and for programs. Each form ends with a line end.
#pragma once

#include <string>
#include <string_view>

#include "cli/call.h"
#include "cli/json.h"

namespace vx::cli {

enum class Style { kHuman, kRaw, kJson };

void append(std::string& to, Style style, const std::string& name, const Outcome& outcome);

// A text that is valid UTF-8 as a string; other bytes as an object with "text" (Latin-1) and "hex".
Json textAsJson(std::string_view bytes);

}  // namespace vx::cli
