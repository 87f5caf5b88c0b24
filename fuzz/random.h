// Random numbers that are the same on every system for the same seed.
//
// The order in which a compiler evaluates operands and function arguments is its own affair: draw once a statement.
#pragma once

#include <cstdint>
#include <iterator>
#include <string_view>

namespace vx::fuzz {

// splitmix64, with plain draws in place of the standard distributions, which differ between libraries.
class Random {
 public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        std::uint64_t z = state_ += 0x9E3779B97F4A7C15u;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    // 0 to n - 1; n must not be 0.
    std::uint32_t below(std::uint32_t n) { return static_cast<std::uint32_t>(((next() >> 32) * n) >> 32); }
    bool oneIn(std::uint32_t n) { return below(n) == 0; }
    std::int32_t between(std::int32_t low, std::int32_t high) {
        return low + static_cast<std::int32_t>(below(static_cast<std::uint32_t>(high - low) + 1));
    }

    template <class Range>
    const auto& of(const Range& range) {
        return std::data(range)[below(static_cast<std::uint32_t>(std::size(range)))];
    }

 private:
    std::uint64_t state_;
};

// When a call is made: each has random numbers of its own, so that any can be made again without those before it.
struct Turn {
    std::uint64_t seed = 0;
    std::uint64_t round = 0;
    std::uint32_t pass = 0;

    Random randomFor(std::string_view name) const {
        std::uint64_t hash = 0xCBF29CE484222325u;
        for (char c : name) hash = (hash ^ static_cast<std::uint8_t>(c)) * 0x100000001B3u;
        std::uint64_t mixed = Random(seed).next() ^ round;
        mixed = Random(mixed).next() ^ pass;
        mixed = Random(mixed).next() ^ hash;
        return Random(mixed);
    }
};

}  // namespace vx::fuzz
