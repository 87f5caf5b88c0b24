// Searches, chains of directories and new files on a real disk.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/library.h"
#include "tests/support/text.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

using Names = std::vector<std::string>;

class Disk : public testing::Test {
 protected:
    Workplace place;
    Dest block{1115};
    Dest name{514};

    Names all(const std::string& list, std::uint32_t flags) {
        Names found;
        for (lib().FindFirst(block.get(), list.c_str(), flags, name); *name.get(); lib().FindNext(block.get(), name)) {
            found.push_back(name.text());
        }
        std::sort(found.begin(), found.end());
        return found;
    }
};

TEST_F(Disk, SearchesFilesAndDirectories) {
    place.put("a.txt", "12345");
    place.put("b.txt", "1234567");
    place.put("c.doc", "1");
    std::filesystem::create_directory(place.native("sub"));
    std::filesystem::create_directory(place.native("..x"));
    place.put("sub/a.txt", "123");
    EXPECT_EQ(all(place.path("*.txt") + ";" + place.path("*.doc"), 0), (Names{"a.txt", "b.txt", "c.doc"}));
    EXPECT_EQ(all(place.path("*.*"), 256 + 16), (Names{"..x", "sub"}));
    EXPECT_EQ(all(place.path("*.*"), 16), (Names{".", "..", "..x", "sub"}));
    EXPECT_EQ(all(place.path("?.doc"), 512), Names{place.path("c.doc")});
    EXPECT_EQ(all(place.path("none*"), 0), Names{});

    lib().FindFirst(block.get(), place.path("b.*").c_str(), 0, name);
    lib().FindRelease(block.get());
    EXPECT_EQ(lib().FindSize(block.get()), 7u);
    EXPECT_EQ(lib().FindAttr(block.get()), 32);
    EXPECT_EQ(lib().FindJDate(block.get()), lib().GetJDate()) << "made today (but for a midnight in between)";
    EXPECT_EQ(lib().FindName(block.get(), name), place.path("b.txt"));

    std::string list = place.path("*.txt") + "," + place.path("sub\\*.txt");
    EXPECT_EQ(lib().DirSize(list.c_str(), 0), 15u);
    EXPECT_EQ(lib().FileCount(place.path("*.*").c_str(), 0), 3);
    EXPECT_EQ(lib().FileCount((place.path("none") + ";" + place.path("*.*")).c_str(), 0), -1);
    EXPECT_EQ(lib().FileCount(list.c_str(), 0), 2) << "the first pattern's end ends the count";
    EXPECT_EQ(lib().IsFile(list.c_str(), 0), 1);
    EXPECT_EQ(lib().IsFile((list + ";" + place.path("none")).c_str(), 0), 0);
    EXPECT_EQ(lib().IsFile(place.path("sub").c_str(), 0), 0);
    EXPECT_EQ(lib().IsFile(place.path("sub").c_str(), 16), 1);
}

TEST_F(Disk, MakesDirectoriesAndFilesAndFindsThem) {
    std::string deep = place.path("a\\b\\c");
    EXPECT_EQ(lib().MakePath((deep + "; " + place.path("d") + "\\").c_str()), 1);
    EXPECT_TRUE(place.has("a/b/c") && place.has("d"));
    EXPECT_EQ(lib().MakePath(deep.c_str()), 1) << "again";
    place.put("plain");
    EXPECT_EQ(lib().MakePath(place.path("plain").c_str()), 0);

    Names made;
    for (int i = 0; i < 3; ++i) {
        std::int32_t handle = lib().FUnique((deep + "\\u?????.*").c_str(), 0, name);
        EXPECT_EQ(lib().FClose(handle), 1);
        made.push_back(name.text());
    }
    EXPECT_EQ(all(deep + "\\u*", 512).size(), 3u);
    std::string last = made.back().substr(deep.size() + 1);
    Dest found(260);
    EXPECT_EQ(lib().FileFind(last.c_str(), (place.path("d") + ";" + place.path()).c_str(), found), made.back());
    EXPECT_STREQ(lib().FileFind(last.c_str(), place.path("d").c_str(), found), "");
    EXPECT_EQ(lib().TrueName((place.path("d") + "\\..\\x").c_str(), found), place.path("x"));
}

}  // namespace
}  // namespace vx::test
