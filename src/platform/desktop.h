// Message boxes, the clipboard and the end of the user's session.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vx::platform {

using Window = std::uintptr_t;  // 0 is no window

enum class BoxIcon { kNone, kInformation };

class Desktop {
 public:
    // The window that has the keyboard focus, 0 if none has.
    virtual Window focusWindow() = 0;

    // Shows a box with an OK button and waits for it. 1 (the button's number), or 0 if it could not be shown.
    virtual std::int32_t showBox(Window owner, const char* text, const char* title, BoxIcon icon) = 0;

    virtual bool openClipboard(Window owner) = 0;

    // Memory for a clipboard text, ready to be written; null if there is none. It belongs to the caller until
    // setClipboardText takes it over, which is false if no program on the system keeps texts for others (Linux).
    virtual char* allocateClipboardText(std::size_t size) = 0;
    virtual void emptyClipboard() = 0;
    virtual bool setClipboardText(char* text) = 0;
    virtual void closeClipboard() = 0;

    // Ends the user's session; the system's result, 0 on failure.
    virtual std::int32_t logOff() = 0;

 protected:
    ~Desktop() = default;
};

}  // namespace vx::platform
