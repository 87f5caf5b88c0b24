// Command lines and environments of made-up host programs.
#include <gtest/gtest.h>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

constexpr std::size_t kRoom = 4096;

class HostProgram : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};

    std::string arg(std::int32_t n) {
        Dest dest(kRoom);
        EXPECT_EQ(lib().Arg(n, dest), dest.get());
        EXPECT_EQ(lib().strargv(n, dest), dest.text().size());
        return dest.text();
    }
    std::string param(const char* prefix) {
        Dest dest(kRoom);
        EXPECT_EQ(lib().Param(prefix, dest), dest.get());
        EXPECT_EQ(lib().strargp(prefix, dest), dest.text().size());
        return dest.text();
    }
    std::string tail() {
        Dest dest(kRoom);
        EXPECT_EQ(lib().Command(dest), dest.get());
        EXPECT_EQ(lib().StrCommand(dest), dest.text().size());
        return dest.text();
    }
    std::string env(std::int32_t n) {
        Dest dest(kRoom);
        EXPECT_EQ(lib().Env(n, dest), dest.get());
        EXPECT_EQ(lib().StrEnv(n, dest), dest.text().size());
        return dest.text();
    }
    std::string variable(const char* name) {
        Dest dest(kRoom);
        EXPECT_EQ(lib().GetEnv(name, dest), dest.get());
        EXPECT_EQ(lib().StrGetEnv(name, dest), dest.text().size());
        return dest.text();
    }
};

