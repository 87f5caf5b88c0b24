// Drives of made-up machines, of Windows 95, NT and Win32s.
#include <gtest/gtest.h>

#include <array>

#include "include/vexlor32.h"
#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using lab::MadeUpDrive;
using platform::DriveKind;

class Drives : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};

    void run(platform::PlatformId id) {
        fake.process.id = id;
        fake.forgetClass();
    }
    void setDrives(std::string_view letters) {
        fake.volumes.drives.clear();
        for (char letter : letters) fake.volumes.drives[letter] = {};
    }
    std::string all() {
        Dest dest(78);
        EXPECT_EQ(lib().AllDrives(dest), dest.get());
        EXPECT_EQ(lib().StrAllDrives(dest), dest.text().size());
        return dest.text();
    }
    std::string letters() {
        Dest dest(27);
        EXPECT_EQ(lib().DriveStr(dest), dest.get());
        EXPECT_EQ(lib().StrDriveStr(dest), dest.text().size());
        return dest.text();
    }
};

TEST_F(Drives, Texts) {
    setDrives("ACD");
    fake.volumes.current = 'D';
    struct Row {
        const char* text;
        std::int32_t exists, number;
    };
    const Row rows[] = {{"a", 1, 0},     {"A:\\x", 1, 0}, {"b", 1, 1},    {"c:", 1, 2},   {"  d", 1, 3},
                        {"E", 0, 4},     {"z", 0, 25},    {"1", 0, -1},   {"", 1, 3},     {"   ", 1, 3},
                        {nullptr, 1, 3}, {":", 0, -1},    {"\tc", 0, -1}, {"\\c", 0, -1}, {"[", 0, -1},
                        {"`", 0, -1},    {"{", 0, -1},    {"@", 0, -1},   {"\x82", 0, -1}};  // an accented letter,
                                                                                             // whose capital is an E
    for (auto [text, exists, number] : rows) {
        EXPECT_EQ(lib().IsDisk(text), exists) << (text ? text : "NULL");
        EXPECT_EQ(lib().DosDrive(text), number) << (text ? text : "NULL");
    }
    fake.volumes.current = 'A' - 1;  // on no drive
    EXPECT_EQ(lib().IsDisk(""), 0);
    EXPECT_EQ(lib().DosDrive(""), -1);
}

TEST_F(Drives, Lists) {
    struct Row {
        const char* letters;
        const char* all;
        std::int32_t floppies;  // of Windows NT; kept: a mask
        std::int32_t last;
    };
    const Row rows[] = {{"", "", 0, 4},
                        {"ACD", "A: C: D:", 1, 3},
                        {"C", "C:", 0, 2},
                        {"B", "B:", 2, 1},
                        {"ABCZ", "A: B: C: Z:", 3, 25},
                        {"ABCDEFGHIJKLMNOPQRSTUVWXYZ",
                         "A: B: C: D: E: F: G: H: I: J: K: L: M: N: O: P: Q: R: S: T: U: V: W: X: Y: Z:", 3, 25}};
    for (auto [drives, list, floppies, last] : rows) {
        setDrives(drives);
        EXPECT_EQ(all(), list);
        EXPECT_EQ(letters(), drives);
        EXPECT_EQ(lib().Numfloppy(), floppies) << drives;
        EXPECT_EQ(lib().LastDrive(), last) << drives;
        EXPECT_EQ(lib()._sysinfo2(2), static_cast<std::int32_t>(strlen(drives))) << drives;
        for (std::int32_t drive = -2; drive < 40; ++drive) {
            auto has = [drives](int letter) { return std::string_view(drives).find(static_cast<char>(letter)) < 26; };
            bool expected = drive >= 0 && drive < 26 && (has('A' + drive) || (drive == 1 && has('A')));
            EXPECT_EQ(lib().IsDosDisk(drive), expected) << drives << ", " << drive;
        }
    }
    EXPECT_EQ(lib().AllDrives(nullptr), nullptr);
    EXPECT_EQ(lib().DriveStr(nullptr), nullptr);
    for (std::int32_t drive : {INT32_MIN, INT32_MAX}) EXPECT_EQ(lib().IsDosDisk(drive), 0);
}

