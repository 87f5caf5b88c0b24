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
    std::int32_t writeNumber(std::int32_t value, std::size_t size) {
        std::string bytes;
        for (; size > 0; --size, value >>= 8) bytes += static_cast<char>(value);
        return write(bytes);
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
        std::size_t found = got.find(static_cast<char>(delimiter));
        if (found != got.npos) got.resize(found + 1);
        at = start + static_cast<std::int64_t>(got.size());
        return got;
    }
};

void takeStep(std::int32_t handle, ModelFile& model, RandomTexts& random) {
    const std::int32_t count = random.number(-3, 40), value = random.number(INT_MIN, INT_MAX);
    const std::string text = random.text("ab\n\x80\xFF", 12);
    const auto size = static_cast<std::int32_t>(text.size());
    const std::int32_t delimiter = std::uint8_t("\n\377a"[random.number(0, 2)]) | random.number(0, 1) << 8;
    Dest dest(static_cast<std::size_t>(std::max(count, 0)) + 1), exact(static_cast<std::size_t>(std::max(count, 1)));
    auto& f = lib();
    auto got = [](Dest& from, std::int32_t read) { return std::string(from.get(), from.get() + std::max(read, 0)); };
    auto put = [&](std::int32_t written, std::size_t bytes) { EXPECT_EQ(written, model.writeNumber(value, bytes)); };
    auto number = [&](auto read, std::size_t bytes) {
        EXPECT_EQ(static_cast<std::uint32_t>(read), model.number(bytes)) << bytes;
    };
    const std::function<void()> steps[] = {
        [&] { EXPECT_EQ(got(exact, f.FRead(handle, exact, std::uint32_t(std::max(count, 0)))), model.read(count)); },
        [&] { EXPECT_EQ(got(exact, f.hread(handle, exact, count)), model.read(count)); },
        [&] { EXPECT_STREQ(f.FReadStr(handle, dest, count), model.read(count).c_str()); },
        [&] { EXPECT_EQ(f.strfreadstr(handle, dest, count), std::strlen(model.read(count).c_str())); },
        [&] {
            const std::int32_t read = f.FReads(handle, dest, count, delimiter);
            EXPECT_EQ(got(dest, read), model.upTo(count, delimiter & 0xFF));
            EXPECT_EQ(dest.get()[read], '\0');
        },
        [&] { EXPECT_EQ(got(dest, f.FReads(handle, dest, count, -1)), model.read(count)); },
        [&] { number(f.FReadByte(handle), 1), number(f.FReadWord(handle), 2), number(f.FReadInt(handle), 4); },
        [&] { number(f.FReadDword(handle), 4), number(f.FReadLong(handle), 4); },
        [&] { EXPECT_EQ(f.FWrite(handle, text.data(), size), model.write(text)); },
        [&] { f.hwrite(handle, text.data(), size), model.write(text); },
        [&] { EXPECT_EQ(f.FWritestr(handle, text.c_str()), model.write(text)); },
        [&] { EXPECT_EQ(f.FWrites(handle, text.c_str()), model.write(text + '\0')); },
        [&] { EXPECT_EQ(f.FWriteLine(handle, text.c_str()), model.write(text + "\r\n") != 0); },
        [&] { put(f.FWriteByte(handle, value), 1), put(f.FWriteword(handle, value), 2); },
        [&] { put(f.FWriteInt(handle, value), 4), put(f.FWriteLong(handle, value), 4); },
        [&] { put(f.FWriteDword(handle, static_cast<std::uint32_t>(value)), 4); },
        [&] { EXPECT_EQ(f.FTruncate(handle), (model.data.resize(static_cast<std::size_t>(model.at)), 1)); },
    };
    const int kind = random.number(0, 24);
    if (kind < static_cast<int>(std::size(steps))) return steps[kind]();
    const std::int32_t origin = random.number(-1, 3);
    const std::int32_t offset = random.number(0, 9) ? random.number(-60, 60) : kMost;
    EXPECT_EQ(f.FSeek(handle, offset, origin), model.seek(offset, origin)) << offset << ", " << origin;
    if (model.at > 300) f.FSeek(handle, static_cast<std::int32_t>(model.at = 7), 0);
}

TEST(Handles, RandomWorkOnAFile) {
    Workplace place;
    for (unsigned seed = 1; seed <= 20; ++seed) {
        ModelFile model{seed % 2 ? "" : "first line\nsecond\r\n\n\xFFlast"};
        RandomTexts random(seed);
        const std::int32_t handle = lib().FOpen(place.put("work", model.data).c_str(), 2);
        for (int i = 0; i < 300 && !testing::Test::HasFailure(); ++i) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(i));
            takeStep(handle, model, random);
            lib().SetFError(kReason);
            EXPECT_EQ(lib().FTell(handle), model.at);
            EXPECT_EQ(lib().FLen(handle), static_cast<std::int32_t>(model.data.size()));
            EXPECT_EQ(lib().FEof(handle), model.at >= static_cast<std::int64_t>(model.data.size()));
            EXPECT_EQ(lib().FBof(handle), model.at == 0);
            EXPECT_EQ(lib().FTell(handle), model.at) << "the questions do not move it";
            EXPECT_EQ(lib().FError(), kReason) << "nor hide an older reason";
        }
        EXPECT_EQ(lib().FClose(handle), 1);
        ASSERT_EQ(place.get("work"), model.data) << seed;
    }
}

TEST(Handles, NoPositionBeyondTheLast) {
    Workplace place;
    auto& f = lib();
    const std::int32_t handle = f.FOpen(place.put("big", "a\nb\n").c_str(), 2);
    for (std::uint32_t count : {0x80000000u, UINT32_MAX}) {
        Dest rest(3);
        f.FSeek(handle, 1, 0);
        EXPECT_EQ(f.FRead(handle, rest, count), 3) << count;
        EXPECT_EQ(f.FRead(handle, rest, count), 0) << count;
        EXPECT_EQ(f.FRead(-1, rest, count), -1) << count;
    }
    std::filesystem::resize_file(place.native("big"), kMost);
    f.FSeek(handle, kMost, 0);
    EXPECT_EQ(f.FRead(handle, Dest(1), 1), 0) << "the end, as anywhere else";
    f.FSeek(handle, kMost - 1, 0);
    EXPECT_EQ(f.FSeekLine(handle, 1, 1), kMost) << "the last position is one";

    std::filesystem::resize_file(place.native("big"), std::uintmax_t{kMost} + 2);
    EXPECT_EQ(f.FLen(handle), -1);
    EXPECT_EQ(f.FError(), 87u);
    f.FSeek(handle, 1, 0);
    for (std::int32_t result :
         {f.FBot(handle) - 1, f.FLineCount(handle), f.FLocate(handle, "b", 0), f.FStrCount(handle, "b", 0),
          f.FSeekLine(handle, 2, 0), f.FSeekLine(handle, 1, 1), f.FSeekLine(handle, 1, 2)}) {
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(f.FTell(handle), 1);
    f.FClose(handle);
}

}  // namespace
}  // namespace vx::test
