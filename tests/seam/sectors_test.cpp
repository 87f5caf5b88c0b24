// Sectors of a made-up diskette.
#include <gtest/gtest.h>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using lab::Box;

class Sectors : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};

    Sectors() {
        run(platform::kWindows95Id);
        for (std::size_t i = 0; i < fake.hardware.diskette.size(); ++i) {
            fake.hardware.diskette[i] = static_cast<char>(i / 512 * 7 + i % 251);
        }
    }
    void run(platform::PlatformId id) {
        fake.process.id = id;
        fake.forgetClass();
    }
    std::string sectors(std::size_t first, std::size_t count) {
        return fake.hardware.diskette.substr(first * 512, count * 512);
    }
    const lab::DosCall& lastCall() { return fake.hardware.dosCalls.back(); }
};

std::string filled(std::size_t size) { return std::string(size, '~'); }

TEST_F(Sectors, AreReadAndWritten) {
    std::string buffer = filled(3 * 512);
    EXPECT_EQ(lib().ReadSector("A:", 1437, 3, buffer.data()), 1);
    EXPECT_EQ(buffer, sectors(1437, 3));
    EXPECT_EQ(lastCall().service, platform::kDosAbsoluteRead);
    EXPECT_EQ(lib().ReadSector("A:", 1438, 3, buffer.data()), 0) << "beyond the end";

    std::string written(2 * 512, 'w'), before = sectors(0, 10), behind = sectors(12, 1428);
    EXPECT_EQ(lib().WriteSector(" a", 10, 2, written.data()), 1);
    EXPECT_EQ(lastCall().service, platform::kDosAbsoluteWrite);
    EXPECT_EQ(fake.hardware.diskette, before + written + behind);
    fake.hardware.writeProtected = true;
    EXPECT_EQ(lib().WriteSector("A", 0, 1, written.data()), 0);
    EXPECT_EQ(sectors(0, 10), before);
    EXPECT_EQ(fake.process.errorMode, 0u) << "put back";
    EXPECT_EQ(fake.process.silences, 4) << "around each call";
}

TEST_F(Sectors, PacketAndRegisters) {
    struct Row {
        const char* drive;
        std::uint32_t first, count;
        std::string packet;  // up to the buffer's address
        std::uint32_t number;
    };
    const Row rows[] = {{"A", 0, 0, {"\0\0\0\0\0\0", 6}, 0},
                        {"C", 0x12345678, 0x9ABC, "\x78\x56\x34\x12\xBC\x9A", 2},
                        {"z:\\", 0xFFFFFFFF, 0x1FFFF, "\xFF\xFF\xFF\xFF\xFF\xFF", 25},
                        {"b", 7, 0xFFFF0000, {"\7\0\0\0\0\0", 6}, 0},  // A stands for B
                        {"", 1, 1, {"\1\0\0\0\1\0", 6}, 2}};
    fake.hardware.carry = true;
    char buffer[1];
    for (const auto& [drive, first, count, packet, number] : rows) {
        for (bool writes : {false, true}) {
            EXPECT_EQ(
                writes ? lib().WriteSector(drive, first, count, buffer) : lib().ReadSector(drive, first, count, buffer),
                0);
            ASSERT_EQ(lastCall().packet.size(), 10u);
            EXPECT_EQ(lastCall().packet.substr(0, 6), packet) << drive;
            EXPECT_EQ(lastCall().sectors, buffer);
            EXPECT_EQ(lastCall().parameters, "");
            const platform::DosRegisters& registers = lastCall().registers;
            EXPECT_EQ(registers.eax, number) << drive;
            EXPECT_EQ(registers.ecx, 0xFFFFFFFFu);
            EXPECT_EQ(registers.edx, 0u);
            EXPECT_EQ(registers.flags, platform::kCarryFlag);
        }
    }
    fake.volumes.drives['B'] = {};
    lib().ReadSector("b", 0, 1, buffer);
    EXPECT_EQ(lastCall().registers.eax, 1u) << "B itself";
    fake.hardware.carry = false;
    fake.hardware.hasDosDevice = false;
    EXPECT_EQ(lib().ReadSector("A", 0, 1, buffer), 0);
}

