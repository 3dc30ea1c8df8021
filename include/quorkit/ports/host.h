// What the program around the library does for its user: messages and dialogs.
#pragma once

#include <quorkit/values.h>

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

/// On Linux the user sees dialogs and messages where there is a display and one of the programs
/// zenity and kdialog; a program that is given a name gets it as it is, no shell reads it.
///
/// A dialog that the user cancels, or that cannot be shown, is answered with false; `name` is then
/// left as it is.
class Host {
   public:
    virtual ~Host() = default;

    /// Shows a message until the user has read it, with an OK button. Where nothing can be shown it
    /// goes to the standard error stream.
    virtual void MessageBoxA(const String& text, const String& caption) = 0;
    /// Lets the user choose a file that exists.
    virtual bool GetOpenFileNameA(const FileDialog& dialog, String& name) = 0;
    /// Lets the user name a file to write; asks whether one that exists may be overwritten.
    virtual bool GetSaveFileNameA(const FileDialog& dialog, String& name) = 0;
    /// Lets the user choose a folder.
    virtual bool SHBrowseForFolderA(const FileDialog& dialog, String& name) = 0;
};

}  // namespace quorkit