TEST_F(Drives, Kinds) {
    struct Row {
        DriveKind kind;
        const char* fileSystem;
        std::uint32_t error;
        const char* expected;  // f fixed, r removable, c CD
    };
    const Row rows[] = {
        {platform::kUnknownDrive, "", 0, ""},
        {platform::kNoRootDirectory, "", 0, ""},
        {platform::kRemovableDrive, "CDFS", 0, "r"},
        {platform::kRemovableDrive, "", platform::kNotReady, "r"},
        {platform::kFixedDrive, "CD", 0, "f"},
        {platform::kCdRomDrive, "CDFS", 0, "c"},
        {platform::kRamDisk, "FAT", 0, ""},
        {platform::kRemoteDrive, "NET", 0, ""},
        {platform::kRemoteDrive, "CDFS", 0, ""},
        {platform::kRemoteDrive, "CD", 0, "c"},
        {platform::kRemoteDrive, "C", 0, "c"},
        {platform::kRemoteDrive, "D", 0, "c"},
        {platform::kRemoteDrive, "cd", 0, ""},
        {platform::kRemoteDrive, "", 0, "c"},
        {platform::kRemoteDrive, "CD", platform::kNotReady, ""},
    };
    for (auto [kind, fileSystem, error, expected] : rows) {
        fake.volumes.drives = {{'X', {.kind = kind, .fileSystem = fileSystem, .error = error}}};
        std::string found;
        if (lib().IsFixed("x:")) found += 'f';
        if (lib().IsRemovable("x:")) found += 'r';
        if (lib().IsCdRom("x:")) found += 'c';
        EXPECT_EQ(found, expected) << kind << " with " << fileSystem;
        EXPECT_EQ(lib().IsFloppy("x:"), lib().IsRemovable("x:")) << kind;
        EXPECT_EQ(lib().IsRemote("x:"), 0) << "kept: no drive is remote";
        EXPECT_EQ(lib().IsDrive("x:"), error == 0) << error;
        EXPECT_EQ(lib().MediaType("x:"), error == 0 ? 1 : -1) << error;
    }
    for (const char* bad : {"1", "y"}) {
        EXPECT_EQ(lib().IsFixed(bad) + lib().IsRemovable(bad) + lib().IsFloppy(bad) + lib().IsCdRom(bad), 0) << bad;
        EXPECT_EQ(lib().IsDrive(bad), 0) << bad;
        EXPECT_EQ(lib().MediaType(bad), -1) << bad;
    }
}

// Capacity codes of all sector totals, through what DOS says of a diskette.
TEST_F(Drives, DisketteCodes) {
    run(platform::kWindows95Id);
    const std::map<std::uint16_t, std::int32_t> codes = {
        {320, VX_DISKETTE_160K},   {360, VX_DISKETTE_180K},  {640, VX_DISKETTE_320K},  {720, VX_DISKETTE_360K},
        {1232, VX_DISKETTE_1200K}, {1440, VX_DISKETTE_720K}, {2002, VX_DISKETTE_1M},   {2400, VX_DISKETTE_1200K},
        {2880, VX_DISKETTE_1440K}, {4004, VX_DISKETTE_2M},   {5760, VX_DISKETTE_2880K}};
    for (std::uint32_t sectors = 0; sectors < 65536; sectors += sectors < 6000 ? 1 : 997) {
        fake.hardware.mediumSectors = static_cast<std::uint16_t>(sectors);
        auto found = codes.find(fake.hardware.mediumSectors);
        ASSERT_EQ(lib().DiskType(0), found == codes.end() ? VX_DISKETTE_UNKNOWN : found->second) << sectors;
    }
}

TEST_F(Drives, DiskettesByDos) {
    run(platform::kWindows95Id);
    fake.hardware.mediumSectors = 720;
    EXPECT_EQ(lib().DriveType(0), 144);
    EXPECT_EQ(lib().DiskType(0), 360);
    ASSERT_EQ(fake.hardware.dosCalls.size(), 2u);
    for (std::size_t i : {0u, 1u}) {
        const lab::DosCall& call = fake.hardware.dosCalls[i];
        EXPECT_EQ(call.service, platform::kDosIoctl);
        EXPECT_EQ(call.registers.eax, 0x440Du);
        EXPECT_EQ(call.registers.ecx, 0x0860u);
        EXPECT_EQ(call.registers.ebx, 1u);
        EXPECT_EQ(call.registers.edi | call.registers.esi, 0u);
        EXPECT_EQ(call.registers.flags, platform::kCarryFlag);
        EXPECT_EQ(call.parameters, std::string(1, i ? '\1' : '\0') + std::string(31, '\0')) << "the special function";
        EXPECT_EQ(call.packet, "");
    }
    fake.hardware.dosCalls.clear();
    lib().DiskType(1);
    EXPECT_EQ(fake.hardware.dosCalls[0].registers.ebx, 1u) << "A stands for B";
    setDrives("ABC");
    lib().DiskType(1);
    EXPECT_EQ(fake.hardware.dosCalls[1].registers.ebx, 2u);
    setDrives("C");
    lib().DiskType(1);
    EXPECT_EQ(fake.hardware.dosCalls[2].registers.ebx, 2u);

    fake.hardware.carry = true;
    EXPECT_EQ(lib().DriveType(0), -1);
    fake.hardware.carry = false;
    fake.hardware.hasDosDevice = false;
    EXPECT_EQ(lib().DiskType(0), -1);
    EXPECT_EQ(fake.process.errorMode, 0u) << "put back";
    EXPECT_EQ(fake.process.silences, 7) << "around each call";
}

