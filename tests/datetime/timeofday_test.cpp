// Times of day as texts, triples and seconds; the clock's time; waiting.
#include <gtest/gtest.h>

#include <chrono>
#include <clocale>
#include <cstdio>
#include <limits>
#include <tuple>

#include "tests/support/environment.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using Triple = std::tuple<std::int32_t, std::int32_t, std::int32_t>;

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

Triple split(std::int32_t seconds) {
    std::int32_t hour, minute, second;
    lib().JTimeToInt(seconds, &hour, &minute, &second);
    return {hour, minute, second};
}

TEST(TimeOfDay, Seconds) {
    std::int32_t ofDay = 20 * 3600 + 45 * 60 + 52;  // 2^31 seconds before midnight
    for (std::int64_t seconds = kLeast, step; seconds <= kMost; seconds += step) {
        auto [hour, minute, second] = split(static_cast<std::int32_t>(seconds));
        ASSERT_TRUE(hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60) << seconds;
        ASSERT_EQ(lib().IntToJTime(hour, minute, second), ofDay) << seconds;
        step = seconds > -100000 && seconds < 200000 ? 1 : 9973;
        for (ofDay += static_cast<std::int32_t>(step); ofDay >= 86400;) ofDay -= 86400;
    }
    EXPECT_EQ(split(kMost), Triple(3, 14, 7));
    EXPECT_EQ(lib().IntToJTime(1, 2, 3), 3723);
    EXPECT_EQ(lib().IntToJTime(0, 90, 0), 5400);
    EXPECT_EQ(lib().IntToJTime(-1, 0, -1), -3601);
    EXPECT_EQ(lib().IntToJTime(kMost, 0, 0), -3600) << "wraps";
    std::int32_t hour = 0;
    lib().JTimeToInt(3600, &hour, nullptr, nullptr);
    lib().JTimeToInt(3600, nullptr, nullptr, nullptr);
    EXPECT_EQ(hour, 1);
}

TEST(TimeText, Fields) {
    struct Row {
        const char* text;
        Triple fields;
        std::int32_t valid;
    };
    const Row rows[] = {
        {"12:34:56", {12, 34, 56}, 1},
        {"12:60:00", {12, 60, 0}, 0},
        {"59:59:59", {59, 59, 59}, 1},
        {"45:00:00", {45, 0, 0}, 1},
        {"24:00:00", {24, 0, 0}, 1},
        {"60:00:00", {60, 0, 0}, 0},
        {"", {0, 0, 0}, 1},
        {":", {0, 0, 0}, 1},
        {"7", {7, 0, 0}, 1},
        {"::9", {0, 0, 9}, 1},
        {" 1: 2: 3pm", {1, 2, 3}, 1},
        {"1:2:3:4", {1, 2, 3}, 1},
        {"-1:+2:3", {-1, 2, 3}, 0},
        {"1:2:-3", {1, 2, -3}, 0},
        {"x1:y2:z3", {0, 0, 0}, 1},
        {"1.5:2 5:3x", {1, 2, 3}, 1},
        {"0:0:60", {0, 0, 60}, 0},
        {"4294967296:0:0", {kMost, 0, 0}, 0},
        {"-99999999999:1:1", {kLeast, 1, 1}, 0},
    };
    for (auto [text, fields, valid] : rows) {
        std::int32_t hour = -9, minute = -9, second = -9;
        lib().TimeToInt(text, &hour, &minute, &second);
        EXPECT_EQ(Triple(hour, minute, second), fields) << text;
        EXPECT_EQ(lib().CheckTime(text), valid) << text;
    }
    std::int32_t hour = 5;
    lib().TimeToInt(nullptr, &hour, &hour, &hour);
    EXPECT_EQ(hour, 5) << "nothing is stored without a text";
    lib().TimeToInt("1:2:3", nullptr, nullptr, nullptr);
    EXPECT_EQ(lib().CheckTime(nullptr), 0);
}

