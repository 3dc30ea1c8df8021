// The screen, the keyboard and the clipboard of this system; a build has one implementation.
#pragma once

#include <quorkit/ports/clipboard.h>
#include <quorkit/ports/desktop.h>
#include <quorkit/ports/keyboard.h>

namespace quorkit::native {

class NativeDesktop final : public Desktop {
   public:
    std::vector<WindowInfo> EnumWindows() override;
    WindowHandle FindWindowA(const std::optional<String>& className,
                             const std::optional<String>& title) override;
    bool IsWindow(WindowHandle window) override;
    String GetWindowTextA(WindowHandle window) override;
    bool SetTopmost(WindowHandle window, bool topmost) override;
    bool PostMessageA(WindowHandle window, WindowMessage message) override;
    bool WorkArea(ScreenArea& workArea) override;
};

class NativeKeyboard final : public Keyboard {
   public:
    Byte GetKeyState(int key) override;
    void GetKeyboardState(KeyStates& states) override;
    void SetKeyboardState(const KeyStates& states) override;
};

class NativeClipboard final : public Clipboard {
   public:
    bool EmptyClipboard() override;
    bool PutOnClipboard(ClipboardFormat format, const std::string& data) override;
    bool GetClipboardData(ClipboardFormat format, std::string& data) override;
};

}  // namespace quorkit::native
