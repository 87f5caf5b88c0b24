// What the process was started with: its arguments and its variables.
#pragma once

#include <string>

namespace vx::platform {

// The arguments as a command line; an empty text if there is no memory.
std::string joinedArguments() noexcept;

// A variable's value, by its name or, failing that, by its name in another letter case; null if there is none.
const char* findVariable(const char* name);

// All variables, with an empty text behind the last; null if there is no memory. It is the caller's (delete[]).
char* copyVariables();

}  // namespace vx::platform
