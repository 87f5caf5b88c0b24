// Pieces by position and count, and a piece replaced, as std::string has them.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

template <class Call, class... Arguments>
void expectPiece(Call call, const std::string& text, const std::string& result, Arguments... arguments) {
    Dest dest(result.size() + 1);
    EXPECT_EQ(call(text.c_str(), arguments..., dest), dest.get());
    EXPECT_EQ(dest.text(), result) << testing::PrintToString(std::tuple(text, arguments...));
    Edit same(text, result.size() + 1);
    EXPECT_EQ(call(same, arguments..., same), same.get());
    EXPECT_EQ(same.text(), result) << "into the text: " << testing::PrintToString(std::tuple(text, arguments...));
}

TEST(Substring, RandomTexts) {
    RandomTexts random(30);
    for (int i = 0; i < 3000; ++i) {
        std::string text = random.text("abcdef", i % 4 ? 8 : 60);  // pieces of all the sizes that are moved differently
        int size = static_cast<int>(text.size());
        int start = random.number(-size - 2, size + 2), count = random.number(-1, size + 2);
        auto counted = static_cast<std::size_t>(std::max(count, 0)), begin = static_cast<std::size_t>(start);
        if (start < 0) begin += text.size();
        std::string last = text.substr(text.size() - std::min(counted, text.size()));
        std::string insert = random.text("XYZ", 20), stuffed = text;
        if (start <= size) stuffed.replace(static_cast<std::size_t>(std::max(start, 0)), counted, insert);
        expectPiece(lib().Left, text, text.substr(0, counted), count);
        expectPiece(lib().Right, text, last, count);
        expectPiece(lib()._substr, text, begin <= text.size() ? text.substr(begin, counted) : "", start, count);
        expectPiece(lib()._stuff, text, stuffed, start, count, insert.c_str());
    }
}

}  // namespace
}  // namespace vx::test
