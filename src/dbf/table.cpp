// Opening and closing tables. Nothing that stands in a file is trusted: a header or a descriptor that cannot be read
// whole makes the file no table, and of a field that reaches beyond the record only what lies within it is used.
#include "dbf/table.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "dbf/locks.h"
#include "dbf/records.h"
#include "dbf/table_path.h"
#include "dbf/writing.h"

namespace vx::dbf {
namespace {

constexpr std::uint32_t kSharedMode = platform::kReadWrite | platform::kDenyNone;

bool readHeader(Table& table) {
    Header& header = table.header;
    return table.file.readAll(0, header.bytes, kHeaderSize) && isAccepted(header.version()) &&
           header.recordSize() > 0 && header.headerSize() > kHeaderSize;
}

bool readFields(Table& table) {
    table.fieldCount = (table.header.headerSize() - static_cast<std::int32_t>(kHeaderSize)) / kDescriptorSize;
    auto count = static_cast<std::size_t>(table.fieldCount);
    std::unique_ptr<char[]> bytes(new (std::nothrow) char[count * kDescriptorSize + 1]);
    table.fields.reset(new (std::nothrow) Field[count + 1]);
    if (!bytes || !table.fields) return false;
    if (!table.file.readAll(kHeaderSize, bytes.get(), count * kDescriptorSize)) return false;
    std::int32_t offset = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const char* from = bytes.get() + i * kDescriptorSize;
        Field& field = table.fields[i];
        std::memcpy(field.name, from, kNameRoom - 1);
        field.type = from[11];
        field.width = byteOf(from[16]);
        field.decimals = byteOf(from[17]);
        field.offset = field.type == 'V' ? 0 : offset;
        offset += field.length();
    }
    settleFields(table);
    return true;
}

// The header's own words are not needed: a blob is found by its field, the free list by blob_store.cpp.
bool openBlobs(Table& table, const char* path, std::uint32_t mode) {
    char header[kBlobFileHeaderSize];
    table.blob = File::openRecorded(path, mode);
    return table.blob.isOpen() && table.blob.readAll(0, header, sizeof header) && le16(header) == kBlobMagic;
}

bool openMemos(Table& table, const char* path, std::uint32_t mode) {
    table.memo = File::openRecorded(path, mode);
    if (!table.memo.isOpen()) return false;
    if (table.header.version() != kFoxPro) return true;
    char header[kFptHeaderSize];
    table.memoStyle = MemoStyle::kFpt;
    table.memoBlockSize = table.memo.readAll(0, header, sizeof header) ? be16(header + 6) : 0;
    return table.memoBlockSize != 0;
}

}  // namespace

// A descriptor may tell more than a record has room for: the part inside is the field, be it none.
void settleFields(Table& table) {
    for (std::int32_t i = 0; i < table.fieldCount; ++i) {
        Field& field = table.fields[i];
        field.start = std::min(field.offset, table.dataSize());
        field.extent = std::min(field.length(), table.dataSize() - field.start);
        field.isStored = field.type != 'M' && field.type != 'B' && field.type != 'V';
        field.isText = field.type != '\0' && std::strchr("CDFLMN", field.type);
    }
}

std::unique_ptr<Table> openTable(const char* name, std::uint32_t mode) {
    std::unique_ptr<Table> table(new (std::nothrow) Table);
    if (!table) return nullptr;
    TablePath path(name);
    table->file = File::openRecorded(path.get(), mode);
    table->shared = mode == kSharedMode;
    table->writable = (mode & 3) != platform::kRead;
    if (!table->file.isOpen() || !readHeader(*table) || !makeBuffer(*table) || !readFields(*table)) return nullptr;
    std::uint8_t version = table->header.version();
    if (hasBlobs(version) && !openBlobs(*table, path.with(".BLO").get(), mode)) return nullptr;
    const char* extension = version == kFoxPro ? ".FPT" : ".DBT";
    if (hasMemos(version) && !openMemos(*table, path.with(extension).get(), mode)) return nullptr;
    goTo(*table, 1);
    return table;
}

bool closeTable(Table& table) {
    if (table.file.isOpen()) {
        if (!writeBack(table)) return false;
        unlock(table);
        unlockHeader(table);
    }
    return table.file.close() && table.memo.close() && table.blob.close();
}

}  // namespace vx::dbf
