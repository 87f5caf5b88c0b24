// Lines of text files: read, skipped and counted, and positions by their numbers.
//
// A line is at most kLongestLine bytes long; a longer one counts as several. Reading one line reads that many bytes and
// puts the position back behind the line, which is one call more, but far fewer than a call a byte.
#include "files/lines.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "entries/lines.h"
#include "files/file_blocks.h"
#include "files/handles.h"
#include "files/way_back.h"
#include "frame/text.h"
#include "strings/characters.h"

namespace vx {
namespace {

constexpr char kLineFeed = '\n';

std::int32_t seekTo(std::int32_t handle, std::int32_t position) {
    return platform::files().seek(handle, position, platform::kFromStart);
}

struct Line {
    std::string_view text;   // without its end; null when nothing could be read
    std::int32_t ahead = 0;  // bytes read behind it
};

Line readAhead(std::int32_t handle, char (&bytes)[kLongestLine]) {
    std::int32_t size = platform::files().read(handle, bytes, kLongestLine);
    if (size < 1) return {};
    std::string_view text(bytes, static_cast<std::size_t>(size));
    const void* feed = std::memchr(bytes, kLineFeed, text.size());
    if (!feed) return {text};
    std::int32_t length = static_cast<std::int32_t>(static_cast<const char*>(feed) - bytes);
    std::int32_t ahead = size - length - 1;
    // kept: of a line that is a carriage return alone, it stays.
    if (length > 1 && bytes[length - 1] == '\r') --length;
    return {text.substr(0, static_cast<std::size_t>(length)), ahead};
}

// The size of the line that a text begins with, its line feed included; 0 if the text does not show it.
std::size_t lineSize(std::string_view text) {
    std::size_t most = std::min<std::size_t>(text.size(), kLongestLine);
    const void* feed = std::memchr(text.data(), kLineFeed, most);
    if (feed) return static_cast<std::size_t>(static_cast<const char*>(feed) - text.data()) + 1;
    return most == kLongestLine ? most : 0;
}

// Goes over lines, at most to the end of the file or to what cannot be read; the position there.
std::int32_t skipLines(std::int32_t handle, std::int32_t from, std::int32_t count) {
    FileBlocks blocks(handle, from, kLongestLine - 1);
    if (!blocks) {
        putBack(handle, from);
        return -1;
    }
    GrowingSize size;
    std::size_t begun = 0;  // bytes of a line whose end has not been seen
    std::int32_t read = 0;
    while (count > 0 && (read = blocks.read(begun, size.next())) > 0) {
        std::string_view text = blocks.bytes();
        for (std::size_t line; count > 0 && (line = lineSize(text)) > 0; --count) text.remove_prefix(line);
        begun = text.size();
    }
    bool ended = count > 0 && read == 0;
    std::int64_t position = blocks.position() - static_cast<std::int64_t>(ended ? 0 : begun);
    if (position > platform::kLastPosition) position = -1;
    if (read >= 0) return seekTo(handle, static_cast<std::int32_t>(position));
    putBack(handle, static_cast<std::int32_t>(position));
    return static_cast<std::int32_t>(position);
}

// Counts the lines of a text that comes in pieces. Where each step of half a line's greatest length has a line feed, no
// line is too long, and the line feeds are the lines: then they are counted a vector at a time (FLineCount in
// bench/files/lines_bench.cpp). Only from a step without one are line feeds looked for singly, up to the next.
class LineCounter {
 public:
    void add(std::string_view text) {
        std::size_t at = 0;
        bool counted = false;  // the step before: where its last line begins has not been looked up
        while (at < text.size()) {
            std::string_view step = text.substr(at, kStep);
            std::size_t feeds = counted || begun_ <= kStep ? countCharacter(kLineFeed, step) : 0;
            if (feeds > 0) {
                lines_ += feeds;
                at += step.size();
                counted = true;
                continue;
            }
            if (counted) begun_ = at - findLastCharacter(kLineFeed, text.substr(0, at)) - 1;
            counted = false;
            std::size_t feed = text.find(kLineFeed, at);
            if (feed == std::string_view::npos) {
                begun_ += text.size() - at;
                return;
            }
            lines_ += 1 + (begun_ + feed - at) / kLongestLine;
            begun_ = 0;
            at = feed + 1;
        }
        if (counted) begun_ = text.size() - findLastCharacter(kLineFeed, text) - 1;
    }

