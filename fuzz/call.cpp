#include "fuzz/call.h"

#include <cstring>
#include <sstream>

#include "rows/script.h"

namespace vx::fuzz {

using catalog::Kind;
using catalog::Value;

namespace {

// Characters that a function which reads too far would take for a part of the text.
constexpr char kSurroundings[] = {' ', '\t', '\n', '\x8D', '0', '9',    'a',   'Z',
                                  '.', '*',  '\\', ';',    '#', '\x01', '\xFF'};

char drawSurrounding(Random& random, char other) {
    char c = random.of(kSurroundings);
    while (c == other) c = random.of(kSurroundings);
    return c;
}

std::string describedArgument(const Call& call, std::size_t i) {
    Kind kind = call.arguments()[i].kind;
    const Input& input = call.input(i);
    const Need& need = call.need(i);
    if (!isPointer(kind)) return std::to_string(input.number);
    if (!need.bytes) return "NULL";
    std::ostringstream text;
    if (kind == Kind::kOut) text << "[" << input.number << "], ";
    if (kind != Kind::kOut && kind != Kind::kDest)
        text << rows::inQuotes(input.bytes) << ", " << input.bytes.size() << " bytes, ";
    if (need.written) text << "room for " << need.bytes << ", ";
    text << (call.buffer(i).atFront() ? "behind" : "before") << " an inaccessible page";
    return text.str();
}

std::string describedResult(const Call& call) {
    if (catalog::isNumber(call.entry().result)) return std::to_string(call.result().number);
    if (auto place = call.find(call.result().block))
        return std::string(call.arguments()[place->argument].name) + " + " + std::to_string(place->offset);
    return call.result().block ? "an address outside all arguments" : "NULL";
}

}  // namespace

Layout drawLayout(Random& random) {
    Layout layout;
    layout.front = static_cast<std::uint32_t>(random.next());
    layout.canary = drawSurrounding(random, 0);
    layout.filler = drawSurrounding(random, 0);
    return layout;
}

Layout Layout::opposite(Random& random) const {
    Layout other;
    other.front = ~front;
    other.canary = drawSurrounding(random, canary);
    other.filler = drawSurrounding(random, filler);
    return other;
}

void Call::prepare(const Plan& plan, const Layout& layout) {
    plan_ = &plan;
    layout_ = layout;
    needs_ = needsOf(plan);
    before_.resize(needs_.size());
    for (std::size_t i = 0; i < needs_.size(); ++i) {
        values_[i] = Value{};
        auto bytes = static_cast<std::size_t>(needs_[i].bytes);
        if (bytes == 0) {
            before_[i].clear();
            if (!isPointer(arguments()[i].kind)) values_[i].number = input(i).number;
            continue;
        }
        char* to = buffers_[i].place(bytes, ((layout.front >> i) & 1) != 0, layout.canary);
        fill(i, to);
        before_[i].assign(to, bytes);
        // Each kind is passed by its own member of the union; all of them lie at its start.
        values_[i].text = to + needs_[i].front;
    }
}

void Call::fill(std::size_t i, char* to) const {
    const catalog::Argument& argument = arguments()[i];
    auto bytes = static_cast<std::size_t>(needs_[i].bytes);
    switch (argument.kind) {
        case Kind::kOut: {
            auto number = static_cast<std::int32_t>(input(i).number);
            std::memcpy(to, &number, sizeof number);
            break;
        }
        case Kind::kDest: {
            // What it holds may show in the result: then it is the same in every layout.
            bool shows = argument.terminated || leftAlone(*plan_);
            std::memset(to, shows ? '~' : layout_.filler, bytes);
            if (shows) to[bytes - 1] = '\0';
            break;
        }
        case Kind::kBytes:
        case Kind::kBlock:
            std::memcpy(to, input(i).bytes.data(), bytes);
            break;
        default:
            std::memcpy(to, input(i).bytes.c_str(), input(i).bytes.size() + 1);
            std::memset(to + input(i).bytes.size() + 1, layout_.filler, bytes - input(i).bytes.size() - 1);
    }
}

void Call::make(catalog::Function function) {
    result_ = Value{};
    entry().invoke(function, values_.data(), &result_);
}

bool Call::untouched(std::size_t i) const {
    return std::memcmp(buffers_[i].data(), before_[i].data(), before_[i].size()) == 0;
}

bool Call::terminated(std::size_t i) const {
    return std::memchr(buffers_[i].data(), 0, static_cast<std::size_t>(needs_[i].bytes)) != nullptr;
}

std::optional<Call::Place> Call::find(const void* address) const {
    for (std::size_t i = 0; i < needs_.size(); ++i) {
        if (!needs_[i].bytes) continue;
        if (std::optional<std::ptrdiff_t> offset = buffers_[i].offsetOf(address)) return Place{i, *offset};
    }
    return {};
}

Seen Call::seen() const {
    Seen seen;
    if (catalog::isNumber(entry().result)) {
        seen.number = result_.number;
    } else if (entry().result != catalog::Result::kVoid) {
        std::optional<Place> place = find(result_.block);
        if (place)
            seen.place = std::string(arguments()[place->argument].name) + "+" + std::to_string(place->offset);
        else
            seen.place = result_.block ? "elsewhere" : "NULL";
        bool text = catalog::isText(entry().result) && result_.block && !(place && !need(place->argument).text);
        if (text) seen.text = resultText();
    }
    seen.after.resize(needs_.size());
    for (std::size_t i = 0; i < needs_.size(); ++i) {
        if (!needs_[i].written) continue;
        const char* bytes = buffers_[i].data();
        seen.after[i] =
            needs_[i].text ? std::string(bytes) : std::string(bytes, static_cast<std::size_t>(needs_[i].bytes));
    }
    return seen;
}

std::string described(const Call& call, bool returned) {
    const Turn& turn = call.plan().turn;
    std::ostringstream text;
    text << "  " << call.entry().main() << " of " << call.entry().family << ", pass " << turn.pass
         << "\n  again: --seed " << turn.seed << " --round " << turn.round << " (and --only "
         << call.plan().drawnFor->main() << ", unless the calls before it matter)\n";
    for (std::size_t i = 0; i < call.arguments().size(); ++i)
        text << "    " << call.arguments()[i].name << " = " << describedArgument(call, i) << "\n";
    if (returned && call.entry().result != catalog::Result::kVoid)
        text << "    result = " << describedResult(call) << "\n";
    return text.str();
}

}  // namespace vx::fuzz
