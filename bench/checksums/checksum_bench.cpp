// CRCs and sums against libdeflate, where it is installed, and against the best plain table code.
#include <array>
#include <cstring>
#include <memory>
#include <numeric>
#include <string>

#include "bench/support/pair.h"
#include "tests/support/library.h"
#if defined(BENCH_HAS_DEFLATE)
#include <libdeflate.h>
#endif

namespace vx::bench {
namespace {

using test::lib;

// CRC-16 of eight bytes a step.
class Slicing8 {
 public:
    Slicing8() {
        for (unsigned byte = 0; byte < 256; ++byte) {
            unsigned value = byte << 8;
            for (int bit = 0; bit < 8; ++bit) value = value << 1 ^ (value & 0x8000 ? 0x1021 : 0);
            tables_[0][byte] = static_cast<std::uint16_t>(value);
        }
        for (std::size_t k = 1; k < 8; ++k) {
            for (unsigned byte = 0; byte < 256; ++byte) {
                std::uint16_t value = tables_[k - 1][byte];
                tables_[k][byte] = static_cast<std::uint16_t>(value << 8 ^ tables_[0][value >> 8]);
            }
        }
    }

    std::uint16_t run(const std::uint8_t* p, std::size_t size, std::uint16_t crc) const {
        for (; size >= 8; p += 8, size -= 8) {
            crc = static_cast<std::uint16_t>(tables_[7][p[0] ^ crc >> 8] ^ tables_[6][p[1] ^ (crc & 0xFF)] ^
                                             tables_[5][p[2]] ^ tables_[4][p[3]] ^ tables_[3][p[4]] ^ tables_[2][p[5]] ^
                                             tables_[1][p[6]] ^ tables_[0][p[7]]);
        }
        for (; size; ++p, --size) crc = static_cast<std::uint16_t>(tables_[0][*p ^ crc >> 8] ^ crc << 8);
        return crc;
    }

 private:
    std::array<std::array<std::uint16_t, 256>, 8> tables_;
};

std::shared_ptr<std::string> bytesOf(std::size_t size) {
    auto bytes = std::make_shared<std::string>(size, '\0');
    for (std::size_t i = 0; i < size; ++i) (*bytes)[i] = static_cast<char>(i * i % 251 + 1);
    return bytes;
}

void crcs(const char* size, std::size_t count) {
    auto bytes = bytesOf(count);
    auto number = static_cast<std::uint32_t>(count);
    std::string suffix = std::string("/") + size;
#if defined(BENCH_HAS_DEFLATE)
    pair(
        "Crc32" + suffix, count, [=, call = lib().Crc32] { return call(bytes->data(), 0xFFFFFFFFu, number); },
        [=] { return libdeflate_crc32(0, bytes->data(), count); });
#endif
    static const Slicing8 slicing;
    pair(
        "Crc16" + suffix, count, [=, call = lib().Crc16] { return call(bytes->data(), 0, number); },
        [=] { return slicing.run(reinterpret_cast<const std::uint8_t*>(bytes->data()), count, 0); });
}

void sums(const char* size, std::size_t count) {
    auto text = bytesOf(count);
    std::string suffix = std::string("/") + size;
    pair(
        "StrSum" + suffix, count, [=, call = lib().StrSum] { return call(text->c_str()); },
        [=] {
            std::uint32_t sum = 0;
            for (const char* p = text->c_str(); *p; ++p) sum += static_cast<std::uint8_t>(*p);
            return sum;
        });
    pair(
        "CheckSum" + suffix, count, [=, call = lib().CheckSum] { return call(text->c_str()); },
        [=] {
            std::uint32_t sum = 0;
            std::uint32_t position = 1;
            for (const char* p = text->c_str(); *p; ++p) sum += (static_cast<std::uint32_t>(*p) + 1) * position++ << 8;
            return sum;
        });
}

const Cases cases([] {
    crcs("20B", 20);
    crcs("64B", 64);
    crcs("1000B", 1000);
    crcs("4KB", 4 << 10);
    crcs("16MB", 16 << 20);
    sums("20B", 20);
    sums("1MB", 1 << 20);
});

}  // namespace
}  // namespace vx::bench
