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

// The user's locale, whatever the host has set for itself. The C locale counts as US English.
class UserLocale {
 public:
    UserLocale() : locale_(newlocale(LC_ALL_MASK, "", nullptr)) {}
    ~UserLocale() {
        if (locale_) freelocale(locale_);
    }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

    char decimalPoint() const { return single(RADIXCHAR, '.', '.'); }
    char groupSeparator() const { return single(THOUSEP, ',', ' '); }

 private:
    // Texts are single-byte: a longer separator (a thin blank, in UTF-8) is replaced.
    char single(nl_item item, char whenEmpty, char whenLonger) const {
        const char* text = locale_ ? nl_langinfo_l(item, locale_) : "";
        if (!*text) return whenEmpty;
        return text[1] ? whenLonger : *text;
    }

    locale_t locale_;
};

struct Number {
    bool negative = false;
    std::string whole;     // without leading zeros
    std::string decimals;  // kDecimals of them
};

bool isDigits(std::string_view text) { return text.find_first_not_of("0123456789") == text.npos; }

// Adds one to a row of digits; true if it overflowed to all zeros.
bool increment(std::string& digits) {
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] != '9') return ++digits[i], false;
        digits[i] = '0';
    }
    return true;
}

bool parse(std::string_view text, Number& number) {
    number.negative = text.starts_with('-');
    if (number.negative) text.remove_prefix(1);
    std::size_t point = text.find('.');
    std::string_view whole = text.substr(0, point);
    std::string_view decimals = point == text.npos ? std::string_view() : text.substr(point + 1);
    if (!isDigits(whole) || !isDigits(decimals)) return false;
    whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
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

    std::uint32_t formatNumber(const char* text, char* to, std::uint32_t room) override try {
        static const UserLocale user;
        Number number;
        // What is longer than the room cannot fit, whatever separators are added.
        if (strnlen(text, room) == room || !parse(text, number)) return 0;
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
};

LinuxLocale locale;

}  // namespace

Locale& systemLocale() { return locale; }

}  // namespace vx::platform
