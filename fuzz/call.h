// A planned call made in guarded memory, and what it left there.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "fuzz/arguments.h"
#include "rows/guarded_memory.h"

namespace vx::fuzz {

// Where the arguments lie and what surrounds them. None of it may change a result.
struct Layout {
    std::uint32_t front =
        0;  // bit i: argument i starts right behind an inaccessible page, else it ends right before one
    char canary = '#';
    char filler = '~';  // what destinations hold before the call; never 0

    // The same call with every buffer at its other page and other bytes around and in it.
    Layout opposite(Random& random) const;
};
Layout drawLayout(Random& random);

// The result of a call, freed of addresses: what two calls on equal inputs must have in common.
struct Seen {
    std::int64_t number = 0;         // of a result that is no pointer
    std::string place;               // of a pointer: the argument and the offset it points to
    std::string text;                // of a text result: what it points to
    std::vector<std::string> after;  // what each argument that may be written holds
};

class Call {
 public:
    Call() = default;

    // Puts the arguments in place. The plan must outlive the call.
    void prepare(const Plan& plan, const Layout& layout);
    void make(catalog::Function function);

    const Plan& plan() const { return *plan_; }
    const catalog::Entry& entry() const { return *plan_->entry; }
    std::span<const catalog::Argument> arguments() const { return plan_->entry->arguments; }
    const Input& input(std::size_t i) const { return plan_->inputs[i]; }
    const Need& need(std::size_t i) const { return needs_[i]; }
    const rows::GuardedBuffer& buffer(std::size_t i) const { return buffers_[i]; }
    const char* pointer(std::size_t i) const { return need(i).bytes ? buffers_[i].data() + need(i).front : nullptr; }
    const catalog::Value& result() const { return result_; }
    const char* resultText() const { return result_.constant; }

    // Whether the argument's bytes are still as they were before the call.
    bool untouched(std::size_t i) const;
    bool terminated(std::size_t i) const;

    // The argument that an address lies in, and where.
    struct Place {
        std::size_t argument;
        std::ptrdiff_t offset;
    };
    std::optional<Place> find(const void* address) const;

    // Valid once the call has been found free of faults.
    Seen seen() const;

 private:
    void fill(std::size_t i, char* to) const;

    const Plan* plan_ = nullptr;
    Layout layout_;
    std::vector<Need> needs_;
    std::array<rows::GuardedBuffer, kMostArguments> buffers_;
    std::array<catalog::Value, kMostArguments> values_{};
    std::vector<std::string> before_;
    catalog::Value result_;
};

// How to make the call again, its arguments, and its result if there is one.
std::string described(const Call& call, bool returned);

}  // namespace vx::fuzz
