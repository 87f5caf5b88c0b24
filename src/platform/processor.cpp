#include "platform/processor.h"

#include <cpuid.h>

namespace vx::platform {
namespace {

#if defined(__i386__)

constexpr std::uint32_t kAlignmentCheck = 0x40000;
constexpr std::uint32_t kId = 0x200000;

// Whether a processor flag can be flipped; the flags are as before afterwards.
bool canFlip(std::uint32_t flag) {
    std::uint32_t before;
    std::uint32_t after;
    __asm__ volatile(
        "pushfl\n\t"
        "popl %0\n\t"
        "movl %0, %1\n\t"
        "xorl %2, %1\n\t"
        "pushl %1\n\t"
        "popfl\n\t"
        "pushfl\n\t"
        "popl %1\n\t"
        "pushl %0\n\t"
        "popfl"
        : "=&r"(before), "=&r"(after)
        : "r"(flag)
        : "cc", "memory");
    return ((before ^ after) & flag) != 0;
}

#endif

}  // namespace

std::uint32_t processorFamily() {
#if defined(__i386__)
    if (!canFlip(kAlignmentCheck)) return 3;
    if (!canFlip(kId)) return 4;
#endif
    unsigned signature, ebx, ecx, edx;
    __cpuid(1, signature, ebx, ecx, edx);
    return (signature >> 8) & 0xF;
}

}  // namespace vx::platform
