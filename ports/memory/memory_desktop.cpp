#include <quorkit/ports/memory.h>

#include <algorithm>

#include "base/letter_case.h"

namespace quorkit {

MemoryDesktop::Window* MemoryDesktop::find(WindowHandle window) {
    const auto found =
        std::ranges::find(windows, window, [](const Window& one) { return one.info.handle; });
    return found == windows.end() ? nullptr : &*found;
}

std::vector<WindowInfo> MemoryDesktop::EnumWindows() {
    std::vector<WindowInfo> found;
    for (const Window& one : windows) found.push_back(one.info);
    return found;
}

WindowHandle MemoryDesktop::FindWindowA(const std::optional<String>& className,
                                        const std::optional<String>& title) {
    const auto found = std::ranges::find_if(windows, [&](const Window& one) {
        return (!className || (!className->empty() && base::sameText(*className, one.className))) &&
               (!title || base::sameText(*title, one.info.title));
    });
    return found == windows.end() ? 0 : found->info.handle;
}

String MemoryDesktop::GetWindowTextA(WindowHandle window) {
    const Window* const found = find(window);
    return found == nullptr ? String() : found->info.title;
}

bool MemoryDesktop::SetTopmost(WindowHandle window, bool topmost) {
    Window* const found = find(window);
    if (found == nullptr) return false;
    found->topmost = topmost;
    return true;
}

bool MemoryDesktop::PostMessageA(WindowHandle window, WindowMessage message) {
    Window* const found = find(window);
    if (found == nullptr || !found->takesMessages) return false;
    found->posted.push_back(message);
    return true;
}

bool MemoryDesktop::WorkArea(ScreenArea& area) {
    if (!workArea) return false;
    area = *workArea;
    return true;
}

}  // namespace quorkit
