// Whole files on the real disk. Nothing here wipes: that is tried on a made-up disk alone.
#include <gtest/gtest.h>

#include <iostream>

#include "tests/support/library.h"
#include "tests/support/text.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

namespace fs = std::filesystem;

class RealWholeFile : public testing::Test {
 protected:
    Workplace place;
    std::string source = place.path("source");
    std::string target = place.path("target");

    // A file that takes no room, whatever its size.
    std::string sparse(const std::string& name, std::uintmax_t size) {
        place.put(name);
        fs::resize_file(place.native(name), size);
        return place.path(name);
    }
};

std::string content(std::size_t size) {
    std::string text(size, '\0');
    for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char>(i * 31 + i / 251);
    return text;
}

TEST_F(RealWholeFile, CopiesOfAllSizes) {
    for (std::size_t size : {0, 1, 1023, 524288, 524289, 3'000'000}) {
        place.put("source", content(size));
        lib().FSetDate(source.c_str(), "2/3/1999");  // where the system lets it, not now
        EXPECT_EQ(lib().FCcopy(source.c_str(), target.c_str()), static_cast<int>(size));
        EXPECT_TRUE(place.get("target") == content(size));
        EXPECT_EQ(fs::last_write_time(place.native("target")), fs::last_write_time(place.native("source")));
        EXPECT_EQ(lib().FileSize(target.c_str()), static_cast<int>(size));
        EXPECT_EQ(lib().FileTest(target.c_str()), 1);
        EXPECT_EQ(lib().FCompare(source.c_str(), target.c_str()), 0);
        EXPECT_EQ(lib().FCompare(source.c_str(), source.c_str()), 0);
    }
    EXPECT_EQ(lib().FCcopy(place.path("missing").c_str(), place.path("new").c_str()), -1);
    EXPECT_FALSE(place.has("new"));
    EXPECT_EQ(lib().FCcopy(source.c_str(), place.path().c_str()), -1) << "a directory";
    EXPECT_EQ(lib().FCcopy(source.c_str(), nullptr) + lib().FCcopy(nullptr, target.c_str()), -2);
    EXPECT_EQ(lib().FCompare(source.c_str(), nullptr), -1);
    EXPECT_EQ(lib().FileSize(place.path("missing").c_str()), -1);
}

