#include "platform/linux/helper_program.h"

#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>

#include <cstdlib>

#include "platform/linux/descriptor.h"

extern char** environ;

namespace vx::platform {
namespace {

constexpr std::size_t kMostArguments = 7;

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value && *value;
}

}  // namespace

std::optional<int> runHelper(std::initializer_list<const char*> arguments, std::string_view input) {
    // A file in memory rather than a pipe: a helper that does not read cannot raise SIGPIPE in the host.
    Descriptor in(::memfd_create("input", MFD_CLOEXEC));
    if (!in || !writeAll(in.get(), input) || ::lseek(in.get(), 0, SEEK_SET) != 0) return std::nullopt;

    if (arguments.size() == 0 || arguments.size() > kMostArguments) return std::nullopt;
    char* argv[kMostArguments + 1] = {};
    std::size_t count = 0;
    for (const char* argument : arguments) argv[count++] = const_cast<char*>(argument);

    posix_spawn_file_actions_t actions;
    if (posix_spawn_file_actions_init(&actions) != 0) return std::nullopt;
    posix_spawn_file_actions_adddup2(&actions, in.get(), STDIN_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    int error = posix_spawnp(&child, argv[0], &actions, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) return std::nullopt;

    int status = 0;
    // Where the host reaps its children itself, the helper has run, and its status is lost.
    if (uninterrupted([&] { return ::waitpid(child, &status, 0); }) < 0) return 0;
    return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

bool hasDisplay() { return isSet("WAYLAND_DISPLAY") || isSet("DISPLAY"); }

}  // namespace vx::platform
