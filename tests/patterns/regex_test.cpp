// Regular expressions beside the same the plain way, and wherever a match may lie.
#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <cstring>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

// A byte program walked by recursion, as slow as it likes.
class Oracle {
 public:
    // Where groups begin and end; group 0 is the whole.
    struct Match {
        std::array<int, 10> open, close;
        Match() {
            open.fill(-1);
            close.fill(-1);
        }
        std::string group(std::size_t g, const std::string& text) const {
            bool isEmpty = open[g] < 0 || open[g] >= close[g];
            return isEmpty ? "" : (text + '\0').substr(std::size_t(open[g]), std::size_t(close[g] - open[g]));
        }
    };

    // 0 or the error code.
    int compile(const std::string& pattern) {
        *this = Oracle();
        int error = 0;
        for (std::size_t i = 0; i < pattern.size() && !error; ++i) error = compileItem(pattern, i);
        if (!error && !open_.empty()) error = -10;
        if (!error && code_.size() >= 1024) error = -2;
        hasReference_ = code_.find(char(kReference)) != code_.npos;
        code_.resize(1100);
        return error;
    }

    std::optional<Match> search(const std::string& text, int from) {
        text_ = text;
        start_ = from;
        failed_.clear();
        for (int i = from; byte(0) == kBol ? i == from && i <= int(text.size()) : i < int(text.size()); ++i) {
            Match m;
            m.open[0] = i;
            if (match(0, i, m)) return m;
        }
        return {};
    }

 private:
    // These numbers matter: the byte that a closure of a class loses leaves operands as nodes.
    static constexpr int kChar = 1, kAny = 2, kClass = 3, kNotClass = 4, kBol = 5, kEol = 6, kOpen = 7, kClose = 8,
                         kWordStart = 9, kWordEnd = 10, kReference = 11, kClosure = 12;
    static constexpr std::size_t kSizes[] = {1, 2, 1, 33, 33, 1, 1, 2, 2, 1, 1, 2};

    int node(int op, const std::string& operand = {}) {
        last_ = code_.size();
        code_ += char(op) + operand;
        return 0;
    }

    int compileItem(const std::string& p, std::size_t& i) {
        int last = last_ < code_.size() ? code_[last_] : 0;
        std::string s = p.substr(i, p[i] == '\\' ? 2 : 1);
        i += s.size() - 1;
        if (s == "[") return compileClass(p, ++i);
        if (s == "*" || s == "+") {
            if (i == 0 || last >= kBol) return i == 0 ? -3 : last == kClosure ? 0 : -4;
            std::string body = code_.substr(last_);
            if (s == "*") code_.resize(last_);
            return node(kClosure, body + '\0');
        }
        if (s == ".") return node(kAny);
        if (s == "^" && i == 0) return node(kBol);
        if (s == "$" && i + 1 == p.size()) return node(kEol);
        if (s == "\\") return -2;
        if (s == "\\<") return node(kWordStart);
        if (s == "\\>") return last == kWordStart ? -7 : node(kWordEnd);
        if (s == "\\(") {
            if (groups_ == 9) return -5;
            open_ += char(++groups_);
            return node(kOpen, {char(groups_)});
        }
        if (s == "\\)") {
            if (last == kOpen || open_.empty()) return last == kOpen ? -7 : -6;
            node(kClose, {open_.back()});
            open_.pop_back();
            return 0;
        }
        int group = s.size() == 2 && s[1] >= '1' && s[1] <= '9' ? s[1] - '0' : 0;
        if (!group) return node(kChar, {s.back()});
        if (!open_.empty() && open_.back() == group) return -8;
        return group > groups_ ? -9 : node(kReference, {char(group)});
    }

    int compileClass(const std::string& p, std::size_t& i) {
        auto at = [&](std::size_t k) { return k < p.size() ? int(std::uint8_t(p[k])) : 0; };
        std::string bits(32, '\0');
        auto add = [&](int c) { bits[std::size_t(c >> 3)] |= char(1 << (c & 7)); };
        bool negated = at(i) == '^';
        i += negated;
        if (at(i) == '-') add(at(i++));
        if (at(i) == ']') add(at(i++));
        for (; at(i) && at(i) != ']'; ++i) {
            bool range = at(i) == '-' && at(i + 1) && at(i + 1) != ']';
            if (!range) add(at(i));
            for (int c = at(i - 1) + 1; range && c <= at(i + 1); ++c) add(c);
            i += range;
        }
        return at(i) ? node(negated ? kNotClass : kClass, bits) : -2;
    }

