// The CRCs bit by bit, and blocks that end where their memory ends.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <random>
#include <vector>

namespace vx::test {

using Bytes = std::vector<std::uint8_t>;

inline Bytes randomBytes(std::mt19937& random, std::size_t size) {
    Bytes bytes(size);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    return bytes;
}

inline std::uint32_t crc32ByBits(const std::uint8_t* bytes, std::size_t size, std::uint32_t running) {
    for (std::size_t i = 0; i < 8 * size; ++i) {
        std::uint32_t bit = (running ^ static_cast<std::uint32_t>(bytes[i / 8] >> i % 8)) & 1;
        running = (running >> 1) ^ (bit ? 0xEDB88320u : 0);
    }
    return running;
}

inline std::uint32_t crc16ByBits(const std::uint8_t* bytes, std::size_t size, std::uint32_t running) {
    for (std::size_t i = 0; i < 8 * size; ++i) {
        std::uint32_t bit = ((running >> 15) ^ static_cast<std::uint32_t>(bytes[i / 8] >> (7 - i % 8))) & 1;
        running = ((running << 1) & 0xFFFF) ^ (bit ? 0x1021u : 0);
    }
    return running;
}

}  // namespace vx::test
