// The entry points of regular expressions. The pattern of the last call stays compiled: it is meant when a call gives
// none, and a loop that passes the same one again does not compile it again. Match number n is found by walking from
// match to match.
#include "entries/regex.h"

#include <cstring>

#include "frame/text.h"
#include "patterns/regex_matcher.h"

namespace vx::regex {

namespace {

// What the family remembers between calls.
struct Remembered {
    bool compiled = false;
    std::size_t size = 0;  // of the pattern's text; 0 if it was too long to keep
    char pattern[kCodeRoom];
    Program program;
};

Remembered remembered;

bool isRemembered(const char* pattern, std::size_t size) {
    return remembered.compiled && size == remembered.size && std::memcmp(pattern, remembered.pattern, size) == 0;
}

// Makes `pattern` the program of the searches that follow.
Error use(const char* pattern) {
    if (!pattern || !*pattern) return remembered.compiled ? kNoError : kNoPattern;
    std::size_t size = std::strlen(pattern);
    if (isRemembered(pattern, size)) return kNoError;
    remembered.compiled = false;
    Bytes bytes;
    if (Error error = compile(pattern, bytes)) return error;
    decode(bytes, remembered.program);
    remembered.size = size <= sizeof remembered.pattern ? size : 0;
    std::memcpy(remembered.pattern, pattern, remembered.size);
    remembered.compiled = true;
    return kNoError;
}

// From match to match in one text.
class Walk {
 public:
    explicit Walk(const char* text)
        : text_(text ? text : emptyText), from_(text_), matcher_(remembered.program, text_) {}

    // Goes to the n-th match; false if there are fewer.
    bool toStart(std::uint32_t n) {
        if (!pass(n)) return false;
        match_ = matcher_.findStart(from_);
        return match_ != nullptr;
    }

    bool toMatch(std::uint32_t n) {
        if (!pass(n)) return false;
        match_ = matcher_.findMatch(from_);
        return match_ != nullptr;
    }

    std::int32_t count() {
        std::int32_t found = 0;
        while (next()) ++found;
        return found;
    }

    std::int32_t position() const { return static_cast<std::int32_t>(match_ - text_) + 1; }
    std::int32_t searchedFrom() const { return static_cast<std::int32_t>(from_ - text_); }
    std::string_view before() const { return {text_, static_cast<std::size_t>(match_ - text_)}; }
    std::string_view match() const { return {match_, static_cast<std::size_t>(matcher_.matchEnd() - match_)}; }
    std::string_view group(unsigned number) const { return number == 0 ? match() : matcher_.group(number); }
    std::string_view all() const { return text_; }

    // What follows the match; nothing if it took the terminator.
    std::string_view after() const {
        bool ended = !match().empty() && match().back() == '\0';
        return ended ? std::string_view() : std::string_view(matcher_.matchEnd());
    }

 private:
    // Passes all matches before the n-th one.
    bool pass(std::uint32_t n) {
        for (std::uint32_t k = 1; k < n; ++k) {
            if (!next()) return false;
        }
        return n > 0 && !ended_;
    }

    // kept: the next search starts one behind this match's start, so that matches overlap and ^ holds again.
    bool next() {
        match_ = ended_ ? nullptr : matcher_.findStart(from_);
        if (!match_) return false;
        ended_ = !*match_;
        from_ = match_ + 1;
        return true;
    }

    const char* text_;
    const char* from_;
    const char* match_ = nullptr;
    bool ended_ = false;  // ^ has matched at the terminator
    Matcher matcher_;
};

// A destination of a given size: takes what fits and is terminated in the end, not before, since it may be the text.
class Output {
 public:
    Output(char* dest, std::uint32_t size) : to_(size > 0 ? dest : nullptr), left_(to_ ? size - 1 : 0) {}
    ~Output() {
        if (to_) *to_ = '\0';
    }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void append(std::string_view text) {
        std::size_t size = text.size() < left_ ? text.size() : left_;
        if (size == 0) return;
        moveBytes(to_, text.data(), size);
        to_ += size;
        left_ -= size;
    }

