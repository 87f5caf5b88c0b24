// Lines of text files, and texts in files, on the machine's disk.
#include <climits>
#include <filesystem>
#include <vector>

#include "include/vexlor32.h"
#include "tests/files/line_walk.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

class File {
 public:
    explicit File(const std::string& data) : handle_(lib().FOpen(place_.put("f", data).c_str(), 2)) {}
    ~File() { lib().FClose(handle_); }
    operator std::int32_t() const { return handle_; }
    const Workplace& place() const { return place_; }

    std::string next() const {
        Dest dest(2049);
        return lib().FReadLine(handle_, dest);
    }

 private:
    Workplace place_;
    std::int32_t handle_;
};

TEST(FileLines, Reading) {
    struct Row {
        std::string data;
        std::vector<std::string> lines;
    };
    const std::string x(5000, 'x');
    const Row rows[] = {
        {"", {}},
        {"\n", {""}},
        {"a\r\nb", {"a", "b"}},
        {"\r\n\r\nb\r\n", {"\r", "\r", "b"}},
        {"a\rb\r\r\nc\r", {"a\rb\r", "c\r"}},
        {x, {x.substr(0, 2048), x.substr(0, 2048), x.substr(0, 904)}},
        {x.substr(0, 2048) + "\nb", {x.substr(0, 2048), "", "b"}},
        {x.substr(0, 2046) + "\r\nb\n", {x.substr(0, 2046), "b"}},
    };
    for (const Row& row : rows) {
        File file(row.data);
        EXPECT_EQ(lib().FLineCount(file), static_cast<std::int32_t>(row.lines.size())) << row.data;
        for (const std::string& line : row.lines) EXPECT_EQ(file.next(), line) << row.data;
        EXPECT_EQ(lib().FEof(file), 1);
        EXPECT_EQ(file.next(), "");
        EXPECT_EQ(lib().FLineCount(file), 0);
    }
    File file("one\ntwo\r\n");
    EXPECT_EQ(lib().FReadLine(file, nullptr), nullptr);
    EXPECT_EQ(lib().FTell(file), 4) << "the line is skipped";
    Dest dest(2049);
    EXPECT_EQ(lib().strfreadline(file, dest), 3u);
}

TEST(FileLines, GoingToLines) {
    File file("11\n22\n33\n44\n");
    EXPECT_EQ(lib().FSeekLine(file, 3, 0), 6);
    EXPECT_EQ(lib().FSeekLine(file, 0, 2), 1) << "not a position";
    EXPECT_EQ(lib().FTell(file), 12);
    EXPECT_EQ(lib().FSeekLine(file, INT_MIN, 2), 0);
    EXPECT_EQ(lib().FSeekLine(file, INT_MAX, 0), 12);
    EXPECT_EQ(lib().FSeekLine(file, INT_MIN, 0), 0);
    EXPECT_EQ(lib().FSeekLine(file, INT_MAX, 1), 12);
    EXPECT_EQ(lib().FSeekLine(file, -2, 1), 6);
    lib().FSeek(file, 1, 0);
    EXPECT_EQ(lib().FBol(file), 0);
    EXPECT_EQ(lib().FTell(file), 1) << "stays in the first line";
    EXPECT_EQ(lib().FRewind(file), -1);
    EXPECT_EQ(lib().FError(), 131u);
    EXPECT_EQ(lib().FTell(file), 1);
}

TEST(FileLines, RandomWalks) {
    for (unsigned seed = 1; seed <= 12; ++seed) {
        RandomTexts random(seed);
        const std::string data = randomLines(random, random.number(0, 40));
        File file(data);
        walkLines(file, data, seed, 120);
    }
}

