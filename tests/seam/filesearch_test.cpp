// Searches over lists of patterns, their blocks, and what is found in one call, on a made-up disk.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "include/vexlor32.h"
#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using Names = std::vector<std::string>;

constexpr std::size_t kBlock = VX_FIND_BLOCK_SIZE;
constexpr std::size_t kName = 514;

class FileSearch : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};
    lab::MadeUpDisk& disk = fake.disk;
    Dest memory{kBlock + 1};
    void* block = memory.get() + 1;  // at an odd address
    Dest name{kName};

    void TearDown() override { EXPECT_EQ(disk.openSearches(), 0u); }

    Names all(const std::string& list, std::uint32_t flags) {
        Names found;
        for (lib().FindFirst(block, list.c_str(), flags, name); *name.get(); lib().FindNext(block, name)) {
            found.push_back(name.text());
        }
        return found;
    }
    void find(const char* pattern, std::uint32_t flags = 0) { lib().FindFirst(block, pattern, flags, name); }
};

bool takenByModel(std::uint32_t flags, std::uint32_t attributes, const std::string& name) {
    bool hit = (attributes & (flags & 127)) != 0;
    bool dots = name == "." || name == "..";
    if (flags & 128) return hit;
    if ((flags & 256) && (attributes & 16)) return !dots;
    if (flags & 127) return hit;
    return attributes == 0 || (attributes & 32);
}

TEST_F(FileSearch, TheFilterOverAllFlagsAndAttributes) {
    disk.putDirectory("C:\\d");
    std::vector<std::pair<std::string, std::uint32_t>> entries{{".", 16}, {"..", 16}};
    for (std::uint32_t bits = 0; bits < 64; ++bits) {
        std::uint32_t attributes = (bits & 7) | (bits & 8 ? 32 : 0) | (bits & 16 ? 64 : 0) | (bits & 32 ? 16 : 0);
        std::string entry = (bits & 32 ? "..x" : "f") + std::to_string(bits + 10);
        auto& node = bits & 32 ? disk.putDirectory("C:\\d\\" + entry) : disk.put("C:\\d\\" + entry);
        node.attributes = (attributes & ~80u) | (bits & 16 ? platform::kCompressed : 0u);
        entries.emplace_back(entry, attributes);
    }
    std::sort(entries.begin() + 2, entries.end());
    for (std::uint32_t flags = 0; flags < 512; ++flags) {
        Names expected;
        for (const auto& [entry, attributes] : entries) {
            if (takenByModel(flags, attributes, entry)) expected.push_back(entry);
        }
        ASSERT_EQ(all("C:\\d\\*.*", flags), expected) << flags;
        ASSERT_EQ(all("C:\\d\\*.*", flags | 0xFFFFF800), expected) << "the upper bits mean nothing";
    }
    for (const auto& [entry, attributes] : entries) {
        if (entry[0] == '.' && entry.size() < 3) continue;
        find(("C:\\d\\" + entry).c_str(), 0x7F | 0x100);
        if (attributes != 0) {
            EXPECT_EQ(lib().FindAttr(block), static_cast<std::int32_t>(attributes)) << entry;
        }
        EXPECT_EQ(lib().IsFile(("C:\\d\\" + entry).c_str(), 55), (attributes & 55) != 0);
        lib().FindRelease(block);
    }
}

