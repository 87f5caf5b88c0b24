// Locale of Linux: the C library's data for the user's locale, put together as Windows would.
//
// Numbers, dates and times are written here and not by printf or strftime, which round, pad and cut otherwise and know
// no pictures of Windows' kind.
#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <clocale>
#include <cstring>
#include <new>
#include <string>
#include <string_view>

#include "platform/platform.h"

namespace vx::platform {
namespace {

constexpr std::size_t kDecimals = 2;

// The user's locale, whatever the host has set for itself. The C locale counts as US English. It is never given back:
// calls come until the process is gone.
class UserLocale {
 public:
    UserLocale() : locale_(newlocale(LC_ALL_MASK, "", nullptr)) {
        // The environment may name a locale that is not installed.
        if (!locale_) locale_ = newlocale(LC_ALL_MASK, "C", nullptr);
        timeFormat_ = isC(_NL_LOCALE_NAME(LC_TIME)) ? kUsTimeFormat : text(T_FMT);
        decimalPoint_ = single(RADIXCHAR, '.', '.');
        groupSeparator_ = single(THOUSEP, single(__MON_THOUSANDS_SEP, kNone, ' '), ' ');
        if (isC(_NL_LOCALE_NAME(LC_NUMERIC))) groupSeparator_ = ',';
        if (groupSeparator_ == decimalPoint_) groupSeparator_ = kNone;
    }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

    const char* text(nl_item item) const { return nl_langinfo_l(item, locale_); }

    char decimalPoint() const { return decimalPoint_; }
    // Many locales name one for amounts of money only. Empty where there is none, or it would look like a decimal
    // point.
    std::string_view groupSeparator() const { return {&groupSeparator_, groupSeparator_ == kNone ? 0u : 1u}; }
    const char* timeFormat() const { return timeFormat_; }

 private:
    bool isC(nl_item name) const {
        std::string_view locale = text(name);
        return locale == "C" || locale.starts_with("C.");
    }

    // Texts are single-byte: of the longer separators, in UTF-8, the apostrophe has a plain form, and others (thin
    // blanks) are replaced.
    char single(nl_item item, char whenEmpty, char whenLonger) const {
        std::string_view separator = text(item);
        if (separator.empty()) return whenEmpty;
        if (separator == "\u2019") return '\'';
        return separator.size() > 1 ? whenLonger : separator[0];
    }

    static constexpr char kUsTimeFormat[] = "%r";
    static constexpr char kNone = '\0';

    locale_t locale_;
    const char* timeFormat_;
    char decimalPoint_;
    char groupSeparator_;
};

const UserLocale& userLocale() {
    static const UserLocale user;
    return user;
}

nl_item itemAt(nl_item first, unsigned index) { return first + static_cast<nl_item>(index); }

// Text put together in a destination of limited room.
class Output {
 public:
    Output(char* to, std::uint32_t room) : to_(to), room_(room) {}

    void put(char c) {
        if (size_ < room_) to_[size_] = c;
        ++size_;
        blanks_ = c == ' ' ? blanks_ + 1 : 0;
    }
    void put(std::string_view text) {
        for (char c : text) put(c);
    }
    void put(unsigned value, int digits) {
        char reversed[8];
        int count = 0;
        for (; value != 0 || count < std::max(digits, 1); value /= 10) {
            reversed[count++] = static_cast<char>('0' + value % 10);
        }
        while (count > 0) put(reversed[--count]);
    }
    // A name without the blanks that some languages align it with, cut after a whole character of UTF-8 where it is too
    // long for the room; no other character set has such names.
    void putName(std::string_view name) {
        name.remove_prefix(std::min(name.find_first_not_of(' '), name.size()));
        name = name.substr(0, name.find_last_not_of(' ') + 1);
        std::size_t left = room_ > size_ ? room_ - size_ - 1 : 0;
        if (name.size() > left) {
            while (left > 0 && (name[left] & 0xC0) == 0x80) --left;
            name = name.substr(0, left);
        }
        put(name);
    }
    void trimBlanks() {
        size_ -= blanks_;
        blanks_ = 0;
    }
    void cutTo(std::uint32_t size) { size_ = size; }
    std::uint32_t size() const { return size_; }

    // The size with the terminator, or 0 if that is more than the room.
    std::uint32_t finish() {
        put('\0');
        return size_ <= room_ ? size_ : 0;
    }

