// Standard input, line by line.
#pragma once

#include <functional>
#include <string_view>

namespace vx::cli {

// Gives each line of the descriptor, without its line feed, to `line`; a last one that is empty and has no line feed is
// none. `idle` is called before each wait for more input: then nothing of what was asked for is left undone.
void forEachLine(int descriptor, const std::function<void(std::string_view)>& line, const std::function<void()>& idle);

}  // namespace vx::cli
