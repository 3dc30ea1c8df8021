// Path names, and what they stand for. No state.
//
// Names are Windows names: "\" separates, a drive is a letter and a colon, a network name begins
// with "\\". Names are used as given: letter case, repeated separators, "." and ".." stay.
// ports/files.h tells which file a name means on each system.
#pragma once

#include <quorkit/array.h>
#include <quorkit/collection.h>
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
    // These work on the text alone: no file has to exist, and any text is accepted.

    /// `vsPath` with one "\" at its end. An empty path, and one that ends in "\", stays as it is.
    String PathAddBackSlash(const String& vsPath);
    /// The folder that contains `sPath`, with a "\" at its end if `sPath` has one: "C:\a\" of
    /// "C:\a\b\", "C:" of "C:\a". "" when there is none, for names shorter than 4 characters and
    /// for network names shorter than 7.
    String getParentDirectory(const String& sPath);
    /// "c:" of "c:\x", in the letter case of the name. For a network name only the server: "\\srv"
    /// of "\\srv\share\x". "" for any other name.
    String ExtractDrive(const String& vsFileName);
    /// The text behind the last ":", "/" or "\"; all of it when there is none.
    String ExtractFileName(const String& vsString);
    /// The part that ExtractFileName leaves out: the folder, with the separator at its end.
    String ExtractPath(const String& vsFileName);
    /// The file name from its last full stop on: ".gz" of "a.tar.gz", "." of "a.", "" of "a".
    String ExtractFileExt(const String& vsFileName);
    /// Replaces the last full stop of `vsFileName` and all that follows it; a name without full
    /// stop gets the new extension appended. The search covers the whole name, folders included:
    /// "C:\a.b\c" and ".x" give "C:\a.x".
    String ChangeFileExt(const String& vsFileName, const String& vsNewExtension);
    /// `vsFileName` with its placeholders replaced, first by GQuorStrings.ExpandEnvironmentString,
    /// then by ExpandDateString. Error 28 as in these.
    String ExpandFileName(const String& vsFileName);
    /// The server of a network name, without backslashes; "" for any other name.
    String ExtractUNCName(const String& vsFileName);
    /// "\\srv\share" of "\\srv\share\x". A network name without share gives what it has; any other
    /// name gives "".
    String ExtractUNCServerAndShareName(const String& sFileName);
    /// The name of a file's variant for one language: "help_F.chm" of "help.chm" or "help_E.CHM"
    /// and "F". The extension is `sFileExtension`, or else that of the name; the result has it in
    /// small letters. Error 5 when the name without its extension is shorter than two characters.
    String GetFileNameForLanguage(const String& sFileName, const String& sLanguageLetter,
                                  const Optional<String>& sFileExtension = {});

    // --- What is there ---
    //
    // A link counts as its target. A file or folder that cannot be examined counts as missing.

    /// Whether a file or a folder of that name exists.
    Boolean FileExists(const String& vsFileName);
    /// Whether a folder of that name exists. A name shorter than 2 characters gives False. A name
    /// that ends in wildcards gives True when the first entry found is a folder.
    Boolean PathExists(const String& vsPath);
    /// Whether the folder exists, can be searched, and is empty. A name shorter than 2 characters
    /// gives False.
    Boolean IsDirectoryEmpty(const String& sDir);
    /// Makes a folder and all missing folders above it. True when the folder exists afterwards. A
    /// failure (False) may leave some of the folders above it made. Only "\" separates folders here
    /// (see getParentDirectory), so for "/a/b/c" only the last folder is made.
    Boolean mkDirEx(const String& sDir);

    // --- Listing ---
    //
    // Names come in the system's order. A list is counted from 0; without any names it holds a
    // single "". Patterns follow the rules of Windows for long names, on every system and without
    // regard to letter case: "*" matches any characters; "?" matches one, or none in front of a
    // full stop and at the end; "*.*" matches every name, "*." names without an extension. A
    // pattern may contain folders below the one searched: "sub\*.txt". Folders, and links to
    // folders, are not files. A folder that cannot be searched counts as empty, which is no
    // failure.

    /// Puts the names of a folder's files into `saFileList`; with `bIncludeDirName` each has the
    /// folder in front. Returns their number. On a failure it returns -1 and the list holds the
    /// files found so far; when an argument is no date it returns -1 and the list stays as it was.
    ///
    /// `FileDateCompare1` selects files last written up to that moment, `FileDateCompare2` files
    /// written at or after it. With both, and the second the earlier one, files written between the
    /// two are selected; otherwise files that were not. Times are local and compared by the second;
    /// a date without a time means its midnight; texts are read in the user's language.
    ///
    /// `FileAttrCompare` holds pairs of a sign and a letter: R read-only, H hidden, S system, A
    /// archive. "+" selects files that have the attribute, any other sign files that do not; "-H-S"
    /// leaves out hidden and system files. Other letters and an incomplete pair are ignored.
    Long getFilesFromDirectoryEx(const String& sDirName, Out<Array<String>> saFileList,
                                 const Optional<String, Text(u"*.*")>& sFilter = {},
                                 Optional<Boolean> bIncludeDirName = {},
                                 const Optional<Variant>& FileDateCompare1 = {},
                                 const Optional<Variant>& FileDateCompare2 = {},
                                 const Optional<String>& FileAttrCompare = {});

    /// Adds the names of a folder's files to `saFileList`; with `bRecursive` also the files of all
    /// folders beneath it, whatever the names of these. The files of a folder come first, then each
    /// folder in it with all that is beneath. A link to a folder that contains it is left out. When
    /// several links lead to one folder, only the first is followed. Returns the number of names in
    /// the list, the old ones included. On a failure it shows the user a message and returns -1;
    /// the list keeps what was found so far. Error 9, which is such a failure, means a list that is
    /// a table or not counted from 0.
    Long GetFilesFromDirectory3(const String& sDirName, const String& sFilter,
                                Boolean bIncludeDirName, Boolean bRecursive,
                                Array<String>& saFileList);

    /// Puts the full names of the folders in a folder into `saDirList`, without a "\" at the end,
    /// and returns their number. On a failure it shows the user a message and returns -1: error 94
    /// for Null, 13 for a value without a text.
    Long GetAllSubDirectories(const Variant& sDirName, Out<Array<String>> saDirList);

    /// Makes a table (0 to 1, 0 to extensions - 1) of the extensions in a folder and the number of
    /// files that have each. Extensions are in small letters with their full stop, or "" for names
    /// without one; numbers are texts. The order is that of first occurrence. Returns the number of
    /// extensions. A folder without files gives 0 and leaves `saFileExtList` as it is. Error 9 when
    /// the list has elements but is no such table.
    Long getAllFileExtensionsFromDirectory(const String& sPath, Array<String>& saFileExtList);

    // --- Drives ---
    //
    // Nothing here raises an error.

    /// The type of the drive that a name begins with. Any network name gives DRIVE_REMOTE, whether
    /// it exists or not; a drive that does not exist gives DRIVE_UNKNOWN.
    eDriveType getDriveTypeEx(const String& sDriveLetter);
    /// The name of a drive type, in English for eLanguage_English and in German for any other
    /// language. "" for a number that is no drive type.
    String DriveType2DriveTypeName(eDriveType typ,
                                   Optional<eLanguage, eLanguage_German> language = {});
    /// "C:" and so on for every drive, in alphabetical order, without keys.
    CollectionRef GetAllLogicalDrives();
    /// The serial number of the volume whose drive or share a name begins with, in hexadecimal
    /// digits. "0" when it is not known.
    String getVolumeSerialNumber(const String& sRootName);
    /// "\\server\share" for the drive "X:" (not "X" or "X:\"); "" for a drive that is not connected
    /// to a share. "" as argument finds the first connection without a drive. Only the first 1024
    /// connections are examined.
    String LetterToUNC(Unchanged<String> DriveLetter);
    /// The drive "X:" that is connected to the share of a name; "" when there is none.
    String UNCToLetter(const String& sUNCPath);

    // --- Content ---
    //
    // Errors: 53 no such file, 76 no such folder, 52 not a possible file name, 75 read-only, a
    // folder, or not allowed for this user, 70 in use, 67 too many open files, 61 disk full, 57 any
    // other.

    /// Reads a file into `rbaArray`, counted from 1. An empty file is error 9; one of 2 GB or more
    /// is error 6. An error leaves the array as it is.
    void LoadFileToByteArray(const String& vsFileName, Out<Array<Byte>> rbaArray);
    /// Writes the elements of an array, whatever its bounds, as the whole content of a file. The
    /// new content replaces the old one in one step and is on the disk when this returns; an error
    /// leaves the old file. Rights and owner stay. The folder must allow writing too. Error 9 when
    /// the array is unallocated or a table; an array without elements makes an empty file.
    void SaveByteArrayToFile(Unchanged<Array<Byte>> rbaArray, const String& vsFileName);
    /// Makes an empty file in the folder for temporary files and returns its name: up to three
    /// characters of `sPrefix`, a hexadecimal number of up to four digits, ".TMP". Only its owner
    /// can read it, and the caller has to delete it. "" when it cannot be made, as with a separator
    /// or a colon in those three characters.
    String CreateTempFileName(Unchanged<String> sPrefix);

    // --- Special folders and shortcuts ---

    /// The path of a special folder without a "\" at its end. "" when the folder does not exist or
    /// is no folder on disk, as for the printers.
    String GetSpecialFolderPath(spfSpecialFolderConstants FolderID);
    /// The path of a special folder without a "\" at its end, whether the folder exists or not.
    /// With `Verify` True the result is "" when it does not exist. With `Create` True a missing
    /// folder is made, and the result is "" when that fails. "" for CSIDL_NONE and for what is no
    /// folder on disk.
    String GetSpecialFolder(CSIDLS CSIDL, const Optional<Boolean, false>& Create = {},
                            const Optional<Boolean, false>& Verify = {});
    /// Makes the shortcut `sDescription` + ".lnk" to `sTargetPath` with the tooltip `sQuickInfo`,
    /// or removes it when `bInstall` is False. The shortcut goes into the special folder, or into
    /// `sSubFolder` of it; with CSIDL_NONE `sSubFolder` is the path of the folder. %NAME%
    /// placeholders in the folder and in the target are replaced
    /// (GQuorStrings.ExpandEnvironmentString). A missing special folder is made even when the
    /// shortcut is to be removed; a missing `sSubFolder` only to install. The target need not exist
    /// and is stored as given; the tooltip is cut to 32,767 characters. A description with ".."
    /// between separators would lead out of the folder and is refused.
    ///
    /// True when the shortcut exists afterwards, or, to remove, when it does not. Never an error.
    /// The new shortcut replaces an old one in one step: a failure leaves the old one, and then the
    /// result is True.
    Boolean MakeShortCut(Boolean bInstall, CSIDLS SpecialFolder, const String& sSubFolder,
                         const String& sTargetPath, const String& sDescription,
                         const String& sQuickInfo);

    // --- Dialogs ---
    //
    // Each dialog waits for the user. The result is "" when the user cancels and when no dialog can
    // be shown.
    //
    // `sTitle` is the dialog's title and `sStartFolder` the folder where it begins; "" leaves
    // either to the system. `sFileName` is the proposed name. `sFilter` lists kinds of files, names
    // and patterns in turn: "Texts (*.txt)|*.txt|Tables|*.csv;*.tsv". A last name without pattern
    // stands for all files; "" offers only all files.

    /// Lets the user choose a folder.
    String BrowseForFolder(const Optional<String>& sTitle = {},
                           const Optional<String>& sStartFolder = {},
                           const Optional<eBrowserInfoFlags, BIF_RETURNONLYFSDIRS>& Flags = {});
    /// Lets the user choose a file that exists.
    String ShowOpenDialog(const Optional<String>& sTitle = {}, const Optional<String>& sFilter = {},
                          const Optional<String>& sStartFolder = {},
                          const Optional<String>& sFileName = {});
    /// Lets the user name a file to write, and asks before an existing one is chosen; nothing is
    /// written. A name without extension gets `sDefaultExt`, which may begin with a full stop. If a
    /// file of the completed name exists, the dialog is shown once more with that name so that the
    /// user is asked; the same answer again counts as cancelled.
    String ShowSaveDialog(const Optional<String>& sTitle = {}, const Optional<String>& sFilter = {},
                          const Optional<String>& sStartFolder = {},
                          const Optional<String>& sFileName = {},
                          const Optional<String>& sDefaultExt = {});

    // --- Versions ---
    //
    // These read the file itself, in the same way on every system: the file version in the fixed
    // part of the version resource of a 32-bit or 64-bit Windows program or DLL.

    /// The file version as "1.2.0.0", always four numbers. "" when the file has none, cannot be
    /// read or is damaged.
    String getFileVersion(const String& sFileName);
    /// The four numbers, each 0 to 65535. False when getFileVersion gives ""; the outputs then stay
    /// as they are.
    Boolean getFileVersionNumbers(const String& sFileName, Out<Long> Major, Out<Long> Minor,
                                  Out<Long> Revision, Out<Long> Build);

   private:
    Ports& ports_;
};

}  // namespace quorkit
