// File handles on a made-up disk: the table of open files, and every call that can fail.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

class HandlesSeam : public testing::Test {
 protected:
    static std::int32_t (&table())[kHandleSlots] { return door()->library->handles; }

    lab::FakePlatform fake{door()};
};

TEST_F(HandlesSeam, ATableOfOpenFiles) {
    fake.disk.put("C:\\f");
    const std::int32_t opened = lib().FOpen("C:\\f", 0);
    const std::int32_t created = lib().FCreate("C:\\g", 0);
    const std::int32_t fresh = lib().FCreatef("C:\\h", 0);
    EXPECT_EQ(std::vector(table(), table() + 4), (std::vector{opened, created, fresh, kNoHandle}));
    fake.disk.unclosable = {created};
    EXPECT_EQ(lib().FClose(created), 0);
    EXPECT_EQ(table()[1], created) << "it is still open";
    EXPECT_EQ(lib().FClose(opened), 1);
    EXPECT_EQ(table()[0], kNoHandle);
    EXPECT_EQ(lib().FClose(opened), 0);
    EXPECT_EQ(lib().FOpen("C:\\f", 0), table()[0]) << "the first free slot";
    EXPECT_EQ(lib().FOpen("C:\\none", 0), -1);
    EXPECT_EQ(lib().FCreate("C:\\none\\f", 0), -1);
    EXPECT_EQ(table()[3], kNoHandle);
}

TEST_F(HandlesSeam, MoreFilesThanSlots) {
    fake.disk.put("C:\\f");
    std::vector<std::int32_t> handles;
    for (int i = 0; i <= kHandleSlots; ++i) handles.push_back(lib().FOpen("C:\\f", 0));
    EXPECT_EQ(std::count(handles.begin(), handles.end(), -1), 0);
    EXPECT_EQ(lib().FClose(handles.back()), 1) << "not recorded, and closed all the same";
    handles.back() = lib().FOpen("C:\\f", 0);
    EXPECT_TRUE(std::equal(std::begin(table()), std::end(table()), handles.begin()));
    fake.disk.closed.clear();
    fake.disk.unclosable = {handles[500]};
    door()->detach();
    EXPECT_EQ(fake.disk.openFiles(), 2u) << "it, and the last";
    handles.pop_back();
    EXPECT_EQ(fake.disk.closed, handles);
}

TEST_F(HandlesSeam, TransfersFallShort) {
    fake.disk.put("C:\\f", "abcdefgh");
    const std::int32_t handle = lib().FOpen("C:\\f", 2);
    const std::string& data = fake.disk.find("C:\\f")->data;
    auto& f = lib();
    auto atNextCall = [&](auto call, bool lasts = false) {
        f.FSeek(handle, 0, 0);
        fake.disk.fault = {.atCall = fake.disk.calls + 1, .lasts = lasts, .fallsShort = true};
        return call();
    };
    Dest dest(9);
    EXPECT_EQ(atNextCall([&] { return f.FRead(handle, dest, 8); }), 4);
    EXPECT_EQ(atNextCall([&] { return f.FReadDword(handle); }), 0xFFFFFFFF);
    EXPECT_EQ(f.FTell(handle), 2) << "what was read is read";
    EXPECT_EQ(atNextCall([&] { return f.FReadWord(handle); }), 65535);
    EXPECT_STREQ(atNextCall([&] { return f.FReadStr(handle, dest, 8); }), "abcd");
    EXPECT_EQ(atNextCall([&] { return f.FWrites(handle, "xyz"); }), 2);
    EXPECT_EQ(atNextCall([&] { return f.FWriteLine(handle, "12345678"); }), 1) << "the end of the line is there";
    EXPECT_EQ(data.substr(0, 6), "1234\r\n");
    EXPECT_EQ(atNextCall([&] { return f.FWriteLine(handle, "12345678"); }, true), 0);
    fake.disk.fault = {};
    fake.disk.capacity = data.size();
    f.FSeek(handle, 0, 2);
    EXPECT_EQ(f.FWriteLine(handle, ""), 0) << "a full disk";
    EXPECT_EQ(fake.process.error, platform::kDiskFull);
}

}  // namespace
}  // namespace vx::test
