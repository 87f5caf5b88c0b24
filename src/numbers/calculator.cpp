// The expression calculator: a reader of characters, a stack machine in 32-bit floats, and a checked format.
#include "entries/calculator.h"

#include <xmmintrin.h>

#include <algorithm>
#include <cfenv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <new>
#include <optional>
#include <vector>

#include "frame/text.h"

using namespace vx;

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

// An expression that is being evaluated; a parenthesis opens another one on top of it.
struct Frame {
    float sum = 0;
    float product = 0;
    char addition = '\0';        // none: this is the first term
    char multiplication = '\0';  // none: this is the term's first factor
    bool negated = false;        // the factor that is being read
};

void add(Frame& frame) {
    if (frame.addition == '\0') {
        frame.sum = frame.product;  // not 0 + product: a term of -0 stays what it is
    } else {
        frame.sum = frame.addition == '+' ? frame.sum + frame.product : frame.sum - frame.product;
    }
}

// Whether the term goes on; a division by zero ends it.
bool multiply(Frame& frame, float factor) {
    switch (frame.multiplication) {
        case '*':
            frame.product = frame.product * factor;
            return true;
        case '/':
            // kept: the term becomes 0 and what it had is forgotten
            if (factor == 0) return frame.product = 0, false;
            frame.product = frame.product / factor;
            return true;
        case '^':
            frame.product =
                static_cast<float>(std::pow(static_cast<double>(frame.product), static_cast<double>(factor)));
            return true;
        default:
            frame.product = factor;
            return true;
    }
}

// The value of the expression; nothing if a factor could not be read, or characters are left over.
std::optional<float> evaluate(const char* expression) {
    Reader reader(expression);
    std::vector<Frame> outer;
    Frame frame;
    while (true) {
        while (reader.skip('-')) frame.negated = !frame.negated;
        if (reader.skip('(')) {
            outer.push_back(frame);
            frame = Frame();
            continue;
        }
        if (!reader.atDigit()) return std::nullopt;
        float factor = reader.number();
        while (true) {
            bool goesOn = multiply(frame, frame.negated ? -factor : factor);
            frame.negated = false;
            char operation = reader.current();
            // kept: power has no precedence of its own
            if (goesOn && (operation == '*' || operation == '/' || operation == '^')) {
                frame.multiplication = operation;
                break;
            }
            add(frame);
            frame.multiplication = '\0';
            if (operation == '+' || operation == '-') {
                frame.addition = operation;
                break;
            }
            if (outer.empty()) return operation ? std::nullopt : std::optional(frame.sum);
            // kept: without its parenthesis the value is 0, and that is no mistake
            factor = reader.skip(')') ? frame.sum : 0;
            frame = outer.back();
            outer.pop_back();
        }
        reader.advance();
    }
}

constexpr int kMostPlaces = 9999;  // as a width or a precision: far more than is ever written
constexpr std::size_t kMostWritten = 513;
constexpr std::string_view kFlags = "-+ #0";

// A format taken apart: text, one conversion, text.
struct Format {
    std::string_view before, after;
    char conversion[sizeof "%-+ #0*.*f"];  // for a width and a precision that are passed beside the value
    int width = 0;
    int precision = -1;  // none
};

// Skips text up to a lone percent sign; %% is text.
const char* endOfText(const char* text) {
    while (*text && (*text != '%' || text[1] == '%')) text += *text == '%' ? 2 : 1;
    return text;
}

// A width or a precision; what is too large for the printing routine is cut.
int places(const char*& p) {
    int value = 0;
    for (; *p >= '0' && *p <= '9'; ++p) value = std::min(10 * value + (*p - '0'), kMostPlaces);
    return value;
}

// The format is a caller's: nothing but one floating-point conversion may get to the printing routine.
bool parseFormat(const char* text, Format& format) {
    if (!text) return false;
    const char* start = endOfText(text);
    if (!*start) return false;
    const char* p = start + 1;
    const char* flags = p;
    while (*p && kFlags.find(*p) != kFlags.npos) ++p;
    char* to = format.conversion;
    *to++ = '%';
    for (char flag : kFlags) {
        if (std::find(flags, p, flag) != p) *to++ = flag;
    }
    format.width = places(p);
    if (*p == '.') format.precision = places(++p);
    if (*p == 'l') ++p;
    if (!*p || !std::strchr("eEfFgGaA", *p)) return false;
    store(to, "*.*");
    to[3] = *p++;
    to[4] = '\0';
    const char* end = endOfText(p);
    if (*end) return false;
    format.before = {text, static_cast<std::size_t>(start - text)};
    format.after = {p, static_cast<std::size_t>(end - p)};
    return true;
}

// Collects the result within its limit.
class Output {
 public:
    explicit Output(char* to) : to_(to) {}
    void add(char c) {
        if (size_ < kMostWritten) to_[size_++] = c;
    }
    void addText(std::string_view text) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            add(text[i]);
            if (text[i] == '%') ++i;  // %% is one
        }
    }
    void finish() { to_[size_] = '\0'; }

 private:
    char* to_;
    std::size_t size_ = 0;
};

// The point is a point, whatever locale the host has set.
void pointForSeparator(char* text) {
    const char* separator = std::localeconv()->decimal_point;
    if (separator[0] == '.' || separator[0] == '\0') return;
    if (char* found = std::strstr(text, separator)) {
        *found = '.';
        std::size_t length = std::strlen(separator);
        std::memmove(found + 1, found + length, std::strlen(found + length) + 1);
    }
}

void write(char* dest, const Format& format, double value) {
    char number[kMostWritten + 2];
    std::snprintf(number, sizeof number, format.conversion, format.width, format.precision, value);
    pointForSeparator(number);
    Output output(dest);
    output.addText(format.before);
    for (const char* p = number; *p; ++p) output.add(*p);
    output.addText(format.after);
    output.finish();
}

// Hosts in Pascal have the processor raise exceptions; in here, what overflows is a number like any other.
class QuietNumbers {
 public:
    QuietNumbers() {
        std::feholdexcept(&before_);
        _mm_setcsr(kQuiet);  // on Windows feholdexcept leaves this register alone
    }
    ~QuietNumbers() {
        _mm_setcsr(control_);
        std::fesetenv(&before_);
    }
    QuietNumbers(const QuietNumbers&) = delete;
    QuietNumbers& operator=(const QuietNumbers&) = delete;

 private:
    static constexpr unsigned kQuiet = 0x1F80;
    unsigned control_ = _mm_getcsr();
    std::fenv_t before_;
};

bool calculate(const char* expression, const char* text, char* dest) try {
    QuietNumbers quiet;
    Format format;
    if (!parseFormat(text, format)) return false;
    std::optional<float> value = evaluate(expression);
    if (value) write(dest, format, *value);
    return value.has_value();
} catch (const std::bad_alloc&) {
    return false;  // parentheses without end
}

}  // namespace

char* VX_CALL vx_Calculate(const char* expression, const char* format, char* dest) noexcept {
    // kept: a failure writes one character and no terminator
    if (dest && !calculate(expression, format, dest)) *dest = '0';
    return dest;
}
