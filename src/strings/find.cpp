#include "strings/find.h"

#include "strings/scan.h"

namespace vx {
namespace {

using scanning::Blind;
using scanning::Exact;

template <class Fold>
std::size_t find(std::string_view search, std::string_view text, std::int32_t n) {
    if (n == 0) return kNotFound;
    const auto number = static_cast<std::size_t>(n);
    scanning::CountDown down{n > 0 ? number : std::size_t{0} - number};
    if (n > 0) {
        scanning::scan<Fold>(search, text, down);
    } else {
        scanning::scan<Fold, true>(search, text, down);
    }
    return down.found;
}

}  // namespace

std::size_t findOccurrence(std::string_view search, std::string_view text, std::int32_t n, Casing casing) {
    return casing == Casing::kExact ? find<Exact>(search, text, n) : find<Blind>(search, text, n);
}

}  // namespace vx
