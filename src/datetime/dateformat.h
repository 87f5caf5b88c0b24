// Dates as texts, and today's: what other families use of them.
#pragma once

#include "datetime/daynumber.h"

namespace vx {

// Puts a date like 12/31/1999 at `dest`, or an empty text if the system knows no such date; returns `dest`, which
// needs 32 bytes.
char* putDate(const Date& date, char* dest);

// Puts a date by a picture of this library at `dest`; NULL is an empty picture. Returns `dest`, which needs 11 bytes a
// character. (The system's pictures have other letters: systemdate.h.)
char* putPicturedDate(const Date& date, const char* picture, char* dest);

Date today();

}  // namespace vx