    static bool isWord(int c) { return c > 0 && c < 128 && (std::isalnum(c) || c == '_') && !std::strchr("Zz9", c); }

    int byte(std::size_t pc) const { return std::uint8_t(code_[pc]); }
    int charAt(int i) const { return i > int(text_.size()) ? -1 : std::uint8_t(text_.c_str()[i]); }

    bool takes(std::size_t pc, int c) const {
        if (byte(pc) <= kAny) return byte(pc) == kAny ? c > 0 : c == byte(pc + 1);
        return c >= 0 && ((byte(pc + 1 + std::size_t(c >> 3)) >> (c & 7)) & 1) != (byte(pc) == kNotClass);
    }

    // Whether a node that takes nothing lets pass.
    bool holds(int op, int i) const {
        bool before = i > start_ && isWord(charAt(i - 1)), here = isWord(charAt(i));
        if (op == kBol || op == kEol) return op == kBol ? i == start_ : charAt(i) == 0;
        return op == kWordStart ? !before && here : op != kWordEnd || (before && !here);
    }

    // Other bytes are nodes without any effect.
    static std::size_t sizeOf(int op) { return op < kClosure ? kSizes[op] : 1; }

    bool match(std::size_t pc, int i, Match& m) {
        for (int op; (op = byte(pc)) != 0; pc += sizeOf(op)) {
            if (op == kClosure) return matchClosure(pc + 1, i, m);
            if (op <= kNotClass ? !takes(pc, charAt(i++)) : !holds(op, i)) return false;
            std::size_t group = std::size_t(byte(pc + 1));
            if (group == 0 || group >= 10) continue;
            if (op == kOpen || op == kClose) (op == kOpen ? m.open : m.close)[group] = i;
            for (int k = m.open[group]; op == kReference && k >= 0 && k < m.close[group]; ++k, ++i)
                if (charAt(i) != charAt(k)) return false;
        }
        m.close[0] = i;
        return true;
    }

    bool matchClosure(std::size_t body, int floor, Match& m) {
        int op = byte(body), i = floor;
        if (op < kChar || op > kNotClass) return false;
        std::size_t rest = body + sizeOf(op) + 1 + (op >= kClass);  // kept: behind a class a byte is lost
        while (charAt(i) > 0 && takes(body, charAt(i))) ++i;
        for (; i >= floor; --i) {
            Match before = m;
            if (!failed_.count({rest, i}) && match(rest, i, m)) return true;
            m = before;
            if (!hasReference_) failed_.insert({rest, i});
        }
        return false;
    }

    std::string code_, open_, text_;
    std::size_t last_ = 0;  // where the last node begins
    int groups_ = 0, start_ = 0;
    bool hasReference_ = false;
    std::set<std::pair<std::size_t, int>> failed_;
};

class Regex : public testing::Test {
 protected:
    // What the exports say about a pattern and a text, beside the oracle.
    void compare(const std::string& pattern, const std::string& text) {
        SCOPED_TRACE(testing::PrintToString(pattern) + " in " + testing::PrintToString(text));
        int error = oracle.compile(pattern);
        ASSERT_EQ(lib().RegCheck(pattern.c_str()), error);
        if (error) return;
        auto room = static_cast<std::uint32_t>(text.size() * 3 + 8);
        Dest dest(room);
        for (int n = 1, from = 0; n <= 2; ++n) {
            auto match = oracle.search(text, from);
            std::int32_t at = -7, length = -7;
            auto nth = static_cast<std::uint32_t>(n);
            lib().RegInfo(pattern.c_str(), text.c_str(), nth, &at, &length, dest, room);
            ASSERT_EQ(at, match ? match->open[0] + 1 : from) << n;
            ASSERT_EQ(length, match ? match->close[0] - match->open[0] : 0) << n;
            ASSERT_EQ(lib().RegAtNext(pattern.c_str(), text.c_str(), nth), match ? match->open[0] + 1 : 0) << n;
            std::string expected = text;
            if (match) {
                std::string inserted = "<" + match->group(1, text) + "|" + match->group(2, text) + ">";
                expected = text.substr(0, std::size_t(match->open[0])) + inserted.c_str() +
                           text.substr(std::min(std::size_t(match->close[0]), text.size()));
            }
            lib().RegSwap(pattern.c_str(), text.c_str(), nth, "<\\1|\\2>", dest, room);
            ASSERT_EQ(dest.text(), expected) << n;
            if (match) from = match->open[0] + 1;
        }
    }

