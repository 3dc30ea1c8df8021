#include <windows.h>

#include "native/native_desktop.h"
#include "win32/win32_calls.h"

namespace quorkit::native {
namespace {

/// A window handle has 32 significant bits, which are a signed number.
HWND windowOf(WindowHandle handle) {
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(handle));
}
WindowHandle handleOf(HWND window) {
    return static_cast<WindowHandle>(reinterpret_cast<std::intptr_t>(window));
}

/// Reads only what the system itself knows. It never waits for the window's thread, which may be in
/// another program, or in this one and waiting for us.
String titleOf(HWND window) {
    String title(256, u'\0');
    for (;;) {
        const auto length = static_cast<std::size_t>(
            ::InternalGetWindowText(window, wide(title), static_cast<int>(title.size())));
        const bool whole = length + 1 < title.size();
        title.resize(whole ? length : 2 * title.size());
        if (whole) return title;
    }
}

BOOL CALLBACK addWindow(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<WindowInfo>*>(list)->push_back(
        {handleOf(window), titleOf(window), ::IsWindowVisible(window) != FALSE});
    return TRUE;
}

}  // namespace

std::vector<WindowInfo> NativeDesktop::EnumWindows() {
    std::vector<WindowInfo> windows;
    ::EnumWindows(addWindow, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

WindowHandle NativeDesktop::FindWindowA(const std::optional<String>& className,
                                        const std::optional<String>& title) {
    return handleOf(
        ::FindWindowW(className ? wide(*className) : nullptr, title ? wide(*title) : nullptr));
}

bool NativeDesktop::IsWindow(WindowHandle window) {
    return ::IsWindow(windowOf(window)) != FALSE;
}

String NativeDesktop::GetWindowTextA(WindowHandle window) {
    return titleOf(windowOf(window));
}

bool NativeDesktop::SetTopmost(WindowHandle window, bool topmost) {
    return ::SetWindowPos(windowOf(window), topmost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                          SWP_NOMOVE | SWP_NOSIZE) != FALSE;
}

bool NativeDesktop::PostMessageA(WindowHandle window, WindowMessage message) {
    // A message to no window would go to this thread.
    return window != 0 &&
           ::PostMessageW(windowOf(window), static_cast<UINT>(message), 0, 0) != FALSE;
}

bool NativeDesktop::WorkArea(ScreenArea& workArea) {
    RECT area = {};
    if (!::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0)) return false;
    workArea = {area.left, area.top, area.right, area.bottom};
    return true;
}

}  // namespace quorkit::native
