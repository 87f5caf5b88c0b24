// What ends the program early, by exit code.
#pragma once

#include <stdexcept>

namespace vx::cli {

enum ExitCode { kDone = 0, kNoLibrary = 1, kUsage = 2 };

// The command line cannot be understood or carried out as it stands.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The library or one of its functions is not there, or the output cannot be written.
struct SystemError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace vx::cli