TEST_F(FileSearch, Lists) {
    for (const char* path : {"C:\\d\\a.txt", "C:\\d\\b.txt", "C:\\d\\c.doc", "C:\\d\\sub\\x.txt", "C:\\t.txt"})
        disk.put(path);
    disk.put("C:\\d\\long name.txt").shortName = "LONGNA~1.TXT";
    disk.directory = "C:\\d";
    const std::string filler(515, 'z');
    struct Row {
        std::string list;
        std::uint32_t flags;
        Names names;
    };
    const Row rows[] = {
        {"*.doc;*.txt", 0, {"c.doc", "a.txt", "b.txt", "long name.txt"}},
        {";,*.no;;*.doc,", 0, {"c.doc"}},
        {"*.no,*.none", 0, {}},
        {"", 0, {}},
        {";;", 0, {}},
        {"sub\\*.*;C:\\t.*", 512, {"sub\\x.txt", "C:\\t.txt"}},
        {"C:*.doc;C:/d/sub/*.*", 512, {"C:c.doc", "C:/d/sub/x.txt"}},
        {"C:\\d\\*.*", 512 | 16, {".", "C:\\d\\..", "C:\\d\\sub"}},
        {"C:\\d\\*.*", 512 | 256 | 16, {"C:\\d\\sub"}},
        {"C:\\d\\*.*", 1024 | 16, {"."}},  // which has no short name; the one of ".." is empty
        {"l*.txt", 1024, {"LONGNA~1.TXT"}},
        {"l*.txt", 1024 | 512, {"LONGNA~1.TXT"}},
        {"a.txt;l*.txt", 1024, {}},  // kept: the empty short name looks like the end
        {"a.txt;A.TXT", 0, {"a.txt", "a.txt"}},
        {filler + ";*.doc", 0, {}},  // 520 characters are kept: the last pattern is "*.do"
        {filler.substr(1) + ";*.doc", 0, {"c.doc"}},
        {"C:\\d\\" + std::string(256, '*') + ";*.doc", 0, {"c.doc"}},  // too long for a path
    };
    for (const Row& row : rows) {
        EXPECT_EQ(all(row.list, row.flags), row.names) << row.list << " " << row.flags;
        lib().FindRelease(block);
        EXPECT_EQ(lib().strfindfirst(block, row.list.c_str(), row.flags, name),
                  row.names.empty() ? 0 : row.names[0].size());
        lib().FindRelease(block);
        lib().FindRelease(block);
        EXPECT_STREQ(lib().FindNext(block, name), "") << "released";
    }
}

TEST_F(FileSearch, TheStatedExamples) {
    disk.putDirectory("C:\\d\\sub");
    disk.put("C:\\d\\r").attributes = platform::kReadOnly;
    disk.put("C:\\d\\ten", "0123456789");
    EXPECT_EQ(all("C:\\d\\*.*", 0), Names{"ten"});
    EXPECT_EQ(all("C:\\d\\*.*", 256), (Names{"sub", "ten"}));
    EXPECT_EQ(all("C:\\d\\no*;C:\\d\\t*", 0), Names{"ten"});
    EXPECT_EQ(lib().FileCount("C:\\d\\no*;C:\\d\\t*", 0), -1) << "kept: the first pattern's error is still there";
    EXPECT_EQ(lib().FileCount("C:\\d\\t*;C:\\d\\r", 1 | 32), 1) << "kept: the first pattern's end ends the count";
    EXPECT_EQ(lib().FileCount("C:\\d\\*.*;C:\\d\\no*", 256), 2);
    EXPECT_EQ(lib().FileCount("C:\\d\\no*", 0), 0);
    EXPECT_EQ(lib().FileCount(nullptr, 0), 0);
    EXPECT_EQ(lib().DirSize("C:\\d\\*.*;C:\\d\\t*", 0), 20u);
    EXPECT_EQ(lib().DirSize(nullptr, 0), 0u);
    find("C:\\d\\ten");
    EXPECT_EQ(lib().FindSize(block), 10u);
    lib().FindRelease(block);
}

TEST_F(FileSearch, FirstEntriesDecideIsFile) {
    disk.put("C:\\d\\a").attributes = platform::kHidden;
    disk.put("C:\\d\\b").shortName = "B~1";
    struct Row {
        const char* list;
        std::uint32_t flags;
        int result;
    };
    for (const Row& row : {Row{"", 0, 1},
                           {nullptr, 0, 1},
                           {";,", 9, 1},
                           {"C:\\d\\b", 0, 1},
                           {"C:\\d\\c", 0, 0},
                           {"C:\\d\\?", 0, 0},
                           {"C:\\d\\?", 2, 1},
                           {"C:\\d\\b;C:\\d\\a", 32, 0},
                           {"C:\\d\\b;C:\\d\\a", 34, 1},
                           {"C:\\d\\b;C:\\none", 32, 0},
                           {"C:\\d\\b", 1024, 1},
                           {"C:\\d\\a", 1026, 0},
                           {"C:\\d", 16, 1}}) {
        EXPECT_EQ(lib().IsFile(row.list, row.flags), row.result) << row.list << " " << row.flags;
    }
}

