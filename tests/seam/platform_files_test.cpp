// Open files of the system itself: the platform's own interface, before any stand-in takes its place.
#include <algorithm>
#include <atomic>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "tests/seam/system_test.h"

#if !defined(_WIN32)
#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace vx::test {
namespace {

using namespace platform;

constexpr std::uint32_t onWine(std::uint32_t wine, std::uint32_t windows) { return kWine ? wine : windows; }

using SystemFiles = SystemTest;

TEST_F(SystemFiles, ClosedAndMadeUpHandlesAreInvalid) {
    std::int32_t stale = create("f");
    EXPECT_TRUE(files.close(stale));
    for (std::int32_t handle : {stale, 0, -1, 0x7FFFFFF0, -4}) {
        char byte;
        FileInformation information;
        for (bool works : {files.read(handle, &byte, 1) != -1, files.write(handle, "x", 1) != -1,
                           files.seek(handle, 0, kFromStart) != -1, files.readAt(handle, 0, &byte, 1) != -1,
                           files.writeAt(handle, 0, "x", 1) != -1, files.size(handle) != -1, files.truncate(handle),
                           files.flush(handle), files.lock(handle, 0, 1), files.unlock(handle, 0, 1),
                           files.information(handle, information), files.setTimes(handle, {}), files.close(handle)})
            EXPECT_FALSE(works) << handle;
        EXPECT_EQ(error(), kInvalidHandle) << handle;
    }
}

TEST_F(SystemFiles, OpeningTellsWhyNot) {
    place.put("file", "text");
    place.put("fixed", "text");
    EXPECT_EQ(set("fixed", kReadOnly | kArchive), 0u);
    makeDirectory("dir");
    struct Row {
        std::string name;
        std::uint32_t mode, opened, created;  // the errors, 0 for none
    };
    const Row rows[] = {
        {place.path("file"), kReadWrite, 0, 0},
        {place.path("missing"), kRead, kFileNotFound, 0},
        {place.path("missing\\x"), kRead, kPathNotFound, kPathNotFound},
        {place.path("file\\x"), kRead, kPathNotFound, kPathNotFound},
        {place.path("dir"), kRead, kAccessDenied, kAccessDenied},
        {place.path("fixed"), kRead, 0, onWine(0, kAccessDenied)},
        {place.path("fixed"), kWrite, onWine(0, kAccessDenied), onWine(0, kAccessDenied)},
        {place.path("fi*"), kRead, kInvalidName, kInvalidName},
        {place.path(std::string(300, 'x')), kRead, kFilenameTooLong, kFilenameTooLong},
        {"Q:\\x", kRead, onWine(kFileNotFound, kPathNotFound), onWine(kFileNotFound, kPathNotFound)},
        {"", kRead, kPathNotFound, kPathNotFound},
    };
    for (const Row& row : rows) {
        for (bool creates : {false, true}) {
            std::int32_t handle = creates ? files.create(row.name.c_str(), 0) : files.open(row.name.c_str(), row.mode);
            EXPECT_EQ(reason(handle != -1), creates ? row.created : row.opened) << row.name << " " << row.mode;
            EXPECT_TRUE(handle == -1 || files.close(handle)) << row.name;
        }
        erase("missing");
    }
    EXPECT_EQ(set("fixed", kArchive), 0u);
}

TEST_F(SystemFiles, AHandleDoesWhatItWasOpenedFor) {
    place.put("f", "text");
    std::int32_t reader = open("f", kRead), writer = open("f", kWrite);
    EXPECT_EQ(read(reader, 9), "text");
    EXPECT_EQ(reason(write(reader, "x") != -1), kAccessDenied);
    EXPECT_EQ(reason(files.truncate(reader)), onWine(kInvalidHandle, kAccessDenied));
    EXPECT_EQ(read(writer, 1), "<5>");
    EXPECT_EQ(write(writer, "T"), 1);
    EXPECT_TRUE(files.close(reader) && files.close(writer));
    EXPECT_EQ(place.get("f"), "Text");
}

TEST_F(SystemFiles, CreatingSetsAttributesAndSparesWhatIsHidden) {
    place.put("probe");
    if (std::uint32_t why = set("probe", kHidden)) {
        EXPECT_EQ(why, kNotSupported);
        EXPECT_EQ(create("f", kHidden), -1);
        EXPECT_FALSE(place.has("f"));
        GTEST_SKIP() << "the temporary directory keeps no extended attributes";
    }
    struct Row {
        std::uint32_t before, given, after;  // before: kNoAttributes if there is no file; after: 0 if refused
    };
    const Row rows[] = {
        {kNoAttributes, 0, kArchive},
        {kNoAttributes, kReadOnly, kReadOnly | kArchive},
        {kNoAttributes, kHidden, kHidden | kArchive},
        {kNoAttributes, kReadOnly | kHidden | kSystem, kReadOnly | kHidden | kSystem | kArchive},
        {kArchive, 0, kArchive},
        {kNormal, 0, kArchive},
        {kArchive, kReadOnly, onWine(kArchive, kReadOnly | kArchive)},
        {kHidden, 0, onWine(kHidden | kArchive, 0)},
        {kHidden, kHidden, kHidden | kArchive},
        {kSystem, kHidden, onWine(kSystem | kArchive, 0)},
        {kSystem, kSystem | kHidden, onWine(kSystem | kArchive, kSystem | kHidden | kArchive)},
        {kReadOnly, 0, onWine(kReadOnly | kArchive, 0)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.before << " " << row.given);
        if (row.before != kNoAttributes) {
            place.put("f", "before");
            set("f", row.before);
        }
        std::int32_t handle = create("f", row.given);
        EXPECT_EQ(reason(handle != -1), row.after ? 0u : std::uint32_t{kAccessDenied});
        EXPECT_TRUE(handle == -1 || (write(handle, "new") == 3 && files.close(handle)));
        EXPECT_EQ(attributes("f"), row.after ? row.after : row.before);
        EXPECT_EQ(place.get("f"), row.after ? "new" : "before");
        EXPECT_FALSE(set("f", kNormal) || erase("f"));
    }
}

TEST_F(SystemFiles, RegionLocksAgainstAModel) {
    place.put("f", "text");
    struct Range {
        std::size_t owner;
        std::uint64_t start, length;
        bool operator==(const Range&) const = default;
    };
    std::vector<Range> held;
    const std::uint32_t modes[] = {kReadWrite, kReadWrite, kRead, kRead, kWrite};
    std::int32_t handles[5];
    for (std::size_t i = 0; i < 5; ++i) handles[i] = open("f", modes[i]);
    std::mt19937 random(3);
    const std::uint32_t starts[] = {0, 1, 2, 3, 4, 8, 1000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    const std::uint32_t lengths[] = {1, 2, 3, 5, 0x80000000, 0xFFFFFFFF};
    for (int step = 0; step < 3000; ++step) {
        Range range{random() % 5, starts[random() % 10], lengths[random() % 6]};
        if (random() % 2 && !held.empty() && random() % 4) range = held[random() % held.size()];
        std::int32_t handle = handles[range.owner];
        auto start = static_cast<std::uint32_t>(range.start), length = static_cast<std::uint32_t>(range.length);
        auto overlaps = [&](const Range& r) {
            return range.start < r.start + r.length && r.start < range.start + range.length;
        };
        if (random() % 40 == 0) {
            EXPECT_TRUE(files.close(handle));
            handles[range.owner] = open("f", modes[range.owner]);
            std::erase_if(held, [&](const Range& r) { return r.owner == range.owner; });
        } else if (random() % 2) {
            bool known = std::erase(held, range) != 0;
            ASSERT_EQ(files.unlock(handle, start, length), known) << step;
            EXPECT_TRUE(known || error() == onWine(kLockViolation, kNotLocked)) << step;
        } else {
            bool free = std::none_of(held.begin(), held.end(), overlaps);
            ASSERT_EQ(files.lock(handle, start, length), free) << step;
            EXPECT_TRUE(free || error() == kLockViolation) << step;
            if (free) held.push_back(range);
        }
    }
    for (std::int32_t handle : handles) EXPECT_TRUE(files.close(handle));
#if !defined(_WIN32)
    std::int32_t handle = open("f", kReadWrite), other = open("f", kReadWrite);
    EXPECT_TRUE(files.lock(handle, 1, 0) && files.lock(other, 0, 9)) << "one of no length locks nothing";
    EXPECT_TRUE(files.unlock(other, 0, 9) && files.unlock(handle, 1, 0));
    EXPECT_TRUE(files.close(handle) && files.close(other));
#endif
}

TEST_F(SystemFiles, TimesAreKeptToTheStepOrRefused) {
    place.put("f", "12345");
    std::int32_t handle = open("f", kReadWrite);
    FileInformation before = information(handle);
    EXPECT_EQ(before.size, 5u);
    EXPECT_EQ(before.attributes, kArchive);
    constexpr FileTime kSome = 125'911'584'001'234'567;  // in the year 2000
    auto set = [&](FileTimes times) {
        bool kept = files.setTimes(handle, times);
        FileInformation now = information(handle);
        EXPECT_EQ(now.times.written, kept && times.written ? times.written : before.times.written);
        EXPECT_EQ(now.times.accessed, kept && times.accessed ? times.accessed : before.times.accessed);
        EXPECT_EQ(now.volumeSerial, before.volumeSerial);
        before = now;
        return kept;
    };
    EXPECT_TRUE(set({.created = 0, .accessed = 0, .written = kSome}));
    EXPECT_TRUE(set({.created = 0, .accessed = kSome + 1, .written = 0}));
    for (std::uint16_t year : {1601, 1700, 1850, 1902, 2107, 2300, 2447, 9999, 30000}) {
        FileTime asked = 0;
        ASSERT_TRUE(system.clock->toFileTime({year, 7, 0, 1, 1, 2, 4, 0}, asked));
        set({.created = 0, .accessed = 0, .written = asked});
    }
    EXPECT_TRUE(files.close(handle));
}

TEST_F(SystemFiles, PositionsEndAt31Bits) {
    constexpr std::int64_t kEnd = 0x7FFFFFFF;
    std::int32_t handle = create("f");
    auto isRefused = [&](std::int32_t result) {
        bool isParameter = error() == kInvalidParameter;
        system.process->setLastError(0);
        return result == -1 && isParameter;
    };
    EXPECT_EQ(files.seek(handle, 0x7FFFFFFF, kFromStart), kEnd);
    EXPECT_TRUE(isRefused(files.seek(handle, 1, kFromCurrent)));
    EXPECT_TRUE(isRefused(write(handle, "x")));
    for (std::int64_t position : {kEnd, kEnd + 1, std::int64_t{1} << 32, std::int64_t{-1}})
        EXPECT_TRUE(isRefused(files.writeAt(handle, position, "x", 1))) << position;
    EXPECT_EQ(files.writeAt(handle, kEnd, "", 0), 0);
    EXPECT_EQ(files.seek(handle, 0x7FFFFFFD, kFromStart), kEnd - 2);
    EXPECT_EQ(write(handle, "abc"), 2) << "up to there";
    EXPECT_EQ(files.seek(handle, 0, kFromCurrent), kEnd);
    EXPECT_EQ(files.writeAt(handle, kEnd - 1, "Bc", 2), 1);
    EXPECT_EQ(files.size(handle), kEnd);
    for (auto [offset, origin] : {std::pair(1, int{kFromEnd}), {5, 3}, {5, -1}})
        EXPECT_EQ(files.seek(handle, offset, origin), -1) << origin;
    std::filesystem::resize_file(place.native("f"), kEnd + 9);
    EXPECT_EQ(files.seek(handle, 0x7FFFFFFD, kFromStart), kEnd - 2);
    EXPECT_EQ(read(handle, 9), "aB") << "nor is read beyond";
    EXPECT_EQ(files.seek(handle, 0, kFromCurrent), kEnd);
    EXPECT_EQ(read(handle, 9), "<87>");
    system.process->setLastError(5);
    char bytes[10];
    EXPECT_EQ(files.readAt(handle, kEnd + 2, bytes, 10), 7) << "but by its place anything is";
    EXPECT_EQ(files.readAt(handle, kEnd + 9, bytes, 10), 0);
    EXPECT_EQ(error(), 5u) << "the end of the file is no failure";
    std::filesystem::resize_file(place.native("f"), kEnd);
    EXPECT_EQ(files.seek(handle, 0, kFromStart), 0);
    EXPECT_EQ(files.seek(handle, -2, kFromEnd), kEnd - 2);
    EXPECT_TRUE(files.close(handle));
}

TEST_F(SystemFiles, ThreadsHaveManyFilesAtOnce) {
    std::atomic<int> right = 0;
    auto run = [&](const std::string& name) {
        std::vector<std::int32_t> handles;
        for (int i = 0; i < 400; ++i) {
            handles.push_back(create(name + std::to_string(i % 50)));
            write(handles.back(), name + std::to_string(i));
            files.seek(handles.back(), 0, kFromStart);
        }
        for (std::size_t i = 350; i < 400; ++i) right += read(handles[i], 9) == name + std::to_string(i);
        for (std::int32_t handle : handles) right += handle > 0 && handle % 4 == 0 && files.close(handle);
    };
    std::vector<std::thread> threads;
    for (const char* name : {"a", "b", "c", "d"}) threads.emplace_back(run, name);
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(right, 4 * 450);
}

#if !defined(_WIN32)

TEST_F(SystemFiles, LocksOfOtherProgramsAreNoSharingModes) {
    place.put("f", "text");
    for (short type : {F_RDLCK, F_WRLCK}) {
        int descriptor = ::open(place.native("f").c_str(), O_RDWR);
        struct flock whole {};
        whole.l_type = type;
        ASSERT_EQ(::fcntl(descriptor, F_OFD_SETLK, &whole), 0);
        std::int32_t handle = open("f", kReadWrite);
        ASSERT_NE(handle, -1) << error();
        EXPECT_FALSE(files.lock(handle, 0, 1)) << "but ranges are locked against all";
        EXPECT_TRUE(files.close(handle));
        ::close(descriptor);
    }
}

TEST_F(SystemFiles, ProcessesThatOpenForThemselvesNeverHaveAFileTogether) {
    place.put("f");
    auto work = [&] {
        for (int i = 0; i < 200; ++i) {
            std::int32_t handle = open("f", kReadWrite | kExclusive);
            if (handle == -1) continue;
            std::int32_t inside = create("inside");
            bool alone = inside != -1 && files.close(inside) && erase("inside") == 0;
            if (!alone || !files.close(handle)) return false;
        }
        return true;
    };
    pid_t ids[3];
    for (pid_t& id : ids) {
        id = ::fork();
        if (id == 0) ::_exit(work() ? 0 : 1);
    }
    for (pid_t id : ids) {
        int status = -1;
        ::waitpid(id, &status, 0);
        EXPECT_EQ(status, 0);
    }
}

TEST_F(SystemFiles, WhatFallsShortTellsWhy) {
    std::int32_t full = files.open("C:\\dev\\full", kReadWrite);
    EXPECT_EQ(reason(write(full, "x") != -1), kDiskFull);
    EXPECT_TRUE(files.close(full));
    std::int32_t handle = create("f");
    rlimit before;
    ::getrlimit(RLIMIT_FSIZE, &before);
    auto handler = ::signal(SIGXFSZ, SIG_IGN);
    rlimit low{.rlim_cur = 10, .rlim_max = before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &low);
    EXPECT_EQ(write(handle, "0123456789abc"), 10);
    std::uint32_t reason = error();
    EXPECT_EQ(write(handle, "more"), -1);
    EXPECT_EQ(files.seek(handle, 0, kFromCurrent), 10);
    ::setrlimit(RLIMIT_FSIZE, &before);
    ::signal(SIGXFSZ, handler);
    EXPECT_EQ(reason, kFileTooLarge);
    EXPECT_TRUE(files.close(handle));
}

TEST_F(SystemFiles, APipeDoesNotHang) {
    ASSERT_EQ(::mkfifo(place.native("pipe").c_str(), 0600), 0);
    ASSERT_EQ(open("pipe", kWrite), -1) << "nobody reads";
    std::int32_t reader = open("pipe", kRead);
    ASSERT_NE(reader, -1);
    EXPECT_EQ(read(reader, 9), "");
    std::int32_t writer = open("pipe", kWrite);
    EXPECT_EQ(write(writer, "text"), 4);
    EXPECT_EQ(read(reader, 9), "text");
    EXPECT_TRUE(files.close(writer));
    EXPECT_EQ(read(reader, 9), "") << "the end, for no one writes any more";
    EXPECT_TRUE(files.close(reader));
}

#endif

}  // namespace
}  // namespace vx::test
