#include "platform/platform.h"

namespace vx::platform {

Platform& current() {
    static Platform platform{&systemDesktop(), &systemFiles(), &systemLocale(), &systemProcess()};
    return platform;
}

}  // namespace vx::platform