    // Some of the pieces, which stand between blanks, one after the other.
    std::string pick(const std::string& pieces, int least, int most) {
        std::string result;
        for (int count = random.number(least, most); count > 0; --count) {
            std::size_t start = pieces.find(' ', std::size_t(random.number(0, int(pieces.size()) - 1))) + 1;
            result += pieces.substr(start, pieces.find(' ', start) - start);
        }
        return result;
    }

    RandomTexts random{20250};
    Oracle oracle;
};

TEST_F(Regex, SmallPatternsAndTexts) {
    const std::string pieces =
        "a b . a* b* .* a+ * ^ $ [ab] [^a] [b]* [^b]+ [\x01-\x0F] [\x02\x03] [\x7F-\xFF] \\( \\( \\) \\) \\(a*\\) "
        "\\(b\\) \\1 \\2 \\< \\> \x01 \x02 \t _ 9 \xE9";
    for (int round = 0; round < 150000 && !HasFailure(); ++round) {
        std::string pattern = random.oneIn(3) ? random.text("ab.*+[]^-$\\()12<>\x01\x02", 9) : pick(pieces, 1, 6);
        if (!pattern.empty()) compare(pattern, random.text(random.oneIn(2) ? "ab" : "ab 9_z\x01\xE9", 8));
    }
}

// Patterns that send plain backtracking astray, so that the guided search is at work.
TEST_F(Regex, PatternsThatNeedGuidance) {
    for (int round = 0; round < 1500 && !HasFailure(); ++round) {
        std::string pattern = random.oneIn(3) ? pick("a* b* a* b* a* b* a* b* a* b* .* a \\>", 60, 150)
                                              : pick("a* b* .* a* b* .* a . \\< \\> [ab]", 2, 7);
        if (random.oneIn(2)) pattern = "\\(a*\\)" + pattern + "\\(.*\\)b";
        if (random.oneIn(4)) pattern = "^" + pattern;
        pattern += pick("c [^ab] bb$ a*c", 1, 1);
        compare(pattern, random.text(random.oneIn(2) ? "ab" : "aab ", 60) + pick("c bb b ca caa", 1, 2));
    }
}

TEST_F(Regex, BackReferencesThatNeedGuidance) {
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
        std::string pattern = pick("a*b b* .b*\\< a* a*\\>b* .*", 0, 1);
        pattern += pick("\\(a*\\) \\(b\\) \\(.*\\) \\<\\(b*\\)", 1, 1) + pick("a* b* .*", 1, 2);
        if (random.oneIn(2)) pattern += "\\(" + pick("b* a .*", 1, 2) + "\\)" + pick("a* \\< b* \\>", 1, 1) + "\\2";
        pattern += "\\1" + pick("a* c b $ \\> \\1", 1, 2);
        // What fails lies on both sides of byte 64.
        std::string before(pattern.find('.') == pattern.npos ? 52 : 0, 'c');
        compare(pattern, before + random.text(random.oneIn(2) ? "ab" : "aab ", 26) + (random.oneIn(4) ? "bc" : "a"));
    }
}

// Also where the search changes its stride.
TEST_F(Regex, AtEveryPlace) {
    const std::pair<const char*, std::string> rows[] = {
        {"xyz", "xyz"}, {"x.z", "x-z"},  {"[x]y", "xy"}, {"[xy][yz]", "yz"}, {"y$", "y"}, {".........x", "123456789x"},
        {"[^a]", "x"},  {"xa*y", "xaay"}};
    for (const auto& [pattern, needle] : rows) {
        auto check = [&, p = pattern, n = needle](std::size_t size, std::size_t place) {
            std::string text(size, 'a');
            text.replace(place, n.size(), n);
            int expected = *p == 'y' && place + 1 < size ? 0 : static_cast<int>(place) + 1;
            ASSERT_EQ(lib().RegAt(p, text.c_str()), expected) << p << " at " << place << " of " << size;
        };
        for (std::size_t size = needle.size(); size < 80; ++size)
            for (std::size_t place = 0; place + needle.size() <= size; ++place) check(size, place);
        for (std::size_t place = 4096 - 60; place < 4096 + 40; ++place) check(4096 + 60, place);
    }
}

}  // namespace
}  // namespace vx::test