TEST_F(FileSearch, GettersOfTheCurrentEntry) {
    auto& node = disk.put("C:\\d\\long name.txt", "12345");
    node.shortName = "LONGNA~1.TXT";
    node.times.written = 0; fake.clock.toFileTime({2001, 2, 0, 3, 9, 8, 7, 0}, node.times.written);
    std::int32_t a, b, c;
    Dest text(64);
    for (bool without : {false, true}) {
        if (!without) find("C:\\d\\l*");
        if (without) lib().FindNext(block, name);  // behind the end there is no entry
        EXPECT_STREQ(lib().FindName(block, name), without ? "" : "C:\\d\\long name.txt");
        EXPECT_EQ(lib().FindSize(block), without ? 0u : 5u);
        EXPECT_EQ(lib().FindAttr(block), without ? -1 : 32);
        EXPECT_EQ(lib().FindDosDate(block, &a, &b, &c), !without);
        EXPECT_EQ(std::tuple(a, b, c), without ? std::tuple(0, 0, 0) : std::tuple(2001, 2, 3));
        EXPECT_EQ(lib().FindDosTime(block, &a, &b, &c), !without);
        EXPECT_EQ(std::tuple(a, b, c), without ? std::tuple(0, 0, 0) : std::tuple(9, 8, 7));
        EXPECT_EQ(lib().FindDosTime(block, nullptr, nullptr, nullptr), !without);
        EXPECT_EQ(lib().FindJDate(block), without ? 0 : 2451944);
        EXPECT_STREQ(lib().FindDate(block, text), without ? "" : fake.locale.dateText.c_str());
        EXPECT_STREQ(lib().FindDatef(block, "YYYY-MM", text), without ? "" : "2001-02");
        EXPECT_EQ(lib().strfinddatef(block, "YYYY", text), without ? 0u : 4u);
        EXPECT_STREQ(lib().FindTime(block, text), without ? "" : fake.locale.timeText.c_str());
    }
    find("C:\\d\\l*", 1024);
    lib().FindRelease(block);
    EXPECT_STREQ(lib().FindName(block, name), "C:\\d\\LONGNA~1.TXT") << "a released search still tells";

    node.times.written = ~platform::FileTime{0};  // a time that the system cannot convert
    find("C:\\d\\l*");
    EXPECT_EQ(lib().FindDosDate(block, &a, &b, &c) + lib().FindDosTime(block, &a, &b, &c) + lib().FindJDate(block), 0);
    EXPECT_EQ(lib().strfinddate(block, text) + lib().strfindtime(block, text), 0u);
    lib().FindRelease(block);

    auto size = [this](std::uint32_t high, std::uint32_t low) {
        std::memcpy(memory.get() + 1 + 8 + 28, &high, 4);
        std::memcpy(memory.get() + 1 + 8 + 32, &low, 4);
        return lib().FindSize(block);
    };
    find("C:\\d\\l*");
    EXPECT_EQ(size(2, 7), 5u) << "kept: the high word takes off";
    EXPECT_EQ(size(8, 7), 0xFFFFFFFF);
    lib().FindRelease(block);
}

TEST_F(FileSearch, NullsBeginNothing) {
    disk.put("C:\\a");
    std::memset(block, 'b', kBlock);
    EXPECT_STREQ(lib().FindFirst(nullptr, "C:\\a", 0, name), "");
    EXPECT_STREQ(lib().FindFirst(block, nullptr, 0, name), "");
    EXPECT_EQ(lib().FindFirst(block, "C:\\a", 0, nullptr), nullptr);
    EXPECT_EQ(std::string(static_cast<char*>(block), kBlock), std::string(kBlock, 'b'));
    for (void* none : {block, static_cast<void*>(nullptr)}) {
        EXPECT_STREQ(lib().FindNext(none, name), "");
        EXPECT_STREQ(lib().FindName(none, name), "");
        EXPECT_EQ(lib().FindSize(none), 0u);
        EXPECT_EQ(lib().FindAttr(none), -1);
        EXPECT_EQ(lib().FindJDate(none), 0);
        lib().FindRelease(none);
    }
}

