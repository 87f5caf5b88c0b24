// Tables shared between processes: several that append at once, and some that are killed while they do.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <random>
#include <set>
#include <thread>

#include "tests/support/child.h"
#include "tests/support/library.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

constexpr std::int32_t kShared = 0x42;
constexpr std::int32_t kReadAndShare = 0x40;
constexpr char kStructure[] = "WHO,N,3:NUMBER,N,8:TEXT,C,20";
constexpr std::size_t kHeaderSize = 32 + 3 * 32 + 1;
constexpr std::size_t kRecordSize = 1 + 3 + 8 + 20;

struct Line {
    int who = 0;
    int number = 0;
    std::string text;
    auto operator<=>(const Line&) const = default;
};

Line lineOf(int who, int number) {
    std::string text = std::to_string(who) + "/" + std::to_string(number);
    return {who, number, text + std::string(20 - text.size(), ' ')};
}

bool put(std::uint32_t table, const Line& line) {
    return lib().DbfReplace(table, "WHO", std::to_string(line.who).c_str()) &&
           lib().DbfReplace(table, "NUMBER", std::to_string(line.number).c_str()) &&
           lib().DbfReplace(table, "TEXT", line.text.c_str());
}

// All lines of a table; a record that is still blank is line 0/0.
std::vector<Line> linesOf(const std::string& file) {
    std::uint32_t table = lib().DbfOpen(file.c_str(), kReadAndShare);
    if (!table) return {};
    std::vector<Line> lines;
    for (lib().DbfGoto(table, 1); !lib().DbfEof(table); lib().DbfSkip(table, 1)) {
        char who[8], number[16], text[32];
        lib().DbfFieldGet(table, 1, who);
        lib().DbfFieldGet(table, 2, number);
        lib().DbfFieldGet(table, 3, text);
        lines.push_back({std::atoi(who), std::atoi(number), text});
    }
    lib().DbfClose(table);
    return lines;
}

std::string emptyTable(const Workplace& place) {
    std::uint32_t table = lib().DbfStrCreate(place.path("lines.dbf").c_str(), kStructure);
    EXPECT_NE(table, 0u);
    EXPECT_EQ(lib().DbfClose(table), 0);
    return place.path("lines.dbf");
}

bool append(std::uint32_t table, const Line& line) {
    for (int tries = 0; tries < 10; ++tries) {
        if (lib().DbfAppend(table, 1) != 0) return put(table, line);
    }
    return false;
}

