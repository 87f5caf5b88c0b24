// The platform's searches that callers' search blocks hold, and where each block lay when it began its search.
//
// A block is the caller's memory: begun anew while a search is still open in it, it would lose that search. But what
// the memory holds may as well be a copy of a block, or nothing but chance. So a search is given up only where it was
// begun.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <mutex>
#include <new>

#include "platform/lock.h"

namespace vx {

class HeldSearches {
 public:
    void add(std::int32_t search, const void* block) {
        std::lock_guard guard(changing_);
        if (size_ == room_ && !grow()) return;  // without memory, it stays open until the caller releases it
        held_[size_++] = {search, block};
    }
    void remove(std::int32_t search) {
        std::lock_guard guard(changing_);
        Held* found = find(search);
        if (found != end()) *found = held_[--size_];
    }
    bool contains(std::int32_t search, const void* block) {
        std::lock_guard guard(changing_);
        Held* found = find(search);
        return found != end() && found->block == block;
    }

 private:
    struct Held {
        std::int32_t search;
        const void* block;
    };

    Held* end() { return held_ + size_; }
    Held* find(std::int32_t search) {
        return std::find_if(held_, end(), [search](const Held& held) { return held.search == search; });
    }
    bool grow() {
        Held* more = new (std::nothrow) Held[2 * room_];
        if (!more) return false;
        std::copy(held_, end(), more);
        if (held_ != first_) delete[] held_;
        held_ = more;
        room_ *= 2;
        return true;
    }

    platform::Lock changing_;
    Held first_[64] = {};
    Held* held_ = first_;
    std::size_t size_ = 0;
    std::size_t room_ = std::size(first_);
};

extern HeldSearches heldSearches;

}  // namespace vx
