// Pieces by position and count, and a piece replaced.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using Counted = char*(VX_CALL*)(const char*, std::int32_t, char*);
using Placed = char*(VX_CALL*)(const char*, std::int32_t, std::int32_t, char*);

// With a destination of just the result's size and in place: both must give the same text.
template <class Call, class... Numbers>
void expectPiece(Call call, const std::string& text, const std::string& result, Numbers... numbers) {
    Dest dest(result.size() + 1);
    EXPECT_EQ(call(text.c_str(), numbers..., dest), dest.get());
    EXPECT_EQ(dest.text(), result) << ::testing::PrintToString(std::tuple(text, numbers...));
    Edit edit(text);
    EXPECT_EQ(call(edit, numbers..., nullptr), edit.get());
    EXPECT_EQ(edit.text(), result) << "in place: " << ::testing::PrintToString(std::tuple(text, numbers...));
}

TEST(Substring, FromTheEnds) {
    struct Row {
        const char* text;
        std::int32_t count;
        const char* left;
        const char* right;
    };
    for (auto [text, count, left, right] :
         {Row{"abc", 5, "abc", "abc"}, Row{"abc", 0, "", ""}, Row{"abc", INT_MIN, "", ""},
          Row{"abc", INT_MAX, "abc", "abc"}, Row{"abcdef", 2, "ab", "ef"}, Row{"\xFF\x80", 1, "\xFF", "\x80"}}) {
        expectPiece(lib().Left, text, left, count);
        expectPiece(lib().Right, text, right, count);
        Edit edit(text);
        EXPECT_EQ(lib().strright(edit, count, nullptr), std::strlen(right));
        EXPECT_EQ(lib().strleft(text, count, edit), std::strlen(left));
    }
}

TEST(Substring, FromAPosition) {
    struct Row {
        std::int32_t start, count;  // from 0
        const char* result;
    };
    for (auto [start, count, result] : {Row{1, 3, "bcd"}, Row{2, 3, "cde"}, Row{4, 10, "ef"}, Row{6, 1, ""},
                                        Row{-2, 2, "ef"}, Row{-2, INT_MAX, "ef"}, Row{-7, 9, ""}, Row{2, INT_MIN, ""},
                                        Row{INT_MIN, 3, ""}, Row{INT_MAX, INT_MAX, ""}, Row{3, INT_MAX, "def"}}) {
        expectPiece(lib()._substr, "abcdef", result, start, count);
        if (start < INT_MAX) expectPiece(lib().SubStr, "abcdef", result, start + 1, count);
        expectPiece(lib()._substr, "", "", start, count);
    }
    // kept: through the 1-based entry 0 is the last character, -1 the one before it
    expectPiece(lib().SubStr, "abcdef", "f", 0, 1);
    expectPiece(lib().SubStr, "abcdef", "e", -1, 1);
    expectPiece(lib().SubStr, "abcdef", "", INT_MIN, 1);
    Edit edit("abcdef");
    EXPECT_EQ(lib().strsubstr1(edit, 5, 10, nullptr), 2u);
    EXPECT_EQ(edit.text(), "ef");
}

TEST(Substring, Stuff) {
    struct Row {
        const char* text;
        std::int32_t start, remove;  // from 0
        const char* insert;
        const char* result;
    };
    // kept: more than one behind the end, nothing is inserted
    for (auto [text, start, remove, insert, result] :
         {Row{"abcdef", 2, 2, "XY", "abXYef"}, Row{"abcdef", 6, 0, "XY", "abcdefXY"},
          Row{"abcdef", 7, 0, "XY", "abcdef"}, Row{"abcdef", INT_MAX, 3, "XY", "abcdef"}, Row{"abc", 1, 10, "Z", "aZ"},
          Row{"abc", 1, INT_MAX, "Z", "aZ"}, Row{"abc", 1, 1, "", "ac"}, Row{"abc", 1, 1, nullptr, "ac"},
          Row{"abc", INT_MIN, 1, "Z", "Zbc"}, Row{"abc", 1, INT_MIN, "Z", "aZbc"}, Row{nullptr, 0, 0, "Z", "Z"},
          Row{nullptr, 1, 0, "Z", ""}}) {
        Dest dest(std::strlen(result) + 1);
        EXPECT_EQ(lib()._stuff(text, start, remove, insert, dest), dest.get());
        EXPECT_EQ(dest.text(), result) << start << ", " << remove;
        EXPECT_EQ(lib().strstuff0(text, start, remove, insert, dest), std::strlen(result));
        if (start == INT_MAX) continue;
        std::int32_t one = start + 1;
        EXPECT_EQ(lib().strstuff(text, one, remove, insert, dest), std::strlen(result));
        EXPECT_EQ(lib().Stuff(text, one, remove, insert, dest), dest.get());
        EXPECT_EQ(dest.text(), result) << one << ", " << remove;
    }
    Dest dest(5);
    EXPECT_STREQ(lib().Stuff("abc", INT_MIN, 0, "Z", dest), "Zabc");
    EXPECT_EQ(lib().Stuff("abc", 1, 0, "Z", nullptr), nullptr);
    EXPECT_EQ(lib().strstuff("abc", 1, 0, "Z", nullptr), 0u);
}

TEST(Substring, NoText) {
    for (Counted call : {lib().Left, lib().Right}) {
        Dest dest(1);
        EXPECT_STREQ(call(nullptr, 3, dest), "");
        EXPECT_EQ(call(nullptr, 3, nullptr), nullptr);
    }
    for (Placed call : {lib().SubStr, lib()._substr}) {
        for (std::int32_t start : {-1, 1}) {
            Dest dest(1);
            EXPECT_STREQ(call(nullptr, start, 3, dest), "");
            EXPECT_EQ(call(nullptr, start, 3, nullptr), nullptr);
        }
    }
    EXPECT_EQ(lib().strleft(nullptr, 3, nullptr) + lib().strsubstr1(nullptr, 1, 3, nullptr), 0u);
}

TEST(Substring, RandomTextsAgainstTheTwin) {
    RandomTexts random(30);
    for (int i = 0; i < 3000; ++i) {
        std::string text = random.text("abcdef", i % 4 ? 8 : 60);  // pieces of all the sizes that are moved differently
        int size = static_cast<int>(text.size());
        int start = random.number(-size - 2, size + 2);
        int count = random.number(-1, size + 2);
        std::string first, last, piece, stuffed, insert = random.text("XYZ", 20);
        for (int at = 0; at <= size; ++at) {
            if (at == std::max(start, 0)) stuffed += insert;
            if (at == size) break;
            char c = text[static_cast<std::size_t>(at)];
            if (at < count) first += c;
            if (at >= size - count) last += c;
            int begin = start < 0 ? start + size : start;
            if (begin >= 0 && at >= begin && at < begin + count) piece += c;
            if (at < start || at >= std::max(start, 0) + std::max(count, 0) || start > size) stuffed += c;
        }
        expectPiece(lib().Left, text, first, count);
        expectPiece(lib().Right, text, last, count);
        expectPiece(lib()._substr, text, piece, start, count);
        Dest dest(stuffed.size() + 1);
        EXPECT_EQ(lib()._stuff(text.c_str(), start, count, insert.c_str(), dest), dest.get());
        EXPECT_EQ(dest.text(), stuffed) << text << ", " << start << ", " << count;
    }
}

}  // namespace
}  // namespace vx::test
