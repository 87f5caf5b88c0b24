// CRCs against published values and a bitwise model, sums and hash against plain loops.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/checksums/crc_models.h"
#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

std::uint32_t size32(const std::string& text) { return static_cast<std::uint32_t>(text.size()); }

TEST(Crc, PublishedValues) {
    struct Row {
        std::string text;
        std::uint32_t crc32;
        std::uint32_t xmodem;
    };
    const Row rows[] = {
        {"123456789", 0xCBF43926, 0x31C3},
        {"", 0, 0},
        {"A", 0xD3D99E8B, 0x58E5},
        {"a", 0xE8B7BE43, 0x7C87},
        {"The quick brown fox jumps over the lazy dog", 0x414FA339, 0xF0C8},
        {std::string(32, '\0'), 0x190A55AD, 0},
        {"12345678901234567890123456789012345678901234567890123456789012345678901234567890", 0x7CA94A72, 0xE73A},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(~lib().Crc32(row.text.data(), 0xFFFFFFFF, size32(row.text)), row.crc32) << row.text;
        EXPECT_EQ(lib().Crc16(row.text.data(), 0, size32(row.text)) & 0xFFFF, row.xmodem) << row.text;
    }
    // One byte from 0 shows an entry of each table.
    struct Entry {
        std::uint8_t byte;
        std::uint32_t crc32;
        std::uint32_t crc16;
    };
    for (auto [byte, crc32, crc16] :
         {Entry{1, 0x77073096, 0x1021}, Entry{2, 0xEE0E612C, 0x2042}, Entry{255, 0x2D02EF8D, 0x1EF0}}) {
        EXPECT_EQ(lib().Crc32(&byte, 0, 1), crc32) << +byte;
        EXPECT_EQ(lib().Crc16(&byte, 0, 1), crc16) << +byte;
    }
    EXPECT_EQ(lib().Crc16("12", 0, 2), 0x2620B5u) << "kept: bits above the 16";
}

TEST(Crc, NothingToRunThrough) {
    for (std::uint32_t running : {0u, 1u, 0xFFFFu, 0x2620B5u, 0xFFFFFFFFu}) {
        EXPECT_EQ(lib().Crc32("x", running, 0), running);
        EXPECT_EQ(lib().Crc16("x", running, 0), running);
        EXPECT_EQ(lib().Crc32(nullptr, running, 5), running);
        EXPECT_EQ(lib().Crc16(nullptr, running, 5), running);
    }
}

// Both ways of Crc32 are compared in tests/seam/checksum_test.cpp; this is the way that the product takes here.
TEST(Crc, ChainedBlocksOfAllSizes) {
    std::mt19937 random(51);
    for (std::size_t size = 1; size <= 300; ++size) {
        Bytes bytes = randomBytes(random, size);
        auto start = static_cast<std::uint32_t>(random());
        std::size_t split = random() % (size + 1);
        auto first = static_cast<std::uint32_t>(split);
        auto second = static_cast<std::uint32_t>(size - split);
        std::uint32_t crc32 = lib().Crc32(bytes.data(), start, first);
        EXPECT_EQ(lib().Crc32(bytes.data() + split, crc32, second), crc32ByBits(bytes.data(), size, start)) << size;
        std::uint32_t crc16 = lib().Crc16(bytes.data(), start, first);
        crc16 = lib().Crc16(bytes.data() + split, crc16, second) & 0xFFFF;
        EXPECT_EQ(crc16, crc16ByBits(bytes.data(), size, start & 0xFFFF)) << size;
        // kept: above the 16 bits stands the upper half of the value before the last byte
        std::uint32_t before = crc16ByBits(bytes.data(), size - 1, start & 0xFFFF);
        EXPECT_EQ(lib().Crc16(bytes.data(), start, first + second), crc16 | before >> 8 << 16) << size;
    }
}

