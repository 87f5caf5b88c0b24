// Character tables, setters and predicates.
#include <gtest/gtest.h>

#include <string>

#include "catalog/catalog.h"
#include "frame/entry.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using CharPredicate = std::int32_t(VX_CALL*)(std::int32_t);
using TextPredicate = std::int32_t(VX_CALL*)(const char*, std::int32_t);

CharPredicate charPredicate(const char* name) { return reinterpret_cast<CharPredicate>(address(name)); }
TextPredicate textPredicate(const char* name) { return reinterpret_cast<TextPredicate>(address(name)); }

// Characters as ranges: "AZaz" is A-Z and a-z.
bool within(int c, std::string_view ranges) {
    for (std::size_t i = 0; i + 1 < ranges.size(); i += 2) {
        if (c >= static_cast<std::uint8_t>(ranges[i]) && c <= static_cast<std::uint8_t>(ranges[i + 1])) return true;
    }
    return false;
}

struct Class {
    const char* ofChar;
    const char* ofText;
    std::uint32_t bit;
    std::string_view members;
};

const Class kClasses[] = {
    {"IsChrAlpha", "IsAlpha", 0x001, "AZaz"},
    {"IsChrAscii", "IsAscii", 0x002, "\x01\x7F"},
    {"IsChrDigit", "IsDigit", 0x010, "09"},
    {"IsChrNum", "IsNum", 0x020, "09++--.."},
    {"IsChrSpace", "IsSpace", 0x040, "\t\t  "},
    {"IsChrHex", "IsHexDigit", 0x080, "09AFaf"},
    {"IsChrCntrl", "IsCntrl", 0x100, std::string_view("\0\x1F\x7F\x7F", 4)},
    {"IsChrPrint", "IsPrint", 0x200, " ~"},
    {"IsChrPunct", "IsPunct", 0x400, "!/:@[`{~"},
    {"IsChrWhite", "IsWhite", 0x800, "\t\n\r\r  \x8A\x8A\x8D\x8D"},
};

TEST(Classes, EveryCharacterOfEveryClass) {
    for (const Class& row : kClasses) {
        for (int c = 0; c < 256; ++c) {
            std::int32_t expected = within(c, row.members);
            EXPECT_EQ(charPredicate(row.ofChar)(c), expected) << row.ofChar << " " << c;
            EXPECT_EQ(charPredicate(row.ofChar)(c | 0x7700), expected)
                << row.ofChar << ": only the low byte counts, " << c;
            if (c == 0) continue;
            std::string text(1, static_cast<char>(c));
            EXPECT_EQ(textPredicate(row.ofText)(text.c_str(), 1), expected) << row.ofText << " " << c;
            EXPECT_EQ(lib().IsStrType(text.c_str(), 1, row.bit), expected) << row.bit << " " << c;
        }
    }
    for (int c = 1; c < 256; ++c) {
        std::string text(1, static_cast<char>(c));
        EXPECT_EQ(lib().IsStrType(text.c_str(), 1, 0x004), c >= 'a' && c <= 'z') << c;
        EXPECT_EQ(lib().IsStrType(text.c_str(), 1, 0x008), c >= 'A' && c <= 'Z') << c;
        EXPECT_EQ(lib().IsChrUpper(c), lib().ChrUpper(c) == c) << c;
        EXPECT_EQ(lib().IsChrLower(c), lib().ChrLower(c) == c) << c;
    }
}