TEST_F(RealWholeFile, TheFirstDifference) {
    struct Row {
        const char *a, *b;
        int result;
    };
    for (const auto& [a, b, result] : {Row{"abc", "abd", 3}, Row{"abc", "abcd", 4}, Row{"abcd", "abc", 4},
                                       Row{"", "", 0}, Row{"", "a", 1}, Row{"xbc", "abc", 1}}) {
        EXPECT_EQ(lib().FCompare(place.put("a", a).c_str(), place.put("b", b).c_str()), result) << a << ' ' << b;
    }
    const std::string whole = content(200'000);
    std::string a = place.put("a", whole);
    for (std::size_t at : {0, 1, 7, 8, 16383, 16384, 65535, 65536, 65537, 131'071, 131'072, 199'999}) {
        std::string other = whole;
        other[at] = static_cast<char>(other[at] ^ 0x80);
        EXPECT_EQ(lib().FCompare(a.c_str(), place.put("b", other).c_str()), static_cast<int>(at + 1));
        EXPECT_EQ(lib().FCompare(a.c_str(), place.put("b", whole.substr(0, at)).c_str()), static_cast<int>(at + 1));
    }
}

TEST_F(RealWholeFile, LinksToItselfAreNoTarget) {
    place.put("source", "precious");
    std::error_code refused;
    fs::create_hard_link(place.native("source"), place.native("hard"), refused);
    if (refused) std::cout << "no hard links here: " << refused.message() << '\n';
    refused.clear();
    fs::create_symlink(place.native("source"), place.native("soft"), refused);
    if (refused) std::cout << "no symbolic links here: " << refused.message() << '\n';
    for (const char* name : {"source", "hard", "soft", "SOURCE"}) {
        std::string same = place.path(name);
        if (!place.has(name) && std::string_view(name) != "SOURCE") continue;
        EXPECT_EQ(lib().FCcopy(source.c_str(), same.c_str()), -1) << name;
        EXPECT_EQ(lib().FCcopy(same.c_str(), source.c_str()), -1) << name;
        EXPECT_EQ(place.get("source"), "precious") << name;
        EXPECT_EQ(lib().FEncrypt(source.c_str(), same.c_str()), 1) << name;
        EXPECT_NE(place.get("source"), "precious") << name;
        EXPECT_EQ(lib().FDecrypt(same.c_str(), source.c_str()), 1) << name;
        EXPECT_EQ(place.get("source"), "precious") << name;
    }
    EXPECT_EQ(lib().FMove(source.c_str(), place.path().c_str(), 1), -1);
    EXPECT_EQ(place.get("source"), "precious");
}

TEST_F(RealWholeFile, Encrypting) {
    constexpr std::size_t kBlock = 32768;
    for (std::size_t size : {std::size_t{0}, std::size_t{1}, kBlock - 1, kBlock, kBlock + 1, 3 * kBlock + 7}) {
        const std::string plain = content(size);
        std::string coded = plain;
        for (std::size_t i = 0; i < size; ++i) coded[i] = static_cast<char>(coded[i] ^ "kTRAVO"[i % kBlock % 6]);
        place.put("source", plain);
        EXPECT_EQ(lib().FEncrypt(source.c_str(), target.c_str()), 1);
        EXPECT_TRUE(place.get("target") == coded) << size;
        EXPECT_TRUE(place.get("source") == plain) << size;
        EXPECT_EQ(lib().FDecrypt(target.c_str(), " "), 1);
        EXPECT_TRUE(place.get("target") == plain) << size;
    }
}

TEST_F(RealWholeFile, Moves) {
    place.put("source", "moved");
    std::string deep = place.path("new") + "\\deep\\";
    EXPECT_EQ(lib().FMove(source.c_str(), deep.c_str(), 2), 0);
    EXPECT_TRUE(place.has("source"));
    EXPECT_EQ(lib().FMove(source.c_str(), deep.c_str(), 1), 0);
    EXPECT_FALSE(place.has("source"));
    EXPECT_EQ(place.get("new/deep/source"), "moved");
    EXPECT_EQ(lib().FMove(source.c_str(), deep.c_str(), 1), -1);
    place.put("file", "no directory");
    place.put("source", "kept");
    EXPECT_EQ(lib().FMove(source.c_str(), place.path("file").c_str(), 1), -1);
    EXPECT_EQ(place.get("source"), "kept");

    EXPECT_EQ(lib().FRename(source.c_str(), place.path("file").c_str()), -1);
    EXPECT_EQ(place.get("file"), "no directory");
    EXPECT_EQ(lib().FRename(source.c_str(), target.c_str()), 0);
    EXPECT_EQ(lib().FErase(target.c_str()), 0);
    EXPECT_EQ(lib().FErase(target.c_str()), -1);
    EXPECT_FALSE(place.has("target"));
}

TEST_F(RealWholeFile, BeyondTwoGigabytes) {
    constexpr std::uintmax_t kMost = 0x7FFFFFFF;
    EXPECT_EQ(lib().FileSize(sparse("most", kMost).c_str()), 0x7FFFFFFF);
    std::string large = sparse("large", kMost + 5);
    EXPECT_EQ(lib().FileSize(large.c_str()), -1);
    EXPECT_EQ(lib().FCcopy(large.c_str(), target.c_str()), -1);
    EXPECT_EQ(lib().FCompare(large.c_str(), large.c_str()), -1);
    EXPECT_EQ(lib().FCompare(place.put("small").c_str(), large.c_str()), -1);
    EXPECT_EQ(lib().FEncrypt(large.c_str(), target.c_str()), 0);
    EXPECT_FALSE(place.has("target"));
    sparse("huge", (std::uintmax_t{1} << 32) + 70);
    EXPECT_EQ(lib().FileSize(place.path("hug?").c_str()), 69) << "by a search: the low half less the high one";
}

TEST(MergedPaths, FillThePattern) {
    struct Row {
        const char *pattern, *name, *result;
    };
    const std::string longest(255, 'n');
    const std::string doubled = longest + "." + longest.substr(1);
    for (const auto& [pattern, name, result] : {
             Row{"C:\\BAK\\*.BAK", "D:\\DATA\\REPORT.TXT", "C:\\BAK\\REPORT.BAK"},
             Row{"*.OLD", "D:\\DATA\\REPORT.TXT", "D:\\DATA\\REPORT.OLD"},
             Row{"*.B?K", "REPORT.TXT", "REPORT.BTK"},
             Row{"*.*", "D:\\A\\REPORT.TXT", "D:\\A\\REPORT.TXT"},
             Row{"*.??", "REPORT.TXT", "REPORT.T"},
             Row{"C:*", "D:\\DATA\\REPORT.TXT", "C:\\DATA\\REPORT"},
             Row{"\\BAK\\*.", "D:\\DATA\\REPORT.TXT", "D:\\BAK\\REPORT"},
             Row{"??X*.A", "REPORT.TXT", "REXORT.A"},
             Row{"????????.Z", "AB.C", "AB.Z"},
             Row{"", "D:\\DATA\\REPORT.TXT", "D:\\DATA\\"},
             Row{"*.BAK", "", ".BAK"},
             Row{nullptr, nullptr, ""},
             Row{"*.*", doubled.c_str(), doubled.c_str()},
         }) {
        Dest dest(771);
        EXPECT_EQ(lib().FMerge(pattern, name, dest), dest.get());
        EXPECT_EQ(dest.text(), result) << (pattern ? pattern : "NULL");
        if (!name) continue;
        Edit edit(name, 600);
        EXPECT_EQ(lib().FMerge(pattern, edit, nullptr), edit.get());
        EXPECT_EQ(edit.text(), result) << "in place";
    }
    EXPECT_EQ(lib().FMerge("*", nullptr, nullptr), nullptr);
}

}  // namespace
}  // namespace vx::test
