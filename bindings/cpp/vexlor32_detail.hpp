// SPDX-License-Identifier: MIT
//
// What the functions of vexlor32.hpp are made of.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>

#if !defined(_WIN32)
extern "C" char** environ;
#endif

namespace vexlor32 {

// A text argument: a std::string, a literal, or nullptr for none.
class Text {
 public:
    Text(const std::string& text) : text_(text.c_str()), size_(text.size()) {
        if (std::strlen(text_) != size_) throw std::invalid_argument("the text has a NUL in it");
    }
    Text(const char* text) : text_(text), size_(text ? std::strlen(text) : 0) {}
    Text(std::nullptr_t) {}
    const char* c_str() const { return text_; }
    std::size_t size() const { return size_; }

 private:
    const char* text_ = nullptr;
    std::size_t size_ = 0;
};

namespace detail {

constexpr std::int64_t kLargestRoom = std::int64_t{1} << 31;
constexpr std::int64_t kLeastHostRoom = 1 << 18;  // no program is started with a longer text

inline std::int64_t size(const Text& text) { return static_cast<std::int64_t>(text.size()); }

// The room for the longest text of the command line and of the environment.
inline std::int64_t hostRoom() {
    std::size_t longest = 0;
#if !defined(_WIN32)
    for (char** entry = environ; entry && *entry; ++entry) longest = std::max(longest, std::strlen(*entry) + 1);
#endif
    return std::max(kLeastHostRoom, static_cast<std::int64_t>(longest));
}

// Positions of the library begin with 1.
inline std::int32_t fromZero(std::int32_t position) {
    if (position == INT32_MAX) throw std::out_of_range("a position");
    return position + 1;
}

// Where a function writes: what it may change at first, and the room that it may need.
class Destination {
 public:
    Destination(const char* content, std::int64_t room) {
        if (room > kLargestRoom) throw std::length_error("the result could need " + std::to_string(room) + " bytes");
        if (content) bytes_ = content;
        bytes_.resize(std::max(bytes_.size() + 1, static_cast<std::size_t>(std::max<std::int64_t>(room, 1))));
    }
    char* data() { return bytes_.data(); }
    std::string text() {
        bytes_.resize(std::strlen(bytes_.c_str()));
        return std::move(bytes_);
    }

 private:
    std::string bytes_;
};

// A block that has the bytes which the call needs, in front of the place, too, where `before` is below 0.
template <class Block>
auto* within(Block& block, std::int64_t needed, std::int32_t before) {
    std::int64_t front = before < 0 ? -std::int64_t{before} : 0;
    if (static_cast<std::int64_t>(block.size()) < needed + front)
        throw std::length_error(std::to_string(block.size()) + " bytes, where the call needs " +
                                std::to_string(needed + front));
    return block.data() + front;
}

inline std::ptrdiff_t offset(const void* start, const void* place) {
    return place ? static_cast<const char*>(place) - static_cast<const char*>(start) : -1;
}

// What is open until it is closed, and closes itself. `None` is the number that says that opening failed.
template <class Derived, class Number, Number None>
class Handle {
 public:
    explicit Handle(Number handle) : handle_(handle) {}
    ~Handle() { end(); }
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, None)) {}
    Handle& operator=(Handle&& other) noexcept {
        if (this != &other) {
            end();
            handle_ = std::exchange(other.handle_, None);
        }
        return *this;
    }
    explicit operator bool() const { return handle_ != None; }
    Number handle() const {
        if (handle_ == None) throw std::logic_error("not open");
        return handle_;
    }

 protected:
    void forget() { handle_ = None; }

 private:
    void end() {
        if (handle_ != None) static_cast<Derived*>(this)->close();
    }
    Number handle_;
};

}  // namespace detail
}  // namespace vexlor32
