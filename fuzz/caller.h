// Makes the calls of one entry and compares them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "fuzz/call.h"

namespace vx::fuzz {

class Caller {
 public:
    using Find = std::function<catalog::Function(const catalog::Entry&)>;

    // `find` gives an entry's address in the library under test.
    explicit Caller(Find find) : find_(std::move(find)) {}

    // Calls the entry with arguments drawn for that turn, then all that can be compared with it. False after a fault,
    // which complaint() tells.
    bool tryEntry(const catalog::Entry& entry, const Turn& turn);

    // Handles and blocks of earlier calls are no longer used.
    void forget() { recall_ = {}; }

    // Tables that calls go on with: one that is open already, and all that there are.
    void adopt(std::uint32_t table) { recall_.keepTable(table); }
    const std::vector<std::int64_t>& tables() const { return recall_.tables(); }

    const std::string& complaint() const { return complaint_; }
    std::uint64_t callsMade() const { return callsMade_; }
    bool printing = false;  // tells each call before it is made

 private:
    bool askRoom(const Layout& layout);
    bool make(Call& call, const Plan& plan, const Layout& layout, const char* purpose);
    bool compare(const catalog::Entry& entry, Random& random, const Layout& layout);
    bool compareWith(int other, bool zeroBased, const char* purpose,
                     std::string (*faultBetween)(const Call&, const Call&), const Layout& layout);
    bool complain(const std::string& fault, const Call& call, const char* purpose);

    Find find_;
    Recall recall_;
    Plan plan_;
    Plan otherPlan_;
    Call first_;
    Call second_;
    std::string complaint_;
    std::uint64_t callsMade_ = 0;
};

}  // namespace vx::fuzz
