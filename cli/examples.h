// The examples of functions, shown and run.
#pragma once

#include <string>

#include "cli/library.h"

namespace vx::cli {

struct Tried {
    std::string text;  // each example, and whether it gives what it says
    bool allAsSaid = true;
};

// Runs an entry's examples with the library. Throws UsageError if it has none.
Tried tryExamples(const catalog::Entry& entry, const Library& library);

}  // namespace vx::cli
