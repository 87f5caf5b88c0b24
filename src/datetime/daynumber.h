// Day numbers and date triples: what other families use of them.
#pragma once

#include <cstdint>

namespace vx {

// A date of the Gregorian calendar; all zero is no date.
struct Date {
    std::int32_t year = 0;
    std::int32_t month = 0;
    std::int32_t day = 0;
};

// The day number of a date, 0 before 1584. Months and days out of range roll over.
std::int32_t dayNumber(const Date& date);

// The date of a day number; no date for 2299603 and less.
Date dateOfDay(std::int32_t dayNumber);

// 1 (Sunday) to 7.
std::int32_t dayOfWeek(std::int32_t dayNumber);

// The month, day and year of a text like 12/31/1999, not checked; NULL is empty.
Date dateOfText(const char* text);

// Stores the parts of a date that have a place.
inline void storeDate(const Date& date, std::int32_t* year, std::int32_t* month, std::int32_t* day) {
    if (year) *year = date.year;
    if (month) *month = date.month;
    if (day) *day = date.day;
}

}  // namespace vx
