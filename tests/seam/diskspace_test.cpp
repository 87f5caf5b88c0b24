// Space, labels, current directories and directories of made-up drives.
#include <gtest/gtest.h>

#include "include/vexlor32.h"
#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

using lab::MadeUpDrive;

class DiskSpace : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};

    std::string label(const char* drive) {
        Dest dest(260);
        EXPECT_EQ(lib().GetVolume(drive, dest), dest.get());
        EXPECT_EQ(lib().StrGetVolume(drive, dest), dest.text().size());
        return dest.text();
    }
    std::string directory(const char* drive) {
        Dest dest(261);
        EXPECT_EQ(lib().CurDir(drive, dest), dest.get());
        EXPECT_EQ(lib().StrCurDir(drive, dest), dest.text().size());
        return dest.text();
    }
    std::string withoutDrive(const char* drive) {
        Dest dest(261);
        EXPECT_EQ(lib().GetDir(drive, dest), dest.get());
        EXPECT_EQ(lib().strgetdir(drive, dest), dest.text().size());
        return dest.text();
    }
    std::string currentDrive() {
        Dest dest(3);
        EXPECT_EQ(lib().CurDrive(dest), dest.get());
        EXPECT_EQ(lib().StrCurDrive(dest), dest.text().size());
        return dest.text();
    }
};

TEST_F(DiskSpace, OfAllSizes) {
    struct Row {
        platform::DiskSpace space;
        std::int32_t size;
        std::uint32_t free, used, clusterSize, sectors;
    };
    constexpr std::uint32_t kMost = 0xFFFFFFFF;
    const Row rows[] = {
        {{8, 512, 1000, 2000}, 8192000, 4096000, 4096000, 4096, 16000},
        {{1, 512, 0, 2847}, 1457664, 0, 1457664, 512, 2847},
        {{1, 1, 0, 0}, 0, 0, 0, 1, 0},
        {{64, 512, 0, 65536}, INT32_MIN, 0, 0x80000000, 32768, 4194304},    // 2 GB
        {{64, 512, 131071, 131072}, 0, 0xFFFF8000, 32768, 32768, 8388608},  // 4 GB wrap to nothing
        {{8, 512, 1048577, 3145733}, 20480, 4096, 16384, 4096, 25165864},   // 12 GB
        {{8, 512, 100000001, 488378368}, -1056964608, 1578110976, 1659891712, 4096, 3907026944},  // 2 TB
        {{kMost, kMost, kMost, kMost}, -1, kMost, 0, 1, 1},
        {{0x10000, 0x10000, 7, 9}, 0, 0, 0, 0, 0x90000},
        {{8, 512, 2000, 1000}, 4096000, 8192000, kMost - 4096000 + 1, 4096, 8000},  // more free than there is
    };
    for (auto [space, size, free, used, clusterSize, sectors] : rows) {
        fake.volumes.drives['C'].space = space;
        EXPECT_EQ(lib().DiskSize("c"), size) << space.totalClusters;
        EXPECT_EQ(lib().DiskSpace("c"), free) << space.totalClusters;
        EXPECT_EQ(lib().DiskUsed("c"), used) << space.totalClusters;
        EXPECT_EQ(lib().Clusters("c"), space.totalClusters);
        EXPECT_EQ(lib().FreeClusters("c"), space.freeClusters);
        EXPECT_EQ(lib().ClustSize("c"), clusterSize) << space.totalClusters;
        EXPECT_EQ(lib().SectorSize("c"), space.bytesPerSector);
        EXPECT_EQ(lib().Sectors("c"), sectors) << space.totalClusters;
    }
    EXPECT_EQ(fake.process.errorMode, 0u) << "put back";
    EXPECT_EQ(fake.process.silences, static_cast<int>(8 * std::size(rows))) << "around each call";
}

