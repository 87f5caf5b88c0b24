// That no call which may reach for a drive lets the system show a box is told by the rows of drives, but for these.
#include <gtest/gtest.h>

#include "tests/seam/seam.h"

namespace vx::test {
namespace {

TEST(ErrorMode, IsSilentWhereADriveIsReachedFor) {
    lab::FakePlatform fake{door()};
    fake.disk.put("C:\\d\\f");
    std::int32_t handle = fake.disk.open("C:\\d\\f", platform::kRead);
    std::uint32_t mode = 0;
    fake.volumes.onCall = [&] { mode = fake.process.errorMode; };
    lib().FileDrive(handle);
    EXPECT_EQ(mode, platform::kFailSilently);

    // FMove copies in the caller's mode, but makes the directory silently.
    mode = 0;
    fake.disk.onCall = [&] {
        if (!fake.disk.find("C:\\new")) mode = fake.process.errorMode;
    };
    EXPECT_EQ(lib().FMove("C:\\d\\f", "C:\\new", 0), 0);
    EXPECT_EQ(mode, platform::kFailSilently);
    EXPECT_EQ(fake.process.errorMode, 0u);
    fake.disk.close(handle);
}

}  // namespace
}  // namespace vx::test
