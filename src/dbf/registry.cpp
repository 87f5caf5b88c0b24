#include "dbf/registry.h"

#include <array>
#include <atomic>
#include <mutex>
#include <new>

namespace vx::dbf {
namespace {

// A handle is the generation of a slot and the slot's index. The sign bit stays free: callers test for > 0.
constexpr std::uint32_t kIndexBits = 18;
constexpr std::uint32_t kGenerations = 1u << (31 - kIndexBits);
constexpr std::uint32_t kChunkSize = 256;
constexpr std::uint32_t kChunks = (1u << kIndexBits) / kChunkSize;
constexpr std::uint32_t kNone = ~0u;

struct Slot {
    std::atomic<std::uint32_t> handle{0};  // 0 while it is free
    std::uint32_t generation = 0;          // of the last handle
    std::uint32_t nextFree = kNone;
    std::unique_ptr<Table> table;
};

using Chunk = std::array<Slot, kChunkSize>;

// Slots are never freed or moved, so that finding one needs no lock.
constinit std::atomic<Chunk*> chunks[kChunks] = {};
constinit std::mutex changing;
constinit std::uint32_t made = 0;  // chunks
constinit std::uint32_t firstFree = kNone;

inline Slot* slotAt(std::uint32_t index) {
    Chunk* chunk = chunks[index / kChunkSize].load(std::memory_order_acquire);
    return chunk ? &(*chunk)[index % kChunkSize] : nullptr;
}

inline Slot* slotOf(std::uint32_t handle) {
    if (handle >> 31) return nullptr;
    Slot* slot = slotAt(handle & ((1u << kIndexBits) - 1));
    return slot && handle != 0 && slot->handle.load(std::memory_order_acquire) == handle ? slot : nullptr;
}

bool makeChunk() {
    if (made == kChunks) return false;
    Chunk* chunk = new (std::nothrow) Chunk;
    if (!chunk) return false;
    for (std::uint32_t i = kChunkSize; i-- > 0;) {
        (*chunk)[i].nextFree = firstFree;
        firstFree = made * kChunkSize + i;
    }
    chunks[made++].store(chunk, std::memory_order_release);
    return true;
}

}  // namespace

std::uint32_t enlist(std::unique_ptr<Table> table) {
    std::lock_guard guard(changing);
    if (firstFree == kNone && !makeChunk()) return 0;
    std::uint32_t index = firstFree;
    Slot& slot = *slotAt(index);
    firstFree = slot.nextFree;
    slot.generation = slot.generation % (kGenerations - 1) + 1;
    slot.table = std::move(table);
    std::uint32_t handle = slot.generation << kIndexBits | index;
    slot.handle.store(handle, std::memory_order_release);
    return handle;
}

Table* find(std::uint32_t handle) {
    Slot* slot = slotOf(handle);
    return slot ? slot->table.get() : nullptr;
}

void dismiss(std::uint32_t handle) {
    std::unique_ptr<Table> table;
    std::lock_guard guard(changing);
    Slot* slot = slotOf(handle);
    if (!slot) return;
    table = std::move(slot->table);
    slot->handle.store(0, std::memory_order_release);
    slot->nextFree = firstFree;
    firstFree = handle & ((1u << kIndexBits) - 1);
}

}  // namespace vx::dbf
