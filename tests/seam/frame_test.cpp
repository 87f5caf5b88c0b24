// Attach, against a made-up platform.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/seam/seam.h"

namespace vx::test {
namespace {

// They change the one state that all share: it is put back afterwards.
class Loading : public testing::Test {
 protected:
    void TearDown() override {
        for (std::size_t i = 0; i < 3; ++i) std::memcpy(tables[i], &before[i * 256], 256);
    }
    std::string content() const {
        std::string all;
        for (const std::uint8_t* table : tables) all.append(table, table + 256);
        return all;
    }

    lab::FakePlatform fake{door()};
    Library& state = *door()->library;
    std::uint8_t* const tables[3] = {state.upper, state.lower, state.collate};
    const std::string before = content();
};

TEST_F(Loading, TakesTablesPathAndEmptyHandleTable) {
    std::ranges::fill(state.handles, 5);
    fake.process.path = std::string(400, 'p');
    door()->attach();
    EXPECT_EQ(std::ranges::count(state.handles, kNoHandle), kHandleSlots);
    EXPECT_EQ(std::string(state.programPath), std::string(sizeof state.programPath - 1, 'p'));
    for (int c = 0; c < 256; ++c) {
        EXPECT_EQ(state.upper[c], static_cast<std::uint8_t>(c ? c + 1 : 0)) << c << ": NUL has no case";
        EXPECT_EQ(state.lower[c], static_cast<std::uint8_t>(c ? c - 1 : 0)) << c;
        EXPECT_EQ(state.collate[c], static_cast<std::uint8_t>(c + 2)) << c;
    }
}

TEST_F(Loading, KeepsBuiltInTablesWhenTheSystemFallsShort) {
    fake.locale.works = false;
    door()->attach();
    EXPECT_EQ(content(), before);
}

}  // namespace
}  // namespace vx::test
