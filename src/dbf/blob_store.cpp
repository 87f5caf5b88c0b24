// Blob files: a first-fit store with a doubly linked list of free blocks, whose last one is the end block.
//
// All blocks, free and in use, stand one behind the other, each with its own place in its trailer: from any block its
// neighbours can be found, so that a block that is given back merges with free ones on both sides. Free blocks are
// linked through their headers; the end block, which has no room, is where the file grows (layout: format.h).
//
// Nothing in a file is taken for granted: a block is handed out, or merged with another, only when its header, its
// trailer and its links agree. When the list is damaged, new blocks go behind the end of the file. Each change is
// made in an order in which, whenever it stops, no block in use is touched; at worst free room is lost.
#include <algorithm>
#include <bit>
#include <cstring>
#include <optional>

#include "dbf/companions.h"
#include "dbf/locks.h"

namespace vx::dbf {
namespace {

constexpr std::int64_t kOverhead = kBlobHeaderSize + kBlobTrailerSize;
constexpr std::int64_t kLeastCapacity = 40;
constexpr std::int64_t kSplitAbove = 64;  // bytes that would remain
constexpr std::int64_t kFirstLink = 2;    // in the file's header

struct Block {
    std::int64_t start = 0;
    std::uint32_t next = 0;
    std::uint32_t previous = 0;
    std::uint32_t used = 0;
    std::uint32_t capacity = 0;

    std::int64_t data() const { return start + static_cast<std::int64_t>(kBlobHeaderSize); }
    std::int64_t trailer() const { return data() + capacity; }
    std::int64_t behind() const { return start + kOverhead + capacity; }
    bool isFree() const { return used == 0 && capacity > 0; }
    bool isEnd() const { return used == 0 && capacity == 0 && next == 0; }

    void putHeader(char* to) const {
        std::memset(to, 0, kBlobHeaderSize);
        putLe16(to, kBlobMagic);
        putLe32(to + 4, next);
        putLe32(to + 8, previous);
        putLe32(to + 12, used);
        putLe32(to + 16, capacity);
    }
};

class Store {
 public:
    explicit Store(const File& file) : file_(file), size_(file.size()) {}

    explicit operator bool() const { return size_ >= 0; }

    // Where the value is then; 0 on failure.
    std::uint32_t add(std::string_view value) {
        std::int64_t need = std::max<std::int64_t>(static_cast<std::int64_t>(value.size()), kLeastCapacity);
        std::optional<Block> end;
        for (Walk walk(*this); walk.block(); walk.advance()) {
            const Block& block = *walk.block();
            if (block.isFree() && block.capacity >= need && isWhole(block) && isLinked(block))
                return useFree(block, need, value);
            if (block.isEnd()) end = block;
        }
        return useEnd(end, need, value);
    }

    // The block of a blob in use. One of another size is not what the field refers to: a copied record, or one that was
    // read before another handle changed it, may lead to where something else is by now.
    std::optional<Block> blob(std::int64_t start, std::uint32_t size) const {
        std::optional<Block> block = blockAt(start);
        bool sound = block && size > 0 && block->used == size && size <= block->capacity && isWhole(*block);
        return sound ? block : std::nullopt;
    }

    bool rewrite(Block block, std::string_view value) const {
        Scratch scratch;
        block.used = static_cast<std::uint32_t>(value.size());
        char* bytes = compose(scratch, block, value, kBlobHeaderSize + value.size());
        return bytes && overwrite(file_, block.start, {bytes, kBlobHeaderSize + value.size()});
    }

    void release(Block block) {
        // Within a larger free block it is no blob any more, either.
        block.used = block.next = block.previous = 0;
        if (!writeHeader(block)) return;
        if (std::optional<Block> right = freeAt(block.behind()); right && unlink(*right))
            block.capacity += static_cast<std::uint32_t>(kOverhead + right->capacity);
        if (std::optional<Block> left = freeBefore(block.start)) {
            left->capacity += static_cast<std::uint32_t>(kOverhead + block.capacity);
            if (writeTrailer(*left)) writeHeader(*left);
            return;
        }
        std::uint32_t first = firstLink();
        block.next = first;
        if (!writeTrailer(block) || !writeHeader(block)) return;
        if (std::optional<Block> second = blockAt(first)) setPrevious(*second, block.start);
        setNext(0, block.start);
    }

