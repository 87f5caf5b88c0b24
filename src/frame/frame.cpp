// Version and about box, fill character, clipboard, log-off, and the stubs that do more than show their notice.
#include "entries/frame.h"

#include <cstring>

#include "frame/library.h"
#include "frame/notices.h"
#include "frame/text.h"
#include "platform/platform.h"
#include "version.h"

using namespace vx;

namespace {

constexpr std::int32_t kVersion = VEXLOR_BUILD;

bool paste(std::string_view text) {
    platform::Desktop& desktop = *platform::current().desktop;
    platform::Window owner = desktop.focusWindow();
    if (!owner) {
        desktop.showBox(0, "Cannot paste at this time", "Vexlor", platform::BoxIcon::kNone);
        return false;
    }
    if (!desktop.openClipboard(owner)) {
        desktop.showBox(owner, "Clipboard is in use at this time", "Vexlor", platform::BoxIcon::kInformation);
        return false;
    }
    char* copy = desktop.allocateClipboardText(text.size() + 1);
    if (!copy) return false;  // kept: the clipboard stays open when there is no memory for the text
    store(copy, text);
    desktop.emptyClipboard();
    bool taken = desktop.setClipboardText(copy);
    desktop.closeClipboard();
    return taken;
}

}  // namespace

int32_t VX_CALL vx_DLLVERSION() noexcept {
    notices::about();
    return kVersion;
}

// kept: logs the user off and does not power the machine down, whatever its name says.
int32_t VX_CALL vx_ShutDown() noexcept { return platform::current().desktop->logOff(); }

int32_t VX_CALL vx_SetFillChar(int32_t c) noexcept {
    std::uint8_t previous = byteOf(library.fill);
    if (std::uint8_t low = static_cast<std::uint8_t>(c)) library.fill = static_cast<char>(low);
    return previous;
}

int32_t VX_CALL vx_StrPaste(const char* text) noexcept { return paste(view(text)); }

const char* VX_CALL vx_peekstr(int32_t, int32_t, int32_t) noexcept {
    notices::unavailable("peekstr");
    return emptyText;
}

// kept: unlike every other stub, gives the box's own result.
int32_t VX_CALL vx_dosfree(int32_t) noexcept { return notices::unavailable("dosfree"); }

char* VX_CALL vx_q_file(int32_t, char* dest) noexcept {
    notices::unavailable("q_file");
    return dest ? store(dest, {}) : nullptr;
}