TEST_F(Drives, DiskettesByDevice) {
    // By media type 0 to 12.
    const std::int32_t codes[] = {0, 120, 144, 288, 0, 720, 360, 320, 320, 180, 160, 0, 0};
    for (std::uint32_t type = 0; type < std::size(codes); ++type) {
        fake.hardware.media = {{'A', {type}}};
        EXPECT_EQ(lib().DriveType(0), codes[type]) << type;
        EXPECT_EQ(lib().DiskType(0), codes[type]) << type;
    }
    fake.hardware.media = {{'A', {0xFFFFFFFF}}};
    EXPECT_EQ(lib().DiskType(0), 0);
    fake.hardware.media = {{'A', {6, 5, 2, 10}}};
    EXPECT_EQ(lib().DriveType(0), 144) << "the largest";
    EXPECT_EQ(lib().DiskType(0), 360) << "the one in the drive";
    fake.hardware.media = {{'A', std::vector<std::uint32_t>(30, 6)}};
    fake.hardware.media['A'][19] = 5;
    fake.hardware.media['A'][20] = 3;
    fake.hardware.queries.clear();
    EXPECT_EQ(lib().DriveType(0), 720) << "of the first twenty";
    fake.hardware.media['A'].clear();
    EXPECT_EQ(lib().DiskType(0), 0) << "of none";
    fake.hardware.media = {{'A', {2}}};
    EXPECT_EQ(lib().DriveType(1), 144) << "A stands for B";
    setDrives("ABC");
    EXPECT_EQ(lib().DiskType(1), -1);
    setDrives("B");
    EXPECT_EQ(lib().DriveType(1), -1);
    EXPECT_EQ(fake.hardware.queries, "At20 Ag1 At20 Bg1 Bt20 ");
    EXPECT_TRUE(fake.hardware.dosCalls.empty());
    EXPECT_EQ(fake.process.errorMode, 0u) << "put back";

    for (std::int32_t drive : {2, -1, 25, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(lib().DriveType(drive), -1) << drive;
        EXPECT_EQ(lib().DiskType(drive), -1) << drive;
    }
}

TEST_F(Drives, DiskettesElsewhere) {
    run(platform::kUnknownId);
    EXPECT_EQ(lib().DriveType(0), 0);
    EXPECT_EQ(fake.desktop.boxes.size(), 0u);
    run(platform::kWin32sId);
    lab::Box box{7, "DriveType() is unavailable in Win32s", "Vexlor Alert", platform::BoxIcon::kNone};
    EXPECT_EQ(lib().DriveType(0), 0);
    EXPECT_EQ(lib().DiskType(1), 0);
    EXPECT_EQ(lib().DriveType(2), -1);
    EXPECT_EQ(fake.desktop.boxes, (std::vector{box, box})) << "kept: the same text for both";
    EXPECT_TRUE(fake.hardware.dosCalls.empty());
    EXPECT_EQ(fake.hardware.queries, "");
}

TEST_F(Drives, CountsByCmos) {
    struct Row {
        std::uint8_t floppies, first, second;
        std::int32_t floppyCount, diskCount;
    };
    const Row rows[] = {{0x00, 0, 0, 0, 0}, {0x40, 47, 0, 1, 1}, {0x04, 0, 1, 1, 1}, {0x44, 255, 255, 2, 2}};
    for (auto id : {platform::kWindows95Id, platform::kWin32sId}) {
        run(id);
        for (auto [floppies, first, second, floppyCount, diskCount] : rows) {
            fake.hardware.cmos[0x10] = floppies;
            fake.hardware.cmos[0x19] = first;
            fake.hardware.cmos[0x1A] = second;
            EXPECT_EQ(lib().Numfloppy(), floppyCount) << int{floppies};
            EXPECT_EQ(lib().NumFixed(), diskCount) << int{first} << ", " << int{second};
        }
    }
}

TEST_F(Drives, HardDisksByDevice) {
    struct Row {
        std::vector<std::uint32_t> opening;
        std::int32_t count;
    };
    const Row rows[] = {{{}, 0},
                        {{0}, 1},
                        {{5, 5, 0}, 3},
                        {{0, platform::kSharingViolation, 0}, 1},
                        {{platform::kFileNotFound, 0}, 0},
                        {std::vector<std::uint32_t>(8, 5), 8},
                        {std::vector<std::uint32_t>(12, 0), 8}};
    for (auto id : {platform::kWindowsNtId, platform::kUnknownId}) {
        run(id);
        for (const auto& [opening, count] : rows) {
            fake.hardware.physicalDrives = opening;
            fake.process.error = 0;
            EXPECT_EQ(lib().NumFixed(), count) << opening.size();
        }
    }
    EXPECT_EQ(fake.process.errorMode, 0u) << "put back";
    EXPECT_EQ(fake.process.silences, static_cast<int>(2 * std::size(rows))) << "no box for a drive without a disk";
}

TEST_F(Drives, LastDriveOfConfigSys) {
    struct Row {
        const char* text;
        std::int32_t last;
    };
    // Without a setting the last drive is F, the current one C.
    const Row rows[] = {
        {"", 5},
        {"FILES=40\r\nLASTDRIVE=Z\r\n", 25},
        {"FILES=40\nlastdrive = m", 12},
        {"  LastDrive=k  \r\nLASTDRIVE=Z\r\n", 10},
        {"REM LASTDRIVE=Z\r\nLASTDRIVE=H", 7},
        {"LASTDRI\r\nLASTDRIV\r\n", 2},  // no value is the current drive
        {"LASTDRIV=Z", 2},               // kept: its = becomes the E
        {"LASTDRIVES=Z", 25},
        {"LASTDRIVX=Z", 25},
        {"LASTDRIVE==Q=Z", 16},
        {"LASTDRIVE=", 2},
        {"LASTDRIVE=   ", 2},
        {"LASTDRIVE=9", -1},
        {"LASTDRIVE=\tQ", -1},
        {"\tLASTDRIVE=Q", 5},
        {"\n\n\nLASTDRIVE=A", 0},
        {"LASTDRIVE=zebra", 25},
    };
    for (auto [text, last] : rows) {
        fake.disk.put("C:\\CONFIG.SYS", text);
        EXPECT_EQ(lib().LastDrive(), last) << text;
        EXPECT_EQ(fake.disk.openFiles(), 0u);
    }
    EXPECT_EQ(fake.process.errorMode, 0u) << "put back";
    EXPECT_EQ(fake.process.silences, static_cast<int>(std::size(rows))) << "no box when the shell is on a diskette";
    fake.disk.put("C:\\CONFIG.SYS", "REM " + std::string(5000, 'x') + "\nLASTDRIVE=T\n" + std::string(3000, '\n'));
    EXPECT_EQ(lib().LastDrive(), 19);
    fake.disk.put("C:\\CONFIG.SYS", std::string(2048, ' ') + "LASTDRIVE=T");
    EXPECT_EQ(lib().LastDrive(), 19) << "lines of more than 2048 bytes are read in pieces";
}

TEST_F(Drives, WhereConfigSysIs) {
    fake.disk.put("C:\\CONFIG.SYS", "LASTDRIVE=J");
    fake.disk.directory = "C:\\WORK";
    for (const char* shell : {"COMSPEC=c:\\windows\\command.com", "ComSpec=", "OTHER=D:", "COMSPEC=\\command.com"}) {
        fake.process.variables = {shell};
        EXPECT_EQ(lib().LastDrive(), 9) << shell;
    }
    fake.process.variables = {"COMSPEC=D:\\command.com"};
    EXPECT_EQ(lib().LastDrive(), 5) << "there is none on D:";
    for (std::size_t length : {259, 260, 300, 32767}) {
        fake.process.variables = {"COMSPEC=D:" + std::string(length - 2, 'x')};
        EXPECT_EQ(lib().LastDrive(), 5) << length;
    }
    fake.process.variables = {};
    for (int call = 1; call <= 3; ++call) {
        fake.disk.put("C:\\CONFIG.SYS", "FILES=1\nLASTDRIVE=J\n");
        fake.disk.calls = 0;
        fake.disk.fault = {.atCall = call};
        EXPECT_EQ(lib().LastDrive(), 5) << "when call " << call << " fails";
        EXPECT_EQ(fake.disk.openFiles(), 0u);
    }
}

}  // namespace
}  // namespace vx::test
