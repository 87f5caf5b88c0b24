// Backtracking without recursion, and the search for a match's start.
#include "patterns/regex_matcher.h"

#include <cstring>
#include <new>

#include "frame/text.h"

namespace vx::regex {

const char* Matcher::find(const char* from, Wanted wanted) {
    if (hopeless_) return nullptr;
    start_ = from;
    if (guide_) guide_->outlook.startAt(from);
    if (program_.anchored) return matchesAt(from, wanted) ? from : nullptr;
    for (const char* at = scout_.next(from); at && !hopeless_; at = scout_.next(at + 1)) {
        if ((program_.signs.exact && wanted == Wanted::kStart) || matchesAt(at, wanted)) return at;
    }
    return nullptr;
}

bool Matcher::matchesAt(const char* at, Wanted wanted) {
    unsigned stop = wanted == Wanted::kStart ? program_.certain : program_.end;
    while (!guide_) {
        Result result = cost_ > budget_ ? Result::kGaveUp : run(at, stop);
        if (result != Result::kGaveUp) return result == Result::kMatch;
        hopeless_ = !goOnWiser();
        if (hopeless_) return false;
    }
    if (!guide_->outlook.may(0, at)) return false;
    if (!keepsFailures_ && wanted == Wanted::kStart) return true;
    if (keepsFailures_) guide_->failures.forget(0);
    return run(at, stop) == Result::kMatch;
}

// After plain backtracking has used up its budget; false if there is nothing to be found.
bool Matcher::goOnWiser() {
    if (forewarned_) return openGuide();
    forewarned_ = true;
    budget_ += kStepsPerByte * static_cast<std::size_t>(text_.end() - text_.start());
    return !lacksCharacter();
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

bool Matcher::openGuide() {
    guide_.reset(new (std::nothrow) Guide);
    if (!guide_ || !guide_->outlook.open(program_, start_, text_.end())) return false;
    keepsFailures_ = program_.lastBackRef != kNone;
    if (keepsFailures_ && !guide_->failures.open(program_, start_, text_.end())) return false;
    guide_->outlook.startAt(start_);
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
        if (depth_ > 0 || countsNodes_) cost_ += index - first;
        if (depth_ == 0) return Result::kNoMatch;
        if (!guide_ && cost_ > budget_) return Result::kGaveUp;
        if (!giveBack(index, at)) return Result::kNoMatch;
        first = index;
    }
    if (depth_ > 0 || countsNodes_) cost_ += index - first;
    end_ = at;
    return Result::kMatch;
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
    cost_ += size;
    at += size;
    return true;
}

const char* Matcher::endOfRun(const Node& node, const char* at) {
    if (node.op == Op::kAnyRun) return text_.end();
    const char* end = keepsFailures_ ? guide_->failures.endOfRun(node, at) : nullptr;
    if (end) return end;
    end = at;
    if (node.op == Op::kCharRun) {
        while (byteOf(*end) == node.byte) ++end;
    } else {
        for (const bool* set = program_.sets[node.set]; set[byteOf(*end)];) ++end;
    }
    cost_ += static_cast<std::size_t>(end - at);
    if (keepsFailures_) guide_->failures.keepRun(node, at, end);
    return end;
}

bool Matcher::takeRun(const Node& node, unsigned index, const char*& at) {
    const char* chosen = latest(index, at, endOfRun(node, at));
    if (!chosen) return false;
    if (chosen != at || keepsFailures_) places_[depth_++] = {chosen, at, index};
    at = chosen;
    return true;
}

// The last place between `floor` and `high` from which the rest could match.
const char* Matcher::latest(unsigned run, const char* floor, const char* high) {
    const Node& node = program_.nodes[run];
    auto promising = [&](const char* at) {
        if (!guide_) return node.follow < 0 || byteOf(*at) == node.follow;
        return guide_->outlook.may(run + 1, at) && !(keepsFailures_ && guide_->failures.has(node, at));
    };
    const char* at = high;
    while (!promising(at)) {
        const char* first = keepsFailures_ ? guide_->failures.add(node, at) : at;
        if (first <= floor) {
            cost_ += static_cast<std::size_t>(high - floor);
            return nullptr;
        }
        at = first - 1;
    }
    cost_ += static_cast<std::size_t>(high - at);
    return at;
}

// Goes back to the latest run that can do with less.
bool Matcher::giveBack(unsigned& index, const char*& at) {
    for (; depth_ > 0; --depth_) {
        Place& place = places_[depth_ - 1];
        if (keepsFailures_) {
            guide_->failures.add(program_.nodes[place.node], place.at);
            guide_->failures.forget(place.node + 1);
        }
        if (place.at == place.floor) continue;
        const char* next = latest(place.node, place.floor, place.at - 1);
        if (!next) continue;
        ++cost_;
        at = place.at = next;
        index = place.node + 1;
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
