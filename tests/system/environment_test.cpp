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

std::string arg(std::int32_t n) {
    Dest dest(1 << 18);
    return lib().Arg(n, dest);
}

std::string variable(const std::string& name) {
    Dest dest(1 << 18);
    return lib().GetEnv(name.c_str(), dest);
}

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
    const Arguments lines[] = {{},
                               {"one", "two words", "three"},
                               {"", "behind an empty one"},
                               {"a", "", "b"},
                               {" ", "\t", " a "},
                               {"/Oout.txt", "/V", "C:\\DIR\\FILE"},
                               {std::string(20000, 'x'), "y"}};
    for (const Arguments& line : lines) {
        EXPECT_EQ(Child("compare-arguments", line).wait(), 0) << line.size() << ": " << (line.empty() ? "" : line[0]);
    }
}

TEST(CommandLine, Program) {
    Dest dest(261);
    std::string program = lib().Program(dest);
    EXPECT_EQ(arg(0), program);
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
        Dest dest(1 << 18);
        std::string entry = lib().Env(n, dest);
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
    EXPECT_EQ(variable("VEXLOR_TRIED"), "");
}
#endif

TEST(ThisMachine, Answers) {
#if defined(_WIN32)
    EXPECT_GE(lib().WinVersion(), 400);
#else
    EXPECT_EQ(lib().WinVersion(), 400);
    EXPECT_EQ(lib().Silence(), 0) << "there is no speaker to ask";
    std::int32_t disks = lib().NumFixed();
    EXPECT_TRUE(disks >= 0 && disks <= 8) << disks;
#endif
    EXPECT_GE(lib().ExtMem(0), lib().ExtMem(1));
    EXPECT_GT(lib().ExtMem(1), 1024u);
    std::int32_t family = lib().CpuType();
    EXPECT_TRUE(family >= 5 && family <= 15) << family;
    std::int32_t tick = lib().TimerTick();
    EXPECT_TRUE(tick >= 0 && tick <= 18) << tick;
}

}  // namespace
}  // namespace vx::test
