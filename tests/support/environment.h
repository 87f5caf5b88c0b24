// Other locales and time zones for tests.
#pragma once

#if !defined(_WIN32)
#include <gtest/gtest.h>
#include <locale.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

namespace vx::test {

// The library looks at the environment's locale once, so tests for another are run by another process: those of a name
// pattern, with variables set ("LC_ALL=C LANG=C"). What it said if one failed.
inline std::string rerun(const std::string& variables, const std::string& filter) {
    std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    std::string command = "env -u LC_ALL " + variables + " '" + program + "' --gtest_filter='" + filter + "' 2>&1";
    std::string said;
    std::FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return "cannot run " + command;
    std::array<char, 4096> part;
    while (std::size_t size = std::fread(part.data(), 1, part.size(), pipe)) said.append(part.data(), size);
    return pclose(pipe) == 0 && said.find("[  PASSED  ] 0 ") == said.npos ? "" : command + "\n" + said;
}

// A locale ("ru_RU") in UTF-8: made for this run if the system can, else the installed one if there is one.
class OtherLocale {
 public:
    explicit OtherLocale(const std::string& name)
        : name_(name + ".UTF-8"),
          folder_(std::filesystem::temp_directory_path() / ("vexlor-locale-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(folder_);
        std::string target = (folder_ / name_).string();
        std::string command = "localedef --no-archive -i '" + name + "' -f UTF-8 '" + target + "' >/dev/null 2>&1";
        made_ = std::system(command.c_str()) == 0;
    }
    ~OtherLocale() { std::filesystem::remove_all(folder_); }
    OtherLocale(const OtherLocale&) = delete;
    OtherLocale& operator=(const OtherLocale&) = delete;

    // The variables that select it; empty if there is no such locale.
    std::string variables() const {
        // The C library loses a copy of LOCPATH itself, which is no leak of ours.
        if (made_) return "ASAN_OPTIONS=detect_leaks=0 LOCPATH='" + folder_.string() + "' LC_ALL=" + name_;
        locale_t installed = newlocale(LC_ALL_MASK, name_.c_str(), nullptr);
        if (!installed) return "";
        freelocale(installed);
        return "LC_ALL=" + name_;
    }

 private:
    std::string name_;
    std::filesystem::path folder_;
    bool made_ = false;
};

// An environment variable as it is for a while, null for none.
class SetVariable {
 public:
    SetVariable(const char* name, const char* value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        value ? ::setenv(name, value, 1) : ::unsetenv(name);
    }
    ~SetVariable() { before_ ? ::setenv(name_, before_->c_str(), 1) : ::unsetenv(name_); }
    SetVariable(const SetVariable&) = delete;
    SetVariable& operator=(const SetVariable&) = delete;

 private:
    const char* name_;
    std::optional<std::string> before_;
};

// Puts the process into a time zone until it goes.
class InZone : SetVariable {
 public:
    explicit InZone(const char* zone) : SetVariable("TZ", zone) {}
};

// Russian: its months have another form within a date, and its decimals a comma.
inline void rerunInSecondLocale(const std::string& filter) {
    OtherLocale other("ru_RU");
    if (other.variables().empty()) GTEST_SKIP() << "no Russian locale is installed, and it cannot be made";
    EXPECT_EQ(rerun(other.variables(), filter), "");
}

}  // namespace vx::test
#endif
