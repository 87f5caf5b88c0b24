// What rows cannot say of a made-up machine: every millisecond, memories of more than 4 GB, one question only.
#include <gtest/gtest.h>

#include "tests/seam/seam.h"

namespace vx::test {
namespace {

struct MadeUp : testing::Test {
    lab::FakePlatform fake{door()};
};
using SystemInformation = MadeUp;

TEST_F(SystemInformation, TimerTicks) {
    for (int milliseconds = 0; milliseconds < 1000; ++milliseconds) {
        fake.clock.now.milliseconds = static_cast<std::uint16_t>(milliseconds);
        int expected = milliseconds <= 55 ? 0 : milliseconds / 55;  // kept: 55 ms is no tick yet
        ASSERT_EQ(lib().TimerTick(), expected) << milliseconds;
    }
}

TEST_F(SystemInformation, LargeMemories) {
    for (auto [bytes, shown] : {std::pair(std::uint64_t{5} << 32, 20u << 20),
                                {(std::uint64_t{1} << 42) - 1, 0xFFFFFFFF},
                                {std::uint64_t{1} << 42, 0xFFFFFFFF},
                                {~std::uint64_t{0}, 0xFFFFFFFF}}) {
        fake.process.memory = {bytes, bytes / 2};
        for (auto call : {lib().ExtMem, lib().ExpMem}) {
            EXPECT_EQ(call(0), shown);
            EXPECT_EQ(call(1), std::min<std::uint64_t>(bytes / 2048, 0xFFFFFFFF));
        }
    }
}

TEST_F(SystemInformation, TheSystemIsAskedForOnce) {
    fake.process.id = platform::kWindows95Id;
    lib().Silence();
    fake.process.id = platform::kWindowsNtId;
    lib().Silence();
    EXPECT_EQ(fake.hardware.beeps.size(), 0u);
    EXPECT_EQ(fake.hardware.portWrites.size(), 2u);
}

}  // namespace
}  // namespace vx::test
