// Attributes and time stamps of files on a made-up disk, in a zone two hours east of Greenwich.
#include <gtest/gtest.h>

#include <chrono>
#include <functional>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using platform::FileTime;
using platform::Moment;
using std::chrono::milliseconds;
using std::chrono::sys_days;

constexpr char kName[] = "C:\\DATA\\LETTER.TXT";
constexpr FileTime kSteps = 10'000;  // of a time stamp, in a millisecond
constexpr FileTime kFiner = 1234;    // than local time shows
constexpr std::uint32_t kCause = 777;

class ZoneClock final : public platform::Clock {
 public:
    Moment localTime() override { return {}; }
    std::int32_t setLocalTime(const Moment&) override { return 0; }
    bool toLocalTime(FileTime time, Moment& local) override {
        auto at = kFirst + milliseconds(time / kSteps) + kZone;
        auto day = std::chrono::floor<std::chrono::days>(at);
        std::chrono::year_month_day date{day};
        std::chrono::hh_mm_ss clock{at - day};
        auto field = [](auto value) { return static_cast<std::uint16_t>(value); };
        local = {field(int{date.year()}),        field(unsigned{date.month()}),    0,
                 field(unsigned{date.day()}),    field(clock.hours().count()),     field(clock.minutes().count()),
                 field(clock.seconds().count()), field(clock.subseconds().count())};
        return int{date.year()} < 30000;
    }
    bool toFileTime(const Moment& m, FileTime& time) override {
        if (!platform::isDate(m) || !platform::isTimeOfDay(m)) return false;
        auto at = sys_days(platform::dateOf(m)) + std::chrono::hours(m.hour) + std::chrono::minutes(m.minute) +
                  std::chrono::seconds(m.second) + milliseconds(m.milliseconds) - kZone;
        time = static_cast<FileTime>((at - kFirst) / milliseconds(1)) * kSteps + later;
        return true;
    }
    void sleep(std::uint32_t) override {}

    FileTime later = 0;  // of the two stamps that a local time has where clocks are put back

 private:
    static constexpr auto kFirst = sys_days(std::chrono::year{1601} / 1 / 1) + milliseconds(0);
    static constexpr std::chrono::hours kZone{2};
};

class FileAttr : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};
    ZoneClock zone;
    lab::MadeUpDisk::Node* node = nullptr;

    FileAttr() {
        door()->platform->clock = &zone;
        node = &fake.disk.put(kName, "text");
    }
    FileTime stampOf(const Moment& moment) {
        FileTime time = 0;
        EXPECT_TRUE(zone.toFileTime(moment, time));
        return time + kFiner;
    }
    Moment local() {
        Moment moment;
        zone.toLocalTime(node->times.written, moment);
        return moment;
    }
    std::int32_t open() { return fake.disk.open(kName, platform::kRead); }
};

using Triple = std::tuple<std::int32_t, std::int32_t, std::int32_t>;

template <typename Call, typename File>
std::pair<std::int32_t, Triple> triple(Call call, File file) {
    std::int32_t a = 7, b = 7, c = 7;
    std::int32_t done = call(file, &a, &b, &c);
    EXPECT_EQ(call(file, nullptr, nullptr, nullptr), done);
    return {done, {a, b, c}};
}

TEST_F(FileAttr, DatesAndTimesInAllShapes) {
    const Moment moments[] = {{2000, 2, 0, 29, 12, 34, 56, 789}, {1999, 12, 0, 31, 23, 59, 59, 999},
                              {2000, 1, 0, 1, 0, 0, 0, 0},       {1601, 1, 0, 2, 1, 2, 3, 4},
                              {9999, 12, 0, 31, 1, 0, 0, 1},     {29999, 12, 0, 31, 23, 59, 59, 999}};
    for (const Moment& m : moments) {
        SCOPED_TRACE(testing::Message() << m.year << '-' << m.month << '-' << m.day << ' ' << m.hour);
        node->times.written = stampOf(m);
        std::int32_t handle = open();
        Triple date{m.year, m.month, m.day}, time{m.hour, m.minute, m.second};
        EXPECT_EQ(triple(lib().FGetDosDate, kName), std::pair(1, date));
        EXPECT_EQ(triple(lib().FileDosDate, handle), std::pair(1, date));
        EXPECT_EQ(triple(lib().FGetDosTime, kName), std::pair(1, time));
        EXPECT_EQ(triple(lib().FileDosTime, handle), std::pair(1, time));
        std::int32_t number = lib().IntToJulian(m.year, m.month, m.day);
        EXPECT_EQ(lib().FGetJDate(kName), number);
        EXPECT_EQ(lib().FileJDate(handle), number);

        std::string dotted = std::to_string(m.day) + "." + std::to_string(m.month) + "." + std::to_string(m.year);
        Dest byPicture(200);
        EXPECT_EQ(lib().FGetDatef(kName, "dd.mm.YYYY", byPicture), dotted);
        EXPECT_EQ(lib().FileDatef(handle, "dd.mm.YYYY", byPicture), dotted);
        EXPECT_EQ(lib().strfgetdatef(kName, "dd.mm.YYYY", byPicture), dotted.size());
        EXPECT_EQ(lib().strfiledatef(handle, "dd.mm.YYYY", byPicture), dotted.size());
        Dest text(64);
        for (bool byName : {true, false}) {
            fake.locale.date = fake.locale.time = {};
            EXPECT_EQ(byName ? lib().FGetDate(kName, text) : lib().FileDate(handle, text), fake.locale.dateText);
            EXPECT_EQ(fake.locale.date, (Moment{m.year, m.month, 0, m.day, 0, 0, 0, 0}));
            EXPECT_EQ(byName ? lib().FGetTime(kName, text) : lib().FileTime(handle, text), fake.locale.timeText);
            EXPECT_EQ((Triple{fake.locale.time.hour, fake.locale.time.minute, fake.locale.time.second}), time);
            EXPECT_EQ(byName ? lib().strfgetdate(kName, text) : lib().strfiledate(handle, text),
                      fake.locale.dateText.size());
            EXPECT_EQ(byName ? lib().strfgettime(kName, text) : lib().strfiletime(handle, text),
                      fake.locale.timeText.size());
        }
        fake.disk.close(handle);
    }
    EXPECT_EQ(fake.disk.openFiles(), 0u);
}

