#include "win32/win32_wait_window.h"

#include <windows.h>

#include <memory>
#include <mutex>

#include "win32/owned_handle.h"
#include "win32/win32_calls.h"

namespace quorkit::native {
namespace {

constexpr LONG kWidth = 280;
constexpr LONG kHeight = 90;
constexpr const wchar_t* kClass = L"quorkit-wait";

/// A text in a frame, painted by the system, with the hourglass over it.
void registerClass() {
    WNDCLASSW about = {};
    ::GetClassInfoW(nullptr, L"STATIC", &about);
    about.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
    about.hInstance = ::GetModuleHandleW(nullptr);
    about.hCursor = ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_WAIT));
    about.lpszClassName = kClass;
    ::RegisterClassW(&about);  // fails when it exists already
}

/// The window is visible while this object lives. Its own thread paints it while the program is
/// busy. Neither this class nor the window ever waits for a thread of the program.
class WaitWindow {
   public:
    WaitWindow(const String& text, HWND owner)
        : text_(text), owner_(owner), visible_(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
        if (visible_ == nullptr) return;
        thread_.reset(::CreateThread(nullptr, 0, run, this, 0, &id_));
        const HANDLE either[] = {visible_.get(), thread_.get()};
        ::WaitForMultipleObjects(2, either, FALSE, INFINITE);
    }
    ~WaitWindow() {
        if (thread_ == nullptr) return;
        ::PostThreadMessageW(id_, WM_QUIT, 0, 0);
        ::WaitForSingleObject(thread_.get(), INFINITE);
    }
    WaitWindow(const WaitWindow&) = delete;
    WaitWindow& operator=(const WaitWindow&) = delete;

   private:
    static DWORD WINAPI run(void* self) {
        static_cast<WaitWindow*>(self)->show();
        return 0;
    }

    void show() {
        const HWND window = make();
        if (window == nullptr) return;
        ::UpdateWindow(window);
        ::SetEvent(visible_.get());
        MSG message;
        while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
        ::DestroyWindow(window);
    }

    /// The window is placed above the owner without being owned by it. Ownership would join the
    /// input of the two threads, and closing the window would wait for a busy owner. For the same
    /// reason it never becomes the active window.
    HWND make() {
        registerClass();
        RECT place = {0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
        if (::IsWindowVisible(owner_) && !::IsIconic(owner_)) ::GetWindowRect(owner_, &place);
        const HWND window = ::CreateWindowExW(
            WS_EX_TOOLWINDOW | WS_EX_DLGMODALFRAME | WS_EX_NOACTIVATE | WS_EX_TOPMOST, kClass,
            wide(text_), WS_POPUP | WS_DLGFRAME | SS_CENTER | SS_CENTERIMAGE | SS_NOTIFY,
            (place.left + place.right - kWidth) / 2, (place.top + place.bottom - kHeight) / 2,
            kWidth, kHeight, nullptr, nullptr, ::GetModuleHandleW(nullptr), nullptr);
        ::SendMessageW(window, WM_SETFONT,
                       reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)), FALSE);
        // It is above all windows now, but a message that the program shows later can cover it.
        const bool pinned = (::GetWindowLongW(owner_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
        ::SetWindowPos(window, pinned ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                       SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
        return window;
    }

    const String text_;
    const HWND owner_;
    const OwnedHandle visible_;
    OwnedHandle thread_;
    DWORD id_ = 0;
};

/// One for the process.
struct Shown {
    std::mutex mutex;
    std::unique_ptr<WaitWindow> window;
};

/// The object is never destroyed, because at the end of the process no thread could close the
/// window.
Shown& shown() {
    static Shown& only = *new Shown;
    return only;
}

}  // namespace

void showWaitWindow(const String& text, WindowHandle owner) {
    // The window's thread runs this code, so the module must stay even if somebody unloads it.
    HMODULE module = nullptr;
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                         reinterpret_cast<LPCWSTR>(&showWaitWindow), &module);
    const auto above = reinterpret_cast<HWND>(static_cast<std::intptr_t>(owner));
    Shown& only = shown();
    const std::lock_guard lock(only.mutex);
    only.window = std::make_unique<WaitWindow>(text, above);  // the old one closes after this
}

void hideWaitWindow() {
    Shown& only = shown();
    const std::lock_guard lock(only.mutex);
    only.window.reset();
}

void setPointer(Pointer pointer) {
    ::SetCursor(::LoadCursorW(nullptr, pointer == Pointer::Hourglass
                                           ? reinterpret_cast<LPCWSTR>(IDC_WAIT)
                                           : reinterpret_cast<LPCWSTR>(IDC_ARROW)));
}

}  // namespace quorkit::native
