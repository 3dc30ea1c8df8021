#include "native/native_host.h"

// The system's headers need <windows.h> first.
// clang-format off
#include <windows.h>
#include <commdlg.h>
#include <shlobj.h>
// clang-format on

#include <algorithm>
#include <optional>

#include "win32/com_objects.h"
#include "win32/win32_calls.h"
#include "win32/win32_wait_window.h"

namespace quorkit::native {
namespace {

constexpr std::size_t kLongestName = 32767;
constexpr ULONGLONG kLongestRound = 100;  // of DoEvents, in milliseconds

/// "name", "pattern;pattern" and so on; each is followed by U+0000, and the list by one more.
String filterList(const std::vector<FileFilter>& filters) {
    String list;
    for (const FileFilter& filter : filters) {
        list.append(filter.name) += u'\0';
        for (const String& pattern : filter.patterns) {
            if (&pattern != filter.patterns.data()) list += u';';
            list += pattern;
        }
        list += u'\0';
    }
    list += u'\0';
    return list;
}

bool askForFile(const FileDialog& dialog, DWORD flags, BOOL (*ask)(OPENFILENAMEW*), String& name) {
    const String filters = filterList(dialog.filters);
    String chosen = dialog.fileName.substr(0, kLongestName);
    chosen.resize(kLongestName + 1);
    OPENFILENAMEW order = {};
    order.lStructSize = sizeof order;
    order.hwndOwner = ::GetActiveWindow();
    order.lpstrFilter = wide(filters);
    order.nFilterIndex = 1;
    order.lpstrFile = wide(chosen);
    order.nMaxFile = static_cast<DWORD>(chosen.size());
    order.lpstrInitialDir = dialog.folder.empty() ? nullptr : wide(dialog.folder);
    order.lpstrTitle = dialog.title.empty() ? nullptr : wide(dialog.title);
    order.Flags = flags | OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY;
    if (!ask(&order)) return false;
    name = chosen.c_str();
    return true;
}

/// `folder` is the folder in which the dialog begins, or null.
int CALLBACK beginAt(HWND window, UINT message, LPARAM, LPARAM folder) {
    if (message == BFFM_INITIALIZED && folder != 0)
        ::SendMessageW(window, BFFM_SETSELECTIONW, TRUE, folder);
    return 0;
}

/// Takes the next message other than WM_QUIT from the queue; false when there is none.
bool takeMessage(MSG& message, std::optional<int>& quit) {
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message != WM_QUIT) return true;
        quit = static_cast<int>(message.wParam);
    }
    return false;
}

/// Takes only WM_QUIT from the queue.
std::optional<int> takeQuit() {
    MSG message;
    if (!::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) return {};
    return static_cast<int>(message.wParam);
}

bool waitForMessage(std::chrono::steady_clock::time_point deadline) {
    using std::chrono::milliseconds;
    constexpr milliseconds aDay = std::chrono::hours(24);
    for (;;) {
        const auto left =
            std::chrono::ceil<milliseconds>(deadline - std::chrono::steady_clock::now());
        const auto longest = static_cast<DWORD>(std::clamp(left, milliseconds(0), aDay).count());
        const DWORD answer =
            ::MsgWaitForMultipleObjectsEx(0, nullptr, longest, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        if (answer != WAIT_TIMEOUT) return answer == WAIT_OBJECT_0;
        if (left <= aDay) return false;
    }
}

}  // namespace

void NativeHost::MessageBoxA(const String& text, const String& caption, std::uint32_t style) {
    ::MessageBoxW(::GetActiveWindow(), wide(text), wide(caption), style);
}

bool NativeHost::GetOpenFileNameA(const FileDialog& dialog, String& name) {
    const Objects objects;  // the dialogs consist of them
    return askForFile(
        dialog, OFN_FILEMUSTEXIST, [](OPENFILENAMEW* order) { return ::GetOpenFileNameW(order); },
        name);
}

bool NativeHost::GetSaveFileNameA(const FileDialog& dialog, String& name) {
    const Objects objects;
    return askForFile(
        dialog, OFN_OVERWRITEPROMPT, [](OPENFILENAMEW* order) { return ::GetSaveFileNameW(order); },
        name);
}

bool NativeHost::SHBrowseForFolderA(const FileDialog& dialog, String& name) {
    const Objects objects;
    BROWSEINFOW order = {};
    order.hwndOwner = ::GetActiveWindow();
    order.lpszTitle = wide(dialog.title);
    order.ulFlags = dialog.browseFlags;
    order.lpfn = beginAt;
    order.lParam = dialog.folder.empty() ? 0 : reinterpret_cast<LPARAM>(wide(dialog.folder));
    const PIDLIST_ABSOLUTE chosen = ::SHBrowseForFolderW(&order);
    if (chosen == nullptr) return false;
    String path(MAX_PATH, u'\0');
    const BOOL onDisk = ::SHGetPathFromIDListW(chosen, wide(path));
    ::CoTaskMemFree(chosen);
    if (onDisk) name = path.c_str();
    return onDisk != FALSE;
}

void NativeHost::DoEvents() {
    const ULONGLONG end = ::GetTickCount64() + kLongestRound;
    MSG message;
    bool more = true;
    while (more) {
        std::optional<int> quit;
        more = takeMessage(message, quit);
        // WM_QUIT is for the program's own loops, including those that start in a handler.
        if (quit) ::PostQuitMessage(*quit);
        if (!more) return;
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
        more = ::GetTickCount64() < end;
    }
}

bool NativeHost::WaitForEvents(std::chrono::steady_clock::time_point deadline) {
    // Nothing here handles WM_QUIT, so it would end every wait at once.
    const std::optional<int> quit = takeQuit();
    const bool something = waitForMessage(deadline);
    if (quit) ::PostQuitMessage(*quit);
    return something;
}

void NativeHost::SetPointer(Pointer pointer) {
    setPointer(pointer);
}

void NativeHost::ShowWaitWindow(const String& text, WindowHandle owner) {
    showWaitWindow(text, owner);
}

void NativeHost::HideWaitWindow() {
    hideWaitWindow();
}

}  // namespace quorkit::native
