// What the program around the library does for its user: messages, dialogs, events.
#pragma once

#include <quorkit/ports/desktop.h>
#include <quorkit/values.h>

#include <chrono>
#include <cstdint>
#include <vector>

namespace quorkit {

/// One choice of a file dialog: its name, and the patterns of the files it shows, such as "*.txt".
struct FileFilter {
    String name;
    std::vector<String> patterns;
};

struct FileDialog {
    String title;
    String folder;  ///< where the dialog begins; empty: the system chooses
    String fileName;
    std::vector<FileFilter> filters;
    std::uint32_t browseFlags = 0;  ///< eBrowserInfoFlags; only for the folder dialog
};

/// By the numbers of the host run-time.
enum class Pointer { Default = 0, Hourglass = 11 };

/// Styles of messages, by the numbers of Win32.
enum MessageStyle : std::uint32_t {
    kPlainMessage = 0,
    kStopIcon = 16,
    kExclamationIcon = 48,
    kInformationIcon = 64,
};

/// On Linux the user sees dialogs and messages when there is a display and one of the programs
/// zenity and kdialog. File names reach these programs as they are, because no shell reads them.
///
/// A dialog that the user cancels, or that cannot be shown, returns false; `name` then stays as it
/// is.
class Host {
   public:
    virtual ~Host() = default;

    /// Shows a message until the user has read it. `style` is that of Win32: an icon and, on
    /// Windows, buttons; other systems show an OK button. When nothing can be shown, the message
    /// goes to the standard error stream.
    virtual void MessageBoxA(const String& text, const String& caption, std::uint32_t style) = 0;
    /// Lets the user choose a file that exists.
    virtual bool GetOpenFileNameA(const FileDialog& dialog, String& name) = 0;
    /// Lets the user name a file to write; asks whether one that exists may be overwritten.
    virtual bool GetSaveFileNameA(const FileDialog& dialog, String& name) = 0;
    /// Lets the user choose a folder.
    virtual bool SHBrowseForFolderA(const FileDialog& dialog, String& name) = 0;

    /// Lets the program handle the pending events of its windows. The code that these run may call
    /// the library again. On Windows this begins nothing new after 100 ms, so that it always ends;
    /// WM_QUIT stays in the queue for the program's own loop. Linux has no event loop that all
    /// programs share, so nothing happens there. A program with its own loop can put a Host that
    /// runs it into its Ports.
    virtual void DoEvents() = 0;
    /// Waits until DoEvents has something to handle; WM_QUIT does not count. False when nothing
    /// came by `deadline`, as always on Linux.
    virtual bool WaitForEvents(std::chrono::steady_clock::time_point deadline) = 0;

    /// Sets the mouse pointer over the program's windows. On Linux this affects only the wait
    /// window; on Windows it lasts until a window sets its own pointer.
    virtual void SetPointer(Pointer pointer) = 0;
    /// Shows the program's one wait window, or a new text in it, above the window `owner` if that
    /// exists. The window is visible when this returns and disappears with the process. When
    /// nothing can be shown, nothing happens. On Windows the wait window has a thread of its own
    /// and no owner, so no other window can block it: it is placed over the middle of `owner`,
    /// above all windows that exist at that moment.
    virtual void ShowWaitWindow(const String& text, WindowHandle owner) = 0;
    virtual void HideWaitWindow() = 0;
};

}  // namespace quorkit