TEST_F(Sectors, RefusedWithoutACall) {
    char buffer[512];
    for (const char* drive : {"1", ":", "?"}) {
        EXPECT_EQ(lib().ReadSector(drive, 0, 1, buffer), 0);
        EXPECT_EQ(lib().WriteSector(drive, 0, 1, buffer), 0);
    }
    EXPECT_EQ(lib().ReadSector("A", 0, 1, nullptr), 0);
    EXPECT_EQ(lib().WriteSector("A", 0, 1, nullptr), 0);
    for (std::int32_t drive : {26, 32, 191, 223, 255, -1}) EXPECT_EQ(lib().DiskNumber(drive, 5), -1) << drive;
    EXPECT_TRUE(fake.hardware.dosCalls.empty());
    run(platform::kWindowsNtId);
    EXPECT_EQ(lib().ReadSector("1", 0, 1, buffer), 0);
    EXPECT_TRUE(fake.desktop.boxes.empty());
}

TEST_F(Sectors, OnOtherSystems) {
    char buffer[512] = "as it was";
    run(platform::kWindowsNtId);
    Box box{7, "ReadSector() for NT has not been implemented in this version.", "Vexlor Alert",
            platform::BoxIcon::kNone};
    EXPECT_EQ(lib().ReadSector("A", 0, 1, buffer), 0);
    EXPECT_EQ(lib().WriteSector("A", 0, 1, buffer), 0);
    EXPECT_EQ(lib().DiskNumber(0, 1), -1);
    EXPECT_EQ(fake.desktop.boxes, (std::vector{box, box, box})) << "kept: the same text for both";
    for (auto id : {platform::kWin32sId, platform::kUnknownId}) {
        run(id);
        EXPECT_EQ(lib().ReadSector("A", 0, 1, buffer), 1);
        EXPECT_EQ(lib().WriteSector("A", 0, 1, buffer), 1);
        EXPECT_EQ(lib().DiskNumber(0, 1), 0);
    }
    EXPECT_STREQ(buffer, "as it was");
    EXPECT_EQ(fake.desktop.boxes.size(), 3u);
    EXPECT_TRUE(fake.hardware.dosCalls.empty());
}

TEST_F(Sectors, SerialNumbers) {
    std::string& disk = fake.hardware.diskette;
    disk[38] = '\x28';
    std::string before = disk;
    EXPECT_EQ(lib().DiskNumber(0, -2), 0) << "no extended boot record";
    EXPECT_EQ(disk, before);
    EXPECT_EQ(fake.hardware.dosCalls.size(), 1u) << "nothing is written";

    EXPECT_EQ(lib().DiskNumber(0x100, 0x12345678), 0) << "only the low byte of the drive counts";
    std::string expected = before.replace(38, 5, "\x29\x78\x56\x34\x12");
    EXPECT_EQ(disk, expected);
    EXPECT_EQ(lib().DiskNumber(0, -2), 0x12345678);
    EXPECT_EQ(lib().DiskNumber(1, -1), 0x12345678) << "A stands for B";
    EXPECT_EQ(disk, expected.replace(39, 4, "\xFF\xFF\xFF\xFF"));
    EXPECT_EQ(lib().DiskNumber(0, INT32_MIN), -1);
    EXPECT_EQ(lib().DiskNumber(0, 0), INT32_MIN);
    EXPECT_EQ(lib().DiskNumber(0, -2), 0);
    EXPECT_EQ(disk, expected.replace(39, 4, 4, '\0'));

    fake.hardware.writeProtected = true;
    EXPECT_EQ(lib().DiskNumber(0, -2), 0);
    EXPECT_EQ(lib().DiskNumber(0, 7), -1);
    fake.hardware.carry = true;
    EXPECT_EQ(lib().DiskNumber(0, -2), -1);
    EXPECT_EQ(disk, expected);
}

TEST_F(Sectors, FormattingIsNotImplemented) {
    struct Row {
        std::int32_t (*call)();
        const char* title;
    };
    const Row rows[] = {
        {[] { return lib().FmtTrack(); }, "FmtTrack()"},   {[] { return lib().FmtVerify(); }, "FmtVerify()"},
        {[] { return lib().FmtSystem(); }, "FmtSystem()"}, {[] { return lib().FmtBoot(); }, "FmtBoot()"},
        {[] { return lib().FmtFat(); }, "FmtFat()"},       {[] { return lib().FmtDir(); }, "FmtDir()"}};
    for (auto [call, title] : rows) {
        fake.desktop.boxes.clear();
        EXPECT_EQ(call(), 0);
        Box box{7, "This function has not been implemented in this beta.", title, platform::BoxIcon::kNone};
        EXPECT_EQ(fake.desktop.boxes, std::vector{box});
    }
}

}  // namespace
}  // namespace vx::test
