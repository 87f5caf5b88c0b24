// Arithmetic expressions in 32-bit floats.
#pragma once

#include <optional>

namespace vx {

// The value of + - * / ^ on numbers and parentheses; NULL is empty. Nothing if a factor cannot be read, characters are
// left over, or there is no memory for the parentheses.
std::optional<float> evaluate(const char* expression);

}  // namespace vx
