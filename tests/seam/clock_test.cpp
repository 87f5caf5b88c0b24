// Time stamps and local time of the system's own clock.
#include <gtest/gtest.h>

#include <cstdio>

#include "tests/seam/seam.h"
#include "tests/support/environment.h"

namespace vx::test {
namespace {

using platform::FileTime;
using platform::Moment;

platform::Clock& systemClock() { return *door()->platform->clock; }

constexpr FileTime kSecond = 10'000'000;
constexpr FileTime kEndOf2107 = 507ull * 146097 / 400 * 86400 * kSecond;

void expectRoundTrips() {
    for (FileTime time = 86400 * kSecond; time < kEndOf2107; time += 300007 * kSecond + 10'000) {
        Moment local, again;
        FileTime back = 0;
        ASSERT_TRUE(systemClock().toLocalTime(time, local) && systemClock().toFileTime(local, back)) << time;
        if (back == time) continue;
        ASSERT_LT(back, time) << "the first of two";
        ASSERT_TRUE(systemClock().toLocalTime(back, again) && again == local) << time;
    }
}

TEST(SystemClock, TimeStampsThereAndBack) {
    expectRoundTrips();
#if !defined(_WIN32)
    for (const char* zone : {"UTC", "Europe/Berlin", "America/St_Johns", "Pacific/Apia"}) {
        SCOPED_TRACE(zone);
        InZone there(zone);
        expectRoundTrips();
    }
#endif
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
// "2000-12-31 23:59:59"
Moment momentOf(const char* text) {
    Moment m;
    std::sscanf(text, "%hu-%hu-%hu %hu:%hu:%hu", &m.year, &m.month, &m.day, &m.hour, &m.minute, &m.second);
    return m;
}

FileTime stampOf(const char* universal) {
    using namespace std::chrono;
    Moment at = momentOf(universal);
    auto time = sys_days(platform::dateOf(at)) - sys_days(year(1601) / 1 / 1) + hours(at.hour) + minutes(at.minute);
    return static_cast<FileTime>(seconds(time).count() + at.second) * kSecond;
}

// Where clocks change, and where a day was left out.
TEST(SystemClock, ChangesOfClocks) {
    struct Row {
        const char* zone;
        const char* local;
        std::vector<const char*> universal;  // two where the local time comes twice
        const char* shown = local;           // where it does not come at all
    };
    const Row rows[] = {
        {"Europe/Berlin", "2024-03-31 01:59:59", {"2024-03-31 00:59:59"}},
        {"Europe/Berlin", "2024-03-31 02:30:00", {"2024-03-31 01:30:00"}, "2024-03-31 03:30:00"},
        {"Europe/Berlin", "2024-03-31 03:00:00", {"2024-03-31 01:00:00"}},
        {"Europe/Berlin", "2024-10-27 01:59:59", {"2024-10-26 23:59:59"}},
        {"Europe/Berlin", "2024-10-27 02:30:00", {"2024-10-27 00:30:00", "2024-10-27 01:30:00"}},
        {"Europe/Berlin", "2024-10-27 03:00:00", {"2024-10-27 02:00:00"}},
        {"America/St_Johns", "2024-03-10 01:59:59", {"2024-03-10 05:29:59"}},
        {"America/St_Johns", "2024-03-10 03:00:00", {"2024-03-10 05:30:00"}},
        {"America/St_Johns", "2024-11-03 01:00:00", {"2024-11-03 03:30:00", "2024-11-03 04:30:00"}},
        {"Pacific/Apia", "2011-12-29 23:59:59", {"2011-12-30 09:59:59"}},
        {"Pacific/Apia", "2011-12-30 12:00:00", {"2011-12-30 22:00:00"}, "2011-12-31 12:00:00"},
        {"Pacific/Apia", "2011-12-31 00:00:00", {"2011-12-30 10:00:00"}},
        {"EAST-1", "1601-01-01 01:00:00", {"1601-01-01 00:00:00"}},
        {"UTC", "30827-12-31 23:59:59", {"30827-12-31 23:59:59"}},
    };
    for (const Row& row : rows) {
        if (std::strchr(row.zone, '/') && !std::filesystem::exists(std::string("/usr/share/zoneinfo/") + row.zone))
            GTEST_SKIP() << "the time zone " << row.zone << " is not installed";
        InZone there(row.zone);
        SCOPED_TRACE(std::string(row.zone) + " " + row.local);
        for (const char* universal : row.universal) {
            Moment local;
            EXPECT_TRUE(systemClock().toLocalTime(stampOf(universal), local));
            local.dayOfWeek = 0;
            EXPECT_EQ(local, momentOf(row.shown)) << universal;
        }
        for (const char* before : {"2024-01-15 12:00:00", "2024-07-15 12:00:00"}) {
            FileTime time = 0;
            systemClock().toFileTime(momentOf(before), time), systemClock().toFileTime(momentOf(row.local), time);
            EXPECT_EQ(time, stampOf(row.universal[0])) << "asked after " << before;
        }
    }
}

TEST(SystemClock, RefusesWhatIsBeyondItsYears) {
    Moment local{1};
    for (FileTime stamp : {FileTime{0}, stampOf("30827-12-31 23:59:59") + kSecond, FileTime{1} << 63, ~FileTime{0}}) {
        InZone there(stamp ? "UTC" : "WEST+1");
        door()->platform->process->setLastError(0);
        EXPECT_FALSE(systemClock().toLocalTime(stamp, local)) << stamp;
        EXPECT_EQ(local, Moment{1});
        EXPECT_EQ(door()->platform->process->lastError(), 87u);
    }
    InZone there("EAST-1");
    expectRefused(momentOf("1601-01-01 00:59:59"));
}
#endif

}  // namespace
}  // namespace vx::test
