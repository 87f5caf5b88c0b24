// The tree of names of the system itself: the platform's own interface, before any stand-in takes its place.
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/seam/system_test.h"

#if !defined(_WIN32)
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

// The library's move comes by here. What others do between its look and its move; false if the system cannot move so.
static std::function<bool()> onMove;

extern "C" __attribute__((visibility("default"))) int renameat2(int at, const char* from, int to_, const char* to,
                                                                unsigned flags) noexcept {
    if (onMove && !onMove()) return errno = EINVAL, -1;
    return static_cast<int>(::syscall(SYS_renameat2, at, from, to_, to, flags));
}
#endif

namespace vx::test {
namespace {

using namespace platform;

// Wine gives files this attribute whatever they have.
constexpr std::uint32_t kAlways = kWine ? kArchive | kNormal : 0;

class SystemTree : public SystemTest {
 protected:
    std::vector<FoundEntry> entries(const std::string& pattern) {
        std::vector<FoundEntry> all(1);
        std::int32_t search = tree.findFirst(place.path(pattern).c_str(), all[0]);
        if (search == -1) return {};
        FoundEntry entry;
        while (tree.findNext(search, entry)) all.push_back(entry);
        EXPECT_EQ(error(), kNoMoreFiles);
        EXPECT_TRUE(tree.findClose(search));
        return all;
    }
    // The names that match, joined by blanks; the error in brackets if the search cannot begin.
    std::string found(const std::string& pattern) {
        std::string names;
        for (const FoundEntry& entry : entries(pattern)) names += (names.empty() ? "" : " ") + std::string(entry.name);
        return names.empty() ? "<" + std::to_string(error()) + ">" : names;
    }
};

// What matches is checked by the random caller of this platform, against a twin.
TEST_F(SystemTree, SearchesTellWhyNot) {
    for (const char* name : {"a.txt", "b.c.txt", "Readme"}) place.put(name);
    makeDirectory("sub");
    const std::pair<const char*, const char*> rows[] = {
        {"*", ". .. a.txt b.c.txt Readme sub"},
        {"sub\\..\\r*", "Readme"},
        {"sub\\*", ". .."},
        {"sub\\.", "sub"},
        {"missing", "<2>"},
        {"x*", "<2>"},
        {"sub\\x*", "<2>"},
        {"missing\\*", "<3>"},
        {"missing\\x", "<3>"},
#if !defined(_WIN32)  // as Windows does; Wine is different
        {"Readme\\*", "<3>"},
        {"sub\\", "<2>"},
#endif
    };
    for (auto [pattern, names] : rows) EXPECT_EQ(found(pattern), names) << pattern;
    FoundEntry entry;
    EXPECT_FALSE(tree.findNext(0, entry));
    EXPECT_EQ(error(), kInvalidHandle);
    EXPECT_FALSE(tree.findClose(12));
}

TEST_F(SystemTree, AnEntryIsWhatTheFileIs) {
    place.put("A long name.data", "12345");
    std::int32_t handle = open("A long name.data", kReadWrite);
    ASSERT_TRUE(files.setTimes(handle, {.created = 0, .accessed = 0, .written = 125'911'584'001'234'567}));
    FileInformation file = information(handle);
    EXPECT_TRUE(files.close(handle));
    std::vector<FoundEntry> all = entries("A*");
    ASSERT_EQ(all.size(), 1u);
    const FoundEntry& entry = all[0];
    EXPECT_EQ(entry.attributes, kArchive);
    EXPECT_EQ(entry.sizeLow | std::uint64_t{entry.sizeHigh} << 32, 5u);
    EXPECT_EQ(entry.written[0] | std::uint64_t{entry.written[1]} << 32, file.times.written);
    EXPECT_EQ(entry.created[0] | std::uint64_t{entry.created[1]} << 32, file.times.created);
    EXPECT_EQ(found(entry.shortName), entry.name);
}

TEST_F(SystemTree, AttributesComeBack) {
    place.put("f");
    makeDirectory("d");
    EXPECT_FALSE(set("f", kReadOnly | kArchive) || set("f", kArchive));
    if (set("f", kHidden) == kNotSupported) {
        GTEST_SKIP() << "the temporary directory keeps no extended attributes";
    }
    for (std::uint32_t i = 0; i < 16; ++i) {
        std::uint32_t bits = (i & 7) | (i & 8 ? kArchive : 0u);
        EXPECT_EQ(set("f", bits), 0u) << bits;
        EXPECT_EQ(attributes("f") | kAlways, (bits ? bits : std::uint32_t{kNormal}) | kAlways);
        EXPECT_EQ(erase("f") == kAccessDenied, (bits & kReadOnly) != 0) << bits;
        if (!place.has("f")) place.put("f");
    }
    for (std::uint32_t bits : {kWine ? 0u : std::uint32_t{kReadOnly}, std::uint32_t{kHidden}, 0u}) {
        EXPECT_EQ(set("d", bits ? bits : std::uint32_t{kNormal}), 0u);
        EXPECT_EQ(attributes("d"), bits | kDirectoryEntry);
        EXPECT_EQ(removeDirectory("d"), bits & kReadOnly ? std::uint32_t{kAccessDenied} : 0u);
        makeDirectory("d");
    }
    EXPECT_EQ(set("missing", kHidden), kFileNotFound);
    EXPECT_FALSE(set("f", kReadOnly) || move("f", "g"));
    EXPECT_EQ(attributes("g") & ~kAlways, kReadOnly);
    EXPECT_EQ(set("g", kNormal), 0u);
}

TEST_F(SystemTree, FailuresTellWhy) {
    place.put("f");
    place.put("open");
    makeDirectory("d");
    makeDirectory("full");
    std::int32_t handle = create("full\\x");
    EXPECT_EQ(attributes("missing"), kNoAttributes);
    auto told = [&](const std::string& name) { return reason(attributes(name) != kNoAttributes); };
    const std::pair<std::uint32_t, std::vector<std::uint32_t>> rows[] = {
        {kFileNotFound, {told("missing"), erase("missing"), removeDirectory("missing"), move("missing", "x")}},
        {kPathNotFound,
         {told("missing\\x"), told("f\\x"), erase("missing\\x"), makeDirectory("missing\\x"), move("f", "missing\\x")}},
        {kFilenameTooLong, {told(std::string(300, 'x'))}},
        {kInvalidName, {told("f*"), erase("*")}},
        {kAccessDenied, {erase("d")}},
        {kSharingViolation, {erase("full\\x"), move("full\\x", "x")}},
        {kAlreadyExists, {makeDirectory("D"), makeDirectory("F"), move("f", "OPEN"), move("f", "d")}},
        {kDirectory, {removeDirectory("f")}},
        {kDirectoryNotEmpty, {removeDirectory("full")}},
    };
    for (const auto& [code, reasons] : rows) EXPECT_EQ(reasons, std::vector(reasons.size(), code));
    // A separator behind its name makes no directory of a file.
    EXPECT_EQ(attributes("F\\"), kNoAttributes);
    EXPECT_NE(erase("f\\"), 0u);
    for (const char* name : {"F\\", "new/"}) EXPECT_EQ(create(name), -1) << name;
    EXPECT_TRUE(place.has("f") && !place.has("new"));
    EXPECT_TRUE(files.close(handle));
    EXPECT_EQ(erase("full\\x"), 0u);
    EXPECT_EQ(removeDirectory("full\\"), 0u);
    EXPECT_NE(move("d", "d\\below"), 0u);
    EXPECT_EQ(attributes("d"), kDirectoryEntry);
}

TEST_F(SystemTree, MovesKeepContentAndSpelling) {
    place.put("Mixed.Txt", "123");
    makeDirectory("From");
    place.put("From/inner", "456");
    makeDirectory("to");
    EXPECT_EQ(attributes("MIXED.TXT"), kArchive);
    EXPECT_EQ(move("mIXED.tXT", "mixed.TXT"), 0u) << "the same name in another case";
#if !defined(_WIN32)  // Wine keeps the old spelling
    EXPECT_EQ(found("mixed.*"), "mixed.TXT");
#endif
    EXPECT_EQ(move("mixed.txt", "mixed.TXT"), 0u);
    EXPECT_EQ(move("mixed.txt", "TO\\other"), 0u);
    EXPECT_EQ(place.get("to/other"), "123");
    EXPECT_EQ(move("from", "FROM2"), 0u);
    EXPECT_EQ(place.get("FROM2/inner"), "456");
}

TEST_F(SystemTree, FullPaths) {
    char before[kPathSize];
    ASSERT_TRUE(system.volumes->currentDirectory(0, before, sizeof before));
    makeDirectory("sub");
    ASSERT_TRUE(system.volumes->changeDirectory(place.path("sub").c_str())) << error();
    std::string here = place.path("sub"), drive = here.substr(0, 2);
    struct Row {
        std::string name, path;
    };
    const Row rows[] = {
        {"x", here + "\\x"},
        {drive + "x/y", here + "\\x\\y"},
        {".", here},
        {"..\\..\\sub\\.\\x", place.path().substr(0, place.path().rfind('\\')) + "\\sub\\x"},
        {drive + "\\..\\..\\a", drive + "\\a"},
        {"\\a//b", drive + "\\a\\b"},
        {"sub?\\..\\*.?", here + "\\*.?"},
        {drive + "\\a\\", drive + "\\a\\"},
        {drive + "\\", drive + "\\"},
        {"Q:\\a\\..\\b", "Q:\\b"},
        {"\\\\server\\share\\a", "\\\\server\\share\\a"},
    };
    char path[600];
    for (const Row& row : rows) {
        std::uint32_t length = tree.fullPath(row.name.c_str(), path, sizeof path);
        EXPECT_EQ(std::string(path, length), row.path) << row.name;
        EXPECT_EQ(tree.fullPath(row.name.c_str(), path, length), length + 1) << "no room for the terminator";
    }
    EXPECT_EQ(tree.fullPath("", path, sizeof path), 0u);
    EXPECT_EQ(removeDirectory("sub"), kSharingViolation) << "the current directory";
    ASSERT_TRUE(system.volumes->changeDirectory(before));
    EXPECT_EQ(removeDirectory("sub"), 0u);
}

#if !defined(_WIN32)

// The name itself is looked up as the random caller of this platform checks; so are those on the way.
TEST_F(SystemTree, DirectoriesOnTheWayAreFoundExactlyFirst) {
    std::filesystem::create_directories(place.native("DIR/sub"));
    std::filesystem::create_directories(place.native("dir"));
    place.put("dir/x");
    EXPECT_EQ(attributes("dir\\X"), kArchive);
    EXPECT_EQ(attributes("dir\\sub"), kNoAttributes) << "not in the other directory, as dir is there";
    for (const char* name : {"DIR\\SUB", "Dir\\sub"}) EXPECT_EQ(attributes(name), kDirectoryEntry);
}

TEST_F(SystemTree, LinksAreNotWhatTheyLeadTo) {
    place.put("target", "12345");
    makeDirectory("dir");
    place.put("dir/inner");
    namespace fs = std::filesystem;
    fs::create_symlink("target", place.native("file"));
    fs::create_directory_symlink("dir", place.native("folder"));
    fs::create_symlink("nowhere", place.native("loose"));
    EXPECT_EQ(attributes("file"), kArchive | kLink);
    EXPECT_EQ(attributes("folder"), kDirectoryEntry | kLink);
    EXPECT_EQ(attributes("loose"), kArchive | kLink);
    EXPECT_EQ(removeDirectory("file"), kDirectory);
    EXPECT_EQ(set("target", kReadOnly | kArchive), 0u) << "which the link is not";
    EXPECT_EQ(move("file", "renamed"), 0u);
    EXPECT_FALSE(erase("renamed") || erase("loose") || removeDirectory("folder\\"));
    EXPECT_EQ(found("*"), ". .. dir target");
    EXPECT_TRUE(place.has("dir/inner"));
}

TEST_F(SystemTree, AttributesAreSharedWithOtherPrograms) {
    place.put("f");
    auto stored = [&](const char* value) {
        return ::setxattr(place.native("f").c_str(), "user.DOSATTRIB", value, std::strlen(value), 0) == 0;
    };
    if (!stored("0x22")) GTEST_SKIP() << "the temporary directory keeps no extended attributes";
    for (auto [value, bits] : {std::pair("0x22", kHidden | kArchive),
                               {"0x6", kHidden | kSystem},
                               {"0x0", kNormal},
                               {"0x21 and more", kArchive},
                               {"32", kArchive},
                               {"0xg", kArchive}}) {
        ASSERT_TRUE(stored(value));
        EXPECT_EQ(attributes("f"), bits) << value;
    }
    EXPECT_EQ(set("f", kHidden | kReadOnly), 0u);
    char text[16] = "";
    EXPECT_EQ(::getxattr(place.native("f").c_str(), "user.DOSATTRIB", text, sizeof text), 3);
    EXPECT_STREQ(text, "0x2");
    EXPECT_EQ(set("f", kSystem | kReadOnly), 0u) << "of a read-only file, too";
    EXPECT_EQ(attributes("f"), kSystem | kReadOnly);
}

TEST_F(SystemTree, PermissionsComeBackWithTheRightToWrite) {
    const std::string path = place.put("f");
    makeDirectory("d");
    if (!tree.setAttributes(path.c_str(), kHidden)) GTEST_SKIP() << "no extended attributes to remember them in";
    auto change = [&](const char* name, mode_t mode) { ASSERT_EQ(::chmod(place.native(name).c_str(), mode), 0); };
    auto after = [&](const char* name, std::uint32_t bits) {
        struct stat state {};
        EXPECT_EQ(set(name, bits), 0u);
        ::stat(place.native(name).c_str(), &state);
        return state.st_mode & 07777;
    };
    for (const char* name : {"f", "d"}) {
        for (mode_t given : {0664, 0666, 0600, 0620, 0602, 0644, 0464, 0755, 0775}) {
            for (std::uint32_t more : {std::uint32_t{kArchive}, kHidden | kArchive}) {
                change(name, given);
                EXPECT_EQ(after(name, kReadOnly | more), given & ~0222u);
                EXPECT_EQ(after(name, kReadOnly | kSystem), given & ~0222u) << "protected twice";
                EXPECT_EQ(after(name, kNormal), given) << name;
            }
        }
    }
    // What is remembered of other permissions is nothing: then those write who read, as new files allow.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    change("f", 0666);
    after("f", kReadOnly);
    for (mode_t other : {0440, 0444}) {  // nor is it used twice
        change("f", other);
        EXPECT_EQ(after("f", kNormal), other | 0200 | ((other & 044) >> 1 & ~mask));
    }
}

TEST_F(SystemTree, NoMoveReplacesWhatAppearsMeanwhile) {
    int moves = 0;
    for (bool movesSafely : {true, false}) {
        place.put("from", "ours");
        onMove = [&] { return ++moves, place.put("to", "theirs"), movesSafely; };
        EXPECT_EQ(move("from", "to"), kAlreadyExists);
        onMove = {};
        EXPECT_EQ(place.get("from") + place.get("to"), "ourstheirs");
        std::filesystem::remove(place.native("to"));
    }
    EXPECT_EQ(moves, 2);
}

TEST_F(SystemTree, FilesMoveToAnotherFileSystem) {
    struct stat here, there;
    const char* other = "/dev/shm";
    bool differ = ::stat(place.native().c_str(), &here) == 0 && ::stat(other, &there) == 0 &&
                  here.st_dev != there.st_dev && ::access(other, W_OK) == 0;
    if (!differ) GTEST_SKIP() << "no second file system that can be written";
    std::string name = std::string("C:") + other + "/" + place.native().parent_path().filename().string();
    auto moved = [&](const std::string& from, const std::string& to) {
        return reason(tree.move(from.c_str(), to.c_str()));
    };
    constexpr FileTime kSome = 125'911'584'001'234'567;
    std::string content(3'000'000, 'x');
    place.put("f", content);
    std::int32_t handle = open("f", kReadWrite);
    ASSERT_TRUE(files.setTimes(handle, {.created = 0, .accessed = 0, .written = kSome}) && files.close(handle));
    EXPECT_FALSE(set("f", kReadOnly | kArchive) || moved(place.path("f"), name));
    EXPECT_FALSE(place.has("f"));
    FoundEntry entry;
    ASSERT_TRUE(tree.findClose(tree.findFirst(name.c_str(), entry)));
    EXPECT_EQ(entry.attributes, kReadOnly | kArchive);
    EXPECT_EQ(entry.written[0] | std::uint64_t{entry.written[1]} << 32, kSome);
    place.put("taken", "t");
    EXPECT_EQ(moved(name, place.path("taken")), kAlreadyExists);
    EXPECT_EQ(moved(name, place.path("back")), 0u);
    EXPECT_EQ(place.get("back"), content);
    makeDirectory("d");
    EXPECT_EQ(moved(place.path("d"), name), kAccessDenied);
    EXPECT_EQ(attributes("d"), kDirectoryEntry);
    EXPECT_EQ(tree.attributes(name.c_str()), kNoAttributes);
}

#endif

}  // namespace
}  // namespace vx::test
