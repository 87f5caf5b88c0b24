// Lines on a made-up disk, where positioned reads lose the position: gone over at random beside a plain model that
// reads byte by byte. And every call of the disk for a handle fails.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <functional>
#include <string>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

constexpr std::uint32_t kReason = 1117;

// The lines of a file as a text and a position: each call as it is told, one step after the other.
struct ModelLines {
    std::string data;
    std::int32_t at = 0;

    std::int32_t size() const { return static_cast<std::int32_t>(data.size()); }
    std::string read(std::int32_t count) {
        if (at >= size()) return "";
        std::string got = data.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(count));
        at += static_cast<std::int32_t>(got.size());
        return got;
    }
    std::string readLine() {
        const std::int32_t start = at;
        std::string line = read(2048);
        const std::size_t feed = line.find('\n');
        if (feed == line.npos) return line;
        at = start + static_cast<std::int32_t>(feed) + 1;
        line.resize(feed >= 2 && line[feed - 1] == '\r' ? feed - 1 : feed);
        return line;
    }
    std::int32_t advance() { return readLine(), at; }
    std::int32_t lineStart() {
        const std::int32_t from = at - std::min(at, 2048);
        const std::int32_t count = std::exchange(at, from) - from;
        const std::size_t feed = read(count).rfind('\n');
        return feed == std::string::npos ? from : at = from + static_cast<std::int32_t>(feed) + 1;
    }
    std::int32_t rewind() {
        lineStart();
        if (at < 2) return -1;
        at -= 2;
        return lineStart();
    }
    std::int32_t back(std::int64_t lines, std::int32_t result) {
        while (lines-- > 0 && (result = rewind()) > 0) {
        }
        return result;
    }
    std::int32_t seekLine(std::int32_t n, std::int32_t origin) {
        if (origin < 0 || origin > 2) return at;
        if (origin == 2) {
            at = size();
            return n == 0 ? 1 : back(std::abs(n) - 1, lineStart());
        }
        std::int32_t result = origin == 0 ? at = 0 : lineStart();
        for (std::int32_t left = origin == 0 ? n - 1 : n; left > 0 && (origin == 1 || result < size()); --left) {
            if ((result = advance()) >= size()) break;
        }
        return origin == 1 && n < 0 ? back(-n, result) : result;
    }
    std::int32_t lineCount() const {
        ModelLines rest{data, at};
        std::int32_t count = 0;
        for (; rest.at < rest.size(); ++count) rest.readLine();
        return count;
    }
    std::int32_t locate(const std::string& text, std::int32_t mode) {
        std::string folded = data;
        for (char& c : folded) {
            if (mode == 1 && c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
            if (mode != 0 && mode != 1 && c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
        }
        const std::size_t found =
            text.empty() || at >= size() ? data.npos : folded.find(text, static_cast<std::size_t>(at));
        return found == data.npos ? -2 : at = static_cast<std::int32_t>(found);
    }
    std::int32_t count(const std::string& text, std::int32_t mode) const {
        ModelLines rest{data, at};
        std::int32_t count = 0;
        for (; rest.locate(text, mode) >= 0; ++count) rest.at += static_cast<std::int32_t>(text.size());
        return text.empty() ? -1 : count;
    }
};

// Lines around the greatest length and short ones, with all kinds of ends.
std::string randomLines(RandomTexts& random, int lines) {
    static constexpr int kSizes[] = {0, 0, 1, 2, 3, 30, 100, 1023, 1024, 2046, 2047, 2048, 2049, 4095, 4096, 5000};
    static const std::string kEnds[] = {"\n", "\r\n", "\n", "\n", "\r"};
    std::string all;
    for (; lines > 0; --lines) {
        std::string piece = random.text("abAB \r", 12) + "x";
        for (int size = kSizes[random.number(0, 15)]; size > 0; size -= static_cast<int>(piece.size())) {
            all += piece.substr(0, static_cast<std::size_t>(size));
        }
        all += kEnds[random.number(0, 4)];
    }
    return all + (random.number(0, 1) ? "\xFFlast" : "");
}

class LinesSeam : public testing::Test {
 protected:
    std::int32_t opened(const std::string& data) {
        fake.disk.put("C:\\f", data);
        return lib().FOpen("C:\\f", 2);
    }

    lab::FakePlatform fake{door()};
};

TEST_F(LinesSeam, RandomWalks) {
    fake.locale.works = false;  // leaves the mapping to the library's tables
    auto& f = lib();
    for (unsigned seed = 1; seed <= 27; ++seed) {
        RandomTexts random(seed);
        ModelLines model{randomLines(random, random.number(0, 40))};
        const std::int32_t handle = opened(model.data);
        const std::function<void()> steps[] = {
            [&] {
                Dest dest(2049);
                EXPECT_EQ(f.FReadLine(handle, dest), model.readLine());
            },
            [&] { EXPECT_EQ(f.FAdvance(handle), model.advance()); },
            [&] { EXPECT_EQ(f.FBol(handle), model.lineStart()); },
            [&] { EXPECT_EQ(f.FRewind(handle), model.rewind()); },
            [&] { EXPECT_EQ(f.FTop(handle), (model.at = 0, 1)); },
            [&] { EXPECT_EQ(f.FBot(handle), (model.at = model.size(), 1)); },
            [&] {
                const std::int32_t n = random.number(-12, 12) * (random.number(0, 9) ? 1 : 1000);
                const std::int32_t origin = random.number(-1, 3);
                EXPECT_EQ(f.FSeekLine(handle, n, origin), model.seekLine(n, origin)) << n << ", " << origin;
            },
            [&] { EXPECT_EQ(f.FLineCount(handle), model.lineCount()); },
            [&] {
                std::string text = random.text("abAB1x\n", 4);
                const std::int32_t mode = random.number(-1, 2);
                if (random.number(0, 2) == 0) text = model.data.substr(model.data.size() / 2, 300);
                EXPECT_EQ(f.FStrCount(handle, text.c_str(), mode), model.count(text, mode)) << text << mode;
                EXPECT_EQ(f.FTell(handle), model.at);
                EXPECT_EQ(f.FLocate(handle, text.c_str(), mode), model.locate(text, mode)) << text << mode;
            },
            [&] { f.FSeek(handle, model.at = random.number(0, model.size()), 0); },
            [&] { f.FSeek(handle, model.at = random.number(0, model.size() + 3000), 0); },
        };
        for (int i = 0; i < 120 && !HasFailure(); ++i) {
            const int step = random.number(0, static_cast<int>(std::size(steps)) - 1);
            SCOPED_TRACE(testing::Message()
                         << "seed " << seed << ", step " << i << ", kind " << step << " at " << model.at);
            steps[step]();
            EXPECT_EQ(f.FTell(handle), model.at);
        }
    }
}

// A text or a line feed at each place around the seams of the blocks in which a file is read.
TEST_F(LinesSeam, AcrossTheSeams) {
    const std::size_t size = 600000;
    std::string plain(size, '-');
    for (std::size_t i = 1999; i < size; i += 2000) plain[i] = '\n';
    for (std::size_t at : {8191, 8192, 40959, 40960, 172030, 172031, 172032, 172033, 303103, 303104, 567299, 567300}) {
        for (std::size_t length : {1u, 2u, 3u, 32700u}) {
            const std::size_t start = at - std::min(at, length / 2);
            if (start + length > size) continue;
            const std::string part(length, 'q');
            ModelLines model{plain};
            model.data.replace(start, length, part);
            const std::int32_t handle = opened(model.data);
            EXPECT_EQ(lib().FStrCount(handle, part.c_str(), 0), 1) << start << ", " << length;
            EXPECT_EQ(lib().FLineCount(handle), model.lineCount()) << start << ", " << length;
            EXPECT_EQ(lib().FSeekLine(handle, INT_MAX, 0), static_cast<std::int32_t>(size));
            lib().FTop(handle);
            EXPECT_EQ(lib().FLocate(handle, part.c_str(), 0), static_cast<std::int32_t>(start));
            lib().FClose(handle);
        }
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
    auto& f = lib();
    Dest dest(9);
    int made = 0;
    struct Row {
        const char* what;
        std::function<std::int32_t(std::int32_t)> call;
        std::int32_t failed = -1;     // by its first call
        std::int32_t other = failed;  // by a later one
        bool stays = false;           // the position, as long as it can be put back
    };
    const Row rows[] = {
        {"FAdvance", [&](std::int32_t h) { return f.FAdvance(h); }, start, -1},
        {"FBol", [&](std::int32_t h) { return f.FBol(h); }},
        {"FRewind", [&](std::int32_t h) { return f.FRewind(h); }},
        {"FTop", [&](std::int32_t h) { return f.FTop(h); }, 0},
        {"FBot", [&](std::int32_t h) { return f.FBot(h); }, 0},
        {"FSeekLine 0", [&](std::int32_t h) { return f.FSeekLine(h, 4, 0); }, -1, 0},
        {"FSeekLine 1", [&](std::int32_t h) { return f.FSeekLine(h, 2, 1); }, -1, 6},
        {"FSeekLine -1", [&](std::int32_t h) { return f.FSeekLine(h, -1, 1); }},
        {"FSeekLine 2", [&](std::int32_t h) { return f.FSeekLine(h, 2, 2); }},
        {"FLineCount", [&](std::int32_t h) { return f.FLineCount(h); }, -1, -1, true},
        {"FLocate", [&](std::int32_t h) { return f.FLocate(h, "needle", 0); }},
        {"FLocate none", [&](std::int32_t h) { return f.FLocate(h, "needles", 0); }},
        {"FStrCount", [&](std::int32_t h) { return f.FStrCount(h, "s", 0); }, -1, -1, true},
        {"FOpen", [&](std::int32_t) { return std::min(f.FOpen("C:\\f", 0), 1); }},
        {"FCreatef", [&](std::int32_t) { return std::min(f.FCreatef(std::to_string(++made).c_str(), 0), 1); }},
        {"FClose", [&](std::int32_t h) { return f.FClose(h); }, 0},
        {"FRead", [&](std::int32_t h) { return f.FRead(h, dest, 4); }},
        {"FReads", [&](std::int32_t h) { return f.FReads(h, dest, 8, 'd'); }, -1, 4},
        {"FWrite", [&](std::int32_t h) { return f.FWrite(h, "abc", 3); }},
        {"FSeek", [&](std::int32_t h) { return f.FSeek(h, 1, 0); }},
        {"FTell", [&](std::int32_t h) { return f.FTell(h); }},
        {"FLen", [&](std::int32_t h) { return f.FLen(h); }},
        {"FBof", [&](std::int32_t h) { return f.FBof(h); }, 0},
        {"FEof", [&](std::int32_t h) { return f.FEof(h); }, 1},
        {"FTruncate", [&](std::int32_t h) { return f.FTruncate(h); }, 0},
        {"FCommit", [&](std::int32_t h) { return f.FCommit(h); }, 0},
    };
    for (const Row& row : rows) {
        auto run = [&](lab::Fault fault) {
            const std::int32_t handle = opened(data);
            f.FSeek(handle, start, 0);
            fake.process.error = 0;
            fake.disk.calls = 0;
            fake.disk.fault = fault;
            fake.disk.onCall = [&] {
                if (fault.atCall && !fault.fallsShort && fake.disk.calls > fault.atCall) fake.process.error = 9;
            };
            const std::int32_t result = row.call(handle);
            fake.disk.onCall = {};
            fake.disk.fault = {};
            return std::pair(handle, result);
        };
        const std::int32_t right = run({}).second;
        const int all = fake.disk.calls;
        for (int at = 1; at <= all; ++at) {
            for (bool fallsShort : {false, true}) {
                SCOPED_TRACE(std::string(row.what) + ", call " + std::to_string(at) + (fallsShort ? " short" : ""));
                const auto [handle, result] = run({.atCall = at, .fallsShort = fallsShort, .code = kReason});
                const bool failsAtOnce = at == 1 && !fallsShort;
                EXPECT_TRUE(!failsAtOnce || result == row.failed) << result;
                if (result != right || failsAtOnce) {
                    EXPECT_TRUE(fake.process.error == kReason || result == start) << "FAdvance has not moved";
                    EXPECT_TRUE(fallsShort || result == row.failed || result == row.other) << result;
                }
                if (row.stays && at < all) {
                    EXPECT_EQ(f.FTell(handle), start);
                }
                EXPECT_LE(f.FTell(handle), static_cast<std::int32_t>(data.size()));
            }
        }
    }
}

TEST_F(LinesSeam, FilesThatShrink) {
    const std::int32_t handle = opened(std::string(50000, 'x') + "y");
    lib().FSeek(handle, 10, 0);
    fake.disk.fault = {.atCall = fake.disk.calls + 4, .fallsShort = true};  // position, size, a block, a block
    EXPECT_EQ(lib().FLocate(handle, "y", 0), -1);
    EXPECT_EQ(lib().FTell(handle), 10 + 8192 + 16384) << "where the read ended";
}

}  // namespace
}  // namespace vx::test
