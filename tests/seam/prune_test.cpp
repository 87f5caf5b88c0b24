// Deleting trees, against a recursive model: on a made-up disk, with all that can go wrong.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "include/vexlor32.h"
#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using Names = std::vector<std::string>;

struct Item {
    bool directory = false;
    bool link = false;
    std::uint32_t attributes = 0;
};

struct Pattern {
    const char* text;
    bool (*matches)(const std::string& name);
};
const Pattern kPatterns[] = {{"*.TXT", [](const std::string& name) { return name.ends_with(".TXT"); }},
                             {"A*", [](const std::string& name) { return name.starts_with("A"); }},
                             {"*.*", [](const std::string&) { return true; }}};

// What should be left, by full paths.
class Model {
 public:
    std::map<std::string, Item> items;

    Names names() const {
        Names all;
        for (const auto& [path, item] : items) all.push_back(path + (item.directory ? "\\" : ""));
        return all;
    }

    bool prune(const std::string& directory, int level, int mode) {
        bool good = true;
        for (const std::string& path : children(directory, true)) {
            if (!items[path].link) good &= prune(path, level + 1, mode);
            if (items.contains(path) && items[path].link && mode != VX_PRUNE_KEEP_DIRECTORIES) items.erase(path);
        }
        if (level > 1 || mode < VX_PRUNE_KEEP_TOP_FILES) good &= erase(directory, kPatterns[2]);
        if (mode != VX_PRUNE_ALL && (level == 1 || mode == VX_PRUNE_KEEP_DIRECTORIES)) return good;
        bool empty = children(directory, true).empty() && children(directory, false).empty();
        if (empty) items.erase(directory);
        return good && empty;
    }

    bool prune(const std::string& directory, const std::vector<Pattern>& patterns) {
        bool good = true;
        for (const std::string& path : children(directory, true)) {
            if (!items[path].link) good = prune(path, patterns);
        }
        for (const Pattern& pattern : patterns) good &= erase(directory, pattern);
        return good;
    }

 private:
    Names children(const std::string& directory, bool directories) const {
        Names found;
        for (const auto& [path, item] : items) {
            std::size_t last = path.rfind('\\');
            if (path.substr(0, last) == directory && item.directory == directories) found.push_back(path);
        }
        return found;
    }
    bool erase(const std::string& directory, const Pattern& pattern) {
        bool good = true;
        for (const std::string& path : children(directory, false)) {
            std::uint32_t attributes = items[path].attributes;
            if (!pattern.matches(path.substr(directory.size() + 1)) || (attributes != 0 && !(attributes & 32)))
                continue;
            if (attributes & 1) good = false;
            if (!(attributes & 1)) items.erase(path);
        }
        return good;
    }
};

const Names kNames = {"A", "B.TXT", "A;B", "A,B.TXT", "..X", " ", "C D", "\xE9\xFF", "'{}'", "A.B.TXT", "*"};

// The same tree for the same seed: C:\T, which is pruned, and C:\O, to which links lead, with much the same in both.
Model plant(lab::MadeUpDisk& disk, unsigned seed) {
    RandomTexts random(seed);
    Model model;
    Names directories{"C:\\T", "C:\\O"};
    for (const std::string& path : directories) {
        disk.putDirectory(path);
        model.items[path] = {.directory = true};
    }
    auto any = [&](const auto& list) {
        return list[static_cast<std::size_t>(random.number(0, static_cast<int>(std::size(list)) - 1))];
    };
    const std::uint32_t attributes[] = {0, 0, 32, 32, 32, 34, 2, 4, 1, 33};
    Names files;
    int count = random.number(0, 30);
    for (int i = 0; i < count; ++i) {
        std::string path = any(directories) + "\\" + any(kNames);
        if (model.items.contains(path)) continue;
        int kind = random.number(0, 9);
        Item& item = model.items[path];
        if (kind < 4) {
            item.directory = true;
            disk.putDirectory(path);
            directories.push_back(path);
        } else if (kind < 6) {
            std::string target = kind == 4 || files.empty() ? any(directories) : any(files);
            item = {model.items[target].directory, true, model.items[target].attributes};
            disk.putLink(path, target);
        } else {
            item.attributes = any(attributes);
            disk.put(path, "x").attributes = item.attributes;
            files.push_back(path);
        }
    }
    return model;
}

