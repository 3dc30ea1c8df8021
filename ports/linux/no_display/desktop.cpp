// A build that knows no display: there are no windows and there is no clipboard.
#include "native/desktop.h"

namespace quorkit {

std::vector<WindowInfo> NativeDesktop::EnumWindows() {
    return {};
}

WindowHandle NativeDesktop::FindWindowA(const std::optional<String>&,
                                        const std::optional<String>&) {
    return 0;
}

bool NativeDesktop::IsWindow(WindowHandle) {
    return false;
}

String NativeDesktop::GetWindowTextA(WindowHandle) {
    return {};
}

bool NativeDesktop::SetWindowPos(WindowHandle, bool) {
    return false;
}

bool NativeDesktop::PostMessageA(WindowHandle, WindowMessage) {
    return false;
}

bool NativeDesktop::SystemParametersInfoA(ScreenArea&) {
    return false;
}

}  // namespace quorkit
