#include "dbf/registry.h"

#include <utility>

namespace vx::dbf {

constinit platform::Registry<Table*, 0> tables;

std::uint32_t enlist(std::unique_ptr<Table> table) {
    std::int32_t handle = tables.add([&](Table*& slot) { slot = table.get(); });
    if (handle != 0) table.release();
    return static_cast<std::uint32_t>(handle);
}

void dismiss(std::uint32_t handle) {
    tables.remove(static_cast<std::int32_t>(handle), [](Table*& slot) { delete std::exchange(slot, nullptr); });
}

}  // namespace vx::dbf
