// When a file was last written, and how that is told: the same of a file by its name, by its handle, and of one found
// by a search.
#pragma once

#include <optional>

#include "datetime/dateformat.h"
#include "datetime/timeofday.h"
#include "frame/text.h"
#include "platform/platform.h"

namespace vx {

// A stamp and its local time.
struct Written {
    platform::FileTime stamp;
    platform::Moment local;

    Date date() const { return {local.year, local.month, local.day}; }
    TimeOfDay time() const { return {local.hour, local.minute, local.second}; }
};

// Nothing if the stamp has no local time.
inline std::optional<Written> writtenAt(platform::FileTime stamp) {
    Written written{stamp, {}};
    bool known = platform::clock().toLocalTime(stamp, written.local);
    return known ? std::optional(written) : std::nullopt;
}

// Where nothing is known, numbers are 0 and texts are empty. Whether something is.
inline bool tellDate(const std::optional<Written>& written, std::int32_t* year, std::int32_t* month,
                     std::int32_t* day) {
    storeDate(written ? written->date() : Date{}, year, month, day);
    return written.has_value();
}

inline bool tellTime(const std::optional<Written>& written, std::int32_t* hour, std::int32_t* minute,
                     std::int32_t* second) {
    storeTime(written ? written->time() : TimeOfDay{}, hour, minute, second);
    return written.has_value();
}

inline std::int32_t dayNumberOf(const std::optional<Written>& written) {
    return written ? dayNumber(written->date()) : 0;
}

inline char* putDateOf(const std::optional<Written>& written, char* dest) {
    return written ? putDate(written->date(), dest) : store(dest, {});
}

inline char* putDateOf(const std::optional<Written>& written, const char* picture, char* dest) {
    return written ? putPicturedDate(written->date(), picture, dest) : store(dest, {});
}

inline char* putTimeOf(const std::optional<Written>& written, char* dest) {
    return written ? putTime(written->time(), dest) : store(dest, {});
}

}  // namespace vx
