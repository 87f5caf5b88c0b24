// Whole files on a made-up disk: everything that can fail does, at every call.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

constexpr char kSource[] = "C:\\DATA\\SOURCE";
constexpr char kTarget[] = "C:\\DATA\\TARGET";
constexpr std::uint32_t kCause = 777;
const platform::FileTimes kStamps{111, 222, 333};

std::string content(std::size_t size, unsigned seed = 1) {
    std::string text(size, '\0');
    std::mt19937 engine(seed);
    for (char& c : text) c = static_cast<char>(engine());
    return text;
}

std::string enciphered(std::string text, std::size_t block = 32768) {
    for (std::size_t i = 0; i < text.size(); ++i) text[i] = static_cast<char>(text[i] ^ "kTRAVO"[i % block % 6]);
    return text;
}

class WholeFile : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};
    lab::MadeUpDisk& disk = fake.disk;
    std::uint32_t& error = fake.process.error;

    // An empty text where there is no file.
    std::string get(const std::string& name) { return disk.find(name) ? disk.find(name)->data : ""; }

    // Lets each call fail in turn, and each transfer fall short, until the run is over. One that `failed` must tell
    // why.
    void faults(const std::function<void()>& prepare, const std::function<int()>& run,
                const std::function<bool(int result)>& failed) {
        for (bool fallsShort : {false, true}) {
            int n = 0;
            do {
                SCOPED_TRACE(testing::Message() << (fallsShort ? "short at call " : "fails at call ") << ++n);
                disk.fault = {};
                disk.clear();
                prepare();
                disk.calls = 0;
                disk.fault = {.atCall = n, .fallsShort = fallsShort, .code = kCause};
                disk.onCall = [&] {
                    if (!fallsShort && disk.calls > n) error = 9;  // calls that work may leave anything there
                };
                std::size_t open = disk.openFiles();
                error = 5;
                int result = run();
                if (failed(result)) {
                    EXPECT_EQ(error, kCause);
                    EXPECT_LE(n, disk.calls) << "failed by itself";
                }
                EXPECT_EQ(disk.openFiles(), open);
                EXPECT_EQ(disk.openSearches(), 0u);
                disk.onCall = {};
            } while (n <= disk.calls && n < 200);
            EXPECT_LT(n, 200);
            EXPECT_GT(n, 1);
            disk.fault = {};
        }
    }
};

TEST_F(WholeFile, FailedCopiesLeaveNothing) {
    const std::string whole = content(1'200'000);
    for (bool older : {false, true}) {
        auto prepare = [&] {
            disk.put(kSource, whole).times = kStamps;
            if (older) disk.put(kTarget, "older");
        };
        auto failed = [&](int result) {
            bool done = result == static_cast<int>(whole.size());
            EXPECT_TRUE(done || result == -1) << result;
            EXPECT_EQ(get(kSource), whole);
            EXPECT_TRUE(done ? get(kTarget) == whole : (older && get(kTarget) == "older") || !disk.find(kTarget));
            return !done;
        };
        faults(
            prepare, [] { return lib().FCcopy(kSource, kTarget); }, failed);
        EXPECT_EQ(disk.find(kTarget)->times, kStamps);
    }
}

