#include <quorkit/ports/faults.h>

namespace quorkit {

std::vector<WindowInfo> FaultyDesktop::EnumWindows() {
    return due("EnumWindows") ? std::vector<WindowInfo>() : inner_.EnumWindows();
}
WindowHandle FaultyDesktop::FindWindowA(const std::optional<String>& className,
                                        const std::optional<String>& title) {
    return due("FindWindowA") ? 0 : inner_.FindWindowA(className, title);
}
bool FaultyDesktop::IsWindow(WindowHandle window) {
    return due("IsWindow") ? done() : inner_.IsWindow(window);
}
String FaultyDesktop::GetWindowTextA(WindowHandle window) {
    return due("GetWindowTextA") ? String() : inner_.GetWindowTextA(window);
}
bool FaultyDesktop::SetWindowPos(WindowHandle window, bool topmost) {
    return due("SetWindowPos") ? done() : inner_.SetWindowPos(window, topmost);
}
bool FaultyDesktop::PostMessageA(WindowHandle window, WindowMessage message) {
    return due("PostMessageA") ? done() : inner_.PostMessageA(window, message);
}
bool FaultyDesktop::SystemParametersInfoA(ScreenArea& workArea) {
    return due("SystemParametersInfoA") ? done() : inner_.SystemParametersInfoA(workArea);
}

}  // namespace quorkit
