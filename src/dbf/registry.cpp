#include "dbf/registry.h"

#include <mutex>
#include <new>

namespace vx::dbf {

namespace registry {

constinit std::atomic<Slot*> chunks[kChunks] = {};

}  // namespace registry

namespace {

using namespace registry;

constexpr std::uint32_t kGenerations = 1u << (31 - kIndexBits);
constexpr std::uint32_t kNone = ~0u;

std::mutex changing;
constinit std::uint32_t made = 0;  // chunks
constinit std::uint32_t firstFree = kNone;

bool makeChunk() {
    if (made == kChunks) return false;
    Slot* chunk = new (std::nothrow) Slot[kChunkSize];
    if (!chunk) return false;
    for (std::uint32_t i = kChunkSize; i-- > 0;) {
        chunk[i].nextFree = firstFree;
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
    Slot& slot = chunks[index / kChunkSize].load(std::memory_order_relaxed)[index % kChunkSize];
    firstFree = slot.nextFree;
    slot.generation = slot.generation % (kGenerations - 1) + 1;
    slot.table = std::move(table);
    std::uint32_t handle = slot.generation << kIndexBits | index;
    slot.handle.store(handle, std::memory_order_release);
    return handle;
}

void dismiss(std::uint32_t handle) {
    std::unique_ptr<Table> table;  // outlives the lock
    std::lock_guard guard(changing);
    Slot* slot = slotOf(handle);
    if (!slot) return;
    table = std::move(slot->table);
    slot->handle.store(0, std::memory_order_release);
    slot->nextFree = firstFree;
    firstFree = handle & kIndexMask;
}

}  // namespace vx::dbf
