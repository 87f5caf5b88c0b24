// The files of a table, and room for what is read and written of them.
#pragma once

#include <cstddef>
#include <memory>
#include <new>

#include "files/open_file.h"

namespace vx::dbf {

using File = OpenFile;

// Room for what is read or written at once: some KB without an allocation.
class Scratch {
 public:
    static constexpr std::size_t kAtHand = 4096;

    // Null if there is no memory. The contents of an earlier room are lost.
    char* room(std::size_t size) {
        if (size <= kAtHand) return atHand_;
        large_.reset(new (std::nothrow) char[size]);
        return large_.get();
    }

 private:
    char atHand_[kAtHand];
    std::unique_ptr<char[]> large_;
};

}  // namespace vx::dbf