using Work = std::function<std::int32_t()>;

class Prune : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};

    std::int32_t run(const Work& work) {
        std::int32_t result = work();
        EXPECT_EQ(fake.disk.openSearches(), 0u);
        EXPECT_EQ(fake.process.errorMode, 0u);
        return result;
    }
    // Nothing may happen.
    void refused(const char* path, const char* patterns = "*.*") {
        Names before = fake.disk.names();
        const char* shown = path ? path : "NULL";
        for (int mode : {0, 1, 2, 3, 4})
            EXPECT_EQ(run([&] { return lib().Prune(path, mode); }), -1) << shown << " " << mode;
        EXPECT_EQ(run([&] { return lib().FPrune(path, patterns); }), -1) << shown << " " << patterns;
        EXPECT_EQ(fake.disk.names(), before) << shown << " " << patterns;
    }
};

// Each way to prune with its model.
struct Way {
    Work library;
    std::function<bool(Model&)> model;
};
std::vector<Way> allWays() {
    std::vector<Way> ways;
    for (int mode = 0; mode <= 4; ++mode) {
        ways.push_back({[mode] { return lib().Prune("C:\\T", mode); },
                        [mode](Model& model) { return model.prune("C:\\T", 1, mode); }});
    }
    for (std::vector<Pattern> patterns :
         {std::vector{kPatterns[0]}, {kPatterns[1], kPatterns[0]}, {kPatterns[2]}, {}}) {
        std::string list;
        for (const Pattern& pattern : patterns) list += std::string(pattern.text) + ";";
        ways.push_back({[list] { return lib().FPrune("C:\\T", list.c_str()); },
                        [patterns](Model& model) { return model.prune("C:\\T", patterns); }});
    }
    return ways;
}

TEST_F(Prune, TreesAsTheModelDoes) {
    const std::vector<Way> ways = allWays();
    for (unsigned seed = 0; seed < 600; ++seed) {
        for (std::size_t way = 0; way < ways.size(); ++way) {
            lab::FakePlatform fresh{door()};
            Model model = plant(fresh.disk, seed);
            ASSERT_EQ(fresh.disk.names(), model.names());
            bool good = ways[way].model(model);
            ASSERT_EQ(ways[way].library(), good ? 0 : -1) << "seed " << seed << " way " << way;
            ASSERT_EQ(fresh.disk.names(), model.names()) << "seed " << seed << " way " << way;
            ASSERT_EQ(fresh.disk.openSearches(), 0u);
        }
    }
}

// Whatever fails: nothing goes that would not go otherwise, nothing stays open, and 0 means that all is done.
TEST_F(Prune, FailuresDeleteNothingElse) {
    const std::vector<Way> ways = allWays();
    for (unsigned seed = 0; seed < 12; ++seed) {
        for (std::size_t way = 0; way < ways.size(); ++way) {
            for (std::uint32_t code : {platform::kAccessDenied, platform::kPathNotFound, platform::kNoMoreFiles}) {
                int call = 0;
                for (bool reached = true; reached;) {
                    ++call;
                    lab::FakePlatform fresh{door()};
                    Model model = plant(fresh.disk, seed);
                    Model before = model;
                    bool good = ways[way].model(model);
                    fresh.disk.calls = 0;
                    fresh.disk.fault = {.atCall = call, .lasts = call % 2 == 0, .code = code};
                    std::int32_t result = ways[way].library();
                    reached = fresh.disk.calls >= call;
                    Names left = fresh.disk.names();
                    std::string where = "seed " + std::to_string(seed) + " way " + std::to_string(way) + " call " +
                                        std::to_string(call);
                    Names known = before.names();
                    for (const std::string& name : left)
                        ASSERT_TRUE(std::count(known.begin(), known.end(), name)) << where;
                    for (const std::string& name : model.names())
                        ASSERT_TRUE(std::count(left.begin(), left.end(), name)) << where << " " << name;
                    if (way < 5 && code == platform::kAccessDenied && result == 0) {
                        ASSERT_TRUE(good && left == model.names()) << where;
                    }
                    ASSERT_EQ(fresh.disk.openSearches(), 0u) << where;
                    ASSERT_EQ(fresh.process.errorMode, 0u) << where;
                }
            }
        }
    }
}

