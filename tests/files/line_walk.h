// Lines gone over at random, beside a plain model that reads byte by byte.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {

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
    std::int32_t advance() {
        readLine();
        return at;
    }
    std::int32_t lineStart() {
        const std::int32_t from = at - std::min(at, 2048);
        const std::int32_t count = at - from;
        at = from;
        const std::size_t feed = read(count).rfind('\n');
        return feed == std::string::npos ? from : at = from + static_cast<std::int32_t>(feed) + 1;
    }
    std::int32_t rewind() {
        lineStart();
        if (at < 2) return -1;
        at -= 2;
        return lineStart();
    }
    std::int32_t seekLine(std::int32_t n, std::int32_t origin) {
        std::int32_t result = at;
        if (origin == 0) {
            result = at = 0;
            for (std::int32_t i = 1; i < n && result < size(); ++i) {
                result = advance();
                if (result >= size()) break;
            }
        } else if (origin == 1) {
            result = lineStart();
            for (std::int32_t i = 0; i < n; ++i) {
                result = advance();
                if (result >= size()) break;
            }
            for (std::int32_t i = 0; i > n; --i) {
                if ((result = rewind()) < 1) break;
            }
        } else if (origin == 2) {
            at = size();
            if (n == 0) return 1;
            result = lineStart();
            for (std::int32_t i = 1; i < std::abs(n); ++i) {
                if ((result = rewind()) < 1) break;
            }
        }
        return result;
    }
    std::int32_t lineCount() const {
        ModelLines rest{data, at};
        std::int32_t count = 0;
        for (; rest.at < rest.size(); ++count) rest.readLine();
        return count;
    }
    std::int32_t find(const std::string& text, std::int32_t mode) const {
        std::string folded = data;
        for (char& c : folded) {
            if (mode == 1 && c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
            if (mode != 0 && mode != 1 && c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
        }
        const std::size_t found =
            text.empty() || at >= size() ? data.npos : folded.find(text, static_cast<std::size_t>(at));
        return found == data.npos ? -2 : static_cast<std::int32_t>(found);
    }
    std::int32_t locate(const std::string& text, std::int32_t mode) {
        const std::int32_t found = find(text, mode);
        return found < 0 ? found : at = found;
    }
    std::int32_t count(const std::string& text, std::int32_t mode) const {
        ModelLines rest{data, at};
        std::int32_t count = 0;
        while (rest.locate(text, mode) >= 0) {
            rest.at += static_cast<std::int32_t>(text.size());
            ++count;
        }
        return text.empty() ? -1 : count;
    }
};

// Lines around the greatest length and short ones, with all kinds of ends.
inline std::string randomLines(RandomTexts& random, int lines) {
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
    if (random.number(0, 1)) all += "\xFFlast";
    return all;
}

inline void walkLines(std::int32_t handle, const std::string& data, unsigned seed, int count) {
    RandomTexts random(seed);
    ModelLines model{data};
    auto& f = lib();
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
    for (int i = 0; i < count && !testing::Test::HasFailure(); ++i) {
        const int step = random.number(0, static_cast<int>(std::size(steps)) - 1);
        SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(i) + ", kind " + std::to_string(step) +
                     " at " + std::to_string(model.at));
        steps[step]();
        EXPECT_EQ(f.FTell(handle), model.at);
    }
}

}  // namespace vx::test
