// Random texts over the alphabets that the families care about.
#pragma once

#include <string>
#include <string_view>

#include "fuzz/random.h"

namespace vx::fuzz {

// A few characters, in which coincidences are frequent; an empty alphabet stands for all of 1 to 255.
std::string_view drawAlphabet(Random& random);

char drawCharacter(Random& random, std::string_view alphabet);

// Mostly 0 to 80 characters, now and then around a customary buffer size, or thousands.
std::string drawText(Random& random, std::string_view alphabet);

// A text in a form that some function reads: a date, a path, a pattern, a number.
std::string drawWellFormed(Random& random);

// Part of a text, at times with a character changed: what searches look for.
std::string drawPiece(Random& random, std::string_view of, std::string_view alphabet);

}  // namespace vx::fuzz
