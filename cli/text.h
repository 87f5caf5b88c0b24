// The library's texts are bytes of no stated encoding. Here they become what a terminal or a JSON reader takes.
#pragma once

#include <string>
#include <string_view>

namespace vx::cli {

bool isUtf8(std::string_view bytes);

// In double quotes; what does not print, and bytes that are no UTF-8, as escapes that `unescaped` reads back.
std::string inQuotes(std::string_view bytes);

// Reads \n \t \r \0 \\ \" and \xHH; throws UsageError at any other escape.
std::string unescaped(std::string_view text);

// Two lower-case digits a byte.
std::string hex(std::string_view bytes);

// Each byte as the character of that code.
std::string latin1ToUtf8(std::string_view bytes);

// Rows of 16 bytes with offset, hex digits and characters; zeros at the end, and what is longer than a screen, in
// words.
std::string hexDump(std::string_view bytes);

}  // namespace vx::cli
