// Computing without exceptions of the processor, whatever the host has set.
#pragma once

#include <xmmintrin.h>

#include <cfenv>

namespace vx::platform {

// Hosts in Pascal have the processor raise exceptions; until this goes, what overflows is a number like any other.
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

}  // namespace vx::platform
