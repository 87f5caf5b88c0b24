// Inquiries of a made-up machine, and its speaker.
#include <gtest/gtest.h>

#include <array>

#include "catalog/catalog.h"
#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using Writes = std::vector<std::pair<std::uint16_t, std::uint8_t>>;
using Beeps = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

constexpr std::uint32_t kForever = 0xFFFFFFFF;

class Machine : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};

    void run(platform::PlatformId id) {
        fake.process.id = id;
        fake.forgetClass();
    }
};

TEST_F(Machine, FixedAnswers) {
    struct Row {
        const char* name;
        std::int64_t answer;
    };
    const Row rows[] = {
        {"DosVersion", 700}, {"_dosvers", 700},   {"EmsVersion", 40}, {"_emsvers", 40}, {"XmsVersion", 200},
        {"xmsvers", 200},    {"DpmiVersion", 90}, {"dpmivers", 90},   {"DosMem", 640},  {"_dosmem", 640},
        {"VidMem", 256},     {"_vidmem", 256},    {"NdpType", 0},     {"_ndptype", 0},  {"IsAnsi", 0},
        {"_isansi", 0},      {"Fre", 0},          {"fre", 0},         {"MonType", 0},   {"_montype", 0},
        {"MouseIrq", 0},     {"m_irq", 0},        {"MouseType", 0},   {"_m_type", 0},   {"MouseVersion", 0},
        {"_m_version", 0},   {"MouseLang", 0},    {"m_language", 0},  {"InPort", 0},    {"_inp", 0},
        {"OutPort", 0},      {"_outp", 0},        {"OutPortWord", 0}, {"outpw", 0},     {"strromdate", 0},
    };
    for (auto [name, answer] : rows) {
        const catalog::Entry* entry = catalog::find(name);
        ASSERT_NE(entry, nullptr) << name;
        std::array<catalog::Value, 2> arguments{};
        Dest dest(1);
        for (catalog::Value& value : arguments) value.number = 0x61;
        if (std::string(name) == "strromdate") arguments[0].text = dest;
        catalog::Value result{.number = 0};
        entry->invoke(reinterpret_cast<catalog::Function>(address(name)), arguments.data(), &result);
        EXPECT_EQ(result.number, answer) << name;
    }
    EXPECT_EQ(fake.hardware.portWrites, Writes{}) << "no port is touched";
    Dest date(1);
    EXPECT_EQ(lib().RomDate(date), date.get());
    EXPECT_EQ(date.text(), "");
    EXPECT_EQ(lib().RomDate(nullptr), nullptr);
}

TEST_F(Machine, Inquiries) {
    const std::int32_t answers[] = {0, 0, 0, 0, 0, 40, 200, 90, 700, 0, 0};
    for (std::int32_t selector = 0; selector <= 10; ++selector) {
        EXPECT_EQ(lib()._sysinfo1(selector), answers[selector]) << selector;
    }
    for (std::int32_t selector : {-1, INT32_MIN, INT32_MAX}) EXPECT_EQ(lib()._sysinfo1(selector), 0) << selector;

    for (auto [version, shown] :
         {std::pair{0x00000004u, 400}, {0x04213303u, 351}, {0xC3B60004u, 400}, {0x0A01u, 110}}) {
        fake.process.version = version;
        EXPECT_EQ(lib().WinVersion(), shown) << std::hex << version;
    }
    for (std::uint32_t family : {3u, 4u, 5u, 6u, 15u}) {
        fake.hardware.family = family;
        EXPECT_EQ(lib().CpuType(), static_cast<std::int32_t>(family));
    }
}

TEST_F(Machine, Memory) {
    struct Row {
        platform::Memory memory;
        std::uint32_t total, available;
    };
    const Row rows[] = {{{16 << 20, 5 << 20}, 16384, 5120},
                        {{1023, 0}, 0, 0},
                        {{0xFFFFFFFF, 0x80000000}, 0x3FFFFF, 0x200000},
                        {{std::uint64_t{1} << 40, std::uint64_t{5} << 32}, 1u << 30, 20u << 20},
                        {{~std::uint64_t{0}, std::uint64_t{1} << 42}, 0xFFFFFFFF, 0xFFFFFFFF}};
    for (auto [memory, total, available] : rows) {
        fake.process.memory = memory;
        EXPECT_EQ(lib().ExtMem(0), total);
        EXPECT_EQ(lib().ExpMem(0), total);
        for (std::int32_t flag : {1, -1, INT32_MIN}) {
            EXPECT_EQ(lib().ExtMem(flag), available);
            EXPECT_EQ(lib().ExpMem(flag), available);
        }
    }
}