TEST_F(Prune, PathsThatNameNoDirectoryExactly) {
    for (const char* path : {"C:\\T\\A\\f", "C:\\T\\f", "C:\\O\\f", "C:\\f"}) fake.disk.put(path);
    fake.disk.directory = "C:\\T";
    fake.volumes.drives['C'].directory = "\\T";
    for (const char* path :
         {"C:\\T\\*",  "C:\\?",       "*",           "C:\\\\T", "\\\\T",         "//T",    "C:\\T\\\\", "C:\\T\\\\A",
          "C:\\T//",   "T\\\\",       "C:\\..",      "\\..",    "C:\\T\\..\\..", "..\\..", "1:\\T",     ":",
          "::",        "\\:",         "C::",         "C:\\T:",  "C:C:\\T",       "Q:",     "Q:\\T",     "F:\\T",
          "\"C:\\T\"", "C:\\T;C:\\O", "C:\\T,C:\\O", "@:\\T",   "\xC3:\\T"}) {
        refused(path);
    }
    refused(("C:\\T\\" + std::string(300, '.')).c_str());
    refused(("C:\\T\\" + std::string(300, 'x')).c_str());
    refused(std::string(300, ' ').c_str());
    refused(nullptr);
    std::string round = "C:\\T";
    while (round.size() < 300) round += "\\..\\T";
    refused((round + "\\..\\..").c_str());
    fake.volumes.current = '@';  // the current directory is on no drive
    refused("\\T");
    fake.volumes.drives['@'].directory = "\\T";
    for (const char* path : {"", "A"}) refused(path);
    fake.volumes.current = 'C';
    // What does not exist: nothing to empty, and nothing that could be removed.
    Names before = fake.disk.names();
    for (const char* path : {" ", "  ", "C:\\none", "C:\\f", "\"T\"", "A ", "C:\\T\\;", "."}) {
        if (*path == '.') fake.volumes.drives['C'].directory = "\\none";
        EXPECT_EQ(lib().Prune(path, VX_PRUNE_ALL), -1) << path;
        for (int mode : {VX_PRUNE_KEEP_TOP, 2, 3, 4}) EXPECT_EQ(lib().Prune(path, mode), 0) << path;
        EXPECT_EQ(lib().FPrune(path, "*"), 0) << path;
    }
    EXPECT_EQ(fake.disk.names(), before);
    for (int mode : {-1, 5, 256, std::numeric_limits<int>::min()}) EXPECT_EQ(lib().Prune("C:\\T", mode), -1);
    EXPECT_EQ(fake.disk.names(), before);
}