TEST_F(HostProgram, Arguments) {
    struct Row {
        const char* command;
        const char* tail;
        std::vector<std::string> arguments;  // 1, 2, ... and one behind the last
        std::int32_t count;
    };
    const Row rows[] = {
        {"C:\\a.exe  one \"two words\" three", "one \"two words\" three", {"one", "two words", "three", ""}, 3},
        {"\"C:\\my dir\\a.exe\" one", "one", {"one", ""}, 1},
        {"\"C:\\my dir\\a.exe\"one", "one", {"one", ""}, 1},
        {"\"C:\\my dir\\a.exe one", "", {"", ""}, 0},
        {"a.exe", "", {"", ""}, 0},
        {"", "", {"", ""}, 0},
        {" one two", "one two", {"one", "two", ""}, 2},
        {"a.exe\t \tone\t\ttwo \t", "one\t\ttwo \t", {"one", "two", ""}, 2},
        {"a.exe a \"\" b", "a \"\" b", {"a", "", "b", ""}, 1},
        {"a.exe \"\" b", "\"\" b", {"", "b", ""}, 0},
        {"a.exe \"one\"two\"three\" x", "\"one\"two\"three\" x", {"one", "two\"three\"", "x", ""}, 3},
        {"a.exe \"one\"\"two\"", "\"one\"\"two\"", {"one", "two", ""}, 2},
        {"a.exe x \"open to the end", "x \"open to the end", {"x", "open to the end", ""}, 2},
        {"a.exe x \"", "x \"", {"x", "", ""}, 1},
        {"a.exe one\"two words\"", "one\"two words\"", {"one\"two", "words\"", ""}, 2},
        {"a.exe \"back\\\" slash", "\"back\\\" slash", {"back\\", "slash", ""}, 2},
        {"a.exe 'one two'", "'one two'", {"'one", "two'", ""}, 2},
    };
    for (const auto& [command, tail, arguments, count] : rows) {
        fake.process.command = command;
        EXPECT_EQ(this->tail(), tail) << command;
        EXPECT_EQ(lib().ArgCount(), count) << command;
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            EXPECT_EQ(arg(static_cast<std::int32_t>(i + 1)), arguments[i]) << command << ", argument " << i + 1;
        }
        for (std::int32_t n : {-1, INT32_MIN, INT32_MAX}) EXPECT_EQ(arg(n), "") << command;
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

TEST_F(HostProgram, RandomCommandLines) {
    RandomTexts random(91);
    for (int i = 0; i < 3000; ++i) {
        std::string rest = fake.process.command = random.text("ab \t\"\"", 30);
        takeArgument(rest);
        ASSERT_EQ(tail(), rest) << fake.process.command;
        std::string prefix = random.text("ab\"", 2), expected;
        bool counting = true, found = false;
        std::int32_t count = 0;
        for (std::int32_t n = 1; n <= 8; ++n) {
            std::string argument = takeArgument(rest);
            ASSERT_EQ(arg(n), argument) << fake.process.command << ", argument " << n;
            counting = counting && !argument.empty();
            if (!counting) continue;
            ++count;
            if (!found && argument.starts_with(prefix)) expected = argument.substr(prefix.size());
            found = found || argument.starts_with(prefix);
        }
        if (counting) continue;  // more arguments than were looked at
        ASSERT_EQ(lib().ArgCount(), count) << fake.process.command;
        ASSERT_EQ(param(prefix.c_str()), expected) << fake.process.command << ", prefix " << prefix;
    }
}

TEST_F(HostProgram, Parameters) {
    struct Row {
        const char* command;
        const char* prefix;
        const char* rest;
    };
    const Row rows[] = {
        {"a /Oout.txt /V", "/O", "out.txt"},
        {"a /Oout.txt /V", "/V", ""},
        {"a /Oout.txt /V", "/o", ""},
        {"a /Oout.txt /V", "", "/Oout.txt"},
        {"a /Oout.txt /V", nullptr, "/Oout.txt"},
        {"a /O /Oout", "/O", ""},
        {"a x \"/Oa b\"", "/O", "a b"},
        {"a x \"\" /Oout", "/O", ""},
        {"a /", "/O", ""},
        {"a", "", ""},
    };
    for (auto [command, prefix, rest] : rows) {
        fake.process.command = command;
        EXPECT_EQ(param(prefix), rest) << command << ", prefix " << (prefix ? prefix : "NULL");
    }
}

TEST_F(HostProgram, LongTextsAreWhole) {
    std::string longOne(3000, 'x');
    fake.process.command = "a.exe " + longOne + " \"" + longOne.substr(0, 900) + '"';
    EXPECT_EQ(tail(), fake.process.command.substr(6));
    EXPECT_EQ(arg(1), longOne);
    EXPECT_EQ(arg(2), longOne.substr(0, 900));
    EXPECT_EQ(param("xx"), longOne.substr(2));
    fake.process.variables = {"LONG=" + longOne};
    Dest exact(longOne.size() + 1);
    EXPECT_EQ(lib().GetEnv("LONG", exact), exact.get());
    EXPECT_EQ(exact.text(), longOne);
    for (std::size_t length : {259, 260, 261, 262}) {
        fake.process.variables = {"LONG=" + std::string(length, 'y')};
        EXPECT_EQ(variable("LONG").size(), length);
    }
}

TEST_F(HostProgram, ItsPath) {
    fake.process.path = "C:\\" + std::string(400, 'p');
    Dest exact(261);
    EXPECT_EQ(lib().Program(exact), exact.get());
    EXPECT_EQ(exact.text(), fake.process.path.substr(0, 260));
    EXPECT_EQ(lib().StrProgram(exact), 260u);
    fake.process.path = "C:\\a.exe";
    EXPECT_EQ(arg(0), "C:\\a.exe");
}

TEST_F(HostProgram, Environment) {
    fake.process.variables = {"=C:=C:\\", "A=1", "EMPTY=", "PATH=C:\\X;D:\\Y", "no equals sign"};
    EXPECT_EQ(lib().EnvCount(), 5);
    for (std::int32_t n = 1; n <= 5; ++n) EXPECT_EQ(env(n), fake.process.variables[static_cast<std::size_t>(n - 1)]);
    for (std::int32_t n : {0, -1, 6, 7, INT32_MIN, INT32_MAX}) EXPECT_EQ(env(n), "") << n;
    EXPECT_EQ(variable("PATH"), "C:\\X;D:\\Y");
    for (const char* name : {"EMPTY", "MISSING", "", "PAT"}) EXPECT_EQ(variable(name), "") << name;
    EXPECT_EQ(variable(nullptr), "");
    EXPECT_EQ(fake.process.copies, 0) << "given back";

    fake.process.variables.clear();
    EXPECT_EQ(lib().EnvCount(), 0);
    EXPECT_EQ(env(1), "");
    fake.process.variables = {"A=1"};
    fake.process.memoryLeft = false;
    EXPECT_EQ(lib().EnvCount(), 0);
    EXPECT_EQ(env(1), "");
}

TEST_F(HostProgram, NothingWithoutADestination) {
    EXPECT_EQ(lib().Command(nullptr), nullptr);
    EXPECT_EQ(lib().Program(nullptr), nullptr);
    EXPECT_EQ(lib().Arg(0, nullptr), nullptr);
    EXPECT_EQ(lib().Arg(1, nullptr), nullptr);
    EXPECT_EQ(lib().Param("", nullptr), nullptr);
    EXPECT_EQ(lib().GetEnv("COMSPEC", nullptr), nullptr);
    EXPECT_EQ(lib().Env(1, nullptr), nullptr);
    EXPECT_EQ(lib().StrGetEnv("COMSPEC", nullptr), 0u);
}

}  // namespace
}  // namespace vx::test
