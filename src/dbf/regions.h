// The byte ranges by which the handles and processes that share a table keep out of each other's way.
//
// All lie far behind any data, so that a lock keeps nobody from reading or writing. In the table file, with B for
// 1,000,000,000:
//
//   B                 header lock: the record count and the date
//   B + n, length k   records n to n + k - 1: of the caller's record lock, or claimed by an append
//   B + 1, 2 * B      table lock, which so meets every record lock and no header lock
//   3 * B + 2         count lock: the header is being written
//
// The memo file and the blob file have one each, for the time of a change in them.
#pragma once

#include <cstdint>

#include "dbf/file.h"

namespace vx::dbf {

// One that cannot be given back stays held.
struct Region {
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
    bool held = false;

    // Whether it is held then.
    bool take(const File& from) {
        if (!held) held = from.lock(offset, length);
        return held;
    }

    // Whether it is free then.
    bool giveBack(const File& to) {
        if (held && to.unlock(offset, length)) held = false;
        return !held;
    }
};

inline constexpr std::uint32_t kRecordRegions = 1'000'000'000;  // and the record's number
inline constexpr Region kTableRegion{kRecordRegions + 1, 2 * kRecordRegions};
inline constexpr Region kHeaderRegion{kRecordRegions, 1};
inline constexpr Region kCountRegion{3 * kRecordRegions + 2, 1};
inline constexpr Region kMemoRegion{1'000'000'000, 1};
inline constexpr Region kBlobRegion{2'000'000'000, 1};

}  // namespace vx::dbf
