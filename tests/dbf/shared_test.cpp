// A table shared between processes or threads: several that append at once, and some that are killed while they do.
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

std::string tableOf(const Workplace& place) {
    std::string file = place.path("lines.dbf");
    std::uint32_t table = lib().DbfStrCreate(file.c_str(), kStructure);
    EXPECT_EQ(lib().DbfClose(table), 0);
    return file;
}

bool append(std::uint32_t table, const Line& line) {
    for (int tries = 0; tries < 10; ++tries) {
        if (lib().DbfAppend(table, 1) == 0) continue;
        return lib().DbfReplace(table, "WHO", std::to_string(line.who).c_str()) &&
               lib().DbfReplace(table, "NUMBER", std::to_string(line.number).c_str()) &&
               lib().DbfReplace(table, "TEXT", line.text.c_str());
    }
    return false;
}

template <class Try>
bool insist(Try once) {
    for (int tries = 0; tries < 100'000; ++tries) {
        if (once()) return true;
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    return false;
}

// Appends lines 1 to `count`; with "LOCK" each under a table lock of its own, with "OPEN" each by a handle of its own.
int appendLines(const std::string& file, int who, int count, const std::string& how) {
    bool locks = how == "LOCK", opens = how == "OPEN";
    std::uint32_t table = lib().DbfOpen(file.c_str(), kShared);
    for (int i = 1; table && i <= count; ++i) {
        if (locks && !insist([&] { return lib().DbfLock(table); })) return 2;
        if (!append(table, lineOf(who, i))) return 3;
        if (locks && !lib().DbfUnlock(table)) return 4;
        if (opens && (lib().DbfClose(table) != 0 || lib().DbfClose(table) != -1)) return 6;
        if (opens) table = lib().DbfOpen(file.c_str(), kShared);
    }
    return table && lib().DbfClose(table) == 0 ? 0 : 5;
}

const Role appender("append", [](const Arguments& arguments) {
    return appendLines(arguments.at(0), std::stoi(arguments.at(1)), std::stoi(arguments.at(2)), arguments.at(3));
});

void expectLines(const Workplace& place, int appenders, int count) {
    std::vector<Line> lines = linesOf(place.path("lines.dbf"));
    EXPECT_EQ(lines.size(), static_cast<std::size_t>(appenders * count));
    std::set<Line> missing;
    for (int i = 0; i < appenders * count; ++i) missing.insert(lineOf(i / count + 1, i % count + 1));
    int twice = 0;
    for (const Line& line : lines) twice += missing.erase(line) == 0;
    EXPECT_EQ(twice, 0) << "records that are blank, garbled or there twice";
    EXPECT_TRUE(missing.empty()) << missing.size() << ", the first is " << missing.begin()->text;
    std::string bytes = place.get("lines.dbf");
    std::uint32_t inHeader = 0;
    std::memcpy(&inHeader, bytes.data() + 4, sizeof inHeader);
    EXPECT_EQ(inHeader, lines.size());
    EXPECT_EQ(bytes.size(), kHeaderSize + lines.size() * kRecordSize);
}

TEST(SharedTable, NothingOfProcessesIsLost) {
    constexpr int kProcesses = 4;
    for (auto [how, count] : {std::pair("LOCK", 500), {"-", 2000}}) {
        Workplace place;
        std::string file = tableOf(place);
        std::vector<Child> children;
        for (int who = 1; who <= kProcesses; ++who)
            children.emplace_back("append", Arguments{file, std::to_string(who), std::to_string(count), how});
        for (Child& child : children) EXPECT_EQ(child.wait(), 0) << how;
        expectLines(place, kProcesses, count);
    }
}

TEST(SharedTable, NothingOfThreadsIsLost) {
    constexpr int kThreads = 4, kCount = 40;
    Workplace place;
    std::string file = tableOf(place);
    int results[kThreads] = {};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t)
        threads.emplace_back([&, t] { results[t] = appendLines(file, t + 1, kCount, "OPEN"); });
    for (std::thread& thread : threads) thread.join();
    for (int result : results) EXPECT_EQ(result, 0);
    expectLines(place, kThreads, kCount);
}

TEST(SharedTable, ReachesTheLastPosition) {
    constexpr std::uint32_t kLast = 0x7FFFFFFF, kRecords = (kLast - 65) / 2;
    Workplace place;
    EXPECT_EQ(lib().DbfClose(lib().DbfStrCreate(place.path("t.dbf").c_str(), "A,C,1")), 0);
    std::filesystem::resize_file(place.native("t.dbf"), kLast);
    std::uint32_t table = lib().DbfOpen(place.path("t.dbf").c_str(), kShared);
    EXPECT_EQ(lib().DbfLastrec(table), kRecords);
    lib().DbfGoto(table, kRecords);
    EXPECT_EQ(lib().DbfFieldPut(table, 1, "x"), 1);
    EXPECT_EQ(lib().DbfClose(table), 0);
    std::ifstream file(place.native("t.dbf"), std::ios::binary);
    EXPECT_EQ(file.seekg(kLast - 1).get(), 'x');
}

// Appends a line at a time and notes each one once it has been committed. A file tells of the first.
const Role committer("commit", [](const Arguments& arguments) {
    std::uint32_t table = lib().DbfOpen(arguments.at(0).c_str(), kShared);
    std::ofstream notes(arguments.at(1), std::ios::binary | std::ios::app);
    int who = std::stoi(arguments.at(2));
    for (int i = 1; table; ++i) {
        if (!append(table, lineOf(who, i)) || !lib().DbfUnlock(table)) return 3;
        notes << who << ' ' << i << std::endl;
        if (i == 1) std::ofstream(arguments.at(3)) << "committed";
    }
    return 4;
});

TEST(SharedTable, SurvivesKilledProcesses) {
#if defined(_WIN32)
    constexpr int kKills = 25, kLongest = 100'000;
#else
    constexpr int kKills = 200, kLongest = 20'000;
#endif
    Workplace place;
    std::string file = tableOf(place), notes = place.native("notes").string();
    std::mt19937 random(1);
    for (int who = 1; who <= kKills; ++who) {
        std::string sign = "committed" + std::to_string(who);
        Child child("commit", {file, notes, std::to_string(who), place.native(sign).string()});
        // One in four is killed while it starts, the others anywhere behind their first line.
        ASSERT_TRUE(who % 4 == 0 || insist([&] { return place.has(sign); })) << "child " << who << " does nothing";
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
    for (int who, number; noted >> who >> number; ++committed)
        ASSERT_TRUE(there.contains(lineOf(who, number))) << "committed, and gone: " << who << "/" << number;
    EXPECT_GE(committed, std::size_t{kKills} * 3 / 4);
}

}  // namespace
}  // namespace vx::test
