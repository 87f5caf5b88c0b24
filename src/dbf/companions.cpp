// Fields that refer to memos and blobs, by decimal numbers in the record: a memo's block on the right of its field, a
// blob's offset and size each on the left of ten characters.
#include "dbf/companions.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "dbf/writing.h"
#include "files/open_file.h"

namespace vx::dbf {
namespace {

struct Decimal {
    char text[2 * kNumberWidth];
    std::size_t size;

    explicit Decimal(std::uint64_t number)
        : size(static_cast<std::size_t>(std::to_chars(text, text + sizeof text, number).ptr - text)) {}
};

std::size_t memoWidth(const Field& field) { return std::min(static_cast<std::size_t>(field.extent), kNumberWidth); }

std::string_view part(const Table& table, const Field& field, std::size_t from) {
    std::string_view all(table.at(field), static_cast<std::size_t>(field.extent));
    return all.substr(std::min(from, all.size()), kNumberWidth);
}

// Has the field hold `bytes`, which are no longer than it is wide, in memory and in the file.
bool refer(Table& table, const Field& field, std::string_view bytes, bool keeps = false) {
    char before[2 * kNumberWidth];
    char* to = table.at(field);
    std::memcpy(before, to, bytes.size());
    std::memcpy(to, bytes.data(), bytes.size());
    table.bufferChanged = true;
    writeBack(table);
    // A header that cannot be written stays for later; the record refers to the value.
    if (!table.bufferChanged || keeps) return true;
    // The file may have some of it: the record stays marked, to be written as it was.
    std::memcpy(to, before, bytes.size());
    return false;
}

}  // namespace

std::int64_t referenceIn(const Table& table, const Field& field) { return decimalOf(part(table, field, 0)); }

std::uint32_t blobSizeIn(const Table& table, const Field& field) {
    return static_cast<std::uint32_t>(
        std::min<std::int64_t>(decimalOf(part(table, field, kNumberWidth)), platform::kLastPosition));
}

bool hasRoomFor(const Field& field, std::int64_t block) {
    return Decimal(static_cast<std::uint64_t>(block)).size <= memoWidth(field);
}

bool referToBlock(Table& table, const Field& field, std::int64_t block) {
    Decimal number(static_cast<std::uint64_t>(block));
    char bytes[kNumberWidth];
    std::size_t width = memoWidth(field);
    std::memset(bytes, ' ', width);
    std::memcpy(bytes + width - number.size, number.text, number.size);
    return refer(table, field, {bytes, width});
}

bool hasRoomForBlob(const Field& field) { return field.extent >= static_cast<std::int32_t>(2 * kNumberWidth); }

bool referToBlob(Table& table, const Field& field, std::uint32_t offset, std::size_t size, bool keeps) {
    char bytes[2 * kNumberWidth];
    std::memset(bytes, ' ', sizeof bytes);
    Decimal first(offset), second(size);
    std::memcpy(bytes, first.text, first.size);
    std::memcpy(bytes + kNumberWidth, second.text, second.size);
    return refer(table, field, {bytes, sizeof bytes}, keeps);
}

bool overwrite(const File& file, std::int64_t position, std::string_view bytes) {
    Scratch scratch;
    std::int64_t behind = file.size() - position;
    char* before = scratch.room(bytes.size());
    if (behind < 0 || !before) return false;
    auto size = static_cast<std::size_t>(std::min<std::int64_t>(static_cast<std::int64_t>(bytes.size()), behind));
    if (!file.readAll(position, before, size)) return false;
    if (file.write(position, bytes.data(), bytes.size())) return true;
    KeptError cause;
    file.write(position, before, size);
    return false;
}

}  // namespace vx::dbf
