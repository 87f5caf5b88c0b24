// This process's own command line, environment and machine.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>

#include "tests/support/child.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

constexpr std::size_t kRoom = 1 << 18;

std::string arg(std::int32_t n) {
    Dest dest(kRoom);
    return lib().Arg(n, dest);
}

// The arguments in front of a role's own: the option and the role.
constexpr std::int32_t kBefore = 2;

// Exit code 0 if the library gives the arguments that the C runtime gives, else the number of the first wrong one.
int compareArguments(const Arguments& arguments) {
    std::int32_t n = kBefore;
    std::int32_t counted = kBefore;
    bool counting = true;
    for (const std::string& argument : arguments) {
        if (arg(++n) != argument) return n;
        counting = counting && !argument.empty();
        if (counting) ++counted;
    }
    bool atEnd = arg(n + 1).empty() && lib().ArgCount() == counted && arg(1) == "--role";
    return atEnd ? 0 : 100;
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
    ASSERT_GT(program.size(), 3u);
    EXPECT_EQ(program.substr(1, 2), ":\\") << program;
    EXPECT_EQ(program.find('/'), program.npos) << program;
#if !defined(_WIN32)
    std::replace(program.begin(), program.end(), '\\', '/');
    program.erase(0, 2);
#endif
    EXPECT_TRUE(std::filesystem::is_regular_file(program)) << program;
}

TEST(Environment, OfThisProcess) {
    std::int32_t count = lib().EnvCount();
    std::map<std::string, std::string> values;
    for (std::int32_t n = 1; n <= count; ++n) {
        Dest dest(kRoom);
        std::string entry = lib().Env(n, dest);
        ASSERT_FALSE(entry.empty()) << n;
        // The first of equal names counts; a system's own may begin with an equals sign.
        std::size_t end = entry.find('=', 1);
        if (end != entry.npos) values.emplace(entry.substr(0, end), entry.substr(end + 1));
    }
    Dest behind(kRoom);
    EXPECT_EQ(lib().StrEnv(count + 1, behind), 0u);
    EXPECT_GT(values.size(), 0u);
    for (const auto& [name, value] : values) {
        Dest dest(value.size() + 1);
        EXPECT_EQ(lib().GetEnv(name.c_str(), dest), dest.get());
        EXPECT_EQ(dest.text(), value) << name;
    }
}

#if !defined(_WIN32)
TEST(Environment, LetterCaseOfNames) {
    auto value = [](const char* name) {
        Dest dest(100);
        return std::string(lib().GetEnv(name, dest));
    };
    setenv("Vexlor_Tried", "mixed", 1);
    EXPECT_EQ(value("VEXLOR_TRIED"), "mixed");
    setenv("VEXLOR_TRIED", "=upper", 1);
    EXPECT_EQ(value("VEXLOR_TRIED"), "=upper");
    EXPECT_EQ(value("Vexlor_Tried"), "mixed");
    unsetenv("Vexlor_Tried");
    EXPECT_EQ(value("vexlor_tried"), "=upper");
    EXPECT_EQ(value("VEXLOR_TRIE"), "");
    EXPECT_EQ(value("VEXLOR_TRIED="), "") << "an equals sign is in no name";
    unsetenv("VEXLOR_TRIED");
    EXPECT_EQ(value("VEXLOR_TRIED"), "");
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
