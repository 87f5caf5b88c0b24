// Locked ranges of one open file, against all other handles and processes and against itself.
//
// The system's open-file-description locks keep others out; they let the file that holds one lock the same bytes again,
// and merge and split ranges. Windows does neither, so the ranges that are held are listed here as well.
#pragma once

#include <cstdint>

#include "platform/lock.h"

namespace vx::platform {

class RegionLocks {
 public:
    // False, with the reason as last error, if they fail.
    bool lock(int descriptor, std::uint32_t offset, std::uint32_t length);
    bool unlock(int descriptor, std::uint32_t offset, std::uint32_t length);

    // Gives all ranges back, also those that a forked process's copy of the descriptor would keep.
    void clear(int descriptor);

 private:
    struct Range {
        std::uint64_t start;
        std::uint64_t end;
        Range* next;
    };

    bool holdsOverlap(std::uint64_t start, std::uint64_t end) const;

    Lock changing_;
    Range* ranges_ = nullptr;
};

}  // namespace vx::platform