TEST(Sums, StatedValues) {
    struct Row {
        const char* text;
        std::uint32_t checkSum;
        std::uint32_t strSum;
    };
    for (auto [text, checkSum, strSum] :
         {Row{"A", 16896, 65}, Row{"AB", 51200, 131}, Row{"", 0, 0}, Row{nullptr, 0, 0}, Row{"\xFF", 0, 255},  // -1 + 1
          Row{"\x80", 0xFFFF8100u, 128},  // (-128 + 1) * 256
          Row{"\x01\xFE", 0, 255}}) {     // 2 * 1 + (-2 + 1) * 2
        EXPECT_EQ(lib().CheckSum(text), checkSum) << (text ? text : "NULL");
        EXPECT_EQ(lib().StrSum(text), strSum) << (text ? text : "NULL");
    }
}

TEST(Sums, LikePlainLoops) {
    std::mt19937 random(52);
    for (std::size_t size = 0; size <= 400; ++size) {
        // From 400 on, sums that pass 32 bits.
        std::string text(size < 400 ? size : 3 << 20, '\0');
        for (char& c : text) c = static_cast<char>(random() % 255 + 1);
        std::uint32_t checkSum = 0, strSum = 0, position = 0;
        for (char c : text) {
            checkSum += (static_cast<std::uint32_t>(static_cast<signed char>(c)) + 1) * ++position * 256;
            strSum += static_cast<std::uint8_t>(c);
        }
        EXPECT_EQ(lib().CheckSum(text.c_str()), checkSum) << size;
        EXPECT_EQ(lib().StrSum(text.c_str()), strSum) << size;
    }
}

TEST(Hash, StatedValues) {
    struct Row {
        const char* text;
        std::uint32_t size;
        std::uint32_t hash;
    };
    for (auto [text, size, hash] :
         {Row{"a", 16, 0}, Row{"ab", 16, 4}, Row{"ab", 256, 0xC4}, Row{"xb", 256, 0xC4}, Row{"", 16, 0},
          Row{nullptr, 16, 0}, Row{"ab", 1, 0}, Row{"abc", 1024, 0x14E}, Row{"abc", 10, 8}, Row{"ab", 0, 0xC4},
          Row{"a\x80", 0, 0xFFFFFF01u}}) {  // a size of 0 leaves all bits
        EXPECT_EQ(lib().StrHash(text, size), hash) << (text ? text : "NULL") << " " << size;
        EXPECT_EQ(lib().vbstrhash(text, size | 0x10000), hash) << (text ? text : "NULL") << " " << size;
    }
    EXPECT_EQ(lib().vbstrhash("ab", 0x10010), 4u);
    EXPECT_EQ(lib().vbstrhash("a\x80", 0x10010), 1u);
    EXPECT_EQ(lib().StrHash("a\x80", 0x10010), 0x10001u) << "all bits of the size count here";
}

TEST(Hash, OfBlocks) {
    std::mt19937 random(53);
    for (std::size_t count = 0; count <= 100; ++count) {
        Bytes bytes = randomBytes(random, count + 1);
        std::uint32_t hash = 0;
        for (std::size_t i = 1; i <= count; ++i) {
            hash = (hash << 1 | hash >> 31) ^ static_cast<std::uint32_t>(static_cast<signed char>(bytes[i]));
        }
        auto number = static_cast<std::int32_t>(count);
        for (std::uint32_t size : {1u, 16u, 1024u, 0x80000000u, 0u}) {
            EXPECT_EQ(lib().blobhash(bytes.data(), number, size), hash & (size - 1)) << count << " " << size;
        }
        EXPECT_EQ(lib().blobhash(bytes.data(), -number, 16), 0u);
    }
    EXPECT_EQ(lib().blobhash(nullptr, 5, 16), 0u);
    EXPECT_EQ(lib().blobhash("x", std::numeric_limits<std::int32_t>::min(), 16), 0u);
}

}  // namespace
}  // namespace vx::test
