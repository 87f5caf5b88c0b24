// What a program may ask of the machine, the speaker, and operations on bits.
#include "entries/sysinfo.h"

#include <algorithm>

#include "datetime/timeofday.h"
#include "frame/library.h"
#include "platform/platform.h"

namespace vx {
namespace {

constexpr std::uint32_t kMillisecondsOfTick = 55;

std::int32_t windowsVersion() {
    std::uint32_t version = platform::process().systemVersion();
    return static_cast<std::int32_t>((version & 0xFF) * 100 + ((version >> 8) & 0xFF));
}

std::uint32_t kilobytes(bool available) {
    platform::Memory memory = platform::process().physicalMemory();
    std::uint64_t bytes = available ? memory.available : memory.total;
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(bytes >> 10, 0xFFFFFFFF));
}

std::int32_t timerTick() {
    std::uint32_t milliseconds = platform::clock().localTime().milliseconds;
    // kept: 55, a whole tick, is none yet.
    return milliseconds < 56 ? 0 : static_cast<std::int32_t>(milliseconds / kMillisecondsOfTick);
}

// --- Speaker -------------------------------------------------------------------------------------------------------

constexpr std::int32_t kLowest = 37;
constexpr std::int32_t kHighest = 32767;

constexpr std::uint16_t kTimerControl = 0x43;
constexpr std::uint16_t kTimerChannel2 = 0x42;
constexpr std::uint16_t kSpeakerControl = 0x61;
constexpr std::uint8_t kSquareWave = 0xB6;
constexpr std::uint8_t kSpeakerOn = 3;

bool hasBeep() { return platformClass() == PlatformClass::kWindowsNt; }

std::int32_t stopSound() {
    if (hasBeep()) return platform::hardware().beep(kHighest, platform::kUntilNextBeep);
    std::uint8_t control = static_cast<std::uint8_t>(platform::hardware().readPort(kSpeakerControl) & ~kSpeakerOn);
    platform::hardware().writePort(kSpeakerControl, control);
    return control;
}

void startSound(std::int32_t frequency) {
    // Not the timer's own 1,193,180; the lowest frequency is the one whose divisor still has 16 bits.
    constexpr std::uint32_t kTimerFrequency = 1188685;
    std::uint32_t hertz = static_cast<std::uint32_t>(std::clamp(frequency, kLowest, kHighest));
    if (hasBeep()) {
        platform::hardware().beep(hertz, platform::kUntilNextBeep);
        return;
    }
    std::uint32_t divisor = kTimerFrequency / hertz;
    platform::hardware().writePort(kTimerControl, kSquareWave);
    platform::hardware().writePort(kTimerChannel2, static_cast<std::uint8_t>(divisor));
    platform::hardware().writePort(kTimerChannel2, static_cast<std::uint8_t>(divisor >> 8));
    platform::hardware().writePort(kSpeakerControl, platform::hardware().readPort(kSpeakerControl) | kSpeakerOn);
}

// --- Bits ----------------------------------------------------------------------------------------------------------

// Counts above 31 start again, as the processor has it.
std::int32_t shiftedLeft(std::int32_t value, std::int32_t count) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value) << (count & 31));
}
std::int32_t shiftedRight(std::int32_t value, std::int32_t count) { return value >> (count & 31); }

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_WinVersion() noexcept { return windowsVersion(); }
uint32_t VX_CALL vx_ExtMem(int32_t available) noexcept { return kilobytes(available != 0); }
uint32_t VX_CALL vx_ExpMem(int32_t available) noexcept { return kilobytes(available != 0); }
int32_t VX_CALL vx_TimerTick() noexcept { return timerTick(); }
int32_t VX_CALL vx_CpuType() noexcept { return static_cast<std::int32_t>(platform::hardware().processorFamily()); }

int32_t VX_CALL vx__sysinfo1(int32_t selector) noexcept {
    switch (selector) {
        case 1:
            return vx_MonType();
        case 2:
            return vx_MouseIrq();
        case 3:
            return vx_MouseType();
        case 4:
            return vx_MouseVersion();
        case 5:
            return vx_EmsVersion();
        case 6:
            return vx_XmsVersion();
        case 7:
            return vx_DpmiVersion();
        case 8:
            return vx_DosVersion();
        default:
            return 0;  // kept: 9 as well, although it stands for WinVersion
    }
}

char* VX_CALL vx_RomDate(char* dest) noexcept {
    if (dest) *dest = '\0';
    return dest;
}

int32_t VX_CALL vx_Tone(int32_t frequency, uint32_t ticks) noexcept {
    startSound(frequency);
    sleepTimes(ticks, kMillisecondsOfTick);
    return stopSound();
}
void VX_CALL vx_Noise(int32_t frequency) noexcept { startSound(frequency); }
int32_t VX_CALL vx_Silence() noexcept { return stopSound(); }

int32_t VX_CALL vx_Test(int32_t value, int32_t mask) noexcept { return (value & mask) == mask; }
int32_t VX_CALL vx_Shr(int32_t value, int32_t count) noexcept { return shiftedRight(value, count); }
int32_t VX_CALL vx_Shl(int32_t value, int32_t count) noexcept { return shiftedLeft(value, count); }
int32_t VX_CALL vx__LShr(int32_t value, int32_t count) noexcept { return shiftedRight(value, count); }
int32_t VX_CALL vx__LShl(int32_t value, int32_t count) noexcept { return shiftedLeft(value, count); }
int32_t VX_CALL vx_Ior(int32_t a, int32_t b) noexcept { return a | b; }
