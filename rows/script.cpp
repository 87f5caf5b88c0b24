#include "rows/script.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace vx::rows {
namespace {

constexpr const char* kUnequal = "braces with different numbers of values, or with none";

std::string placeInBraces(std::size_t index) { return " (" + std::to_string(index + 1) + " of the braces)"; }

bool isNameCharacter(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '-'; }

// Reads one line from left to right; what is wrong with it is thrown as a text without a place.
class Line {
 public:
    explicit Line(std::string_view text) : rest_(text) { skipBlanks(); }

    bool atEnd() const { return rest_.empty() || (rest_[0] == '#' && (rest_.size() == 1 || rest_[1] == ' ')); }
    bool take(std::string_view word) {
        if (!rest_.starts_with(word)) return false;
        rest_.remove_prefix(word.size());
        skipBlanks();
        return true;
    }
    bool takeWord(std::string_view word) {
        bool whole = rest_.size() == word.size() || (rest_.size() > word.size() && rest_[word.size()] == ' ');
        return whole && take(word);
    }

    std::string name() {
        std::string name = nameHere();
        if (name.empty()) throw std::string("a name is missing at `") + std::string(rest_) + "`";
        skipBlanks();
        return name;
    }

    // A name, or those in braces.
    std::vector<std::string> names() {
        if (!take("{")) return {name()};
        std::vector<std::string> all;
        while (!take("}")) all.push_back(name());
        return all;
    }

    // `name=` in front of a value.
    std::string label() {
        std::size_t size = 0;
        while (size < rest_.size() && isNameCharacter(rest_[size])) ++size;
        if (size == 0 || size == rest_.size() || rest_[size] != '=') return {};
        std::string label(rest_.substr(0, size));
        rest_.remove_prefix(size + 1);
        return label;
    }

    // A value, or those in braces.
    std::vector<Value> values() {
        if (!take("{")) return {value()};
        std::vector<Value> all;
        while (!take("}")) all.push_back(value());
        return all;
    }

    Value value() {
        Value value;
        char c = rest_.empty() ? '\0' : rest_[0];
        if (c == '"') {
            value.kind = Value::Kind::kText;
            value.text = joined();
        } else if (c == '$') {
            rest_.remove_prefix(1);
            value.kind = Value::Kind::kVariable;
            value.text = nameHere();
        } else if (c == '#' || c == '-' || std::isdigit(static_cast<unsigned char>(c))) {
            value.kind = Value::Kind::kNumber;
            if (c == '#') rest_.remove_prefix(1);
            value.number = number();
        } else if (rest_.starts_with("@null")) {
            rest_.remove_prefix(5);
        } else {
            value.text = nameHere();
            if (value.text.empty()) throw "no value: `" + std::string(rest_) + "`";
            value.kind = value.text == "void" ? Value::Kind::kVoid : Value::Kind::kPlace;
            if (!rest_.empty() && rest_[0] == '+') {
                rest_.remove_prefix(1);
                value.number = number();
            }
        }
        if (!rest_.empty() && rest_[0] != ' ' && rest_[0] != '}') throw "no blank before `" + std::string(rest_) + "`";
        skipBlanks();
        return value;
    }

 private:
    void skipBlanks() {
        while (!rest_.empty() && rest_[0] == ' ') rest_.remove_prefix(1);
    }

    std::string nameHere() {
        std::size_t size = 0;
        while (size < rest_.size() && isNameCharacter(rest_[size])) ++size;
        std::string name(rest_.substr(0, size));
        rest_.remove_prefix(size);
        return name;
    }

    std::int64_t number() {
        bool negative = rest_.starts_with('-');
        if (negative) rest_.remove_prefix(1);
        bool hexadecimal = rest_.starts_with("0x");
        if (hexadecimal) rest_.remove_prefix(2);
        std::int64_t number = 0;
        auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number, hexadecimal ? 16 : 10);
        if (error != std::errc() || number > 0xFFFFFFFF) throw "no 32-bit number: `" + std::string(rest_) + "`";
        rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
        return negative ? -number : number;
    }

    std::string joined() {
        std::string text;
        for (bool more = true; more;) {
            std::string piece = quotedHere();
            std::int64_t times = 1;
            if (rest_.starts_with('*')) {
                rest_.remove_prefix(1);
                times = number();
            }
            for (; times > 0; --times) text += piece;
            more = rest_.starts_with("+\"");
            if (more) rest_.remove_prefix(1);
        }
        return text;
    }