TEST_F(FileAttr, WhatCannotBeReadHasNoDate) {
    constexpr FileTime kBeyond = ~FileTime{0} / 2;
    for (const char* name : {"C:\\DATA\\MISSING", "C:\\DATA", "", static_cast<const char*>(nullptr), kName}) {
        if (name == kName) node->times.written = kBeyond;
        std::int32_t handle = name == kName ? open() : 4444;
        std::pair<std::int32_t, Triple> nothing{0, {0, 0, 0}};
        EXPECT_EQ(triple(lib().FGetDosDate, name), nothing);
        EXPECT_EQ(triple(lib().FGetDosTime, name), nothing);
        EXPECT_EQ(triple(lib().FileDosDate, handle), nothing);
        EXPECT_EQ(triple(lib().FileDosTime, handle), nothing);
        EXPECT_EQ(lib().FGetJDate(name) + lib().FileJDate(handle), 0);
        Dest dest(64);
        for (const char* text :
             {lib().FGetDate(name, dest), lib().FGetDatef(name, "YYYY", dest), lib().FGetTime(name, dest),
              lib().FileDate(handle, dest), lib().FileDatef(handle, "YYYY", dest), lib().FileTime(handle, dest)}) {
            EXPECT_STREQ(text, "");
        }
        EXPECT_EQ(lib().FSetDosDate(name, 2000, 1, 1) + lib().FSetDate(name, "1/1/2000") + lib().FSetJDate(name, 1) +
                      lib().FSetTime(name, "1:1:1"),
                  0);
        fake.disk.close(handle);
    }
    EXPECT_EQ(lib().FGetDate(kName, nullptr), nullptr);
    EXPECT_EQ(lib().strfiletime(4444, nullptr), 0u);
    EXPECT_EQ(fake.disk.openFiles(), 0u);
}

TEST_F(FileAttr, SettersChangeWhatIsNotZero) {
    const Moment start{2000, 2, 0, 29, 12, 34, 56, 789};
    auto date = [](std::int32_t y, std::int32_t m, std::int32_t d) { return lib().FSetDosDate(kName, y, m, d); };
    auto text = [](const char* value) { return lib().FSetDate(kName, value); };
    auto day = [](std::int32_t number) { return lib().FSetJDate(kName, number); };
    auto time = [](const char* value) { return lib().FSetTime(kName, value); };
    struct Row {
        std::function<std::int32_t()> call;
        std::int32_t result;
        Moment after;
    };
    const Row rows[] = {
        {[&] { return date(0, 0, 0); }, 1, start},
        {[&] { return date(2004, 0, 0); }, 1, {2004, 2, 0, 29, 12, 34, 56, 789}},
        {[&] { return date(0, 12, 31); }, 1, {2000, 12, 0, 31, 12, 34, 56, 789}},
        {[&] { return date(2001, 0, 0); }, 0, start},  // no leap year
        {[&] { return date(1600, 1, 1); }, 0, start},
        {[&] { return date(-1, -1, -1); }, 0, start},
        {[&] { return date(0x107D4, 0, 0); }, 1, {2004, 2, 0, 29, 12, 34, 56, 789}},  // 16 bits
        {[&] { return date(0x10000, 0, 0); }, 0, start},
        {[&] { return text("12/31/1999"); }, 1, {1999, 12, 0, 31, 12, 34, 56, 789}},
        {[&] { return text("2/30/2000"); }, 0, start},
        {[&] { return text(""); }, 1, start},
        {[&] { return text(nullptr); }, 0, start},
        {[&] { return day(2451545); }, 1, {2000, 1, 0, 1, 12, 34, 56, 789}},
        {[&] { return day(0); }, 1, start},
        {[&] { return time("00:00:00"); }, 1, start},
        {[&] { return time("23:59:59"); }, 1, {2000, 2, 0, 29, 23, 59, 59, 789}},
        {[&] { return time("0:0:7"); }, 1, {2000, 2, 0, 29, 12, 34, 7, 789}},
        {[&] { return time("24:00:00"); }, 0, start},
        {[&] { return time("0:60"); }, 0, start},
        {[&] { return time(nullptr); }, 0, start},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        node->times = {11, 22, stampOf(start)};
        EXPECT_EQ(row.call(), row.result);
        EXPECT_EQ(local(), row.after);
        EXPECT_EQ(node->times, (platform::FileTimes{11, 22, stampOf(row.after)})) << "to the step";
        EXPECT_EQ(fake.disk.openFiles(), 0u);
    }
    zone.later = 3600 * 1000 * kSteps;
    FileTime before = node->times.written;
    EXPECT_EQ(time("00:00:00") + date(0, 0, 0), 2);
    EXPECT_EQ(node->times.written, before) << "not the other stamp of that local time";
}

