#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>

#include "platform/linux/helper_program.h"
#include "platform/platform.h"

namespace vx::platform {
namespace {

constexpr Window kDisplay = 1;  // stands for "some window": Linux does not tell a process which one has the focus
constexpr std::int32_t kOk = 1;

bool showDialog(const char* text, const char* title, BoxIcon icon) {
    const char* zenityKind = icon == BoxIcon::kInformation ? "--info" : "--warning";
    const std::vector<const char*> dialogs[] = {
        {"zenity", zenityKind, "--no-markup", "--title", title, "--text", text},
        {"kdialog", "--title", title, "--msgbox", text},
        {"xmessage", "-center", "-buttons", "OK:0", "-title", title, text},
    };
    for (const auto& dialog : dialogs) {
        if (runHelper(dialog)) return true;
    }
    return false;
}

// On the terminal, and only when this process is in its foreground: a background one would be stopped by reading.
bool showOnTerminal(const char* text, const char* title) {
    int terminal = ::open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY);
    if (terminal < 0) return false;
    bool shown = false;
    if (::tcgetpgrp(terminal) == ::getpgrp()) {
        std::string notice = std::string("\r\n[") + title + "]\r\n" + text + "\r\nPress Enter to go on. ";
        shown = ::write(terminal, notice.data(), notice.size()) == static_cast<ssize_t>(notice.size());
        char key = '\0';
        while (shown && key != '\n') {
            ssize_t count = ::read(terminal, &key, 1);
            if (count == 0 || (count < 0 && errno != EINTR)) break;
        }
    }
    ::close(terminal);
    return shown;
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
        const std::vector<const char*> tools[] = {
            {"wl-copy"}, {"xclip", "-selection", "clipboard"}, {"xsel", "--clipboard", "--input"}};
        bool taken = std::any_of(std::begin(tools), std::end(tools),
                                 [text](const auto& tool) { return runHelper(tool, text) == 0; });
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
