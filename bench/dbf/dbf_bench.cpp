// Tables against shapelib, where it is installed, and against the positioned reads and writes that cannot be saved.
#include <fcntl.h>
#include <unistd.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/support/pair.h"
#include "tests/lab/table_bytes.h"
#include "tests/support/library.h"
#include "tests/support/workplace.h"
#if defined(BENCH_HAS_SHP)
#include <shapefil.h>
#endif

namespace vx::bench {
namespace {

using test::lib;

constexpr std::int32_t kReadWrite = 2;
constexpr std::int32_t kRecords = 1'000'000;
constexpr std::size_t kRecordSize = 100;
constexpr std::size_t kMemoSize = 2048;
constexpr std::int32_t kAppendsBeforeAnew = 200'000;
constexpr int kFields[] = {1, 3, 5};

std::string recordBytes(std::int32_t number) {
    std::string text = std::to_string(number);
    return " " + std::string(10 - text.size(), ' ') + text + std::string(89, 'x');
}

// A table of 1,000,000 records, with a descriptor for the peers' own reads.
struct Place {
    test::Workplace files;
    std::uint32_t table = 0;
    int descriptor = -1;
    std::vector<char> to = std::vector<char>(1 << 17);
    std::mt19937 random{1};

    explicit Place(const std::string& content, const std::string& memos = "") {
        files.put("T.DBF", content);
        if (!memos.empty()) files.put("T.DBT", memos);
        table = lib().DbfOpen(files.path("T").c_str(), kReadWrite);
        if (!table) {
            std::fprintf(stderr, "the table cannot be opened\n");
            std::exit(1);
        }
        descriptor = ::open(files.native(memos.empty() ? "T.DBF" : "T.DBT").c_str(), O_RDWR);
    }
    ~Place() {
        lib().DbfClose(table);
        ::close(descriptor);
    }
};

std::shared_ptr<Place> largeTable() {
    static std::weak_ptr<Place> kept;
    if (auto place = kept.lock()) return place;
    std::string content = lab::tableBytes(3, "ID,N,10:NAME,C,30:CITY,C,20:REST,C,19:LAST,C,20", {});
    content.pop_back();  // the end mark
    content.replace(4, 4, lab::little(kRecords, 4));
    content.reserve(content.size() + kRecords * kRecordSize);
    for (std::int32_t i = 1; i <= kRecords; ++i) content += recordBytes(i);
    auto place = std::make_shared<Place>(content);
    kept = place;
    return place;
}

void scan() {
#if defined(BENCH_HAS_SHP)
    auto place = largeTable();
    auto shape = std::shared_ptr<DBFInfo>(DBFOpen(place->files.native("T.DBF").c_str(), "rb"), DBFClose);
    pair(
        "DBF scan/1M records, 3 fields", 0,
        [=, go = lib().DbfGoto, skip = lib().DbfSkip, get = lib().DbfFieldGet] {
            std::size_t sum = 0;
            go(place->table, 1);
            for (std::int32_t i = 0; i < kRecords; ++i) {
                for (int field : kFields)
                    sum += static_cast<unsigned char>(*get(place->table, field, place->to.data()));
                skip(place->table, 1);
            }
            return sum;
        },
        [=] {
            std::size_t sum = 0;
            for (std::int32_t i = 0; i < kRecords; ++i) {
                for (int field : kFields)
                    sum += static_cast<unsigned char>(*DBFReadStringAttribute(shape.get(), i, field - 1));
            }
            return sum;
        });
#endif
}

void randomGoto() {
    auto place = largeTable();
    auto any = [place] { return static_cast<std::int32_t>(place->random() % kRecords) + 1; };
    pair(
        "DbfGoto/random", 0, [=, go = lib().DbfGoto] { return go(place->table, any()); },
        [=] {
            return ::pread(place->descriptor, place->to.data(), kRecordSize,
                           193 + (any() - 1) * static_cast<off_t>(kRecordSize));
        });
}

// Both start anew from time to time, so that the file does not grow beyond memory.
void append() {
    const char* fields = "ID,N,10:NAME,C,30:REST,C,59";
    auto place = std::make_shared<Place>(lab::tableBytes(3, fields, {}));
    auto other = std::make_shared<Place>(lab::tableBytes(3, fields, {}));
    auto record = std::make_shared<std::string>(recordBytes(7));
    auto count = std::make_shared<std::int32_t>(0);
    pair(
        "DbfAppend/and 3 puts", 0,
        [=, append = lib().DbfAppend, put = lib().DbfFieldPut] {
            if (append(place->table, 1) == kAppendsBeforeAnew) {
                lib().DbfClose(place->table);
                place->table = lib().DbfStrCreate(place->files.path("T").c_str(), "ID,N,10,0:NAME,C,30:REST,C,59");
            }
            return put(place->table, 1, "1234567") + put(place->table, 2, "somebody of some name") +
                   put(place->table, 3, "the rest of what is to be told of it");
        },
        [=] {
            *count = *count % kAppendsBeforeAnew + 1;
            if (*count == 1) static_cast<void>(!::ftruncate(other->descriptor, 129));
            off_t at = 129 + (*count - 1) * static_cast<off_t>(kRecordSize);
            return ::pwrite(other->descriptor, record->data(), kRecordSize, at) +
                   ::pwrite(other->descriptor, record->data(), 32, 0) +
                   ::pwrite(other->descriptor, record->data(), kRecordSize, at);
        });
}

void memo() {
    auto place = std::make_shared<Place>(lab::tableBytes(0x83, "M,M,10", {" " + lab::memoReference(1)}),
                                         lab::dbtBytes({std::string(kMemoSize, 'm'), "another"}));
    pair(
        "DbfFieldGet/memo of 2 KB", kMemoSize,
        [=, get = lib().DbfFieldGet] { return get(place->table, 1, place->to.data()); },
        [=] { return ::pread(place->descriptor, place->to.data(), kMemoSize, 512); });
}

const Cases cases([] {
    scan();
    randomGoto();
    append();
    memo();
});

}  // namespace
}  // namespace vx::bench
