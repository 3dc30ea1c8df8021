// The windows of all programs on the screen.
#pragma once

#include <quorkit/values.h>

#include <optional>
#include <vector>

namespace quorkit {

/// The number of a window; 0 is no window. On Linux it is the X server's number.
using WindowHandle = Long;

struct WindowInfo {
    WindowHandle handle = 0;
    String title;
    bool visible = false;
};

/// Messages that can be posted to a window, by the numbers of Win32.
enum class WindowMessage : std::uint32_t {
    SetFocus = 0x0007,    ///< on Linux nothing is sent
    Close = 0x0010,       ///< asks its program to close it; that may ask its user first
    CancelMode = 0x001F,  ///< on Linux nothing is sent
};

/// In pixels from the upper left corner of the screen.
struct ScreenArea {
    Long left = 0;
    Long top = 0;
    Long right = 0;
    Long bottom = 0;

    bool operator==(const ScreenArea&) const = default;
};

/// Titles and classes match without regard to letter case. A window that disappears meanwhile is
/// left out. Without a screen there are no windows and every operation fails; on Linux the screen
/// is an X server's.
class Desktop {
   public:
    virtual ~Desktop() = default;

    /// The top-level windows of all programs, the topmost first.
    virtual std::vector<WindowInfo> EnumWindows() = 0;
    /// The topmost window with that class and that title; only those that are given count. 0 when
    /// there is none, and for an empty class name. On Linux either part of WM_CLASS is the class of
    /// a window.
    virtual WindowHandle FindWindowA(const std::optional<String>& className,
                                     const std::optional<String>& title) = 0;
    virtual bool IsWindow(WindowHandle window) = 0;
    /// "" for a window that does not exist. The window's program is not asked; on Windows this is
    /// the title that the system shows, even for a window of this program.
    virtual String GetWindowTextA(WindowHandle window) = 0;
    /// Keeps a window above all others from now on, or puts it back among them.
    virtual bool SetTopmost(WindowHandle window, bool topmost) = 0;
    /// False when there is no such window, or when the window does not take the message.
    virtual bool PostMessageA(WindowHandle window, WindowMessage message) = 0;
    /// The part of the screen that panels leave to windows.
    virtual bool WorkArea(ScreenArea& area) = 0;
};

}  // namespace quorkit
