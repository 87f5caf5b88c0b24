// Computing without exceptions of the processor, whatever the host has set.
#pragma once

#include <xmmintrin.h>

#include <cfenv>
#include <cstdint>

namespace vx::platform {

// Hosts in Pascal have the processor raise exceptions; until this goes, what overflows is a number like any other.
// Other hosts pay for a look at two registers.
class QuietNumbers {
 public:
    QuietNumbers() {
        std::uint16_t x87;
        asm volatile("fnstcw %0" : "=m"(x87));
        raises_ = (~x87 & kX87Masks) || (~sse_ & kSseMasks);
        if (!raises_) return;
        std::feholdexcept(&before_);
        _mm_setcsr(sse_ | kSseMasks);  // on Windows feholdexcept leaves this register alone
    }
    ~QuietNumbers() {
        if (!raises_) return;
        _mm_setcsr(sse_);
        std::fesetenv(&before_);
    }
    QuietNumbers(const QuietNumbers&) = delete;
    QuietNumbers& operator=(const QuietNumbers&) = delete;

 private:
    static constexpr unsigned kX87Masks = 0x3F;
    static constexpr unsigned kSseMasks = 0x1F80;
    const unsigned sse_ = _mm_getcsr();
    bool raises_;
    std::fenv_t before_;
};

}  // namespace vx::platform
