// Regular expressions: running a program over a text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "patterns/regex_guide.h"
#include "patterns/regex_program.h"

namespace vx::regex {

// Searches in one text. Backtracks directly as long as that is cheap, then under the guidance of an outlook; the match
// is the same. The place of each run is kept in a fixed array: nothing deepens with the text.
class Matcher {
 public:
    Matcher(const Program& program, const char* text)
        : program_(program), text_(text), scout_(program.signs, text_), countsNodes_(program.lastBackRef == kNone) {}

    // The start of the leftmost match at or after `from`, which must not decrease from call to call; null if there is
    // none. The first only finds out where; the other also where it ends, and its groups.
    const char* findStart(const char* from) { return find(from, Wanted::kStart); }
    const char* findMatch(const char* from) { return find(from, Wanted::kAll); }

    // Where the last match found by findMatch ended: one behind the terminator if it took that, too.
    const char* matchEnd() const { return end_; }

    // The text of one of its groups; a group that has none is empty.
    std::string_view group(unsigned number) const;

 private:
    enum class Wanted { kStart, kAll };
    enum class Result { kMatch, kNoMatch, kGaveUp };

    // The place of a run on the way that is being tried.
    struct Place {
        const char* at;
        const char* floor;
        unsigned node;
    };

    struct Guide {
        Outlook outlook;
        Failures failures;
    };

    static constexpr std::size_t kMaxRuns = kCodeRoom / 3 + 1;

    // What plain backtracking may cost, in nodes passed and bytes looked at, before it counts as astray: about what an
    // outlook costs, so that the two together never take more than twice the time of the better one.
    static constexpr std::size_t kFreeSteps = 256;
    static constexpr std::size_t kStepsPerByte = 2;

    const char* find(const char* from, Wanted wanted);
    bool matchesAt(const char* at, Wanted wanted);
    Result run(const char* at, unsigned stop);
    const char* endOfRun(const Node& node, const char* at);
    bool takeRun(const Node& node, unsigned index, const char*& at);
    bool giveBack(unsigned& index, const char*& at);
    const char* latest(unsigned run, const char* floor, const char* high);
    bool matchesBehindTerminator(unsigned index, const char* at, unsigned stop);
    bool repeats(const Node& reference, const char*& at);
    bool goOnWiser();
    bool lacksCharacter();
    bool openGuide();

    const Program& program_;
    Text text_;
    Scout scout_;
    bool countsNodes_;             // an outlook helps against long attempts, too, but not if there are back-references
    const char* start_ = nullptr;  // of the search
    const char* end_ = nullptr;    // of the match
    std::size_t cost_ = 0;
    std::size_t budget_ = kFreeSteps;
    bool forewarned_ = false;
    bool keepsFailures_ = false;
    bool hopeless_ = false;
    std::size_t depth_ = 0;
    Place places_[kMaxRuns];
    const char* marks_[Program::kMaxNodes];  // by node
    std::unique_ptr<Guide> guide_;
};

}  // namespace vx::regex