// Whatever the rest of a block holds, a call stays inside it, comes to an end, and closes no search but its own.
TEST_F(FileSearch, BlocksOfAnyContent) {
    disk.put("C:\\a");
    disk.put("C:\\b");
    RandomTexts random(75);
    const std::int32_t numbers[] = {0, 1, -1, 2, 3, 99, 0x7FFFFFFF, static_cast<std::int32_t>(0x80000000)};
    auto number = [&](std::size_t at) { std::memcpy(memory.get() + 1 + at, &numbers[random.number(0, 7)], 4); };
    for (int round = 0; round < 3000; ++round) {
        for (std::size_t i = 0; i < kBlock; ++i) memory.get()[1 + i] = static_cast<char>(random.number(1, 255));
        if (round % 3 == 0) std::memcpy(memory.get() + 1 + 334, "C:\\?;C:\\*.*", 12);
        for (std::size_t at : {326u, 330u, 4u}) number(at);
        std::uint32_t signature = 41894;
        std::memcpy(block, &signature, 4);
        lib().FindName(block, name);
        lib().FindAttr(block);
        for (int step = 0; step < 4; ++step) lib().FindNext(block, name);
        lib().FindRelease(block);
        ASSERT_EQ(disk.openSearches(), 0u);
    }
}

// Beginning anew gives up the search that the block holds, and none that it only seems to hold.
TEST_F(FileSearch, ABlockThatIsBegunAnewIsReleased) {
    for (const char* path : {"C:\\a", "C:\\b"}) disk.put(path);
    for (int i = 0; i < 3; ++i) {
        find("C:\\?");
        EXPECT_EQ(disk.openSearches(), 1u);
    }
    platform::FoundEntry entry;
    const std::int32_t others = disk.findFirst("C:\\?", entry);
    Dest copy(kBlock);
    std::memcpy(copy, block, kBlock);
    auto seemsToHold = [&](std::int32_t search) { std::memcpy(copy.get() + 4, &search, 4); };
    for (bool foreign : {false, true}) {
        if (foreign) seemsToHold(others);
        EXPECT_STREQ(lib().FindFirst(copy, "C:\\a", 0, name), "a");
        EXPECT_EQ(disk.openSearches(), 3u);
        lib().FindRelease(copy);
    }
    EXPECT_STREQ(lib().FindNext(block, name), "b") << "still its own";
    // A block that was moved goes on; its old place holds nothing any more, whoever gets the number next.
    find("C:\\?");
    std::memcpy(copy, block, kBlock);
    EXPECT_STREQ(lib().FindNext(copy, name), "b");
    lib().FindRelease(copy);
    disk.lastHandle -= 4;
    lib().FindFirst(copy, "C:\\?", 0, name);
    find("C:\\b");
    EXPECT_STREQ(lib().FindNext(copy, name), "b");
    lib().FindRelease(copy);
    lib().FindRelease(block);
    disk.findClose(others);
}

TEST_F(FileSearch, ErasesWhatItFindsAndNothingElse) {
    for (const char* path :
         {"C:\\d\\a.tmp", "C:\\d\\b.tmp", "C:\\d\\c;d.tmp", "C:\\d\\keep", "C:\\d\\s.tmp\\x.tmp", "C:\\e\\x.tmp"})
        disk.put(path);
    disk.put("C:\\d\\r.tmp").attributes = platform::kReadOnly | platform::kArchive;
    disk.put("C:\\d\\h.tmp").attributes = platform::kHidden;
    disk.find("C:\\d\\s.tmp")->attributes = platform::kArchive;
    disk.putLink("C:\\d\\l.tmp", "C:\\d\\keep");
    disk.putLink("C:\\d\\dl.tmp", "C:\\e");
    EXPECT_EQ(lib().FEraseAll("C:\\d\\none;C:\\d\\*.tmp"), 4);
    EXPECT_EQ(disk.names(), (Names{"C:\\d\\", "C:\\D\\dl.tmp\\", "C:\\D\\h.tmp", "C:\\D\\keep", "C:\\D\\r.tmp",
                                   "C:\\D\\s.tmp\\", "C:\\D\\S.TMP\\x.tmp", "C:\\e\\", "C:\\E\\x.tmp"}));
    // A pattern of which the list keeps only a part would match more than it says.
    std::string list = "C:\\e\\*.none;" + std::string(520 - 12 - 6, 'z') + ";C:\\e\\*.none";
    EXPECT_EQ(lib().FEraseAll(list.c_str()), 0);
    EXPECT_TRUE(disk.find("C:\\e\\x.tmp"));
    EXPECT_EQ(lib().FEraseAll("C:\\e\\x.*") + lib().FEraseAll("") + lib().FEraseAll(nullptr), 1);
}