    std::string quotedHere() {
        for (std::size_t i = 1; i < rest_.size(); ++i) {
            if (rest_[i] == '"') {
                std::string text = unescaped(rest_.substr(1, i - 1));
                rest_.remove_prefix(i + 1);
                return text;
            }
            if (rest_[i] == '\\') ++i;
        }
        throw std::string("a text without its closing quote");
    }

    std::string_view rest_;
};

// A line as it stands: each value with the others that stand in its braces.
struct Sheaf {
    std::vector<std::string> names;
    std::vector<std::vector<Value>> arguments;
    std::vector<std::pair<std::string, std::vector<Value>>> given, outputs;
    std::vector<Value> outcome;
};

Sheaf parseCall(Line& line) {
    Sheaf sheaf;
    sheaf.names = line.names();
    while (!line.atEnd() && !line.take("-> ")) {
        std::string label = line.label();
        if (label.empty()) {
            sheaf.arguments.push_back(line.values());
        } else {
            sheaf.given.emplace_back(label, line.values());
        }
    }
    return sheaf;
}

Row rowOf(const Sheaf& sheaf, std::size_t index) {
    auto pick = [&](const auto& values) { return values.size() == 1 ? values[0] : values[index]; };
    Row row;
    row.name = pick(sheaf.names);
    for (const auto& values : sheaf.arguments) row.arguments.push_back(pick(values));
    for (const auto& [label, values] : sheaf.given) row.given.emplace_back(label, pick(values));
    for (const auto& [label, values] : sheaf.outputs) row.outputs.emplace_back(label, pick(values));
    if (!sheaf.outcome.empty()) row.outcome = pick(sheaf.outcome);
    return row;
}

// How many rows the braces stand for.
std::size_t countOf(const Sheaf& sheaf) {
    std::size_t count = 1;
    auto take = [&](const auto& values) {
        if (values.empty() || (values.size() > 1 && count > 1 && values.size() != count)) throw std::string(kUnequal);
        count = std::max(count, values.size());
    };
    take(sheaf.names);
    for (const auto& values : sheaf.arguments) take(values);
    for (const auto& [label, values] : sheaf.given) take(values);
    for (const auto& [label, values] : sheaf.outputs) take(values);
    if (!sheaf.outcome.empty()) take(sheaf.outcome);
    return count;
}

std::vector<Row> parseRows(std::string_view text) {
    Line line(text);
    if (text.find(" -> ") == text.npos) throw std::string("the row names no outcome (` -> ` and what the call gives)");
    Sheaf sheaf = parseCall(line);
    if (line.atEnd()) throw std::string("nothing behind the arrow");
    sheaf.outcome = line.values();
    if (sheaf.outcome.empty()) throw std::string(kUnequal);
    while (!line.atEnd()) {
        std::string label = line.label();
        if (label.empty()) throw std::string("an output without its name");
        sheaf.outputs.emplace_back(label, line.values());
    }
    std::vector<Row> rows;
    std::size_t count = countOf(sheaf);
    for (std::size_t i = 0; i < count; ++i) {
        rows.push_back(rowOf(sheaf, i));
        rows.back().source = std::string(text) + (count > 1 ? placeInBraces(i) : "");
    }
    return rows;
}

// Of a line with braces, those values that stand at `index`; and how many there are.
Setup parseSetup(std::string_view text, std::size_t index, std::size_t& count) {
    auto rowOfCall = [&](std::string_view call) {
        Line line(call);
        Sheaf sheaf = parseCall(line);
        std::size_t here = countOf(sheaf);
        if (here > 1 && here <= index) throw std::string(kUnequal);
        count = std::max(count, here);
        return rowOf(sheaf, here == 1 ? 0 : index);
    };
    Setup setup;
    if (!text.empty() && (std::isupper(static_cast<unsigned char>(text[0])) || text[0] == '_')) {
        std::size_t until = text.find(" until ");
        setup.call = rowOfCall(text.substr(0, until));
        if (until != text.npos) setup.until = rowOfCall(text.substr(until + 7));
        return setup;
    }
    Line line(text);
    while (!line.atEnd()) {
        std::vector<Value> values = line.values();
        if (values.empty() || (values.size() > 1 && values.size() <= index)) throw std::string(kUnequal);
        setup.words.push_back(values[values.size() == 1 ? 0 : index]);
        count = std::max(count, values.size());
    }
    if (setup.words.empty()) throw std::string("`with` sets nothing up");
    return setup;
}

struct Text {
    std::string file;
    int line;
    std::string_view text;
};

void place(Row& row, const Text& from) {
    row.file = from.file;
    row.line = from.line;
}

