// Notices and clipboard of Linux through made-up helper programs: a search path that holds nothing else keeps
// the desktop's own ones out.
#if !defined(_WIN32)

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>

#include "tests/seam/seam.h"
#include "tests/support/environment.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

using namespace platform;

class SystemDesktop : public testing::Test {
 protected:
    Desktop& desktop = *door()->platform->desktop;
    Workplace place;
    SetVariable path{"PATH", place.native().c_str()};
    SetVariable display{"DISPLAY", ":made-up"};
    SetVariable wayland{"WAYLAND_DISPLAY", nullptr};

    void SetUp() override {
        install("tried", 0);
        if (::access(place.native("tried").c_str(), X_OK) != 0)
            GTEST_SKIP() << "nothing can be run in " << place.path();
    }

    // A program that keeps its name, its arguments and its input in a file and ends with a code.
    void install(const std::string& name, int code) {
        place.put(name, "#!/bin/sh\n{ printf '%s' '" + name + "'; printf '|%s' \"$@\"; printf '<'; /bin/cat; } >> " +
                            place.native("log").string() + "\nexit " + std::to_string(code) + "\n");
        std::filesystem::permissions(place.native(name), std::filesystem::perms::owner_all);
    }
    std::string takeLog() {
        std::string log = place.get("log");
        std::filesystem::remove(place.native("log"));
        return log;
    }
    bool paste(const char* text) {
        EXPECT_TRUE(desktop.openClipboard(desktop.focusWindow()));
        char* copy = desktop.allocateClipboardText(std::strlen(text) + 1);
        std::strcpy(copy, text);
        desktop.emptyClipboard();
        bool taken = desktop.setClipboardText(copy);
        desktop.closeClipboard();
        return taken;
    }
};

TEST_F(SystemDesktop, BoxesAreDialogs) {
    const char* dialogs[] = {"xmessage|-center|-buttons|OK:0|-title|Title|A <b>text</b>\r\nof two lines<",
                             "kdialog|--title|Title|--msgbox|A <b>text</b>\r\nof two lines<",
                             "zenity|--warning|--no-markup|--title|Title|--text|A <b>text</b>\r\nof two lines<"};
    for (std::string dialog : dialogs) {  // each is preferred to those before
        install(dialog.substr(0, dialog.find('|')), 0);
        EXPECT_EQ(desktop.showBox(0, "A <b>text</b>\r\nof two lines", "Title", BoxIcon::kNone), 1);
        EXPECT_EQ(takeLog(), dialog);
    }
    install("zenity", 1);  // closed by its window's corner
    EXPECT_EQ(desktop.showBox(0, "x", "Title", BoxIcon::kInformation), 1);
    EXPECT_EQ(takeLog(), "zenity|--info|--no-markup|--title|Title|--text|x<");
    place.put("zenity", "#!/bin/sh\nkill -KILL $$\n");
    EXPECT_EQ(desktop.showBox(0, "x", "Title", BoxIcon::kNone), 1);
    EXPECT_EQ(takeLog(), "kdialog|--title|Title|--msgbox|x<") << "one that crashed has shown nothing";
}

TEST_F(SystemDesktop, ClipboardTexts) {
    EXPECT_NE(desktop.focusWindow(), 0u);
    EXPECT_FALSE(paste("lost")) << "no program takes it";
    install("wl-copy", 1);
    EXPECT_FALSE(paste("lost"));
    EXPECT_EQ(takeLog(), "wl-copy|<lost");
    install("xsel", 0);
    EXPECT_TRUE(paste("a\r\nmemo"));
    EXPECT_EQ(takeLog(), "wl-copy|<a\r\nmemoxsel|--clipboard|--input<a\r\nmemo");
    install("xclip", 0);
    EXPECT_TRUE(paste(""));
    EXPECT_EQ(takeLog(), "wl-copy|<xclip|-selection|clipboard<");
    ::unsetenv("DISPLAY");
    EXPECT_EQ(desktop.focusWindow(), 0u);
    EXPECT_FALSE(desktop.openClipboard(0));
}

}  // namespace
}  // namespace vx::test

#endif
