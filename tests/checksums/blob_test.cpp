// Values in and out of blocks, and the copies.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

std::string contents(Dest& block, std::size_t size) { return {block.get(), size}; }

TEST(Blob, Numbers) {
    std::string zeros(9, '\0');
    char* b = zeros.data();
    EXPECT_EQ(lib()._int2blob(b, 3, 0x11223344), 0);
    EXPECT_EQ(zeros, std::string("\0\0\0\x44\x33\x22\x11\0\0", 9));
    EXPECT_EQ(lib()._blob2int(b, 3), 0x11223344);
    EXPECT_EQ(lib()._blob2byte(b, 6), 0x11);
    EXPECT_EQ(lib()._byte2blob(b, 0, 200), 0);
    EXPECT_EQ(lib()._blob2byte(b, 0), -56);
    EXPECT_EQ(lib()._byte2blob(b, 0, 0x17F), -56) << "the low byte is stored, the old one comes back signed";
    EXPECT_EQ(lib()._blob2byte(b, 0), 127);

    for (std::int32_t offset = 0; offset <= 5; ++offset) {
        for (std::int32_t value : {0, 1, -1, kLeast, kMost, 0x01020304}) {
            Dest block(static_cast<std::size_t>(offset) + 4);
            std::memset(block, 0, static_cast<std::size_t>(offset) + 4);
            EXPECT_EQ(lib()._int2blob(block, offset, value), 0);
            EXPECT_EQ(lib()._blob2long(block, offset), value);
            EXPECT_EQ(lib()._long2blob(block, offset, ~value), value) << "the old value comes back";
            EXPECT_EQ(lib()._blob2int(block, offset), ~value);
            for (int i = 0; i < 4; ++i) {
                EXPECT_EQ(lib()._blob2byte(block, offset + i), static_cast<std::int8_t>(~value >> 8 * i));
            }
        }
    }
    EXPECT_EQ(lib()._int2blob(b + 9, -6, -2), 0x11223344) << "in front of the pointer";
    EXPECT_EQ(lib()._blob2long(b + 5, -2), -2);
    EXPECT_EQ(lib()._byte2blob(b + 8, -8, 1), 127);
    EXPECT_EQ(lib()._blob2byte(b + 1, -1), 1);
    EXPECT_EQ(lib()._byte2blob(nullptr, 1, 2) | lib()._int2blob(nullptr, 1, 2) | lib()._long2blob(nullptr, 1, 2), 0);
    EXPECT_EQ(lib()._blob2byte(nullptr, 1) | lib()._blob2int(nullptr, 1) | lib()._blob2long(nullptr, 1), 0);
}

TEST(Blob, TextFields) {
    struct Row {
        std::int32_t offset;
        std::int32_t length;
        const char* text;
        std::string block;  // all of it, from memory full of '~'
    };
    const Row rows[] = {
        {0, 4, "abcdef", std::string("abcd\0", 5)},  // kept: the terminator lies behind a full field
        {0, 8, "ab", std::string("ab\0\0\0\0\0\0", 8)},
        {2, 3, "abc", std::string("~~abc\0", 6)},
        {2, 3, "ab", std::string("~~ab\0", 5)},
        {1, 2, nullptr, std::string("~\0\0", 3)},
        {1, 0, "ab", std::string("~\0", 2)},
        {0, 0, "", std::string("\0", 1)},
        {1, -5, "ab", std::string("~\0", 2)},
        {-3, kLeast, "ab", std::string("\0", 1)},
        {-3, 2, "ab", std::string("ab\0", 3)},
    };
    for (const Row& row : rows) {
        Dest block(row.block.size());
        char* blob = block.get() + std::max(-row.offset, 0);
        EXPECT_EQ(lib()._str2blob(blob, row.offset, row.length, row.text), blob);
        EXPECT_EQ(contents(block, row.block.size()), row.block) << row.offset << " " << row.length;
    }
    EXPECT_EQ(lib()._str2blob(nullptr, 0, 4, "ab"), nullptr);
}

