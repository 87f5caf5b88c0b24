// Making tables from a structure text; the entries of appending and locking.
//
// A structure text is laid out twice: once for the sizes of the record and the header, which count what every entry
// asks for, then for the fields. The files come last, the table's own first: what fails half-way leaves files behind.
#include "entries/dbfcreate.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <new>

#include "dbf/appending.h"
#include "dbf/locks.h"
#include "dbf/records.h"
#include "dbf/registry.h"
#include "dbf/table_path.h"

namespace vx::dbf {
namespace {

constexpr char kEntryEnd = ':';
constexpr char kPartEnd = ',';
constexpr std::int64_t kMost16 = 0xFFFF;
constexpr std::size_t kEmptyBlobFile = kFirstBlob + kBlobHeaderSize;
constexpr std::size_t kEmptyDbtFile = kDbtBlockSize + 1;

// What a structure text says of a field.
struct Definition {
    std::string_view name;
    char type = 'C';
    std::int64_t length = 1;
    std::int64_t decimals = 0;
};

// A structure text without blanks and in upper case.
class Structure {
 public:
    explicit Structure(std::string_view text) : bytes_(new (std::nothrow) char[text.size() + 1]) {
        if (!bytes_) return;
        char* end = bytes_.get();
        for (char c : text) {
            if (c != ' ') *end++ = upper(c);
        }
        text_ = {bytes_.get(), static_cast<std::size_t>(end - bytes_.get())};
    }

    explicit operator bool() const { return bytes_ != nullptr; }

    // Calls `define` with each entry; an empty one is none.
    template <class Define>
    void each(Define define) const {
        for (std::string_view rest = text_; !rest.empty();) {
            std::string_view entry = cutOff(rest, kEntryEnd);
            if (!entry.empty()) define(entry);
        }
    }

    static std::string_view cutOff(std::string_view& rest, char end) {
        std::size_t size = std::min(rest.find(end), rest.size());
        std::string_view piece = rest.substr(0, size);
        rest.remove_prefix(std::min(size + 1, rest.size()));
        return piece;
    }

