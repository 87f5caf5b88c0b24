// The bytes of table, memo and blob files: where things are, and how numbers are stored.
//
// A table file, little-endian:
//
//   header, 32 bytes         0 version, 1 date of the last change (year - 1900, month, day), 4 number of records,
//                            8 where the records begin, 10 size of a record, the rest is kept as it was read
//   a descriptor a field,    0 name, filled up with NULs, 11 type, 12 offset in the record, 16 length; of numbers 16 is
//   32 bytes                 the width and 17 the decimals, else both are the length. The offset, and at 18 the name's
//                            length + 1, are written for others: readers add the lengths up
//   end mark, 1 byte         how many fields there are follows from where the records begin, not from it
//   records                  a deletion flag, then the fields; no end mark is needed behind the last
//
// A memo file of the dBASE kind, blocks of 512 bytes: block 0 begins with the next free block, which is not heeded; a
// memo is the text from the begin of its block to the end mark.
//
// A memo file of the FoxPro kind, big-endian: 0 next free block, 6 size of a block. A memo: 0 type, 4 length of the
// text, 8 the text.
//
// A blob file, little-endian: 0 the magic, 2 first block of the free list. A block:
//
//   header, 20 bytes         0 the magic, 4 next and 8 previous block of the free list, 12 bytes in use, 16 capacity
//   data                     as much as the capacity
//   trailer, 4 bytes         where the block begins
//
// A free block has none of its bytes in use; the last of the list, the end block, has neither capacity nor trailer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

#include "datetime/dateformat.h"
#include "frame/text.h"

namespace vx::dbf {

// Table files.
inline constexpr std::size_t kHeaderSize = 32;
inline constexpr std::size_t kDescriptorSize = 32;
inline constexpr std::size_t kNameRoom = 11;
inline constexpr char kHeaderEnd = 0x0D;
inline constexpr char kEndOfFile = 0x1A;
inline constexpr char kLive = ' ';
inline constexpr char kDeleted = '*';

enum Version : std::uint8_t {
    kPlain = 0x03,
    kOtherTypes = 0x20,
    kHasBlobs = 0x40,
    kHasMemos = 0x80,
    kFoxPro = 0xF5,
};

inline bool isAccepted(std::uint8_t version) { return (version & 0x1F) == kPlain || version == kFoxPro; }
inline bool hasBlobs(std::uint8_t version) { return (version & kHasBlobs) && version != kFoxPro; }
inline bool hasMemos(std::uint8_t version) { return (version & kHasMemos) != 0; }

// A memo field holds a block number in decimal; a blob field an offset and a length.
inline constexpr std::size_t kNumberWidth = 10;

// Memo files of the dBASE kind.
inline constexpr std::uint32_t kDbtBlockSize = 512;
inline constexpr char kMemoEnd = 0x1A;
inline constexpr std::size_t kLongestDbtRead = 65536;
inline constexpr std::size_t kLongestDbtWrite = 32768;

// Memo files of the FoxPro kind.
inline constexpr std::size_t kFptHeaderSize = 8;
inline constexpr std::size_t kFptBlockHeaderSize = 8;
inline constexpr std::size_t kFptUsualHeaderRoom = 512;
inline constexpr std::uint32_t kFptText = 1;

// Blob files.
inline constexpr std::uint16_t kBlobMagic = 0xFE07;
inline constexpr std::size_t kBlobFileHeaderSize = 18;
inline constexpr std::size_t kBlobHeaderSize = 20;
inline constexpr std::size_t kBlobTrailerSize = 4;
inline constexpr std::uint32_t kFirstBlob = 64;

inline std::uint16_t le16(const char* p) { return static_cast<std::uint16_t>(byteOf(p[0]) | (byteOf(p[1]) << 8)); }
inline std::uint32_t le32(const char* p) { return le16(p) | (std::uint32_t{le16(p + 2)} << 16); }
inline std::uint16_t be16(const char* p) { return static_cast<std::uint16_t>((byteOf(p[0]) << 8) | byteOf(p[1])); }
inline std::uint32_t be32(const char* p) { return (std::uint32_t{be16(p)} << 16) | be16(p + 2); }

inline void putLe16(char* p, std::uint32_t n) {
    p[0] = static_cast<char>(n);
    p[1] = static_cast<char>(n >> 8);
}
inline void putLe32(char* p, std::uint32_t n) {
    putLe16(p, n);
    putLe16(p + 2, n >> 16);
}
inline void putBe32(char* p, std::uint32_t n) {
    for (int i = 0; i < 4; ++i) p[i] = static_cast<char>(n >> (24 - 8 * i));
}

// The decimal number that a text begins with, after blanks: 0 if there is none, or it is negative. One that is larger
// than any file can mean ends early, so that a row of digits without end cannot overflow.
inline std::int64_t decimalOf(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && text[i] == ' ') ++i;
    std::int64_t number = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
        number = number * 10 + (text[i] - '0');
        if (number > std::numeric_limits<std::uint32_t>::max()) break;
    }
    return number;
}

// A table's first 32 bytes, as they are in the file.
struct Header {
    char bytes[kHeaderSize] = {};

    std::uint8_t version() const { return byteOf(bytes[0]); }
    std::uint32_t count() const { return le32(bytes + 4); }
    std::uint16_t headerSize() const { return le16(bytes + 8); }
    std::uint16_t recordSize() const { return le16(bytes + 10); }

    void setVersion(std::uint8_t version) { bytes[0] = static_cast<char>(version); }
    void setCount(std::uint32_t count) { putLe32(bytes + 4, count); }
    void setSizes(std::uint32_t headerSize, std::uint32_t recordSize) {
        putLe16(bytes + 8, headerSize);
        putLe16(bytes + 10, recordSize);
    }
    void stamp(const Date& date) {
        bytes[1] = static_cast<char>(date.year - 1900);
        bytes[2] = static_cast<char>(date.month);
        bytes[3] = static_cast<char>(date.day);
    }
};

}  // namespace vx::dbf
