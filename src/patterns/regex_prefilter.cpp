#include "patterns/regex_prefilter.h"

#include <algorithm>
#include <bit>

#include "frame/text.h"
#include "patterns/regex_program.h"
#include "strings/blocks.h"

namespace vx::regex {

namespace {

// Follows a program from its start through all ways that it can go, a byte at a time.
class Ways {
 public:
    Ways(const Program& program, Prefix& prefix) : program_(program), prefix_(prefix) { add(current_, 0); }

    // Notes what the byte at `offset` can be; false if a match may have ended by then, or nothing can be told.
    bool note(unsigned offset) {
        if (current_.open) return false;
        Set next;
        for (unsigned k = 0; k < current_.count; ++k) {
            unsigned i = current_.nodes[k];
            if (noteNode(program_.nodes[i], offset)) add(next, isRun(program_.nodes[i].op) ? i : i + 1);
        }
        if (offset == 0) prefix_.takes[0] = 0;  // no match starts at the terminator
        current_.assign(next);
        return true;
    }

 private:
    // Nodes, in ascending order.
    struct Set {
        std::uint16_t nodes[Program::kMaxNodes];
        unsigned count = 0;
        bool open = false;  // a way leads to the end, or to where nothing can be told

        void assign(const Set& other) {
            count = other.count;
            open = other.open;
            std::copy_n(other.nodes, count, nodes);
        }
    };

    void add(Set& set, unsigned i) {
        if (set.count > 0 && i <= set.nodes[set.count - 1]) return;  // a run before it led there already
        for (;; ++i) {
            if (i >= program_.certain || program_.nodes[i].op == Op::kBackRef) {
                set.open = true;
                return;
            }
            Op op = program_.nodes[i].op;
            if (op == Op::kMark || op == Op::kBol || op == Op::kWordStart || op == Op::kWordEnd) continue;
            set.nodes[set.count++] = static_cast<std::uint16_t>(i);
            if (!isRun(op)) return;
        }
    }

    // Whether the node takes a byte other than the terminator, so that the next one can come after it.
    bool noteNode(const Node& node, unsigned offset) {
        const std::uint8_t bit = static_cast<std::uint8_t>(1u << offset);
        switch (node.op) {
            case Op::kChar:
            case Op::kCharRun:
                prefix_.takes[node.byte] |= bit;
                return true;
            case Op::kAny:
            case Op::kAnyRun:
                for (unsigned c = 1; c < 256; ++c) prefix_.takes[c] |= bit;
                return true;
            case Op::kSet:
            case Op::kSetRun:
                for (unsigned c = 0; c < 256; ++c) prefix_.takes[c] |= program_.sets[node.set][c] ? bit : 0;
                return true;
            case Op::kTerminator:
            case Op::kEol:
                prefix_.takes[0] |= bit;
                return false;
            default:
                return false;
        }
    }