    std::int32_t count() const {
        std::uint64_t all = lines_ + (begun_ + kLongestLine - 1) / kLongestLine;
        return static_cast<std::int32_t>(std::min<std::uint64_t>(all, std::numeric_limits<std::int32_t>::max()));
    }

 private:
    static constexpr std::size_t kStep = kLongestLine / 2;

    std::uint64_t lines_ = 0;
    std::uint64_t begun_ = 0;  // bytes of the line whose end has not been seen
};

std::int32_t countLines(std::int32_t handle) {
    std::int32_t start = positionOf(handle);
    if (start < 0 || lengthOf(handle) < 0) return -1;
    FileBlocks blocks(handle, start, 0);
    if (!blocks) return -1;
    LineCounter lines;
    std::int32_t read = blocks.read(0, FileBlocks::kLargest);
    for (; read > 0; read = blocks.read(0, FileBlocks::kLargest)) lines.add(blocks.bytes());
    putBack(handle, start);
    return read < 0 ? -1 : lines.count();
}

std::int32_t lineFromTop(std::int32_t handle, std::int32_t n) {
    if (lengthOf(handle) < 0) return -1;
    return n < 2 ? seekTo(handle, 0) : skipLines(handle, 0, n - 1);
}

std::int32_t lineFromHere(std::int32_t handle, std::int32_t n) {
    WayBack way(handle, n < 0 ? WayBack::kMostReach : kLongestLine);
    std::int64_t start = way.toLineStart();
    if (start < 0 || n == 0) return way.stop(start);
    if (n < 0) return way.stop(way.toLineBefore(-std::int64_t{n}));
    return lengthOf(handle) < 0 ? way.stop(-1) : skipLines(handle, way.position(), n);
}

std::int32_t lineFromBottom(std::int32_t handle, std::int32_t n) {
    bool there = platform::files().seek(handle, 0, platform::kFromEnd) != -1;
    if (n == 0) return there;  // kept: whether the seek went well, not a position
    if (!there) return -1;
    std::int64_t lines = std::abs(std::int64_t{n}) - 1;
    WayBack way(handle, lines > 0 ? WayBack::kMostReach : kLongestLine);
    std::int64_t start = way.toLineStart();
    return way.stop(start < 0 || lines == 0 ? start : way.toLineBefore(lines));
}

}  // namespace

std::optional<std::string_view> readLine(std::int32_t handle, char (&bytes)[kLongestLine]) {
    Line line = readAhead(handle, bytes);
    if (line.ahead > 0) platform::files().seek(handle, -line.ahead, platform::kFromCurrent);
    return line.text.data() ? std::optional(line.text) : std::nullopt;
}

}  // namespace vx

using namespace vx;

char* VX_CALL vx_FReadLine(int32_t handle, char* buffer) noexcept {
    char bytes[kLongestLine];
    if (buffer) *buffer = '\0';
    std::string_view line = readLine(handle, bytes).value_or(std::string_view());
    return buffer ? store(buffer, line) : nullptr;
}

int32_t VX_CALL vx_FAdvance(int32_t handle) noexcept {
    char bytes[kLongestLine];
    return platform::files().seek(handle, -readAhead(handle, bytes).ahead, platform::kFromCurrent);
}

int32_t VX_CALL vx_FBol(int32_t handle) noexcept {
    WayBack way(handle, kLongestLine);
    return way.stop(way.toLineStart());
}

int32_t VX_CALL vx_FRewind(int32_t handle) noexcept {
    WayBack way(handle, 2 * kLongestLine);
    return way.stop(way.toLineBefore());
}

int32_t VX_CALL vx_FTop(int32_t handle) noexcept { return seekTo(handle, 0) == 0; }

int32_t VX_CALL vx_FBot(int32_t handle) noexcept { return platform::files().seek(handle, 0, platform::kFromEnd) != -1; }

int32_t VX_CALL vx_FSeekLine(int32_t handle, int32_t n, int32_t origin) noexcept {
    switch (origin) {
        case platform::kFromStart:
            return lineFromTop(handle, n);
        case platform::kFromCurrent:
            return lineFromHere(handle, n);
        case platform::kFromEnd:
            return lineFromBottom(handle, n);
        default:
            return positionOf(handle);
    }
}

int32_t VX_CALL vx_FLineCount(int32_t handle) noexcept { return countLines(handle); }
