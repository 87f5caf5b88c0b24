// Hexadecimal, binary and any-base texts.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using Write = char*(VX_CALL*)(std::uint32_t, char*);
using WriteLength = std::uint32_t(VX_CALL*)(std::uint32_t, char*);

TEST(Radix, Written) {
    struct Row {
        Write write;
        WriteLength length;
        std::uint32_t value;
        const char* text;
    };
    auto hex = [](std::uint32_t value, const char* text) { return Row{lib().IntToHex, lib().stritoh, value, text}; };
    // kept: two digits are reversed
    const Row rows[] = {hex(0x1F, "F1"),
                        hex(0xFFFF00A0, "0A"),
                        hex(255, "FF"),
                        hex(256, "0100"),
                        hex(0xABCD1234, "1234"),
                        {lib().DecToHex, lib().strdec2hex, 0x12345, "2345"},
                        {lib().DecToHex, lib().strdec2hex, 0xF, "000F"},
                        {lib().LongToHex, lib().strltoh, 0xDEADBEEF, "DEADBEEF"},
                        {lib().DwordToHex, nullptr, 0x1F, "0000001F"},
                        {lib().PtrToHex, lib().strptr2hex, 0x12345678, "1234:5678"},
                        {lib().ByteToBin, lib().strbyte2bin, 0xFFA5, "10100101"},
                        {lib().NumToBin, lib().StrNumToBin, 0x7000F00F, "1111000000001111"}};
    for (const Row& row : rows) {
        Dest dest(std::strlen(row.text) + 1);
        EXPECT_EQ(row.write(row.value, dest), dest.get());
        EXPECT_EQ(dest.text(), row.text) << row.value;
        EXPECT_EQ(row.write(row.value, nullptr), nullptr);
        if (row.length) {
            EXPECT_EQ(row.length(row.value, dest), std::strlen(row.text)) << row.value;
        }
    }
}

TEST(Radix, HexRead) {
    struct Row {
        const char* text;
        std::uint32_t four, eight;  // of so many digits
    };
    // kept: letters above F spill into the next digit
    for (auto [text, four, eight] :
         {Row{"", 0, 0}, Row{nullptr, 0, 0}, Row{"1a2B", 0x1A2B, 0x1A2B}, Row{"123456", 0x3456, 0x123456},
          Row{"ffffffff", 0xFFFF, 0xFFFFFFFF}, Row{"f123456789", 0x6789, 0x23456789}, Row{"x#12", 0x12, 0x12},
          Row{"12\xC1", 0, 0}, Row{"zz", 0x233, 0x233}, Row{"zzzzzzzz", 0x23333, 0x33333333}, Row{"A@B", 0xB, 0xB},
          Row{"A[B", 0xB, 0xB}, Row{"A/B", 0xB, 0xB}, Row{"A:B", 0xB, 0xB}}) {
        EXPECT_EQ(lib().HexToDec(text), four) << text;
        EXPECT_EQ(lib().HexToWord(text), four & 0xFFFF) << text;
        EXPECT_EQ(lib().HexToDword(text), eight) << text;
        EXPECT_EQ(lib().HexToLong(text), static_cast<std::int32_t>(eight)) << text;
    }
}

TEST(Radix, BinRead) {
    struct Row {
        const char* text;
        std::int32_t value;
    };
    for (auto [text, value] :
         {Row{"", 0}, Row{"1 0 1", 5}, Row{"1111111111111111", -1}, Row{"b101z", 5}, Row{"1000000000000000", -32768},
          Row{"10000000000000000", 0}, Row{"0111111111111111", 32767}}) {
        EXPECT_EQ(lib().BinToNum(text), value) << text;
    }
}

TEST(Radix, AnyBase) {
    struct Row {
        const char* text;
        std::int32_t base, value;
    };
    for (auto [text, base, value] :
         {Row{"ff", 16, 255}, Row{"19", 8, 17}, Row{"1-2", 10, 0}, Row{"", 10, 0}, Row{"10", 1, 0}, Row{"10", 37, 0},
          Row{"zZ", 36, 1295}, Row{"4294967297", 10, 1}, Row{"2147483648", 10, INT32_MIN}, Row{" 1", 10, 0},
          Row{"Z", 2, 35}, Row{nullptr, 10, 0}}) {
        EXPECT_EQ(lib().BaseToNum(text, base), value) << (text ? text : "NULL") << " base " << base;
    }
    Dest none(1);
    for (std::int32_t base : {1, 0, -1, 37, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(lib().NumToBase(10, base, none), none.get());
        EXPECT_EQ(none.text(), "") << base;
    }
    Dest dest(33);
    EXPECT_STREQ(lib().NumToBase(255, 16, dest), "FF");
    EXPECT_STREQ(lib().NumToBase(0xFFFFFFFF, 2, dest), std::string(32, '1').c_str());
    EXPECT_EQ(lib().StrNumToBase(0, 2, dest), 1u);
    EXPECT_EQ(dest.text(), "0");
    RandomTexts random(41);
    for (std::int32_t base = 2; base <= 36; ++base) {
        for (int i = 0; i < 200; ++i) {
            auto value = static_cast<std::uint32_t>(random.number(INT32_MIN, INT32_MAX)) >> random.number(0, 31);
            lib().NumToBase(value, base, dest);
            EXPECT_EQ(static_cast<std::uint32_t>(lib().BaseToNum(dest, base)), value)
                << dest.text() << " base " << base;
            EXPECT_TRUE(dest.text() == "0" || dest.text()[0] != '0') << dest.text();
        }
    }
}

TEST(Radix, BitStrip) {
    Dest dest(4);
    EXPECT_EQ(lib().BitStrip("\xC1\x8D\x41", dest), dest.get());
    EXPECT_EQ(dest.text(), "A\rA");
    Edit edit("\xC1\xE2");
    EXPECT_EQ(lib().BitStrip(edit, nullptr), nullptr) << "kept: the destination argument comes back as given";
    EXPECT_EQ(edit.text(), "Ab");
    EXPECT_EQ(lib().StrBitStrip(Edit("\xC1\xE2\x80x"), nullptr), 2u) << "0x80 becomes the end";
}

}  // namespace
}  // namespace vx::test
