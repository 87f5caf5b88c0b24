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
    std::string_view all = view(text);
    const std::string_view wanted = view(search);
    const std::string_view put = view(replacement);
    // Gives each occurrence that is replaced to `take`.
    auto eachOf = [=](std::string_view in, auto take) {
        if (n < 1 || count == 0) return;
        scanning::scan<Fold>(wanted, in, [&, skip = n - 1, left = count](std::size_t at) mutable {
            if (skip > 0) {
                --skip;
                return at + 1;  // kept: up to the first one that is replaced, occurrences may overlap
            }
            take(at);
            // kept: any negative count means all, not only -2.
            return left > 0 && --left == 0 ? scanning::kStop : at + wanted.size();
        });
    };
    if (dest == text && put.size() > wanted.size()) {
        // The result would overtake what is still to be read: the text is read from the end of the result's room.
        std::size_t growth = 0;
        eachOf(all, [&](std::size_t) { growth += put.size() - wanted.size(); });
        std::memmove(dest + growth, all.data(), all.size());
        all = {dest + growth, all.size()};
    }
    std::size_t done = 0;
    char* end = dest;
    auto append = [&end](std::string_view piece) {
        if (!piece.empty()) std::memmove(end, piece.data(), piece.size());
        end += piece.size();
    };
    eachOf(all, [&](std::size_t at) {
        append(all.substr(done, at - done));
        append(put);
        done = at + wanted.size();
    });
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
