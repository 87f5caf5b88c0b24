// The expression calculator: an expression's value in a caller's format.
#include "entries/calculator.h"

#include "numbers/expression.h"
#include "numbers/float_format.h"
#include "platform/quiet_numbers.h"

using namespace vx;

namespace {

bool calculate(const char* expression, const char* text, char* dest) {
    platform::QuietNumbers quiet;
    FloatFormat format;
    if (!parseFloatFormat(text, format)) return false;
    std::optional<float> value = evaluate(expression);
    if (value) putFloat(dest, format, *value);
    return value.has_value();
}

}  // namespace

char* VX_CALL vx_Calculate(const char* expression, const char* format, char* dest) noexcept {
    // kept: a failure writes one character and no terminator
    if (dest && !calculate(expression, format, dest)) *dest = '0';
    return dest;
}
