// Search and replace.
#include "entries/replace.h"

#include <algorithm>

#include "frame/text.h"
#include "strings/scan.h"

namespace vx {
namespace {

template <class Fold>
char* replaced(const char* text, const char* search, const char* replacement, std::int32_t n, std::int32_t count,
               char* dest) {
    if (!text || !dest) return dest;
    const std::string_view all = view(text);
    const std::string_view wanted = view(search);
    const std::string_view put = view(replacement);
    std::size_t done = 0;
    char* end = dest;
    auto append = [&end](std::string_view piece) {
        if (!piece.empty()) std::memmove(end, piece.data(), piece.size());
        end += piece.size();
    };
    if (n > 0 && count != 0) {
        scanning::scan<Fold>(wanted, all, [&](std::size_t at) {
            if (n > 1) {
                --n;
                return at + 1;  // kept: up to the first one that is replaced, occurrences may overlap
            }
            append(all.substr(done, at - done));
            append(put);
            done = at + wanted.size();
            // kept: any negative count means all, not only -2.
            return count > 0 && --count == 0 ? scanning::kStop : done;
        });
    }
    store(end, all.substr(done));
    return dest;
}

}  // namespace
}  // namespace vx

using namespace vx;

ENTRY(char*, StrTran)
(const char* text, const char* search, const char* replacement, int32_t n, int32_t count, char* dest) noexcept {
    return replaced<scanning::Exact>(text, search, replacement, n, count, dest);
}
ENTRY(char*, StrTrani)
(const char* text, const char* search, const char* replacement, int32_t n, int32_t count, char* dest) noexcept {
    return replaced<scanning::Blind>(text, search, replacement, n, count, dest);
}
