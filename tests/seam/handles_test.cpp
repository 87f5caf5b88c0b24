// File handles on a made-up disk: the table of open files, and every call that can fail.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

constexpr std::uint32_t kReason = 1117;

class HandlesSeam : public testing::Test {
 protected:
    void SetUp() override { emptyTable(); }
    void TearDown() override { emptyTable(); }

    static void emptyTable() { std::fill(std::begin(table()), std::end(table()), kNoHandle); }
    static std::int32_t (&table())[kHandleSlots] { return door()->library->handles; }

    std::int32_t openNew(const std::string& data) {
        fake.disk.put("C:\\f", data);
        return lib().FOpen("C:\\f", 2);
    }

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
    EXPECT_TRUE(std::equal(std::begin(table()), std::end(table()), handles.begin()));
    EXPECT_EQ(lib().FClose(handles.back()), 1) << "not recorded, and closed all the same";
    handles.back() = lib().FOpen("C:\\f", 0);
    fake.disk.closed.clear();
    door()->detach();
    EXPECT_EQ(fake.disk.openFiles(), 1u) << "all but the last";
    handles.pop_back();
    EXPECT_EQ(fake.disk.closed, handles);
}

// Each call of the disk fails in turn, at once and for good; the reason is what FError tells.
TEST_F(HandlesSeam, FailuresShowInTheResult) {
    struct Row {
        const char* what;
        std::function<std::int64_t(std::int32_t)> call;
        std::int64_t failed;
        std::int64_t failedLater = failed;  // when it was not the first of its calls
    };
    Dest dest(9);
    auto& f = lib();
    const Row rows[] = {
        {"FOpen", [&](std::int32_t) { return f.FOpen("C:\\f", 0); }, -1},
        {"FCreatef", [&](std::int32_t) { return f.FCreatef("C:\\new", 0); }, -1},
        {"FClose", [&](std::int32_t h) { return f.FClose(h); }, 0},
        {"FRead", [&](std::int32_t h) { return f.FRead(h, dest, 4); }, -1},
        {"FWrite", [&](std::int32_t h) { return f.FWrite(h, "abc", 3); }, -1},
        {"FSeek", [&](std::int32_t h) { return f.FSeek(h, 1, 0); }, -1},
        {"FTell", [&](std::int32_t h) { return f.FTell(h); }, -1},
        {"FLen", [&](std::int32_t h) { return f.FLen(h); }, -1},
        {"FBof", [&](std::int32_t h) { return f.FBof(h); }, 0},
        {"FEof", [&](std::int32_t h) { return f.FEof(h); }, 1},
        {"FTruncate", [&](std::int32_t h) { return f.FTruncate(h); }, 0},
        {"FCommit", [&](std::int32_t h) { return f.FCommit(h); }, 0},
        {"FReads", [&](std::int32_t h) { return f.FReads(h, dest, 8, 'd'); }, -1, 4},
        {"FWriteLine", [&](std::int32_t h) { return f.FWriteLine(h, "abc"); }, 0, 1},
    };
    for (const Row& row : rows) {
        for (int at = 1;; ++at) {
            const std::int32_t handle = openNew("abcdefgh");
            fake.process.error = 0;
            fake.disk.fault = {.atCall = fake.disk.calls + at, .lasts = true, .code = kReason};
            const std::int64_t result = row.call(handle);
            const bool reached = fake.disk.calls >= fake.disk.fault.atCall;
            fake.disk.fault = {};
            if (!reached) break;
            EXPECT_EQ(result, at == 1 ? row.failed : row.failedLater) << row.what << ", call " << at;
            EXPECT_EQ(fake.process.error, kReason) << row.what << ", call " << at;
        }
    }
}

TEST_F(HandlesSeam, TransfersFallShort) {
    const std::int32_t handle = openNew("abcdefgh");
    auto nextCall = [&](bool lasts = false) {
        lib().FSeek(handle, 0, 0);
        fake.disk.fault = {.atCall = fake.disk.calls + 1, .lasts = lasts, .fallsShort = true};
    };
    Dest dest(9);
    nextCall();
    EXPECT_EQ(lib().FRead(handle, dest, 8), 4);
    nextCall();
    EXPECT_EQ(lib().FReadDword(handle), 0xFFFFFFFF);
    EXPECT_EQ(lib().FTell(handle), 2) << "what was read is read";
    nextCall();
    EXPECT_EQ(lib().FReadWord(handle), 65535);
    nextCall();
    EXPECT_STREQ(lib().FReadStr(handle, dest, 8), "abcd");
    nextCall();
    EXPECT_EQ(lib().FWrites(handle, "xyz"), 2);
    nextCall();
    EXPECT_EQ(lib().FWriteLine(handle, "12345678"), 1) << "the end of the line is there";
    EXPECT_EQ(fake.disk.find("C:\\f")->data.substr(0, 6), "1234\r\n");
    nextCall(true);
    EXPECT_EQ(lib().FWriteLine(handle, "12345678"), 0);
    fake.disk.fault = {};
    fake.disk.capacity = fake.disk.find("C:\\f")->data.size();
    lib().FSeek(handle, 0, 2);
    EXPECT_EQ(lib().FWriteLine(handle, ""), 0) << "a full disk";
    EXPECT_EQ(fake.process.error, platform::kDiskFull);
}

}  // namespace
}  // namespace vx::test
