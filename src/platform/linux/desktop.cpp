// Desktop of Linux. There is no one call for a box or for the clipboard: the programs that desktops bring along are
// tried one after the other, the ones of the newer desktops first, and a box falls back on the terminal.
#include <cstdlib>
#include <cstring>

#include "platform/linux/descriptor.h"
#include "platform/linux/helper_program.h"
#include "platform/platform.h"

namespace vx::platform {
namespace {

constexpr Window kDisplay = 1;  // stands for "some window": Linux does not tell a process which one has the focus
constexpr std::int32_t kOk = 1;

bool showDialog(const char* text, const char* title, BoxIcon icon) {
    const char* zenityKind = icon == BoxIcon::kInformation ? "--info" : "--warning";
    return runHelper({"zenity", zenityKind, "--no-markup", "--title", title, "--text", text}) ||
           runHelper({"kdialog", "--title", title, "--msgbox", text}) ||
           runHelper({"xmessage", "-center", "-buttons", "OK:0", "-title", title, text});
}

// On the terminal, and only when this process is in its foreground: a background one would be stopped by reading.
bool showOnTerminal(const char* text, const char* title) {
    Descriptor terminal(::open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY));
    if (!terminal || ::tcgetpgrp(terminal.get()) != ::getpgrp()) return false;
    for (const char* piece : {"\r\n[", title, "]\r\n", text, "\r\nPress Enter to go on. "}) {
        if (!writeAll(terminal.get(), piece)) return false;
    }
    char key = '\0';
    while (key != '\n' && uninterrupted([&] { return ::read(terminal.get(), &key, 1); }) > 0) {
    }
    return true;
}

bool desktopIs(const char* name) {
    const char* desktop = std::getenv("XDG_CURRENT_DESKTOP");
    return desktop && std::strstr(desktop, name) != nullptr;
}

class LinuxDesktop final : public Desktop {
 public:
    Window focusWindow() override { return hasDisplay() ? kDisplay : 0; }

    std::int32_t showBox(Window, const char* text, const char* title, BoxIcon icon) override {
        return (hasDisplay() && showDialog(text, title, icon)) || showOnTerminal(text, title) ? kOk : 0;
    }

    bool openClipboard(Window) override { return hasDisplay(); }

    char* allocateClipboardText(std::size_t size) override { return static_cast<char*>(std::malloc(size)); }

    // A new text replaces the old one in one step.
    void emptyClipboard() override {}

    bool setClipboardText(char* text) override {
        bool taken = runHelper({"wl-copy"}, text) == 0 || runHelper({"xclip", "-selection", "clipboard"}, text) == 0 ||
                     runHelper({"xsel", "--clipboard", "--input"}, text) == 0;
        std::free(text);
        return taken;
    }

    void closeClipboard() override {}

    std::int32_t logOff() override {
        const char* session = std::getenv("XDG_SESSION_ID");
        if (desktopIs("GNOME") && runHelper({"gnome-session-quit", "--logout", "--no-prompt"}) == 0) return 1;
        if (desktopIs("XFCE") && runHelper({"xfce4-session-logout", "--logout"}) == 0) return 1;
        return session && *session && runHelper({"loginctl", "terminate-session", session}) == 0;
    }
};

LinuxDesktop linuxDesktop;

}  // namespace

Desktop& systemDesktop() { return linuxDesktop; }

}  // namespace vx::platform
