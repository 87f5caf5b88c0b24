#include "cli/lines.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "cli/errors.h"

namespace vx::cli {

void forEachLine(int descriptor, const std::function<void(std::string_view)>& line, const std::function<void()>& idle) {
    char chunk[1 << 16];
    std::string begun;  // a line whose end has not come yet
    for (;;) {
        idle();
        ssize_t got = read(descriptor, chunk, sizeof chunk);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) throw SystemError(std::string("cannot read standard input: ") + std::strerror(errno));
        if (got == 0) break;
        std::string_view rest(chunk, static_cast<std::size_t>(got));
        for (std::size_t end; (end = rest.find('\n')) != rest.npos; rest.remove_prefix(end + 1)) {
            if (begun.empty()) {
                line(rest.substr(0, end));
            } else {
                line(begun.append(rest, 0, end));
                begun.clear();
            }
        }
        begun += rest;
    }
    if (!begun.empty()) line(begun);
    idle();
}

}  // namespace vx::cli
