// This process's own command line, environment and machine.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>

#include "tests/support/child.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

std::string arg(std::int32_t n) { return lib().Arg(n, Dest(1 << 18)); }
std::string variable(const std::string& name) { return lib().GetEnv(name.c_str(), Dest(1 << 18)); }

// Exit code 0 if the library gives the arguments that the C runtime gives, behind the option and the role; else the
// number of the first wrong one.
int compareArguments(const Arguments& arguments) {
    std::int32_t n = 2;
    for (const std::string& argument : arguments) {
        if (arg(++n) != argument) return n;
    }
    auto counted = std::find(arguments.begin(), arguments.end(), "") - arguments.begin() + 2;
    return arg(n + 1).empty() && lib().ArgCount() == counted && arg(1) == "--role" ? 0 : 100;
}
const Role comparer("compare-arguments", compareArguments);

TEST(CommandLine, OfAProcess) {
    for (const Arguments& line : {Arguments{}, Arguments{"one", "two words", "", "C:\\DIR\\FILE"}, Arguments{"", "b"},
                                  Arguments{" ", "\t", " a "}, Arguments{std::string(20000, 'x'), "y"}})
        EXPECT_EQ(Child("compare-arguments", line).wait(), 0) << line.size();
}

TEST(CommandLine, Program) {
    std::string program = arg(0);
    EXPECT_EQ(program, lib().Program(Dest(261)));
    EXPECT_EQ(program.find(":\\"), 1u) << program;
    EXPECT_EQ(program.find('/'), program.npos) << program;
#if !defined(_WIN32)
    std::replace(program.begin(), program.end(), '\\', '/');
    program.erase(0, 2);
#endif
    EXPECT_TRUE(std::filesystem::is_regular_file(program)) << program;
}

TEST(Environment, OfThisProcess) {
    std::set<std::string> names;
    std::int32_t count = lib().EnvCount();
    for (std::int32_t n = 1; n <= count + 1; ++n) {
        std::string entry = lib().Env(n, Dest(1 << 18));
        ASSERT_EQ(entry.empty(), n > count) << n;
        // The first of equal names counts; a system's own may begin with an equals sign.
        std::size_t end = entry.find('=', 1);
        if (end == entry.npos || !names.insert(entry.substr(0, end)).second) continue;
        EXPECT_EQ(variable(entry.substr(0, end)), entry.substr(end + 1)) << entry;
    }
    EXPECT_GT(names.size(), 0u);
}

#if !defined(_WIN32)
TEST(Environment, LetterCaseOfNames) {
    setenv("Vexlor_Tried", "mixed", 1);
    EXPECT_EQ(variable("VEXLOR_TRIED"), "mixed");
    setenv("VEXLOR_TRIED", "=upper", 1);
    EXPECT_EQ(variable("VEXLOR_TRIED"), "=upper");
    EXPECT_EQ(variable("Vexlor_Tried"), "mixed");
    unsetenv("Vexlor_Tried");
    EXPECT_EQ(variable("vexlor_tried"), "=upper");
    EXPECT_EQ(variable("VEXLOR_TRIE") + variable("VEXLOR_TRIED=") /* an equals sign is in no name */, "");
    unsetenv("VEXLOR_TRIED");
}
#endif

TEST(ThisMachine, Answers) {
#if defined(_WIN32)
    EXPECT_GE(lib().WinVersion(), 400);
#else
    EXPECT_EQ(lib().WinVersion(), 400);
    EXPECT_EQ(lib().Silence(), 0) << "there is no speaker to ask";
    EXPECT_EQ(lib().Numfloppy(), 0);
    EXPECT_EQ(lib().DriveType(0), -1);
    EXPECT_LE(static_cast<std::uint32_t>(lib().NumFixed()), 8u);
#endif
    EXPECT_GE(lib().ExtMem(0), lib().ExtMem(1));
    EXPECT_GT(lib().ExtMem(1), 1024u);
    EXPECT_LE(static_cast<std::uint32_t>(lib().CpuType() - 5), 10u);
    EXPECT_LE(static_cast<std::uint32_t>(lib().TimerTick()), 18u);
}

}  // namespace
}  // namespace vx::test
