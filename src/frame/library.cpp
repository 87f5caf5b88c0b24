#include "frame/library.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <numeric>
#include <utility>

#include "platform/platform.h"

namespace vx {
namespace {

using Mapping = std::pair<std::uint8_t, std::uint8_t>;

// Accented letters of code page 437; those with an accented capital keep the accent.
constexpr Mapping kUpperHalfUpper[] = {{0x81, 0x9A}, {0x82, 0x45}, {0x83, 0x41}, {0x84, 0x8E}, {0x85, 0x41},
                                       {0x86, 0x8F}, {0x87, 0x80}, {0x88, 0x45}, {0x89, 0x45}, {0x8A, 0x45},
                                       {0x8B, 0x49}, {0x8C, 0x49}, {0x8D, 0x49}, {0x91, 0x92}, {0x93, 0x4F},
                                       {0x94, 0x99}, {0x95, 0x4F}, {0x96, 0x55}, {0x97, 0x55}, {0x98, 0x59},
                                       {0xA0, 0x41}, {0xA1, 0x49}, {0xA2, 0x4F}, {0xA3, 0x55}, {0xA4, 0xA5}};

constexpr Mapping kUpperHalfLower[] = {{0x80, 0x87}, {0x8E, 0x84}, {0x8F, 0x86}, {0x92, 0x91},
                                       {0x99, 0x94}, {0x9A, 0x81}, {0xA5, 0xA4}};

// Accented letters to plain capitals, currency signs to the dollar, a few marks to their plain forms.
constexpr Mapping kUpperHalfCollate[] = {
    {0x80, 0x43}, {0x81, 0x55}, {0x82, 0x45}, {0x83, 0x41}, {0x84, 0x41}, {0x85, 0x41}, {0x86, 0x41}, {0x87, 0x43},
    {0x88, 0x45}, {0x89, 0x45}, {0x8A, 0x45}, {0x8B, 0x49}, {0x8C, 0x49}, {0x8D, 0x49}, {0x8E, 0x41}, {0x8F, 0x41},
    {0x90, 0x45}, {0x91, 0x41}, {0x92, 0x41}, {0x93, 0x4F}, {0x94, 0x4F}, {0x95, 0x4F}, {0x96, 0x55}, {0x97, 0x55},
    {0x98, 0x59}, {0x99, 0x4F}, {0x9A, 0x55}, {0x9B, 0x24}, {0x9C, 0x24}, {0x9D, 0x24}, {0x9E, 0x24}, {0x9F, 0x24},
    {0xA0, 0x41}, {0xA1, 0x49}, {0xA2, 0x4F}, {0xA3, 0x55}, {0xA4, 0x4E}, {0xA5, 0x4E}, {0xA8, 0x3F}, {0xAD, 0x21},
    {0xAE, 0x22}, {0xAF, 0x22}, {0xE1, 0x53}};

template <std::size_t N>
constexpr void fillTable(std::uint8_t (&table)[256], char first, char last, int shift, const Mapping (&upperHalf)[N]) {
    for (int c = 0; c < 256; ++c) table[c] = static_cast<std::uint8_t>(c >= first && c <= last ? c + shift : c);
    for (auto [from, to] : upperHalf) table[from] = to;
}

constexpr std::uint32_t builtInType(int c) {
    auto between = [c](int low, int high) { return c >= low && c <= high; };
    std::uint32_t type = 0;
    if (between('A', 'Z')) type |= kAlpha | kUpperLetter;
    if (between('a', 'z')) type |= kAlpha | kLowerLetter;
    if (between(0x01, 0x7F)) type |= kAscii;
    if (between('0', '9')) type |= kDigit | kNumeric;
    if (c == '+' || c == '-' || c == '.') type |= kNumeric;
    if (c == '\t' || c == ' ') type |= kSpace;
    if (between('0', '9') || between('A', 'F') || between('a', 'f')) type |= kHexDigit;
    if (between(0x00, 0x1F) || c == 0x7F) type |= kControl;
    if (between(0x20, 0x7E)) type |= kPrintable;
    if (between(0x21, 0x2F) || between(0x3A, 0x40) || between(0x5B, 0x60) || between(0x7B, 0x7E)) type |= kPunctuation;
    // 0x8A and 0x8D are the soft line ends of memo texts.
    if (c == '\t' || c == '\n' || c == '\r' || c == ' ' || c == 0x8A || c == 0x8D) type |= kWhite;
    return type;
}

void buildTables() {
    platform::Locale& locale = platform::locale();
    char work[256];
    auto identity = [&work] { std::iota(std::begin(work), std::end(work), '\0'); };

    identity();
    if (locale.upperCase(work + 1, 255) == 255) std::memcpy(library.upper, work, 256);
    identity();
    if (locale.lowerCase(work + 1, 255) == 255) std::memcpy(library.lower, work, 256);
    identity();
    char mapped[256];
    if (locale.mapToUpper(work, mapped, 256) == 256) std::memcpy(library.collate, mapped, 256);
}

PlatformClass classOf(platform::PlatformId id) {
    switch (id) {
        case platform::kWin32sId:
            return PlatformClass::kWin32s;
        case platform::kWindows95Id:
            return PlatformClass::kWindows95;
        case platform::kWindowsNtId:
            return PlatformClass::kWindowsNt;
        default:
            return PlatformClass::kOther;
    }
}

}  // namespace

constexpr Library::Library() {
    for (std::int32_t& handle : handles) handle = kNoHandle;
    fillTable(upper, 'a', 'z', 'A' - 'a', kUpperHalfUpper);
    fillTable(lower, 'A', 'Z', 'a' - 'A', kUpperHalfLower);
    fillTable(collate, 'a', 'z', 'A' - 'a', kUpperHalfCollate);
    for (int c = 0; c < 256; ++c) types[c] = builtInType(c);
}

constinit Library library;

const char emptyText[1] = "";

PlatformClass platformClass() {
    if (library.platformClass == PlatformClass::kUnknown) {
        library.platformClass = classOf(platform::process().platformId());
    }
    return library.platformClass;
}

void attach() {
    std::fill(std::begin(library.handles), std::end(library.handles), kNoHandle);
    buildTables();
    platform::process().programPath(library.programPath, sizeof library.programPath);
}

void detach() {
    for (std::int32_t handle : library.handles) {
        if (handle != kNoHandle) platform::files().close(handle);
    }
}

}  // namespace vx