TEST_F(DiskSpace, OfNoDrive) {
    fake.volumes.drives['A'].error = platform::kNotReady;
    for (const char* drive : {"1", "Q", "A"}) {
        EXPECT_EQ(lib().DiskSize(drive), *drive == 'A' ? 0 : -1) << drive;
        EXPECT_EQ(lib().DiskSpace(drive) | lib().DiskUsed(drive) | lib().Clusters(drive) | lib().FreeClusters(drive) |
                      lib().ClustSize(drive) | lib().SectorSize(drive) | lib().Sectors(drive),
                  0u)
            << drive;
    }
    EXPECT_EQ(lib().DiskSize(nullptr), 8192000) << "the current drive";
    EXPECT_EQ(lib().DiskSize("  "), 8192000);
}

TEST_F(DiskSpace, Labels) {
    EXPECT_EQ(label("c:"), "SYSTEM");
    EXPECT_EQ(label(""), "SYSTEM");
    EXPECT_EQ(label("a"), "");
    EXPECT_EQ(label("1"), "");
    EXPECT_EQ(label("Q"), "");
    EXPECT_EQ(lib().SetVolume("DATA", "c"), 1);
    EXPECT_EQ(label("c"), "DATA");
    EXPECT_EQ(lib().SetVolume(nullptr, "c"), 1);
    EXPECT_EQ(lib().SetVolume("MORE", "c"), 1);
    EXPECT_EQ(lib().DelVolume("C:"), 1);
    EXPECT_EQ(fake.volumes.labels, "[DATA]-[MORE]-");
    fake.volumes.drives['C'].labelError = platform::kAccessDenied;
    EXPECT_EQ(lib().SetVolume("X", "c"), 0);
    EXPECT_EQ(lib().DelVolume("c"), 0);
    EXPECT_EQ(lib().SetVolume("X", "1"), 0);
    EXPECT_EQ(lib().SetVolume("X", "q"), 0);
    EXPECT_EQ(lib().DelVolume("1"), 0);
    fake.volumes.drives['C'].error = platform::kNotReady;
    EXPECT_EQ(label("c"), "");
    EXPECT_EQ(lib().GetVolume("c", nullptr), nullptr);
    fake.volumes.drives['C'] = {.label = std::string(259, 'x')};
    EXPECT_EQ(label("c").size(), 259u);
}

TEST_F(DiskSpace, Status) {
    struct Row {
        std::uint32_t error;
        std::int32_t status;
    };
    const Row rows[] = {{19, VX_DISK_PROTECTED},
                        {24, 1},
                        {108, 1},
                        {21, VX_DISK_NOT_READY},
                        {30, VX_DISK_UNREADABLE},
                        {26, VX_DISK_UNFORMATTED},
                        {31, VX_DISK_FAILURE},
                        {15, VX_DISK_NO_DRIVE},
                        {20, -1},
                        {5, 8},
                        {32, 8},
                        {1, 8},
                        {112, 8}};
    for (auto [error, status] : rows) {
        fake.volumes.labels.clear();
        fake.volumes.drives['A'] = {.label = "MINE", .error = error};
        EXPECT_EQ(lib().DiskStatus(0), status) << error << " in reading";
        fake.volumes.drives['A'] = {.label = "MINE", .labelError = error};
        EXPECT_EQ(lib().DiskStatus(0), status) << error << " in writing";
        EXPECT_EQ(fake.volumes.drives['A'].label, "MINE") << error;
        EXPECT_EQ(fake.volumes.labels, "") << error;
    }
    fake.volumes.drives['A'] = {.label = "MINE"};
    fake.process.error = 19;
    EXPECT_EQ(lib().DiskStatus(0), VX_DISK_READY);
    EXPECT_EQ(fake.volumes.labels, "[F][MINE]");
    fake.volumes.drives['A'] = {};
    EXPECT_EQ(lib().DiskStatus(0), 0);
    EXPECT_EQ(fake.volumes.labels, "[F][MINE][F]-") << "there was no label";
    EXPECT_EQ(lib().DiskStatus(1), 8) << "B, which exists because A does, cannot be found";
    for (std::int32_t drive : {3, 25, 26, -1, INT32_MIN, INT32_MAX}) EXPECT_EQ(lib().DiskStatus(drive), -1) << drive;
    EXPECT_EQ(fake.process.errorMode, 0u) << "put back";
}

