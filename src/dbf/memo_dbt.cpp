// Memo files of the dBASE kind: blocks of 512 bytes, a text up to its end mark.
//
// Every put goes behind the file's end, and the memo that the field had stays where it is, used by nobody: other
// records may refer to it. First the text is written, then the field; what cannot be written whole is cut off.
#include <algorithm>
#include <cstring>

#include "dbf/companions.h"
#include "dbf/locks.h"

namespace vx::dbf {
namespace {

// Passes the text on piece by piece, with where it begins; returns its size. Where no end mark comes, the text ends at
// the end of the file, or as the longest that is read.
template <class Take>
std::uint32_t readText(const Table& table, std::int64_t block, Take take) {
    if (!table.memo.isOpen() || block < 1) return 0;
    char piece[Scratch::kAtHand];
    std::size_t size = 0;
    while (size < kLongestDbtRead) {
        std::size_t got = table.memo.read(block * kDbtBlockSize + static_cast<std::int64_t>(size), piece, sizeof piece);
        auto end = static_cast<const char*>(std::memchr(piece, kMemoEnd, got));
        std::size_t kept = end ? static_cast<std::size_t>(end - piece) : got;
        take(piece, kept, size);
        size += kept;
        if (end || got < sizeof piece) break;
    }
    return static_cast<std::uint32_t>(size);
}
static_assert(kLongestDbtRead % Scratch::kAtHand == 0);

}  // namespace

// Nothing is put behind the text's own bytes: a caller may have room for no more than its size.
std::uint32_t readDbtMemo(const Table& table, std::int64_t block, char* to) {
    return readText(table, block,
                    [to](const char* piece, std::size_t size, std::size_t at) { std::memcpy(to + at, piece, size); });
}

std::uint32_t sizeOfDbtMemo(const Table& table, std::int64_t block) {
    return readText(table, block, [](const char*, std::size_t, std::size_t) {});
}

bool writeDbtMemo(Table& table, Field& field, std::string_view text) {
    CompanionLock lock(table, table.memo, table.memoLock);
    std::int64_t end = lock ? table.memo.size() : -1;
    if (end < 0) return false;
    // kept: at the end of a block, one whole block stays unused; the file's own next free block is never brought up to
    // date
    std::int64_t position = end + (kDbtBlockSize - end % kDbtBlockSize);
    std::int64_t block = position / kDbtBlockSize;
    if (!hasRoomFor(field, block)) return false;
    text = text.substr(0, kLongestDbtWrite);
    Scratch scratch;
    char* bytes = scratch.room(text.size() + 1);
    if (!bytes) return false;
    std::memcpy(bytes, text.data(), text.size());
    bytes[text.size()] = kMemoEnd;
    std::int64_t most = position + static_cast<std::int64_t>(text.size()) + 1;
    if (table.memo.write(position, bytes, text.size() + 1)) return referToBlock(table, field, block);
    table.memo.cutBack(end, most);
    return false;
}

}  // namespace vx::dbf
