// Path names, and what they stand for. No state.
//
// Names are Windows names: "\" separates, a drive is a letter and a colon, a network name begins
// with "\\". Nothing normalises a name: letter case, repeated separators, "." and ".." stay. What
// a name leads to on each system is in ports/files.h.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class GQuorFile {
   public:
    explicit GQuorFile(Ports& ports = ports::native()) : ports_(ports) {}

    // --- Parts of a name ---
    //
    // Texts alone: no file has to be there, any text will do.

    /// `vsPath` with one "\" at its end; an empty path stays empty, one that ends in "\" as it is.
    String PathAddBackSlash(const String& vsPath);
    /// The folder around `sPath`, with a "\" at its end when `sPath` has one: "C:\a\" of "C:\a\b\",
    /// "C:" of "C:\a". "" when there is none, and for names shorter than 4 characters or network
    /// names shorter than 7.
    String getParentDirectory(const String& sPath);
    /// "c:" of "c:\x", as it is spelled. Of a network name the server alone: "\\srv" of
    /// "\\srv\share\x". "" for any other name.
    String ExtractDrive(const String& vsFileName);
    /// What stands behind the last ":", "/" or "\"; all of it when there is none.
    String ExtractFileName(const String& vsString);
    /// What ExtractFileName leaves out: the folder, with the separator at its end.
    String ExtractPath(const String& vsFileName);
    /// The file name from its last full stop on: ".gz" of "a.tar.gz", "." of "a.", "" of "a".
    String ExtractFileExt(const String& vsFileName);
    /// `vsFileName` with what follows its last full stop replaced, the full stop too; appended when
    /// it has none. The full stop is sought in the whole name: "C:\a.b\c" and ".x" give "C:\a.x".
    String ChangeFileExt(const String& vsFileName, const String& vsNewExtension);
    /// `vsFileName` with its placeholders replaced, first by GQuorStrings.ExpandEnvironmentString,
    /// then by ExpandDateString. Error 28 as there.
    String ExpandFileName(const String& vsFileName);
    /// The server of a network name, without backslashes; "" for any other name.
    String ExtractUNCName(const String& vsFileName);
    /// "\\srv\share" of "\\srv\share\x"; as much of it as a network name has, "" for any other.
    String ExtractUNCServerAndShareName(const String& sFileName);
    /// The name of a language's variant of a file: "help_F.chm" of "help.chm" or "help_E.CHM" and
    /// "F". The extension, taken from the name when it is not given, comes out in small letters.
    /// Error 5 when less than two characters are left of the name without it.
    String GetFileNameForLanguage(const String& sFileName, const String& sLanguageLetter,
                                  const Optional<String>& sFileExtension = {});

    // --- What is there ---
    //
    // A link counts as what it leads to. What cannot be looked at is not there.

    /// Whether there is a file or a folder of that name.
    Boolean FileExists(const String& vsFileName);
    /// Whether there is a folder of that name. Names shorter than 2 characters are none.
    Boolean PathExists(const String& vsPath);
    /// Whether the folder is there, can be searched, and holds nothing. Names shorter than 2
    /// characters are no folder.
    Boolean IsDirectoryEmpty(const String& sDir);
    /// Makes a folder and all that is missing around it. True when it is there afterwards. False
    /// may leave some of the folders around it made. Only "\" leads to a folder around another
    /// (see getParentDirectory), so of "/a/b/c" only the last one is made.
    Boolean mkDirEx(const String& sDir);

    // --- Drives ---

    /// The name of a drive type in English for eLanguage_English, in German for any other language;
    /// "" for a number that is none.
    String DriveType2DriveTypeName(eDriveType typ,
                                   Optional<eLanguage, eLanguage_German> language = {});

    // --- Special folders and shortcuts ---

    /// The path of a special folder that exists, without a "\" at its end; "" when it does not, and
    /// for what is no folder on disk, such as the printers.
    String GetSpecialFolderPath(spfSpecialFolderConstants FolderID);
    /// The path of a special folder, without a "\" at its end. Whether it exists is not asked,
    /// unless `Verify` is True: then the result is "" when it does not. With `Create` True it is
    /// made when it is missing, and the result is "" when that fails. "" for CSIDL_NONE and for
    /// what is no folder on disk.
    String GetSpecialFolder(CSIDLS CSIDL, const Optional<Boolean, false>& Create = {},
                            const Optional<Boolean, false>& Verify = {});
    /// Makes the shortcut `sDescription` + ".lnk" to `sTargetPath`, with the tooltip `sQuickInfo`,
    /// or removes it when `bInstall` is False. It stands in the special folder, or in `sSubFolder`
    /// of it; with CSIDL_NONE `sSubFolder` is the path of the folder. %NAME% placeholders in the
    /// folder and in the target are replaced (GQuorStrings.ExpandEnvironmentString). A special
    /// folder that is missing is made, also to remove; the folder in it only to install. The target
    /// need not exist; it is stored as it is spelled, and of the tooltip 32,767 characters.
    ///
    /// True when the shortcut is there afterwards, or gone; never an error. It is put in place in
    /// one step: a failure leaves the old one, and then True, or none.
    Boolean MakeShortCut(Boolean bInstall, CSIDLS SpecialFolder, const String& sSubFolder,
                         const String& sTargetPath, const String& sDescription,
                         const String& sQuickInfo);

    // --- Dialogs ---
    //
    // Each waits for the user. "" when the user cancels, and where no dialog can be shown.
    //
    // `sTitle` stands in the dialog's title bar, `sStartFolder` is where it begins; "" leaves
    // either to the system. `sFileName` is the name proposed. `sFilter` offers kinds of files, by
    // names and patterns in turn: "Texts (*.txt)|*.txt|Tables|*.csv;*.tsv". A last name without
    // pattern offers all files; "" offers nothing but them.

    /// Lets the user choose a folder.
    String BrowseForFolder(const Optional<String>& sTitle = {},
                           const Optional<String>& sStartFolder = {},
                           const Optional<eBrowserInfoFlags, BIF_RETURNONLYFSDIRS>& Flags = {});
    /// Lets the user choose a file that exists.
    String ShowOpenDialog(const Optional<String>& sTitle = {}, const Optional<String>& sFilter = {},
                          const Optional<String>& sStartFolder = {},
                          const Optional<String>& sFileName = {});
    /// Lets the user name a file to write, and asks before one that exists is chosen; nothing is
    /// written. A name without extension gets `sDefaultExt`, with or without its full stop. When
    /// there is a file of that name, the dialog is shown once more with it, so that the user is
    /// asked; the same answer again counts as cancelled.
    String ShowSaveDialog(const Optional<String>& sTitle = {}, const Optional<String>& sFilter = {},
                          const Optional<String>& sStartFolder = {},
                          const Optional<String>& sFileName = {},
                          const Optional<String>& sDefaultExt = {});

    // --- Versions ---
    //
    // Read from the file itself, the same on every system: the file version in the fixed part of
    // the version resource of a 32-bit or 64-bit Windows program or DLL.

    /// The file version as "1.2.0.0", always with four numbers; "" for a file that has none, cannot
    /// be read or is damaged.
    String getFileVersion(const String& sFileName);
    /// The four numbers, each 0 to 65535. False where getFileVersion gives ""; they are then left
    /// as they are.
    Boolean getFileVersionNumbers(const String& sFileName, Long& Major, Long& Minor, Long& Revision,
                                  Long& Build);

   private:
    Ports& ports_;
};

}  // namespace quorkit
