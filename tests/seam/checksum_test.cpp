// Crc32 by folding and by tables: the same values, whichever the processor would choose.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/checksums/crc_models.h"
#include "tests/seam/seam.h"

namespace vx::test {
namespace {

class Crc32Ways : public testing::TestWithParam<bool> {
 protected:
    void SetUp() override {
        own = *door()->foldsCrc32;
        if (GetParam() && !own) GTEST_SKIP() << "this processor has no carry-less multiplication";
        *door()->foldsCrc32 = GetParam();
    }
    void TearDown() override { *door()->foldsCrc32 = own; }

    std::uint32_t crc32(const std::uint8_t* bytes, std::size_t size, std::uint32_t running) {
        return lib().Crc32(bytes, running, static_cast<std::uint32_t>(size));
    }

    bool own = false;
    std::mt19937 random{54};
};

TEST_P(Crc32Ways, AllSizesAtAllAlignments) {
    for (std::size_t shift = 0; shift < 16; ++shift) {
        for (std::size_t size = 0; size <= 300; ++size) {
            Bytes bytes = randomBytes(random, shift + size);  // ends where its memory ends
            auto start = static_cast<std::uint32_t>(random());
            ASSERT_EQ(crc32(bytes.data() + shift, size, start), crc32ByBits(bytes.data() + shift, size, start))
                << size << " bytes, shifted by " << shift;
        }
    }
}

TEST_P(Crc32Ways, ChainsSplitAnywhere) {
    Bytes bytes = randomBytes(random, 100000);
    std::uint32_t expected = crc32ByBits(bytes.data(), bytes.size(), 0xFFFFFFFF);
    EXPECT_EQ(crc32(bytes.data(), bytes.size(), 0xFFFFFFFF), expected);
    for (std::size_t longest : {3u, 64u, 200u, 5000u}) {
        std::uint32_t running = 0xFFFFFFFF;
        for (std::size_t at = 0; at < bytes.size();) {
            std::size_t piece = std::min<std::size_t>(random() % (longest + 1), bytes.size() - at);
            running = crc32(bytes.data() + at, piece, running);
            at += piece;
        }
        EXPECT_EQ(running, expected) << "pieces of at most " << longest;
    }
}

INSTANTIATE_TEST_SUITE_P(Both, Crc32Ways, testing::Bool(),
                         [](const auto& info) { return info.param ? "Folding" : "Tables"; });

}  // namespace
}  // namespace vx::test
