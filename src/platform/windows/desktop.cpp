// Desktop of Windows: the calls that the interface is named after.
#include <windows.h>

#include "platform/platform.h"

namespace vx::platform {
namespace {

HWND handleOf(Window window) { return reinterpret_cast<HWND>(window); }

class WindowsDesktop final : public Desktop {
 public:
    Window focusWindow() override { return reinterpret_cast<Window>(GetFocus()); }

    std::int32_t showBox(Window owner, const char* text, const char* title, BoxIcon icon) override {
        UINT style = MB_OK | (icon == BoxIcon::kInformation ? MB_ICONINFORMATION : 0);
        return MessageBoxA(handleOf(owner), text, title, style);
    }

    bool openClipboard(Window owner) override { return OpenClipboard(handleOf(owner)) != 0; }

    char* allocateClipboardText(std::size_t size) override {
        memory_ = GlobalAlloc(GMEM_MOVEABLE, size);
        if (!memory_) return nullptr;
        void* locked = GlobalLock(memory_);
        if (!locked) GlobalFree(memory_);
        return static_cast<char*>(locked);
    }

    void emptyClipboard() override { EmptyClipboard(); }

    bool setClipboardText(char*) override {
        GlobalUnlock(memory_);
        if (!SetClipboardData(CF_TEXT, memory_)) GlobalFree(memory_);
        return true;  // kept: callers are not told of a refusal
    }

    void closeClipboard() override { CloseClipboard(); }

    std::int32_t logOff() override { return ExitWindowsEx(EWX_LOGOFF, 0xFFFFFFFF); }

 private:
    HGLOBAL memory_ = nullptr;  // of the text that is being written; the clipboard is open for one thread at a time
};

WindowsDesktop windowsDesktop;

}  // namespace

Desktop& systemDesktop() { return windowsDesktop; }

}  // namespace vx::platform
