#include "datetime/systemdate.h"

#include "platform/platform.h"

namespace vx {

std::uint32_t putSystemDate(const platform::Moment& date, const char* picture, char* to, std::uint32_t room) {
    std::uint32_t size = platform::locale().formatDate(date, picture, to, room);
    if (size == 0) *to = '\0';
    return size > 0 ? size - 1 : 0;
}

}  // namespace vx
