// Dates as texts by the library's pictures and the system's, and the system's date.
#include "datetime/dateformat.h"

#include "datetime/numbers.h"
#include "datetime/systemdate.h"
#include "entries/dateformat.h"
#include "frame/text.h"
#include "platform/platform.h"

namespace vx {
namespace {

// Of this library.
constexpr char kWordsPicture[] = "MMMM dd, YYYY";

// Of the system.
constexpr char kDatePicture[] = "MM/dd/yyyy";
constexpr char kShortMonth[] = "MMM";
constexpr char kFullMonth[] = "MMMM";
constexpr char kFullDay[] = "dddd";

constexpr std::int32_t kMonday = 2;
constexpr Date kSomeMonday{2001, 1, 1};

char* putMonth(std::int32_t month, const char* picture, char* to) {
    if (month < 1 || month > 12) {
        *to = '\0';
        return to;
    }
    return to + putSystemDate(Date{2000, month, 1}, picture, to);
}

void putDayOfWeek(std::int32_t day, char* to) {
    if (day < 1 || day > 7) {
        *to = '\0';
        return;
    }
    platform::Moment moment;
    setDate(moment, dateOfDay(dayNumber(kSomeMonday) + (day + 7 - kMonday) % 7));
    moment.dayOfWeek = static_cast<std::uint16_t>(day - 1);
    putSystemDate(moment, kFullDay, to);
}

std::string_view ordinalSuffix(std::int32_t number) {
    std::int32_t ofHundred = number % 100;
    if (ofHundred >= 4 && ofHundred <= 20) return "th";
    switch (number % 10) {
        case 1:
            return "st";
        case 2:
            return "nd";
        case 3:
            return "rd";
        default:
            return "th";
    }
}

char* putOrdinal(char* to, std::int32_t number) { return putText(putNumber(to, number), ordinalSuffix(number)); }

// A name is made aside: the destination need not have room for more than what is in it.
char* appendMonth(char* to, std::int32_t month, const char* picture) {
    char name[kSystemTextRoom];
    return putText(to, {name, static_cast<std::size_t>(putMonth(month, picture, name) - name)});
}

int runLength(const char* text, int most) {
    int length = 1;
    while (length < most && text[length] == *text) ++length;
    return length;
}

// The length of the token that a picture begins with, 1 if it begins with a character of its own.
int tokenLength(const char* picture) {
    switch (*picture) {
        case 'd':
        case 'm':
            return runLength(picture, 2);
        case 'D':
        case 'M':
            return runLength(picture, 4);
        case 'Y': {
            int length = runLength(picture, 4);
            return length == 3 ? 1 : length;  // kept: the first of three stands for itself
        }
        default:
            return 1;
    }
}

char* putToken(const Date& date, char letter, int length, char* to) {
    switch (letter) {
        case 'd':
            return putNumber(to, date.day);
        case 'm':
            return putNumber(to, date.month);
        case 'D':
            return length == 2 ? putTwoDigits(to, date.day) : putOrdinal(to, date.day);
        case 'M':
            if (length == 2) return putTwoDigits(to, date.month);
            return appendMonth(to, date.month, length == 3 ? kShortMonth : kFullMonth);
        default:
            return putNumber(to, length == 2 ? date.year % 100 : date.year);  // kept: 2005 is 5
    }
}

std::int32_t setToday(const Date& date) {
    platform::Clock& clock = platform::clock();
    platform::Moment moment = clock.localTime();
    setDate(moment, date);
    return clock.setLocalTime(moment);
}

}  // namespace

char* putDate(const Date& date, char* dest) {
    putSystemDate(date, kDatePicture, dest);
    return dest;
}

char* putPicturedDate(const Date& date, const char* picture, char* dest) {
    char* to = dest;
    for (int length; picture && *picture; picture += length) {
        length = tokenLength(picture);
        if (length == 1) {
            *to++ = *picture;
        } else {
            to = putToken(date, *picture, length, to);
        }
    }
    *to = '\0';
    return dest;
}

Date today() {
    platform::Moment now = platform::clock().localTime();
    return {now.year, now.month, now.day};
}

}  // namespace vx

using namespace vx;

char* VX_CALL vx_IntToDatef(int32_t year, int32_t month, int32_t day, const char* picture, char* dest) noexcept {
    return dest ? putPicturedDate({year, month, day}, picture, dest) : nullptr;
}
char* VX_CALL vx_GetJDatef(int32_t jd, const char* picture, char* dest) noexcept {
    return dest ? putPicturedDate(dateOfDay(jd), picture, dest) : nullptr;
}
char* VX_CALL vx_GetDatef(const char* picture, char* dest) noexcept {
    return dest ? putPicturedDate(today(), picture, dest) : nullptr;
}
char* VX_CALL vx_Dtow(int32_t jd, char* dest) noexcept {
    return dest ? putPicturedDate(dateOfDay(jd), kWordsPicture, dest) : nullptr;
}

char* VX_CALL vx_IntToDate(int32_t year, int32_t month, int32_t day, char* dest) noexcept {
    return dest ? putDate({year, month, day}, dest) : nullptr;
}
char* VX_CALL vx_JulianToDate(int32_t jd, char* dest) noexcept { return dest ? putDate(dateOfDay(jd), dest) : nullptr; }
char* VX_CALL vx_GetDate(char* dest) noexcept { return dest ? putDate(today(), dest) : nullptr; }

char* VX_CALL vx_NumToMon(int32_t month, char* dest) noexcept {
    if (dest) putMonth(month, kShortMonth, dest);
    return dest;
}
// kept: the length form of the short name writes the full one.
uint32_t VX_CALL vx_strnum2mon(int32_t month, char* dest) noexcept {
    return dest ? static_cast<std::uint32_t>(putMonth(month, kFullMonth, dest) - dest) : 0;
}
char* VX_CALL vx_NumToMonth(int32_t month, char* dest) noexcept {
    if (dest) putMonth(month, kFullMonth, dest);
    return dest;
}
char* VX_CALL vx_NumToDay(int32_t day, char* dest) noexcept {
    if (dest) putDayOfWeek(day, dest);
    return dest;
}

int32_t VX_CALL vx_GetJDate() noexcept { return dayNumber(today()); }
int32_t VX_CALL vx_Dow() noexcept { return platform::clock().localTime().dayOfWeek + 1; }
void VX_CALL vx_DosGetDate(int32_t* year, int32_t* month, int32_t* day) noexcept {
    storeDate(today(), year, month, day);
}

int32_t VX_CALL vx_DosSetDate(int32_t year, int32_t month, int32_t day) noexcept {
    return setToday({year, month, day});
}
int32_t VX_CALL vx_SetDate(const char* text) noexcept { return text ? setToday(dateOfText(text)) : 0; }
int32_t VX_CALL vx_SetJDate(int32_t jd) noexcept { return setToday(dateOfDay(jd)); }
