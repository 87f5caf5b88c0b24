// The prefilter: places of the text where a match can start, found faster than by trying each.
//
// What the first bytes of every match have in common is worked out when a pattern is compiled. One of three searches
// looks for it, each with a benchmark that shows it to be worth its lines:
//   two characters at fixed distances, 16 or 32 places at once     RegCount/1MB/literal, rare literal, closure, words
//   a window of sets, one for each of the first bytes, shift-and   RegCount/1MB/dense
//   the first byte alone                                           RegCount/1MB/class
// A place that is found may still be no match, unless the window is all that the pattern asks for (`exact`); a place
// that is passed over is none.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vx::regex {

struct Program;

// What the first bytes of every match have in common.
struct Prefix {
    static constexpr unsigned kMaxWidth = 8;
    static constexpr unsigned kMaxProbe = 16;

    unsigned width;           // of the bytes that can be told; 0: any place will do
    bool exact;               // what shows the prefix is a match
    bool hasProbes;           // two characters that are always there, or one twice
    std::uint8_t takes[256];  // bit k: the byte can be the one k behind a match's start
    std::uint8_t probe[2];
    unsigned probeAt[2];
};

void findPrefix(const Program& program, Prefix& prefix);

// A text whose end is looked for only as far as needed.
class Text {
 public:
    explicit Text(const char* start) : start_(start), known_(start) {}

    const char* start() const { return start_; }

    // Bytes before this are known to be there.
    const char* known() const { return known_; }

    // Finds out about more; false if all is known.
    bool extend() {
        if (ended_) return false;
        if (const void* end = std::memchr(known_, 0, kStep)) {
            known_ = static_cast<const char*>(end);
            ended_ = true;
        } else {
            known_ += kStep;
        }
        return true;
    }

    // The terminator.
    const char* end() {
        if (!ended_) known_ += std::strlen(known_);
        ended_ = true;
        return known_;
    }

 private:
    static constexpr std::size_t kStep = 4096;

    const char* start_;
    const char* known_;
    bool ended_ = false;
};

class Prefilter {
 public:
    Prefilter(const Prefix& prefix, Text& text) : prefix_(prefix), text_(text) {}

    // The first place at or behind `from` that shows the prefix; null if there is none.
    const char* next(const char* from) {
        if (prefix_.hasProbes) return byProbes(from);
        if (prefix_.width > 1) return byWindow(from);
        if (prefix_.width == 1) return byFirst(from);
        return *from ? from : nullptr;
    }

 private:
    const char* byProbes(const char* from);
    const char* byWindow(const char* from);
    const char* byFirst(const char* from) const;
    bool shows(const char* at) const;

    const Prefix& prefix_;
    Text& text_;
    const char* resumeFrom_ = nullptr;  // byWindow's next start, if it goes on where it left off
    const char* resumeAt_ = nullptr;
    unsigned resumeState_ = 0;
};

}  // namespace vx::regex
