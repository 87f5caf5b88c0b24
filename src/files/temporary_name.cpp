// Names for temporary files: patterns whose wildcards are filled with digits that hardly come twice, alone or tried
// until a file of that name could be made.
#include <atomic>
#include <chrono>

#include "entries/path.h"
#include "files/handles.h"
#include "files/name_pattern.h"
#include "files/path.h"
#include "frame/text.h"

namespace vx {
namespace {

// The numbers behind temporary names, of one sequence for all threads. Where it starts differs from process to process,
// so that two which make names of one template at a time do not meet in all their tries.
class NameNumbers {
 public:
    std::uint32_t next() {
        static const std::uint64_t start = somewhere();
        std::uint64_t step = count_.fetch_add(1, std::memory_order_relaxed) + std::uint64_t{1};
        return static_cast<std::uint32_t>(mix(start + step * 0x9E3779B97F4A7C15) >> 33);
    }

 private:
    // As SplitMix64 does: every bit of the result depends on every bit given.
    static std::uint64_t mix(std::uint64_t bits) {
        bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9;
        bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EB;
        return bits ^ (bits >> 31);
    }

    // The time to the finest step that there is, and where the system has put this process's stack and code.
    static std::uint64_t somewhere() {
        char here;
        std::uint64_t bits = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
        bits = mix(bits) ^ static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
        bits = mix(bits) ^ reinterpret_cast<std::uintptr_t>(&here);
        return mix(bits) ^ reinterpret_cast<std::uintptr_t>(&emptyText);
    }

    std::atomic<std::uint32_t> count_{0};
};

NameNumbers nameNumbers;

constexpr std::size_t kRandomName = 8;  // characters before the dot; three follow it

// Digits: twelve numbers, each below its place, of which the ones below 12 and 11 may take two.
class RandomName {
 public:
    RandomName() {
        char* end = digits_;
        for (std::uint32_t below = 12; below > 0; --below) {
            std::uint32_t number = nameNumbers.next() % below;
            if (number >= 10) *end++ = '1';
            *end++ = static_cast<char>('0' + number % 10);
        }
        digits_[kRandomName] = '.';
    }

    std::string_view name() const { return {digits_, kRandomName}; }
    std::string_view extension() const { return {digits_ + kRandomName, 4}; }

 private:
    char digits_[14];
};

std::size_t makeTemporaryName(const char* pattern, char* to) {
    PathView parts = viewPath(view(pattern));
    RandomName random;
    char name[kPieceSize];
    char extension[kPieceSize];
    std::size_t nameSize = fillPattern(parts.name, random.name(), name);
    std::size_t extensionSize = fillPattern(parts.extension, random.extension(), extension);
    return joinPath({parts.drive, parts.directory, {name, nameSize}, {extension, extensionSize}}, to);
}

constexpr int kMostTries = 100;

// Any existing name is refused, also one that FCreatef would not see; the handle is closed at detach like its.
std::int32_t createNew(const char* name, std::uint32_t attributes) {
    if (platform::tree().attributes(name) != platform::kNoAttributes) return kNoHandle;
    return createRecorded(name, attributes);
}

}  // namespace
}  // namespace vx

using namespace vx;

char* VX_CALL vx_FTempName(const char* pattern, char* dest) noexcept {
    if (!dest) return nullptr;
    char path[kJoinedSize];
    return store(dest, {path, makeTemporaryName(pattern, path)});
}

int32_t VX_CALL vx_FUnique(const char* pattern, uint32_t attribute, char* dest) noexcept {
    if (!dest) return kNoHandle;
    char path[kJoinedSize];
    for (int tries = 0; tries < kMostTries; ++tries) {
        std::size_t size = makeTemporaryName(pattern, path);
        std::int32_t handle = createNew(path, attribute);
        if (handle == kNoHandle) continue;
        store(dest, {path, size});
        return handle;
    }
    *dest = '\0';
    return kNoHandle;
}
