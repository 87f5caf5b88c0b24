// Words about a call, put together without allocating anything: also inside a handler after a crash.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/call.h"

namespace vx::fuzz {

class Report {
 public:
    Report& operator<<(std::string_view text);
    Report& operator<<(std::int64_t number);
    Report& escaped(std::string_view bytes);

    // How to make the call again, its arguments, and its result if there is one.
    void describe(const Call& call, bool returned);

    // Which byte of which argument an address is; nothing if it belongs to none.
    void locate(const Call& call, const void* address);

    std::string_view text() const { return {text_, size_}; }

    // Straight to standard error, past any buffer of the C library.
    void write() const;

 private:
    void describeArgument(const Call& call, std::size_t i);

    static constexpr std::size_t kRoom = 1 << 16;
    char text_[kRoom];
    std::size_t size_ = 0;
};

}  // namespace vx::fuzz
