// Entries and calls that do not do what most do: told by the export table, and the few that cannot be called here.
#pragma once

#include "fuzz/arguments.h"

namespace vx::fuzz {

// Why the entry cannot be called here; null if it can. For entries that would act on the machine because no fake stands
// before it, or that take their time (a pause) without being able to tell anything.
const char* whySkipped(const catalog::Entry& entry);

// Whether the entry keeps something from call to call that its result shows, so that two equal calls may differ.
bool remembers(const catalog::Entry& entry);

// Whether this call must leave its destinations as they are. They are given terminated, as a caller must who reads
// them.
bool leftAlone(const Plan& plan);

// Whether the entry gives a constant empty text when it has no destination; others give NULL.
bool givesConstantWithoutDest(const catalog::Entry& entry);

}  // namespace vx::fuzz
