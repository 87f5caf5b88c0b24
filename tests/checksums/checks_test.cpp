// Sums, hashes, the cipher of texts, and copies against plain loops.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

// The first character does not count.
std::uint32_t hashOf(const std::string& text) {
    std::uint32_t hash = 0;
    for (std::size_t i = 1; i < text.size(); ++i)
        hash = (hash << 1 | hash >> 31) ^ static_cast<std::uint32_t>(static_cast<signed char>(text[i]));
    return hash;
}

TEST(Checks, SumsAndHashes) {
    std::mt19937 random(52);
    for (std::size_t size = 0; size <= 400; ++size) {
        std::string text(size < 400 ? size : 3 << 20, '\0');  // the last has sums that pass 32 bits
        for (char& c : text) c = static_cast<char>(random() % 255 + 1);
        std::uint32_t checkSum = 0, strSum = 0, position = 0;
        for (char c : text) {
            checkSum += (static_cast<std::uint32_t>(static_cast<signed char>(c)) + 1) * ++position * 256;
            strSum += static_cast<std::uint8_t>(c);
        }
        EXPECT_EQ(lib().CheckSum(text.c_str()), checkSum) << size;
        EXPECT_EQ(lib().StrSum(text.c_str()), strSum) << size;
        // The byte behind the counted ones takes part, in a text its terminator.
        auto before = static_cast<std::int32_t>(text.size()) - 1;
        for (std::uint32_t table : {0u, 1u, 1024u, 0x80000000u}) {
            EXPECT_EQ(lib().StrHash(text.c_str(), table), hashOf(text + '\0') & (table - 1)) << size << " " << table;
            EXPECT_EQ(lib().blobhash(text.data(), before, table), hashOf(text) & (table - 1)) << size << " " << table;
        }
    }
}

TEST(Checks, TextCipher) {
    std::string allBits;
    for (int c = 1; c < 0x100; ++c) allBits += static_cast<char>(c);
    RandomTexts random(55);
    for (int i = 0; i < 4000; ++i) {
        std::string key = "x" + random.text(allBits, random.oneIn(4) ? 300 : 40);
        std::string plain = random.text(allBits.substr(0, random.oneIn(4) ? 255 : 127), 500), expected = plain;
        for (std::size_t k = 0; k < plain.size(); ++k)
            expected[k] = static_cast<char>(plain[k] ^ (key[k % std::min<std::size_t>(key.size(), 255)] | 0x80));
        Edit text(plain);
        // kept: a character that becomes the terminator shortens the text, and the key goes on with those behind it.
        EXPECT_EQ(lib().StrEncrypt(text, key.c_str(), text), std::strlen(expected.c_str())) << plain << " by " << key;
        ASSERT_EQ(std::string(text, plain.size()), expected) << plain << " by " << key;
        if (expected.find('\0') != expected.npos) continue;
        EXPECT_EQ(lib().StrDecrypt(text, key.c_str(), nullptr), 0u);
        ASSERT_EQ(text.text(), plain) << "by " << key;
    }
}

// kept: MemCopy goes byte by byte from the front, whatever overlaps; a piece that blobcopy moves keeps its bytes.
TEST(Checks, CopiesInsideABlock) {
    for (std::size_t count : {0u, 1u, 2u, 7u, 8u, 9u, 15u, 16u, 17u, 31u, 33u, 64u, 100u, 1000u}) {
        for (std::size_t from = 40, to = 0; to <= 80; ++to) {
            std::string block(count + 80, '\0');
            for (std::size_t i = 0; i < block.size(); ++i) block[i] = static_cast<char>(i * 31 % 251);
            std::string moved = block, forward = block, kept = block;
            for (std::size_t i = 0; i < count; ++i) forward[to + i] = forward[from + i];
            kept.replace(to, count, block, from, count);
            auto size = static_cast<std::int32_t>(count);
            EXPECT_EQ(lib().MemCopy(&block[to], &block[from], size), &block[to]);
            ASSERT_EQ(block, forward) << count << " bytes from " << from << " to " << to;
            EXPECT_EQ(lib().blobcopy(moved.data(), 40, &moved[to], 0, size), &moved[to] + size);
            ASSERT_EQ(moved, kept) << count << " bytes from " << from << " to " << to;
        }
    }
}

}  // namespace
}  // namespace vx::test
