// Every character of every table and class.
#include <gtest/gtest.h>

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
    std::int32_t selector;
    std::string_view members;
};

TEST(Classes, EveryCharacterOfEveryClass) {
    const Class classes[] = {
        {lib().IsChrAlpha, lib().IsAlpha, 0x001, 11, "AZaz"},
        {lib().IsChrAscii, lib().IsAscii, 0x002, 10, "\x01\x7F"},
        {lib().IsChrDigit, lib().IsDigit, 0x010, 8, "09"},
        {lib().IsChrNum, lib().IsNum, 0x020, 6, "09++--.."},
        {lib().IsChrSpace, lib().IsSpace, 0x040, 3, "\t\t  "},
        {lib().IsChrHex, lib().IsHexDigit, 0x080, 1, "09AFaf"},
        {lib().IsChrCntrl, lib().IsCntrl, 0x100, 9, std::string_view("\0\x1F\x7F\x7F", 4)},
        {lib().IsChrPrint, lib().IsPrint, 0x200, 5, " ~"},
        {lib().IsChrPunct, lib().IsPunct, 0x400, 4, "!/:@[`{~"},
        {lib().IsChrWhite, lib().IsWhite, 0x800, 0, "\t\n\r\r  \x8A\x8A\x8D\x8D"},
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
            EXPECT_EQ(lib().isthings(row.selector, text, 1), row.selector ? expected : 0);
        }
    }
}

// The accented letters are in rows; on Windows all above ASCII is the system's own.
TEST(Classes, EveryCharacterOfTheTables) {
    for (int c = 0; c < 256; ++c) {
        char text[] = {static_cast<char>(c), '\0'};
        EXPECT_EQ(lib().IsStrType(text, 1, 0x004), within(c, "az") || c == 0) << c;
        EXPECT_EQ(lib().IsStrType(text, 1, 0x008), within(c, "AZ") || c == 0) << c;
        EXPECT_EQ(lib().IsChrUpper(c), lib().ChrUpper(c) == c) << c;
        EXPECT_EQ(lib().IsChrLower(c), lib().ChrLower(c) == c) << c;
#if defined(_WIN32)
        if (c >= 0x80) continue;
#endif
        int upper = within(c, "az") ? c - 32 : c;
        int lower = within(c, "AZ") ? c + 32 : c;
        EXPECT_TRUE(lib().ChrUpper(c) == upper || within(c, "\x81\x8D\x91\x91\x93\x98\xA0\xA4")) << c;
        EXPECT_TRUE(lib().ChrLower(c) == lower || within(c, "\x80\x80\x8E\x8F\x92\x92\x99\x9A\xA5\xA5")) << c;
        EXPECT_TRUE(lib().ChrCollate(c) == upper || within(c, "\x80\xA5\xA8\xA8\xAD\xAF\xE1\xE1")) << c;
    }
}

}  // namespace
}  // namespace vx::test