TEST_F(Prune, PatternsThatLeadOutOfTheDirectory) {
    for (const char* path : {"C:\\T\\A\\f", "C:\\T\\f", "C:\\O\\f"}) fake.disk.put(path);
    Names before = fake.disk.names();
    for (const char* patterns :
         {"..\\*.*", "..\\O\\*", "C:\\O\\*.*", "\\O\\*", "A\\*", "*.none;../O/*", "f;A/f", "..", "f;.", "C:f"}) {
        EXPECT_EQ(run([&] { return lib().FPrune("C:\\T", patterns); }), -1) << patterns;
        EXPECT_EQ(fake.disk.names(), before) << patterns;
    }
    for (const char* patterns : {"", ";,", "*.none", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(run([&] { return lib().FPrune("C:\\T", patterns); }), 0);
        EXPECT_EQ(fake.disk.names(), before);
    }
}

TEST_F(Prune, PathsFromTheCurrentDirectory) {
    struct Row {
        const char* path;
        Names gone;
    };
    const Names own{"C:\\T\\A\\f", "C:\\T\\A\\x\\f"}, below{"C:\\T\\A\\x\\f"}, beside{"C:\\T\\B\\f"};
    for (const Row& row : {Row{"", own},
                           {".", own},
                           {"C:", own},
                           {"c:", own},
                           {"x", below},
                           {"C:x\\", below},
                           {"./x", below},
                           {"..\\B", beside},
                           {"\\T\\B/", beside},
                           {"c:/t/./b/.", beside}}) {
        lab::FakePlatform fresh{door()};
        for (const char* path : {"C:\\T\\A\\f", "C:\\T\\A\\x\\f", "C:\\T\\B\\f", "C:\\f"}) fresh.disk.put(path);
        fresh.volumes.drives['C'].directory = "\\T\\A";
        fresh.disk.directory = "C:\\T\\A";
        std::size_t before = fresh.disk.names().size();
        EXPECT_EQ(lib().FPrune(row.path, "none;*"), 0);
        for (const std::string& path : row.gone) EXPECT_FALSE(fresh.disk.find(path)) << path;
        EXPECT_EQ(fresh.disk.names().size(), before - row.gone.size());
        EXPECT_EQ(lib().Prune(row.path, 1), 0);
        EXPECT_EQ(fresh.volumes.drives['C'].directory, "\\T\\A");
    }
    // A process does not stay in what goes.
    fake.disk.put("C:\\T\\A\\f");
    fake.volumes.drives['C'].directory = "\\t\\A";
    EXPECT_EQ(lib().Prune("C:\\T", 0), 0);
    EXPECT_EQ(fake.volumes.drives['C'].directory, "\\t\\A\\..");
    EXPECT_EQ(fake.disk.names(), Names{});
}

// A system that drops blanks and dots at a path's end would take another file.
TEST_F(Prune, NamesThatTheSystemWouldRead) {
    for (const char* path : {"C:\\T\\a", "C:\\T\\a.", "C:\\T\\s\\f", "C:\\T\\s \\f", "C:\\T\\s\\ \\f", "C:\\O\\f"})
        fake.disk.put(path);
    fake.disk.find("C:\\T\\a")->attributes = platform::kHidden;
    fake.disk.dropsEnds = true;
    for (const char* path : {"C:\\T ", "C:\\T.", "C:\\T\\ ", "C:\\T\\...", "T. ", " "}) refused(path);
    EXPECT_EQ(lib().FEraseAll("C:\\T\\a?"), 0);
    EXPECT_EQ(run([] { return lib().FPrune("C:\\T", "*"); }), -1);
    EXPECT_EQ(run([] { return lib().Prune("C:\\T", 0); }), -1);
    fake.disk.dropsEnds = false;
    for (const char* path : {"C:\\T\\a", "C:\\T\\a.", "C:\\T\\s \\f", "C:\\T\\s\\ \\f", "C:\\O\\f"})
        EXPECT_TRUE(fake.disk.find(path)) << path;
    EXPECT_FALSE(fake.disk.find("C:\\T\\s\\f"));
}

TEST_F(Prune, LinksAndDepthAndTheRoot) {
    fake.disk.put("C:\\O\\f");
    fake.disk.putLink("C:\\L", "C:\\O");
    EXPECT_EQ(lib().FPrune("C:\\L\\", "*"), -1);
    for (int mode : {1, 2, 3, 4}) EXPECT_EQ(lib().Prune("C:\\L\\.", mode), -1);
    EXPECT_TRUE(fake.disk.find("C:\\O\\f") && fake.disk.find("C:\\L"));
    EXPECT_EQ(lib().Prune("C:\\L\\", 0), 0);
    EXPECT_TRUE(fake.disk.find("C:\\O\\f") && !fake.disk.find("C:\\L"));

    std::string deep = "C:\\T";
    while (deep.size() < 300) fake.disk.put((deep += "\\x") + "\\f");
    std::size_t before = fake.disk.names().size();
    EXPECT_EQ(run([] { return lib().FPrune("C:\\T", "f"); }), -1);
    EXPECT_TRUE(fake.disk.find(deep + "\\f"));
    EXPECT_EQ(run([] { return lib().Prune("C:\\T", 0); }), -1);
    EXPECT_TRUE(fake.disk.find(deep + "\\f"));
    EXPECT_EQ(fake.disk.names().size(), before - 126) << "all files whose paths fit";

    lab::FakePlatform fresh{door()};
    for (const char* path : {"C:\\a\\f", "C:\\b", "C:\\c\\d\\e"}) fresh.disk.put(path);
    EXPECT_EQ(lib().Prune("C:\\", 4), 0);
    EXPECT_EQ(fresh.disk.names(), (Names{"C:\\a\\", "C:\\b", "C:\\c\\", "C:\\C\\d\\"}));
    EXPECT_EQ(lib().Prune("\\", 0), 0) << "a root is emptied and stays";
    EXPECT_EQ(fresh.disk.names(), Names{});
}

}  // namespace
}  // namespace vx::test
