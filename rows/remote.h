// Calls that are made elsewhere, through the declarations of another language.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>

#include "catalog/catalog.h"

namespace vx::rows {

// One argument: a number, a null pointer, or memory. A text that is its own destination is passed twice.
struct Passed {
    enum class How { kNumber, kNull, kMemory, kSame };
    How how = How::kNumber;
    std::int64_t number = 0;
    char* memory = nullptr;
    std::size_t size = 0;
    std::size_t offset = 0;  // of where the pointer points
    std::size_t sameAs = 0;  // the argument whose memory it is
};

class Remote {
 public:
    virtual ~Remote() = default;
    // Throws a text that says what went wrong.
    virtual void call(const catalog::Entry& entry, const std::string& name, std::span<const Passed> arguments,
                      catalog::Value& result) = 0;
    // The current directory from now on.
    virtual void enter(const std::filesystem::path& directory) = 0;
};

}  // namespace vx::rows