TEST_F(FileAttr, FaultsGiveTheFailureAndItsCause) {
    Dest dest(64);
    struct Row {
        std::function<int()> call;  // 1 when it worked
        int needed;                 // calls that must work
    };
    for (const auto& [call, needed] :
         {Row{[] { return lib().FSetDosDate(kName, 1999, 1, 1); }, 4},
          Row{[] { return lib().FGetJDate(kName) != 0; }, 2},
          Row{[&] { return lib().strfgettime(kName, dest) != 0; }, 2},
          Row{[] { return lib().FGetAttr(kName) != -1; }, 1}, Row{[] { return lib().FHide(kName); }, 2}}) {
        for (int n = 1; n <= 5; ++n) {
            node->times.written = stampOf({2000, 1, 0, 1, 1, 1, 1, 1});
            fake.disk.calls = 0;
            fake.disk.fault = {.atCall = n, .code = kCause};
            fake.process.error = 5;
            EXPECT_EQ(call(), n > needed) << n;
            if (n <= needed || fake.disk.calls < n) {
                EXPECT_EQ(fake.process.error, n <= needed ? kCause : 5u) << n;
            }
            EXPECT_EQ(fake.disk.openFiles(), 0u) << n;
        }
    }
}

TEST_F(FileAttr, AttributesOfAllKinds) {
    constexpr int kSettable = 1 | 2 | 4 | 32;
    for (int bits = 0; bits < 64; ++bits) {
        if (bits & 0x18) continue;
        for (std::uint32_t compressed : {0u, 0x800u}) {
            node->attributes = static_cast<std::uint32_t>(bits) | compressed;
            int shown = bits | (compressed ? 64 : 0);
            std::int32_t handle = open();
            EXPECT_EQ(lib().FGetAttr(kName), shown);
            EXPECT_EQ(lib().FileAttr(handle), shown);
            EXPECT_EQ(lib().FChanged(kName), (bits & 32) != 0);
            fake.disk.close(handle);
        }
        for (int given : {0, 1, 2, 4, 8, 16, 32, 64, 7, 39, 127, 0x100, -1}) {
            for (bool set : {true, false}) {
                node->attributes = static_cast<std::uint32_t>(bits);
                EXPECT_EQ(lib().FSetAttr(kName, given, set ? 5 : 0), 1);
                int after = set ? bits | (given & kSettable) : bits & ~(given & kSettable);
                EXPECT_EQ(lib().FGetAttr(kName), after) << bits << (set ? '+' : '-') << given;
            }
        }
        auto after = [&](int (*call)(const char*)) {
            node->attributes = static_cast<std::uint32_t>(bits);
            EXPECT_EQ(call(kName), 1);
            return node->attributes & 63;
        };
        auto expected = static_cast<std::uint32_t>(bits);
        EXPECT_EQ(after([](const char* name) { return lib().FProtect(name); }), expected | 1);
        EXPECT_EQ(after([](const char* name) { return lib().FUnProtect(name); }), expected & ~1u);
        EXPECT_EQ(after([](const char* name) { return lib().FHide(name); }), expected | 2);
        EXPECT_EQ(after([](const char* name) { return lib().FUnHide(name); }), expected & ~2u);
    }
    EXPECT_EQ(lib().FGetAttr("C:\\DATA"), 16);
    EXPECT_EQ(lib().FileAttr(4444), 0);
    for (const char* missing : {"C:\\MISSING", "", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(lib().FGetAttr(missing), -1);
        EXPECT_EQ(lib().FChanged(missing), 1);
        EXPECT_EQ(lib().FSetAttr(missing, 1, 1) + lib().FProtect(missing) + lib().FUnHide(missing), 0);
    }
}

}  // namespace
}  // namespace vx::test
