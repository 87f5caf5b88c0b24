// Other locales and time zones for tests.
#pragma once

#if !defined(_WIN32)
#include <gtest/gtest.h>
#include <locale.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
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

// A Russian locale, whose months have another form within a date: made for this run if the system can, else the
// installed one if there is one.
class RussianLocale {
 public:
    RussianLocale() : folder_(std::filesystem::temp_directory_path() / ("vexlor-locale-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(folder_);
        std::string target = (folder_ / kName).string();
        std::string command = "localedef --no-archive -i ru_RU -f UTF-8 '" + target + "' >/dev/null 2>&1";
        made_ = std::system(command.c_str()) == 0;
    }
    ~RussianLocale() { std::filesystem::remove_all(folder_); }
    RussianLocale(const RussianLocale&) = delete;
    RussianLocale& operator=(const RussianLocale&) = delete;

    // The variables that select it; empty if there is no Russian locale.
    std::string variables() const {
        // The C library loses a copy of LOCPATH itself, which is no leak of ours.
        if (made_) return "ASAN_OPTIONS=detect_leaks=0 LOCPATH='" + folder_.string() + "' LC_ALL=" + kName;
        locale_t installed = newlocale(LC_ALL_MASK, kName, nullptr);
        if (!installed) return "";
        freelocale(installed);
        return std::string("LC_ALL=") + kName;
    }

 private:
    static constexpr const char* kName = "ru_RU.UTF-8";
    std::filesystem::path folder_;
    bool made_ = false;
};

// Puts the process into a time zone until it goes.
class InZone {
 public:
    explicit InZone(const char* zone) : given_(std::getenv("TZ") != nullptr), before_(given_ ? std::getenv("TZ") : "") {
        setenv("TZ", zone, 1);
    }
    ~InZone() { given_ ? setenv("TZ", before_.c_str(), 1) : unsetenv("TZ"); }
    InZone(const InZone&) = delete;
    InZone& operator=(const InZone&) = delete;

 private:
    bool given_;
    std::string before_;
};

inline void rerunInSecondLocale(const std::string& filter) {
    RussianLocale russian;
    if (russian.variables().empty()) GTEST_SKIP() << "no Russian locale is installed, and none can be made";
    EXPECT_EQ(rerun(russian.variables(), filter), "");
}

}  // namespace vx::test
#endif
