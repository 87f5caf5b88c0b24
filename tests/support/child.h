// Other processes: this test program once more, in a role of its own.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vx::test {

using Arguments = std::vector<std::string>;

// Where this program lies.
std::string programPath();

// What a child does instead of the tests; returns its exit code. The library is loaded. Defined as a global object:
//     const Role appender("append", [](const Arguments& arguments) { ...; return 0; });
class Role {
 public:
    using Action = int (*)(const Arguments&);
    Role(const char* name, Action action);
};

// The exit code, if the program was started in a role.
std::optional<int> playRole(int argc, char** argv);

// A child process. It has ended when this has been destroyed.
class Child {
 public:
    Child(const std::string& role, const Arguments& arguments);
    ~Child();
    Child(Child&& other) noexcept;
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    // Waits for the end; the exit code, -1 if the child was killed or could not be started.
    int wait();

    // Ends the child at once, wherever it is.
    void kill();

 private:
    std::intptr_t process_ = 0;  // 0 when there is none any more
};

}  // namespace vx::test
