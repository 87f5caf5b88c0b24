#include "frame/notices.h"

#include <cstdio>

#include "platform/platform.h"
#include "version.h"

namespace vx::notices {
namespace {

std::int32_t show(const char* text, const char* title, platform::BoxIcon icon = platform::BoxIcon::kNone) {
    platform::Desktop& desktop = *platform::current().desktop;
    return desktop.showBox(desktop.focusWindow(), text, title, icon);
}

}  // namespace

std::int32_t unavailable(const char* function) {
    char text[128];
    std::snprintf(text, sizeof text, "The function %s() is not available on 32 bit platforms.", function);
    return alert(text);
}

std::int32_t unimplemented(const char* title) {
    return show("This function has not been implemented in this beta.", title);
}

std::int32_t alert(const char* text) { return show(text, "Vexlor Alert"); }

std::int32_t about() {
    return show("The internal version number of this copy of Vexlor32.DLL is " VEXLOR_VERSION
                "\r\nBuild: Beta " VEXLOR_BUILD_TEXT " Created: Aug 14 1996 at 14:28:06.",
                "ABOUT Vexlor32.DLL", platform::BoxIcon::kInformation);
}

}  // namespace vx::notices
