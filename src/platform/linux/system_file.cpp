#include "platform/linux/system_file.h"

#include <new>

#include "platform/linux/descriptor.h"

namespace vx::platform {

// Such files have no size that could be asked for beforehand.
std::string systemFile(const char* name) noexcept try {
    Descriptor file(::open(name, O_RDONLY | O_CLOEXEC));
    std::string contents;
    char piece[4096];
    while (file) {
        ssize_t count = uninterrupted([&] { return ::read(file.get(), piece, sizeof piece); });
        if (count <= 0) break;
        contents.append(piece, static_cast<std::size_t>(count));
    }
    return contents;
} catch (const std::bad_alloc&) {
    return {};
}

}  // namespace vx::platform
