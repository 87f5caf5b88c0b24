// Lines of text files: what other families read them with.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vx {

// A line ends with a line feed, or after so many bytes without one.
inline constexpr std::uint32_t kLongestLine = 2048;

// The next line without its end, in `bytes`; the position goes behind it. Nothing at the end of the file and on
// failure.
std::optional<std::string_view> readLine(std::int32_t handle, char (&bytes)[kLongestLine]);

}  // namespace vx