 private:
    char* to_;
    std::uint32_t room_;
    std::uint32_t size_ = 0;
    std::uint32_t blanks_ = 0;  // at the end
};

// A run of `count` letters of a date picture.
void putDatePart(Output& out, const Moment& date, char letter, int count) {
    const UserLocale& user = userLocale();
    unsigned month = date.month - 1u;
    // The names are those of a month or day by itself, which some languages inflect within a date.
    if (letter == 'M' && count >= 4) return out.putName(user.text(itemAt(ALTMON_1, month)));
    if (letter == 'M' && count == 3) return out.putName(user.text(itemAt(_NL_ABALTMON_1, month)));
    if (letter == 'M') return out.put(date.month, count);
    if (letter == 'y') return out.put(date.year, 4);
    if (count <= 2) return out.put(date.day, count);
    unsigned dayOfWeek = std::chrono::weekday(std::chrono::sys_days(dateOf(date))).c_encoding();
    out.putName(user.text(itemAt(DAY_1, dayOfWeek)));
}

// A time by a format of strftime's kind, 12 hours turned into 24, the marker (with what separates it from the time
// before it) and the time zone left out. An hour that strftime would pad within 12 hours is not padded, as Windows has
// it.
void putTime(Output& out, const Moment& time, const char* format) {
    std::uint32_t digits = 0;  // where the last part ended
    for (; *format; ++format) {
        if (*format != '%') {
            if (*format != ' ' || out.size() > 0) out.put(*format);
            continue;
        }
        ++format;
        if (*format == 'O' || *format == 'E') ++format;
        if (*format == '\0') return;
        if (*format == 'H') out.put(time.hour, 2);
        if (*format == 'k' || *format == 'I' || *format == 'l') out.put(time.hour, 1);
        if (*format == 'M') out.put(time.minute, 2);
        if (*format == 'S') out.put(time.second, 2);
        if (*format == 'R') putTime(out, time, "%H:%M");
        if (*format == 'T') putTime(out, time, "%H:%M:%S");
        if (*format == 'r') putTime(out, time, "%I:%M:%S");
        bool isMarker = *format == 'p' || *format == 'P';
        if (isMarker && digits > 0) out.cutTo(digits);
        if (!isMarker && *format != 'Z' && *format != 'z') digits = out.size();
    }
}

struct Number {
    bool negative = false;
    std::string whole;     // without leading zeros
    std::string decimals;  // kDecimals of them
};

bool isDigits(std::string_view text) { return text.find_first_not_of("0123456789") == text.npos; }

// Adds one to a row of digits; true if it overflowed to all zeros.
bool increment(std::string& digits) {
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] != '9') {
            ++digits[i];
            return false;
        }
        digits[i] = '0';
    }
    return true;
}

// False if the text is no number, or has more digits before the point than `most`.
bool parse(std::string_view text, std::size_t most, Number& number) {
    number.negative = text.starts_with('-');
    if (number.negative) text.remove_prefix(1);
    std::size_t point = text.find('.');
    std::string_view whole = text.substr(0, point);
    std::string_view decimals = point == text.npos ? std::string_view() : text.substr(point + 1);
    if (!isDigits(whole) || !isDigits(decimals)) return false;
    whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
    if (whole.size() > most) return false;
    number.whole = whole;
    number.decimals = decimals.substr(0, kDecimals);
    number.decimals.resize(kDecimals, '0');
    bool roundUp = decimals.size() > kDecimals && decimals[kDecimals] >= '5';
    if (roundUp && increment(number.decimals) && increment(number.whole)) number.whole.insert(0, "1");
    if (number.whole.empty()) number.whole = "0";
    return true;
}

class LinuxLocale final : public Locale {
 public:
    // No code page: the library's built-in tables apply.
    std::uint32_t upperCase(char*, std::uint32_t) override { return 0; }
    std::uint32_t lowerCase(char*, std::uint32_t) override { return 0; }
    std::uint32_t mapToUpper(const char*, char*, std::uint32_t) override { return 0; }
    bool isLeadByte(char) override { return false; }

    std::uint32_t formatNumber(const char* text, char* to, std::uint32_t room) override try {
        const UserLocale& user = userLocale();
        Number number;
        if (!parse(text, room, number)) return 0;
        std::string result(number.negative ? "-" : "");
        for (std::size_t i = 0; i < number.whole.size(); ++i) {
            if (i != 0 && (number.whole.size() - i) % 3 == 0) result += user.groupSeparator();
            result += number.whole[i];
        }
        result += user.decimalPoint() + number.decimals;
        if (result.size() >= room) return 0;
        std::memcpy(to, result.c_str(), result.size() + 1);
        return static_cast<std::uint32_t>(result.size() + 1);
    } catch (const std::bad_alloc&) {
        return 0;
    }

    std::uint32_t formatDate(const Moment& date, const char* picture, char* to, std::uint32_t room) override {
        if (!isDate(date)) return 0;
        Output out(to, room);
        while (char letter = *picture) {
            int count = 0;
            while (picture[count] == letter) ++count;
            if (letter == 'd' || letter == 'M' || letter == 'y') {
                putDatePart(out, date, letter, count);
            } else {
                for (int i = 0; i < count; ++i) out.put(letter);
            }
            picture += count;
        }
        return out.finish();
    }

    std::uint32_t formatTime(const Moment& time, char* to, std::uint32_t room) override {
        if (!isTimeOfDay(time)) return 0;
        Output out(to, room);
        putTime(out, time, userLocale().timeFormat());
        out.trimBlanks();
        return out.finish();
    }
};

LinuxLocale linuxLocale;

}  // namespace

Locale& systemLocale() { return linuxLocale; }

}  // namespace vx::platform
