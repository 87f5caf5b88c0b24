// Table, memo and blob files put together byte by byte.
#pragma once

#include <cstdint>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace vx::lab {

inline std::string little(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(number >> (8 * i));
    return text;
}

inline std::string big(std::uint64_t number, int bytes) {
    std::string text = little(number, bytes);
    return {text.rbegin(), text.rend()};
}

inline std::string padded(std::string text, std::size_t size, char with = ' ') {
    text.resize(size, with);
    return text;
}

// Of fields as a structure text names them, with lengths as they stand: `A,C,3:N,N,10,2`. As written on 31 December
// 1999. The records come with their deletion flags.
inline std::string tableBytes(int version, const std::string& structure, const std::vector<std::string>& records) {
    std::size_t fields = 0, recordSize = 1;
    std::string descriptors, data;
    std::istringstream entries(structure);
    for (std::string entry, name; std::getline(entries, entry, ':'); ++fields) {
        std::istringstream parts(entry);
        char type = '?', comma = 0;
        std::size_t length = 0, decimals = 0;
        std::getline(parts, name, ',') >> type >> comma >> length >> comma >> decimals;
        bool isNumber = type == 'N' || type == 'F';
        std::string word = isNumber ? little(length, 1) + little(decimals, 1) : little(length, 2);
        descriptors += padded(padded(name, 11, '\0') + type + std::string(4, '\0') + word, 32, '\0');
        recordSize += length;
    }
    for (const std::string& record : records) data += padded(record, recordSize);
    return little(static_cast<std::uint64_t>(version), 1) + "\x63\x0C\x1F" + little(records.size(), 4) +
           little(33 + 32 * fields, 2) + little(recordSize, 2) + "twenty reserved byte" + descriptors + "\x0D" + data +
           "\x1A";
}

// Each memo in blocks of its own, from block 1 on.
inline std::string dbtBytes(const std::vector<std::string>& memos) {
    std::string bytes = padded(little(1, 4), 512, '\0');
    for (const std::string& memo : memos) bytes += padded(memo + "\x1A", (memo.size() / 512 + 1) * 512, '\0');
    return bytes;
}

// Blocks of 64 bytes behind a header of 512: the first memo is in block 8.
inline std::string fptBytes(const std::vector<std::string>& memos, int blockSize = 64) {
    auto size = static_cast<std::size_t>(blockSize);
    std::string blocks;
    for (const std::string& memo : memos) {
        std::string block = big(1, 4) + big(memo.size(), 4) + memo;
        blocks += padded(block, (block.size() + size - 1) / size * size, '\0');
    }
    std::string header = big((512 + blocks.size()) / size, 4) + std::string(2, '\0') + big(size, 2);
    return padded(header, 512, '\0') + blocks;
}

inline std::string blobHeader(std::uint32_t next, std::uint32_t previous, std::uint32_t used, std::uint32_t capacity) {
    return little(0xFE07, 2) + std::string(2, '\0') + little(next, 4) + little(previous, 4) + little(used, 4) +
           little(capacity, 4);
}

inline std::string blobFileHeader(std::uint32_t first) {
    return padded(little(0xFE07, 2) + little(first, 4) + little(0, 4) + little(60, 4) + little(60, 4), 64, '\0');
}

// The first blob is at 64, each one behind the other, the end block last.
inline std::string bloBytes(const std::vector<std::string>& blobs) {
    std::string blocks;
    for (const std::string& blob : blobs) {
        std::size_t start = 64 + blocks.size();
        std::size_t capacity = blob.size() < 40 ? 40 : blob.size();
        blocks += blobHeader(0, 0, static_cast<std::uint32_t>(blob.size()), static_cast<std::uint32_t>(capacity)) +
                  padded(blob, capacity, '\0') + little(start, 4);
    }
    return blobFileHeader(static_cast<std::uint32_t>(64 + blocks.size())) + blocks + blobHeader(0, 0, 0, 0);
}

// The blocks of a blob file from the first to the last: `used/capacity` in use, `(capacity)` free, `end`; or what does
// not hold together.
inline std::string blocksOf(const std::string& file) {
    auto number = [&](std::size_t at) {
        std::uint32_t n = 0;
        for (std::size_t i = 4; i-- > 0;) n = n << 8 | (at + i < file.size() ? file[at + i] & 0xFF : 0);
        return n;
    };
    std::set<std::size_t> free;  // by the list
    for (std::uint32_t at = number(2), previous = 0; at != 0; previous = at, at = number(at + 4)) {
        if (number(at + 8) != previous) return "the previous of " + std::to_string(at);
        if (!free.insert(at).second) return "a circle";
    }
    std::string text;
    std::size_t listed = 0;
    for (std::size_t at = 64; at < file.size();) {
        std::uint32_t used = number(at + 12), capacity = number(at + 16);
        if (file.substr(at, 2) != little(0xFE07, 2)) return text + "no block";
        if (free.contains(at) != (used == 0)) return text + "in use and free";
        listed += used == 0;
        bool ends = number(at + 4) == 0 && at + 20 == file.size() && listed == free.size();
        if (capacity == 0) return text + (ends ? "end" : "an end that is none");
        if (number(at + 20 + capacity) != at) return text + "another trailer";
        text += (used ? std::to_string(used) + "/" : "(") + std::to_string(capacity) + (used ? " " : ") ");
        at += 24 + capacity;
    }
    return text + "no end";
}

// A memo field's text, and a blob field's.
inline std::string memoReference(int block) {
    std::string number = block ? std::to_string(block) : "";
    return std::string(10 - number.size(), ' ') + number;
}
inline std::string blobReference(int offset, std::size_t size) {
    return padded(std::to_string(offset), 10) + padded(std::to_string(size), 10);
}

}  // namespace vx::lab
