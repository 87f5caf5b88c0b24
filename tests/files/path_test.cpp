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

Parts splitByLibrary(const std::string& path) {
    std::size_t room = std::min<std::size_t>(path.size(), 255) + 1;
    Dest drive(3), directory(room), name(room), extension(room);
    lib().FSsplit(path.c_str(), drive, directory, name, extension);
    return {drive.text(), directory.text(), name.text(), extension.text()};
}

std::string joinByLibrary(const Parts& parts) {
    Dest dest(parts.directory.size() + parts.name.size() + parts.extension.size() + 5);
    EXPECT_EQ(
        lib().FMake(parts.drive.c_str(), parts.directory.c_str(), parts.name.c_str(), parts.extension.c_str(), dest),
        dest.get());
    return dest.text();
}

// All texts over an alphabet up to a length.
void eachText(const std::string& alphabet, std::size_t longest, const std::function<void(const std::string&)>& visit) {
    std::function<void(std::string)> grow = [&](std::string text) {
        visit(text);
        if (text.size() < longest) {
            for (char c : alphabet) grow(text + c);
        }
    };
    grow("");
}

TEST(Path, SplitsAndJoinsAsTheModelDoes) {
    struct Piece {
        char*(VX_CALL* pointer)(const char*, char*);
        std::uint32_t(VX_CALL* length)(const char*, char*);
        std::string (*model)(const Parts&);
    };
    auto parsedDirectory = [](const Parts& p) {
        bool drop = p.directory.size() > 1 && p.directory.back() == '\\';
        return p.directory.substr(0, p.directory.size() - drop);
    };
    const Piece pieces[] = {
        {lib().FParsedr, lib().strfparsedr, [](const Parts& p) { return p.drive; }},
        {lib().FParsed, lib().strfparsed, parsedDirectory},
        {lib().FParsefn, lib().strfparsefn, [](const Parts& p) { return p.name; }},
        {lib().FParsefx, lib().strfparsefx, [](const Parts& p) { return p.extension; }},
        {lib().FParsef, lib().strfparsef, [](const Parts& p) { return p.name + p.extension; }},
    };
    auto check = [&](const std::string& path) {
        Parts expected = splitByModel(path);
        ASSERT_EQ(splitByLibrary(path), expected) << path;
        ASSERT_EQ(joinByLibrary(expected), joinByModel(expected)) << path;
        for (const Piece& piece : pieces) {
            Dest dest(std::max<std::size_t>(3, path.size() + 1));
            ASSERT_EQ(piece.pointer(path.c_str(), dest), dest.get());
            ASSERT_EQ(dest.text(), piece.model(expected)) << path;
            ASSERT_EQ(piece.length(path.c_str(), dest), piece.model(expected).size()) << path;
        }
    };
    eachText("c:\\/.a", 5, check);
    for (const char* path : {"C:\\dos\\edit.com", "C:\\edit.com", "edit.com", "a.b.c", "\\x.y\\z", "\x81\\\xFF.\xA0"})
        check(path);
    for (std::size_t size : {254u, 255u, 256u, 300u}) {
        std::string run(size, 'x');
        for (const std::string& path : {run, "C:\\" + run, run + "\\a.b", "\\d\\" + run + "." + run}) check(path);
    }
}

TEST(Path, TheStatedExamples) {
    EXPECT_EQ(splitByLibrary("C:\\dos\\edit.com"), (Parts{"C:", "\\dos\\", "edit", ".com"}));
    EXPECT_EQ(splitByLibrary("C:a.b.c"), (Parts{"C:", "", "a.b", ".c"}));
    EXPECT_EQ(splitByLibrary(".cfg"), (Parts{"", "", "", ".cfg"}));
    struct Row {
        Parts parts;
        const char* path;
    };
    const Row rows[] = {{{"C:", "dos", "edit", "com"}, "C:dos\\edit.com"},
                        {{"Drive", "\\a/", "b", ".c"}, "D:\\a/b.c"},
                        {{"", "", "", "."}, "."},
                        {{"", "", "", "x"}, ".x"},
                        {{"C", "\\", "", ""}, "C:\\"},
                        {{"", "", "", ""}, ""}};
    for (const Row& row : rows) EXPECT_EQ(joinByLibrary(row.parts), row.path);
    Dest dest(64);
    EXPECT_STREQ(lib().FParsed("C:\\dos\\edit.com", dest), "\\dos");
    EXPECT_STREQ(lib().FParsed("C:\\edit.com", dest), "\\");
    EXPECT_STREQ(lib().FParsed("C:/dos/edit.com", dest), "/dos/");
    EXPECT_STREQ(lib().FAppendName("C:\\old\\letter.txt", "D:\\new", dest), "D:\\new\\letter.txt");
    EXPECT_STREQ(lib().FAppendName("C:\\old\\letter.txt", "D:", dest), "D:letter.txt");
    EXPECT_STREQ(lib().FAppendName("letter.txt", "new/", dest), "new/\\letter.txt") << "kept: only a backslash ends it";
}

