// Modal notices: the boxes by which a function tells the user that it cannot do its work.
#pragma once

#include <cstdint>

namespace vx::notices {

// Show a box owned by the window that has the focus and return its result: 1 for its OK button, 0 if it could not be
// shown. The first takes the name of a function that 32-bit systems cannot offer, the second the box's title.
std::int32_t unavailable(const char* function);
std::int32_t unimplemented(const char* title);

// The same with a text of one's own.
std::int32_t alert(const char* text);

// Version, build, date and time of this library.
std::int32_t about();

}  // namespace vx::notices