TEST(FileLines, TextsWithoutOverlapAndInOtherCase) {
    struct Row {
        const char* data;
        std::string text;
        std::int32_t mode;
        std::int32_t at;
        std::int32_t count;
    };
    const Row rows[] = {
        {"aaaa", "aa", 0, 0, 2},
        {"aaaaa", "aa", 0, 0, 2},
        {"xAbCabc", "ABC", VX_LOCATE_UPPER, 1, 2},
        {"xAbCabc", "abc", 1, -2, 0},
        {"xAbCabc", "abc", VX_LOCATE_LOWER, 1, 2},
        {"xAbCabc", "ABC", -1, -2, 0},
        {"xAbCabc", "abc", VX_LOCATE_EXACT, 4, 1},
        {"12x12", "12", 1, 0, 2},
        {"12x12", "", 0, -2, -1},
        {"", "a", 0, -2, 0},
        {"abc", "abcd", 0, -2, 0},
        {"abc", std::string(32767, 'a'), 0, -2, 0},
        {"abc", std::string(32768, 'a'), 0, -2, 0},
    };
    for (const Row& row : rows) {
        File file(row.data);
        EXPECT_EQ(lib().FStrCount(file, row.text.c_str(), row.mode), row.count) << row.data << row.text;
        EXPECT_EQ(lib().FTell(file), 0);
        EXPECT_EQ(lib().FLocate(file, row.text.c_str(), row.mode), row.at) << row.data << row.text;
        EXPECT_EQ(lib().FTell(file), std::max(row.at, 0));
    }
    File file("abc");
    EXPECT_EQ(lib().FStrCount(file, nullptr, 0), -1);
    EXPECT_EQ(lib().FLocate(file, nullptr, 0), -2);
    const std::string most(32767, 'm');
    File large("1" + most + "m");
    EXPECT_EQ(lib().FStrCount(large, (most + "m").c_str(), 0), 0);
    EXPECT_EQ(lib().FStrCount(large, most.c_str(), 0), 1);
    EXPECT_EQ(lib().FLocate(large, (most + "m").c_str(), 0), -2) << "one character too long";
    EXPECT_EQ(lib().FLocate(large, most.c_str(), 0), 1);
}

// A text or a line feed at each place around the seams of the blocks in which a file is read.
TEST(FileLines, AcrossTheSeams) {
    const std::size_t size = 600000;
    std::string data(size, '-');
    for (std::size_t i = 1999; i < size; i += 2000) data[i] = '\n';
    const ModelLines plain{data};
    const std::string text(32700, 'q');
    for (std::size_t at : {8191, 8192, 40959, 40960, 172030, 172031, 172032, 172033, 303103, 303104, 567299, 567300}) {
        for (std::size_t length : {std::size_t{1}, std::size_t{2}, std::size_t{3}, text.size()}) {
            const std::size_t start = at - std::min(at, length / 2);
            if (start + length > size) continue;
            ModelLines model = plain;
            model.data.replace(start, length, text, 0, length);
            File file(model.data);
            const std::string part = text.substr(0, length);
            EXPECT_EQ(lib().FStrCount(file, part.c_str(), 0), 1) << start << ", " << length;
            EXPECT_EQ(lib().FLineCount(file), model.lineCount()) << start << ", " << length;
            EXPECT_EQ(lib().FSeekLine(file, INT_MAX, 0), static_cast<std::int32_t>(size));
            lib().FTop(file);
            EXPECT_EQ(lib().FLocate(file, part.c_str(), 0), static_cast<std::int32_t>(start));
        }
    }
    File file(std::string(300000, 'a'));
    EXPECT_EQ(lib().FStrCount(file, "aaa", 0), 100000);
    EXPECT_EQ(lib().FStrCount(file, (std::string(16000, 'a') + "b" + std::string(16000, 'a')).c_str(), 0), 0)
        << "and in no time";
}

TEST(FileLines, NoHandleAndNoPosition) {
    for (std::int32_t none : {-1, 0, 0x7FFFFFF0}) {
        Dest dest(2049);
        EXPECT_STREQ(lib().FReadLine(none, dest), "");
        for (std::int32_t result : {lib().FAdvance(none), lib().FBol(none), lib().FRewind(none), lib().FLineCount(none),
                                    lib().FLocate(none, "a", 0), lib().FStrCount(none, "a", 0)}) {
            EXPECT_EQ(result, -1) << none;
        }
        for (std::int32_t origin : {0, 1, 2, 3}) EXPECT_EQ(lib().FSeekLine(none, 2, origin), -1) << origin;
        EXPECT_EQ(lib().FTop(none) + lib().FBot(none) + lib().FSeekLine(none, 0, 2), 0);
    }
    File file("a\nb\n");
    std::filesystem::resize_file(file.place().native("f"), std::uintmax_t{INT_MAX} + 2);
    lib().FSeek(file, 1, 0);
    EXPECT_EQ(lib().FBot(file), 0);
    for (std::int32_t result :
         {lib().FLineCount(file), lib().FLocate(file, "b", 0), lib().FStrCount(file, "b", 0),
          lib().FSeekLine(file, 2, 0), lib().FSeekLine(file, 1, 1), lib().FSeekLine(file, 1, 2)}) {
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(lib().FTell(file), 1);
    Workplace place;
    const std::int32_t unreadable = lib().FOpen(place.put("g", "a\nb\n").c_str(), 1);
    for (auto count : {lib().FLineCount, lib().FBol}) {
        lib().FSeek(unreadable, 3, 0);
        EXPECT_EQ(count(unreadable), -1);
        EXPECT_EQ(lib().FError(), 5u) << "going back does not hide the reason";
        EXPECT_EQ(lib().FTell(unreadable), 3);
    }
    lib().FClose(unreadable);
}

}  // namespace
}  // namespace vx::test
