// Path names, and what they stand for. No state.
//
// Names are Windows names: "\" separates, a drive is a letter and a colon, a network name begins
// with "\\". Nothing normalises a name: letter case, repeated separators, "." and ".." stay. What
// a name leads to on each system is in ports/files.h.
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
    /// Whether there is a folder of that name. Names shorter than 2 characters are none. Of a name
    /// with wildcards at its end, whether the first entry that it finds is a folder.
    Boolean PathExists(const String& vsPath);
    /// Whether the folder is there, can be searched, and holds nothing. Names shorter than 2
    /// characters are no folder.
    Boolean IsDirectoryEmpty(const String& sDir);
    /// Makes a folder and all that is missing around it. True when it was there or has been made.
    /// False may leave some of the folders around it made. Only "\" leads to a folder around
    /// another (see getParentDirectory), so of "/a/b/c" only the last one is made.
    Boolean mkDirEx(const String& sDir);

    // --- Listing ---
    //
    // Names come in the system's order. A list is counted from 0; no names are a single "". A
    // pattern is matched as Windows matches long names, the same on every system and without
    // regard to letter case: "*" is any characters, "?" is one or, in front of a full stop and at
    // the end, none; "*.*" is every name, "*." names without an extension. A pattern may lead on
    // from the folder: "sub\*.txt". Folders, and links to them, are no files. A folder that cannot
    // be searched has no entries; that is no failure.

    /// Puts the names of a folder's files into `saFileList`, with the folder in front when
    /// `bIncludeDirName`. Their number; -1, and what was found so far, on a failure; -1 and the old
    /// list when a date is none.
    ///
    /// `FileDateCompare1` takes files last written up to that moment, `FileDateCompare2` from there
    /// on. Both take what lies between them when the second is the earlier one, otherwise what
    /// does not lie between them. Local time, compared by the second; a day alone is its midnight;
    /// texts are read in the user's language.
    ///
    /// `FileAttrCompare` is pairs of a sign and a letter, R read-only, H hidden, S system, A
    /// archive: "+" must be set, any other sign must not; "-H-S" leaves out hidden and system
    /// files. Other letters, and half a pair, say nothing.
    Long getFilesFromDirectoryEx(const String& sDirName, Out<Array<String>> saFileList,
                                 const Optional<String, Text(u"*.*")>& sFilter = {},
                                 Optional<Boolean> bIncludeDirName = {},
                                 const Optional<Variant>& FileDateCompare1 = {},
                                 const Optional<Variant>& FileDateCompare2 = {},
                                 const Optional<String>& FileAttrCompare = {});

    /// Adds the names of a folder's files to `saFileList`, and with `bRecursive` those of all
    /// folders beneath it, whatever their names: the files of a folder, then each folder in it with
    /// all that is beneath. A link that leads to a folder around it is left out, and so
    /// are all but the first of the links to one folder. The number of
    /// names in the list, the old ones included. -1 on a failure, after a message to the user, with
    /// what was found so far: error 9 when the list is a table or not counted from 0.
    Long GetFilesFromDirectory3(const String& sDirName, const String& sFilter,
                                Boolean bIncludeDirName, Boolean bRecursive,
                                Array<String>& saFileList);

    /// Puts the full names of the folders in a folder into `saDirList`, without a "\" at the end.
    /// Their number; -1 on a failure, after a message to the user: error 94 for Null, 13 for what
    /// is no text.
    Long GetAllSubDirectories(const Variant& sDirName, Out<Array<String>> saDirList);

    /// Makes a table (0 to 1, 0 to extensions - 1) of the extensions in a folder, in small letters
    /// with their full stop ("" for names without), and how many files have each, as text. In the
    /// order in which they come first. The number of extensions; 0 for a folder without files, then
    /// `saFileExtList` stays as it is. Error 9 when it has elements but is no such table.
    Long getAllFileExtensionsFromDirectory(const String& sPath, Array<String>& saFileExtList);

    // --- Drives ---
    //
    // Nothing here raises an error.

    /// The type of the drive that a name begins with; DRIVE_REMOTE for any network name, whether
    /// it exists or not; DRIVE_UNKNOWN when there is no such drive.
    eDriveType getDriveTypeEx(const String& sDriveLetter);
    /// The name of a drive type in English for eLanguage_English, in German for any other language;
    /// "" for a number that is none.
    String DriveType2DriveTypeName(eDriveType typ,
                                   Optional<eLanguage, eLanguage_German> language = {});
    /// "C:" and so on for every drive, in alphabetical order, without keys.
    CollectionRef GetAllLogicalDrives();
    /// The serial number of the volume whose drive or share a name begins with, in hexadecimal
    /// digits; "0" when it cannot be found out.
    String getVolumeSerialNumber(const String& sRootName);
    /// "\\server\share" for the drive "X:" (not "X" or "X:\"); "" when it stands for none. "" finds
    /// the first connection without a drive. Only the first 1024 connections are looked at.
    String LetterToUNC(Unchanged<String> DriveLetter);
    /// "X:" for a name in the share that this drive stands for; "" when none does.
    String UNCToLetter(const String& sUNCPath);

    // --- Content ---
    //
    // Errors: 53 there is no such file, 76 no such folder, 52 no file can have that name, 75 it is
    // read-only, a folder or not for this user, 70 it is in use, 67 too many files are open, 61 the
    // disk is full, 57 anything else.

    /// Reads a file into `rbaArray`, counted from 1. An empty file is error 9; one of 2 GB or more
    /// is error 6. An error leaves the array as it is.
    void LoadFileToByteArray(const String& vsFileName, Out<Array<Byte>> rbaArray);
    /// Writes the elements of an array, whatever its bounds, as the whole content of a file. It
    /// takes the place of the old content in one step, on the disk; an error leaves that as it is.
    /// Rights and owner stay. The folder must allow writing too. Error 9 when the array is
    /// unallocated or a table; an array of no elements makes an empty file.
    void SaveByteArrayToFile(Unchanged<Array<Byte>> rbaArray, const String& vsFileName);
    /// Makes an empty file in the folder for temporary files, readable by its owner only, and gives
    /// its name: up to three characters of `sPrefix`, a hexadecimal number of up to four digits,
    /// ".TMP". It is the caller's to delete. "" when it cannot be made, as with a separator or
    /// colon among the three characters.
    String CreateTempFileName(Unchanged<String> sPrefix);

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
    /// need not exist; it is stored as it is spelled, and of the tooltip 32,767 characters. A
    /// description with ".." between separators, which would lead out of the folder, is refused.
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
    Boolean getFileVersionNumbers(const String& sFileName, Out<Long> Major, Out<Long> Minor,
                                  Out<Long> Revision, Out<Long> Build);

   private:
    Ports& ports_;
};

}  // namespace quorkit