    const Program& program_;
    Prefix& prefix_;
    Set current_;
};

void findWindow(const Program& program, Prefix& prefix) {
    prefix.width = 0;
    std::memset(prefix.takes, 0, sizeof prefix.takes);
    Ways ways(program, prefix);
    while (prefix.width < Prefix::kMaxWidth && ways.note(prefix.width)) {
        ++prefix.width;
        if ((prefix.takes[0] >> (prefix.width - 1)) & 1) break;  // it may be the terminator: no byte behind it
    }
}

// Whether the window is all that there is to a match.
bool isWindow(const Program& program, unsigned width) {
    unsigned size = 0;
    for (unsigned i = 0; i < program.certain; ++i) {
        Op op = program.nodes[i].op;
        if (op != Op::kChar && op != Op::kAny && op != Op::kSet && op != Op::kMark) return false;
        size += op != Op::kMark;
    }
    return size == width;
}

// A byte at the window's end that can be any costs time and tells nothing: RegAt/64KB/reference.
void dropOpenTail(Prefix& prefix) {
    auto open = [&prefix](unsigned k) {
        for (unsigned c = 1; c < 256; ++c) {
            if (!((prefix.takes[c] >> k) & 1)) return false;
        }
        return true;
    };
    while (prefix.width > 0 && open(prefix.width - 1)) --prefix.width;
}

void findProbes(const Program& program, Prefix& prefix) {
    prefix.hasProbes = false;
    unsigned offset = 0;
    for (unsigned i = 0; i < program.certain && offset < Prefix::kMaxProbe; ++i) {
        const Node& node = program.nodes[i];
        if (node.op == Op::kChar) {
            prefix.probe[1] = node.byte;
            prefix.probeAt[1] = offset;
            if (!prefix.hasProbes) {
                prefix.probe[0] = prefix.probe[1];
                prefix.probeAt[0] = offset;
            }
            prefix.hasProbes = true;
        }
        if (node.op == Op::kChar || node.op == Op::kAny || node.op == Op::kSet) {
            ++offset;
        } else if (node.op != Op::kMark && node.op != Op::kWordStart && node.op != Op::kWordEnd) {
            return;
        }
    }
}

}  // namespace

void findPrefix(const Program& program, Prefix& prefix) {
    findWindow(program, prefix);
    prefix.exact = isWindow(program, prefix.width);
    if (!prefix.exact) dropOpenTail(prefix);
    findProbes(program, prefix);
}

const char* Prefilter::byFirst(const char* from) const {
    while (*from && !(prefix_.takes[byteOf(*from)] & 1)) ++from;
    return *from ? from : nullptr;
}

// All starts in the window at once: bit k stands for the one k bytes back. A search that goes on one behind what was
// found last resumes there, instead of reading the window's bytes again: RegCount/1MB/letters.
const char* Prefilter::byWindow(const char* from) {
    const unsigned last = prefix_.width - 1;
    const bool resumes = from == resumeFrom_;
    unsigned state = resumes ? resumeState_ : 0;
    for (const char* at = resumes ? resumeAt_ : from;; ++at) {
        const std::uint8_t byte = byteOf(*at);
        state = ((state << 1) | 1) & prefix_.takes[byte];
        if ((state >> last) & 1) {
            const char* found = at - last;
            resumeFrom_ = byte ? found + 1 : nullptr;
            resumeAt_ = at + 1;
            resumeState_ = state;
            return found;
        }
        if (!byte) return nullptr;
    }
}

bool Prefilter::shows(const char* at) const {
    for (unsigned k = 0; k < prefix_.width; ++k) {
        if (!((prefix_.takes[byteOf(at[k])] >> k) & 1)) return false;
    }
    return true;
}

const char* Prefilter::byProbes(const char* from) {
    const std::size_t head = prefix_.probeAt[0], reach = prefix_.probeAt[1];
    const __m128i first = _mm_set1_epi8(static_cast<char>(prefix_.probe[0]));
    const __m128i last = _mm_set1_epi8(static_cast<char>(prefix_.probe[1]));
    // Of 16 places, those that have both probes where they belong.
    auto probes = [&](const char* at) {
        return _mm_and_si128(_mm_cmpeq_epi8(load(at + head), first), _mm_cmpeq_epi8(load(at + reach), last));
    };
    auto pick = [this](const char* at, unsigned hits) -> const char* {
        for (; hits; hits &= hits - 1) {
            const char* place = at + std::countr_zero(hits);
            if (shows(place)) return place;
        }
        return nullptr;
    };
    auto room = [&](const char* at) { return text_.known() - at - static_cast<std::ptrdiff_t>(reach); };
    const char* at = from;
    do {
        for (; room(at) >= 32; at += 32) {
            __m128i low = probes(at), high = probes(at + 16);
            if (bits(_mm_or_si128(low, high)) == 0) continue;
            if (const char* found = pick(at, bits(low) | (bits(high) << 16))) return found;
        }
        for (; room(at) >= 16; at += 16) {
            if (const char* found = pick(at, bits(probes(at)))) return found;
        }
    } while (text_.extend());
    std::ptrdiff_t left = room(at);
    if (left <= 0) return nullptr;
    std::ptrdiff_t done = 16 - left;  // the text's last 16 places overlap with those before
    if (at - text_.start() >= done) return pick(at - done, (bits(probes(at - done)) >> done) << done);
    for (; left > 0; --left, ++at) {
        if (shows(at)) return at;
    }
    return nullptr;
}

}  // namespace vx::regex
