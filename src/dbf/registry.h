// Open tables by their handles. A handle that is stale or made up finds nothing.
#pragma once

#include <cstdint>
#include <memory>

#include "dbf/table.h"
#include "platform/registry.h"

namespace vx::dbf {

extern constinit platform::Registry<Table*, 0> tables;

// The handle of a table from now on, never 0; 0, and the table is gone, if there is no memory.
std::uint32_t enlist(std::unique_ptr<Table> table);

// The handle's table is gone.
void dismiss(std::uint32_t handle);

inline Table* find(std::uint32_t handle) {
    Table** table = tables.find(static_cast<std::int32_t>(handle));
    return table ? *table : nullptr;
}

}  // namespace vx::dbf
