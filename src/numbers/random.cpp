// The pseudo-random numbers: a shift register of 250 words, seeded by a linear congruential generator.
#include "entries/random.h"

#include <cstdint>

namespace vx {

namespace {

constexpr unsigned kWords = 250;
constexpr unsigned kTap = 147;
constexpr std::uint16_t kModulus = 0xFFFF;
constexpr std::uint32_t kFirstSeed = 1;  // of a process that never chose one

class SeedGenerator {
 public:
    explicit SeedGenerator(std::uint32_t seed) : state_(seed) {}
    std::uint16_t next() {
        state_ = state_ * 22695477 + 1;
        return static_cast<std::uint16_t>((state_ >> 16) & 0x7FFF);
    }

 private:
    std::uint32_t state_;
};

// All that Random remembers, for the whole process.
struct ShiftRegister {
    bool seeded;
    unsigned index;  // of the word that changes next
    std::uint16_t words[kWords];

    void seed(std::uint32_t seed) {
        SeedGenerator generator(seed);
        seeded = true;
        index = 0;
        for (std::uint16_t& word : words) word = generator.next();
        for (std::uint16_t& word : words) {
            if (generator.next() > 16384) word |= 0x8000;
        }
        // A triangle of bits in sixteen words keeps the words linearly independent.
        for (unsigned k = 0; k < 16; ++k) {
            std::uint16_t& word = words[3 + 11 * k];
            word = static_cast<std::uint16_t>((word & (0xFFFF >> k)) | (0x8000 >> k));
        }
        next();
    }

    // Every second word, unless it is the modulus itself.
    std::uint16_t next() {
        std::uint16_t value;
        do {
            step();
            value = step();
        } while (value >= kModulus);
        return value;
    }

 private:
    std::uint16_t step() {
        std::uint16_t& word = words[index];
        word ^= words[index >= kTap ? index - kTap : index + kWords - kTap];
        index = index + 1 < kWords ? index + 1 : 0;
        return word;
    }
};

constinit ShiftRegister shiftRegister{};

}  // namespace
}  // namespace vx

using namespace vx;

int32_t VX_CALL vx_Random(int32_t seed) noexcept {
    // kept: only the low 16 bits seed, so 65536 starts the sequence of 0.
    if (seed != 0) shiftRegister.seed(static_cast<std::uint16_t>(seed));
    if (!shiftRegister.seeded) shiftRegister.seed(kFirstSeed);
    return shiftRegister.next() & 0x7FFF;
}
