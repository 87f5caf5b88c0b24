// Runs rows against a library. From each row come the calls that the export table implies for it: by other names of the
// entry, at the other side of the guarded pages, in place, into the text itself, without each optional output, as
// length form and as 0-based twin.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "catalog/catalog.h"
#include "rows/call.h"
#include "rows/remote.h"
#include "rows/script.h"

namespace vx::rows {

// A made-up machine for blocks that say `with machine`: they may not meet the real one.
class Machine {
 public:
    virtual ~Machine() = default;
    virtual void begin() = 0;
    virtual void end() = 0;
    // The words behind `with machine`; false if it knows no such setting.
    virtual bool set(const std::vector<Value>& words) = 0;
    // A row's call comes.
    virtual void beginCall() {}
    // What a call did to the machine, by name: `box`, `slept`; null if there is no such thing.
    virtual const Value* observed(const std::string& name) = 0;
};

struct Host {
    std::function<catalog::Function(const char* name)> find;
    Machine* machine = nullptr;
    Remote* remote = nullptr;  // makes the calls instead
    bool onlyRows = false;     // as they stand, without the further forms that the table implies
};

struct Report {
    int rows = 0;
    int calls = 0;
    int left = 0;  // blocks for another system, or for a host with or without a made-up machine
    std::vector<std::string> failures;
};

// Makes a call by the host's library, or by what calls for it. Throws a text that says why it could not.
void makeBy(const Host& host, Call& call, const Form& form);

// The row that is being run, for whoever tells of a crash; null between rows.
const Row* current();

// Hosts with a machine run the blocks that ask for one, others all the rest.
Report run(const std::vector<Block>& blocks, const Host& host);

}  // namespace vx::rows