TEST(TimeText, Refused) {
    struct Row {
        std::int32_t hour, minute, second;
        const char* text;
    };
    for (auto [hour, minute, second, text] : {Row{24, 0, 0, "24:00:00"}, Row{12, 60, 0, "12:60:00"},
                                              Row{12, 0, 60, "12:00:60"}, Row{-1, 0, 0, "0-1:00:0"}}) {
        Dest dest(64);
        EXPECT_EQ(lib().IntToTime(hour, minute, second, dest), dest.get());
        EXPECT_EQ(dest.text(), text);
        EXPECT_EQ(lib().StrIntToTime(hour, minute, second, dest), std::strlen(text));
    }
    EXPECT_EQ(lib().IntToTime(1, 2, 3, nullptr), nullptr);
    EXPECT_EQ(lib().StrGetTime(nullptr), 0u);
}

// How a locale writes a time: US English, C included, without a leading zero.
TEST(LocaleTime, InTwentyFourHours) {
    std::string locale = "en_US";
#if !defined(_WIN32)
    const char* name = std::setlocale(LC_TIME, "");
    locale = name ? name : "C";  // what is not installed
    std::setlocale(LC_TIME, "C");
#endif
    bool russian = locale.starts_with("ru_RU");
    bool english = locale == "C" || locale.starts_with("C.") || locale.starts_with("en_US");
    if (!russian && !english) GTEST_SKIP() << "no expectation for the locale " << locale;
    for (std::int32_t seconds = 0; seconds < 86400; seconds += 7) {
        auto [hour, minute, second] = split(seconds);
        char expected[16];
        std::snprintf(expected, sizeof expected, russian ? "%02d:%02d:%02d" : "%d:%02d:%02d", hour, minute, second);
        Dest dest(64);
        ASSERT_EQ(lib().StrIntToTime(hour, minute, second, dest), std::strlen(expected)) << expected;
        ASSERT_EQ(dest.text(), expected);
    }
}

#if !defined(_WIN32)
TEST(TimeText, InTheCLocale) {
    EXPECT_EQ(rerun("LC_ALL=C", "LocaleTime.*"), "");
    EXPECT_EQ(rerun("LC_ALL=not_installed", "LocaleTime.*:SystemNames.*"), "");
}
#endif

TEST(SystemTime, IsTheSystems) {
    std::int32_t before = lib().GetJTime();
    std::int32_t hour, minute, second;
    lib().DosGetTime(&hour, &minute, &second);
    Dest hundredths(12), time(64);
    EXPECT_EQ(lib().StrTimeh(hundredths), 11u);
    EXPECT_EQ(lib().GetTime(time), time.get());
    std::int32_t after = lib().GetJTime();
    if (after < before) return;  // midnight came
    int h = 0, m = 0, s = 0, part = -1, end = 0;
    ASSERT_EQ(std::sscanf(hundredths, "%2d:%2d:%2d.%2d%n", &h, &m, &s, &part, &end), 4) << hundredths.text();
    EXPECT_EQ(end, 11) << hundredths.text();
    for (std::int32_t seconds : {lib().IntToJTime(hour, minute, second), lib().IntToJTime(h, m, s)}) {
        EXPECT_TRUE(seconds >= before && seconds <= after) << seconds << " not in " << before << ".." << after;
    }
    bool found = false;
    for (std::int32_t seconds = before; seconds <= after; ++seconds) {
        std::tie(hour, minute, second) = split(seconds);
        Dest expected(64);
        found |= time.text() == lib().IntToTime(hour, minute, second, expected);
    }
    EXPECT_TRUE(found) << time.text();
}

TEST(SystemTime, Waiting) {
    auto start = std::chrono::steady_clock::now();
    lib().Delay(3);
    lib().Nap(1);
    lib().Delay(-1);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(80));
}

}  // namespace
}  // namespace vx::test
