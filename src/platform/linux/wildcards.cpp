#include "platform/linux/wildcards.h"

#include <algorithm>
#include <utility>

#include "platform/linux/names.h"

namespace vx::platform {

Wildcards::Wildcards(std::string_view pattern) {
    // A dot at the end says that there is no extension.
    bool noExtension = pattern.ends_with('.');
    pattern = withoutEnd(pattern);
    if (pattern == "*.*") pattern = "*";
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        char next = i + 1 < pattern.size() ? pattern[i + 1] : noExtension ? '.' : '\0';
        char c = lowered(pattern[i]);
        if (c == '*') c = next == '.' ? kAnyBase : kAny;
        if (c == '?') c = kOne;
        if (c == '.' && (next == '?' || next == '*')) c = kDotOrEnd;
        symbols_[size_++] = c;
    }
}

// Adds the states that are reached without a character.
void Wildcards::skip(bool* states, bool atDot, bool atEnd) const {
    for (std::size_t i = 0; i < size_; ++i) {
        if (!states[i]) continue;
        char symbol = symbols_[i];
        bool free = symbol == kAny || symbol == kAnyBase || (symbol == kOne && (atDot || atEnd)) ||
                    (symbol == kDotOrEnd && atEnd);
        if (free) states[i + 1] = true;
    }
}

// The states after a character. False if there is none.
bool Wildcards::advance(const bool* from, bool* to, char c, bool isLastDot) const {
    std::fill_n(to, size_ + 1, false);
    bool any = false;
    for (std::size_t i = 0; i < size_; ++i) {
        if (!from[i]) continue;
        char symbol = symbols_[i];
        bool stays = symbol == kAny || (symbol == kAnyBase && !isLastDot);
        bool passes = symbol == kOne ? c != '.' : symbol == kDotOrEnd ? c == '.' : symbol == c;
        if (stays) to[i] = true;
        if (passes) to[i + 1] = true;
        any = any || stays || passes;
    }
    return any;
}

bool Wildcards::match(std::string_view name) const {
    if (size_ == 1 && symbols_[0] == kAny) return true;
    bool first[kPathSize], second[kPathSize];
    bool* states = first;
    bool* next = second;
    std::fill_n(states, size_ + 1, false);
    states[0] = true;
    // The dots of `.` and `..` begin no extension.
    std::size_t lastDot = name == "." || name == ".." ? std::string_view::npos : name.rfind('.');
    for (std::size_t i = 0; i < name.size(); ++i) {
        skip(states, name[i] == '.', false);
        if (!advance(states, next, lowered(name[i]), i == lastDot)) return false;
        std::swap(states, next);
    }
    skip(states, false, true);
    return states[size_];
}

}  // namespace vx::platform
