// Every character of every table and class.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "frame/entry.h"
#include "tests/support/library.h"

namespace vx::test {
namespace {

using TextPredicate = std::int32_t(VX_CALL*)(const char*, std::int32_t);

// Characters as ranges: "AZaz" is A-Z and a-z.
bool within(int c, std::string_view ranges) {
    for (std::size_t i = 0; i + 1 < ranges.size(); i += 2) {
        if (c >= static_cast<std::uint8_t>(ranges[i]) && c <= static_cast<std::uint8_t>(ranges[i + 1])) return true;
    }
    return false;
}

struct Class {
    std::int32_t(VX_CALL* ofChar)(std::int32_t);
    TextPredicate ofText;
    std::uint32_t bit;
    std::string_view members;
};

TEST(Classes, EveryCharacterOfEveryClass) {
    const Class classes[] = {
        {lib().IsChrAlpha, lib().IsAlpha, 0x001, "AZaz"},
        {lib().IsChrAscii, lib().IsAscii, 0x002, "\x01\x7F"},
        {lib().IsChrDigit, lib().IsDigit, 0x010, "09"},
        {lib().IsChrNum, lib().IsNum, 0x020, "09++--.."},
        {lib().IsChrSpace, lib().IsSpace, 0x040, "\t\t  "},
        {lib().IsChrHex, lib().IsHexDigit, 0x080, "09AFaf"},
        {lib().IsChrCntrl, lib().IsCntrl, 0x100, std::string_view("\0\x1F\x7F\x7F", 4)},
        {lib().IsChrPrint, lib().IsPrint, 0x200, " ~"},
        {lib().IsChrPunct, lib().IsPunct, 0x400, "!/:@[`{~"},
        {lib().IsChrWhite, lib().IsWhite, 0x800, "\t\n\r\r  \x8A\x8A\x8D\x8D"},
    };
    for (const Class& row : classes) {
        for (int c = 0; c < 256; ++c) {
            SCOPED_TRACE(std::to_string(c) + " of class " + std::to_string(row.bit));
            int expected = within(c, row.members);
            char text[] = {static_cast<char>(c), '\0'};
            EXPECT_EQ(row.ofChar(c | 0x7700), expected) << "only the low byte counts";
            if (c == 0) continue;
            EXPECT_EQ(row.ofText(text, 1), expected);
            EXPECT_EQ(lib().IsStrType(text, 1, row.bit), expected);
        }
    }
}

TEST(Classes, PredicatesByNumber) {
    const TextPredicate bySelector[] = {lib().IsHexDigit, lib().IsUpper, lib().IsSpace, lib().IsPunct,
                                        lib().IsPrint,    lib().IsNum,   lib().IsLower, lib().IsDigit,
                                        lib().IsCntrl,    lib().IsAscii, lib().IsAlpha};
    for (int c = 1; c < 256; ++c) {
        char text[] = {static_cast<char>(c), '\0'};
        for (int i = 0; i < 11; ++i) EXPECT_EQ(lib().isthings(i + 1, text, 1), bySelector[i](text, 1)) << c;
        for (int none : {0, 12, -1, INT_MIN, INT_MAX}) EXPECT_EQ(lib().isthings(none, text, 1), 0);
    }
}

// On Windows the tables are the system's own above ASCII.
TEST(Classes, TablesBesidesTheAccentedLetters) {
    auto expect = [](int c) {
        int upper = within(c, "az") ? c - 32 : c;
        int lower = within(c, "AZ") ? c + 32 : c;
        EXPECT_EQ(lib().ChrUpper(c), upper);
        EXPECT_EQ(lib().ChrLower(c), lower);
        EXPECT_EQ(lib().ChrCollate(c | 0x100), c == 0xE1 ? 'S' : upper);
        char text[] = {static_cast<char>(c), '\0'};
        EXPECT_EQ(lib().IsStrType(text, 1, 0x004), within(c, "az") || c == 0) << "of small letters";
        EXPECT_EQ(lib().IsStrType(text, 1, 0x008), within(c, "AZ") || c == 0) << "of capitals";
        EXPECT_EQ(lib().IsChrUpper(c), upper == c);
        EXPECT_EQ(lib().IsChrLower(c), lower == c);
    };
    for (int c = 0; c < 0x80; ++c) expect(c);
#if !defined(_WIN32)
    for (int c = 0xB0; c < 0x100; ++c) expect(c);
#endif
}

}  // namespace
}  // namespace vx::test
