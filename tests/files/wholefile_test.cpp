// Whole files on the real disk: of all sizes, linked to each other, and larger than positions reach. Nothing here
// wipes.
#include <gtest/gtest.h>

#include <iostream>

#include "tests/support/library.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

namespace fs = std::filesystem;

std::string content(std::size_t size) {
    std::string text(size, '\0');
    for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char>(i * 31 + i / 251);
    return text;
}

TEST(RealWholeFile, CopiesAndTheirFirstDifference) {
    Workplace place;
    const std::string target = place.path("target");
    for (std::size_t size : {0, 1, 524288, 3'000'000}) {
        const std::string source = place.put("source", content(size));
        lib().FSetDate(source.c_str(), "2/3/1999");  // where the system lets it, not now
        EXPECT_EQ(lib().FCcopy(source.c_str(), target.c_str()), static_cast<int>(size));
        EXPECT_TRUE(place.get("target") == content(size));
        EXPECT_EQ(fs::last_write_time(place.native("target")), fs::last_write_time(place.native("source")));
        EXPECT_EQ(lib().FileSize(target.c_str()), static_cast<int>(size));
        EXPECT_EQ(lib().FileTest(target.c_str()), 1);
    }
    const std::string whole = content(200'000), a = place.put("a", whole);
    for (std::size_t at : {0, 1, 7, 65535, 65536, 65537, 131'071, 131'072, 199'999}) {
        std::string other = whole;
        other[at] = static_cast<char>(other[at] ^ 0x80);
        EXPECT_EQ(lib().FCompare(a.c_str(), place.put("b", other).c_str()), static_cast<int>(at + 1));
        EXPECT_EQ(lib().FCompare(a.c_str(), place.put("b", whole.substr(0, at)).c_str()), static_cast<int>(at + 1));
    }
}

TEST(RealWholeFile, LinksToItselfAreNoTarget) {
    Workplace place;
    const std::string source = place.put("source", "precious");
    std::error_code refused;
    fs::create_hard_link(place.native("source"), place.native("hard"), refused);
    if (refused) std::cout << "no hard links here: " << refused.message() << '\n';
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
}

TEST(RealWholeFile, BeyondTwoGigabytes) {
    constexpr std::uintmax_t kMost = 0x7FFFFFFF;
    Workplace place;
    auto sparse = [&](const char* name, std::uintmax_t size) {
        std::string path = place.put(name);
        fs::resize_file(place.native(name), size);
        return path;
    };
    EXPECT_EQ(lib().FileSize(sparse("most", kMost).c_str()), 0x7FFFFFFF);
    const std::string large = sparse("large", kMost + 5), target = place.path("target");
    EXPECT_EQ(lib().FileSize(large.c_str()), -1);
    EXPECT_EQ(lib().FCcopy(large.c_str(), target.c_str()), -1);
    EXPECT_EQ(lib().FCompare(large.c_str(), large.c_str()), -1);
    EXPECT_EQ(lib().FCompare(place.put("small").c_str(), large.c_str()), -1);
    EXPECT_EQ(lib().FEncrypt(large.c_str(), target.c_str()), 0);
    EXPECT_FALSE(place.has("target"));
    sparse("huge", (std::uintmax_t{1} << 32) + 70);
    EXPECT_EQ(lib().FileSize(place.path("hug?").c_str()), 69) << "by a search: the low half less the high one";
}

}  // namespace
}  // namespace vx::test