TEST(Blob, TextsTakenOut) {
    const std::string blob("ab\0cde", 6);
    struct Row {
        std::int32_t offset;
        std::int32_t count;
        std::string taken;
    };
    for (const Row& row : {Row{0, 6, blob}, Row{3, 3, "cde"}, Row{1, 0, ""}, Row{1, -1, ""}, Row{-1, 2, "ab"},
                           Row{-6, kLeast, ""}, Row{2, 2, std::string("\0c", 2)}}) {
        Dest dest(row.taken.size() + 1);
        EXPECT_EQ(lib()._blob2str(blob.data() + std::max(-row.offset, 0), row.offset, row.count, dest), dest.get());
        EXPECT_EQ(contents(dest, row.taken.size() + 1), row.taken + '\0') << row.offset << " " << row.count;
        EXPECT_EQ(lib().strblob2str(blob.data() + std::max(-row.offset, 0), row.offset, row.count, dest),
                  std::strlen(row.taken.c_str()));
    }
    Dest untouched(6);
    EXPECT_STREQ(lib()._blob2str(nullptr, 0, 5, untouched), "");
    EXPECT_EQ(lib().strblob2str(nullptr, 0, 5, untouched), 0u);
    EXPECT_EQ(untouched.text(), "~~~~~~");
    EXPECT_STREQ(lib()._blob2str(nullptr, 0, 5, nullptr), "");
    EXPECT_EQ(lib()._blob2str("abc", 0, 2, nullptr), nullptr);
    EXPECT_EQ(lib().strblob2str("abc", 0, 2, nullptr), 0u);
}

TEST(Blob, Copies) {
    Dest dest(13);
    EXPECT_EQ(lib().blobcopy("abcde", 2, dest, 10, 3), dest.get() + 13);
    EXPECT_EQ(contents(dest, 13), "~~~~~~~~~~cde");
    EXPECT_EQ(lib().blobcopy(&"abcde"[3], -3, dest.get() + 10, -10, 3), dest.get() + 3);
    EXPECT_EQ(lib().blobcopy("xyz", 1, dest, 3, -1), dest.get() + 3);
    EXPECT_EQ(contents(dest, 13), "abc~~~~~~~cde");
    EXPECT_EQ(lib().blobcopy(nullptr, 1, dest, 3, 2), dest.get());
    EXPECT_EQ(lib().blobcopy("x", 1, nullptr, 3, 2), nullptr);
    EXPECT_EQ(lib().blobcopy(dest, 0, dest, 1, 3), dest.get() + 4);
    EXPECT_EQ(contents(dest, 5), "aabc~") << "an overlapping piece keeps its bytes";

    EXPECT_EQ(lib().MemCopy(nullptr, "x", 1), nullptr);
    EXPECT_EQ(lib().MemCopy(dest, nullptr, 1), dest.get());
    EXPECT_EQ(lib().MemCopy(dest, "x", -1), dest.get());
    EXPECT_EQ(lib().MemCopy(dest, "x", kLeast), dest.get());
    EXPECT_EQ(contents(dest, 5), "aabc~");
}

// kept: byte by byte from the front, whatever overlaps.
TEST(Blob, MemCopyRunsForward) {
    std::string bytes("\1\2\3\4\5", 5);
    EXPECT_EQ(lib().MemCopy(bytes.data() + 1, bytes.data(), 4), bytes.data() + 1);
    EXPECT_EQ(bytes, "\1\1\1\1\1");
    for (std::size_t count : {0u, 1u, 2u, 7u, 8u, 9u, 15u, 16u, 17u, 31u, 33u, 64u, 100u, 1000u}) {
        for (std::size_t to = 0; to <= 80; ++to) {
            constexpr std::size_t from = 40;
            std::string expected(count + 80, '\0');
            for (std::size_t i = 0; i < expected.size(); ++i) expected[i] = static_cast<char>(i * 31 % 251);
            std::string block = expected;
            for (std::size_t i = 0; i < count; ++i) expected[to + i] = expected[from + i];
            char* dest = block.data() + to;
            EXPECT_EQ(lib().MemCopy(dest, block.data() + from, static_cast<std::int32_t>(count)), dest);
            ASSERT_EQ(block, expected) << count << " bytes from " << from << " to " << to;
        }
    }
}

}  // namespace
}  // namespace vx::test
