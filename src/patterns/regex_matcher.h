// Regular expressions: running a program over a text.
//
// A program is a list of nodes without alternatives: each takes one byte, any number of like bytes (a run), or none.
// So a way through it chooses only how much each run takes; the longest comes first, and the match is the first way
// that succeeds, from the leftmost place where one does. Four mechanisms look for it, each called in when the ones
// before turn out to be dear. On the right, rows of the benchmark that get slower without it.
//
//   1. The prefilter (regex_prefilter.h) skips to places whose first bytes fit.     RegCount/1MB/literal, class, ...
//   2. The backtracker (this file) tries a place. The choices of a way are in an
//      array, so nothing recurs, and a run stops only in front of the character
//      that must follow it.                                                         RegAt/40B/any, RegCount/1MB/any
//      It counts its steps; its phase says how many it may make.
//        kShortBudget: 256. When they are gone, the characters that the pattern
//        names are looked for: if the text lacks one, nothing matches.              RegAt/2000a/.*.*.*x, .*a.*a.*x
//        kLongBudget: two more for each byte, about what the reverse scan costs,
//        so that both together take at most twice the time of the better one.       RegCount/1MB/any, closure, words
//   3. The reverse scan (regex_reverse.h) finds, for each position, the nodes from
//      which the rest can match. In phase kGuided it is asked before each choice;
//      without back-references the backtracker then never turns back.               RegAt/2000x/x*x*x*[yz]
//   4. The memo table (regex_memo.h) serves programs with back-references, of which
//      the reverse scan knows too little: no run fails twice at the same position.  RegAt/2000x/(ab)x*x*x*\1y
//
// A memo table alone, in place of 3 and the long budget, would do for all programs, but takes six times as long on
// RegAt/2000x/x*x*x*[yz], and time by the cube of the text for \(a*\)a*a*\1bc where the reverse scan needs one pass.
//
// Exact: 1, 3 and 4 leave out only what cannot match, and what is tried is always tried in the backtracker's order.
// Bounded in time: by nodes times text; with back-references, by a power of the text that grows with the groups that
// hold runs. Bounded in memory: this object, some 4 MB for the reverse scan, and one bit for each position and each run
// before the last back-reference for the memo table. If that cannot be had, the phase is kNoMatch, too: the search
// finds nothing more.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "patterns/regex_memo.h"
#include "patterns/regex_prefilter.h"
#include "patterns/regex_program.h"
#include "patterns/regex_reverse.h"

namespace vx::regex {

// Searches in one text.
class Matcher {
 public:
    Matcher(const Program& program, const char* text)
        : program_(program), text_(text), prefilter_(program.prefix, text_) {}

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
    enum class Result { kMatch, kNoMatch, kOutOfBudget };
    enum class Phase { kShortBudget, kLongBudget, kGuided, kNoMatch };

    // How much a run takes on the way that is being tried: all from floor to at.
    struct Choice {
        const char* at;
        const char* floor;
        unsigned node;
    };

    struct Tables {
        ReverseScan reverse;
        MemoTable memo;
    };

    static constexpr std::size_t kMaxRuns = kCodeRoom / 3 + 1;
    static constexpr std::size_t kShortBudget = 256;  // in nodes passed and bytes looked at
    static constexpr std::size_t kBudgetPerByte = 2;

    const char* find(const char* from, Wanted wanted);
    bool matchesAt(const char* at, Wanted wanted);
    // Kept out of what calls them, which small texts would pay for: RegAt/40B/closure, word.
    [[gnu::cold]] void enterNextPhase();
    [[gnu::noinline]] const char* endOfKnownRun(const Node& node, const char* at, MemoTable::Extent& known);

    bool lacksCharacter();
    bool openTables();

    Result run(const char* at, unsigned stop);
    void countPassed(unsigned nodes);
    bool takeRun(const Node& node, unsigned index, const char*& at);
    bool giveBack(unsigned& index, const char*& at);
    const char* latest(unsigned run, const char* floor, const char* high);
    static const char* latestBefore(int follow, const char* floor, const char* high);
    const char* latestGuided(unsigned run, const char* floor, const char* high);
    const char* endOfRun(const Node& node, const char* at);
    bool matchesBehindTerminator(unsigned index, const char* at, unsigned stop);
    bool repeats(const Node& reference, const char*& at);

    const Program& program_;
    Text text_;
    Prefilter prefilter_;
    Phase phase_ = Phase::kShortBudget;
    std::size_t steps_ = 0;
    std::size_t budget_ = kShortBudget;
    bool memoises_ = false;        // guided, in a program with back-references
    const char* start_ = nullptr;  // of the search
    const char* end_ = nullptr;    // of the match
    std::size_t depth_ = 0;        // choices made
    Choice choices_[kMaxRuns];
    const char* marks_[Program::kMaxNodes];  // by node
    std::unique_ptr<Tables> tables_;
};

}  // namespace vx::regex
