// Programs of the desktop that the library asks to do what Linux has no system call for.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace vx::platform {

// Runs `arguments` (the first is the program, looked for in PATH), with `input` as its standard input and its output
// thrown away, and waits for it. Its exit status; nothing if there is no such program, or it was killed.
std::optional<int> runHelper(const std::vector<const char*>& arguments, std::string_view input = {});

// Whether the process can show anything on a graphical display.
bool hasDisplay();

}  // namespace vx::platform