TEST(Path, AppendsNamesAsTheModelDoes) {
    eachText("c:\\/.a", 4, [](const std::string& directory) {
        for (const char* file : {"", "f", "C:\\x\\f.e", "x/.e", "f."}) {
            Dest dest(directory.size() + std::strlen(file) + 2);
            ASSERT_EQ(lib().FAppendName(file, directory.c_str(), dest), dest.get());
            ASSERT_EQ(dest.text(), appendByModel(file, directory)) << file << " to " << directory;
        }
    });
    std::string run(400, 'd');
    Dest dest(257 + 510 + 2);
    lib().FAppendName((run + "." + run).c_str(), ("C:" + run).c_str(), dest);
    EXPECT_EQ(dest.text(), appendByModel(run + "." + run, "C:" + run));
    Dest joined(3 * 255 + 5);
    EXPECT_EQ(lib().strfmake("C:", run.c_str(), run.c_str(), run.c_str(), joined), 3u * 255 + 4) << "cut";
}

TEST(Path, NullsAndOneBufferForBoth) {
    EXPECT_EQ(lib().FMake("a", "b", "c", "d", nullptr), nullptr);
    for (auto call : {lib().FParsedr, lib().FParsed, lib().FParsefn, lib().FParsefx, lib().FParsef, lib().FTempName}) {
        Dest dest(14);
        EXPECT_EQ(call("C:\\a.b", nullptr), nullptr);
        EXPECT_STREQ(call(nullptr, dest), "");
    }
    Dest dest(16);
    EXPECT_STREQ(lib().FMake(nullptr, nullptr, nullptr, nullptr, dest), "");
    EXPECT_STREQ(lib().FMake(nullptr, "a", nullptr, "e", dest), "a\\.e");
    EXPECT_STREQ(lib().FAppendName(nullptr, nullptr, dest), "");
    lib().FSsplit("C:\\a.b", nullptr, nullptr, dest, nullptr);
    EXPECT_EQ(dest.text(), "a");
    Edit path("C:\\dos\\edit.com");
    lib().FSsplit(path, nullptr, nullptr, path, dest);
    EXPECT_EQ(path.text() + dest.text(), "edit.com");
    Edit name("C:\\dos\\edit.com");
    EXPECT_STREQ(lib().FParsef(name, name), "edit.com");
    EXPECT_STREQ(lib().FParsef(name, name), "edit.com") << "of a name alone";
    EXPECT_STREQ(lib().FMake("C:", name, "x", "y", name), "C:edit.com\\x.y");
}

// Whether a name is what the shape says, where # stands for any digit.
bool hasShape(const std::string& name, const std::string& shape) {
    return std::equal(name.begin(), name.end(), shape.begin(), shape.end(),
                      [](char c, char of) { return of == '#' ? c >= '0' && c <= '9' : c == of; });
}

TEST(Path, TemporaryNames) {
    struct Row {
        const char* pattern;
        const char* shape;
    };
    const Row rows[] = {{"C:\\tmp\\ab??????.t??", "C:\\tmp\\ab######.t##"},
                        {"*.*", "########.###"},
                        {"D:*", "D:########"},
                        {"a/x*y.b*c", "a/x#######.b##"},
                        {"????????????.?????", "########.###"},
                        {"abcdefghij*.xyz*", "abcdefghij.xyz"},
                        {"abcdefgh?x", "abcdefgh"},
                        {"??*\\plain.txt", "??*\\plain.txt"},
                        {"", ""},
                        {"*", "########"},
                        {".?", ".#"}};
    for (const Row& row : rows) {
        Dest dest(std::strlen(row.pattern) + 14);
        for (int round = 0; round < 20; ++round) {
            EXPECT_EQ(lib().FTempName(row.pattern, dest), dest.get());
            EXPECT_TRUE(hasShape(dest.text(), row.shape)) << dest.text() << " for " << row.pattern;
            EXPECT_EQ(lib().strftempname(row.pattern, dest), std::strlen(row.shape));
        }
    }
    std::set<std::string> names;
    Dest dest(16);
    for (int i = 0; i < 5000; ++i) names.insert(lib().FTempName("????????", dest));
    EXPECT_GT(names.size(), 4950u);
}

}  // namespace
}  // namespace vx::test
