#include "dbf/companions.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace vx::dbf {
namespace {

struct Decimal {
    char text[2 * kNumberWidth];
    std::size_t size;

    explicit Decimal(std::uint64_t number)
        : size(static_cast<std::size_t>(std::to_chars(text, text + sizeof text, number).ptr - text)) {}
};

std::size_t memoWidth(const Table& table, const Field& field) {
    return std::min(static_cast<std::size_t>(table.widthWithin(field)), kNumberWidth);
}

std::string_view part(const Table& table, const Field& field, std::size_t from) {
    std::string_view all(table.at(field), static_cast<std::size_t>(table.widthWithin(field)));
    return all.substr(std::min(from, all.size()), kNumberWidth);
}

// `bytes` are no longer than the field is wide.
bool refer(Table& table, const Field& field, std::string_view bytes) {
    char before[2 * kNumberWidth];
    char* to = table.at(field);
    std::memcpy(before, to, bytes.size());
    bool changedBefore = table.bufferChanged;
    std::memcpy(to, bytes.data(), bytes.size());
    table.bufferChanged = true;
    if (writeBack(table)) return true;
    std::memcpy(to, before, bytes.size());
    table.bufferChanged = changedBefore;
    return false;
}

}  // namespace

std::int64_t referenceIn(const Table& table, const Field& field) { return decimalOf(part(table, field, 0)); }

std::uint32_t blobSizeIn(const Table& table, const Field& field) {
    return static_cast<std::uint32_t>(
        std::min<std::int64_t>(decimalOf(part(table, field, kNumberWidth)), platform::kLastPosition));
}

bool hasRoomFor(const Table& table, const Field& field, std::int64_t block) {
    return Decimal(static_cast<std::uint64_t>(block)).size <= memoWidth(table, field);
}

bool referToBlock(Table& table, const Field& field, std::int64_t block) {
    Decimal number(static_cast<std::uint64_t>(block));
    char bytes[kNumberWidth];
    std::size_t width = memoWidth(table, field);
    std::memset(bytes, ' ', width);
    std::memcpy(bytes + width - number.size, number.text, number.size);
    return refer(table, field, {bytes, width});
}

bool hasRoomForBlob(const Table& table, const Field& field) {
    return table.widthWithin(field) >= static_cast<std::int32_t>(2 * kNumberWidth);
}

bool referToBlob(Table& table, const Field& field, std::uint32_t offset, std::size_t size) {
    char bytes[2 * kNumberWidth];
    std::memset(bytes, ' ', sizeof bytes);
    Decimal first(offset), second(size);
    std::memcpy(bytes, first.text, first.size);
    std::memcpy(bytes + kNumberWidth, second.text, second.size);
    return refer(table, field, {bytes, sizeof bytes});
}

bool Overwrite::write(const File& file, std::int64_t position, std::string_view bytes) {
    char* before = scratch_.room(bytes.size());
    if (!before) return false;
    file_ = &file;
    position_ = position;
    before_ = before;
    size_ = file.read(position, before, bytes.size());
    if (file.write(position, bytes.data(), bytes.size())) return true;
    undo();
    return false;
}

void Overwrite::undo() const {
    platform::Process& process = *platform::current().process;
    std::uint32_t cause = process.lastError();
    file_->write(position_, before_, size_);
    process.setLastError(cause);
}

}  // namespace vx::dbf
