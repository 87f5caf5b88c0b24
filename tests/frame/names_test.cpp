// The exported names: each one is there, and all names of an entry are one address. What the catalog knows of them.
#include <gtest/gtest.h>

#include <limits>
#include <map>

#include "catalog/catalog.h"
#include "tests/support/library.h"

namespace vx::test {
namespace {

TEST(Names, AllNamesOfAnEntryAreOneAddressOfItsOwn) {
    std::map<void*, const char*> owner;
    for (const catalog::Entry& entry : catalog::allEntries()) {
        void* own = address(entry.main());
        ASSERT_NE(own, nullptr) << entry.main();
        auto [other, isNew] = owner.emplace(own, entry.main());
        EXPECT_TRUE(isNew) << entry.main() << " shares its address with " << other->second;
        for (const char* name : entry.names) EXPECT_EQ(address(name), own) << name;
    }
    for (const char* name : {"vx_AllTrim", "_vx_AllTrim@8", "AllTrim@8", "ALLTRIM", "vexlor32_seam", "DllMain"})
        EXPECT_EQ(address(name), nullptr) << name;
}

TEST(Catalog, SuggestsTheLikelyName) {
    for (auto [typed, meant] : {std::pair("AlTrim", "AllTrim"), {"CHRTRIM", "ChrTrim"}, {"Replciate", "Replicate"}})
        EXPECT_EQ(catalog::suggestions(typed).at(0), meant);
    EXPECT_TRUE(catalog::suggestions("qqqqxxxxyyyyzzzz").empty());
}

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
