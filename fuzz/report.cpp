#include "fuzz/report.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace vx::fuzz {

using catalog::Kind;

Report& Report::operator<<(std::string_view text) {
    std::size_t kept = std::min(text.size(), kRoom - size_);
    std::memcpy(text_ + size_, text.data(), kept);
    size_ += kept;
    return *this;
}

Report& Report::operator<<(std::int64_t number) {
    char digits[24];
    auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return *this << std::string_view(digits, static_cast<std::size_t>(end - digits));
}

Report& Report::escaped(std::string_view bytes) {
    constexpr std::size_t kLongest = 3000;
    constexpr char kDigits[] = "0123456789abcdef";
    *this << "\"";
    for (char c : bytes.substr(0, kLongest)) {
        auto byte = static_cast<std::uint8_t>(c);
        const char hex[] = {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 15]};
        const char quoted[] = {'\\', c};
        if (c == '"' || c == '\\')
            *this << std::string_view(quoted, 2);
        else if (byte < 0x20 || byte > 0x7E)
            *this << std::string_view(hex, 4);
        else
            *this << std::string_view(&c, 1);
    }
    return *this << (bytes.size() > kLongest ? "\"..." : "\"");
}

void Report::describe(const Call& call, bool returned) {
    const Plan& plan = call.plan();
    auto seed = static_cast<std::int64_t>(plan.turn.seed);
    auto round = static_cast<std::int64_t>(plan.turn.round);
    *this << "  " << call.entry().main() << " of " << call.entry().family << ", seed " << seed << ", round " << round
          << ", pass " << std::int64_t{plan.turn.pass} << "\n"
          << "  again: --seed " << seed << " --round " << round << " (and --only " << plan.drawnFor->main()
          << ", unless the calls before it matter)\n";
    for (std::size_t i = 0; i < call.arguments().size(); ++i) describeArgument(call, i);
    if (!returned || call.entry().result == catalog::Result::kVoid) return;
    *this << "    result = ";
    if (catalog::isNumber(call.entry().result)) {
        *this << call.result().number << "\n";
    } else if (auto place = call.find(call.result().block)) {
        *this << call.arguments()[place->argument].name << " + " << std::int64_t{place->offset} << "\n";
    } else {
        *this << (call.result().block ? "an address outside all arguments\n" : "NULL\n");
    }
}

void Report::describeArgument(const Call& call, std::size_t i) {
    const catalog::Argument& argument = call.arguments()[i];
    const Input& input = call.input(i);
    const Need& need = call.need(i);
    *this << "    " << argument.name << " = ";
    if (!isPointer(argument.kind)) {
        *this << input.number << "\n";
        return;
    }
    if (!need.bytes) {
        *this << "NULL\n";
        return;
    }
    if (argument.kind == Kind::kOut)
        *this << "[" << input.number << "]";
    else if (argument.kind != Kind::kDest)
        escaped(input.bytes) << ", " << static_cast<std::int64_t>(input.bytes.size()) << " bytes";
    if (need.written) *this << (argument.kind == Kind::kDest ? "" : ", ") << "room for " << need.bytes;
    *this << (call.buffer(i).atFront() ? ", behind" : ", before") << " an inaccessible page\n";
}

void Report::locate(const Call& call, const void* address) {
    auto place = call.find(address);
    if (!place) return;
    *this << "  the address is `" << call.arguments()[place->argument].name << "` + " << std::int64_t{place->offset}
          << ", which has " << call.need(place->argument).bytes << " bytes\n";
}

void Report::write() const {
    std::size_t written = 0;
    while (written < size_) {
#if defined(_WIN32)
        auto count = ::_write(2, text_ + written, static_cast<unsigned>(size_ - written));
#else
        auto count = ::write(2, text_ + written, size_ - written);
#endif
        if (count <= 0) return;
        written += static_cast<std::size_t>(count);
    }
}

}  // namespace vx::fuzz
