// The made-up machine on which all calls run: the fakes of the platform seam, and the library's shared state.
#pragma once

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

    // Puts small tables of all kinds on the made-up disk; their names.
    std::vector<const char*> putTables();

 private:
    void chooseSystem(Random& random);
    void takeState();
    void restoreState();

    lab::Door* door_;
    std::unique_ptr<lab::FakePlatform> fakes_;
    struct {
        std::uint8_t upper[256], lower[256], collate[256];
        std::uint32_t types[256];
        char fill;
    } loaded_;
};

}  // namespace vx::fuzz
