#include "platform/linux/helper_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

extern char** environ;

namespace vx::platform {
namespace {

class Descriptor {
 public:
    explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
    ~Descriptor() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return descriptor_; }

 private:
    int descriptor_;
};

bool writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno != EINTR) return false;
        if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value && *value;
}

}  // namespace

std::optional<int> runHelper(const std::vector<const char*>& arguments, std::string_view input) {
    // A file in memory rather than a pipe: a helper that does not read cannot raise SIGPIPE in the host.
    Descriptor in(::memfd_create("input", MFD_CLOEXEC));
    if (in.get() < 0 || !writeAll(in.get(), input) || ::lseek(in.get(), 0, SEEK_SET) != 0) return std::nullopt;

    std::vector<char*> argv;
    for (const char* argument : arguments) argv.push_back(const_cast<char*>(argument));
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    if (posix_spawn_file_actions_init(&actions) != 0) return std::nullopt;
    posix_spawn_file_actions_adddup2(&actions, in.get(), STDIN_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    int error = posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) return std::nullopt;

    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) return 0;  // the host reaps its children itself: the helper has run, its status is lost
    }
    return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

bool hasDisplay() { return isSet("WAYLAND_DISPLAY") || isSet("DISPLAY"); }

}  // namespace vx::platform
