#include "fuzz/report.h"

#include <sstream>

#include "rows/script.h"

namespace vx::fuzz {

using catalog::Kind;

namespace {

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
