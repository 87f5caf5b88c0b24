// What rooms are computed with.
#include "catalog/catalog.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace vx::test {
namespace {

TEST(Catalog, RoomArithmeticStopsAtItsEnds) {
    using catalog::Size;
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
    for (auto [got, wanted] : {std::pair(Size{most} + Size{1}, most),
                               {Size{least} - Size{1}, least},
                               {Size{most / 2} * Size{3}, most},
                               {Size{most / 2} * Size{-3}, least},
                               {Size{7} / Size{0}, 0},
                               {Size{least} / Size{-1}, most}})
        EXPECT_EQ(got.value, wanted);
}

}  // namespace
}  // namespace vx::test