 private:
    std::unique_ptr<char[]> bytes_;
    std::string_view text_;
};

std::int64_t fixedLength(char type, std::int64_t given) {
    switch (type) {
        case 'B':
            return 2 * kNumberWidth;
        case 'D':
            return 8;
        case 'L':
            return 1;
        case 'M':
            return kNumberWidth;
        case 'V':
            return 0;
        default:
            return given;
    }
}

Definition definitionOf(std::string_view entry) {
    Definition definition;
    definition.name = Structure::cutOff(entry, kPartEnd);
    std::string_view type = Structure::cutOff(entry, kPartEnd);
    std::string_view length = Structure::cutOff(entry, kPartEnd);
    if (!type.empty()) definition.type = type.front();
    definition.length = fixedLength(definition.type, length.empty() ? 1 : decimalOf(length));
    if (definition.type == 'N') definition.decimals = decimalOf(Structure::cutOff(entry, kPartEnd));
    return definition;
}

void setName(Field& field, std::string_view name) {
    std::memset(field.name, 0, sizeof field.name);
    name.copy(field.name, kNameRoom - 1);
}

// FIELD1, FIELD2, ...
void setDefault(Field& field, std::int32_t index) {
    char name[kNameRoom] = "FIELD";
    char* end = std::to_chars(name + 5, name + sizeof name, index + 1).ptr;
    setName(field, {name, static_cast<std::size_t>(end - name)});
}

// Behind the fields before; virtual ones take no room.
std::int32_t nextOffset(const Table& table, std::int32_t index) {
    while (--index >= 0) {
        const Field& before = table.fields[index];
        if (before.type != 'V') return before.offset + (before.type == 'N' ? before.width : before.lengthWord());
    }
    return 0;
}

bool isTaken(const Table& table, std::int32_t index, std::string_view name) {
    for (std::int32_t i = 0; i < table.fieldCount; ++i) {
        if (i != index && table.fields[i].nameText() == name) return true;
    }
    return false;
}

// kept: a definition that is refused leaves the field as it is, and the record has room for what was asked for.
void define(Table& table, std::int32_t index, const Definition& definition) {
    Field& field = table.fields[index];
    field.offset = nextOffset(table, index);
    if (definition.name.size() >= kNameRoom || isTaken(table, index, definition.name)) return;
    bool isNumber = definition.type == 'N' || definition.type == 'F';
    std::int64_t width = isNumber ? definition.length & 0xFF : definition.length;
    setName(field, definition.name);
    field.type = definition.type;
    field.width = static_cast<std::uint8_t>(width);
    field.decimals = static_cast<std::uint8_t>(definition.type == 'N' ? definition.decimals : width >> 8);
    if (definition.type == 'V') field.offset = 0;
    std::uint8_t version = table.header.version();
    if (definition.type == 'B') version |= kHasBlobs;
    if (definition.type == 'M') version |= kHasMemos;
    if (!std::strchr("BCDFLMNV", definition.type)) version |= kOtherTypes;
    table.header.setVersion(version);
}

// False where the sizes are more than a table can tell, or there is no memory.
bool layOut(Table& table, const Structure& structure) {
    std::int64_t data = 0, entries = 0;
    structure.each([&](std::string_view entry) {
        data += definitionOf(entry).length;
        ++entries;
    });
    data = std::max<std::int64_t>(data, 1);
    std::int64_t count = std::clamp<std::int64_t>(entries, 1, data);
    std::int64_t headerSize = static_cast<std::int64_t>(kDescriptorSize) * count + kHeaderSize + 1;
    if (data >= kMost16 || headerSize > kMost16) return false;
    table.header.setVersion(kPlain);
    table.header.stamp(table.today.get());
    table.header.setSizes(static_cast<std::uint32_t>(headerSize), static_cast<std::uint32_t>(data + 1));
    table.fieldCount = static_cast<std::int32_t>(count);
    table.fields.reset(new (std::nothrow) Field[static_cast<std::size_t>(count)]);
    if (!table.fields || !makeBuffer(table)) return false;
    std::memset(table.buffer.get(), ' ', table.bufferCapacity * table.recordSize());
    for (std::int32_t i = 0; i < table.fieldCount; ++i) setDefault(table.fields[i], i);
    std::int32_t index = 0;
    structure.each([&](std::string_view entry) {
        if (index < table.fieldCount) define(table, index++, definitionOf(entry));
    });
    settleFields(table);
    return true;
}

void putDescriptor(const Field& field, char* to) {
    std::memset(to, 0, kDescriptorSize);
    std::memcpy(to, field.name, kNameRoom);
    to[11] = field.type;
    putLe32(to + 12, static_cast<std::uint32_t>(field.offset));
    to[16] = static_cast<char>(field.width);
    to[17] = static_cast<char>(field.decimals);
    putLe16(to + 18, static_cast<std::uint32_t>(field.nameText().size() + 1));
}

bool createTableFile(Table& table, const char* path) {
    std::size_t size = table.header.headerSize() + std::size_t{1};
    Scratch scratch;
    char* bytes = scratch.room(size);
    if (!bytes) return false;
    std::memcpy(bytes, table.header.bytes, kHeaderSize);
    char* to = bytes + kHeaderSize;
    for (std::int32_t i = 0; i < table.fieldCount; ++i, to += kDescriptorSize) putDescriptor(table.fields[i], to);
    *to++ = kHeaderEnd;
    *to = kEndOfFile;
    table.file = File::createRecorded(path);
    return table.file.isOpen() && table.file.write(0, bytes, size);
}

bool createBlobFile(Table& table, const char* path) {
    char bytes[kEmptyBlobFile] = {};
    putLe16(bytes, kBlobMagic);
    putLe32(bytes + 2, kFirstBlob);
    // kept: two numbers that nothing reads
    putLe32(bytes + 10, 60);
    putLe32(bytes + 14, 60);
    putLe16(bytes + kFirstBlob, kBlobMagic);  // the end block, first in the free list
    table.blob = File::createRecorded(path);
    return table.blob.isOpen() && table.blob.write(0, bytes, sizeof bytes);
}

bool createMemoFile(Table& table, const char* path) {
    char bytes[kEmptyDbtFile] = {};
    putLe32(bytes, 1);
    bytes[kDbtBlockSize] = kMemoEnd;
    table.memo = File::createRecorded(path);
    return table.memo.isOpen() && table.memo.write(0, bytes, sizeof bytes);
}

std::unique_ptr<Table> createTable(const char* name, std::string_view text) {
    Structure structure(text);
    std::unique_ptr<Table> table(new (std::nothrow) Table);
    if (view(name).empty()) return nullptr;  // it would make a file of no name but the extension
    if (!structure || !table || !layOut(*table, structure)) return nullptr;
    TablePath path(name);
    if (!createTableFile(*table, path.get())) return nullptr;
    std::uint8_t version = table->header.version();
    if (hasBlobs(version) && !createBlobFile(*table, path.with(".BLO").get())) return nullptr;
    if (hasMemos(version) && !createMemoFile(*table, path.with(".DBT").get())) return nullptr;
    return table;
}

}  // namespace
}  // namespace vx::dbf

using namespace vx;
using namespace vx::dbf;

uint32_t VX_CALL vx_DbfStrCreate(const char* name, const char* structure) noexcept {
    std::unique_ptr<Table> table = createTable(name, view(structure));
    return table ? enlist(std::move(table)) : 0;
}

int32_t VX_CALL vx_DbfAppend(uint32_t handle, int32_t count) noexcept {
    Table* table = find(handle);
    return table ? static_cast<std::int32_t>(append(*table, static_cast<std::uint32_t>(atLeastZero(count)))) : 0;
}

int32_t VX_CALL vx_DbfLock(uint32_t handle) noexcept {
    Table* table = find(handle);
    return table && lockTable(*table);
}

int32_t VX_CALL vx_DbfRlock(uint32_t handle, int32_t count) noexcept {
    Table* table = find(handle);
    return table && lockRecords(*table, static_cast<std::uint32_t>(atLeastZero(count)));
}

int32_t VX_CALL vx_DbfUnlock(uint32_t handle) noexcept {
    Table* table = find(handle);
    return table && unlock(*table);
}
