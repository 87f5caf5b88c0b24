// The library's process-wide state, all of it that families share, and how it is set up and torn down.
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/tree.h"

namespace vx {

enum CharType : std::uint32_t {
    kAlpha = 0x001,
    kAscii = 0x002,
    kLowerLetter = 0x004,
    kUpperLetter = 0x008,
    kDigit = 0x010,
    kNumeric = 0x020,
    kSpace = 0x040,
    kHexDigit = 0x080,
    kControl = 0x100,
    kPrintable = 0x200,
    kPunctuation = 0x400,
    kWhite = 0x800,
};

inline constexpr int kHandleSlots = 1024;
inline constexpr std::int32_t kNoHandle = -1;

// What a function that asks a device goes by.
enum class PlatformClass : std::int32_t { kUnknown = -1, kOther = 0, kWin32s = 1, kWindows95 = 2, kWindowsNt = 3 };

struct Library {
    char programPath[platform::kPathSize] = {};
    std::int32_t handles[kHandleSlots];  // open files to be closed at detach
    std::uint8_t upper[256];
    std::uint8_t lower[256];
    std::uint8_t collate[256];
    std::uint32_t types[256];
    char fill = ' ';
    std::atomic<PlatformClass> platformClass = PlatformClass::kUnknown;  // read it by platformClass()

    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    constexpr Library();  // built-in tables, no open files
};

extern Library library;

// The empty text that some entries return; callers may read it and never write it.
extern const char emptyText[1];

// The system that the process runs on, asked for once.
PlatformClass platformClass();

// Library load: handle table, case tables from the system, host program's path.
void attach();

// Library unload: closes the files that are still open.
void detach();

}  // namespace vx
