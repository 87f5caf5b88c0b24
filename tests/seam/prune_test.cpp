// Deleting trees, against a recursive model: on a made-up disk, with all that can go wrong.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
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
    Names targets = directories;
    for (int left = random.number(0, 30); left > 0; --left) {
        std::string path = any(directories) + "\\" + any(kNames), target = any(targets);
        if (model.items.contains(path)) continue;
        int kind = random.number(0, 9);
        Item item{.directory = kind < 4, .attributes = kind < 4 ? 0 : any(attributes)};
        if (kind == 4 || kind == 5) item = {model.items[target].directory, true, model.items[target].attributes};
        if (item.link) {
            disk.putLink(path, target);
        } else {
            (item.directory ? disk.putDirectory(path) : disk.put(path)).attributes = item.attributes;
            if (item.directory) directories.push_back(path);
            targets.push_back(path);
        }
        model.items[path] = item;
    }
    return model;
}

// Each way to prune with its model: the five modes, then lists of patterns.
constexpr std::size_t kModes = 5;
const std::vector<Pattern> kLists[] = {{kPatterns[0]}, {kPatterns[1], kPatterns[0]}, {kPatterns[2]}, {}};
constexpr std::size_t kWays = kModes + std::size(kLists);

std::int32_t pruneByLibrary(std::size_t way) {
    if (way < kModes) return lib().Prune("C:\\T", static_cast<int>(way));
    std::string list;
    for (const Pattern& pattern : kLists[way - kModes]) list += std::string(pattern.text) + ";";
    return lib().FPrune("C:\\T", list.c_str());
}
bool pruneByModel(Model& model, std::size_t way) {
    return way < kModes ? model.prune("C:\\T", 1, static_cast<int>(way)) : model.prune("C:\\T", kLists[way - kModes]);
}

TEST(Prune, TreesAsTheModelDoes) {
    for (unsigned seed = 0; seed < 600; ++seed) {
        for (std::size_t way = 0; way < kWays; ++way) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << " way " << way);
            lab::FakePlatform fresh{door()};
            Model model = plant(fresh.disk, seed);
            ASSERT_EQ(fresh.disk.names(), model.names());
            bool good = pruneByModel(model, way);
            ASSERT_EQ(pruneByLibrary(way), good ? 0 : -1);
            ASSERT_EQ(fresh.disk.names(), model.names());
            ASSERT_EQ(fresh.disk.openSearches(), 0u);
        }
    }
}

// Whatever fails: nothing goes that would not go otherwise, nothing stays open, and 0 means that all is done.
TEST(Prune, FailuresDeleteNothingElse) {
    auto isIn = [](const Names& all, const std::string& name) { return std::count(all.begin(), all.end(), name) != 0; };
    for (unsigned seed = 0; seed < 12; ++seed) {
        for (std::size_t way = 0; way < kWays; ++way) {
            for (std::uint32_t code : {platform::kAccessDenied, platform::kPathNotFound, platform::kNoMoreFiles}) {
                int call = 0;
                for (bool reached = true; reached;) {
                    SCOPED_TRACE(testing::Message() << "seed " << seed << " way " << way << " call " << ++call);
                    lab::FakePlatform fresh{door()};
                    Model model = plant(fresh.disk, seed);
                    const Names before = model.names();
                    bool good = pruneByModel(model, way);
                    fresh.disk.calls = 0;
                    fresh.disk.fault = {.atCall = call, .lasts = call % 2 == 0, .code = code};
                    std::int32_t result = pruneByLibrary(way);
                    reached = fresh.disk.calls >= call;
                    const Names left = fresh.disk.names(), wanted = model.names();
                    for (const std::string& name : left) ASSERT_TRUE(isIn(before, name)) << name;
                    for (const std::string& name : wanted) ASSERT_TRUE(isIn(left, name)) << name;
                    if (way < kModes && code == platform::kAccessDenied && result == 0) {
                        ASSERT_TRUE(good && left == wanted);
                    }
                    ASSERT_EQ(fresh.disk.openSearches(), 0u);
                    ASSERT_EQ(fresh.process.errorMode, 0u);
                }
            }
        }
    }
}

TEST(Prune, FilesBeyondThePathsThatFitStay) {
    lab::FakePlatform fake{door()};
    std::string deep = "C:\\T";
    while (deep.size() < 300) fake.disk.put((deep += "\\x") + "\\f");
    std::size_t before = fake.disk.names().size();
    EXPECT_EQ(lib().FPrune("C:\\T", "f") + lib().Prune("C:\\T", 0), -2);
    EXPECT_TRUE(fake.disk.find(deep + "\\f"));
    EXPECT_EQ(fake.disk.names().size(), before - 126) << "all files whose paths fit";
    EXPECT_EQ(fake.disk.openSearches(), 0u);
}

}  // namespace
}  // namespace vx::test
