// Pieces of a text by position and count, and a piece replaced by another text.
#include "strings/substring.h"

#include <algorithm>
#include <cstring>

#include "entries/substring.h"
#include "frame/text.h"

namespace vx {
namespace {

char* storePiece(const char* text, char* dest, std::string_view piece) {
    char* to = target(text, dest);
    return to ? store(to, piece) : nullptr;
}

}  // namespace
}  // namespace vx

using namespace vx;

char* VX_CALL vx_Left(const char* text, int32_t count, char* dest) noexcept {
    char* to = target(text, dest);
    if (!to) return nullptr;
    std::string_view piece = viewOfFirst(text, atLeastZero(count));
    if (dest) return store(dest, piece);
    to[piece.size()] = '\0';
    return to;
}

char* VX_CALL vx_Right(const char* text, int32_t count, char* dest) noexcept {
    std::string_view all = view(text);
    return storePiece(text, dest, all.substr(all.size() - std::min(all.size(), atLeastZero(count))));
}

char* VX_CALL vx_SubStr(const char* text, int32_t start, int32_t count, char* dest) noexcept {
    if (start >= 0) {
        std::size_t before = atLeastZero(start);
        std::string_view all = viewOfFirst(text, before + atLeastZero(count));
        return storePiece(text, dest, all.substr(std::min(before, all.size())));
    }
    // kept: from the end of the text, so through the 1-based entry a start of 0 selects the last character.
    std::string_view all = view(text);
    std::size_t fromEnd = std::size_t{0} - static_cast<std::size_t>(start);
    if (fromEnd > all.size()) return storePiece(text, dest, {});
    return storePiece(text, dest, all.substr(all.size() - fromEnd, atLeastZero(count)));
}

char* VX_CALL vx_Stuff(const char* text, int32_t start, int32_t remove, const char* insert, char* dest) noexcept {
    if (!dest) return nullptr;
    std::string_view all = view(text);
    std::size_t before = atLeastZero(start);
    // kept: behind the end nothing is inserted, not even appended.
    if (before > all.size()) return store(dest, all);
    std::size_t rest = before + std::min(atLeastZero(remove), all.size() - before);
    return storeSpliced(dest, all.substr(0, before), view(insert), all.substr(rest));
}
