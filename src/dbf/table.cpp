#include "dbf/table.h"

#include <algorithm>
#include <cstring>
#include <ctime>
#include <limits>
#include <new>

#include "dbf/locks.h"

namespace vx::dbf {
namespace {

constexpr std::uint32_t kSharedMode = platform::kReadWrite | platform::kDenyNone;
constexpr std::uint32_t kBufferSize = 2048;
constexpr char kLowerBit = 0x20;
constexpr std::int64_t kQuarterOfAnHour = 15 * 60;  // in seconds

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

void standOn(Table& table, std::int64_t number) {
    table.record = table.buffer.get() + (number - table.first) * table.recordSize();
    table.number = number;
    table.noRecord = table.forgotten = false;
    if (table.arrived) table.arrived(table);
}

void standOnNone(Table& table, std::int64_t number) {
    table.number = number;
    table.noRecord = true;
    table.forgotten = false;
}

bool writeBuffer(Table& table) {
    if (!table.bufferChanged) return true;
    // What cannot be kept is dropped: a table that is open for reading only was changed in memory alone.
    bool done = !table.writable ||
                table.file.write(table.positionOf(table.first), table.buffer.get(), table.held * table.recordSize());
    table.bufferChanged = !done;
    return done;
}

// Fills the buffer from record `number` on. Without the whole of that record there is none to stand on: another's
// bytes are not shown for it, and nothing can be put over what could not be read.
void load(Table& table, std::int64_t number) {
    if (!writeBuffer(table)) return standOnNone(table, number);
    auto wanted = std::clamp<std::int64_t>(table.count() - number + 1, 0, table.capacity);
    std::uint32_t size = table.recordSize();
    table.held =
        table.file.read(table.positionOf(number), table.buffer.get(), static_cast<std::size_t>(wanted) * size) / size;
    table.first = number;
    if (table.held == 0) return standOnNone(table, number);
    standOn(table, number);
}

}  // namespace

TablePath::TablePath(const char* name) : parts_(splitPath(name)) {
    if (!*parts_.extension) with(".DBF");
}

TablePath& TablePath::with(const char* extension) {
    char* to = parts_.extension;
    bool isLower = false;  // what is no letter is as the one before
    for (bool ended = false; *extension; ++extension, ++to) {
        ended = ended || *to == '\0';
        bool isLetter = !ended && (*to | kLowerBit) >= 'a' && (*to | kLowerBit) <= 'z';
        if (isLetter) isLower = *to & kLowerBit;
        *to = isLower ? static_cast<char>(*extension | kLowerBit) : *extension;
    }
    *to = '\0';
    return *this;
}

const char* TablePath::get() {
    joinPath(parts_, text_);
    return text_;
}

const Date& KeptDate::get() {
    std::int64_t quarter = std::time(nullptr) / kQuarterOfAnHour;
    if (quarter != quarter_) date_ = vx::today();
    quarter_ = quarter;
    return date_;
}

bool makeBuffer(Table& table) {
    std::uint32_t size = table.recordSize();
    table.capacity = table.shared || 2 * size >= kBufferSize ? 1 : kBufferSize / size + 1;
    table.buffer.reset(new (std::nothrow) char[table.capacity * size]);
    table.record = table.buffer.get();
    return table.buffer != nullptr;
}

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

void goTo(Table& table, std::int64_t number) {
    table.atBegin = table.atEnd = false;
    if (number < 1) {
        table.atBegin = true;
        return standOnNone(table, 0);
    }
    if (number > table.count()) {
        if (table.shared) recount(table);
        if (number > table.count()) {
            table.atEnd = true;
            return standOnNone(table, std::int64_t{table.count()} + 1);
        }
    }
    if (table.leaving) table.leaving(table);
    bool isHeld = number >= table.first && number < table.first + table.held;
    isHeld ? standOn(table, number) : load(table, number);
}

void forget(Table& table) {
    if (table.bufferChanged) return;
    table.held = 0;
    table.forgotten |= !table.noRecord;
    table.noRecord = true;
}

bool remember(Table& table) {
    load(table, table.number);
    return !table.noRecord;
}

void goToBlanks(Table& table, std::int64_t first, std::int64_t count) {
    table.atBegin = table.atEnd = false;
    if (table.leaving) table.leaving(table);
    table.first = first;
    table.held = static_cast<std::uint32_t>(std::min<std::int64_t>(table.capacity, count));
    std::memset(table.buffer.get(), ' ', table.held * table.recordSize());
    standOn(table, first);
}

bool recount(Table& table) {
    std::int64_t size = table.file.size();
    if (size < 0) return false;
    std::int64_t records = std::max<std::int64_t>(size - table.header.headerSize(), 0) / table.recordSize();
    table.header.setCount(
        static_cast<std::uint32_t>(std::min<std::int64_t>(records, std::numeric_limits<std::int32_t>::max())));
    return true;
}

bool writeHeader(Table& table) {
    table.headerChanged = true;
    CountLock lock(table);
    if (!lock || (table.shared && !recount(table))) return false;
    table.header.stamp(table.today.get());
    if (table.file.write(0, table.header.bytes, kHeaderSize)) table.headerChanged = false;
    return !table.headerChanged;
}

bool cutLeftover(Table& table) {
    if (table.leftoverEnd != 0 && !table.file.cutBack(table.leftoverStart, table.leftoverEnd)) return false;
    table.leftoverEnd = 0;
    return true;
}

// A header that counts records is corrected before they are cut off; where the file's size counts them, afterwards.
bool writeBack(Table& table) {
    if (!writeBuffer(table) || (table.shared && !cutLeftover(table))) return false;
    if (table.headerChanged) {
        bool mine = !table.headerLock.held && lockHeader(table);
        bool done = writeHeader(table);
        if (mine) unlockHeader(table);
        if (!done) return false;
    }
    return cutLeftover(table);
}

}  // namespace vx::dbf