 private:
    char* to_;
    std::size_t left_;
};

void appendReplacement(Output& output, const char* replacement, const Walk& walk) {
    for (const char* at = replacement ? replacement : emptyText; *at; ++at) {
        int group = *at == '&' ? 0 : -1;
        if (*at == '\\') {
            ++at;
            if (!*at) return;
            if (*at >= '0' && *at <= '9') group = *at - '0';
        }
        if (group < 0) {
            output.append({at, 1});
            continue;
        }
        std::string_view text = walk.group(static_cast<unsigned>(group));
        std::size_t size = text.substr(0, text.find('\0')).size();
        output.append(text.substr(0, size));
        if (size < text.size()) return;  // kept: the terminator in a group ends the replacement
    }
}

}  // namespace
}  // namespace vx::regex

using namespace vx;
using namespace vx::regex;

int32_t VX_CALL vx_RegCheck(const char* pattern) noexcept { return use(pattern); }

int32_t VX_CALL vx_RegAt(const char* pattern, const char* text) noexcept { return vx_RegAtNext(pattern, text, 1); }

int32_t VX_CALL vx_RegAtNext(const char* pattern, const char* text, uint32_t n) noexcept {
    if (Error error = use(pattern)) return error;
    Walk walk(text);
    return walk.toStart(n) ? walk.position() : 0;
}

int32_t VX_CALL vx_RegLen(const char* pattern, const char* text, uint32_t n) noexcept {
    if (Error error = use(pattern)) return error;
    Walk walk(text);
    return walk.toMatch(n) ? static_cast<int32_t>(walk.match().size()) : 0;
}

int32_t VX_CALL vx_RegCount(const char* pattern, const char* text) noexcept {
    if (Error error = use(pattern)) return error;
    return Walk(text).count();
}

char* VX_CALL vx_RegExtract(const char* pattern, const char* text, uint32_t n, char* dest, uint32_t size) noexcept {
    Output output(dest, size);
    if (use(pattern) != kNoError) return dest;
    Walk walk(text);
    if (walk.toMatch(n)) output.append(walk.match());
    return dest;
}

char* VX_CALL vx_RegSwap(const char* pattern, const char* text, uint32_t n, const char* replacement, char* dest,
                         uint32_t size) noexcept {
    Output output(dest, size);
    if (use(pattern) != kNoError) return dest;
    Walk walk(text);
    if (walk.toMatch(n)) {
        output.append(walk.before());
        appendReplacement(output, replacement, walk);
        output.append(walk.after());
    } else {
        output.append(walk.all());
    }
    return dest;
}

char* VX_CALL vx_RegInfo(const char* pattern, const char* text, uint32_t n, int32_t* position, int32_t* length,
                         char* dest, uint32_t size) noexcept {
    Output output(dest, size);
    if (use(pattern) != kNoError) return dest;
    Walk walk(text);
    bool found = walk.toMatch(n);
    // kept: without a match the position is where the last search began, and counts from 0.
    if (position) *position = found ? walk.position() : walk.searchedFrom();
    if (length) *length = found ? static_cast<int32_t>(walk.match().size()) : 0;
    if (found) output.append(walk.match());
    return dest;
}

// Length forms of their own: with a size of 0 no text is left behind to be measured.
namespace {
uint32_t lengthIn(const char* dest, uint32_t size) {
    return dest && size > 0 ? static_cast<uint32_t>(std::strlen(dest)) : 0;
}
}  // namespace

uint32_t VX_CALL vx_RegExtract_length(const char* pattern, const char* text, uint32_t n, char* dest,
                                      uint32_t size) noexcept {
    return lengthIn(vx_RegExtract(pattern, text, n, dest, size), size);
}

uint32_t VX_CALL vx_RegSwap_length(const char* pattern, const char* text, uint32_t n, const char* replacement,
                                   char* dest, uint32_t size) noexcept {
    return lengthIn(vx_RegSwap(pattern, text, n, replacement, dest, size), size);
}

uint32_t VX_CALL vx_RegInfo_length(const char* pattern, const char* text, uint32_t n, int32_t* position,
                                   int32_t* length, char* dest, uint32_t size) noexcept {
    return lengthIn(vx_RegInfo(pattern, text, n, position, length, dest, size), size);
}
