#include "fuzz/world.h"

#include <algorithm>

namespace vx::fuzz {

World::World(lab::Door* door) : door_(door), fakes_(std::make_unique<lab::FakePlatform>(door)) { takeState(); }

void World::renew(Random& random) {
    fakes_.reset();
    fakes_ = std::make_unique<lab::FakePlatform>(door_);
    fakes_->desktop.focus = random.oneIn(4) ? 0 : 7;
    fakes_->desktop.boxResult = random.oneIn(4) ? 0 : 1;
    fakes_->desktop.clipboardOpens = !random.oneIn(4);
    fakes_->desktop.memoryLeft = !random.oneIn(4);
    fakes_->desktop.logOffResult = random.oneIn(4) ? 0 : 1;
    restoreState();
}

void World::takeState() {
    const Library& library = *door_->library;
    std::copy(std::begin(library.upper), std::end(library.upper), loaded_.upper);
    std::copy(std::begin(library.lower), std::end(library.lower), loaded_.lower);
    std::copy(std::begin(library.collate), std::end(library.collate), loaded_.collate);
    std::copy(std::begin(library.types), std::end(library.types), loaded_.types);
    loaded_.fill = library.fill;
}

void World::restoreState() {
    Library& library = *door_->library;
    std::copy(std::begin(loaded_.upper), std::end(loaded_.upper), library.upper);
    std::copy(std::begin(loaded_.lower), std::end(loaded_.lower), library.lower);
    std::copy(std::begin(loaded_.collate), std::end(loaded_.collate), library.collate);
    std::copy(std::begin(loaded_.types), std::end(loaded_.types), library.types);
    library.fill = loaded_.fill;
}

}  // namespace vx::fuzz
