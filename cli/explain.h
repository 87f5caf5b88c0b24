// What there is to call and what it does, from the export table alone.
#pragma once

#include <string>

#include "catalog/catalog.h"

namespace vx::cli {

// The functions of the family of that stem, else those in whose names or descriptions the text occurs; all for an empty
// text. Throws UsageError where there is none.
std::string list(const std::string& wanted, bool asJson);

// Declaration, arguments, result, notes, names and related forms of a function.
std::string explain(const catalog::Entry& entry, bool asJson);

// The function of that name; throws UsageError with likely ones where there is none.
const catalog::Entry& entryOf(const std::string& name);

}  // namespace vx::cli
