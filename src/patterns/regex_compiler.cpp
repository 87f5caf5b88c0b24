// From a pattern to its byte program, in one pass: each item appends a node. A closure wraps the node before it, which
// is why a + first writes that node a second time (x+ is xx*), and why what is no single character cannot repeat.
#include <cstring>

#include "frame/text.h"
#include "patterns/regex_program.h"

namespace vx::regex {

namespace {

class Compiler {
 public:
    Compiler(const char* pattern, Bytes& bytes) : pattern_(pattern), at_(pattern), bytes_(bytes) {}

    Error run() {
        while (*at_) {
            Error error = item();
            if (error != kNoError) return error;
            if (full_) return kUnfinished;
        }
        if (depth_ > 0) return kOpenGroup;
        put(kEnd);
        return full_ ? kUnfinished : kNoError;
    }

 private:
    Error item() {
        char c = *at_++;
        switch (c) {
            case '.':
                return node(kAny);
            case '[':
                return characterClass();
            case '*':
            case '+':
                return closure(c == '+');
            case '\\':
                return escape();
            case '^':
                if (at_ - 1 == pattern_) return node(kBol);
                break;
            case '$':
                if (!*at_) return node(kEol);
                break;
            default:
                break;
        }
        return node(kChar, byteOf(c));
    }

    Error escape() {
        char c = *at_;
        if (!c) return kUnfinished;
        ++at_;
        switch (c) {
            case '(':
                return openGroup();
            case ')':
                return closeGroup();
            case '<':
                return node(kWordStart);
            case '>':
                return previousIs(kWordStart) ? kEmptyGroup : node(kWordEnd);
            default:
                break;
        }
        return c >= '1' && c <= '9' ? backReference(static_cast<std::uint8_t>(c - '0')) : node(kChar, byteOf(c));
    }

    Error openGroup() {
        if (groups_ == kGroups - 1) return kTooManyGroups;
        open_[depth_++] = ++groups_;
        return node(kGroupOpen, groups_);
    }

    Error closeGroup() {
        if (previousIs(kGroupOpen)) return kEmptyGroup;
        if (depth_ == 0) return kNoOpenGroup;
        return node(kGroupClose, open_[--depth_]);
    }

    Error backReference(std::uint8_t group) {
        if (depth_ > 0 && open_[depth_ - 1] == group) return kReferenceInside;
        if (group > groups_) return kReferenceBefore;
        return node(kBackRef, group);
    }

    Error closure(bool atLeastOne) {
        if (at_ - 1 == pattern_) return kClosureFirst;
        switch (bytes_.code[previous_]) {
            case kClosure:
                return kNoError;  // a** is a*
            case kBol:
            case kGroupOpen:
            case kGroupClose:
            case kWordStart:
            case kWordEnd:
            case kBackRef:
                return kClosureOfMark;
            default:
                break;
        }
        std::size_t size = bytes_.size - previous_;
        if (bytes_.size + (atLeastOne ? size : 0) + 2 > kCodeRoom) return kUnfinished;
        std::uint8_t* body = bytes_.code + previous_;
        if (atLeastOne) {
            std::memcpy(body + size, body, size);
            body += size;
        }
        std::memmove(body + 1, body, size);
        body[0] = kClosure;
        body[size + 1] = kEnd;
        previous_ = static_cast<std::size_t>(body - bytes_.code);
        bytes_.size = previous_ + size + 2;
        return kNoError;
    }

    Error characterClass() {
        std::uint8_t bitmap[kBitmapSize] = {};
        auto add = [&bitmap](std::uint8_t c) { bitmap[c >> 3] |= static_cast<std::uint8_t>(1 << (c & 7)); };
        Code code = kClass;
        if (*at_ == '^') {
            code = kNotClass;
            ++at_;
        }
        if (*at_ == '-') add(byteOf(*at_++));
        if (*at_ == ']') add(byteOf(*at_++));
        for (; *at_ && *at_ != ']'; ++at_) {
            if (*at_ == '-' && at_[1] && at_[1] != ']') {
                int low = byteOf(at_[-1]);  // a member already
                ++at_;
                for (int c = low + 1; c <= byteOf(*at_); ++c) add(static_cast<std::uint8_t>(c));
            } else {
                add(byteOf(*at_));
            }
        }
        if (!*at_) return kUnfinished;
        ++at_;
        node(code);
        for (std::uint8_t bits : bitmap) put(bits);
        return kNoError;
    }

    Error node(Code code) {
        previous_ = bytes_.size;
        put(code);
        return kNoError;
    }

    Error node(Code code, std::uint8_t operand) {
        node(code);
        put(operand);
        return kNoError;
    }

    void put(std::uint8_t byte) {
        if (bytes_.size < kCodeRoom) {
            bytes_.code[bytes_.size++] = byte;
        } else {
            full_ = true;
        }
    }

    bool previousIs(Code code) const { return bytes_.size > 0 && bytes_.code[previous_] == code; }

    const char* pattern_;
    const char* at_;
    Bytes& bytes_;
    std::size_t previous_ = 0;  // where the last node begins
    std::uint8_t open_[kGroups - 1] = {};
    std::uint8_t depth_ = 0;
    std::uint8_t groups_ = 0;
    bool full_ = false;
};

}  // namespace

Error compile(const char* pattern, Bytes& bytes) { return Compiler(pattern, bytes).run(); }

}  // namespace vx::regex