TEST_F(DiskSpace, CurrentDirectories) {
    fake.volumes.drives['C'].directory = "\\WORK\\NOW";
    EXPECT_EQ(currentDrive(), "C:");
    EXPECT_EQ(directory("c"), "C:\\WORK\\NOW");
    EXPECT_EQ(directory(nullptr), "C:\\WORK\\NOW");
    EXPECT_EQ(directory("a"), "A:\\");
    EXPECT_EQ(withoutDrive("C:"), "\\WORK\\NOW");
    EXPECT_EQ(withoutDrive("f"), "\\");
    char inPlace[261] = "f:";
    EXPECT_STREQ(lib().CurDir(inPlace, inPlace), "F:\\");
    EXPECT_STREQ(lib().GetDir(inPlace, inPlace), "\\");
    for (const char* bad : {"1", "Q"}) {
        EXPECT_EQ(directory(bad), "");
        EXPECT_EQ(withoutDrive(bad), "");
    }
    for (std::size_t length : {258, 259}) {
        fake.volumes.drives['C'].directory = std::string(length, 'd');
        EXPECT_EQ(directory("c"), length == 258 ? "C:" + std::string(258, 'd') : "") << "at most 260 characters";
    }
    EXPECT_EQ(lib().CurDrive(nullptr), nullptr);
    EXPECT_EQ(lib().CurDir("", nullptr), nullptr);
    EXPECT_EQ(lib().GetDir("", nullptr), nullptr);
    fake.volumes.current = 'A' - 1;
    EXPECT_EQ(currentDrive(), "") << "on no drive";
    EXPECT_EQ(directory(""), "");
}

TEST_F(DiskSpace, ChangingTheDrive) {
    EXPECT_EQ(lib().SetDrive("f:"), 1);
    EXPECT_EQ(currentDrive(), "F:");
    for (const char* bad : {"", "1", "Q", "b"}) EXPECT_EQ(lib().SetDrive(bad), 0) << bad;
    EXPECT_EQ(lib().SetDrive(nullptr), 0);
    EXPECT_EQ(lib().SetDrive("  c"), 1);
    EXPECT_EQ(currentDrive(), "C:");
}

TEST_F(DiskSpace, ChangingDirectories) {
    fake.volumes.drives['C'] = {.directory = "\\START", .startedIn = true};
    EXPECT_EQ(lib().ChangeDir("F:\\DATA"), 1);
    EXPECT_EQ(currentDrive(), "C:");
    EXPECT_EQ(directory("C"), "C:\\START") << "as it was";
    EXPECT_EQ(directory("F"), "F:\\DATA");
    EXPECT_EQ(lib().ChangeDir("SUB"), 1);
    EXPECT_EQ(directory(""), "C:\\START\\SUB");
    EXPECT_EQ(lib().ChangeDir("c:\\OTHER"), 1);
    EXPECT_EQ(directory(""), "C:\\OTHER");
    EXPECT_EQ(lib().ChangeDir("Q:\\X"), 0);
    EXPECT_EQ(lib().ChangeDir("what?"), 0);
    EXPECT_EQ(directory(""), "C:\\OTHER");
    fake.volumes.drives['C'].directory = std::string(300, 'd');
    EXPECT_EQ(lib().ChangeDir("F:\\"), 1);
    EXPECT_EQ(currentDrive(), "C:") << "by its drive, when its directory cannot be told";
    EXPECT_EQ(fake.process.errorMode, 0u) << "put back";
}