 private:
    // Goes through the list; a link that leads astray, or a list that goes in a circle, ends it.
    class Walk {
     public:
        explicit Walk(const Store& store) : store_(store), block_(store.blockAt(store.firstLink())) {}

        const std::optional<Block>& block() const { return block_; }
        void advance() {
            if (std::has_single_bit(++steps_)) anchor_ = block_->start;
            bool ends = block_->next == 0 || block_->used != 0 || block_->next == anchor_;
            block_ = ends ? std::nullopt : store_.blockAt(block_->next);
        }

     private:
        const Store& store_;
        std::uint64_t steps_ = 0;
        std::int64_t anchor_ = 0;  // a block that has been passed
        std::optional<Block> block_;
    };

    std::uint32_t firstLink() const {
        char link[4];
        return file_.readAll(kFirstLink, link, sizeof link) ? le32(link) : 0;
    }

    std::optional<Block> blockAt(std::int64_t start) const {
        char header[kBlobHeaderSize];
        if (start < kFirstBlob || !file_.readAll(start, header, sizeof header) || le16(header) != kBlobMagic)
            return std::nullopt;
        return Block{start, le32(header + 4), le32(header + 8), le32(header + 12), le32(header + 16)};
    }

    // Whether it lies within the file, and its trailer is its own.
    bool isWhole(const Block& block) const {
        char trailer[kBlobTrailerSize];
        return block.behind() <= size_ && file_.readAll(block.trailer(), trailer, sizeof trailer) &&
               le32(trailer) == block.start;
    }

    // Whether the blocks around it in the list lead to it.
    bool isLinked(const Block& block) const {
        std::optional<Block> next = blockAt(block.next);
        if (!next || next->previous != block.start) return false;
        if (block.previous == 0) return firstLink() == block.start;
        std::optional<Block> previous = blockAt(block.previous);
        return previous && previous->next == block.start;
    }

    std::optional<Block> freeAt(std::int64_t start) const {
        std::optional<Block> block = blockAt(start);
        return block && block->isFree() && isWhole(*block) && isLinked(*block) ? block : std::nullopt;
    }

    std::optional<Block> freeBefore(std::int64_t start) const {
        char trailer[kBlobTrailerSize];
        if (!file_.readAll(start - static_cast<std::int64_t>(kBlobTrailerSize), trailer, sizeof trailer))
            return std::nullopt;
        std::optional<Block> block = freeAt(le32(trailer));
        return block && block->behind() == start ? block : std::nullopt;
    }

    bool writeHeader(const Block& block) const {
        char bytes[kBlobHeaderSize];
        block.putHeader(bytes);
        return file_.write(block.start, bytes, sizeof bytes);
    }

    bool writeNumber(std::int64_t position, std::int64_t number) const {
        char bytes[4];
        putLe32(bytes, static_cast<std::uint32_t>(number));
        return file_.write(position, bytes, sizeof bytes);
    }

    bool writeTrailer(const Block& block) const { return writeNumber(block.trailer(), block.start); }
    bool setPrevious(const Block& block, std::int64_t to) const { return writeNumber(block.start + 8, to); }

    // Of the block that starts there; of the file's header for 0.
    bool setNext(std::int64_t start, std::int64_t to) const {
        return writeNumber(start == 0 ? kFirstLink : start + 4, to);
    }

    bool unlink(const Block& block) const {
        std::optional<Block> next = blockAt(block.next);
        return next && setNext(block.previous, block.next) && setPrevious(*next, block.previous);
    }

    // Header and value, and zeros up to `size`.
    static char* compose(Scratch& scratch, const Block& block, std::string_view value, std::size_t size) {
        char* bytes = scratch.room(size);
        if (!bytes) return nullptr;
        block.putHeader(bytes);
        std::memcpy(bytes + kBlobHeaderSize, value.data(), value.size());
        std::memset(bytes + kBlobHeaderSize + value.size(), 0, size - kBlobHeaderSize - value.size());
        return bytes;
    }

