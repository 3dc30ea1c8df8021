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

   private:
    Ports& ports_;
};

}  // namespace quorkit
