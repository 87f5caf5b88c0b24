// Going back over the lines of a file.
//
// The position is moved here and put where it belongs in the end, and bytes that were read once serve as many lines as
// lie in them, so that a hundred lines back cost one read. A line that is longer than kLongestLine counts as several,
// which is why the search for a line's start never goes back farther than that.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

#include "files/handles.h"
#include "files/lines.h"
#include "platform/errors.h"
#include "strings/characters.h"

namespace vx {

class WayBack {
 public:
    // `reach`: how many bytes to read at once.
    WayBack(std::int32_t handle, std::int64_t reach)
        : handle_(handle), reach_(reach), position_(positionOf(handle)), clear_(position_) {}

    // To the start of the line. kept: where none is within the reach of a line, the position stays, and the result is
    // where the search ended.
    std::int64_t toLineStart() {
        if (position_ < 0) return -1;
        std::int64_t from = position_ - std::min<std::int64_t>(kLongestLine, position_);
        std::int64_t to = std::min(clear_, end_);
        if (from < to && !look(from, to)) return -1;
        to = std::min(to, end_);
        std::size_t found = from < to ? findLastCharacter('\n', within(from, to)) : std::string_view::npos;
        if (found == std::string_view::npos) {
            clear_ = std::min(clear_, from);
            position_ = std::min(position_, std::max(from, end_));
            return from;
        }
        position_ = from + static_cast<std::int64_t>(found) + 1;
        clear_ = position_;
        return position_;
    }

    std::int64_t toLineBefore() {
        if (toLineStart() < 0) return -1;
        if (position_ < kLineEndSize) {
            platform::process().setLastError(platform::kNegativeSeek);
            return -1;
        }
        position_ -= kLineEndSize;
        clear_ = std::min(clear_, position_);
        return toLineStart();
    }

    std::int64_t toLineBefore(std::int64_t count) {
        std::int64_t result = 0;
        for (; count > 0; --count) {
            result = toLineBefore();
            if (result <= 0) break;
        }
        return result;
    }

    // Leaves the handle at the position and hands the result on.
    std::int32_t stop(std::int64_t result) {
        if (position_ < 0) return -1;
        if (result < 0) {
            putBack(handle_, static_cast<std::int32_t>(position_));
        } else if (platform::files().seek(handle_, static_cast<std::int32_t>(position_), platform::kFromStart) < 0) {
            return -1;
        }
        return static_cast<std::int32_t>(result);
    }

    std::int32_t position() const { return static_cast<std::int32_t>(position_); }

    static constexpr std::int64_t kMostReach = 8192;

 private:
    static constexpr std::int64_t kLineEndSize = 2;  // a line feed, and a carriage return before it

    std::string_view within(std::int64_t from, std::int64_t to) const {
        return {bytes_ + (from - start_), static_cast<std::size_t>(to - from)};
    }

    // Makes sure that these bytes, as far as the file has them, are at hand.
    bool look(std::int64_t from, std::int64_t to) {
        if (from >= start_ && to <= start_ + size_) return true;
        start_ = std::max<std::int64_t>(to - reach_, 0);
        size_ = platform::files().readAt(handle_, start_, bytes_, static_cast<std::uint32_t>(to - start_));
        if (size_ >= 0 && size_ < to - start_) end_ = start_ + size_;
        return size_ >= 0;
    }

    std::int32_t handle_;
    std::int64_t reach_;
    std::int64_t position_;
    std::int64_t clear_;                                           // no line feed from here to the position
    std::int64_t end_ = std::numeric_limits<std::int64_t>::max();  // of the file, once it has been met
    std::int64_t start_ = 0;
    std::int64_t size_ = 0;
    char bytes_[kMostReach];
};

}  // namespace vx
