// Who may open a file that another handle, of this process or of another one, has open.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "tests/support/child.h"
#include "tests/support/library.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

constexpr std::uint32_t kSharingViolation = 32;

bool reads(std::int32_t mode) { return (mode & 3) != 1; }
bool writes(std::int32_t mode) { return (mode & 3) != 0; }
bool deniesRead(std::int32_t mode) { return (mode & 0x70) == 0x10 || (mode & 0x70) == 0x30; }
bool deniesWrite(std::int32_t mode) { return (mode & 0x70) == 0x10 || (mode & 0x70) == 0x20; }

bool bothMay(std::int32_t one, std::int32_t other) {
    auto suffers = [](std::int32_t by, std::int32_t from) {
        return (deniesRead(from) && reads(by)) || (deniesWrite(from) && writes(by));
    };
    return !suffers(one, other) && !suffers(other, one);
}

// Opens a file, says so by making another one, and keeps it open until it is killed.
const Role holder("hold", [](const Arguments& arguments) {
    std::int32_t handle = lib().FOpen(arguments.at(0).c_str(), std::stoi(arguments.at(1)));
    std::ofstream(arguments.at(2)) << handle;
    for (;;) std::this_thread::sleep_for(std::chrono::seconds(1));
    return 0;
});

template <typename Check>
void forAllModes(Check check) {
    for (std::int32_t access : {0, 1, 2}) {
        for (std::int32_t share : {0x00, 0x10, 0x20, 0x30, 0x40}) check(access | share);
    }
}

void expectAllModes(const std::string& file, std::int32_t first) {
    forAllModes([&](std::int32_t second) {
        SCOPED_TRACE(testing::Message() << std::hex << "first " << first << ", second " << second);
        lib().SetFError(0);
        std::int32_t handle = lib().FOpen(file.c_str(), second);
        EXPECT_EQ(handle != -1, bothMay(first, second));
        EXPECT_EQ(lib().FError(), handle == -1 ? kSharingViolation : 0);
        lib().FClose(handle);
    });
    std::int32_t created = lib().FCreate(file.c_str(), 0);
    EXPECT_EQ(created != -1, bothMay(first, 2)) << first;
    lib().FClose(created);
}

TEST(Sharing, BetweenHandlesOfOneProcess) {
    Workplace place;
    std::string file = place.put("shared", "text");
    forAllModes([&](std::int32_t mode) {
        std::int32_t handle = lib().FOpen(file.c_str(), mode);
        ASSERT_NE(handle, -1) << mode;
        expectAllModes(file, mode);
        lib().FClose(handle);
    });
}

TEST(Sharing, BetweenProcesses) {
    Workplace place;
    std::string file = place.put("shared", "text");
    forAllModes([&](std::int32_t mode) {
        std::string name = "ready" + std::to_string(mode);
        Child child("hold", {file, std::to_string(mode), place.native(name).string()});
        for (int i = 0; i < 4000 && place.get(name).empty(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        ASSERT_GT(std::atoi(place.get(name).c_str()), 0) << mode;
        expectAllModes(file, mode);
        EXPECT_EQ(lib().FErase(file.c_str()), -1) << "an open file is not deleted";
        child.kill();
        child.wait();
        EXPECT_EQ(lib().FClose(lib().FOpen(file.c_str(), 0x12)), 1) << "nothing is left of who was killed";
    });
    EXPECT_EQ(lib().FErase(file.c_str()), 0);
}

}  // namespace
}  // namespace vx::test
