// The made-up machine on which all calls run: the fakes of the platform seam, and the library's shared state.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "fuzz/random.h"
#include "tests/lab/fakes.h"

namespace vx::fuzz {

class World {
 public:
    explicit World(lab::Door* door);

    // Fresh fakes, at times with failures, and the state that the library has after loading: what a round does depends
    // on its number alone.
    void renew(Random& random);

    // Puts small tables of all kinds on the made-up disk, at times damaged ones; their names.
    std::vector<const char*> putTables(Random& random);

 private:
    void chooseSystem(Random& random);
    char* state() const;
    void restoreState();

    lab::Door* door_;
    std::unique_ptr<lab::FakePlatform> fakes_;
    char loaded_[offsetof(Library, fill) + 1 - offsetof(Library, upper)];
};

}  // namespace vx::fuzz
