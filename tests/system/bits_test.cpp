// Operations on bits.
#include <gtest/gtest.h>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

constexpr std::int32_t kLeast = INT32_MIN;
constexpr std::int32_t kMost = INT32_MAX;

TEST(Bits, Shifts) {
    EXPECT_EQ(lib().Shr(-8, 1), -4);
    EXPECT_EQ(lib().Shl(1, 33), 2);
    const std::int32_t values[] = {0, 1, -1, -8, 5, 0x12345678, kLeast, kMost, -0x12345678};
    for (std::int32_t value : values) {
        for (std::int32_t count : {0, 1, 2, 7, 31, 32, 33, 63, -1, -31, kLeast, kMost}) {
            std::int64_t left = value, right = value;
            for (unsigned i = static_cast<unsigned>(count) % 32; i > 0; --i) {
                left *= 2;
                right = right >= 0 ? right / 2 : (right - 1) / 2;
            }
            EXPECT_EQ(lib().Shl(value, count), static_cast<std::int32_t>(left)) << value << " by " << count;
            EXPECT_EQ(lib()._LShl(value, count), static_cast<std::int32_t>(left)) << value << " by " << count;
            EXPECT_EQ(lib().Shr(value, count), right) << value << " by " << count;
            EXPECT_EQ(lib()._LShr(value, count), right) << value << " by " << count;
        }
    }
}

TEST(Bits, MasksAndUnions) {
    RandomTexts random(92);
    for (int i = 0; i < 2000; ++i) {
        std::int32_t value = random.number(0, 15) << random.number(0, 28), mask = random.number(0, 15) << 14;
        bool all = true;
        std::uint32_t either = 0;
        for (int bit = 0; bit < 32; ++bit) {
            bool inValue = (value >> bit & 1) != 0, inMask = (mask >> bit & 1) != 0;
            all = all && (inValue || !inMask);
            if (inValue || inMask) either |= 1u << bit;
        }
        ASSERT_EQ(lib().Test(value, mask), all) << value << ", " << mask;
        ASSERT_EQ(lib().Ior(value, mask), static_cast<std::int32_t>(either)) << value << ", " << mask;
    }
    EXPECT_EQ(lib().Test(5, 0), 1);
    EXPECT_EQ(lib().Test(kLeast, kLeast), 1);
    EXPECT_EQ(lib().Test(kMost, -1), 0);
    EXPECT_EQ(lib().Ior(kLeast, kMost), -1);
}

}  // namespace
}  // namespace vx::test
