// Searches by lists of patterns with the library's filter: what other families use of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "files/path.h"
#include "platform/tree.h"

namespace vx {

// The attributes of a file as the library gives them.
enum FileAttribute : std::uint32_t {
    kReadOnlyBit = 1,
    kHiddenBit = 2,
    kSystemBit = 4,
    kDirectoryBit = 16,
    kArchiveBit = 32,
    kCompressedBit = 64,
};
std::uint32_t libraryAttributes(std::uint32_t platformAttributes);

// How a search chooses its entries and gives their names. The low bits are a mask of attributes.
enum SearchFlag : std::uint32_t {
    kMaskBits = 0x7F,
    kMaskOnly = 0x80,         // nothing but the mask decides
    kAllDirectories = 0x100,  // but for "." and "..", whatever the mask says
    kFullNames = 0x200,       // with the pattern's drive and directory
    kShortNames = 0x400,      // 8.3; empty where the long name is one itself
};

// Whether a search takes an entry.
bool takes(std::uint32_t flags, const platform::FoundEntry& entry);

// Characters of a list that are kept.
inline constexpr std::size_t kLongestList = 520;

// Room for the name of an entry with the pattern's drive and directory.
inline constexpr std::size_t kFoundNameSize = 2 + (kPieceSize - 1) + 1 + (kPieceSize - 1) + 1;

// kept: 32 bits, from which the size's high word is subtracted.
inline std::uint32_t foundSize(const platform::FoundEntry& entry) { return entry.sizeLow - entry.sizeHigh; }

// A search and where it stands. It has an entry until its list is used up; the entry's name then is empty.
struct SearchState {
    static constexpr std::int32_t kAtEnd = 0x7FFFFFFF;  // the number of no pattern

    std::int32_t handle = -1;  // of the platform's search for the current pattern
    std::uint32_t flags = 0;
    std::int32_t number = 1;  // of the current pattern
    std::string_view list;
    char pattern[platform::kPathSize] = "";
    platform::FoundEntry entry{};
    const void* block = nullptr;  // the caller's memory that it is kept in

    // The first entry of pattern `number` or of one behind it that is taken; the next one. False when there is none.
    bool start();
    bool next();
    void close();

    // Puts the entry's name, as these flags say, at `to`, which needs kFoundNameSize; the length.
    std::size_t putName(std::uint32_t nameFlags, char* to) const;

 private:
    bool step();
};

// A search of its own, closed when it ends:
//     FileSearch search(list, flags);
//     while (search.next()) ... search.entry() ...
class FileSearch {
 public:
    FileSearch(std::string_view list, std::uint32_t flags) {
        state_.list = list.substr(0, kLongestList);
        state_.flags = flags;
    }
    ~FileSearch() { state_.close(); }
    FileSearch(const FileSearch&) = delete;
    FileSearch& operator=(const FileSearch&) = delete;

    bool next() {
        bool first = !started_;
        started_ = true;
        return first ? state_.start() : state_.next();
    }
    const platform::FoundEntry& entry() const { return state_.entry; }
    std::string_view pattern() const { return state_.pattern; }
    std::size_t putName(char* to) const { return state_.putName(state_.flags, to); }

 private:
    SearchState state_;
    bool started_ = false;
};

// Whether the first entry of every pattern is one that the search takes; an empty list is. NULL is empty.
bool isFile(const char* list, std::uint32_t flags);

}  // namespace vx
