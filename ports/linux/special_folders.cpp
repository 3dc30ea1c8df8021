// Special folders on Linux: the user's own by user-dirs.dirs, the others by the base folders.
#include <quorkit/enumerations.h>

#include <fstream>
#include <iterator>

#include "linux/linux_names.h"
#include "linux/user_folders.h"
#include "native/native_system.h"

namespace quorkit::native {
namespace {

std::string configFolder() {
    return baseFolder("XDG_CONFIG_HOME", ".config");
}
std::string dataFolder() {
    return baseFolder("XDG_DATA_HOME", ".local/share");
}

/// The folder that the user has chosen, or `standard` in the home folder.
std::string chosenFolder(const char* variable, const char* standard) {
    const std::string home = homeFolder();
    std::ifstream file(inFolder(configFolder(), "user-dirs.dirs"), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const std::string chosen = folderFromUserDirs(text, variable, home);
    return chosen.empty() ? inFolder(home, standard) : chosen;
}

/// "" for a folder that does not exist on Linux.
std::string pathOfFolder(int folder) {
    switch (folder) {
        case CSIDL_DESKTOP:
        case CSIDL_DESKTOPDIRECTORY:
            return chosenFolder("XDG_DESKTOP_DIR", "Desktop");
        case CSIDL_PERSONAL:
            return chosenFolder("XDG_DOCUMENTS_DIR", "Documents");
        case CSIDL_MYMUSIC:
            return chosenFolder("XDG_MUSIC_DIR", "Music");
        case CSIDL_MYVIDEO:
            return chosenFolder("XDG_VIDEOS_DIR", "Videos");
        case CSIDL_MYPICTURES:
            return chosenFolder("XDG_PICTURES_DIR", "Pictures");
        case CSIDL_TEMPLATES:
            return chosenFolder("XDG_TEMPLATES_DIR", "Templates");
        case CSIDL_COMMON_DOCUMENTS:
            return chosenFolder("XDG_PUBLICSHARE_DIR", "Public");
        case CSIDL_PROGRAMS:
        case CSIDL_STARTMENU:
            return inFolder(dataFolder(), "applications");
        case CSIDL_STARTUP:
            return inFolder(configFolder(), "autostart");
        case CSIDL_APPDATA:
            return configFolder();
        case CSIDL_LOCAL_APPDATA:
            return dataFolder();
        case CSIDL_INTERNET_CACHE:
            return baseFolder("XDG_CACHE_HOME", ".cache");
        case CSIDL_PROFILE:
            return homeFolder();
        case CSIDL_COMMON_PROGRAMS:
        case CSIDL_COMMON_STARTMENU:
            // This is where packages are installed; /usr/local/share, which comes first in the
            // standard, belongs to the administrator.
            return inFolder(firstFolder("XDG_DATA_DIRS", "/usr/share"), "applications");
        case CSIDL_COMMON_STARTUP:
            return inFolder(firstFolder("XDG_CONFIG_DIRS", "/etc/xdg"), "autostart");
        case CSIDL_COMMON_APPDATA:
            return firstFolder("XDG_CONFIG_DIRS", "/etc/xdg");
        case CSIDL_FONTS:
            return "/usr/share/fonts";
        case CSIDL_PROGRAM_FILES:
            return "/opt";
        default:
            return {};
    }
}

}  // namespace

bool NativeSystem::SHGetFolderPathA(int folder, String& path) {
    const std::string found = pathOfFolder(folder);
    if (found.empty()) return false;
    path = nameOf(found);
    return true;
}

}  // namespace quorkit::native
