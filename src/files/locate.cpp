// Texts found and counted in files, a block at a time.
//
// Of each block as many bytes are kept for the next one as may be the start of an occurrence. Letter case is brought to
// one form in the block as it arrives, so that the search itself is the one for exact texts; where nothing in the text
// has another case, not even that is done.
#include <algorithm>
#include <iterator>

#include "entries/lines.h"
#include "files/file_blocks.h"
#include "files/handles.h"
#include "frame/text.h"
#include "strings/case_map.h"
#include "strings/scan.h"

namespace vx {
namespace {

constexpr std::size_t kLongestText = 32767;
constexpr std::int32_t kNone = -2;

// What a case mode makes of a file's bytes: the system's mapping, or the library's own where the system has none.
class CaseMode {
 public:
    // A text whose bytes stand for themselves alone is searched as it is.
    CaseMode(std::int32_t mode, std::string_view text) : upper_(mode == 1), maps_(mode != 0) {
        if (!maps_) return;
        for (std::size_t c = 0; c < 256; ++c) table_[c] = static_cast<std::uint8_t>(c);
        char* bytes = reinterpret_cast<char*>(table_);
        if (systemMap(bytes, 256) != 256) std::memcpy(table_, upper_ ? library.upper : library.lower, 256);
        for (std::size_t c = 0x80; c < 256; ++c) pairs_ |= platform::locale().isLeadByte(static_cast<char>(c));
        maps_ = pairs_ || std::any_of(text.begin(), text.end(), [this](char c) { return isMapped(byteOf(c)); });
    }

    void apply(char* bytes, std::size_t size) const {
        if (!maps_) return;
        if (pairs_) {
            systemMap(bytes, static_cast<std::uint32_t>(size));
        } else {
            mapBytes(bytes, bytes, size, table_, upper_ ? kAsciiUpper : kAsciiLower);
        }
    }

 private:
    std::uint32_t systemMap(char* bytes, std::uint32_t count) const {
        return upper_ ? platform::locale().upperCase(bytes, count) : platform::locale().lowerCase(bytes, count);
    }

    // Whether another byte becomes this one, or this one another.
    bool isMapped(std::uint8_t c) const {
        return table_[c] != c || std::count(std::begin(table_), std::end(table_), c) != 1;
    }

    bool upper_;
    bool maps_;
    bool pairs_ = false;  // characters of two bytes: only the system can tell them
    CaseTable table_;
};

// The occurrences of a text in a file, without overlap.
struct Occurrences {
    bool first;  // no more than one is wanted
    std::int32_t count = 0;
    std::int64_t last = 0;  // its position
    bool failed = false;
};

// Those in one block of bytes; returns where in it the next one may begin.
[[gnu::noinline]] std::size_t searchBlock(std::string_view text, std::string_view bytes, std::int64_t start,
                                          Occurrences& found) {
    std::size_t next = 0;
    scanning::scan<scanning::Exact>(text, bytes, [&](std::size_t at) {
        next = at + text.size();
        ++found.count;
        found.last = start + static_cast<std::int64_t>(at);
        return found.first ? scanning::kStop : next;
    });
    return next;
}

Occurrences search(FileBlocks& blocks, std::int64_t end, std::string_view text, std::int32_t mode, bool first) {
    const CaseMode casing(mode, text);
    Occurrences found{first};
    GrowingSize size;
    std::size_t kept = 0;
    while (blocks.position() < end && !(first && found.count > 0)) {
        const auto asked = std::min<std::int64_t>(size.next(), end - blocks.position());
        const std::int32_t read = blocks.read(kept, static_cast<std::size_t>(asked));
        found.failed = read < asked;
        if (found.failed) break;
        casing.apply(blocks.fresh(), static_cast<std::size_t>(read));
        const std::size_t next = searchBlock(text, blocks.bytes(), blocks.start(), found);
        kept = std::min(blocks.bytes().size() - next, text.size() - 1);
    }
    return found;
}

std::int32_t locate(std::int32_t handle, std::string_view text, std::int32_t mode) {
    if (text.empty()) return kNone;
    const std::int32_t start = positionOf(handle);
    const std::int32_t end = start < 0 ? -1 : lengthOf(handle);
    if (end < 0) return -1;
    if (start >= end || text.size() > kLongestText) return kNone;
    FileBlocks blocks(handle, start, text.size() - 1);
    if (!blocks) return kNone;
    const Occurrences found = search(blocks, end, text, mode, true);
    if (found.count > 0) {
        return platform::files().seek(handle, static_cast<std::int32_t>(found.last), platform::kFromStart);
    }
    putBack(handle, found.failed ? static_cast<std::int32_t>(blocks.position()) : start);
    return found.failed ? -1 : kNone;
}

std::int32_t countText(std::int32_t handle, std::string_view text, std::int32_t mode) {
    if (text.empty()) return -1;
    const std::int32_t start = positionOf(handle);
    const std::int32_t end = start < 0 ? -1 : lengthOf(handle);
    if (end < 0) return -1;
    if (text.size() > kLongestText) return 0;
    FileBlocks blocks(handle, start, text.size() - 1);
    if (!blocks) return 0;
    const Occurrences found = search(blocks, end, text, mode, false);
    putBack(handle, start);
    return found.failed ? -1 : found.count;
}

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_FLocate(int32_t handle, const char* text, int32_t mode) noexcept {
    return locate(handle, view(text), mode);
}

int32_t VX_CALL vx_FStrCount(int32_t handle, const char* text, int32_t mode) noexcept {
    return countText(handle, view(text), mode);
}
