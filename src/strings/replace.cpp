// Search and replace.
#include "entries/replace.h"

#include <algorithm>

#include "frame/text.h"
#include "strings/scan.h"

namespace vx {
namespace {

// Which occurrences are replaced: from the n-th on, `count` of them.
struct Choice {
    // kept: up to the first one that is replaced, occurrences may overlap.
    bool skips() { return n > 1 && n-- > 1; }
    // kept: any negative count means all, not only -2.
    bool ends() { return count > 0 && --count == 0; }

    std::int32_t n;
    std::int32_t count;
};

// Within the text itself a result that grows would overtake what is still to be read: puts the text where the result
// will end.
template <class Fold>
[[gnu::noinline]] std::string_view movedToTheEnd(std::string_view text, std::string_view search, std::size_t growth,
                                                 Choice choice, char* dest) {
    char* to = dest;
    scanning::scan<Fold>(search, text, [&](std::size_t at) {
        if (choice.skips()) return at + 1;
        to += growth;
        return choice.ends() ? scanning::kStop : at + search.size();
    });
    std::memmove(to, text.data(), text.size());
    return {to, text.size()};
}

template <class Fold>
char* replaced(const char* text, const char* search, const char* replacement, std::int32_t n, std::int32_t count,
               char* dest) {
    if (!text || !dest) return dest;
    std::string_view all = view(text);
    const std::string_view wanted = view(search);
    const std::string_view put = view(replacement);
    std::size_t done = 0;
    char* end = dest;
    // Not putText: pieces are mostly so short that its look at their size costs a tenth (row StrTran/blanks).
    auto append = [&end](std::string_view piece) {
        if (!piece.empty()) std::memmove(end, piece.data(), piece.size());
        end += piece.size();
    };
    if (n > 0 && count != 0) {
        Choice choice{n, count};
        if (dest == text && put.size() > wanted.size()) {
            all = movedToTheEnd<Fold>(all, wanted, put.size() - wanted.size(), choice, dest);
        }
        scanning::scan<Fold>(wanted, all, [&](std::size_t at) {
            if (choice.skips()) return at + 1;
            append(all.substr(done, at - done));
            append(put);
            done = at + wanted.size();
            return choice.ends() ? scanning::kStop : done;
        });
    }
    store(end, all.substr(done));
    return dest;
}

}  // namespace
}  // namespace vx

using namespace vx;

char* VX_CALL vx_StrTran(const char* text, const char* search, const char* replacement, int32_t n, int32_t count,
                         char* dest) noexcept {
    return replaced<scanning::Exact>(text, search, replacement, n, count, dest);
}
char* VX_CALL vx_StrTrani(const char* text, const char* search, const char* replacement, int32_t n, int32_t count,
                          char* dest) noexcept {
    return replaced<scanning::Blind>(text, search, replacement, n, count, dest);
}
