// The tree of names on Linux.
#include "platform/linux/last_error.h"
#include "platform/platform.h"

namespace vx::platform {
namespace {

class LinuxTree final : public Tree {
 public:
    std::uint32_t attributes(const char*) override { return failed(kNoAttributes, kNotSupported); }
    bool setAttributes(const char*, std::uint32_t) override { return failed(false, kNotSupported); }
    bool erase(const char*) override { return failed(false, kNotSupported); }
    bool move(const char*, const char*) override { return failed(false, kNotSupported); }
    bool createDirectory(const char*) override { return failed(false, kNotSupported); }
    bool removeDirectory(const char*) override { return failed(false, kNotSupported); }
    std::uint32_t fullPath(const char*, char*, std::uint32_t) override { return failed(0u, kNotSupported); }
    std::int32_t findFirst(const char*, FoundEntry&) override { return failed(-1, kNotSupported); }
    bool findNext(std::int32_t, FoundEntry&) override { return failed(false, kNotSupported); }
    bool findClose(std::int32_t) override { return failed(false, kNotSupported); }
};

LinuxTree tree;

}  // namespace

Tree& systemTree() { return tree; }

}  // namespace vx::platform