TEST_F(Machine, TimerTicks) {
    for (std::uint16_t milliseconds = 0; milliseconds < 1000; ++milliseconds) {
        fake.clock.now.milliseconds = milliseconds;
        std::int32_t expected = milliseconds <= 55 ? 0 : milliseconds / 55;  // kept: 55 ms is no tick yet
        ASSERT_EQ(lib().TimerTick(), expected) << milliseconds;
    }
}

TEST_F(Machine, SoundsByTheSystem) {
    struct Row {
        std::int32_t frequency;
        std::uint32_t sounded;
        std::uint32_t ticks, slept;
    };
    const Row rows[] = {{20, 37, 18, 990},
                        {36, 37, 0, 0},
                        {37, 37, 1, 55},
                        {440, 440, 100, 5500},
                        {32767, 32767, 2, 110},
                        {100000, 32767, 78090315, 0xFFFFFFFE},
                        {INT32_MIN, 37, UINT32_MAX, 0xFFFFFFFE},
                        {INT32_MAX, 32767, 3, 165}};
    for (std::int32_t result : {1, 0}) {
        fake.hardware.beepResult = result;
        for (auto [frequency, sounded, ticks, slept] : rows) {
            fake.hardware.beeps.clear();
            fake.clock.sleeps.clear();
            EXPECT_EQ(lib().Tone(frequency, ticks), result) << frequency;
            EXPECT_EQ(fake.hardware.beeps, (Beeps{{sounded, kForever}, {32767, kForever}})) << frequency;
            EXPECT_EQ(fake.clock.sleeps, std::vector{slept}) << ticks;
        }
    }
    fake.hardware.beeps.clear();
    fake.clock.sleeps.clear();
    fake.hardware.beepResult = 5;
    lib().Noise(100000);
    EXPECT_EQ(fake.hardware.beeps, (Beeps{{32767, kForever}})) << "until Silence";
    EXPECT_EQ(lib().Silence(), 5);
    EXPECT_EQ(fake.hardware.beeps, (Beeps{{32767, kForever}, {32767, kForever}}));
    EXPECT_TRUE(fake.clock.sleeps.empty());
    EXPECT_EQ(fake.hardware.portWrites, Writes{}) << "no port is touched";
}

TEST_F(Machine, SoundsByThePorts) {
    struct Row {
        std::int32_t frequency;
        std::uint8_t low, high;
    };
    // 1188685 div 37 = 32126 = 0x7D7E, div 440 = 2701 = 0xA8D, div 1000 = 1188 = 0x4A4, div 32767 = 36
    const Row rows[] = {{0, 0x7E, 0x7D}, {440, 0x8D, 0x0A}, {1000, 0xA4, 0x04}, {32767, 36, 0}, {99999, 36, 0}};
    for (auto id : {platform::kWindows95Id, platform::kWin32sId, platform::kUnknownId}) {
        run(id);
        for (auto [frequency, low, high] : rows) {
            fake.hardware.portWrites.clear();
            fake.hardware.ports = {{0x61, 0x34}};
            Writes on{{0x43, 0xB6}, {0x42, low}, {0x42, high}, {0x61, 0x37}};
            lib().Noise(frequency);
            EXPECT_EQ(fake.hardware.portWrites, on) << frequency;
            EXPECT_EQ(lib().Silence(), 0x34) << frequency;
            on.push_back({0x61, 0x34});
            EXPECT_EQ(fake.hardware.portWrites, on) << frequency;
        }
        fake.clock.sleeps.clear();
        fake.hardware.ports = {{0x61, 0xFF}};
        EXPECT_EQ(lib().Tone(440, 18), 0xFC);
        EXPECT_EQ(fake.clock.sleeps, std::vector{990u});
        EXPECT_EQ(lib().Silence(), 0xFC) << "stays silent";
    }
    EXPECT_EQ(fake.hardware.beeps, Beeps{});
}

TEST_F(Machine, SystemIsAskedForOnce) {
    run(platform::kWindows95Id);
    lib().Silence();
    fake.process.id = platform::kWindowsNtId;
    lib().Silence();
    EXPECT_EQ(fake.hardware.beeps, Beeps{});
    EXPECT_EQ(fake.hardware.portWrites.size(), 2u);
}

}  // namespace
}  // namespace vx::test
