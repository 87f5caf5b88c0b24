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

TEST_F(FileSearch, SizesAndPathsBeyondTheirLimits) {
    disk.put("C:\\long", "12345");
    for (auto [high, size] : {std::pair(2u, 5u), {8u, 0xFFFFFFFF}}) {
        find("C:\\l*");
        const std::uint32_t words[] = {high, 7};
        std::memcpy(memory.get() + 1 + 8 + 28, words, 8);
        EXPECT_EQ(lib().FindSize(block), size) << "kept: the high word takes off";
    }
    lib().FindRelease(block);
    std::string deep = "C:\\deep";
    while (deep.size() < 400) disk.put((deep += "\\0123456789") + "\\far");
    disk.put(deep + "\\farther");
    Dest dest(260);
    EXPECT_STREQ(lib().FileFind("farther", "C:\\deep", dest), "");
}

}  // namespace
}  // namespace vx::test
