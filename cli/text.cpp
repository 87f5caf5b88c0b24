#include "cli/text.h"

#include <algorithm>
#include <cstdint>

#include "cli/errors.h"
#include "rows/script.h"

namespace vx::cli {
namespace {

constexpr char kHexDigits[] = "0123456789abcdef";
constexpr std::size_t kRow = 16;
constexpr std::size_t kMostRows = 32;

std::uint8_t byteOf(char c) { return static_cast<std::uint8_t>(c); }

void appendHex(std::string& to, char c) {
    to += kHexDigits[byteOf(c) >> 4];
    to += kHexDigits[byteOf(c) & 15];
}

// Length of the well-formed UTF-8 sequence at the start of `bytes`, 0 if there is none.
std::size_t sequenceLength(std::string_view bytes) {
    std::uint8_t first = byteOf(bytes[0]);
    if (first < 0x80) return 1;
    std::size_t length = first >= 0xC2 && first < 0xE0   ? 2
                         : first >= 0xE0 && first < 0xF0 ? 3
                         : first >= 0xF0 && first < 0xF5 ? 4
                                                         : 0;
    if (length == 0 || bytes.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteOf(bytes[i]) & 0xC0) != 0x80) return 0;
    }
    std::uint8_t second = byteOf(bytes[1]);
    bool tooLong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    bool surrogate = first == 0xED && second >= 0xA0;
    bool tooLarge = first == 0xF4 && second >= 0x90;
    return tooLong || surrogate || tooLarge ? 0 : length;
}

// The control characters U+0080 to U+009F, which a terminal may act on.
bool isHighControl(std::string_view bytes) {
    return bytes.size() >= 2 && byteOf(bytes[0]) == 0xC2 && byteOf(bytes[1]) < 0xA0;
}

void appendEscaped(std::string& to, char c) {
    switch (c) {
        case '\n':
            to += "\\n";
            break;
        case '\t':
            to += "\\t";
            break;
        case '\r':
            to += "\\r";
            break;
        case '\\':
            to += "\\\\";
            break;
        case '"':
            to += "\\\"";
            break;
        default:
            if (byteOf(c) >= 0x20 && byteOf(c) < 0x7F) {
                to += c;
            } else {
                to += "\\x";
                appendHex(to, c);
            }
    }
}

void appendRow(std::string& to, std::string_view bytes, std::size_t offset) {
    std::string digits, characters;
    for (char c : bytes.substr(offset, kRow)) {
        appendHex(digits, c);
        digits += ' ';
        characters += byteOf(c) >= 0x20 && byteOf(c) < 0x7F ? c : '.';
    }
    digits.resize(3 * kRow, ' ');
    for (int shift = 28; shift >= 0; shift -= 4) to += kHexDigits[offset >> shift & 15];
    to += "  " + digits + " |" + characters + "|\n";
}

}  // namespace

bool isUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        std::size_t length = sequenceLength(bytes);
        if (length == 0) return false;
        bytes.remove_prefix(length);
    }
    return true;
}

std::string inQuotes(std::string_view bytes) {
    bool utf8 = isUtf8(bytes);
    std::string result = "\"";
    while (!bytes.empty()) {
        std::size_t length = utf8 ? sequenceLength(bytes) : 1;
        if (length > 1 && !isHighControl(bytes)) {
            result += bytes.substr(0, length);
        } else {
            for (char c : bytes.substr(0, length)) appendEscaped(result, c);
        }
        bytes.remove_prefix(length);
    }
    return result + '"';
}

std::string unescaped(std::string_view text) try { return rows::unescaped(text); } catch (const std::string& what) {
    throw UsageError(what);
}

std::string hex(std::string_view bytes) {
    std::string result;
    result.reserve(2 * bytes.size());
    for (char c : bytes) appendHex(result, c);
    return result;
}

std::string latin1ToUtf8(std::string_view bytes) {
    std::string result;
    for (char c : bytes) {
        if (byteOf(c) < 0x80) {
            result += c;
        } else {
            result += static_cast<char>(0xC0 | byteOf(c) >> 6);
            result += static_cast<char>(0x80 | (byteOf(c) & 0x3F));
        }
    }
    return result;
}

std::string hexDump(std::string_view bytes) {
    std::string result;
    std::size_t rows = 0, offset = 0;
    bool isSkipping = false;
    for (; offset < bytes.size() && rows < kMostRows; offset += kRow) {
        bool isZero = bytes.substr(offset, kRow).find_first_not_of('\0') == bytes.npos;
        if (!isZero) {
            appendRow(result, bytes, offset);
            ++rows;
        } else if (!isSkipping) {
            result += "*\n";
        }
        isSkipping = isZero;
    }
    result += std::to_string(bytes.size()) + " bytes";
    if (bytes.find_first_not_of('\0', offset) != bytes.npos)
        result += ", of which these are the first " + std::to_string(offset);
    return result;
}

}  // namespace vx::cli
