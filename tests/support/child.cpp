#include "tests/support/child.h"

#include <filesystem>
#include <map>
#include <utility>

#if defined(_WIN32)
#include <windows.h>
#else
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ;
#endif

namespace vx::test {
namespace {

constexpr char kOption[] = "--role";

std::map<std::string, Role::Action>& roles() {
    static std::map<std::string, Role::Action> all;
    return all;
}

}  // namespace

Role::Role(const char* name, Action action) { roles()[name] = action; }

std::optional<int> playRole(int argc, char** argv) {
    if (argc < 3 || std::string(argv[1]) != kOption) return {};
    auto role = roles().find(argv[2]);
    return role == roles().end() ? 2 : role->second(Arguments(argv + 3, argv + argc));
}

Child::Child(Child&& other) noexcept : process_(std::exchange(other.process_, 0)) {}

Child::~Child() {
    kill();
    wait();
}

#if defined(_WIN32)

std::string programPath() {
    char path[MAX_PATH];
    return std::string(path, GetModuleFileNameA(nullptr, path, sizeof path));
}

Child::Child(const std::string& role, const Arguments& arguments) {
    std::string program = programPath();
    std::string line = '"' + program + "\" " + kOption + " " + role;
    for (const std::string& argument : arguments) line += " \"" + argument + '"';
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    if (!CreateProcessA(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &made)) return;
    CloseHandle(made.hThread);
    process_ = reinterpret_cast<std::intptr_t>(made.hProcess);
}

int Child::wait() {
    if (!process_) return -1;
    HANDLE process = reinterpret_cast<HANDLE>(std::exchange(process_, 0));
    DWORD code = 0;
    WaitForSingleObject(process, INFINITE);
    GetExitCodeProcess(process, &code);
    CloseHandle(process);
    return static_cast<int>(code);
}

void Child::kill() {
    if (process_) TerminateProcess(reinterpret_cast<HANDLE>(process_), static_cast<UINT>(-1));
}

#else

std::string programPath() { return std::filesystem::read_symlink("/proc/self/exe").string(); }


Child::Child(const std::string& role, const Arguments& arguments) {
    std::vector<std::string> words{programPath(), kOption, role};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    pid_t process = 0;
    if (posix_spawn(&process, words[0].c_str(), nullptr, nullptr, pointers.data(), environ) == 0) process_ = process;
}

int Child::wait() {
    if (!process_) return -1;
    int status = 0;
    waitpid(static_cast<pid_t>(std::exchange(process_, 0)), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void Child::kill() {
    if (process_) ::kill(static_cast<pid_t>(process_), SIGKILL);
}

#endif

}  // namespace vx::test
