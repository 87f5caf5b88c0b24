// Numbers, times and names in locales that write them in ways of their own.
#include <gtest/gtest.h>

#if !defined(_WIN32)
#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "tests/support/environment.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

struct Row {
    const char* numbers;  // the locale that they come from
    const char* times;
    const char* number;
    const char* time;
    const char* january;   // short
    const char* november;  // in full
};

// The character for groups is that of amounts of money, an apostrophe of three bytes, or none; a full stop stands
// before the marker; names have more than 31 bytes, or a blank in front.
const Row kRows[] = {
    {"pt_PT", "sq_AL", "1.234.567,00", "9:05:03", "Jan", "nëntor"},
    {"de_CH", "bo_CN", "1'234'567.00", "ཆུ་ཚོད09ཀསར་མ05ཀསར་ཆ03", "ཟླ་༡", "ཟླ་བ་བཅུ་ག"},
    {"kab_DZ", "hak_TW", "1234567,00", "09點05分03秒", "1月", "十一月"},
};

std::string nameOf(const Row& row) { return std::string(row.numbers) + "_" + row.times; }

// Of two locales' parts; the parts that matter to nobody here are those that are made fast.
std::string sourceOf(const Row& row) {
    std::string source;
    for (auto [category, from] : {std::pair("NUMERIC", row.numbers),
                                  {"MONETARY", row.numbers},
                                  {"TIME", row.times},
                                  {"CTYPE", "POSIX"},
                                  {"COLLATE", "POSIX"},
                                  {"MESSAGES", "en_US"},
                                  {"PAPER", "en_US"},
                                  {"IDENTIFICATION", "en_US"},
                                  {"NAME", "en_US"},
                                  {"ADDRESS", "en_US"},
                                  {"TELEPHONE", "en_US"},
                                  {"MEASUREMENT", "en_US"}}) {
        std::string part = std::string("LC_") + category;
        source += part + "\ncopy \"" + from + "\"\nEND " + part + "\n";
    }
    return source;
}

void expectTextsOf(const Row& row) {
    Dest dest(64);
    EXPECT_STREQ(lib().Comma("1234567", dest), row.number) << row.numbers;
    EXPECT_STREQ(lib().IntToTime(9, 5, 3, dest), row.time) << row.times;
    EXPECT_STREQ(lib().NumToMon(1, dest), row.january) << row.times;
    EXPECT_STREQ(lib().NumToMonth(11, dest), row.november) << row.times;
}

TEST(OtherLocales, Texts) {
    const char* now = std::getenv("LC_ALL");
    auto mine = std::find_if(std::begin(kRows), std::end(kRows),
                             [=](const Row& row) { return now && nameOf(row) + ".UTF-8" == now; });
    if (mine != std::end(kRows)) return expectTextsOf(*mine);
    for (const Row& row : kRows) rerunIn(nameOf(row), "OtherLocales.Texts", sourceOf(row));
}

}  // namespace
}  // namespace vx::test
#endif