TEST_F(DiskSpace, FindingDirectories) {
    for (const char* path : {"C:\\ONE\\DATA", "C:\\TWO\\DATA", "C:\\TWO\\MORE\\DEEP", "C:\\TOP"})
        fake.disk.putDirectory(path);
    fake.disk.put("C:\\ONE\\FILE");
    fake.disk.putDirectory("C:\\TWO\\FILE");
    struct Row {
        const char* name;
        const char* list;
        const char* found;  // the directory of C afterwards; null if none is found
    };
    const Row rows[] = {{"DATA", "C:\\ONE;C:\\TWO", "\\ONE\\DATA"},
                        {"DATA", "C:\\MISSING;;C:\\TWO\\;C:\\ONE", "\\TWO\\DATA"},
                        {"FILE", "C:\\ONE;C:\\TWO", "\\TWO\\FILE"},
                        {"MORE\\DEEP", "c:\\two", "\\two\\MORE\\DEEP"},
                        {"TOP", "", "\\TOP"},
                        {"TOP", nullptr, "\\TOP"},
                        {"TOP", "A:;C:", "\\TOP"},
                        {"DATA", "", nullptr},
                        {"DATA", "C:\\", nullptr},
                        {"DATA", ";", nullptr},
                        {"", "C:\\", nullptr},
                        {nullptr, "C:\\", nullptr}};
    for (auto [name, list, found] : rows) {
        fake.volumes.current = 'F';
        fake.volumes.drives['C'].directory = "\\BEFORE";
        EXPECT_EQ(lib().FChDir(name, list), found != nullptr) << (name ? name : "NULL");
        EXPECT_EQ(fake.volumes.drives['C'].directory, found ? found : "\\BEFORE") << (name ? name : "NULL");
        EXPECT_EQ(currentDrive(), found ? "C:" : "F:") << (name ? name : "NULL");
    }
    std::string tooLong = "C:\\" + std::string(300, 'x') + ";C:\\ONE";
    EXPECT_EQ(lib().FChDir("DATA", tooLong.c_str()), 1);
    EXPECT_EQ(lib().FChDir(std::string(600, 'x').c_str(), "C:\\ONE"), 0);
}

TEST_F(DiskSpace, SystemDirectories) {
    Dest dest(261);
    EXPECT_EQ(lib().SysDir(dest), dest.get());
    EXPECT_EQ(dest.text(), "C:\\WINNT\\System32");
    EXPECT_EQ(lib().strsysdir(dest), 17u);
    EXPECT_EQ(lib().WinDir(dest), dest.get());
    EXPECT_EQ(dest.text(), "C:\\WINNT");
    EXPECT_EQ(lib().strwindir(dest), 8u);
    for (std::size_t length : {260, 261}) {
        fake.volumes.system = fake.volumes.windows = std::string(length, 's');
        EXPECT_EQ(lib().strsysdir(dest), length == 260 ? 260u : 0u);
        EXPECT_EQ(lib().strwindir(dest), length == 260 ? 260u : 0u);
    }
    EXPECT_EQ(lib().SysDir(nullptr), nullptr);
    EXPECT_EQ(lib().WinDir(nullptr), nullptr);
}

