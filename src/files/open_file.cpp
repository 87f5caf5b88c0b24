#include "files/open_file.h"

namespace vx {
namespace {

// Nothing ends behind the last position that handles can have.
bool reaches(std::int64_t position, std::size_t count) {
    return position >= 0 && position <= platform::kLastPosition &&
           count <= static_cast<std::uint64_t>(platform::kLastPosition - position);
}

}  // namespace

bool OpenFile::close() {
    if (!isOpen()) return true;
    platform::Process& process = platform::process();
    std::uint32_t before = process.lastError();
    std::int32_t handle = std::exchange(handle_, kNoHandle);
    bool closed = recorded_ ? closeRecorded(handle) : platform::files().close(handle);
    if (closed) process.setLastError(before);
    return closed;
}

std::uint32_t OpenFile::read(std::int64_t position, void* to, std::size_t count) const {
    if (position < 0 || position >= platform::kLastPosition || count == 0) return 0;
    if (!reaches(position, count)) count = static_cast<std::size_t>(platform::kLastPosition - position);
    std::int32_t done = platform::files().readAt(handle_, position, to, static_cast<std::uint32_t>(count));
    return done > 0 ? static_cast<std::uint32_t>(done) : 0;
}

bool OpenFile::write(std::int64_t position, const void* from, std::size_t count) const {
    if (!reaches(position, count)) return false;
    std::int32_t done = platform::files().writeAt(handle_, position, from, static_cast<std::uint32_t>(count));
    return done >= 0 && static_cast<std::size_t>(done) == count;
}

bool OpenFile::cutBack(std::int64_t end, std::int64_t most) const {
    KeptError cause;
    std::int64_t now = size();
    if (now < 0) return false;
    if (now <= end || now > most) return true;
    return platform::files().seek(handle_, static_cast<std::int32_t>(end), platform::kFromStart) >= 0 &&
           platform::files().truncate(handle_);
}

}  // namespace vx
