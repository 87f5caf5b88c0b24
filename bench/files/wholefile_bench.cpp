// Copying and comparing 256 MB that are in memory already, beside what cp and cmp do.
#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bench/support/pair.h"
#include "tests/support/library.h"
#include "tests/support/workplace.h"

namespace vx::bench {
namespace {

using test::lib;

constexpr std::size_t kSize = 256 << 20;

class Descriptor {
 public:
    Descriptor(const std::filesystem::path& path, int flags) : number_(::openat(AT_FDCWD, path.c_str(), flags, 0666)) {}
    ~Descriptor() { ::close(number_); }
    operator int() const { return number_; }

 private:
    int number_;
};

// Two equal files, made when they are first asked for, and on the disk before anything is measured.
const test::Workplace& files() {
    static const test::Workplace place;
    static const bool made = [] {
        std::string content(kSize, '\0');
        for (std::size_t i = 0; i < kSize; ++i) content[i] = static_cast<char>(i * 31 + i / 251);
        for (const char* name : {"a", "b", "copy"}) {
            place.put(name, content);
            ::fsync(Descriptor(place.native(name), O_RDONLY));
        }
        return true;
    }();
    (void)made;
    return place;
}

long copyByKernel() {
    Descriptor from(files().native("a"), O_RDONLY), to(files().native("copy"), O_WRONLY | O_CREAT | O_TRUNC);
    long sum = 0;
    while (ssize_t done = ::copy_file_range(from, nullptr, to, nullptr, kSize, 0)) {
        if (done < 0) return -1;
        sum += done;
    }
    return sum;
}

long copyByBlocks() {
    Descriptor from(files().native("a"), O_RDONLY), to(files().native("copy"), O_WRONLY | O_CREAT | O_TRUNC);
    std::vector<char> block(256 << 10);
    long sum = 0;
    ssize_t done;
    while ((done = ::read(from, block.data(), block.size())) > 0) sum += ::write(to, block.data(), std::size_t(done));
    return sum;
}

long compare() {
    Descriptor first(files().native("a"), O_RDONLY), second(files().native("b"), O_RDONLY);
    constexpr std::size_t kBlock = 128 << 10;
    std::vector<char> a(kBlock), b(kBlock);
    ssize_t done;
    while ((done = ::read(first, a.data(), kBlock)) > 0) {
        if (::read(second, b.data(), kBlock) != done) return -1;
        if (std::memcmp(a.data(), b.data(), std::size_t(done)) != 0) return 1;
    }
    return done;
}

int copyByLibrary() { return lib().FCcopy(files().path("a").c_str(), files().path("copy").c_str()); }
int compareByLibrary() { return lib().FCompare(files().path("a").c_str(), files().path("b").c_str()); }

const Cases cases([] {
    pair("FCcopy/256MB/copy_file_range", kSize, copyByLibrary, copyByKernel);
    pair("FCcopy/256MB/read_write", kSize, copyByLibrary, copyByBlocks);
    pair("FCompare/256MB", kSize, compareByLibrary, compare);
});

}  // namespace
}  // namespace vx::bench
