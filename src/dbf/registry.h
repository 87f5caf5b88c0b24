// Open tables by their handles. A handle that is stale or made up finds nothing.
#pragma once

#include <cstdint>
#include <memory>

#include "dbf/table.h"

namespace vx::dbf {

// The handle of a table from now on, never 0; 0, and the table is gone, if there is no memory.
std::uint32_t enlist(std::unique_ptr<Table> table);

Table* find(std::uint32_t handle);

// The handle's table is gone.
void dismiss(std::uint32_t handle);

}  // namespace vx::dbf
