// Lines on a made-up disk: positioned reads lose the position there, and every call can fail.
#include <functional>

#include "tests/files/line_walk.h"
#include "tests/seam/seam.h"

namespace vx::test {
namespace {

constexpr std::uint32_t kReason = 1117;

class LinesSeam : public testing::Test {
 protected:
    void TearDown() override {
        std::fill(std::begin(door()->library->handles), std::end(door()->library->handles), -1);
    }

    std::int32_t opened(const std::string& data) {
        fake.disk.put("C:\\f", data);
        return lib().FOpen("C:\\f", 2);
    }

    lab::FakePlatform fake{door()};
};

TEST_F(LinesSeam, RandomWalks) {
    fake.locale.works = false;  // leaves the mapping to the library's tables
    for (unsigned seed = 101; seed <= 115; ++seed) {
        RandomTexts random(seed);
        const std::string data = randomLines(random, random.number(0, 40));
        walkLines(opened(data), data, seed, 120);
    }
}

TEST_F(LinesSeam, TheSystemMapsTheCase) {
    const std::int32_t handle = opened("HAL-IBM");
    for (bool pairs : {false, true}) {
        fake.locale.leadBytes = pairs ? "\x81" : "";
        EXPECT_EQ(lib().FLocate(handle, "IBM", 1), 0) << "each character becomes the next one";
        EXPECT_EQ(lib().FStrCount(handle, "HAL", 2), 1) << "and here the one before";
        EXPECT_EQ(lib().FLocate(handle, "HAL", 2), 4);
        lib().FTop(handle);
    }
}

// Each call of the disk fails in turn, or falls short; what was asked comes back, or the failure with its reason.
TEST_F(LinesSeam, FailuresShowInTheResult) {
    const std::string data = "first\nsecond\r\n" + std::string(5000, 'x') + "\nneedle\nlast";
    const std::int32_t start = 8;
    struct Row {
        const char* what;
        std::function<std::int32_t(std::int32_t)> call;
        std::vector<std::int32_t> others;  // what else it may give
        bool stays;                        // the position, as long as it can be put back
    };
    const auto size = static_cast<std::int32_t>(data.size());
    const Row rows[] = {
        {"FAdvance", [](std::int32_t h) { return lib().FAdvance(h); }, {start}, false},
        {"FBol", [](std::int32_t h) { return lib().FBol(h); }, {}, false},
        {"FRewind", [](std::int32_t h) { return lib().FRewind(h); }, {}, false},
        {"FTop", [](std::int32_t h) { return lib().FTop(h) - 1; }, {}, false},
        {"FBot", [](std::int32_t h) { return lib().FBot(h) - 1; }, {}, false},
        {"FSeekLine 0", [](std::int32_t h) { return lib().FSeekLine(h, 4, 0); }, {0}, false},
        {"FSeekLine 1", [](std::int32_t h) { return lib().FSeekLine(h, 2, 1); }, {6}, false},
        {"FSeekLine -1", [](std::int32_t h) { return lib().FSeekLine(h, -1, 1); }, {}, false},
        {"FSeekLine 2", [](std::int32_t h) { return lib().FSeekLine(h, 2, 2); }, {}, false},
        {"FLineCount", [](std::int32_t h) { return lib().FLineCount(h); }, {}, true},
        {"FLocate", [](std::int32_t h) { return lib().FLocate(h, "needle", 0); }, {}, false},
        {"FLocate none", [](std::int32_t h) { return lib().FLocate(h, "needles", 0); }, {}, false},
        {"FStrCount", [](std::int32_t h) { return lib().FStrCount(h, "s", 0); }, {}, true},
    };
    for (const Row& row : rows) {
        const std::int32_t whole = opened(data);
        lib().FSeek(whole, start, 0);
        const int before = fake.disk.calls;
        const std::int32_t right = row.call(whole);
        const int all = fake.disk.calls - before;
        for (int at = 1; at <= all; ++at) {
            for (bool fallsShort : {false, true}) {
                SCOPED_TRACE(std::string(row.what) + ", call " + std::to_string(at) + (fallsShort ? " short" : ""));
                const std::int32_t handle = opened(data);
                lib().FSeek(handle, start, 0);
                fake.process.error = 0;
                fake.disk.fault = {.atCall = fake.disk.calls + at, .fallsShort = fallsShort, .code = kReason};
                const std::int32_t result = row.call(handle);
                const std::uint32_t reason = fake.process.error;
                const bool reached = fake.disk.calls >= fake.disk.fault.atCall;
                fake.disk.fault = {};
                ASSERT_TRUE(reached);
                if (result != right && result != -1 && !fallsShort) {
                    EXPECT_NE(std::find(row.others.begin(), row.others.end(), result), row.others.end()) << result;
                }
                if (result != right) {
                    EXPECT_EQ(reason, kReason);
                }
                if (row.stays && at < all) {
                    EXPECT_EQ(lib().FTell(handle), start);
                }
                EXPECT_LE(lib().FTell(handle), size);
            }
        }
    }
}

TEST_F(LinesSeam, FilesThatShrinkOrCannotBeRead) {
    const std::int32_t handle = opened(std::string(50000, 'x') + "y");
    lib().FSeek(handle, 10, 0);
    fake.disk.fault = {.atCall = fake.disk.calls + 4, .fallsShort = true};  // position, size, a block, a block
    EXPECT_EQ(lib().FLocate(handle, "y", 0), -1);
    fake.disk.fault = {};
    EXPECT_EQ(lib().FTell(handle), 10 + 8192 + 16384) << "where the read ended";
    const std::int32_t unreadable = lib().FOpen("C:\\f", 1);
    EXPECT_EQ(lib().FLineCount(unreadable), -1);
    EXPECT_EQ(lib().FBol((lib().FSeek(unreadable, 5, 0), unreadable)), -1);
    EXPECT_EQ(lib().FTell(unreadable), 5);
    EXPECT_EQ(lib().FStrCount(unreadable, "y", 0), -1);
    EXPECT_EQ(fake.process.error, platform::kAccessDenied);
    EXPECT_EQ(lib().FSeekLine(unreadable, 2000000000, 0), 0) << "and soon";
}

}  // namespace
}  // namespace vx::test
