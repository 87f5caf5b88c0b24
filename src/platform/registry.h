// Numbers for what is open: files, searches, tables. A number is positive; it holds a slot and how often the slot was
// taken, so that a stale or made-up one is found out.
//
// Of a number's 31 bits the upper 13 count how often the slot was taken, from 1 on, and the lower 18 hold the slot's
// index, shifted. Slots come in chunks of 256 that stay until the end, the first within the registry itself; free ones
// are linked. Slots never move, and looking one up takes no lock. Who uses a number while another thread closes it gets
// what a closed item gives, or the item that took the slot since.
#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <new>

#include "platform/lock.h"

namespace vx::platform {

// Numbers are multiples of 2^indexShift, and there are 2^(18 - indexShift) slots.
template <typename Item, int indexShift = 2>
class Registry {
 public:
    // Takes a slot, has `fill` set up its item, and gives the number out. 0 if there is no slot left.
    template <typename Fill>
    std::int32_t add(Fill fill) {
        Slot* slot = take();
        if (!slot) return 0;
        fill(slot->item);
        std::uint32_t number = (slot->generation << kGenerationShift) | (slot->index << indexShift);
        slot->number.store(number, std::memory_order_release);
        return static_cast<std::int32_t>(number);
    }

    // Null if the number is not in use.
    Item* find(std::int32_t number) {
        Slot* slot = slotOf(number);
        return slot ? &slot->item : nullptr;
    }

    // Takes a number out of use and has `drain` clear its item. False if it was not in use.
    template <typename Drain>
    bool remove(std::int32_t number, Drain drain) {
        Slot* slot = slotOf(number);
        std::uint32_t expected = static_cast<std::uint32_t>(number);
        if (!slot || !slot->number.compare_exchange_strong(expected, 0, std::memory_order_acq_rel)) return false;
        drain(slot->item);
        std::lock_guard guard(changing_);
        slot->next = free_;
        free_ = slot;
        return true;
    }

 private:
    static constexpr std::uint32_t kGenerationShift = 18;
    static constexpr std::uint32_t kGenerations = 1u << 13;  // numbers stay positive
    static constexpr std::uint32_t kChunkSize = 256;
    static constexpr std::uint32_t kChunks = (1u << (kGenerationShift - indexShift)) / kChunkSize;

    struct Slot {
        std::atomic<std::uint32_t> number{0};  // 0 while not in use
        std::uint32_t index = 0;
        std::uint32_t generation = 0;
        Slot* next = nullptr;
        Item item{};
    };

    Slot* slotOf(std::int32_t number) {
        std::uint32_t bits = static_cast<std::uint32_t>(number);
        if (number <= 0 || bits % (1u << indexShift) != 0) return nullptr;
        std::uint32_t index = (bits >> indexShift) & (kChunks * kChunkSize - 1);
        Slot* chunk = index < kChunkSize ? first_ : chunks_[index / kChunkSize].load(std::memory_order_acquire);
        if (!chunk) return nullptr;
        Slot* slot = chunk + index % kChunkSize;
        return slot->number.load(std::memory_order_acquire) == bits ? slot : nullptr;
    }

    Slot* take() {
        std::lock_guard guard(changing_);
        Slot* slot = free_ ? free_ : grow();
        if (!slot) return nullptr;
        free_ = slot->next;
        slot->generation = slot->generation % (kGenerations - 1) + 1;
        return slot;
    }

    // One more slot, of the chunk that is begun; null when all are taken.
    Slot* grow() {
        if (used_ == kChunks * kChunkSize) return nullptr;
        std::uint32_t chunk = used_ / kChunkSize;
        if (chunk != 0 && used_ % kChunkSize == 0) {
            Slot* more = new (std::nothrow) Slot[kChunkSize];
            if (!more) return nullptr;
            chunks_[chunk].store(more, std::memory_order_release);
        }
        Slot* start = chunk == 0 ? first_ : chunks_[chunk].load(std::memory_order_relaxed);
        Slot* slot = start + used_ % kChunkSize;
        slot->index = used_++;
        return slot;
    }

    // Lives without the heap, so that a library that is unloaded leaves nothing behind as a rule.
    Slot first_[kChunkSize];
    std::atomic<Slot*> chunks_[kChunks] = {};
    Lock changing_;
    Slot* free_ = nullptr;
    std::uint32_t used_ = 0;
};

}  // namespace vx::platform
