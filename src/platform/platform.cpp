#include "platform/platform.h"

namespace vx::platform {

Platform& current() {
    static Platform platform{&systemClock(),   &systemDesktop(), &systemFiles(),  &systemLocale(),
                             &systemProcess(), &systemTree(),    &systemVolumes()};
    return platform;
}

}  // namespace vx::platform
