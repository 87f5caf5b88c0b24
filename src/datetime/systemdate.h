// Dates and names as the system's default locale writes them.
#pragma once

#include <cstdint>

#include "datetime/daynumber.h"
#include "platform/moment.h"

namespace vx {

inline constexpr std::uint32_t kSystemTextRoom = 32;

// kept: the platform's record has 16 bits a field; what is above them is lost.
inline void setDate(platform::Moment& moment, const Date& date) {
    moment.year = static_cast<std::uint16_t>(date.year);
    moment.month = static_cast<std::uint16_t>(date.month);
    moment.day = static_cast<std::uint16_t>(date.day);
}

// Puts a date by a picture of the system's kind at `to`; an empty text where the system refuses, or `room` is too
// small. The text's size.
std::uint32_t putSystemDate(const platform::Moment& date, const char* picture, char* to,
                            std::uint32_t room = kSystemTextRoom);

inline std::uint32_t putSystemDate(const Date& date, const char* picture, char* to,
                                   std::uint32_t room = kSystemTextRoom) {
    platform::Moment moment;
    setDate(moment, date);
    return putSystemDate(moment, picture, to, room);
}

}  // namespace vx
