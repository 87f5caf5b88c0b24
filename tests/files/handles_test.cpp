// Files opened, read, written and closed by their handles, on the machine's disk.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <iterator>
#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

constexpr std::int32_t kMost = INT_MAX;
constexpr std::uint32_t kReason = 1117;

// What an open file does, on a text and a number.
struct ModelFile {
    std::string data;
    std::int64_t at = 0;

    std::string read(std::int64_t count) {
        if (count <= 0 || at >= static_cast<std::int64_t>(data.size())) return "";
        std::string got = data.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(count));
        at += static_cast<std::int64_t>(got.size());
        return got;
    }
    std::int32_t write(const std::string& text) {
        std::size_t from = static_cast<std::size_t>(at);
        if (text.empty()) return 0;
        data.resize(std::max(data.size(), from + text.size()));
        data.replace(from, text.size(), text);
        at += static_cast<std::int64_t>(text.size());
        return static_cast<std::int32_t>(text.size());
    }
    std::int32_t seek(std::int32_t offset, std::int32_t origin) {
        std::int64_t base = origin == 0 ? 0 : origin == 1 ? at : static_cast<std::int64_t>(data.size());
        bool refused = origin < 0 || origin > 2 || base + offset < 0 || base + offset > kMost;
        return static_cast<std::int32_t>(refused ? -1 : at = base + offset);
    }
    std::uint32_t number(std::size_t size) {
        std::string bytes = read(static_cast<std::int64_t>(size));
        std::uint32_t value = 0;
        for (std::size_t i = bytes.size(); i-- > 0;) value = value << 8 | static_cast<std::uint8_t>(bytes[i]);
        return bytes.size() == size ? value : UINT32_MAX >> (32 - 8 * size);
    }
    std::string upTo(std::int64_t count, std::int32_t delimiter) {
        std::int64_t start = at;
        std::string got = read(count);
        std::size_t found = delimiter < 0 ? got.npos : got.find(static_cast<char>(delimiter));
        if (found != got.npos) got.resize(found + 1);
        at = start + static_cast<std::int64_t>(got.size());
        return got;
    }
};

std::string littleEndian(std::uint32_t value, std::size_t size) {
    std::string bytes;
    for (; size > 0; --size, value >>= 8) bytes += static_cast<char>(value);
    return bytes;
}

class RandomWalk {
 public:
    RandomWalk(std::int32_t handle, std::string content, unsigned seed) : handle_(handle), random_(seed) {
        model.data = std::move(content);
    }

    void step() {
        const std::int32_t count = random_.number(-3, 40);
        const std::string text = random_.text("ab\n\x80\xFF", 12);
        const auto size = static_cast<std::int32_t>(text.size());
        const auto value = random_.number(INT_MIN, INT_MAX);
        const std::int32_t delimiter = std::uint8_t("\n\377a"[random_.number(0, 2)]) | random_.number(0, 1) << 8;
        Dest dest(static_cast<std::size_t>(std::max(count, 0)) + 1);
        Dest exact(static_cast<std::size_t>(std::max(count, 1)));
        auto& f = lib();
        auto got = [](Dest& from, std::int32_t read) {
            return std::string(from.get(), from.get() + std::max(read, 0));
        };
        auto put = [&](std::int32_t written, std::size_t bytes) {
            EXPECT_EQ(written, model.write(littleEndian(static_cast<std::uint32_t>(value), bytes)));
        };
        auto number = [&](auto read, std::size_t bytes) {
            EXPECT_EQ(static_cast<std::uint32_t>(read), model.number(bytes)) << bytes;
        };
        const std::function<void()> steps[] = {
            [&] {
                EXPECT_EQ(got(exact, f.FRead(handle_, exact, static_cast<std::uint32_t>(std::max(count, 0)))),
                          model.read(count));
            },
            [&] { EXPECT_EQ(got(exact, f.hread(handle_, exact, count)), model.read(count)); },
            [&] { EXPECT_STREQ(f.FReadStr(handle_, dest, count), model.read(count).c_str()); },
            [&] { EXPECT_EQ(f.strfreadstr(handle_, dest, count), std::strlen(model.read(count).c_str())); },
            [&] {
                const std::int32_t read = f.FReads(handle_, dest, count, delimiter);
                EXPECT_EQ(got(dest, read), model.upTo(count, delimiter & 0xFF));
                EXPECT_EQ(dest.get()[read], '\0');
            },
            [&] { EXPECT_EQ(got(dest, f.FReads(handle_, dest, count, -1)), model.read(count)); },
            [&] { number(f.FReadByte(handle_), 1), number(f.FReadWord(handle_), 2), number(f.FReadInt(handle_), 4); },
            [&] { number(f.FReadDword(handle_), 4), number(f.FReadLong(handle_), 4); },
            [&] { EXPECT_EQ(f.FWrite(handle_, text.data(), size), model.write(text)); },
            [&] { EXPECT_EQ(f.FWrite(handle_, text.data(), std::min(count, 0)), 0); },
            [&] { f.hwrite(handle_, text.data(), size), model.write(text); },
            [&] { f.hwrite(handle_, text.data(), std::min(count, 0)); },
            [&] { EXPECT_EQ(f.FWritestr(handle_, text.c_str()), model.write(text)); },
            [&] { EXPECT_EQ(f.FWrites(handle_, text.c_str()), model.write(text + '\0')); },
            [&] { EXPECT_EQ(f.FWriteLine(handle_, text.c_str()), model.write(text + "\r\n") != 0); },
            [&] { put(f.FWriteByte(handle_, value), 1), put(f.FWriteword(handle_, value), 2); },
            [&] { put(f.FWriteInt(handle_, value), 4), put(f.FWriteLong(handle_, value), 4); },
            [&] { put(f.FWriteDword(handle_, static_cast<std::uint32_t>(value)), 4); },
            [&] { EXPECT_EQ(f.FTruncate(handle_), (model.data.resize(static_cast<std::size_t>(model.at)), 1)); },
        };
        const int kind = random_.number(0, 24);
        if (kind < static_cast<int>(std::size(steps))) {
            steps[kind]();
        } else {
            const std::int32_t origin = random_.number(-1, 3);
            const std::int32_t offset = random_.number(0, 9) ? random_.number(-60, 60) : kMost;
            EXPECT_EQ(f.FSeek(handle_, offset, origin), model.seek(offset, origin)) << offset << ", " << origin;
            if (model.at > 300) f.FSeek(handle_, static_cast<std::int32_t>(model.at = 7), 0);
        }
        compare();
    }

