// Tables of a CRC for several bytes a step: table k tells what a byte does to the value from k bytes before the end of
// the step, so that no look-up waits for another.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace vx {

inline constexpr std::size_t kCrcStep = 16;

template <class Word>
using CrcTables = std::array<std::array<Word, 256>, kCrcStep>;

// `next` runs one byte through the value.
template <class Word, class Next>
constexpr CrcTables<Word> makeCrcTables(Word (*byteAlone)(unsigned byte), Next next) {
    CrcTables<Word> tables{};
    for (unsigned byte = 0; byte < 256; ++byte) tables[0][byte] = byteAlone(byte);
    for (std::size_t k = 1; k < kCrcStep; ++k) {
        for (unsigned byte = 0; byte < 256; ++byte) tables[k][byte] = next(tables[0], tables[k - 1][byte]);
    }
    return tables;
}

// CRC-32, reflected: the value's low byte meets the next byte.
inline constexpr std::uint32_t kCrc32Polynomial = 0xEDB88320;
inline constexpr CrcTables<std::uint32_t> kCrc32Tables = makeCrcTables<std::uint32_t>(
    [](unsigned byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ (value & 1 ? kCrc32Polynomial : 0);
        return value;
    },
    [](const auto& first, std::uint32_t value) { return first[value & 0xFF] ^ (value >> 8); });

// CRC-16 CCITT, not reflected: the value's high byte meets the next byte.
inline constexpr std::uint16_t kCrc16Polynomial = 0x1021;
inline constexpr CrcTables<std::uint16_t> kCrc16Tables = makeCrcTables<std::uint16_t>(
    [](unsigned byte) {
        unsigned value = byte << 8;
        for (int bit = 0; bit < 8; ++bit) value = (value << 1) ^ (value & 0x8000 ? kCrc16Polynomial : 0);
        return static_cast<std::uint16_t>(value);
    },
    [](const auto& first, std::uint16_t value) {
        return static_cast<std::uint16_t>(first[value >> 8] ^ (value << 8));
    });

}  // namespace vx
