#include <quorkit/GQuorFile.h>

#include "frame/member_row.h"

namespace quorkit {

using frame::method;

template <>
std::span<const MemberInfo> frame::memberRows<GQuorFile>() {
    using C = GQuorFile;
    static constexpr MemberInfo rows[] = {
        method<&C::PathAddBackSlash>(0x60030000, "PathAddBackSlash", {"vsPath"},
                                     "A path with a backslash at its end."),
        method<&C::IsDirectoryEmpty>(0x60030001, "IsDirectoryEmpty", {"sDir"},
                                     "Whether a folder is there and holds nothing."),
        method<&C::getParentDirectory>(0x60030002, "getParentDirectory", {"sPath"},
                                       "The folder around a path."),
        method<&C::PathExists>(0x60030003, "PathExists", {"vsPath"},
                               "Whether there is a folder of that name."),
        method<&C::ExtractDrive>(0x60030004, "ExtractDrive", {"vsFileName"},
                                 "The drive of a name, or the server of a network name."),
        method<&C::ExtractFileName>(0x60030005, "ExtractFileName", {"vsString"},
                                    "The file name at the end of a path."),
        method<&C::ExtractPath>(0x60030006, "ExtractPath", {"vsFileName"},
                                "A name without its file name."),
        method<&C::ExtractFileExt>(0x60030007, "ExtractFileExt", {"vsFileName"},
                                   "The extension of a file name, with its full stop."),
        method<&C::ChangeFileExt>(0x60030008, "ChangeFileExt", {"vsFileName", "vsNewExtension"},
                                  "A name with another extension."),
        method<&C::ExpandFileName>(0x60030009, "ExpandFileName", {"vsFileName"},
                                   "A name with its %NAME% and [FORMAT] placeholders replaced."),
        method<&C::FileExists>(0x6003000A, "FileExists", {"vsFileName"},
                               "Whether there is a file or a folder of that name."),
        method<&C::ExtractUNCName>(0x6003000B, "ExtractUNCName", {"vsFileName"},
                                   "The server of a network name."),
        method<&C::ExtractUNCServerAndShareName>(0x6003000C, "ExtractUNCServerAndShareName",
                                                 {"sFileName"},
                                                 "Server and share of a network name."),
        method<&C::mkDirEx>(0x6003000D, "mkDirEx", {"sDir"},
                            "Makes a folder and all that is missing around it."),
        method<&C::GetFileNameForLanguage>(
            0x6003000E, "GetFileNameForLanguage",
            {"sFileName", "sLanguageLetter", "sFileExtension"},
            "The name of a language's variant of a file, such as help_F.chm."),
        method<&C::getFilesFromDirectoryEx>(
            0x60030011, "getFilesFromDirectoryEx",
            {"sDirName", "saFileList", "sFilter", "bIncludeDirName", "FileDateCompare1",
             "FileDateCompare2", "FileAttrCompare"},
            "Lists the files of a folder by pattern, date and attributes."),
        method<&C::GetFilesFromDirectory3>(
            0x60030012, "GetFilesFromDirectory3",
            {"sDirName", "sFilter", "bIncludeDirName", "bRecursive", "saFileList"},
            "Adds the files of a folder, or of all folders beneath it too, to a list."),
        method<&C::GetAllSubDirectories>(0x60030013, "GetAllSubDirectories",
                                         {"sDirName", "saDirList"},
                                         "Lists the folders in a folder."),
        method<&C::getAllFileExtensionsFromDirectory>(
            0x60030014, "getAllFileExtensionsFromDirectory", {"sPath", "saFileExtList"},
            "Counts the files of a folder by extension."),
        method<&C::getDriveTypeEx>(0x60030015, "getDriveTypeEx", {"sDriveLetter"},
                                   "The type of a drive or of what a network name stands for."),
        method<&C::DriveType2DriveTypeName>(0x60030016, "DriveType2DriveTypeName",
                                            {"typ", "language"},
                                            "A drive type in words, English or German."),
        method<&C::GetAllLogicalDrives>(0x60030017, "GetAllLogicalDrives",
                                        "The letters of all drives, each with its colon."),
        method<&C::getVolumeSerialNumber>(0x60030018, "getVolumeSerialNumber", {"sRootName"},
                                          "The serial number of the volume that a name lies on."),
        method<&C::LetterToUNC>(0x60030019, "LetterToUNC", {"DriveLetter"},
                                "The network name that a drive stands for."),
        method<&C::UNCToLetter>(0x6003001A, "UNCToLetter", {"sUNCPath"},
                                "The drive that stands for a share."),
        method<&C::LoadFileToByteArray>(0x6003001B, "LoadFileToByteArray",
                                        {"vsFileName", "rbaArray"},
                                        "Reads a whole file into an array of bytes."),
        method<&C::SaveByteArrayToFile>(0x6003001C, "SaveByteArrayToFile",
                                        {"rbaArray", "vsFileName"},
                                        "Writes an array of bytes as a whole file."),
        method<&C::CreateTempFileName>(0x6003001D, "CreateTempFileName", {"sPrefix"},
                                       "Makes an empty file of a new name for temporary use."),
        method<&C::GetSpecialFolderPath>(0x6003001E, "GetSpecialFolderPath", {"FolderID"},
                                         "The path of a special folder that exists."),
        method<&C::GetSpecialFolder>(0x6003001F, "GetSpecialFolder", {"CSIDL", "Create", "Verify"},
                                     "The path of a special folder, checked or made when told so."),
        method<&C::MakeShortCut>(0x60030020, "MakeShortCut",
                                 {"bInstall", "SpecialFolder", "sSubFolder", "sTargetPath",
                                  "sDescription", "sQuickInfo"},
                                 "Makes or removes a shortcut."),
        method<&C::BrowseForFolder>(0x60030021, "BrowseForFolder",
                                    {"sTitle", "sStartFolder", "Flags"},
                                    "Lets the user choose a folder."),
        method<&C::ShowOpenDialog>(0x60030022, "ShowOpenDialog",
                                   {"sTitle", "sFilter", "sStartFolder", "sFileName"},
                                   "Lets the user choose a file that exists."),
        method<&C::ShowSaveDialog>(
            0x60030023, "ShowSaveDialog",
            {"sTitle", "sFilter", "sStartFolder", "sFileName", "sDefaultExt"},
            "Lets the user name a file to write."),
        method<&C::getFileVersion>(0x60030024, "getFileVersion", {"sFileName"},
                                   "The version of a Windows program or DLL."),
        method<&C::getFileVersionNumbers>(
            0x60030025, "getFileVersionNumbers",
            {"sFileName", "Major", "Minor", "Revision", "Build"},
            "The four numbers of the version of a Windows program or DLL."),
    };
    return rows;
}

}  // namespace quorkit
