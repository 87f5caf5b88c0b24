// Trimming, justifying, centring and padding.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using PointerForm = char*(VX_CALL*)(const char*, char*);
using LengthForm = std::uint32_t(VX_CALL*)(const char*, char*);
using LengthOnly = std::uint32_t(VX_CALL*)(const char*);

// Runs a text-to-text function with a destination and in place; both must give the same text.
std::string bothWays(PointerForm call, const std::string& text, const char* what) {
    Dest dest(text.size() + 1);
    EXPECT_EQ(call(text.c_str(), dest), dest.get()) << what;
    Edit edit(text);
    call(edit, nullptr);
    EXPECT_EQ(edit.text(), dest.text()) << what << " in place: [" << text << "]";
    return dest.text();
}

TEST(Trim, BlanksAtTheEnds) {
    struct Row {
        const char* text;
        const char* all;
        const char* left;
        const char* right;
    };
    const Row rows[] = {
        {"", "", "", ""},
        {"   ", "", "", ""},
        {"ab", "ab", "ab", "ab"},
        {"  a b  ", "a b", "a b  ", "  a b"},
        {" \tx\t ", "\tx\t", "\tx\t ", " \tx\t"},  // tabs are no blanks
        {"\xA0 \xFF ", "\xA0 \xFF", "\xA0 \xFF ", "\xA0 \xFF"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(bothWays(lib().AllTrim, row.text, "AllTrim"), row.all);
        EXPECT_EQ(bothWays(lib().LTrim, row.text, "LTrim"), row.left);
        EXPECT_EQ(bothWays(lib().RTrim, row.text, "RTrim"), row.right);
        struct Form {
            LengthOnly only;
            LengthForm form;
            const char* result;
        };
        for (auto [only, form, result] :
             {Form{lib().AllTrimLen, lib().stralltrim, row.all}, Form{lib().LTrimLen, lib().strltrim, row.left},
              Form{lib().RTrimLen, lib().strrtrim, row.right}}) {
            Dest dest(std::strlen(row.text) + 1);
            EXPECT_EQ(only(row.text), std::strlen(result)) << row.text;
            EXPECT_EQ(form(row.text, dest), std::strlen(result)) << row.text;
        }
    }
}

TEST(Trim, ReturnValuesInPlaceAndOfNull) {
    for (PointerForm call : {lib().AllTrim, lib().RTrim, lib().TrimPunct, lib().RJust}) {
        Edit edit(" a ");
        EXPECT_EQ(call(edit, nullptr), edit.get());
    }
    for (PointerForm call : {lib().LTrim, lib().LJust}) {
        Edit edit(" a ");
        EXPECT_EQ(call(edit, nullptr), nullptr) << "kept: the destination argument comes back as given";
    }
    Edit edit("  abc ");
    EXPECT_EQ(lib().strltrim(edit, nullptr), 4u) << "the length of what was left behind";
    for (PointerForm call : {lib().AllTrim, lib().LTrim, lib().RTrim, lib().TrimPunct, lib().LJust}) {
        Dest dest(1);
        EXPECT_EQ(call(nullptr, dest), dest.get());
        EXPECT_EQ(dest.text(), "");
        EXPECT_EQ(call(nullptr, nullptr), nullptr);
    }
    EXPECT_EQ(lib().AllTrimLen(nullptr) + lib().LTrimLen(nullptr) + lib().RTrimLen(nullptr) +
                  lib().ChrTrimLen(nullptr, "x", 0),
              0u);
}

TEST(Trim, Sets) {
    struct Row {
        const char* text;
        const char* set;
        std::int32_t mode;
        const char* result;
    };
    const Row rows[] = {
        {"--a--", "-", 0, "a"},
        {"--a--", "-", 1, "--a"},
        {"--a--", "-", -1, "a--"},
        {"--a--", "-", 2, "--a--"},
        {"--a--", "-", -2, "--a--"},
        {"-+-", "+-", 0, ""},
        {"-+-", "+-", 1, ""},
        {"-+-", "+-", -1, ""},
        {" a ", "", 0, " a "},
        {" a ", nullptr, 0, " a "},
        {"", "-", 0, ""},
        {"\xFF\x80z\x80", "\x80\xFF", 0, "z"},
        {"ab-ba", "ab", 0, "-"},
        {"\t x \t", "\t ", 0, "x"},
    };
    for (const Row& row : rows) {
        Dest dest(std::strlen(row.text) + 1);
        EXPECT_EQ(lib().ChrTrim(row.text, row.set, row.mode, dest), dest.get());
        EXPECT_EQ(dest.text(), row.result) << row.text << " mode " << row.mode;
        EXPECT_EQ(lib().ChrTrimLen(row.text, row.set, row.mode), std::strlen(row.result)) << row.text;
        Edit edit(row.text);
        EXPECT_EQ(lib().strchrtrim(edit, row.set, row.mode, nullptr), std::strlen(row.result)) << row.text;
        EXPECT_EQ(edit.text(), row.result) << row.text;
    }
}

TEST(Trim, Punctuation) {
    struct Row {
        const char* text;
        const char* result;
    };
    for (auto [text, result] :
         {Row{"...Hello, world!!!", "Hello, world"}, Row{"!?-", ""}, Row{"", ""}, Row{"(7)", "7"}, Row{"[\t]", "\t"},
          Row{"\x80z\xE4", "z"}, Row{"a", "a"}, Row{" AZaz09 ", "AZaz09"}, Row{"@[`{/:", ""}}) {
        EXPECT_EQ(bothWays(lib().TrimPunct, text, "TrimPunct"), result) << text;
    }
}

TEST(Trim, JustifyWithinTheLength) {
    struct Row {
        const char* text;
        const char* left;
        const char* right;
    };
    const Row rows[] = {{" ab  ", "ab   ", "   ab"}, {"", "", ""},         {"   ", "   ", "   "}, {"ab", "ab", "ab"},
                        {"a b ", "a b ", " a b"},    {"  x", "x  ", "  x"}};
    for (const Row& row : rows) {
        EXPECT_EQ(bothWays(lib().RJust, row.text, "RJust"), row.right) << row.text;
        Edit inPlace(row.text);
        EXPECT_EQ(lib().strljust(inPlace, nullptr), std::strlen(row.left)) << row.text;
        EXPECT_EQ(inPlace.text(), row.left) << row.text;
        Edit ended(std::string(std::strlen(row.text), '?'));
        EXPECT_EQ(lib().LJust(row.text, ended), ended.get());
        EXPECT_EQ(ended.text(), row.left) << row.text;
    }
    // kept: LJust leaves the end to its caller
    char open[] = "?????tail";
    lib().LJust("  a", open);
    EXPECT_STREQ(open, "a  ??tail");
    char untouched[] = "as it was";
    EXPECT_EQ(lib().RJust(nullptr, untouched), untouched);
    EXPECT_STREQ(untouched, "as it was");
}

TEST(Pad, CentringInAWidth) {
    struct Row {
        const char* text;
        std::int32_t width;
        const char* fill;
        const char* center;
        const char* strCenter;
    };
    const Row rows[] = {
        {"abc", 8, "x", "xxabc", "xxabcxxx"},
        {"abc", 2, "x", "ab", "ab"},
        {"abcdef", 2, "x", "ab", "cd"},
        {"abc", 3, "x", "abc", "abc"},
        {"abc", 0, "x", "", ""},
        {"abc", -4, "x", "", ""},
        {"", 4, "x", "xx", "xxxx"},
        {nullptr, 3, "x", "x", "xxx"},
        {"abc", 4, "xy", "abc", "abcx"},
        {"abc", 7, "", "  abc", "  abc  "},
        {"ab", 6, nullptr, "  ab", "  ab  "},
        {"abcde", 2, "x", "ab", "bc"},
    };
    for (const Row& row : rows) {
        std::size_t room = static_cast<std::size_t>(std::max(row.width, 0)) + 1;
        Dest center(room);
        EXPECT_EQ(lib().Center(row.text, row.width, row.fill, center), center.get());
        EXPECT_EQ(center.text(), row.center) << row.width;
        Dest strCenter(room);
        EXPECT_EQ(lib().StrCenter(row.text, row.width, row.fill, strCenter), strCenter.get());
        EXPECT_EQ(strCenter.text(), row.strCenter) << row.width;
        EXPECT_EQ(lib().str_center(row.text, row.width, row.fill, center), std::strlen(row.center));
        EXPECT_EQ(lib().strstrcenter(row.text, row.width, row.fill, strCenter), std::strlen(row.strCenter));
    }
    EXPECT_EQ(lib().Center("a", 3, "x", nullptr), nullptr);
    EXPECT_EQ(lib().StrCenter("a", 3, "x", nullptr), nullptr);
    EXPECT_EQ(lib().strstrcenter("a", 3, "x", nullptr), 0u);
}

TEST(Pad, LeadingAndTrailingBlanksFilled) {
    struct Row {
        const char* text;
        const char* leadInPlace;
        const char* leadInDest;
        const char* trail;
    };
    const Row rows[] = {
        {"  abc  ", "**abc  ", "**c  ", "  abc**"},
        {"abc", "abc", "abc", "abc"},
        {"   ", "***", "***", "***"},
        {"", "", "", ""},
        {"   a", "***a", "***", "   a"},
        {" a b ", "*a b ", "* b ", " a b*"},
    };
    for (const Row& row : rows) {
        std::size_t room = std::strlen(row.text) + 1;
        Dest dest(room);
        EXPECT_EQ(lib().LeadChar(row.text, "*", dest), dest.get());
        EXPECT_EQ(dest.text(), row.leadInDest) << "kept: [" << row.text << "]";
        Edit lead(row.text);
        EXPECT_EQ(lib().LeadChar(lead, "*", nullptr), lead.get());
        EXPECT_EQ(lead.text(), row.leadInPlace) << row.text;
        Dest trailDest(room);
        EXPECT_EQ(lib().TrailChar(row.text, "*", trailDest), trailDest.get());
        EXPECT_EQ(trailDest.text(), row.trail) << row.text;
        Edit trail(row.text);
        EXPECT_EQ(lib().strtrailchar(trail, "*", nullptr), std::strlen(row.trail));
        EXPECT_EQ(trail.text(), row.trail) << row.text;
    }
}

TEST(Pad, UnTrim) {
    struct Row {
        const char* text;
        std::int32_t width;
        const char* fill;
        const char* result;
    };
    for (auto [text, width, fill, result] :
         {Row{"abc", 5, nullptr, "abc  "}, Row{"abc", 5, "", "abc  "}, Row{"abc", 5, ".-", "abc.."},
          Row{"abc", 2, nullptr, "ab"}, Row{"abc", 3, "x", "abc"}, Row{"abc", 0, "x", ""}, Row{"abc", -1, "x", ""},
          Row{"", 2, "x", "xx"}}) {
        std::size_t room = static_cast<std::size_t>(std::max(width, 0)) + 1;
        Dest dest(room);
        EXPECT_EQ(lib().UnTrim(text, width, fill, dest), dest.get());
        EXPECT_EQ(dest.text(), result) << width;
        Edit edit(text, room);
        EXPECT_EQ(lib().struntrim(edit, width, fill, nullptr), std::strlen(result));
        EXPECT_EQ(edit.text(), result) << width;
    }
    Dest untouched(4);
    EXPECT_STREQ(lib().UnTrim(nullptr, 3, "x", untouched), "");
    EXPECT_EQ(untouched.get()[0], '~');
}

TEST(Pad, Copies) {
    struct Row {
        const char* text;
        std::int32_t count;
        const char* result;
    };
    for (auto [text, count, result] : {Row{"ab", 3, "ababab"}, Row{"ab", 0, ""}, Row{"ab", -1, ""},
                                       Row{"", 1000000000, ""}, Row{nullptr, 3, ""}, Row{"-", 1, "-"}}) {
        Dest dest(std::strlen(result) + 1);
        EXPECT_EQ(lib().Replicate(text, count, dest), dest.get());
        EXPECT_EQ(dest.text(), result);
        EXPECT_EQ(lib().strreplicate(text, count, dest), std::strlen(result));
    }
    EXPECT_EQ(lib().Replicate("ab", 3, nullptr), nullptr);
}

TEST(Pad, CharactersSet) {
    Dest dest(5);
    EXPECT_EQ(lib().StrnSet(dest, 'x' | 0x4100, 4), dest.get() + 4) << "kept: the terminator";
    EXPECT_EQ(dest.text(), "xxxx");
    EXPECT_EQ(lib().strstrnset(dest, '-', 2), 2u);
    EXPECT_EQ(dest.text(), "--");
    EXPECT_EQ(lib().StrnSet(dest, 'y', -3), dest.get());
    EXPECT_EQ(dest.text(), "--") << "a negative count does nothing";
    EXPECT_EQ(lib().strstrnset(dest, 'y', -3), 0u);
    EXPECT_EQ(lib().StrnSet(dest, 'y', 0), dest.get());
    EXPECT_EQ(dest.text(), "");
    EXPECT_EQ(lib().StrnSet(nullptr, 'y', 3), nullptr);
}

TEST(Pad, FillCharacterIsTheLibrarys) {
    EXPECT_EQ(lib().SetFillChar(0), ' ');
    EXPECT_EQ(lib().SetFillChar('*' | 0x300), ' ');
    EXPECT_EQ(lib().SetFillChar(0x100), '*') << "the low byte is 0, so this only asks";
    Dest dest(8);
    EXPECT_STREQ(lib().Center("a", 4, nullptr, dest), "*a");
    EXPECT_STREQ(lib().StrCenter("a", 4, "", dest), "*a**");
    EXPECT_STREQ(lib().TrailChar("a  ", nullptr, dest), "a**");
    EXPECT_STREQ(lib().LeadChar("  abc", "", dest), "**c");
    EXPECT_STREQ(lib().UnTrim("a", 3, nullptr, dest), "a  ") << "kept: UnTrim falls back to a blank";
    EXPECT_STREQ(lib().LJust(" a", std::strcpy(dest, "??")), "a ");
    EXPECT_EQ(lib().SetFillChar(' '), '*');
}

TEST(Pad, BlankTexts) {
    struct Row {
        const char* text;
        std::int32_t result;
    };
    for (auto [text, result] :
         {Row{nullptr, 0}, Row{"", 1}, Row{"\t  ", 1}, Row{" x ", 0}, Row{"\n", 0}, Row{" \xA0", 0}})
        EXPECT_EQ(lib().StrEmpty(text), result);
}

}  // namespace
}  // namespace vx::test