// The block that stands at `index` in the braces of its `with` lines, and how many there are.
Block parseBlock(const std::vector<Text>& lines, std::size_t index, std::size_t& count) {
    Block block;
    for (const Text& from : lines) {
        try {
            if (from.text.starts_with("with ")) {
                if (!block.rows.empty())
                    throw std::string("a `with` line behind a row: it belongs at the block's head");
                Setup setup = parseSetup(from.text.substr(5), index, count);
                setup.file = from.file;
                setup.line = from.line;
                if (setup.call) place(*setup.call, from);
                if (setup.until) place(*setup.until, from);
                block.setups.push_back(std::move(setup));
                continue;
            }
            std::vector<Row> rows = parseRows(from.text);
            if (count > 1) {
                if (rows.size() != 1 && rows.size() != count) throw std::string(kUnequal);
                rows = {std::move(rows[rows.size() == 1 ? 0 : index])};
                rows[0].source = std::string(from.text) + placeInBraces(index);
            }
            for (Row& row : rows) {
                place(row, from);
                block.rows.push_back(std::move(row));
            }
        } catch (const std::string& what) {
            throw ScriptError(from.file, from.line, what + "\n  " + std::string(from.text));
        }
    }
    return block;
}

}  // namespace

std::vector<Block> parse(const std::string& file, std::string_view text) {
    std::vector<Block> blocks;
    std::vector<Text> lines;  // of the block
    auto endBlock = [&] {
        std::size_t count = 1;
        for (std::size_t i = 0; i < count && !lines.empty(); ++i) blocks.push_back(parseBlock(lines, i, count));
        lines.clear();
    };
    std::string from = file;
    int number = 0;
    while (!text.empty()) {
        std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
        ++number;
        if (line.starts_with("#")) continue;
        if (line.starts_with("@ ")) {
            std::size_t gap = line.rfind(' ');
            from = line.substr(2, gap - 2);
            std::from_chars(line.data() + gap + 1, line.data() + line.size(), number);
            --number;
        } else if (line.find_first_not_of(' ') == line.npos) {
            endBlock();
        } else {
            lines.push_back({from, number, line});
        }
    }
    endBlock();
    return blocks;
}

std::string unescaped(std::string_view text) {
    constexpr std::string_view letters = "ntr0\\\"", meanings("\n\t\r\0\\\"", 6);
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        std::string_view rest = text.substr(i + 1);
        std::size_t simple = rest.empty() ? letters.npos : letters.find(rest[0]);
        unsigned code = 0;
        if (simple != letters.npos) {
            result += meanings[simple];
            ++i;
        } else if (rest.size() >= 3 && rest[0] == 'x' &&
                   std::from_chars(rest.data() + 1, rest.data() + 3, code, 16).ptr == rest.data() + 3) {
            result += static_cast<char>(code);
            i += 3;
        } else {
            throw "no such escape: " + std::string(text.substr(i, 4)) + R"( (there are \n \t \r \0 \\ \" \xHH))";
        }
    }
    return result;
}

std::string inQuotes(std::string_view text) {
    std::string result = "\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        // A long run of one character is told by its length.
        std::size_t run = text.find_first_not_of(text[i], i);
        run = (run == text.npos ? text.size() : run) - i;
        char c = text[i];
        std::string one(1, c);
        constexpr std::string_view special("\n\t\r\0\\\"", 6), letters = "ntr0\\\"";
        if (std::size_t at = special.find(c); at != special.npos) {
            one = std::string("\\") + letters[at];
        } else if (static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) >= 0x7F) {
            constexpr char digits[] = "0123456789ABCDEF";
            one = std::string("\\x") + digits[static_cast<unsigned char>(c) >> 4] + digits[c & 15];
        }
        if (run > 40) {
            std::string before = result == "\"" ? "" : result + "\"+";
            result = before + "\"" + one + "\"*" + std::to_string(run) + "+\"";
            i += run - 1;
        } else {
            result += one;
        }
    }
    result += '"';
    if (result.ends_with("+\"\"")) result.resize(result.size() - 3);
    return result;
}

std::string shown(const Value& value) {
    switch (value.kind) {
        case Value::Kind::kNumber:
            return std::to_string(value.number);
        case Value::Kind::kText:
            return inQuotes(value.text);
        case Value::Kind::kNull:
            return "@null";
        case Value::Kind::kVoid:
            return "void";
        case Value::Kind::kVariable:
            return "$" + value.text;
        default:
            return value.text + (value.number ? "+" + std::to_string(value.number) : "");
    }
}

}  // namespace vx::rows
