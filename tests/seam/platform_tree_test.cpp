// The tree of names of the system itself: the platform's own interface, before any stand-in takes its place.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/seam/seam.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

using namespace platform;

class SystemTree : public testing::Test {
 protected:
    Platform system = *door()->platform;
    Tree& tree = *system.tree;
    Workplace place;

    std::uint32_t error() { return system.process->lastError(); }

    // The names that match, joined by blanks; the error in brackets if the search cannot begin.
    std::string found(const std::string& pattern) {
        FoundEntry entry;
        std::int32_t search = tree.findFirst(place.path(pattern).c_str(), entry);
        if (search == -1) return "<" + std::to_string(error()) + ">";
        std::string names = entry.name;
        while (tree.findNext(search, entry)) names += std::string(" ") + entry.name;
        EXPECT_EQ(error(), kNoMoreFiles);
        EXPECT_TRUE(tree.findClose(search));
        return names;
    }
};

TEST_F(SystemTree, SearchesMatchAsOnWindows) {
    place.put("a.txt");
    place.put("b.c.txt");
    place.put("Readme");
    tree.createDirectory(place.path("sub").c_str());
    struct Row {
        const char* pattern;
        const char* names;
    };
    const Row rows[] = {
        {"*", ". .. a.txt b.c.txt Readme sub"},
        {"*.*", ". .. a.txt b.c.txt Readme sub"},
        {"*.txt", "a.txt b.c.txt"},
        {"*.TXT", "a.txt b.c.txt"},
        {"?.txt", "a.txt"},
        {"??.txt", "a.txt"},
        {"README", "Readme"},
        {"r*", "Readme"},
        {"SUB", "sub"},
        {"missing", "<2>"},
        {"missing\\*", "<3>"},
        {"x*", "<2>"},
    };
    for (const Row& row : rows) EXPECT_EQ(found(row.pattern), row.names) << row.pattern;
}

TEST_F(SystemTree, NamesAreFoundInAnyCase) {
    place.put("Mixed.Txt", "123");
    EXPECT_EQ(tree.attributes(place.path("MIXED.TXT").c_str()), kArchive);
    EXPECT_FALSE(tree.createDirectory(place.path("mixed.txt").c_str()));
    EXPECT_EQ(error(), kAlreadyExists);
    EXPECT_TRUE(tree.move(place.path("mIXED.tXT").c_str(), place.path("other").c_str())) << error();
    EXPECT_TRUE(tree.erase(place.path("OTHER").c_str())) << error();
    EXPECT_FALSE(place.has("other"));
}

}  // namespace
}  // namespace vx::test