    // A free block for a value: the rest of a large one stays free, in its place in the list.
    std::uint32_t useFree(Block block, std::int64_t need, std::string_view value) const {
        std::int64_t rest = block.capacity - need;
        if (rest > kSplitAbove) {
            Block remainder = block;
            remainder.start = block.data() + need + static_cast<std::int64_t>(kBlobTrailerSize);
            remainder.capacity = static_cast<std::uint32_t>(rest - kOverhead);
            std::optional<Block> next = blockAt(block.next);
            if (!next || !writeHeader(remainder) || !writeTrailer(remainder) ||
                !setNext(block.previous, remainder.start) || !setPrevious(*next, remainder.start))
                return 0;
            block.capacity = static_cast<std::uint32_t>(need);
        } else if (!unlink(block)) {
            return 0;
        }
        return writeUsed(block, value) && writeTrailer(block) ? static_cast<std::uint32_t>(block.start) : 0;
    }

    bool writeUsed(Block block, std::string_view value) const {
        Scratch scratch;
        block.next = block.previous = 0;
        block.used = static_cast<std::uint32_t>(value.size());
        char* bytes = compose(scratch, block, value, kBlobHeaderSize + value.size());
        return bytes && file_.write(block.start, bytes, kBlobHeaderSize + value.size());
    }

    // The value takes the end block's place if nothing is behind that, and a new end block comes behind it. Without an
    // end block, the list starts anew with one.
    std::uint32_t useEnd(std::optional<Block> end, std::int64_t need, std::string_view value) const {
        Block block;
        block.start = end && end->data() == size_ ? end->start : std::max<std::int64_t>(size_, kFirstBlob);
        block.used = static_cast<std::uint32_t>(value.size());
        block.capacity = static_cast<std::uint32_t>(need);
        Block newEnd;
        newEnd.start = block.behind();
        newEnd.previous = end ? end->previous : 0;
        if (newEnd.data() > platform::kLastPosition) return 0;
        Scratch scratch;
        auto whole = static_cast<std::size_t>(newEnd.data() - block.start);
        char* bytes = compose(scratch, block, value, whole);
        if (!bytes) return 0;
        newEnd.putHeader(bytes + whole - kBlobHeaderSize);
        putLe32(bytes + whole - kBlobHeaderSize - kBlobTrailerSize, static_cast<std::uint32_t>(block.start));
        // The header that makes it a blob comes last: until then the end block is there.
        if (!file_.write(block.data(), bytes + kBlobHeaderSize, whole - kBlobHeaderSize)) {
            file_.cutBack(size_, newEnd.data());
            return 0;
        }
        bool done = setNext(newEnd.previous, newEnd.start) && file_.write(block.start, bytes, kBlobHeaderSize);
        return done ? static_cast<std::uint32_t>(block.start) : 0;
    }

    const File& file_;
    std::int64_t size_;
};

}  // namespace

std::uint32_t readBlob(const Table& table, const Field& field, char* to) {
    std::int64_t start = referenceIn(table, field);
    char header[kBlobHeaderSize];
    if (!table.blob.isOpen() || start < static_cast<std::int64_t>(kBlobFileHeaderSize)) return 0;
    if (!table.blob.readAll(start, header, sizeof header) || le16(header) != kBlobMagic) return 0;
    // No more than the field says: that is what a caller makes room for.
    std::uint32_t size = std::min(le32(header + 12), blobSizeIn(table, field));
    return table.blob.read(start + static_cast<std::int64_t>(sizeof header), to, size);
}

bool writeBlob(Table& table, Field& field, std::string_view value) {
    CompanionLock lock(table, table.blob, table.blobLock);
    constexpr auto kMost = static_cast<std::size_t>(platform::kLastPosition);
    if (!lock || !hasRoomForBlob(field) || value.size() > kMost) return false;
    Store store(table.blob);
    if (!store) return false;
    std::optional<Block> old = store.blob(referenceIn(table, field), blobSizeIn(table, field));
    if (old && !value.empty() && value.size() <= old->capacity) {
        auto start = static_cast<std::uint32_t>(old->start);
        return store.rewrite(*old, value) && referToBlob(table, field, start, value.size(), true);
    }
    std::uint32_t start = value.empty() ? 0 : store.add(value);
    if ((start == 0 && !value.empty()) || !referToBlob(table, field, start, value.size(), false)) return false;
    // Only now that nothing refers to it.
    if (old) store.release(*old);
    return true;
}

}  // namespace vx::dbf
