// Time stamps and local time of the system's own clock.
#include <gtest/gtest.h>

#include "tests/seam/seam.h"
#include "tests/support/environment.h"

namespace vx::test {
namespace {

using platform::FileTime;
using platform::Moment;

platform::Clock& systemClock() { return *door()->platform->clock; }

constexpr FileTime kSecond = 10'000'000;
constexpr FileTime kEndOf2107 = 507ull * 146097 / 400 * 86400 * kSecond;
constexpr FileTime kEndOf30827 = 0x7FFF35F4F06C8000;

TEST(SystemClock, TimeStampsThereAndBack) {
    for (FileTime time = 86400 * kSecond; time < kEndOf2107; time += 300007 * kSecond + 10'000) {
        Moment local, again;
        FileTime back = 0;
        ASSERT_TRUE(systemClock().toLocalTime(time, local) && systemClock().toFileTime(local, back)) << time;
        if (back == time) continue;
        ASSERT_LT(back, time) << "the first of two";
        ASSERT_TRUE(systemClock().toLocalTime(back, again) && again == local) << time;
    }
}

void expectRefused(const Moment& none) {
    FileTime time = 7;
    door()->platform->process->setLastError(0);
    EXPECT_FALSE(systemClock().toFileTime(none, time)) << none.year << '-' << none.month << '-' << none.day;
    EXPECT_EQ(time, 7u);
    EXPECT_EQ(door()->platform->process->lastError(), 87u);
}

TEST(SystemClock, RefusesWhatIsNoMoment) {
    for (Moment none :
         {Moment{2023, 2, 0, 29}, Moment{2024, 13, 0, 1}, Moment{2024, 0, 0, 1}, Moment{2024, 1, 0, 0},
          Moment{1600, 12, 0, 31}, Moment{30828, 1, 0, 1}, Moment{}, Moment{2024, 1, 0, 1, 24},
          Moment{2024, 1, 0, 1, 0, 60}, Moment{2024, 1, 0, 1, 0, 0, 60}, Moment{2024, 1, 0, 1, 0, 0, 0, 1000}})
        expectRefused(none);
}

#if !defined(_WIN32)
// The random caller of this platform turns clocks, but knows no more than that what is skipped lies behind.
TEST(SystemClock, SkippedTimesAreLaterByWhatIsSkipped) {
    auto shown = [](const char* zone, const Moment& asked) {
        InZone there(zone);
        FileTime time = 0;
        Moment local;
        EXPECT_TRUE(systemClock().toFileTime(asked, time) && systemClock().toLocalTime(time, local)) << zone;
        local.dayOfWeek = 0;
        return local;
    };
    EXPECT_EQ(shown("CET-1CEST,M3.5.0,M10.5.0/3", {2024, 3, 0, 31, 2, 30}), (Moment{2024, 3, 0, 31, 3, 30}));
    EXPECT_EQ(shown("EAST-1", {1601, 1, 0, 1, 1}), (Moment{1601, 1, 0, 1, 1}));
    EXPECT_EQ(shown("UTC", {30827, 12, 0, 31, 23, 59, 59}), (Moment{30827, 12, 0, 31, 23, 59, 59}));
    if (!std::filesystem::exists("/usr/share/zoneinfo/Pacific/Apia")) GTEST_SKIP() << "a time zone is not installed";
    EXPECT_EQ(shown("Pacific/Apia", {2011, 12, 0, 30, 12}), (Moment{2011, 12, 0, 31, 12}));
}

TEST(SystemClock, RefusesWhatIsBeyondItsYears) {
    Moment local{1};
    for (FileTime stamp : {FileTime{0}, kEndOf30827, FileTime{1} << 63, ~FileTime{0}}) {
        InZone there(stamp ? "UTC" : "WEST+1");
        door()->platform->process->setLastError(0);
        EXPECT_FALSE(systemClock().toLocalTime(stamp, local)) << stamp;
        EXPECT_EQ(local, Moment{1});
        EXPECT_EQ(door()->platform->process->lastError(), 87u);
    }
    InZone there("EAST-1");
    expectRefused({1601, 1, 0, 1, 0, 59, 59});
}
#endif

}  // namespace
}  // namespace vx::test
