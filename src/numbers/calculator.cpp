// The expression calculator: an expression's value in a caller's format.
#include "entries/calculator.h"

#include <xmmintrin.h>

#include <cfenv>

#include "numbers/expression.h"
#include "numbers/float_format.h"

using namespace vx;

namespace {

// Hosts in Pascal have the processor raise exceptions; in here, what overflows is a number like any other.
class QuietNumbers {
 public:
    QuietNumbers() {
        std::feholdexcept(&before_);
        _mm_setcsr(kQuiet);  // on Windows feholdexcept leaves this register alone
    }
    ~QuietNumbers() {
        _mm_setcsr(control_);
        std::fesetenv(&before_);
    }
    QuietNumbers(const QuietNumbers&) = delete;
    QuietNumbers& operator=(const QuietNumbers&) = delete;

 private:
    static constexpr unsigned kQuiet = 0x1F80;
    unsigned control_ = _mm_getcsr();
    std::fenv_t before_;
};

bool calculate(const char* expression, const char* text, char* dest) {
    QuietNumbers quiet;
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
