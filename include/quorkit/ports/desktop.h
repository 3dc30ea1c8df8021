// The windows on the screen, of all programs.
#pragma once

#include <quorkit/values.h>

#include <optional>
#include <vector>

namespace quorkit {

/// The number of a window; 0 is none. On Linux that of the X server.
using WindowHandle = Long;

struct WindowInfo {
    WindowHandle handle = 0;
    String title;
    bool visible = false;
};

/// What can be posted to a window, by the numbers of Win32.
enum class WindowMessage : std::uint32_t {
    SetFocus = 0x0007,    ///< on Linux nothing is sent
    Close = 0x0010,       ///< asks its program to close it, which may ask its user first
    CancelMode = 0x001F,  ///< on Linux nothing is sent
};

/// Pixels of the screen, from its upper left corner.
struct ScreenArea {
    Long left = 0;
    Long top = 0;
    Long right = 0;
    Long bottom = 0;

    bool operator==(const ScreenArea&) const = default;
};

/// Titles and classes match without regard to letter case. A window that vanishes meanwhile is left
/// out. Without a screen there are no windows and everything fails; on Linux the screen is that of
/// an X server.
class Desktop {
   public:
    virtual ~Desktop() = default;

    /// The top-level windows of all programs, the topmost first.
    virtual std::vector<WindowInfo> EnumWindows() = 0;
    /// The topmost window of a class and with a title, or with one of the two alone; 0 when there
    /// is none. The empty name is no class. On Linux either part of WM_CLASS is its class.
    virtual WindowHandle FindWindowA(const std::optional<String>& className,
                                     const std::optional<String>& title) = 0;
    virtual bool IsWindow(WindowHandle window) = 0;
    /// "" for a window that is not there. No window is asked: on Windows this is the title that the
    /// system shows, also for one of this program's own.
    virtual String GetWindowTextA(WindowHandle window) = 0;
    /// Puts a window above all others, for good, or back among them.
    virtual bool SetTopmost(WindowHandle window, bool topmost) = 0;
    /// False when there is no such window, or when it takes no such message.
    virtual bool PostMessageA(WindowHandle window, WindowMessage message) = 0;
    /// The part of the screen that panels leave to windows.
    virtual bool WorkArea(ScreenArea& area) = 0;
};

}  // namespace quorkit