bool lock(std::uint32_t table, std::int32_t records = 0) {
    for (int tries = 0; tries < 100'000; ++tries) {
        if (records ? lib().DbfRlock(table, records) : lib().DbfLock(table)) return true;
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    return false;
}

// Appends lines 1 to COUNT of WHO; with LOCK each under a table lock of its own.
const Role appender("append", [](const Arguments& arguments) {
    int who = std::stoi(arguments.at(1)), count = std::stoi(arguments.at(2));
    bool locks = arguments.at(3) == "LOCK";
    std::uint32_t table = lib().DbfOpen(arguments.at(0).c_str(), kShared);
    for (int i = 1; table && i <= count; ++i) {
        if (locks && !lock(table)) return 2;
        if (!append(table, lineOf(who, i))) return 3;
        if (locks && !lib().DbfUnlock(table)) return 4;
    }
    return table && lib().DbfClose(table) == 0 ? 0 : 5;
});

void expectNothingLost(const char* locks, int processes, int count) {
    Workplace place;
    std::string file = emptyTable(place);
    std::vector<Child> children;
    for (int who = 1; who <= processes; ++who) {
        children.emplace_back("append", Arguments{file, std::to_string(who), std::to_string(count), locks});
    }
    for (Child& child : children) EXPECT_EQ(child.wait(), 0);

    std::vector<Line> lines = linesOf(file);
    EXPECT_EQ(lines.size(), static_cast<std::size_t>(processes * count));
    std::set<Line> missing;
    for (int who = 1; who <= processes; ++who) {
        for (int i = 1; i <= count; ++i) missing.insert(lineOf(who, i));
    }
    int twice = 0;
    for (const Line& line : lines) twice += missing.erase(line) == 0;
    EXPECT_EQ(twice, 0) << "records that are blank, garbled or there twice";
    EXPECT_EQ(missing.size(), 0u) << "the first is " << missing.begin()->text;

    std::string bytes = place.get("lines.dbf");
    std::uint32_t inHeader = 0;
    std::memcpy(&inHeader, bytes.data() + 4, sizeof inHeader);
    EXPECT_EQ(inHeader, lines.size());
    EXPECT_EQ(bytes.size(), kHeaderSize + lines.size() * kRecordSize);
}

TEST(SharedTable, NothingIsLostWithLocks) { expectNothingLost("LOCK", 4, 500); }
TEST(SharedTable, NothingIsLostWithoutLocks) { expectNothingLost("-", 4, 2000); }

// Adds 1 to the number in record 1, COUNT times; each under a lock of the table or of the RECORD.
const Role adder("add", [](const Arguments& arguments) {
    int count = std::stoi(arguments.at(1));
    int records = arguments.at(2) == "RECORD";
    std::uint32_t table = lib().DbfOpen(arguments.at(0).c_str(), kShared);
    for (int i = 0; table && i < count; ++i) {
        if (!lock(table, records)) return 2;
        char number[16];
        lib().DbfFieldGet(table, 2, number);
        if (!lib().DbfFieldPut(table, 2, std::to_string(std::atoi(number) + 1).c_str())) return 3;
        if (!lib().DbfUnlock(table)) return 4;
    }
    return table && lib().DbfClose(table) == 0 ? 0 : 5;
});

TEST(SharedTable, NoUpdateIsLostUnderLocks) {
    constexpr int kProcesses = 3, kCount = 100;
    for (const char* kind : {"TABLE", "RECORD"}) {
        Workplace place;
        std::string file = emptyTable(place);
        std::uint32_t table = lib().DbfOpen(file.c_str(), kShared);
        EXPECT_EQ(lib().DbfAppend(table, 1), 1);
        EXPECT_EQ(lib().DbfClose(table), 0);
        std::vector<Child> children;
        for (int i = 0; i < kProcesses; ++i)
            children.emplace_back("add", Arguments{file, std::to_string(kCount), kind});
        for (Child& child : children) EXPECT_EQ(child.wait(), 0);
        EXPECT_EQ(linesOf(file).at(0).number, kProcesses * kCount) << kind;
    }
}

// Appends a line at a time and notes each one once it has been committed. A file tells that the table is open.
const Role committer("commit", [](const Arguments& arguments) {
    std::uint32_t table = lib().DbfOpen(arguments.at(0).c_str(), kShared);
    std::ofstream notes(arguments.at(1), std::ios::binary | std::ios::app);
    int who = std::stoi(arguments.at(2));
    std::ofstream(arguments.at(3)) << "open";
    for (int i = 1; table; ++i) {
        if (!append(table, lineOf(who, i)) || !lib().DbfUnlock(table)) return 3;
        notes << who << ' ' << i << std::endl;
    }
    return 4;
});

TEST(SharedTable, SurvivesKilledProcesses) {
#if defined(_WIN32)
    constexpr int kKills = 25;
    constexpr int kLongest = 100'000;
#else
    constexpr int kKills = 200;
    constexpr int kLongest = 25'000;
#endif
    Workplace place;
    std::string file = emptyTable(place);
    std::string notes = place.native("notes").string();
    std::mt19937 random(1);
    for (int who = 1; who <= kKills; ++who) {
        std::string open = "open" + std::to_string(who);
        Child child("commit", {file, notes, std::to_string(who), place.native(open).string()});
        // Some are killed while they start; how long that takes is the machine's affair.
        for (int i = 0; who % 2 && i < 20'000 && !place.has(open); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        std::this_thread::sleep_for(std::chrono::microseconds(random() % kLongest));
        child.kill();
        child.wait();
        std::uint32_t table = lib().DbfOpen(file.c_str(), kShared);
        ASSERT_NE(table, 0u) << "after kill " << who;
        ASSERT_EQ(lib().DbfLock(table), 1) << "the locks of a dead process are gone";
        ASSERT_EQ(lib().DbfClose(table), 0);
    }
    std::vector<Line> lines = linesOf(file);
    std::set<Line> there(lines.begin(), lines.end());
    std::ifstream noted(notes);
    std::size_t committed = 0;
    for (int who, number; noted >> who >> number; ++committed) {
        ASSERT_TRUE(there.contains(lineOf(who, number))) << "committed, and gone: " << who << "/" << number;
    }
    EXPECT_GT(committed, std::size_t{kKills} / 10) << "the children were killed before they did anything";
    EXPECT_GE(lines.size(), committed);
}

}  // namespace
}  // namespace vx::test
