#include <quorkit/GQuorWindows.h>
#include <quorkit/ports/desktop.h>

#include <algorithm>

#include "base/letter_case.h"
#include "runtime/convert.h"

namespace quorkit {
namespace {

constexpr std::size_t kLongestTitle = 254;

}  // namespace

Long GQuorWindows::SetTopMostWindow(Unchanged<Long> hwnd, Unchanged<Boolean> Topmost) {
    const bool done = ports_.desktop.SetTopmost(*hwnd, *Topmost);
    return *Topmost && done ? 1 : 0;
}

Long GQuorWindows::WinFindWindowByClassName(Unchanged<String> className) {
    return ports_.desktop.FindWindowA(*className, {});
}

Long GQuorWindows::WinFindWindowByTitle(Unchanged<String> TitleName) {
    return ports_.desktop.FindWindowA({}, *TitleName);
}

Long GQuorWindows::WinFindWindowByPartOfTitle(const String& PartOfTitleName,
                                              const Optional<Variant, false>& bCompareFromLeft,
                                              const Optional<Variant, true>& bCaseSensitive,
                                              const Optional<Variant, false>& bOnlyVisibleWindow) {
    const bool fromLeft = runtime::CBool(*bCompareFromLeft);
    const bool exact = runtime::CBool(*bCaseSensitive);
    const bool onlyVisible = runtime::CBool(*bOnlyVisibleWindow);
    const auto compared = [&](StringView text) {
        return exact ? String(text) : base::toLower(text);
    };
    const String wanted = compared(PartOfTitleName);
    const auto matches = [&](const WindowInfo& one) {
        if (onlyVisible && !one.visible) return false;
        const String title = compared(StringView(one.title).substr(0, kLongestTitle));
        if (title.empty()) return false;
        return fromLeft ? title.starts_with(wanted) : title.find(wanted) != String::npos;
    };
    const auto windows = ports_.desktop.EnumWindows();
    const auto found = std::ranges::find_if(windows, matches);
    return found == windows.end() ? 0 : found->handle;
}

Variant GQuorWindows::WinGetWindowTitle(Unchanged<Variant> hwnd) {
    return ports_.desktop.GetWindowTextA(runtime::CLng(*hwnd)).substr(0, kLongestTitle);
}

Long GQuorWindows::WinTerminateProgram(Unchanged<String> className) {
    const WindowHandle window = WinFindWindowByClassName(*className);
    if (!ports_.desktop.IsWindow(window)) return -1;
    ports_.desktop.PostMessageA(window, WindowMessage::CancelMode);
    ports_.desktop.PostMessageA(window, WindowMessage::SetFocus);
    return ports_.desktop.PostMessageA(window, WindowMessage::Close) ? 1 : 0;
}

}  // namespace quorkit