TEST(Classes, TextPredicates) {
    struct Row {
        const char* name;
        const char* text;
        std::int32_t count;
        std::int32_t result;
    };
    const Row rows[] = {
        {"IsAlpha", "", 10, 1},     {"IsAlpha", "123", 0, 1},       {"IsAlpha", "123", -5, 1},
        {"IsAlpha", nullptr, 3, 1}, {"IsAlpha", "ab1", 2, 1},       {"IsAlpha", "ab1", 3, 0},
        {"IsAlpha", "ab", 1000, 1}, {"IsAlpha", "1ab", 3, 0},       {"IsNum", "1,000", 9, 0},
        {"IsNum", "-1.5", 9, 1},    {"IsSpace", "\n", 1, 0},        {"IsWhite", "\n", 1, 1},
        {"IsUpper", "A1!", 9, 1},   {"IsUpper", "Aa", 9, 0},        {"IsLower", "a1!", 9, 1},
        {"IsLower", "aA", 1, 1},    {"IsHexdigit", "09afAF", 9, 1}, {"isxdigit", "fg", 9, 0},
        {"_isdigit", "12", 2, 1},   {"isascii", "\x80", 1, 0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(textPredicate(row.name)(row.text, row.count), row.result)
            << row.name << "(" << (row.text ? row.text : "NULL") << ", " << row.count << ")";
    }
}

TEST(Classes, PredicatesByNumber) {
    const char* const bySelector[] = {"IsHexDigit", "IsUpper", "IsSpace", "IsPunct", "IsPrint", "IsNum",
                                      "IsLower",    "IsDigit", "IsCntrl", "IsAscii", "IsAlpha"};
    for (int selector = 1; selector <= 11; ++selector) {
        for (int c = 1; c < 256; ++c) {
            std::string text(1, static_cast<char>(c));
            EXPECT_EQ(lib().isthings(selector, text.c_str(), 1),
                      textPredicate(bySelector[selector - 1])(text.c_str(), 1))
                << selector << " " << c;
        }
    }
    for (std::int32_t selector : {0, 12, -1, INT32_MIN, INT32_MAX})
        EXPECT_EQ(lib().isthings(selector, "A", 1), 0) << selector;
}

TEST(Classes, CollateGoesThroughTheTable) {
    std::string all;
    std::string mapped;
    for (int c = 1; c < 256; ++c) {
        all += static_cast<char>(c);
        mapped += static_cast<char>(lib().ChrCollate(c | 0x100));
    }
    Dest dest(256);
    EXPECT_EQ(lib().Collate(all.c_str(), dest), dest.get());
    EXPECT_EQ(dest.text(), mapped);
    Edit edit(all);
    EXPECT_EQ(lib().Collate(edit, nullptr), edit.get());
    EXPECT_EQ(edit.text(), mapped);
    EXPECT_EQ(lib().strcollate(all.c_str(), dest), 255u);
    EXPECT_EQ(lib().Collate(nullptr, nullptr), nullptr);
}

struct TableCase {
    const char* name;
    std::int32_t(VX_CALL* set)(std::int32_t, std::int32_t);
    std::int32_t(VX_CALL* get)(std::int32_t);
};

TEST(Classes, SettersReportAndStore) {
    const TableCase rows[] = {{"upper", lib().SetUpperTable, lib().ChrUpper},
                              {"lower", lib().SetLowerTable, lib().ChrLower},
                              {"collate", lib().SetCollateTable, lib().ChrCollate}};
    for (const TableCase& row : rows) {
        std::int32_t before = row.get('x');
        EXPECT_EQ(row.set('x', 0), before) << row.name;
        EXPECT_EQ(row.set('x', 0x100), before) << row.name << ": the low byte is 0, so this only asks";
        EXPECT_EQ(row.get('x'), before) << row.name;
        EXPECT_EQ(row.set('x' | 0x5500, 0xE7), before) << row.name;
        EXPECT_EQ(row.get('x'), 0xE7) << row.name;
        EXPECT_EQ(row.set('x', before), 0xE7) << row.name;
        EXPECT_EQ(row.get('x'), before) << row.name;
    }
}

TEST(Classes, TypesAreAddedAndReportedInTheirLowByte) {
    EXPECT_EQ(lib().SetCharType('g', 0), 0x07);
    EXPECT_EQ(lib().SetCharType('a', 0), 0x87);
    // Nothing can take a class away again, so this one lies above those that other tests look at.
    EXPECT_EQ(lib().IsStrType("_", 1, 0x1000), 0);
    EXPECT_EQ(lib().SetCharType('_', 0x1000), 0x02);
    EXPECT_EQ(lib().IsStrType("_", 1, 0x1000), 1);
    EXPECT_EQ(lib().SetCharType('_', 0), 0x02) << "kept: classes from 0x100 upward are not reported";
    EXPECT_EQ(lib().IsStrType("_", 1, 0x400), 1) << "the classes that it had stay";
}

// The tables of the code page are the system's own on Windows; on Linux the built-in ones apply.
#if !defined(_WIN32)
TEST(Classes, BuiltInTables) {
    struct Row {
        std::int32_t(VX_CALL* map)(std::int32_t);
        char first, last;
        int shift;
        const char* pairs;
    };
    const Row rows[] = {{lib().ChrUpper, 'a', 'z', -32,
                         "\x81\x9A\x82\x45\x83\x41\x84\x8E\x85\x41\x86\x8F\x87\x80\x88\x45\x89\x45\x8A\x45\x8B\x49\x8C"
                         "\x49\x8D\x49\x91\x92\x93\x4F\x94\x99"
                         "\x95\x4F\x96\x55\x97\x55\x98\x59\xA0\x41\xA1\x49\xA2\x4F\xA3\x55\xA4\xA5"},
                        {lib().ChrLower, 'A', 'Z', 32, "\x80\x87\x8E\x84\x8F\x86\x92\x91\x99\x94\x9A\x81\xA5\xA4"},
                        {lib().ChrCollate, 'a', 'z', -32,
                         "\x80\x43\x81\x55\x82\x45\x83\x41\x84\x41\x85\x41\x86\x41\x87\x43\x88\x45\x89\x45\x8A\x45\x8B"
                         "\x49\x8C\x49\x8D\x49\x8E\x41\x8F\x41"
                         "\x90\x45\x91\x41\x92\x41\x93\x4F\x94\x4F\x95\x4F\x96\x55\x97\x55\x98\x59\x99\x4F\x9A\x55\x9B"
                         "\x24\x9C\x24\x9D\x24\x9E\x24\x9F\x24"
                         "\xA0\x41\xA1\x49\xA2\x4F\xA3\x55\xA4\x4E\xA5\x4E\xA8\x3F\xAD\x21\xAE\x22\xAF\x22\xE1\x53"}};
    for (const Row& row : rows) {
        for (int c = 0; c < 256; ++c) {
            int expected = c >= row.first && c <= row.last ? c + row.shift : c;
            for (const char* pair = row.pairs; *pair; pair += 2) {
                if (static_cast<std::uint8_t>(pair[0]) == c) expected = static_cast<std::uint8_t>(pair[1]);
            }
            EXPECT_EQ(row.map(c), expected) << c;
        }
    }
}
#endif

}  // namespace
}  // namespace vx::test
