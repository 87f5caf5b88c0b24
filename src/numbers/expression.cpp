// The evaluator: it reads the expression once, one character ahead, and holds a term and a sum for each parenthesis
// that is open. Products go from left to right, and so do sums; all steps are rounded to 32 bits.
#include "numbers/expression.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

#include "frame/text.h"

namespace vx {
namespace {

// The expression, character by character; blanks and commas are nowhere to be seen.
class Reader {
 public:
    explicit Reader(const char* text) : next_(text ? text : "") { advance(); }

    char current() const { return current_; }

    void advance() {
        do {
            current_ = *next_;
            if (current_) ++next_;
        } while (current_ == ' ' || current_ == '\t' || current_ == '\r' || current_ == '\n' || current_ == ',');
    }

    bool skip(char c) {
        if (current_ != c) return false;
        advance();
        return true;
    }

    bool atDigit() const { return current_ >= '0' && current_ <= '9'; }

    float number() {
        float value = 0;
        int decimals = 0;
        bool inDecimals = false;
        while (atDigit()) {
            value = value * 10.0f;
            value = value + static_cast<float>(current_ - '0');
            advance();
            if (inDecimals) ++decimals;
            // kept: each point is skipped, so 1.2.3 is 1.23
            if (skip('.')) inDecimals = true;
        }
        // More would change nothing: the value is 0 by then.
        for (int i = std::min(decimals, 1000); i > 0; --i) value = value * 0.1f;
        return value;
    }

 private:
    const char* next_;
    char current_ = '\0';
};

// An expression that is being evaluated; a parenthesis opens another one within it.
struct Level {
    float sum = 0;
    float product = 0;
    char addition = '\0';        // none: this is the first term
    char multiplication = '\0';  // none: this is the term's first factor
    bool negated = false;        // the factor that is being read
};

void add(Level& level) {
    if (level.addition == '\0') {
        level.sum = level.product;  // not 0 + product: a term of -0 stays what it is
    } else {
        level.sum = level.addition == '+' ? level.sum + level.product : level.sum - level.product;
    }
}

// Whether the term goes on; a division by zero ends it.
bool multiply(Level& level, float factor) {
    switch (level.multiplication) {
        case '*':
            level.product = level.product * factor;
            return true;
        case '/':
            // kept: the term becomes 0 and what it had is forgotten
            if (factor == 0) {
                level.product = 0;
                return false;
            }
            level.product = level.product / factor;
            return true;
        case '^':
            level.product =
                static_cast<float>(std::pow(static_cast<double>(level.product), static_cast<double>(factor)));
            return true;
        default:
            level.product = factor;
            return true;
    }
}

// The levels around the one that is being evaluated: at most one for each opening parenthesis.
class OuterLevels {
 public:
    explicit OuterLevels(const char* expression) {
        constexpr std::size_t kMost = PTRDIFF_MAX / sizeof(Level);
        std::string_view text = view(expression);
        const auto most = static_cast<std::size_t>(std::count(text.begin(), text.end(), '('));
        if (most <= kUsual) return;
        if (most <= kMost) large_.reset(new (std::nothrow) Level[most]);
        levels_ = large_.get();
    }
    OuterLevels(const OuterLevels&) = delete;
    OuterLevels& operator=(const OuterLevels&) = delete;

    // Whether there is memory for them.
    explicit operator bool() const { return levels_ != nullptr; }

    bool empty() const { return count_ == 0; }
    void push(const Level& level) { levels_[count_++] = level; }
    const Level& pop() { return levels_[--count_]; }

 private:
    static constexpr std::size_t kUsual = 8;

    std::size_t count_ = 0;
    Level usual_[kUsual];
    std::unique_ptr<Level[]> large_;
    Level* levels_ = usual_;
};

}  // namespace

std::optional<float> evaluate(const char* expression) {
    Reader reader(expression);
    OuterLevels outer(expression);
    if (!outer) return std::nullopt;
    Level level;
    while (true) {
        while (reader.skip('-')) level.negated = !level.negated;
        if (reader.skip('(')) {
            outer.push(level);
            level = Level();
            continue;
        }
        if (!reader.atDigit()) return std::nullopt;
        float factor = reader.number();
        while (true) {
            bool goesOn = multiply(level, level.negated ? -factor : factor);
            level.negated = false;
            char operation = reader.current();
            // kept: power has no precedence of its own
            if (goesOn && (operation == '*' || operation == '/' || operation == '^')) {
                level.multiplication = operation;
                break;
            }
            add(level);
            level.multiplication = '\0';
            if (operation == '+' || operation == '-') {
                level.addition = operation;
                break;
            }
            if (outer.empty()) return operation ? std::nullopt : std::optional(level.sum);
            // kept: without its parenthesis the value is 0, and that is no mistake
            factor = reader.skip(')') ? level.sum : 0;
            level = outer.pop();
        }
        reader.advance();
    }
}

}  // namespace vx
