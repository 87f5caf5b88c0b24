// Regular expressions the plain way: a byte program walked by recursion, as slow as it likes.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vx::test {

class RegexOracle {
 public:
    struct Match {
        int start = 0, end = 0;
        std::array<int, 10> open, close;

        std::string_view group(std::size_t g, std::string_view text) const {
            int from = g == 0 ? start : open[g], to = g == 0 ? end : close[g];
            return from < 0 || from >= to ? "" : text.substr(std::size_t(from), std::size_t(to - from));
        }
    };

    // 0 or the error code.
    int compile(const std::string& pattern) {
        code_.clear();
        nodes_.clear();
        int error = compileAll(pattern);
        if (!error && code_.size() > 1024) error = -2;
        hasReference_ = code_.find('\x0B') != std::string::npos;
        code_.resize(1100);
        return error;
    }

    // The n-th match of the walk; without one `from` is where the last search began.
    std::optional<Match> nth(const std::string& text, unsigned n, int& from) {
        from = 0;
        for (unsigned k = 1; k <= n; ++k) {
            if (from > int(text.size())) return {};
            std::optional<Match> match = search(text, from);
            if (!match || k == n) return match;
            from = match->start + 1;
        }
        return {};
    }

 private:
    void node(std::initializer_list<int> bytes) {
        nodes_.push_back(code_.size());
        for (int byte : bytes) code_ += char(byte);
    }

    int compileAll(const std::string& p) {
        std::vector<int> open;
        int groups = 0;
        for (std::size_t i = 0; i < p.size(); ++i) {
            int last = nodes_.empty() ? -1 : code_[nodes_.back()];
            char c = p[i];
            if (c == '.') {
                node({2});
            } else if (c == '^' && i == 0) {
                node({5});
            } else if (c == '$' && i + 1 == p.size()) {
                node({6});
            } else if (c == '[') {
                int error = compileClass(p, i);
                if (error) return error;
            } else if (c == '*' || c == '+') {
                if (i == 0) return -3;
                if (last == 12) continue;
                if (last >= 5 && last <= 11) return -4;
                std::string body = code_.substr(nodes_.back());
                if (c == '*') code_.resize(nodes_.back()), nodes_.pop_back();
                node({12});
                code_ += body + '\0';
            } else if (c == '\\') {
                if (++i == p.size()) return -2;
                char e = p[i];
                if (e == '(') {
                    if (groups == 9) return -5;
                    open.push_back(++groups);
                    node({7, groups});
                } else if (e == ')') {
                    if (last == 7) return -7;
                    if (open.empty()) return -6;
                    node({8, open.back()});
                    open.pop_back();
                } else if (e == '<') {
                    node({9});
                } else if (e == '>') {
                    if (last == 9) return -7;
                    node({10});
                } else if (e >= '1' && e <= '9') {
                    if (!open.empty() && open.back() == e - '0') return -8;
                    if (e - '0' > groups) return -9;
                    node({11, e - '0'});
                } else {
                    node({1, e});
                }
            } else {
                node({1, c});
            }
        }
        code_ += '\0';
        return open.empty() ? 0 : -10;
    }

    int compileClass(const std::string& p, std::size_t& i) {
        auto at = [&](std::size_t k) { return k < p.size() ? int(std::uint8_t(p[k])) : 0; };
        std::string bits(32, '\0');
        auto add = [&](int c) { bits[std::size_t(c >> 3)] |= char(1 << (c & 7)); };
        bool negated = at(++i) == '^';
        i += negated;
        if (at(i) == '-') add(at(i++));
        if (at(i) == ']') add(at(i++));
        for (; at(i) && at(i) != ']'; ++i) {
            bool range = at(i) == '-' && at(i + 1) && at(i + 1) != ']';
            if (!range) add(at(i));
            for (int c = at(i - 1) + 1; range && c <= at(i + 1); ++c) add(c);
            i += range;
        }
        if (!at(i)) return -2;
        node({negated ? 4 : 3});
        code_ += bits;
        return 0;
    }

    static bool isWord(int c) {
        return (c >= 'A' && c <= 'Y') || (c >= 'a' && c <= 'y') || (c >= '0' && c <= '8') || c == '_';
    }

    int byte(std::size_t pc) const { return std::uint8_t(code_[pc]); }
    int charAt(int i) const { return i > int(text_->size()) ? -1 : std::uint8_t(text_->c_str()[i]); }
    bool inClass(std::size_t pc, int c) const {
        return c >= 0 && (byte(pc + 1 + std::size_t(c >> 3)) >> (c & 7) & 1) != (byte(pc) == 4);
    }

    // Whether a node that takes no byte holds at i.
    bool holds(int op, int i) const {
        int c = charAt(i), before = i > start_ ? charAt(i - 1) : -1;
        if (op == 5) return i == start_;
        if (op == 6) return c == 0;
        return op == 9 ? !isWord(before) && isWord(c) : isWord(before) && !isWord(c);
    }

    bool match(std::size_t pc, int i, Match& m) {
        for (int op; (op = byte(pc)) != 0; ++pc) {
            int c = charAt(i);
            std::size_t operand = std::size_t(byte(pc + 1));
            if (op == 12) return closure(pc + 1, i, m);
            if (op <= 4) {
                if (op == 1 ? c != int(operand) : op == 2 ? c <= 0 : !inClass(pc, c)) return false;
                ++i;
            }
            if (op == 5 || op == 6 || op == 9 || op == 10) {
                if (!holds(op, i)) return false;
            }
            if ((op == 7 || op == 8) && operand < 10) (op == 7 ? m.open : m.close)[operand] = i;
            if (op == 11 && operand > 0 && operand < 10 && m.open[operand] >= 0) {
                for (int k = m.open[operand]; k < m.close[operand]; ++k, ++i)
                    if (charAt(i) != charAt(k)) return false;
            }
            pc += op == 3 || op == 4 ? 32 : op == 1 || op == 7 || op == 8 || op == 11 ? 1 : 0;
        }
        m.end = i;
        return true;
    }

    bool closure(std::size_t body, int floor, Match& m) {
        int op = byte(body), i = floor;
        std::size_t rest = body + (op == 1 ? 3 : op == 2 ? 2 : 35);
        if (op < 1 || op > 4) return false;
        while (charAt(i) > 0 && (op == 1 ? charAt(i) == byte(body + 1) : op == 2 || inClass(body, charAt(i)))) ++i;
        for (; i >= floor; --i) {
            std::pair<std::size_t, int> key(rest, i);
            if (!hasReference_ && failed_.count(key)) continue;
            Match next = m;
            if (match(rest, i, next)) {
                m = next;
                return true;
            }
            if (!hasReference_) failed_.insert(key);
        }
        return false;
    }

    std::optional<Match> search(const std::string& text, int from) {
        text_ = &text;
        start_ = from;
        failed_.clear();
        bool anchored = byte(0) == 5;
        for (int i = from; anchored ? i == from : i < int(text.size()); ++i) {
            Match m;
            m.start = i;
            m.open.fill(-1);
            m.close.fill(-1);
            if (match(0, i, m)) return m;
        }
        return {};
    }

    std::string code_;
    std::vector<std::size_t> nodes_;
    bool hasReference_ = false;
    const std::string* text_ = nullptr;
    int start_ = 0;
    std::set<std::pair<std::size_t, int>> failed_;
};

}  // namespace vx::test
