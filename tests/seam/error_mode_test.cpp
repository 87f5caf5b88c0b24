// No call that may reach for a disk lets the system show a box, and each puts the mode back.
#include <gtest/gtest.h>

#include <functional>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

TEST(ErrorMode, IsSilentAroundEveryCallOfADrive) {
    lab::FakePlatform fake{door()};
    fake.disk.put("C:\\d\\f");
    std::int32_t handle = fake.disk.open("C:\\d\\f", platform::kRead);
    Dest dest(2048);
    struct Row {
        const char* name;
        std::function<void()> call;
        platform::PlatformId id = platform::kWindowsNtId;
    };
    const Row rows[] = {
        {"IsDrive", [] { lib().IsDrive("C"); }},
        {"IsFixed", [] { lib().IsFixed("C"); }},
        {"IsCdRom", [] { lib().IsCdRom("F"); }},
        {"MediaType", [] { lib().MediaType("C"); }},
        {"DriveType", [] { lib().DriveType(0); }},
        {"DiskType", [] { lib().DiskType(0); }, platform::kWindows95Id},
        {"NumFixed", [] { lib().NumFixed(); }},
        {"LastDrive", [] { lib().LastDrive(); }},
        {"DiskSpace", [] { lib().DiskSpace("C"); }},
        {"GetVolume", [&] { lib().GetVolume("C", dest); }},
        {"SetVolume", [] { lib().SetVolume("X", "C"); }},
        {"DiskStatus", [] { lib().DiskStatus(2); }},
        {"CurDir", [&] { lib().CurDir("C", dest); }},
        {"SetDrive", [] { lib().SetDrive("A"); }},
        {"ChangeDir", [] { lib().ChangeDir("C:\\d"); }},
        {"FChDir", [] { lib().FChDir("d", "C:\\"); }},
        {"MakeDir", [] { lib().MakeDir("C:\\made"); }},
        {"RenDir", [] { lib().RenDir("C:\\made", "named"); }},
        {"IsDir", [] { lib().IsDir("C:\\named"); }},
        {"RemoveDir", [] { lib().RemoveDir("C:\\named"); }},
        {"MakePath", [] { lib().MakePath("C:\\p\\q"); }},
        {"FileDrive", [&] { lib().FileDrive(handle); }},
        {"ReadSector", [&] { lib().ReadSector("C", 0, 1, dest); }, platform::kWindows95Id},
        {"FPrune", [] { lib().FPrune("C:\\p", "*"); }},
        {"Prune", [] { lib().Prune("C:\\p", 0); }},
    };
    const char* name = "";
    int calls = 0;
    fake.volumes.onCall = fake.hardware.onCall = fake.disk.onCall = [&] {
        ++calls;
        EXPECT_EQ(fake.process.errorMode, platform::kFailSilently) << name << ", call " << calls;
    };
    for (const Row& row : rows) {
        name = row.name;
        calls = 0;
        fake.process.id = row.id;
        fake.forgetClass();
        row.call();
        EXPECT_GT(calls, 0) << name;
        EXPECT_EQ(fake.process.errorMode, 0u) << name;
    }
    name = "FMove, which copies in the caller's mode";
    std::uint32_t last = 0;  // while the directory was not there: when it was made
    fake.disk.onCall = [&] {
        if (!fake.disk.find("C:\\new")) last = fake.process.errorMode;
    };
    EXPECT_EQ(lib().FMove("C:\\d\\f", "C:\\new", 0), 0);
    EXPECT_EQ(last, platform::kFailSilently);
    fake.disk.close(handle);
}

}  // namespace
}  // namespace vx::test
