#include "platform/linux/short_names.h"

#include <cstdint>
#include <cstring>

#include "platform/linux/names.h"

namespace vx::platform {
namespace {

constexpr std::size_t kBase = 8;
constexpr std::size_t kExtension = 3;

bool isShortCharacter(char c) {
    if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) return true;
    return c != '\0' && std::strchr("!#$%&'()-@^_`{}~", c) != nullptr;
}

bool allShort(std::string_view text) {
    for (char c : text) {
        if (!isShortCharacter(c)) return false;
    }
    return true;
}

bool isShortName(std::string_view name) {
    std::size_t dot = name.find('.');
    std::string_view base = name.substr(0, dot);
    if (base.empty() || base.size() > kBase || !allShort(base)) return false;
    if (dot == std::string_view::npos) return true;
    std::string_view extension = name.substr(dot + 1);
    return !extension.empty() && extension.size() <= kExtension && allShort(extension);
}

// Puts up to `most` of the characters that a short name may have; returns the end.
char* putShort(std::string_view text, std::size_t most, char* to) {
    for (char c : text) {
        if (most == 0) break;
        if (!isShortCharacter(c) || c == '~') continue;
        *to++ = raised(c);
        --most;
    }
    return to;
}

// FNV-1a: names that begin alike still differ.
std::uint32_t hashOf(std::string_view name) {
    std::uint32_t hash = 0x811C9DC5;
    for (char c : name) hash = (hash ^ static_cast<std::uint8_t>(c)) * 0x01000193;
    return hash;
}

}  // namespace

void shortNameOf(std::string_view name, char (&to)[kShortNameSize]) {
    to[0] = '\0';
    if (isShortName(name)) return;
    constexpr char kDigits[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    std::size_t dot = name.rfind('.');
    if (dot == 0) dot = std::string_view::npos;  // a name that begins with its only dot has no extension
    char* end = putShort(name.substr(0, dot), 2, to);
    std::uint32_t hash = hashOf(name);
    for (int i = 0; i < 4; ++i, hash /= 36) *end++ = kDigits[hash % 36];
    *end++ = '~';
    *end++ = '1';
    if (dot != std::string_view::npos) {
        char* extension = putShort(name.substr(dot + 1), kExtension, end + 1);
        if (extension != end + 1) {
            *end = '.';
            end = extension;
        }
    }
    *end = '\0';
}

bool mayBeShortName(std::string_view name) {
    return name.size() < kShortNameSize && name.find("~1") != std::string_view::npos && isShortName(name);
}

}  // namespace vx::platform
