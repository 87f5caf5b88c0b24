// What a block's `with` lines set up, taken back when this goes.
//
//     with CALL until CALL          a call, and the one that takes back what it did
//     with directory                an empty current directory, gone afterwards
//     with file "a.txt" "text"      a file in it
//     with table "cheques" "PAYEE,C,20:AMOUNT,N,10,2" "Harwell|120.50" "Miller|7"
//                                   a table there, its records, the first of them current: $table
//     with system windows           the block is for that system alone (or linux)
//     with machine [WORDS]          a made-up machine, and how it is
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "rows/call.h"
#include "rows/runner.h"

namespace vx::rows {

class Surroundings {
 public:
    Surroundings(const Block& block, const Host& host, Variables& variables);
    ~Surroundings();  // NOLINT(bugprone-exception-escape): the calls were tried before
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;

    // Whether rows may be called once only, because what they do stays.
    bool isPlace() const { return hasMachine_ || !directory_.empty(); }

    // Whether a host runs the block.
    static bool isFor(const Block& block, const Host& host);

 private:
    void set(const Setup& setup);
    void makeDirectory();
    void takeBack();
    void makeTable(const Setup& setup);
    std::int64_t makeCall(const Row& row, bool onlyTried = false);  // tried: its arguments are
    std::int64_t makeCall(const Setup& setup, const char* name, std::vector<Value> arguments);

    const Block& block_;
    const Host& host_;
    Variables& variables_;
    std::int64_t table_ = 0;
    bool hasMachine_ = false;
    std::filesystem::path directory_;
    std::filesystem::path before_;
    std::size_t done_ = 0;  // set-up lines
};

}  // namespace vx::rows
