// The calculator: precedence, single precision, failures, and formats that could do harm.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>

#include "tests/support/environment.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

std::string calculated(const std::string& expression, const char* format) {
    Edit dest(std::string(513, '~'));
    EXPECT_EQ(lib().Calculate(expression.c_str(), format, dest), dest.get());
    return dest.text();
}

// What a failure leaves: one character, and all else as it was.
const std::string kFailed = "0" + std::string(512, '~');

TEST(Calculate, Values) {
    struct Row {
        const char* expression;
        const char* format;
        const char* result;
    };
    const Row rows[] = {
        {"1+2*3", "%.2f", "7.00"},        {"(1+2)*3", "%.2f", "9.00"},      {"2*3^2", "%.2f", "36.00"},
        {"2^3^2", "%.2f", "64.00"},       {"-2^2", "%.2f", "4.00"},         {"10-4-3", "%.2f", "3.00"},
        {"1,000 + 1", "%.2f", "1001.00"}, {"1 0 0", "%.0f", "100"},         {"1.5*2", "%.2f", "3.00"},
        {"0.1", "%.10f", "0.1000000015"}, {"1/0", "%.2f", "0.00"},          {"1/0+5", "%.2f", "5.00"},
        {"3*1/0-5", "%.2f", "-5.00"},     {"(1+2", "%.2f", "0.00"},         {"5+(1+2", "%.2f", "5.00"},
        {"--3", "%.2f", "3.00"},          {"---3", "%.2f", "-3.00"},        {"2*-3", "%.2f", "-6.00"},
        {"-(1+2)", "%.2f", "-3.00"},      {"1.2.3", "%.2f", "1.23"},        {"7.", "%.1f", "7.0"},
        {"4^0.5", "%.3f", "2.000"},       {"16777217", "%.0f", "16777216"}, {"0.1+0.2", "%.9f", "0.300000012"},
        {"1/3*3", "%.9f", "1.000000000"}, {"((((7))))", "%g", "7"},         {"(1/0*2", "%.1f", "0.0"},
        {"\t1\r\n+\t1 ", "%.0f", "2"},    {"-0", "%.1f", "-0.0"},           {"1-2+3", "%.0f", "2"},
        {"8/2/2", "%.0f", "2"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(calculated(row.expression, row.format), row.result) << row.expression;
    }
}

TEST(Calculate, Failures) {
    for (const char* expression :
         {"2)", "abc", "+1", "1/0*2", "(1/0*2)", "", "1+", "*2", "1..2", ".5", "1e5", "()", "2(3)", "2$", "\xC1"}) {
        EXPECT_EQ(calculated(expression, "%.2f"), kFailed) << expression;
    }
    Edit dest("abc");
    EXPECT_EQ(lib().StrCalculate(nullptr, "%f", dest), 3u);
    EXPECT_EQ(dest.text(), "0bc") << "kept: one character, no terminator";
    EXPECT_EQ(lib().Calculate("1", "%f", nullptr), nullptr);
}

TEST(Calculate, Formats) {
    struct Row {
        const char* format;
        const char* result;  // of 2.5
    };
    for (auto [format, result] :
         {Row{"%f", "2.500000"}, Row{"%8.2f|", "    2.50|"}, Row{"%-8.2f|", "2.50    |"}, Row{"%+e", "+2.500000e+00"},
          Row{"100%% %g%%", "100% 2.5%"}, Row{"%lf", "2.500000"}, Row{"%#.f", "2."}, Row{" %.1f EUR", " 2.5 EUR"},
          Row{"%-+ #0-+G|", "+2.50000|"}, Row{"%0000000000006.1f", "0002.5"}}) {
        EXPECT_EQ(calculated("2.5", format), result) << format;
    }
    for (const char* format : {"",      static_cast<const char*>(nullptr),
                               "%x %f", "%d",
                               "%s",    "%n",
                               "%f%f",  "%f%n",
                               "%*f",   "%.*f",
                               "%Lf",   "%hf",
                               "%llf",  "%",
                               "%f%",   "%.",
                               "%%",    "%1$f",
                               "%'f",   "%.-1f"}) {
        EXPECT_EQ(calculated("2.5", format), kFailed) << (format ? format : "NULL");
    }
    // What is too long is cut, and no number is too large for a width or a precision.
    EXPECT_EQ(calculated("1", (std::string(600, 'x') + "%f").c_str()), std::string(513, 'x'));
    for (const char* format : {"%600f", "%9999f", "%10000f", "%99999999999f", "%18446744073709551616.2f"})
        EXPECT_EQ(calculated("1", format), std::string(513, ' ')) << format;
    for (const char* format : {"%.600f", "%.99999f", "%.99999999999f"})
        EXPECT_EQ(calculated("1", format), "1." + std::string(511, '0')) << format;
}

TEST(Calculate, HostLocaleDoesNotShow) {
    const char* const names[] = {"de_DE.UTF-8", "de_DE", "German", "fr_FR.UTF-8", "ru_RU.UTF-8"};
    if (std::none_of(std::begin(names), std::end(names), [](auto name) { return std::setlocale(LC_NUMERIC, name); })) {
#if !defined(_WIN32)
        if (!std::getenv("LOCPATH")) return rerunInSecondLocale("Calculate.HostLocaleDoesNotShow");
#endif
        GTEST_SKIP() << "no locale with a decimal comma is installed";
    }
    const std::string result = calculated("5/2", "%.2f");
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(result, "2.50");
}

// The grammar written down once more, recursively, in floats that are rounded by being stored.
struct Model {
    std::string text;  // without blanks
    std::size_t at = 0;
    bool wellFormed = true;

    char now() const { return at < text.size() ? text[at] : '\0'; }

    float expression() {
        volatile float sum = term();
        while (now() == '+' || now() == '-') sum = text[at++] == '+' ? sum + term() : sum - term();
        return sum;
    }

    float term() {
        volatile float product = factor();
        while (now() == '*' || now() == '/' || now() == '^') {
            char operation = text[at++];
            float right = factor();
            if (operation == '/' && right == 0) return 0;
            if (operation == '*') product = product * right;
            if (operation == '/') product = product / right;
            if (operation == '^') product = static_cast<float>(std::pow(double{product}, double{right}));
        }
        return product;
    }

    float factor() {
        if (now() == '-') return ++at, -factor();
        if (now() == '(') {
            ++at;
            float value = expression();
            return now() == ')' ? (++at, value) : 0;
        }
        if (!std::isdigit(static_cast<unsigned char>(now()))) return wellFormed = false, 0.0f;
        volatile float value = 0;
        bool point = false;
        int decimals = 0;
        while (std::isdigit(static_cast<unsigned char>(now()))) {
            value = value * 10.0f;
            value = value + static_cast<float>(text[at++] - '0');
            decimals += point;
            if (now() == '.') point = true, ++at;
        }
        while (decimals-- > 0) value = value * 0.1f;
        return value;
    }
};

TEST(Calculate, AgreesWithTheGrammar) {
    RandomTexts random(43);
    int failures = 0;
    for (int i = 0; i < 20000; ++i) {
        std::string expression = random.text(random.number(0, 3) ? "0123+-*/^()" : "1.9-+*/(", 14);
        Model model{expression};
        float value = model.expression();
        bool fine = model.wellFormed && model.at == expression.size();
        failures += !fine;
        char expected[600];
        std::snprintf(expected, sizeof expected, "%.9g", static_cast<double>(value));
        EXPECT_EQ(calculated(expression, "%.9g"), fine ? expected : kFailed) << expression;
    }
    EXPECT_LT(failures, 19000) << "hardly any expression was sound";
}

TEST(Calculate, DepthDoesNotGrowTheStack) {
    std::string open(3000000, '(');
    EXPECT_EQ(calculated(open + "1", "%.0f"), "0");
    EXPECT_EQ(calculated(open + "7" + std::string(open.size(), ')'), "%.0f"), "7");
    EXPECT_EQ(calculated(std::string(3000001, '-') + "7", "%.0f"), "-7");
}

}  // namespace
}  // namespace vx::test
