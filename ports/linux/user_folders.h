// Folders in which a user and the system keep what programs share. Sources: the XDG Base Directory
// standard 0.8, and the format of user-dirs.dirs of xdg-user-dirs.
#pragma once

#include <string>
#include <string_view>

namespace quorkit::native {

/// A path in a folder; "" when there is no folder.
std::string inFolder(std::string_view folder, std::string_view path);

/// The user's home folder; "" when there is none.
std::string homeFolder();

/// The folder that the environment variable names, otherwise `standard` in the home folder; "" when
/// there is no home folder either. A relative path in the variable is ignored.
std::string baseFolder(const char* variable, std::string_view standard);
/// The first absolute path in a list of folders such as XDG_DATA_DIRS; `standard` when there is
/// none.
std::string firstFolder(const char* variable, std::string_view standard);

/// The folder that the last valid line `variable`="..." in the text of a user-dirs.dirs file sets;
/// a valid folder is absolute, or in the home folder with "$HOME/". "" when there is none.
std::string folderFromUserDirs(std::string_view text, std::string_view variable,
                               std::string_view home);

}  // namespace quorkit::native
