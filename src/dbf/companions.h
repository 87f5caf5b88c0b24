// The memo and blob files of a table, and the fields that refer to what is in them.
//
// Order of writes: the value, then the field, in the record, in the table file; only then is what the field referred to
// given up. So a field never refers to what is not there, and at worst room is lost.
#pragma once

#include <cstdint>
#include <string_view>

#include "dbf/table.h"

namespace vx::dbf {

// Each read puts the value at `to` and returns its size. What a file says of itself is believed only as far as the file
// reaches.
std::uint32_t readDbtMemo(const Table& table, std::int64_t block, char* to);
std::uint32_t sizeOfDbtMemo(const Table& table, std::int64_t block);
std::uint32_t readFptMemo(const Table& table, std::int64_t block, char* to);
std::uint32_t sizeOfFptMemo(const Table& table, std::int64_t block);
std::uint32_t readBlob(const Table& table, const Field& field, char* to);

// Each write has the field refer to the value only when the value is there; false if anything fails, and the field
// refers to what it did, unchanged as far as the file allows. A memo is not empty; an empty blob frees the one that is
// there.
bool writeDbtMemo(Table& table, Field& field, std::string_view text);
bool writeFptMemo(Table& table, Field& field, std::string_view text);
bool writeBlob(Table& table, Field& field, std::string_view value);

// The block number in a memo field, the offset in a blob field.
std::int64_t referenceIn(const Table& table, const Field& field);

// The size in a blob field.
std::uint32_t blobSizeIn(const Table& table, const Field& field);

// Have a field refer to a value, and write the record back; on failure the field is as it was, unless `keeps`: then
// the record stays changed, like after any other put, until it can be written. A field that is too narrow is refused
// beforehand.
bool hasRoomFor(const Field& field, std::int64_t block);
bool referToBlock(Table& table, const Field& field, std::int64_t block);
bool hasRoomForBlob(const Field& field);
bool referToBlob(Table& table, const Field& field, std::uint32_t offset, std::size_t size, bool keeps);

// Writes over what is in a file. If that falls short, what was there is put back as far as possible.
bool overwrite(const File& file, std::int64_t position, std::string_view bytes);

}  // namespace vx::dbf
