// A program in another language that makes calls through the declarations of bindings/, asked over its standard input.
//
// A request is a line, and so is its answer; bytes are hexadecimal.
//
//     enter PATH                      the current directory from now on; answer: ok
//     call NAME ARGUMENT...           through the exact declarations, by an exported name
//     friendly NAME ARGUMENT...       through the friendly ones, by the main name, without the arguments it supplies
//
// Arguments: nNUMBER; z for NULL; mBYTES@OFFSET for memory with these bytes, and where in it the pointer points; =I@0
// for the memory of argument I. In friendly calls tBYTES is a text or block.
//
// The answer to a call is its result - nNUMBER, v for none, z for NULL, pI@OFFSET for a place in the memory of argument
// I, tBYTES for a text elsewhere - and behind it, for each m argument, mBYTES as the call left it. To a friendly call
// it is the result (pNAME@OFFSET for a place in an argument's memory), then NAME=VALUE for each output,
// changed blocks among them. `!WORDS` says that the call could not be made, and why.
#pragma once

#include <cstdio>
#include <deque>
#include <string>
#include <vector>

#include "rows/remote.h"

namespace vx::test {

// What a friendly function makes by itself and gives back.
inline bool isMade(catalog::Kind kind) { return kind == catalog::Kind::kDest || kind == catalog::Kind::kOut; }

class CallerProcess : public rows::Remote {
 public:
    CallerProcess(const std::vector<std::string>& command, bool isFriendly);
    ~CallerProcess() override;
    CallerProcess(const CallerProcess&) = delete;
    CallerProcess& operator=(const CallerProcess&) = delete;

    void call(const catalog::Entry& entry, const std::string& name, std::span<const rows::Passed> arguments,
              catalog::Value& result) override;
    void enter(const std::filesystem::path& directory) override;

    // Closes its input; its exit code, -1 if it was killed.
    int end();

 private:
    using Words = std::vector<std::string>;
    Words ask(const std::string& request);
    void takeExact(const Words& answer, std::span<const rows::Passed> arguments, catalog::Value& result);
    void takeFriendly(const Words& answer, const catalog::Entry& entry, std::span<const rows::Passed> arguments,
                      catalog::Value& result);

    bool isFriendly_;
    int process_ = -1;
    std::FILE* to_ = nullptr;
    std::FILE* from_ = nullptr;
    std::deque<std::string> texts_;  // results that lie elsewhere
};

}  // namespace vx::test
