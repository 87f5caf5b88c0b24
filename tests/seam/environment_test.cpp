// What rows cannot say of a made-up machine: every millisecond, memories of more than 4 GB, random command lines.
#include <gtest/gtest.h>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

struct MadeUpMachine : testing::Test {
    lab::FakePlatform fake{door()};
};

TEST_F(MadeUpMachine, TimerTicks) {
    for (std::uint16_t& at = fake.clock.now.milliseconds = 0; at < 1000; ++at)
        ASSERT_EQ(lib().TimerTick(), at <= 55 ? 0 : at / 55) << at;  // kept: 55 ms is no tick yet
}

TEST_F(MadeUpMachine, LargeMemories) {
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

// Takes one argument off the front of a command line, as a reader with a pencil would.
std::string takeArgument(std::string& line) {
    std::string taken;
    bool quoted = line.starts_with('"');
    std::size_t at = quoted ? 1 : 0;
    for (; at < line.size() && (quoted ? line[at] != '"' : line[at] != ' ' && line[at] != '\t'); ++at)
        taken += line[at];
    if (quoted && at < line.size()) ++at;
    while (at < line.size() && (line[at] == ' ' || line[at] == '\t')) ++at;
    line.erase(0, at);
    return taken;
}

TEST_F(MadeUpMachine, RandomCommandLines) {
    RandomTexts random(91);
    for (int i = 0; i < 3000; ++i) {
        std::string rest = fake.process.command = random.text("ab \t\"\"\\'", 30);
        SCOPED_TRACE(fake.process.command);
        Dest dest(100);
        takeArgument(rest);
        ASSERT_EQ(lib().Command(dest), rest);
        std::string prefix = random.text("ab\"", 2);
        std::vector<std::string> counted;  // up to the first empty one
        for (std::size_t n = 1; n <= 20; ++n) {
            std::string argument = takeArgument(rest);
            ASSERT_EQ(lib().Arg(static_cast<std::int32_t>(n), dest), argument) << n;
            if (!argument.empty() && counted.size() == n - 1) counted.push_back(argument);
        }
        ASSERT_EQ(lib().ArgCount(), counted.size());
        auto found = std::ranges::find_if(counted, [&](const auto& argument) { return argument.starts_with(prefix); });
        ASSERT_EQ(lib().Param(prefix.c_str(), dest), found == counted.end() ? "" : found->substr(prefix.size()));
    }
}

}  // namespace
}  // namespace vx::test
