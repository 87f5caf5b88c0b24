// Memo files of the FoxPro kind: blocks of any size, a text with its length before it.
//
// A text that fits into the blocks of the memo before is written over it, whole or not at all as far as the file
// allows. A longer one goes to the next free block; then the file's header says what is free, then the field refers to
// it. Blocks that are left are not used again.
#include <algorithm>
#include <cstring>

#include "dbf/companions.h"
#include "dbf/locks.h"

namespace vx::dbf {
namespace {

// How far behind the end of the file a next free block may lie; one farther off is damage.
constexpr std::int64_t kSlack = 1 << 20;

std::int64_t positionOf(const Table& table, std::int64_t block) { return block * table.memoBlockSize; }

std::int64_t blocksIn(const Table& table, std::int64_t size) {
    return (size + table.memoBlockSize - 1) / table.memoBlockSize;
}

// Blocks lie behind the file's header.
bool canBeBlock(const Table& table, std::int64_t number) {
    return table.memo.isOpen() && number >= 1 && positionOf(table, number) >= static_cast<std::int64_t>(kFptHeaderSize);
}

// The length in a block's header, as far as the file reaches.
struct Block {
    char header[kFptBlockHeaderSize];
    std::int64_t length;
};
bool readBlock(const Table& table, std::int64_t number, Block& block) {
    std::int64_t position = positionOf(table, number);
    if (!canBeBlock(table, number) || !table.memo.readAll(position, block.header, kFptBlockHeaderSize)) return false;
    std::int64_t behind = table.memo.size() - position - static_cast<std::int64_t>(kFptBlockHeaderSize);
    block.length = std::clamp<std::int64_t>(be32(block.header + 4), 0, std::max<std::int64_t>(behind, 0));
    return true;
}

// The bytes of a block: its header and the text. Null if there is no memory.
char* compose(Scratch& scratch, std::uint32_t type, std::string_view text) {
    char* bytes = scratch.room(kFptBlockHeaderSize + text.size());
    if (!bytes) return nullptr;
    putBe32(bytes, type);
    putBe32(bytes + 4, static_cast<std::uint32_t>(text.size()));
    std::memcpy(bytes + kFptBlockHeaderSize, text.data(), text.size());
    return bytes;
}

std::int64_t roomOf(const Table& table, const Block& block) {
    std::int64_t size = table.memoBlockSize;
    return block.length - block.length % size + size - static_cast<std::int64_t>(kFptBlockHeaderSize);
}

bool rewriteMemo(Table& table, std::int64_t number, const Block& block, std::string_view text) {
    Scratch scratch;
    char* bytes = compose(scratch, be32(block.header), text);
    if (!bytes || !overwrite(table.memo, positionOf(table, number), {bytes, kFptBlockHeaderSize + text.size()}))
        return false;
    table.bufferChanged = true;
    return true;
}

// Where the file's header says, unless that is damaged: then behind all that is there.
std::int64_t freeBlock(const Table& table, std::int64_t end) {
    char next[4];
    std::int64_t block = table.memo.readAll(0, next, sizeof next) ? be32(next) : 0;
    std::int64_t position = positionOf(table, block);
    bool sound = position >= static_cast<std::int64_t>(kFptHeaderSize) && position <= end + kSlack;
    return sound ? block : blocksIn(table, std::max<std::int64_t>(end, kFptUsualHeaderRoom));
}

bool addMemo(Table& table, Field& field, std::string_view text) {
    Scratch scratch;
    std::int64_t end = table.memo.size();
    char* bytes = compose(scratch, kFptText, text);
    if (end < 0 || !bytes) return false;
    std::int64_t block = freeBlock(table, end);
    if (!hasRoomFor(field, block)) return false;
    std::int64_t position = positionOf(table, block);
    std::int64_t size = static_cast<std::int64_t>(kFptBlockHeaderSize + text.size());
    char next[4];
    putBe32(next, static_cast<std::uint32_t>(block + blocksIn(table, size)));
    if (!table.memo.write(position, bytes, static_cast<std::size_t>(size))) {
        table.memo.cutBack(end, position + size);
        return false;
    }
    return overwrite(table.memo, 0, {next, sizeof next}) && referToBlock(table, field, block);
}

}  // namespace

std::uint32_t readFptMemo(const Table& table, std::int64_t block, char* to) {
    if (!canBeBlock(table, block)) return 0;
    // The header and the first of the text come at once.
    char start[Scratch::kAtHand];
    constexpr std::size_t kRoom = sizeof start - kFptBlockHeaderSize;
    std::int64_t position = positionOf(table, block);
    std::size_t got = table.memo.read(position, start, sizeof start);
    if (got < kFptBlockHeaderSize) return 0;
    std::size_t length = be32(start + 4);
    std::size_t size = std::min(length, got - kFptBlockHeaderSize);
    std::memcpy(to, start + kFptBlockHeaderSize, size);
    if (got == sizeof start && length > kRoom)
        size += table.memo.read(position + static_cast<std::int64_t>(sizeof start), to + size, length - kRoom);
    return static_cast<std::uint32_t>(size);
}

std::uint32_t sizeOfFptMemo(const Table& table, std::int64_t block) {
    Block found;
    return readBlock(table, block, found) ? static_cast<std::uint32_t>(found.length) : 0;
}

bool writeFptMemo(Table& table, Field& field, std::string_view text) {
    CompanionLock lock(table, table.memo, table.memoLock);
    if (!lock) return false;
    std::int64_t number = referenceIn(table, field);
    Block old;
    if (number < 1) return addMemo(table, field, text);
    bool fits = readBlock(table, number, old) && static_cast<std::int64_t>(text.size()) <= roomOf(table, old);
    return fits ? rewriteMemo(table, number, old, text) : addMemo(table, field, text);
}

}  // namespace vx::dbf