TEST_F(FileSearch, FindsFilesBelowListedDirectories) {
    for (const char* path :
         {"C:\\a\\b\\deep\\f.txt", "C:\\a\\z\\f.txt", "C:\\a\\z\\g.txt", "C:\\q,r\\f.txt", "C:\\w\\own.txt"})
        disk.put(path);
    disk.putLink("C:\\a\\loop", "C:\\a");
    disk.putLink("C:\\w\\link", "C:\\q,r");
    disk.directory = "C:\\w";
    struct Row {
        const char* name;
        const char* directories;
        const char* found;
    };
    const Row rows[] = {{"f.txt", "C:\\a", "C:\\a\\b\\deep\\f.txt"},
                        {"g.*", "C:\\none;C:\\a\\;C:\\q,r", "C:\\a\\z\\g.txt"},
                        {"f.txt", "C:\\q,r;C:\\a", "C:\\q,r\\f.txt"},
                        {"z", "C:\\a", "C:\\a\\z"},
                        {"*", "C:\\a\\z", "C:\\a\\z\\f.txt"},
                        {"deep\\f*", "C:\\a", "C:\\a\\b\\deep\\f.txt"},
                        {"own.txt", "", "C:\\w\\own.txt"},
                        {"OWN.TXT", nullptr, "C:\\w\\own.txt"},
                        {"f.txt", nullptr, ""},
                        {"own.txt", "C:", "C:\\w\\own.txt"},
                        {"none", "C:\\", ""},
                        {"..", "C:\\a;C:\\a\\z", ""},
                        {"b\\.", "C:\\a", ""},
                        {"", "C:\\a", ""},
                        {nullptr, "C:\\a", ""},
                        {"f.txt", "Q:\\;?", ""}};
    for (const Row& row : rows) {
        Dest dest(260);
        EXPECT_EQ(lib().FileFind(row.name, row.directories, dest), dest.get());
        EXPECT_EQ(dest.text(), row.found) << row.name << " in " << row.directories;
        EXPECT_EQ(lib().strfilefind(row.name, row.directories, dest), std::strlen(row.found));
    }
    EXPECT_EQ(lib().FileFind("f.txt", "C:\\a", nullptr), nullptr);
    Edit both("g.txt", 260);
    EXPECT_STREQ(lib().FileFind(both, "C:\\a", both), "C:\\a\\z\\g.txt");
    std::string deep = "C:\\deep";
    while (deep.size() < 400) disk.put((deep += "\\0123456789") + "\\far");
    disk.put(deep + "\\farther");
    Dest dest(260);
    EXPECT_STREQ(lib().FileFind("farther", "C:\\deep", dest), "") << "beyond what a path can name";
}

TEST_F(FileSearch, NothingLeaksWhateverFails) {
    for (const char* path : {"C:\\d\\a", "C:\\d\\b", "C:\\d\\s\\c"}) disk.put(path);
    Dest dest(260);
    for (bool lasts : {false, true}) {
        for (int call = 1; call <= 12; ++call) {
            disk.fault = {.atCall = disk.calls + call, .lasts = lasts, .code = platform::kNotReady};
            all("C:\\d\\*.*;C:\\d\\s\\*.*", 0);
            lib().FindRelease(block);
            EXPECT_EQ(disk.openSearches(), 0u);
            disk.fault = {.atCall = disk.calls + call, .lasts = lasts, .code = platform::kNotReady};
            lib().FileFind("none", "C:\\d", dest);
            EXPECT_EQ(disk.openSearches(), 0u);
            disk.fault = {.atCall = disk.calls + call, .lasts = lasts, .code = platform::kNotReady};
            lib().FileCount("C:\\d\\*.*;C:\\d\\s\\*.*", 0);
            lib().IsFile("C:\\d\\*.*;C:\\d\\s\\*.*", 256);
            EXPECT_EQ(disk.openSearches(), 0u);
        }
    }
}

}  // namespace
}  // namespace vx::test