    ModelFile model;

 private:
    void compare() {
        lib().SetFError(kReason);
        EXPECT_EQ(lib().FTell(handle_), model.at);
        EXPECT_EQ(lib().FLen(handle_), static_cast<std::int32_t>(model.data.size()));
        EXPECT_EQ(lib().FEof(handle_), model.at >= static_cast<std::int64_t>(model.data.size()));
        EXPECT_EQ(lib().FBof(handle_), model.at == 0);
        EXPECT_EQ(lib().FTell(handle_), model.at) << "the questions do not move it";
        EXPECT_EQ(lib().FError(), kReason) << "nor hide an older reason";
    }

    std::int32_t handle_;
    RandomTexts random_;
};

TEST(Handles, RandomWorkOnAFile) {
    Workplace place;
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const std::string content = seed % 2 ? "" : "first line\nsecond\r\n\n\xFFlast";
        const std::int32_t handle = lib().FOpen(place.put("work", content).c_str(), 2);
        RandomWalk walk(handle, content, seed);
        for (int i = 0; i < 300 && !testing::Test::HasFailure(); ++i) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(i));
            walk.step();
        }
        EXPECT_EQ(lib().FClose(handle), 1);
        ASSERT_EQ(place.get("work"), walk.model.data) << seed;
    }
}

TEST(Handles, OpeningAndCreating) {
    Workplace place;
    const std::string name = place.path("new");
    EXPECT_EQ(lib().FOpen(name.c_str(), 0), -1);
    EXPECT_EQ(lib().FError(), 2u);
    EXPECT_EQ(lib().FOpen(nullptr, 0), -1);
    EXPECT_EQ(lib().FCreate(nullptr, 0), -1);
    std::int32_t handle = lib().FCreatef(name.c_str(), 0);
    EXPECT_EQ(lib().FWritestr(handle, "kept"), 4);
    EXPECT_EQ(lib().ValidHandle(handle), 1);
    EXPECT_EQ(lib().FClose(handle), 1);
    EXPECT_EQ(lib().ValidHandle(handle), 0);
    EXPECT_EQ(lib().FClose(handle), 0);
    EXPECT_EQ(lib().FError(), 6u);
    EXPECT_EQ(lib().FCreatef(name.c_str(), 0), -1);
    EXPECT_EQ(place.get("new"), "kept");
    EXPECT_EQ(lib().FCreatef(place.path().c_str(), 0), -1) << "a directory";
    handle = lib().FOpen(name.c_str(), 0);
    EXPECT_EQ(lib().FWritestr(handle, "x"), -1) << "open to read";
    EXPECT_EQ(lib().FError(), 5u);
    EXPECT_EQ(lib().FWritestr(handle, ""), 0);
    lib().FClose(handle);
    handle = lib().FCreate(name.c_str(), 0);
    EXPECT_EQ(lib().FLen(handle), 0) << "emptied";
    lib().FClose(handle);
    lib().SetFError(1234);
    EXPECT_EQ(lib().FError(), 1234u);
}

