// Open files of the system itself: the platform's own interface, before any stand-in takes its place.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/seam/seam.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

using namespace platform;

class SystemFiles : public testing::Test {
 protected:
    Platform system = *door()->platform;
    Files& files = *system.files;
    Workplace place;

    std::uint32_t error() { return system.process->lastError(); }
    void clearError() { system.process->setLastError(0); }

    std::string read(std::int32_t handle, std::uint32_t count) {
        std::string text(count, '~');
        std::int32_t done = files.read(handle, text.data(), count);
        return done < 0 ? "failed" : text.substr(0, static_cast<std::size_t>(done));
    }
    std::int32_t write(std::int32_t handle, const std::string& text) {
        return files.write(handle, text.data(), static_cast<std::uint32_t>(text.size()));
    }
};

TEST_F(SystemFiles, WhatIsWrittenIsReadBack) {
    std::int32_t handle = files.create(place.path("new").c_str(), 0);
    ASSERT_NE(handle, -1) << error();
    EXPECT_EQ(write(handle, "one two three"), 13);
    EXPECT_EQ(files.write(handle, "x", 0), 0);
    EXPECT_EQ(files.size(handle), 13);
    EXPECT_EQ(files.seek(handle, 4, kFromStart), 4);
    EXPECT_EQ(read(handle, 3), "two");
    EXPECT_EQ(files.seek(handle, 1, kFromCurrent), 8);
    EXPECT_EQ(read(handle, 100), "three");
    EXPECT_EQ(read(handle, 100), "");
    EXPECT_EQ(files.seek(handle, -5, kFromEnd), 8);
    EXPECT_TRUE(files.truncate(handle));
    EXPECT_EQ(files.size(handle), 8);
    char at[4];
    EXPECT_EQ(files.readAt(handle, 6, at, 4), 2);
    EXPECT_EQ(files.readAt(handle, 8, at, 4), 0) << "the end is no failure";
    EXPECT_EQ(files.writeAt(handle, 10, "end", 3), 3);
    EXPECT_TRUE(files.flush(handle));
    EXPECT_TRUE(files.close(handle));
    EXPECT_EQ(place.get("new"), std::string("one two \0\0end", 13));
}

TEST_F(SystemFiles, ClosedAndMadeUpHandlesAreInvalid) {
    std::int32_t stale = files.create(place.path("f").c_str(), 0);
    EXPECT_TRUE(files.close(stale));
    for (std::int32_t handle : {stale, 0, -1, 7, 0x7FFFFFF0}) {
        clearError();
        char byte;
        EXPECT_EQ(files.read(handle, &byte, 1), -1) << handle;
        EXPECT_EQ(error(), kInvalidHandle) << handle;
        EXPECT_FALSE(files.close(handle)) << handle;
    }
}

}  // namespace
}  // namespace vx::test
