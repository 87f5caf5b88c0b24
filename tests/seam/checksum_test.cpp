// CRCs beside the same bit by bit; Crc32 by folding and by tables, whichever the processor would choose.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "tests/seam/seam.h"

namespace vx::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::uint32_t crc32ByBits(const Bytes& bytes, std::uint32_t running) {
    for (std::size_t i = 0; i < 8 * bytes.size(); ++i)
        running = running >> 1 ^ ((running ^ bytes[i / 8] >> i % 8) & 1 ? 0xEDB88320 : 0);
    return running;
}

std::uint32_t crc16ByBits(const Bytes& bytes, std::uint32_t running) {
    for (std::size_t i = 0; i < 8 * bytes.size(); ++i)
        running = (running << 1 & 0xFFFF) ^ ((running >> 15 ^ bytes[i / 8] >> (7 - i % 8)) & 1 ? 0x1021 : 0);
    return running;
}

class Crcs : public testing::TestWithParam<bool> {
 protected:
    void TearDown() override { *door()->foldsCrc32 = own; }
    bool own = *door()->foldsCrc32;
};

TEST_P(Crcs, AllSizesAtAllAlignments) {
    if (GetParam() && !own) GTEST_SKIP() << "this processor has no carry-less multiplication";
    *door()->foldsCrc32 = GetParam();
    std::mt19937 random(54);
    for (std::uint32_t round = 0; round < 16 * 300; ++round) {
        std::size_t shift = round % 16;
        std::uint32_t size = round == 0 ? 100000 : round / 16 + 1, start = static_cast<std::uint32_t>(random());
        Bytes memory(shift + size);  // the block ends where its memory ends
        for (std::uint8_t& byte : memory) byte = static_cast<std::uint8_t>(random());
        Bytes block(memory.begin() + static_cast<std::ptrdiff_t>(shift), memory.end());
        ASSERT_EQ(lib().Crc32(&memory[shift], start, size), crc32ByBits(block, start)) << size << ", " << shift;
        std::uint32_t crc16 = crc16ByBits(block, start & 0xFFFF);
        block.pop_back();
        crc16 |= crc16ByBits(block, start & 0xFFFF) >> 8 << 16;
        ASSERT_EQ(lib().Crc16(&memory[shift], start, size), crc16) << size << ", " << shift;
    }
}

INSTANTIATE_TEST_SUITE_P(Both, Crcs, testing::Bool());

}  // namespace
}  // namespace vx::test
