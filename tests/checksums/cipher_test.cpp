// The ciphers against a walk along text and key.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/library.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

const std::string kPhrase = "Orbital Quince Cipher Phrase for Textsthe swift grey cat leaps across the sleepy barns";

std::string ciphered(std::string text, std::string key) {
    if (key.empty()) key = kPhrase;
    key = key.substr(0, 255);
    for (std::size_t i = 0; i < text.size(); ++i) text[i] = static_cast<char>(text[i] ^ (key[i % key.size()] | 0x80));
    return text;
}

TEST(TextCipher, StatedValues) {
    Edit text("AB");
    EXPECT_EQ(lib().Encrypt(text, "ab", text), text.get());
    EXPECT_EQ(text.text(), "\xA0\xA0");
    EXPECT_EQ(lib().Decrypt(text, "\xE1\x62", text), text.get()) << "high bits of the key make no difference";
    EXPECT_EQ(text.text(), "AB");

    Edit shrinking(
        "a\xE2"
        "c");
    EXPECT_EQ(lib().StrEncrypt(shrinking, "ab", shrinking), 1u) << "kept: the second character meets its own key";
    EXPECT_EQ(shrinking.get()[2], static_cast<char>('c' ^ 0xE1));
    EXPECT_EQ(shrinking.get()[3], '\0');

    Edit empty("");
    EXPECT_EQ(lib().Encrypt(empty, "key", empty), empty.get());
    EXPECT_EQ(empty.text(), "");
}

TEST(TextCipher, ThirdArgumentComesBack) {
    Edit other("seven77");
    Edit text("secret");
    EXPECT_EQ(lib().Encrypt(text, "k", other), other.get());
    EXPECT_EQ(lib().StrDecrypt(text, "k", other), 7u);
    EXPECT_EQ(text.text(), "secret");
    EXPECT_EQ(other.text(), "seven77") << "never written to";
    EXPECT_EQ(lib().Decrypt(text, "k", nullptr), nullptr);
    EXPECT_EQ(lib().StrEncrypt(text, "k", nullptr), 0u);
    EXPECT_EQ(text.text(), "secret") << "changed in both calls";
    EXPECT_EQ(lib().Encrypt(nullptr, "k", other), other.get());
    EXPECT_EQ(lib().StrDecrypt(nullptr, "k", other), 7u);
}

TEST(TextCipher, LikeAWalkAlongTextAndKey) {
    std::string sevenBits;
    for (char c = 1; c > 0; ++c) sevenBits += c;
    std::string allBits = sevenBits;
    for (int c = 0x80; c < 0x100; ++c) allBits += static_cast<char>(c);
    RandomTexts random(55);
    for (int i = 0; i < 4000; ++i) {
        std::string key = random.text(allBits, random.oneIn(4) ? 300 : 40);
        std::string plain = random.text(sevenBits, random.oneIn(8) ? 900 : 60);
        Edit text(plain);
        const char* given = key.empty() && random.oneIn(2) ? nullptr : key.c_str();
        std::uint32_t length = lib().StrEncrypt(text, given, text);
        EXPECT_EQ(length, plain.size()) << "7-bit texts keep their length";
        ASSERT_EQ(text.text(), ciphered(plain, key)) << plain << " by " << key;
        lib().Decrypt(text, key.substr(0, 255).c_str(), nullptr);
        ASSERT_EQ(text.text(), plain) << "by " << key;
    }
}

TEST(BufferCipher, LikeAWalkAlongBlockAndKey) {
    for (std::size_t size = 0; size <= 200; ++size) {
        std::string plain(size, '\0');
        for (std::size_t i = 0; i < size; ++i) plain[i] = static_cast<char>(i * 7 % 256);
        std::string expected = plain;
        for (std::size_t i = 0; i < size; ++i) expected[i] = static_cast<char>(expected[i] ^ "kTRAVO"[i % 6]);
        auto count = static_cast<std::uint32_t>(size);
        for (const char* key : {"", "other", static_cast<const char*>(nullptr)}) {
            Dest block(size);
            std::memcpy(block, plain.data(), size);
            EXPECT_EQ(lib()._blobencrypt(block, count, key), block.get());
            EXPECT_EQ(std::string(block.get(), size), expected) << "kept: the key argument changes nothing";
            EXPECT_EQ(lib()._blobdecrypt(block, count, key), block.get());
            EXPECT_EQ(std::string(block.get(), size), plain) << size;
        }
    }
    EXPECT_EQ(lib()._blobencrypt(nullptr, 5, "k"), nullptr);
    EXPECT_EQ(lib()._blobdecrypt(nullptr, 5, "k"), nullptr);
}

}  // namespace
}  // namespace vx::test
