// The desktop of a build without display: there are no windows.
#include "linux/no_display/no_display.h"
#include "native/native_desktop.h"

namespace quorkit::native {

std::vector<WindowInfo> NativeDesktop::EnumWindows() {
    return nothing<std::vector<WindowInfo>>();
}

WindowHandle NativeDesktop::FindWindowA(const std::optional<String>&,
                                        const std::optional<String>&) {
    return nothing<WindowHandle>();
}

bool NativeDesktop::IsWindow(WindowHandle) {
    return nothing<bool>();
}

String NativeDesktop::GetWindowTextA(WindowHandle) {
    return nothing<String>();
}

bool NativeDesktop::SetTopmost(WindowHandle, bool) {
    return nothing<bool>();
}

bool NativeDesktop::PostMessageA(WindowHandle, WindowMessage) {
    return nothing<bool>();
}

bool NativeDesktop::WorkArea(ScreenArea&) {
    return nothing<bool>();
}

}  // namespace quorkit::native
