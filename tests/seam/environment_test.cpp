// Command lines of made-up host programs, against a reader with a pencil.
#include <gtest/gtest.h>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

// Takes one argument off the front of a command line.
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

TEST(HostProgram, RandomCommandLines) {
    lab::FakePlatform fake{door()};
    RandomTexts random(91);
    for (int i = 0; i < 3000; ++i) {
        std::string rest = fake.process.command = random.text("ab \t\"\"\\'", 30);
        SCOPED_TRACE(fake.process.command);
        Dest dest(100);
        takeArgument(rest);
        ASSERT_EQ(lib().Command(dest), rest);
        std::string prefix = random.text("ab\"", 2), argument, expected;
        std::int32_t count = 0;
        bool counting = true, found = false;
        for (std::int32_t n = 1; n <= 20; ++n) {
            argument = takeArgument(rest);
            ASSERT_EQ(lib().Arg(n, dest), argument) << n;
            counting = counting && !argument.empty();
            count += counting;
            if (!counting || found || !argument.starts_with(prefix)) continue;
            expected = argument.substr(prefix.size());
            found = true;
        }
        ASSERT_EQ(lib().ArgCount(), count);
        ASSERT_EQ(lib().Param(prefix.c_str(), dest), expected) << prefix;
    }
}

}  // namespace
}  // namespace vx::test