// No buffer, no handle, counts beyond all files, and what is for descriptors of a C runtime.
TEST(Handles, NothingToWorkOn) {
    Workplace place;
    const std::int32_t handle = lib().FOpen(place.put("f", "12345").c_str(), 2);
    for (std::uint32_t count : {0x80000000u, UINT32_MAX}) {
        Dest rest(4);
        lib().FSeek(handle, 1, 0);
        EXPECT_EQ(lib().FRead(handle, rest, count), 4) << count;
        EXPECT_EQ(std::string(rest.get(), 4), "2345");
        EXPECT_EQ(lib().FRead(handle, rest, count), 0) << count;
        EXPECT_EQ(lib().FRead(-1, rest, count), -1) << count;
    }
    lib().FSeek(handle, 0, 0);
    Dest dest(1);
    EXPECT_STREQ(lib().FReadStr(handle, dest, INT_MIN), "");
    EXPECT_EQ(lib().FReads(handle, dest, INT_MIN, 10), 0);
    EXPECT_EQ(lib().FWrite(handle, nullptr, INT_MIN), 0);
    for (std::int32_t result : {lib().FRead(handle, nullptr, 5), lib().hread(handle, nullptr, 5),
                                lib().FReads(handle, nullptr, 5, 10), lib().FWrite(handle, nullptr, 5)}) {
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(lib().FReadStr(handle, nullptr, 5), nullptr);
    EXPECT_EQ(lib().strfreadstr(handle, nullptr, 5), 0u);
    for (std::int32_t mode : {0, 1, 2, 3, -1}) EXPECT_EQ(lib().FAccess(handle, 1, mode, 1), 0) << mode;
    EXPECT_EQ(lib().FCommit(handle), 0);
    EXPECT_EQ(lib().FDupe(handle), -1);
    EXPECT_EQ(lib().FTell(handle), 0);
    EXPECT_EQ(lib().FWritestr(handle, nullptr), 0);
    EXPECT_EQ(lib().FWrites(handle, nullptr), 1);
    EXPECT_EQ(lib().FWriteLine(handle, nullptr), 1);
    EXPECT_EQ(place.get("f"), std::string("\0\r\n45", 5));
    lib().FClose(handle);
    for (std::int32_t none : {-1, 0, 0x7FFFFFF0}) {
        lib().SetFError(0);
        EXPECT_EQ(lib().FTell(none), -1) << none;
        EXPECT_EQ(lib().FError(), 6u) << none;
        EXPECT_EQ(lib().FEof(none), 1);
        EXPECT_EQ(lib().FBof(none), 0);
        EXPECT_EQ(lib().FLen(none), -1);
        EXPECT_EQ(lib().ValidHandle(none), 0);
        EXPECT_EQ(lib().FCommit(none), 0);
        EXPECT_EQ(lib().FClose(none), 0);
        EXPECT_EQ(lib().FError(), 6u) << none;
    }
}

TEST(Handles, NoPositionBeyondTheLast) {
    Workplace place;
    const std::int32_t handle = lib().FOpen(place.put("big", "x").c_str(), 2);
    EXPECT_EQ(lib().FSeek(handle, kMost, 0), kMost);
    EXPECT_EQ(lib().FSeek(handle, 1, 1), -1);
    EXPECT_EQ(lib().FSeek(handle, kMost, 2), -1);
    EXPECT_EQ(lib().FTell(handle), kMost);
    EXPECT_EQ(lib().FEof(handle), 1);
    Dest dest(1);
    std::filesystem::resize_file(place.native("big"), kMost);
    EXPECT_EQ(lib().FRead(handle, dest, 1), 0) << "the end, as anywhere else";
    std::filesystem::resize_file(place.native("big"), std::uintmax_t{kMost} + 2);
    EXPECT_EQ(lib().FLen(handle), -1);
    EXPECT_EQ(lib().FError(), 87u);
    EXPECT_EQ(lib().FSeek(handle, 0, 2), -1);
    EXPECT_EQ(lib().FTell(handle), kMost);
    lib().FClose(handle);
}

}  // namespace
}  // namespace vx::test