TEST_F(WholeFile, CopiesOfBytesEndWhereTheyFail) {
    const std::string whole = content(700'000);
    auto expectCopy = [&](int count, int result, lab::Fault fault = {}) {
        disk.put(kSource, whole);
        std::int32_t from = disk.open(kSource, platform::kRead), to = disk.create(kTarget, 0);
        disk.calls = 0;
        disk.fault = fault;
        EXPECT_EQ(lib().FCopyByte(from, to, count), result) << count << " " << fault.atCall;
        disk.fault = {};
        for (std::int32_t handle : {from, to}) {
            EXPECT_TRUE(result == -1 || disk.seek(handle, 0, platform::kFromCurrent) == result);
            EXPECT_TRUE(disk.close(handle));
        }
        EXPECT_TRUE(result == -1 || get(kTarget) == whole.substr(0, static_cast<std::size_t>(result)));
    };
    for (int count : {0, -1, 1, 524288, 524289, 600'000, 700'000, 2'147'483'647})
        expectCopy(count, std::clamp(count, 0, 700'000));
    for (int n = 1; n <= 5; ++n) expectCopy(600'000, n <= 4 ? -1 : 600'000, {.atCall = n, .code = kCause});
}

TEST_F(WholeFile, FullDisks) {
    const std::string whole = content(900'000);
    for (std::size_t room : {0, 1, 600'000, 899'999}) {
        for (auto call : {lib().FCcopy, lib().FEncrypt}) {
            disk.put(kSource, whole);
            disk.put(kTarget, "older");
            disk.capacity = whole.size() + room;
            EXPECT_EQ(call(kSource, kTarget), call == lib().FCcopy ? -1 : 0) << room;
            EXPECT_EQ(error, platform::kDiskFull);
            EXPECT_FALSE(disk.find(kTarget));
            EXPECT_EQ(get(kSource), whole);
        }
    }
    for (int n = 1; n <= 4; ++n) {
        for (bool fallsShort : {false, true}) {
            std::int32_t handle = disk.create(kTarget, 0);
            disk.calls = 0;
            disk.fault = {.atCall = n, .fallsShort = fallsShort, .code = kCause};
            EXPECT_EQ(lib().FReplicate(handle, "ab", 3), std::min(n, 3)) << "the one that failed counts";
            EXPECT_EQ(get(kTarget).size(), n > 3 ? 6u : 2u * n - (fallsShort ? 1 : 2));
            disk.fault = {};
            disk.close(handle);
        }
    }
}

TEST_F(WholeFile, NoFileIsCopiedOntoItself) {
    disk.directory = "C:\\DATA";
    for (bool known : {true, false}) {
        disk.tellsIdentity = known;
        for (const char* same : {kSource, "c:/data/source", "C:\\DATA\\.\\X\\..\\Source", "source"}) {
            disk.put(kSource, "precious");
            EXPECT_EQ(lib().FMove(same, "C:\\DATA", 1), -1) << same;
            for (int n = 0; n <= 8; ++n) {
                disk.calls = 0;
                disk.fault = {.atCall = n, .code = kCause};
                EXPECT_EQ(lib().FCcopy(kSource, same), -1) << n;
                EXPECT_TRUE(n > 0 || error == platform::kSharingViolation);
                EXPECT_EQ(get(kSource), "precious") << same << n;
                disk.fault = {};
            }
            EXPECT_EQ(lib().FEncrypt(kSource, same), 1) << same;
            EXPECT_EQ(get(kSource), enciphered("precious"));
        }
        error = 0;
        for (const char* kind : {"new", "replaced"}) EXPECT_EQ(lib().FCcopy(kSource, kTarget), 8) << kind;
        EXPECT_EQ(error, 0u) << "a new target is no failure";
        disk.erase(kTarget);
    }
    disk.put(kTarget, "kept").attributes = platform::kReadOnly;
    EXPECT_EQ(lib().FCcopy(kSource, kTarget), -1);
    EXPECT_EQ(error, platform::kAccessDenied);
    EXPECT_EQ(get(kTarget), "kept");
    EXPECT_EQ(disk.openFiles(), 0u);
}

TEST_F(WholeFile, Moves) {
    constexpr char kMoved[] = "C:\\NEW\\DEEP\\SOURCE";
    const std::string whole = content(1000);
    for (int flag : {0, 1, 2, -1}) {
        auto failed = [&](int result) {
            EXPECT_TRUE(result == 0 || result == -1 || (result == 1 && flag == 1)) << result;
            EXPECT_EQ(disk.find(kSource) == nullptr, result == 0 && flag == 1);
            EXPECT_TRUE(get(kMoved) == whole || (result == -1 && !disk.find(kMoved)));
            return result != 0;
        };
        faults([&] { disk.put(kSource, whole).times = kStamps; },
               [flag] { return lib().FMove(kSource, "C:\\NEW\\DEEP", flag); }, failed);
        EXPECT_EQ(disk.find(kMoved)->times, kStamps);
    }
    disk.put("C:\\A\\SOURCE", "older");
    fake.volumes.bytesFree = 0;
    EXPECT_EQ(lib().FMove(kSource, "C:\\B", 0), -1);
    fake.volumes.mounted["C:\\BIG\\"] = 1000;
    EXPECT_EQ(lib().FMove(kSource, "C:\\BIG\\NEW", 0), 0) << "another volume";
    fake.volumes.bytesFree = std::uint64_t{5} << 32;
    disk.onCall = [&] {
        lab::MadeUpDisk::Node* made = disk.find("C:\\A\\SOURCE");
        if (disk.openFiles() == 0 && made->data.size() == whole.size()) made->data += "x";
    };
    EXPECT_EQ(lib().FMove(kSource, "C:\\A", 1), -1) << "the copy is not as large as the source";
    EXPECT_EQ(get(kSource), whole);
}

TEST_F(WholeFile, ComparingAndReadingWhatFails) {
    const std::string whole = content(150'000);
    auto prepare = [&] {
        disk.put(kSource, whole);
        disk.put(kTarget, whole + "more");
    };
    auto failed = [](int result) {
        EXPECT_TRUE(result == 150'001 || result == -1) << result;
        return result == -1;
    };
    faults(
        prepare, [] { return lib().FCompare(kSource, kTarget); }, failed);
    error = 5;
    EXPECT_EQ(lib().FCompare(kSource, kTarget), 150'001);
    EXPECT_EQ(error, 0u) << "cleared";
    disk.onCall = [&] {
        if (disk.calls > 5) disk.find(kTarget)->data.resize(100'000);
    };
    disk.calls = 0;
    EXPECT_EQ(lib().FCompare(kSource, kTarget), -1) << "it shrinks while it is read";
    EXPECT_EQ(lib().FCcopy(kTarget, "C:\\DATA\\THIRD"), 100'000);
    EXPECT_EQ(get("C:\\DATA\\THIRD"), whole.substr(0, 100'000));
    disk.onCall = {};

    disk.put(kSource);
    error = 5;
    EXPECT_EQ(lib().FileTest(kSource), 1) << "an older reason does not count";
}

// Also of what asks for no content.
TEST_F(WholeFile, FailuresShowInTheResult) {
    Dest dest(260);
    auto& f = lib();
    const std::pair<std::function<int()>, int> calls[] = {
        // with what tells a failure
        {[&] { return f.FileTest(kSource); }, 0},
        {[&] { return f.FileSize(kSource); }, -1},
        {[&] { return f.FileSize("C:\\DATA\\S*"); }, -1},
        {[&] { return f.FSetDosDate(kSource, 1999, 1, 1); }, 0},
        {[&] { return f.FGetJDate(kSource); }, 0},
        {[&] { return static_cast<int>(f.strfgettime(kSource, dest)); }, 0},
        {[&] { return f.FGetAttr(kSource); }, -1},
        {[&] { return f.FHide(kSource); }, 0},
        {[&] { return *f.FileFind("none", "C:\\DATA", dest); }, 1},  // none of these, as they do not tell why
        {[&] { return f.FileCount("C:\\DATA\\*.*;C:\\DATA\\SUB\\*.*", 0); }, 99},
        {[&] { return f.IsFile("C:\\DATA\\*.*;C:\\DATA\\SUB\\*.*", 256); }, 99},
    };
    for (const auto& [call, failure] : calls) {
        auto prepare = [&] {
            disk.put("C:\\DATA\\SUB\\X");
            disk.put(kSource, content(200'000));
        };
        faults(prepare, call, [&](int result) { return result == failure; });
        EXPECT_NE(call(), failure) << "without a fault";
    }
}

TEST_F(WholeFile, Wiping) {
    auto failed = [&](int result) {
        EXPECT_EQ(disk.find(kSource) == nullptr, result == 1);
        EXPECT_EQ(get(kSource).size(), result == 1 ? 0 : 70'000);
        return result == 0;
    };
    faults([&] { disk.put(kSource, content(70'000)); }, [] { return lib().WipeFile(kSource); }, failed);
    for (std::size_t size : {1, 65535, 65536, 65537}) {
        disk.put(kSource, content(size, 3));
        std::string passes, last;
        disk.onCall = [&] {
            lab::MadeUpDisk::Node* node = disk.find(kSource);
            if (!node || node->data == last) return;
            last = node->data;
            if (last == std::string(size, last[0])) passes += last[0];
        };
        disk.calls = 0;
        EXPECT_EQ(lib().WipeFile(kSource), 1) << size;
        EXPECT_EQ(passes.substr(passes.size() - 6), std::string("\0\xFF\0\xFF\0\xFF", 6)) << size;
        EXPECT_EQ(disk.calls, 5 + 6 * (size > 65536 ? 4 : 3))
            << "a pass writes, brings that to the disk, and goes back";
        disk.onCall = {};
    }
}

TEST_F(WholeFile, Encrypting) {
    const std::string whole = content(100'001);
    auto prepare = [&] {
        disk.put(kSource, whole);
        disk.put(kTarget, "older");
    };
    auto failed = [&](int result) {
        std::string made = get(kTarget);
        EXPECT_EQ(get(kSource), whole);
        EXPECT_TRUE(result == 1 ? made == enciphered(whole) : made == "older" || !disk.find(kTarget));
        return result == 0;
    };
    faults(
        prepare, [] { return lib().FEncrypt(kSource, kTarget); }, failed);
    auto failedInPlace = [&](int result) {
        EXPECT_EQ(get(kSource).size(), whole.size());
        EXPECT_EQ(get(kTarget), "older");
        EXPECT_TRUE(result == 0 || get(kSource) == enciphered(whole));
        return result == 0;
    };
    for (const char* place : {" \t", kSource}) {
        faults(
            prepare, [place] { return lib().FDecrypt(kSource, place); }, failedInPlace);
    }
    for (std::size_t size : {0, 1, 32767, 32768, 32769, 98311}) {
        disk.put(kSource, whole.substr(0, size));
        error = 5;
        EXPECT_EQ(lib().FEncrypt(kSource, kTarget), 1);
        EXPECT_EQ(error, 0u);
        EXPECT_EQ(get(kTarget), enciphered(whole.substr(0, size))) << size;
    }
}

}  // namespace
}  // namespace vx::test
