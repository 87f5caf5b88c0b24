// Open files of Linux.
#include "platform/linux/last_error.h"
#include "platform/platform.h"

namespace vx::platform {
namespace {

class LinuxFiles final : public Files {
 public:
    std::int32_t open(const char*, std::uint32_t) override { return failed(-1, kNotSupported); }
    std::int32_t create(const char*, std::uint32_t) override { return failed(-1, kNotSupported); }
    bool close(std::int32_t) override { return failed(false, kInvalidHandle); }
    std::int32_t read(std::int32_t, void*, std::uint32_t) override { return failed(-1, kInvalidHandle); }
    std::int32_t write(std::int32_t, const void*, std::uint32_t) override { return failed(-1, kInvalidHandle); }
    std::int32_t seek(std::int32_t, std::int32_t, std::int32_t) override { return failed(-1, kInvalidHandle); }
    std::int32_t readAt(std::int32_t, std::int64_t, void*, std::uint32_t) override {
        return failed(-1, kInvalidHandle);
    }
    std::int32_t writeAt(std::int32_t, std::int64_t, const void*, std::uint32_t) override {
        return failed(-1, kInvalidHandle);
    }
    std::int64_t size(std::int32_t) override { return failed(-1, kInvalidHandle); }
    bool truncate(std::int32_t) override { return failed(false, kInvalidHandle); }
    bool flush(std::int32_t) override { return failed(false, kInvalidHandle); }
    bool lock(std::int32_t, std::uint32_t, std::uint32_t) override { return failed(false, kInvalidHandle); }
    bool unlock(std::int32_t, std::uint32_t, std::uint32_t) override { return failed(false, kInvalidHandle); }
    bool information(std::int32_t, FileInformation&) override { return failed(false, kInvalidHandle); }
    bool setTimes(std::int32_t, const FileTimes&) override { return failed(false, kInvalidHandle); }
};

LinuxFiles files;

}  // namespace

Files& systemFiles() { return files; }

}  // namespace vx::platform
