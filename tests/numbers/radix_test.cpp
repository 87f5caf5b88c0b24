// Numbers in any base, read back.
#include <gtest/gtest.h>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

TEST(Radix, AnyBaseReadBack) {
    Dest dest(33);
    RandomTexts random(41);
    for (std::int32_t base = 2; base <= 36; ++base) {
        for (int i = 0; i < 200; ++i) {
            auto value = static_cast<std::uint32_t>(random.number(INT32_MIN, INT32_MAX)) >> random.number(0, 31);
            lib().NumToBase(value, base, dest);
            EXPECT_EQ(static_cast<std::uint32_t>(lib().BaseToNum(dest, base)), value)
                << dest.text() << " base " << base;
            EXPECT_TRUE(dest.text() == "0" || dest.text()[0] != '0') << dest.text();
        }
    }
}

}  // namespace
}  // namespace vx::test
