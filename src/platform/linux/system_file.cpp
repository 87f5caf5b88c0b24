#include "platform/linux/system_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <new>

namespace vx::platform {
namespace {

std::string contentsOf(int descriptor) try {
    std::string contents;
    char piece[4096];
    for (;;) {
        ssize_t count = ::read(descriptor, piece, sizeof piece);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return contents;
        contents.append(piece, static_cast<std::size_t>(count));
    }
} catch (const std::bad_alloc&) {
    return {};
}

}  // namespace

std::string systemFile(const char* name) noexcept {
    int descriptor = ::open(name, O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return {};
    std::string contents = contentsOf(descriptor);
    ::close(descriptor);
    return contents;
}

}  // namespace vx::platform
