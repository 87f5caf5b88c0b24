// Arguments as they are typed, and which of them a call wants.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "catalog/catalog.h"

namespace vx::cli {

// One argument as typed; `{}` in it may stand for a line of standard input.
class Typed {
 public:
    Typed(std::string_view typed, bool escapes, bool lines);

    bool isNull() const { return null_; }
    bool takesLine() const { return pieces_.size() > 1; }

    // Puts the text that the argument means into `text`, whose memory is used again.
    void write(std::string_view line, std::string& text) const;

 private:
    std::vector<std::string> pieces_;  // the line goes between each two of them
    bool null_ = false;
};

// The number or character code that `text` stands for; UsageError names the argument and what it expects.
std::int64_t numberOf(const catalog::Argument& argument, const std::string& text);

// `vexlor NAME TEXT WIDTH`: how the function is called from the shell.
std::string synopsis(const catalog::Entry& entry, const std::string& name);

// A line an argument, indented and aligned: its name and what it means; without the supplied ones if so wanted.
std::string argumentHelp(const catalog::Entry& entry, bool givenOnly);

// What to say to somebody who gave `count` arguments: the declaration and each argument's meaning.
std::string wrongCount(const catalog::Entry& entry, const std::string& name, std::size_t count);

}  // namespace vx::cli
