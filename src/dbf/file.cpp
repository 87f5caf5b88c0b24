#include "dbf/file.h"

#include <limits>

#include "files/handles.h"
#include "files/open_file.h"

namespace vx::dbf {
namespace {

// Nothing of a table ends behind the last position.
bool reaches(std::int64_t position, std::size_t count) {
    return position >= 0 && position <= platform::kLastPosition &&
           count <= static_cast<std::uint64_t>(platform::kLastPosition - position);
}

}  // namespace

File::~File() { close(); }

File File::open(const char* path, std::uint32_t mode) { return File(openRecorded(path, mode)); }

File File::create(const char* path) { return File(createRecorded(path, 0)); }

bool File::close() {
    bool done = !isOpen() || closeRecorded(handle_);
    handle_ = kNoHandle;
    return done;
}

std::uint32_t File::read(std::int64_t position, void* to, std::size_t count) const {
    if (position < 0 || position >= platform::kLastPosition || count == 0) return 0;
    if (!reaches(position, count)) count = static_cast<std::size_t>(platform::kLastPosition - position);
    std::int32_t done = platform::files().readAt(handle_, position, to, static_cast<std::uint32_t>(count));
    return done > 0 ? static_cast<std::uint32_t>(done) : 0;
}

bool File::write(std::int64_t position, const void* from, std::size_t count) const {
    if (!reaches(position, count)) return false;
    std::int32_t done = platform::files().writeAt(handle_, position, from, static_cast<std::uint32_t>(count));
    return done >= 0 && static_cast<std::size_t>(done) == count;
}

bool File::cutBack(std::int64_t end, std::int64_t most) const {
    KeptError cause;
    std::int64_t now = size();
    if (now < 0) return false;
    if (now <= end || now > most) return true;
    return platform::files().seek(handle_, static_cast<std::int32_t>(end), platform::kFromStart) >= 0 &&
           platform::files().truncate(handle_);
}

}  // namespace vx::dbf
