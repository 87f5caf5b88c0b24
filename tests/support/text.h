// Texts and destinations for calls: room to the byte, so that a sanitizer sees the first byte too many.
#pragma once

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <string_view>

namespace vx::test {

// A destination of exactly `room` bytes, filled with '~' and not terminated.
class Dest {
 public:
    explicit Dest(std::size_t room) : room_(room), bytes_(new char[room]) { std::memset(bytes_.get(), '~', room); }

    operator char*() { return bytes_.get(); }
    char* get() { return bytes_.get(); }

    // What the call wrote, up to its terminator (or all bytes if it wrote none).
    std::string text() const { return std::string(bytes_.get(), strnlen(bytes_.get(), room_)); }

 private:
    std::size_t room_;
    std::unique_ptr<char[]> bytes_;
};

// A text in a buffer of its own, of exactly its size or with more room, for calls that work in place.
class Edit {
 public:
    explicit Edit(std::string_view text, std::size_t room = 0) : dest_(std::max(text.size() + 1, room)) {
        std::memcpy(dest_.get(), text.data(), text.size());
        dest_.get()[text.size()] = '\0';
    }

    operator char*() { return dest_.get(); }
    char* get() { return dest_.get(); }
    std::string text() const { return dest_.text(); }

 private:
    Dest dest_;
};

// All characters in their order, without the terminator.
inline std::string everyCharacter() {
    std::string all;
    for (int c = 1; c < 256; ++c) all += static_cast<char>(c);
    return all;
}

// Seeded random texts over a small alphabet, where coincidences are frequent.
class RandomTexts {
 public:
    explicit RandomTexts(unsigned seed) : engine_(seed) {}

    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }

    bool oneIn(int n) { return number(1, n) == 1; }

    std::string text(std::string_view alphabet, int longest) {
        std::string result(static_cast<std::size_t>(number(0, longest)), '\0');
        for (char& c : result) c = alphabet[static_cast<std::size_t>(number(0, static_cast<int>(alphabet.size()) - 1))];
        return result;
    }

 private:
    std::mt19937 engine_;
};

}  // namespace vx::test
