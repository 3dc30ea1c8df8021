#include "win32/wait_window.h"

#include <windows.h>

#include "win32/calls.h"

namespace quorkit::win32 {
namespace {

constexpr int kWidth = 280;
constexpr int kHeight = 90;

/// One for the process, as a window belongs to the thread that has made it.
HWND window = nullptr;

HWND make(HWND owner) {
    // A text in the middle of a frame: the system's own class for it paints itself.
    const HWND made = ::CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_DLGMODALFRAME, L"STATIC", L"",
                                        WS_POPUP | WS_DLGFRAME | SS_CENTER | SS_CENTERIMAGE,
                                        (::GetSystemMetrics(SM_CXSCREEN) - kWidth) / 2,
                                        (::GetSystemMetrics(SM_CYSCREEN) - kHeight) / 2, kWidth,
                                        kHeight, owner, nullptr, nullptr, nullptr);
    ::SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)),
                   FALSE);
    return made;
}

}  // namespace

void showWaitWindow(const String& text, WindowHandle owner) {
    const auto above = reinterpret_cast<HWND>(static_cast<std::intptr_t>(owner));
    if (!::IsWindow(window)) window = make(::IsWindow(above) ? above : nullptr);
    ::SetWindowTextW(window, wide(text));
    ::ShowWindow(window, SW_SHOWNOACTIVATE);
    ::UpdateWindow(window);
}

void hideWaitWindow() {
    if (window != nullptr) ::DestroyWindow(window);
    window = nullptr;
}

void setPointer(Pointer pointer) {
    ::SetCursor(::LoadCursorW(nullptr, pointer == Pointer::Hourglass
                                           ? reinterpret_cast<LPCWSTR>(IDC_WAIT)
                                           : reinterpret_cast<LPCWSTR>(IDC_ARROW)));
}

}  // namespace quorkit::win32
