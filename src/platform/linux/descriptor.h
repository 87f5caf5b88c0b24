// A descriptor, closed when it goes out of scope.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace vx::platform {

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
        int kept = errno;  // of the call that made this one superfluous
        ::close(release());
        errno = kept;
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

}  // namespace vx::platform