TEST_F(DiskSpace, Directories) {
    EXPECT_EQ(lib().MakeDir("C:\\A\\B"), 0) << "only the last level is made";
    EXPECT_EQ(lib().MakeDir("C:\\A"), 1);
    EXPECT_EQ(lib().MakeDir("C:\\A\\B"), 1);
    EXPECT_EQ(lib().MakeDir("C:\\A"), 0);
    EXPECT_EQ(fake.process.error, platform::kAlreadyExists);
    EXPECT_EQ(lib().RemoveDir("C:\\A"), 0);
    EXPECT_EQ(fake.process.error, platform::kDirectoryNotEmpty);
    EXPECT_EQ(lib().IsDir("C:\\A\\B"), 1);
    EXPECT_EQ(lib().RemoveDir("C:\\A\\B"), 1);
    EXPECT_EQ(lib().IsDir("C:\\A\\B"), 0);
    fake.disk.put("C:\\A\\FILE");
    EXPECT_EQ(lib().IsDir("C:\\A\\FILE"), 1) << "kept: a file counts";
    for (const char* nothing : {"", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(lib().MakeDir(nothing), 0);
        EXPECT_EQ(lib().RemoveDir(nothing), 0);
        EXPECT_EQ(lib().ChangeDir(nothing), 0);
        EXPECT_EQ(lib().RenDir(nothing, "X"), 0);
    }
}

TEST_F(DiskSpace, Renaming) {
    struct Row {
        const char* old;
        const char* name;
        const char* renamed;  // null if it is refused
    };
    const Row rows[] = {{"C:\\OLD", "D:\\X\\NEW", "C:\\NEW\\"},
                        {"C:\\OLD", "NEW.DIR", "C:\\NEW.DIR\\"},
                        {"c:\\old", "new", "C:\\new\\"},
                        {"C:\\DIR\\INNER", "\\OUTER", "C:\\DIR\\OUTER\\"},
                        {"OLD", "NEW", "C:\\NEW\\"},
                        {"C:\\O?D", "NEW", nullptr},
                        {"C:\\MISSING", "NEW", nullptr},
                        {"C:\\FILE", "NEW", nullptr},
                        {"C:\\OLD", "DIR", nullptr},
                        {"C:\\OLD", "FILE", nullptr},
                        {"C:\\OLD\\", "NEW", nullptr},
                        {"D:\\OLD", "NEW", nullptr}};
    for (auto [old, name, renamed] : rows) {
        lab::FakePlatform here(door());
        here.disk.put("C:\\OLD\\KEPT");
        here.disk.putDirectory("C:\\DIR\\INNER");
        here.disk.put("C:\\FILE");
        std::vector<std::string> before = here.disk.names();
        EXPECT_EQ(lib().RenDir(old, name), renamed != nullptr) << old << " to " << name;
        std::vector<std::string> after = here.disk.names();
        bool there = renamed && std::find(after.begin(), after.end(), renamed) != after.end();
        EXPECT_EQ(there, renamed != nullptr) << old << " to " << name;
        EXPECT_EQ(after == before, renamed == nullptr) << old << " to " << name;
        EXPECT_EQ(after.size(), before.size());
        EXPECT_EQ(here.disk.openSearches(), 0u);
        EXPECT_EQ(here.process.errorMode, 0u) << "put back";
    }
}

TEST_F(DiskSpace, BootDrive) {
    struct Row {
        std::vector<std::string> variables;
        std::int32_t drive;
    };
    const Row rows[] = {{{"SystemDrive=D:"}, 3},
                        {{"ComSpec=e:\\cmd.exe"}, 4},
                        {{"ComSpec=E:\\cmd.exe", "SystemDrive=z"}, 25},
                        {{"SystemDrive=", "COMSPEC=B:"}, 1},
                        {{"SystemDrive=9"}, -1},
                        {{}, 2}};
    for (const auto& [variables, drive] : rows) {
        fake.process.variables = variables;
        EXPECT_EQ(lib()._sysinfo2(1), drive) << (variables.empty() ? "" : variables[0]);
    }
    for (std::size_t length : {259, 260, 300, 32767}) {
        fake.process.variables = {"SystemDrive=D:" + std::string(length - 2, 'x'), "ComSpec=E:"};
        EXPECT_EQ(lib()._sysinfo2(1), 3) << length;
    }
    for (std::int32_t selector : {0, 3, -1, INT32_MIN, INT32_MAX}) EXPECT_EQ(lib()._sysinfo2(selector), 0) << selector;
}

}  // namespace
}  // namespace vx::test
