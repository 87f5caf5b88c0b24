// Paths taken apart and joined against a plain model, and temporary names.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

struct Parts {
    std::string drive, directory, name, extension;
    bool operator==(const Parts&) const = default;
};

Parts splitByModel(std::string path) {
    Parts parts;
    if (path.size() > 1 && path[1] == ':') parts.drive = path.substr(0, 2);
    path.erase(0, parts.drive.size());
    std::size_t last = path.find_last_of("\\/") + 1;
    std::string name = path.substr(last);
    std::size_t dot = std::min(name.rfind('.'), name.size());
    parts.directory = path.substr(0, std::min<std::size_t>(last, 255));
    parts.name = name.substr(0, std::min<std::size_t>(dot, 255));
    parts.extension = name.substr(dot, 255);
    return parts;
}

std::string joinByModel(const Parts& parts) {
    std::string path;
    if (!parts.drive.empty()) path += parts.drive.substr(0, 1) + ":";
    path += parts.directory;
    if (!parts.directory.empty() && !std::strchr("\\/", parts.directory.back())) path += "\\";
    path += parts.name;
    if (!parts.extension.empty() && parts.extension[0] != '.') path += ".";
    return path + parts.extension;
}

std::string appendByModel(const std::string& file, const std::string& directory) {
    std::string path = joinByModel(splitByModel(directory));
    if (!path.empty() && path.back() != '\\' && path.back() != ':') path += "\\";
    Parts place = splitByModel(path), name = splitByModel(file);
    return joinByModel({place.drive, place.directory, name.name, name.extension});
}

// All texts over the alphabet up to a length.
void eachText(std::size_t longest, const std::function<void(const std::string&)>& visit, const std::string& text = "") {
    visit(text);
    if (text.size() == longest) return;
    for (char c : std::string("c:\\/.a")) eachText(longest, visit, text + c);
}

TEST(Path, SplitsJoinsAndAppendsAsTheModelDoes) {
    auto check = [&](const std::string& path) {
        Parts expected = splitByModel(path);
        std::size_t room = std::min<std::size_t>(path.size(), 255) + 1;
        Dest drive(3), directory(room), name(room), extension(room), whole(path.size() + 5);
        lib().FSsplit(path.c_str(), drive, directory, name, extension);
        ASSERT_EQ((Parts{drive.text(), directory.text(), name.text(), extension.text()}), expected) << path;
        ASSERT_EQ(lib().FMake(drive, directory, name, extension, whole), joinByModel(expected)) << path;
        ASSERT_EQ(lib().FParsedr(path.c_str(), drive), expected.drive);
        bool drop = expected.directory.size() > 1 && expected.directory.back() == '\\';
        ASSERT_EQ(lib().FParsed(path.c_str(), directory),
                  expected.directory.substr(0, expected.directory.size() - drop))
            << path;
        ASSERT_EQ(lib().FParsefn(path.c_str(), name), expected.name) << path;
        ASSERT_EQ(lib().FParsefx(path.c_str(), extension), expected.extension) << path;
        ASSERT_EQ(lib().FParsef(path.c_str(), whole), expected.name + expected.extension) << path;
        for (const char* file : {"", "f", "C:\\x\\f.e", "x/.e", "f."}) {
            Dest dest(path.size() + std::strlen(file) + 2);
            ASSERT_EQ(lib().FAppendName(file, path.c_str(), dest), appendByModel(file, path)) << file << " to " << path;
        }
    };
    eachText(5, check);
    for (std::size_t size : {254u, 255u, 256u, 300u}) {
        std::string run(size, 'x');
        for (const std::string& path : {run, "C:\\" + run, run + "\\a.b", "\\d\\" + run + "." + run}) check(path);
    }
}

// # stands for any digit.
TEST(Path, TemporaryNames) {
    auto hasShape = [](const std::string& name, const std::string& shape) {
        return std::equal(name.begin(), name.end(), shape.begin(), shape.end(),
                          [](char c, char of) { return of == '#' ? c >= '0' && c <= '9' : c == of; });
    };
    std::set<std::string> names;
    for (int round = 0; round < 5000; ++round) {
        Dest dest(32);
        names.insert(lib().FTempName("????????", dest));
        for (const auto& [pattern, shape] : {std::pair("C:\\tmp\\ab??????.t??", "C:\\tmp\\ab######.t##"),
                                             {"????????????.?????", "########.###"},
                                             {"a/x*y.b*c", "a/x#######.b##"}}) {
            ASSERT_TRUE(hasShape(lib().FTempName(pattern, dest), shape)) << dest.text() << " for " << pattern;
        }
    }
    EXPECT_GT(names.size(), 4950u);
}

}  // namespace
}  // namespace vx::test
