#include "platform/platform.h"

namespace vx::platform {

Platform& current() {
    static Platform platform{&systemClock(),  &systemDesktop(), &systemFiles(), &systemHardware(),
                             &systemLocale(), &systemProcess(), &systemTree(),  &systemVolumes()};
    return platform;
}

}  // namespace vx::platform
