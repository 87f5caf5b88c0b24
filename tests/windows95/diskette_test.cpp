// Sectors and kinds of a real diskette drive, as Windows 95 gives access to them: its first drive is a file here.
// Run by scripts/test in a Wine that is Windows 95: scripts/wine --prefix win95 --floppy IMAGE PROGRAM
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

constexpr std::size_t kSector = 512;
constexpr std::uint32_t kSectors = 2880;
constexpr char kImage[] = "floppy.img";  // beside this program

std::string image() {
    std::ifstream file(kImage, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string read(std::uint32_t sector, std::uint32_t count = 1) {
    std::string buffer(count * kSector, '~');
    return lib().ReadSector("A", sector, count, buffer.data()) == 1 ? buffer : "failed";
}

TEST(Windows95, KnowsTheDiskette) {
    EXPECT_EQ(lib().WinVersion(), 400u);
    EXPECT_EQ(lib().IsDisk("A"), 1);
    EXPECT_EQ(lib().DriveType(0), 144);
    EXPECT_EQ(lib().DiskType(0), 144);
}

TEST(Windows95, ReadsAndWritesSectors) {
    std::string before = image();
    ASSERT_EQ(before.size(), kSectors * kSector);
    EXPECT_EQ(read(0), before.substr(0, kSector));
    EXPECT_EQ(read(kSectors - 2, 2), before.substr((kSectors - 2) * kSector));

    std::string written = std::string(kSector, 'v') + std::string(kSector, 'x');
    EXPECT_EQ(lib().WriteSector("a:", 1000, 2, written.data()), 1);
    EXPECT_EQ(read(1000, 2), written);
    std::string after = image();
    EXPECT_EQ(after, std::string(before).replace(1000 * kSector, 2 * kSector, written)) << "and nothing else";
}

}  // namespace
}  // namespace vx::test
