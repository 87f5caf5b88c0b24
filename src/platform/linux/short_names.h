// Short names: 8 letters, a dot, 3 letters. A longer name has one that is made from it alone, with letters and digits
// of a hash of the whole name where Windows would count: REPORTS.TEXT is RELDX0~1.TEX, whatever else is in the
// directory.
#pragma once

#include <cstddef>
#include <string_view>

namespace vx::platform {

inline constexpr std::size_t kShortNameSize = 14;

// A name that is a short one itself has no other; `to` becomes empty.
void shortNameOf(std::string_view name, char (&to)[kShortNameSize]);

// Whether a short name could be meant, so that a look at the directory is worth it.
bool mayBeShortName(std::string_view name);

}  // namespace vx::platform
