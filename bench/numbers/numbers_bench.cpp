// Conversions against what the C library offers.
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "bench/support/pair.h"
#include "tests/support/library.h"

namespace vx::bench {
namespace {

using test::lib;

// A plain recursive evaluator on strtof, without blanks inside numbers.
struct Descent {
    const char* at;

    float factor() {
        if (*at == '-') return ++at, -factor();
        if (*at != '(') return std::strtof(at, const_cast<char**>(&at));
        ++at;
        float value = sum();
        ++at;
        return value;
    }
    float product() {
        float value = factor();
        while (*at == '*' || *at == '/' || *at == '^') {
            char operation = *at++;
            float right = factor();
            value = operation == '*' ? value * right : operation == '/' ? value / right : std::pow(value, right);
        }
        return value;
    }
    float sum() {
        float value = product();
        while (*at == '+' || *at == '-') value = *at++ == '+' ? value + product() : value - product();
        return value;
    }
};

const Cases cases([] {
    auto dest = std::make_shared<std::array<char, 600>>();
    char* to = dest->data();
    static const char* volatile expression = "(12.5+3)*4-100/8+2^3*(7-2.25)";
    pair(
        "Calculate", 0, [=, call = lib().Calculate] { return call(expression, "%.2f", dest->data()); },
        [=] {
            Descent descent{expression};
            return std::snprintf(to, 600, "%.2f", static_cast<double>(descent.sum()));
        });
    static volatile std::uint32_t number = 0xBEEF1234;
    pair(
        "LongToHex", 0, [=, call = lib().LongToHex] { return call(number, to); },
        [=] { return std::snprintf(to, 600, "%08X", number); });
    static volatile std::int32_t year = 1994;
    pair(
        "NumToRoman", 0, [=, call = lib().NumToRoman] { return call(year, to); },
        [=] {
            static const char* const hundreds[] = {"", "C", "CC", "CCC", "CD", "D", "DC", "DCC", "DCCC", "CM"};
            static const char* const tens[] = {"", "X", "XX", "XXX", "XL", "L", "LX", "LXX", "LXXX", "XC"};
            static const char* const units[] = {"", "I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX"};
            int value = year;
            char* end = to;
            for (int n = value / 1000; n > 0; --n) *end++ = 'M';
            for (const char* piece : {hundreds[value / 100 % 10], tens[value / 10 % 10], units[value % 10]}) {
                while (*piece) *end++ = *piece++;
            }
            *end = '\0';
            return end;
        });
});

}  // namespace
}  // namespace vx::bench
