// Open tables by their handles. A handle that is stale or made up finds nothing.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include "dbf/table.h"

namespace vx::dbf {

// The handle of a table from now on, never 0; 0, and the table is gone, if there is no memory.
std::uint32_t enlist(std::unique_ptr<Table> table);

// The handle's table is gone.
void dismiss(std::uint32_t handle);

// A handle is the generation of a slot and the slot's index. The sign bit stays free: callers test for > 0.
namespace registry {

inline constexpr std::uint32_t kIndexBits = 18;
inline constexpr std::uint32_t kIndexMask = (1u << kIndexBits) - 1;
inline constexpr std::uint32_t kChunkSize = 256;
inline constexpr std::uint32_t kChunks = (1u << kIndexBits) / kChunkSize;

struct Slot {
    std::atomic<std::uint32_t> handle{0};  // 0 while it is free
    std::uint32_t generation = 0;          // of the last handle
    std::uint32_t nextFree = 0;
    std::unique_ptr<Table> table;
};

// Slots are never freed or moved, so that finding one needs no lock.
extern std::atomic<Slot*> chunks[kChunks];

inline Slot* slotOf(std::uint32_t handle) {
    std::uint32_t index = handle & kIndexMask;
    Slot* chunk = chunks[index / kChunkSize].load(std::memory_order_acquire);
    if (!chunk || handle == 0) return nullptr;
    Slot* slot = chunk + index % kChunkSize;
    return slot->handle.load(std::memory_order_acquire) == handle ? slot : nullptr;
}

}  // namespace registry

inline Table* find(std::uint32_t handle) {
    registry::Slot* slot = registry::slotOf(handle);
    return slot ? slot->table.get() : nullptr;
}

}  // namespace vx::dbf
