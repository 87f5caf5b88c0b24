// Lines and texts in files, read from the system's cache, beside loops over plain reads.
#include <emmintrin.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/strings/prose.h"
#include "bench/support/pair.h"
#include "tests/support/library.h"
#include "tests/support/workplace.h"

namespace vx::bench {
namespace {

using test::lib;

constexpr std::size_t kLarge = std::size_t{256} << 20;
constexpr std::size_t kPeerBlock = std::size_t{128} << 10;

// A file of lines, made when a case first asks for it and gone when the program ends.
class TextFile {
 public:
    TextFile(const char* name, std::string line, std::size_t size) : name_(name), line_(std::move(line)), size_(size) {}
    ~TextFile() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }

    std::int32_t handle() {
        make();
        lib().FTop(handle_);
        return handle_;
    }
    int descriptor() {
        make();
        ::lseek(descriptor_, 0, SEEK_SET);
        return descriptor_;
    }

 private:
    void make() {
        if (descriptor_ >= 0) return;
        static const test::Workplace place;
        std::string block;
        while (block.size() < (1 << 20)) block += line_;
        std::ofstream file(place.native(name_), std::ios::binary);
        for (std::size_t written = 0; written < size_; written += block.size()) file << block;
        file << "Quartz\n";
        file.close();
        descriptor_ = ::openat(AT_FDCWD, place.native(name_).c_str(), O_RDONLY);
        handle_ = lib().FOpen(place.path(name_).c_str(), 0);
    }

    std::string name_;
    std::string line_;
    std::size_t size_;
    int descriptor_ = -1;
    std::int32_t handle_ = -1;
};

const std::string kLine = "The quick brown fox jumps over the lazy dog, and then some.\n";
TextFile large("large", kLine, kLarge);
TextFile longLines("long", std::string(3000, 'x') + "\n", kLarge);
TextFile medium("medium", kLine, kLarge / 8);

// Reads all blocks, the last `kept` bytes of each again in front of the next one.
template <class Work>
void eachBlock(int descriptor, std::size_t kept, Work work) {
    static std::vector<char> block(kPeerBlock + 64);
    std::size_t old = 0;
    for (ssize_t read; (read = ::read(descriptor, block.data() + old, kPeerBlock)) > 0;) {
        const std::string_view bytes(block.data(), old + static_cast<std::size_t>(read));
        if (!work(bytes)) return;
        old = std::min(kept, bytes.size());
        std::memmove(block.data(), bytes.data() + bytes.size() - old, old);
    }
}

std::size_t countFeeds(int descriptor) {
    std::size_t count = 0;
    eachBlock(descriptor, 0, [&count](std::string_view bytes) {
        const char* at = bytes.data();
        const char* end = at + bytes.size();
        while (const void* feed = std::memchr(at, '\n', static_cast<std::size_t>(end - at))) {
            ++count;
            at = static_cast<const char*>(feed) + 1;
        }
        return true;
    });
    return count;
}

// As wc -l counts where lines are short: byte by byte, by compares of whole vectors.
std::size_t countFeedsByVectors(int descriptor) {
    std::size_t count = 0;
    eachBlock(descriptor, 0, [&count](std::string_view bytes) {
        std::size_t feeds = 0;
        for (char c : bytes) feeds += c == '\n';
        count += feeds;
        return true;
    });
    return count;
}

std::size_t countText(int descriptor, std::string_view text, bool first) {
    std::size_t count = 0;
    eachBlock(descriptor, text.size() - 1, [&](std::string_view bytes) {
        const char* at = bytes.data();
        const char* end = at + bytes.size();
        while (const void* found = ::memmem(at, static_cast<std::size_t>(end - at), text.data(), text.size())) {
            ++count;
            if (first) return false;
            at = static_cast<const char*>(found) + text.size();
        }
        return true;
    });
    return count;
}

// One line as a plain program would: a block, and back to the end of the line.
std::size_t readLine(int descriptor, char* to) {
    char bytes[2048];
    ssize_t read = ::read(descriptor, bytes, sizeof bytes);
    if (read <= 0) {
        ::lseek(descriptor, 0, SEEK_SET);
        return 0;
    }
    const void* feed = std::memchr(bytes, '\n', static_cast<std::size_t>(read));
    std::size_t size =
        feed ? static_cast<std::size_t>(static_cast<const char*>(feed) - bytes) : static_cast<std::size_t>(read);
    std::memcpy(to, bytes, size);
    to[size] = '\0';
    ::lseek(descriptor, static_cast<off_t>(size + 1) - read, SEEK_CUR);
    return size;
}

// The start of a line counted from the end, in one look at the file.
const void* linesBack(int descriptor, int count) {
    static char bytes[8192];
    off_t end = ::lseek(descriptor, 0, SEEK_END);
    if (::pread(descriptor, bytes, sizeof bytes, end - static_cast<off_t>(sizeof bytes)) < 0) return nullptr;
    const void* feed = bytes + sizeof bytes;
    while (feed && count-- > 0)
        feed = ::memrchr(bytes, '\n', static_cast<std::size_t>(static_cast<const char*>(feed) - bytes));
    return feed;
}

const Cases cases([] {
    pair(
        "FLineCount 256 MB, memchr", kLarge, [] { return lib().FLineCount(large.handle()); },
        [] { return countFeeds(large.descriptor()); });
    pair(
        "FLineCount 256 MB, vectors", kLarge, [] { return lib().FLineCount(large.handle()); },
        [] { return countFeedsByVectors(large.descriptor()); });
    pair(
        "FLineCount 256 MB, lines of 3000", kLarge, [] { return lib().FLineCount(longLines.handle()); },
        [] { return countFeeds(longLines.descriptor()); });
    pair(
        "FLocate 256 MB, at the end", kLarge, [] { return lib().FLocate(large.handle(), "Quartz", 0); },
        [] { return countText(large.descriptor(), "Quartz", true); });
    pair(
        "FLocate 256 MB, upper case", kLarge, [] { return lib().FLocate(large.handle(), "QUARTZ", 1); },
        [] { return countText(large.descriptor(), "Quartz", true); });
    pair(
        "FStrCount 256 MB, rare", kLarge, [] { return lib().FStrCount(large.handle(), "Quartz", 0); },
        [] { return countText(large.descriptor(), "Quartz", false); });
    // Each line has an n and an e where this text has them.
    pair(
        "FStrCount 256 MB, near misses", kLarge, [] { return lib().FStrCount(large.handle(), "needle", 0); },
        [] { return countText(large.descriptor(), "needle", false); });
    pair(
        "FStrCount 32 MB, frequent", kLarge / 8, [] { return lib().FStrCount(medium.handle(), "over", 0); },
        [] { return countText(medium.descriptor(), "over", false); });
    pair(
        "FSeekLine 32 MB, to the last", kLarge / 8, [] { return lib().FSeekLine(medium.handle(), 1 << 30, 0); },
        [] { return countFeeds(medium.descriptor()); });
    auto line = std::make_shared<std::vector<char>>(2049);
    pair(
        "FReadLine", 0,
        [line] {
            lib().FReadLine(medium.handle(), line->data());
            return line->data();
        },
        [line] { return readLine(medium.descriptor(), line->data()); });
    pair(
        "FLocate, near", 0, [] { return lib().FLocate(medium.handle(), "lazy", 0); },
        [] { return countText(medium.descriptor(), "lazy", true); });
    pair(
        "FSeekLine back 100", 0, [] { return lib().FSeekLine(medium.handle(), 101, 2); },
        [] { return linesBack(medium.descriptor(), 101); });
});

}  // namespace
}  // namespace vx::bench
