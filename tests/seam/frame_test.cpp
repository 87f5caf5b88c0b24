// Attach and detach, against a made-up platform.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/seam/seam.h"

namespace vx::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

// They change the one state that all share: it is put back afterwards.
class Loading : public testing::Test {
 protected:
    void TearDown() override {
        std::ranges::copy(upper, state.upper);
        std::ranges::copy(lower, state.lower);
        std::ranges::copy(collate, state.collate);
        std::ranges::fill(state.handles, kNoHandle);
    }

    static Bytes bytesOf(const std::uint8_t (&table)[256]) { return {std::begin(table), std::end(table)}; }

    lab::FakePlatform fake{door()};
    Library& state = *door()->library;
    const Bytes upper = bytesOf(state.upper), lower = bytesOf(state.lower), collate = bytesOf(state.collate);
};

TEST_F(Loading, TakesTablesPathAndEmptyHandleTable) {
    std::ranges::fill(state.handles, 5);
    fake.process.path = std::string(400, 'p');
    door()->attach(nullptr);
    EXPECT_EQ(std::ranges::count(state.handles, kNoHandle), kHandleSlots);
    EXPECT_EQ(std::string(state.programPath), std::string(kPathRoom - 1, 'p'));
    for (int c = 0; c < 256; ++c) {
        EXPECT_EQ(state.upper[c], static_cast<std::uint8_t>(c ? c + 1 : 0)) << c << ": NUL has no case";
        EXPECT_EQ(state.lower[c], static_cast<std::uint8_t>(c ? c - 1 : 0)) << c;
        EXPECT_EQ(state.collate[c], static_cast<std::uint8_t>(c + 2)) << c;
    }
}

TEST_F(Loading, KeepsBuiltInTablesWhenTheSystemFallsShort) {
    fake.locale.works = false;
    door()->attach(nullptr);
    EXPECT_EQ(bytesOf(state.upper), upper);
    EXPECT_EQ(bytesOf(state.lower), lower);
    EXPECT_EQ(bytesOf(state.collate), collate);
}

TEST_F(Loading, DetachClosesWhatIsStillOpen) {
    fake.disk.put("C:\\open");
    std::vector<std::int32_t> opened;
    for (int slot : {0, 500, 1023}) opened.push_back(state.handles[slot] = fake.disk.open("C:\\open", platform::kRead));
    fake.disk.unclosable = {opened[1]};
    door()->detach();
    EXPECT_EQ(fake.disk.closed, opened);
    // kept: only the slot whose close failed is cleared
    EXPECT_EQ(state.handles[0], opened[0]);
    EXPECT_EQ(state.handles[500], kNoHandle);
    EXPECT_EQ(state.handles[1023], opened[2]);
}

}  // namespace
}  // namespace vx::test
