// The calculator against its grammar, and in a locale with a decimal comma.
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

}  // namespace
}  // namespace vx::test
