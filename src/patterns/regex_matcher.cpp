#include "patterns/regex_matcher.h"

#include <cstring>
#include <new>

#include "frame/text.h"

namespace vx::regex {

const char* Matcher::find(const char* from, Wanted wanted) {
    if (phase_ == Phase::kNoMatch) return nullptr;
    start_ = from;
    if (phase_ == Phase::kGuided) tables_->reverse.startAt(from);
    if (program_.anchored) return matchesAt(from, wanted) ? from : nullptr;
    for (const char* at = prefilter_.next(from); at && phase_ != Phase::kNoMatch; at = prefilter_.next(at + 1)) {
        if ((program_.prefix.exact && wanted == Wanted::kStart) || matchesAt(at, wanted)) return at;
    }
    return nullptr;
}

bool Matcher::matchesAt(const char* at, Wanted wanted) {
    const unsigned stop = wanted == Wanted::kStart ? program_.certain : program_.end;
    while (phase_ == Phase::kShortBudget || phase_ == Phase::kLongBudget) {
        const Result result = steps_ > budget_ ? Result::kOutOfBudget : run(at, stop);
        if (result != Result::kOutOfBudget) return result == Result::kMatch;
        enterNextPhase();
    }
    if (phase_ == Phase::kNoMatch || !tables_->reverse.canMatch(0, at)) return false;
    if (!memoises_ && wanted == Wanted::kStart) return true;
    if (memoises_) tables_->memo.marksMove(0);
    return run(at, stop) == Result::kMatch;
}

void Matcher::enterNextPhase() {
    if (phase_ == Phase::kShortBudget) {
        budget_ += kBudgetPerByte * static_cast<std::size_t>(text_.end() - text_.start());
        phase_ = lacksCharacter() ? Phase::kNoMatch : Phase::kLongBudget;
    } else {
        phase_ = openTables() ? Phase::kGuided : Phase::kNoMatch;
    }
}

bool Matcher::lacksCharacter() {
    bool checked[256] = {};
    std::size_t size = static_cast<std::size_t>(text_.end() - start_);
    for (unsigned i = 0; i < program_.end; ++i) {
        const Node& node = program_.nodes[i];
        if (node.op != Op::kChar || checked[node.byte]) continue;
        checked[node.byte] = true;
        if (!std::memchr(start_, node.byte, size)) return true;
    }
    return false;
}

bool Matcher::openTables() {
    tables_.reset(new (std::nothrow) Tables);
    if (!tables_ || !tables_->reverse.open(program_, start_, text_.end())) return false;
    memoises_ = program_.lastBackRef != kNone;
    if (memoises_ && !tables_->memo.open(program_, start_, text_.end())) return false;
    tables_->reverse.startAt(start_);
    return true;
}

Matcher::Result Matcher::run(const char* at, unsigned stop) {
    unsigned index = 0;
    unsigned first = 0;
    depth_ = 0;
    while (index != stop) {
        const Node& node = program_.nodes[index];
        bool holds = true;
        switch (node.op) {
            case Op::kChar:
                holds = byteOf(*at) == node.byte;
                at += holds;
                break;
            case Op::kAny:
                holds = *at != '\0';
                at += holds;
                break;
            case Op::kSet:
            case Op::kTerminator:
                holds = node.op == Op::kSet ? program_.sets[node.set][byteOf(*at)] : !*at;
                if (holds && !*at) {
                    if (matchesBehindTerminator(index + 1, at + 1, stop)) return Result::kMatch;
                    holds = false;
                }
                at += holds;
                break;
            case Op::kBol:
                holds = at == start_;
                break;
            case Op::kEol:
                holds = !*at;
                break;
            case Op::kMark:
                marks_[index] = at;
                break;
            case Op::kWordStart:
                holds = (at == start_ || !isWord(byteOf(at[-1]))) && isWord(byteOf(*at));
                break;
            case Op::kWordEnd:
                holds = at != start_ && isWord(byteOf(at[-1])) && !isWord(byteOf(*at));
                break;
            case Op::kBackRef:
                // The first character is compared here, which spares most of the calls: RegAt/40B/reference.
                holds = marks_[node.open] == marks_[node.close] || (*at == *marks_[node.open] && repeats(node, at));
                break;
            case Op::kCharRun:
            case Op::kAnyRun:
            case Op::kSetRun:
                holds = takeRun(node, index, at);
                break;
            case Op::kNever:
                holds = false;
                break;
            case Op::kEnd:
                break;  // is always the stop
        }
        if (holds) {
            ++index;
            continue;
        }
        countPassed(index - first);
        if (depth_ == 0) return Result::kNoMatch;
        if (phase_ != Phase::kGuided && steps_ > budget_) return Result::kOutOfBudget;
        if (!giveBack(index, at)) return Result::kNoMatch;
        first = index;
    }
    countPassed(index - first);
    end_ = at;
    return Result::kMatch;
}

// The tables help against long ways without a choice, too, but with back-references they cost more than such ways do:
// RegAt/2000x/x 200 times, RegAt/64KB/reference.
inline void Matcher::countPassed(unsigned nodes) {
    if (depth_ > 0 || program_.lastBackRef == kNone) steps_ += nodes;
}

// kept: a class with ^ takes the terminator, too. What comes then finds nothing to look at.
bool Matcher::matchesBehindTerminator(unsigned index, const char* at, unsigned stop) {
    for (; index < stop; ++index) {
        const Node& node = program_.nodes[index];
        if (node.op == Op::kMark) {
            marks_[index] = at;
        } else if (node.op == Op::kBackRef ? marks_[node.open] != marks_[node.close] : !isRun(node.op)) {
            return false;
        }
    }
    end_ = at;
    return true;
}

bool Matcher::repeats(const Node& reference, const char*& at) {
    const char* group = marks_[reference.open];
    std::size_t size = static_cast<std::size_t>(marks_[reference.close] - group);
    if (size > static_cast<std::size_t>(text_.end() - at) || std::memcmp(at, group, size) != 0) return false;
    steps_ += size;
    at += size;
    return true;
}

const char* Matcher::endOfRun(const Node& node, const char* at) {
    if (node.op == Op::kAnyRun) return text_.end();
    if (memoises_) {
        if (MemoTable::Extent* known = tables_->memo.latestExtent(node)) return endOfKnownRun(node, at, *known);
    }
    const char* end = at;
    if (node.op == Op::kCharRun) {
        while (byteOf(*end) == node.byte) ++end;
    } else {
        for (const bool* set = program_.sets[node.set]; set[byteOf(*end)];) ++end;
    }
    steps_ += static_cast<std::size_t>(end - at);
    return end;
}

// A run that meets its latest extent ends where that does.
const char* Matcher::endOfKnownRun(const Node& node, const char* at, MemoTable::Extent& known) {
    if (known.start <= at && at <= known.end) return known.end;
    const bool* set = node.op == Op::kSetRun ? program_.sets[node.set] : nullptr;
    const char* end = at;
    while (end != known.start && (set ? set[byteOf(*end)] : byteOf(*end) == node.byte)) ++end;
    known = {at, end == known.start ? known.end : end};
    return known.end;
}

bool Matcher::takeRun(const Node& node, unsigned index, const char*& at) {
    const char* chosen = latest(index, at, endOfRun(node, at));
    if (!chosen) return false;
    if (chosen != at || memoises_) choices_[depth_++] = {chosen, at, index};
    at = chosen;
    return true;
}

// The last place between `floor` and `high` from which the rest could match.
const char* Matcher::latest(unsigned run, const char* floor, const char* high) {
    const int follow = program_.nodes[run].follow;
    const char* at = high;
    if (phase_ == Phase::kGuided) {
        at = latestGuided(run, floor, high);
    } else if (follow >= 0) {
        at = latestBefore(follow, floor, high);
    }
    steps_ += static_cast<std::size_t>(high - (at ? at : floor));
    return at;
}

const char* Matcher::latestBefore(int follow, const char* floor, const char* high) {
    const char* at = high;
    for (; byteOf(*at) != follow; --at) {
        if (at == floor) return nullptr;
    }
    return at;
}

const char* Matcher::latestGuided(unsigned run, const char* floor, const char* high) {
    const Node& node = program_.nodes[run];
    const char* at = high;
    while (!tables_->reverse.canMatch(run + 1, at) || (memoises_ && tables_->memo.hasFailed(node, at))) {
        const char* first = memoises_ ? tables_->memo.noteFailure(node, at) : at;
        if (first <= floor) return nullptr;
        at = first - 1;
    }
    return at;
}

// Goes back to the latest run that can do with less.
bool Matcher::giveBack(unsigned& index, const char*& at) {
    for (; depth_ > 0; --depth_) {
        Choice& choice = choices_[depth_ - 1];
        if (memoises_) {
            tables_->memo.noteFailure(program_.nodes[choice.node], choice.at);
            tables_->memo.marksMove(choice.node + 1);
        }
        if (choice.at == choice.floor) continue;
        const char* next = latest(choice.node, choice.floor, choice.at - 1);
        if (!next) continue;
        ++steps_;
        choice.at = next;
        at = next;
        index = choice.node + 1;
        return true;
    }
    return false;
}

std::string_view Matcher::group(unsigned number) const {
    std::uint16_t open = program_.groupOpen[number];
    std::uint16_t close = program_.groupClose[number];
    if (open == kNone || close == kNone || marks_[open] >= marks_[close]) return {};
    return {marks_[open], static_cast<std::size_t>(marks_[close] - marks_[open])};
}

}  // namespace vx::regex
