// Descriptors, and what the calls that take them have in common.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <utility>

namespace vx::platform {

// Gives errno back as it was: the reason of a failure outlives the clean-up.
class KeptErrno {
 public:
    KeptErrno() = default;
    ~KeptErrno() { errno = code_; }
    KeptErrno(const KeptErrno&) = delete;
    KeptErrno& operator=(const KeptErrno&) = delete;

 private:
    int code_ = errno;
};

// Closed when it goes out of scope.
class Descriptor {
 public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() { reset(); }

    explicit operator bool() const { return number_ >= 0; }
    int get() const { return number_; }
    int release() { return std::exchange(number_, -1); }
    void reset() {
        if (number_ < 0) return;
        KeptErrno kept;
        ::close(release());
    }

 private:
    int number_;
};

// Repeats a system call that a signal has interrupted.
template <typename Call>
auto uninterrupted(Call call) -> decltype(call()) {
    for (;;) {
        auto result = call();
        if (result >= 0 || errno != EINTR) return result;
    }
}

// Where the descriptor stands. False, with errno, if not all could be written.
inline bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t done = uninterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
        if (done < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(done));
    }
    return true;
}

// A lock of a range, as fcntl takes it.
inline struct flock lockOn(short type, off_t start, off_t length) {
    struct flock lock {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = start;
    lock.l_len = length;
    return lock;
}

}  // namespace vx::platform
