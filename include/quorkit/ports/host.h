// What the program around the library does for its user: messages and dialogs.
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
    String folder;  ///< where it begins; empty for the system's choice
    String fileName;
    std::vector<FileFilter> filters;
    std::uint32_t browseFlags = 0;  ///< eBrowserInfoFlags, of the folder dialog alone
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

/// On Linux the user sees dialogs and messages where there is a display and one of the programs
/// zenity and kdialog; a program that is given a name gets it as it is, no shell reads it.
///
/// A dialog that the user cancels, or that cannot be shown, is answered with false; `name` is then
/// left as it is.
class Host {
   public:
    virtual ~Host() = default;

    /// Shows a message until the user has read it. `style` is that of Win32: its icon, and on
    /// Windows its buttons; elsewhere there is an OK button. Where nothing can be shown the message
    /// goes to the standard error stream.
    virtual void MessageBoxA(const String& text, const String& caption, std::uint32_t style) = 0;
    /// Lets the user choose a file that exists.
    virtual bool GetOpenFileNameA(const FileDialog& dialog, String& name) = 0;
    /// Lets the user name a file to write; asks whether one that exists may be overwritten.
    virtual bool GetSaveFileNameA(const FileDialog& dialog, String& name) = 0;
    /// Lets the user choose a folder.
    virtual bool SHBrowseForFolderA(const FileDialog& dialog, String& name) = 0;

    /// Lets the program handle what has happened in its windows. What it runs then may call the
    /// library again. On Windows nothing more is begun after 100 ms, so that it ends whatever
    /// comes, and WM_QUIT stays in the queue, for the program's own loop. Linux has no events that
    /// every program shares, so there nothing happens: a program with an event loop of its own puts
    /// a Host into its Ports that runs it.
    virtual void DoEvents() = 0;
    /// Waits for something that DoEvents has to handle, which WM_QUIT is not; false when nothing
    /// came by `deadline`, as always on Linux.
    virtual bool WaitForEvents(std::chrono::steady_clock::time_point deadline) = 0;

    /// The mouse pointer over the program's windows; on Linux over the wait window alone, on
    /// Windows until one of them sets its own.
    virtual void SetPointer(Pointer pointer) = 0;
    /// Shows the program's one wait window, or another text in it, above the window `owner` when
    /// that is one. It can be seen when this returns, and goes when the process does. Where nothing
    /// can be shown nothing happens. On Windows it has a thread of its own and no owner, so that it
    /// waits for nobody: it stands over the middle of `owner`, above all windows of that moment.
    virtual void ShowWaitWindow(const String& text, WindowHandle owner) = 0;
    virtual void HideWaitWindow() = 0;
};

}  // namespace quorkit
