#include "cli/arguments.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>

#include "cli/errors.h"
#include "cli/text.h"

namespace vx::cli {
namespace {

using catalog::Kind;

constexpr std::int64_t kLeastNumber = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kMostNumber = std::numeric_limits<std::uint32_t>::max();

// A decimal or 0x hexadecimal number that fits 32 bits, signed or unsigned.
std::optional<std::int64_t> parseNumber(std::string_view text) {
    bool negative = !text.empty() && text[0] == '-';
    if (negative || (!text.empty() && text[0] == '+')) text.remove_prefix(1);
    bool hexadecimal = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    if (hexadecimal) text.remove_prefix(2);
    std::uint64_t magnitude = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), magnitude, hexadecimal ? 16 : 10);
    if (error != std::errc() || end != text.data() + text.size() || magnitude > kMostNumber) return {};
    std::int64_t number = negative ? -static_cast<std::int64_t>(magnitude) : static_cast<std::int64_t>(magnitude);
    if (number < kLeastNumber) return {};
    return number;
}

// One character is itself; `#42` and `0x2A` are codes, the former also for those who think in decimal.
std::optional<std::int64_t> parseCharacter(std::string_view text) {
    if (text.size() == 1) return static_cast<std::uint8_t>(text[0]);
    if (text.size() > 1 && text[0] == '#') return parseNumber(text.substr(1));
    if (text.starts_with("0x") || text.starts_with("0X")) return parseNumber(text);
    return {};
}

std::string upperCase(std::string text) {
    for (char& c : text) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return text;
}

std::string counted(std::size_t count, const char* thing) {
    return (count == 0 ? "no" : std::to_string(count)) + " " + thing + (count == 1 ? "" : "s");
}

}  // namespace

Typed::Typed(std::string_view typed, bool escapes, bool lines) : null_(typed == "@null") {
    for (bool more = true; more;) {
        std::size_t gap = lines ? typed.find("{}") : typed.npos;
        std::string_view piece = typed.substr(0, gap);
        pieces_.push_back(escapes ? unescaped(piece) : std::string(piece));
        more = gap != typed.npos;
        if (more) typed.remove_prefix(gap + 2);
    }
}

void Typed::write(std::string_view line, std::string& text) const {
    text = pieces_[0];
    for (std::size_t i = 1; i < pieces_.size(); ++i) text.append(line).append(pieces_[i]);
}

std::int64_t numberOf(const catalog::Argument& argument, const std::string& text) {
    bool character = argument.kind == Kind::kChar;
    std::optional<std::int64_t> number = character ? parseCharacter(text) : parseNumber(text);
    if (argument.kind == Kind::kAny) return number.value_or(0);  // the function ignores it, so anything goes
    if (!number) {
        throw UsageError("the argument " + std::string(argument.name) + " takes " +
                         (character ? "one character of one byte, or its code as 0x2A or #42"
                                    : "a 32-bit number, decimal or 0x hexadecimal") +
                         ", not " + inQuotes(text) + "\n  " + argument.name + "  " + argument.meaning);
    }
    if (isUnsigned(argument.kind)) return static_cast<std::uint32_t>(*number);
    return static_cast<std::int32_t>(*number);
}

std::string synopsis(const catalog::Entry& entry, const std::string& name) {
    std::string line = "vexlor " + name;
    for (const catalog::Argument& argument : entry.arguments) {
        if (!isSupplied(argument.kind)) line += " " + upperCase(argument.name);
    }
    return line;
}

std::string argumentHelp(const catalog::Entry& entry, bool givenOnly) {
    auto isShown = [&](const catalog::Argument& a) { return !(givenOnly && isSupplied(a.kind)); };
    std::size_t width = 0;
    for (const catalog::Argument& a : entry.arguments) {
        if (isShown(a)) width = std::max(width, std::string_view(a.name).size());
    }
    std::string help;
    for (const catalog::Argument& a : entry.arguments) {
        if (!isShown(a)) continue;
        std::string name = a.name;
        name.resize(width, ' ');
        help += "  " + name + "  " + a.meaning + (isSupplied(a.kind) ? " [supplied by vexlor]" : "") + "\n";
    }
    return help;
}

std::string wrongCount(const catalog::Entry& entry, const std::string& name, std::size_t count) {
    std::size_t wanted = 0;
    for (const catalog::Argument& argument : entry.arguments) wanted += !isSupplied(argument.kind);
    std::string message = name + " takes " + counted(wanted, "argument") + ", not " + std::to_string(count) + "\n  " +
                          entry.declaration + "\n  " + synopsis(entry, name) + "\n" + argumentHelp(entry, true);
    message.pop_back();
    return message;
}

}  // namespace vx::cli
