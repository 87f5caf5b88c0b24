// Tables on the machine's own disk: what the made-up disk cannot show.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "tests/lab/table_bytes.h"
#include "tests/support/library.h"
#include "tests/support/text.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

constexpr std::int32_t kPrivateMode = 2;
constexpr std::int32_t kSharedMode = 66;

std::string valueOf(std::uint32_t table, int field) {
    Dest dest(65537);
    return lib().DbfFieldGet(table, field, dest);
}

TEST(TableFiles, MadeFilledAndReadAgain) {
    Workplace place;
    std::string path = place.path("People.dbf"), memo(3000, 'm');
    std::uint32_t table = lib().DbfStrCreate(path.c_str(), "name,c,10:born,d:notes,m:data,b");
    ASSERT_NE(table, 0u);
    for (int i = 1; i <= 50; ++i) {
        EXPECT_EQ(lib().DbfAppend(table, 1), i);
        EXPECT_EQ(lib().DbfReplace(table, "NAME", std::to_string(i).c_str()), 1);
        EXPECT_EQ(lib().DbfReplace(table, "NOTES", (memo + std::to_string(i)).c_str()), 1);
        EXPECT_EQ(lib().DbfReplace(table, "DATA", ("blob" + std::to_string(i)).c_str()), 1);
    }
    EXPECT_EQ(lib().DbfClose(table), 0);
    EXPECT_EQ(place.get("People.dbf").size(), 33u + 4 * 32 + 50 * 49);
    EXPECT_EQ(place.get("People.dbf").substr(4, 4), lab::little(50, 4));
    // Under another letter case on systems that tell them apart, too.
    for (std::string name : {path, place.path("PEOPLE")}) {
        table = lib().DbfOpen(name.c_str(), kSharedMode);
        ASSERT_NE(table, 0u) << name;
        for (int i : {1, 50, 25}) {
            lib().DbfGoto(table, i);
            EXPECT_EQ(valueOf(table, 1), lab::padded(std::to_string(i), 10));
            EXPECT_EQ(valueOf(table, 3), memo + std::to_string(i));
            Dest dest(10);
            EXPECT_EQ(lib().strdbfFieldGet(table, 4, dest), 4 + std::to_string(i).size());
        }
        EXPECT_EQ(lib().DbfClose(table), 0);
    }
    EXPECT_EQ(lib().DbfOpen(place.path("none").c_str(), kPrivateMode), 0u);
    EXPECT_EQ(lib().DbfOpen(place.path().c_str(), kPrivateMode), 0u) << "a directory";
}

TEST(TableFiles, LocksBetweenHandles) {
    Workplace place;
    place.put("T.DBF", lab::tableBytes(3, {{"A", 'C', 5}}, {" one", " two"}));
    std::uint32_t one = lib().DbfOpen(place.path("T").c_str(), kSharedMode);
    std::uint32_t two = lib().DbfOpen(place.path("T").c_str(), kSharedMode);
    ASSERT_TRUE(one && two);
    EXPECT_EQ(lib().DbfLock(one), 1);
    EXPECT_EQ(lib().DbfLock(two) + lib().DbfRlock(two, 1), 0);
    lib().DbfFieldPut(one, 1, "1");
    EXPECT_EQ(lib().DbfUnlock(one), 1);
    EXPECT_EQ(lib().DbfRlock(two, 1), 1);
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(lib().DbfAppend(one, 1), 3 + 2 * i);
        EXPECT_EQ(lib().DbfAppend(two, 1), 4 + 2 * i);
    }
    EXPECT_EQ(lib().DbfClose(one) + lib().DbfClose(two), 0);
    EXPECT_EQ(place.get("T.DBF").substr(4, 4), lab::little(42, 4));
    EXPECT_EQ(place.get("T.DBF").substr(65, 12), " 1     two  ");
}

// Each thread has its own tables; their handles are given out to all, and two append to one table.
TEST(TableFiles, Threads) {
    constexpr int kThreads = 4, kRounds = 40;
    Workplace place;
    place.put("T.DBF", lab::tableBytes(3, {{"A", 'C', 9}}, {}));
    std::atomic<int> faults{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < kRounds; ++i) {
                std::string value = std::to_string(t) + "/" + std::to_string(i);
                std::uint32_t shared = lib().DbfOpen(place.path("T").c_str(), kSharedMode);
                std::uint32_t own = lib().DbfStrCreate(place.path("T" + std::to_string(t)).c_str(), "A,C,9");
                faults += lib().DbfAppend(own, 1) != 1;
                faults += lib().DbfAppend(shared, 1) < 1;
                for (std::uint32_t table : {own, shared}) {
                    faults += lib().DbfFieldPut(table, 1, value.c_str()) != 1;
                    faults += valueOf(table, 1) != lab::padded(value, 9);
                    faults += lib().DbfClose(table) != 0;
                    faults += lib().DbfClose(table) != -1;
                }
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(faults, 0);
    std::uint32_t table = lib().DbfOpen(place.path("T").c_str(), kPrivateMode);
    std::uint32_t count = lib().DbfLastrec(table);
    EXPECT_EQ(count, static_cast<std::uint32_t>(kThreads * kRounds));
    std::vector<std::string> values;
    for (std::uint32_t i = 1; i <= count; ++i)
        lib().DbfGoto(table, static_cast<int>(i)), values.push_back(valueOf(table, 1));
    std::sort(values.begin(), values.end());
    EXPECT_EQ(std::unique(values.begin(), values.end()), values.end()) << "each record once";
    EXPECT_EQ(std::count(values.begin(), values.end(), std::string(9, ' ')), 0);
    EXPECT_EQ(lib().DbfClose(table), 0);
}

}  // namespace
}  // namespace vx::test
