#include "numbers/float_format.h"

#include <algorithm>
#include <clocale>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include "frame/text.h"

namespace vx {
namespace {

constexpr int kMostPlaces = 9999;  // as a width or a precision: far more than is ever written
constexpr std::size_t kMostWritten = 513;
constexpr std::string_view kFlags = "-+ #0";

// Skips text up to a lone percent sign; %% is text.
const char* endOfText(const char* text) {
    while (*text && (*text != '%' || text[1] == '%')) text += *text == '%' ? 2 : 1;
    return text;
}

// A width or a precision; what is too large for the printing routine is cut.
int places(const char*& p) {
    int value = 0;
    for (; *p >= '0' && *p <= '9'; ++p) value = std::min(10 * value + (*p - '0'), kMostPlaces);
    return value;
}

// Collects the result within its limit.
class Output {
 public:
    explicit Output(char* to) : to_(to) {}
    void add(char c) {
        if (size_ < kMostWritten) to_[size_++] = c;
    }
    void addText(std::string_view text) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            add(text[i]);
            if (text[i] == '%') ++i;  // %% is one
        }
    }
    void finish() { to_[size_] = '\0'; }

 private:
    char* to_;
    std::size_t size_ = 0;
};

// The point is a point, whatever locale the host has set.
void pointForSeparator(char* text) {
    const char* separator = std::localeconv()->decimal_point;
    if (separator[0] == '.' || separator[0] == '\0') return;
    if (char* found = std::strstr(text, separator)) {
        *found = '.';
        std::size_t length = std::strlen(separator);
        std::memmove(found + 1, found + length, std::strlen(found + length) + 1);
    }
}

}  // namespace

bool parseFloatFormat(const char* text, FloatFormat& format) {
    if (!text) return false;
    const char* start = endOfText(text);
    if (!*start) return false;
    const char* p = start + 1;
    const char* flags = p;
    while (*p && kFlags.find(*p) != kFlags.npos) ++p;
    char* to = format.conversion;
    *to++ = '%';
    for (char flag : kFlags) {
        if (std::find(flags, p, flag) != p) *to++ = flag;
    }
    format.width = places(p);
    if (*p == '.') format.precision = places(++p);
    if (*p == 'l') ++p;
    if (!*p || !std::strchr("eEfFgGaA", *p)) return false;
    store(to, "*.*");
    to[3] = *p++;
    to[4] = '\0';
    const char* end = endOfText(p);
    if (*end) return false;
    format.before = {text, static_cast<std::size_t>(start - text)};
    format.after = {p, static_cast<std::size_t>(end - p)};
    return true;
}

void putFloat(char* dest, const FloatFormat& format, double value) {
    char number[kMostWritten + 2];
    std::snprintf(number, sizeof number, format.conversion, format.width, format.precision, value);
    pointForSeparator(number);
    Output output(dest);
    output.addText(format.before);
    for (const char* p = number; *p; ++p) output.add(*p);
    output.addText(format.after);
    output.finish();
}

}  // namespace vx
