// Programs of the desktop that the library asks to do what Linux has no system call for: boxes, the clipboard, the end
// of the session.
#pragma once

#include <initializer_list>
#include <optional>
#include <string_view>

namespace vx::platform {

// Runs `arguments` (seven at most; the first is the program, looked for in PATH), with `input` as its standard input
// and its output thrown away, and waits for it. Its exit status; nothing if there is no such program, or it was killed.
std::optional<int> runHelper(std::initializer_list<const char*> arguments, std::string_view input = {});

// Whether the process can show anything on a graphical display.
bool hasDisplay();

}  // namespace vx::platform
