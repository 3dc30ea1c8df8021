// Special folders and the temporary folder on Linux.
#ifdef __linux__
#include <gtest/gtest.h>
#include <quorkit/ports/ports.h>
#include <quorkit/ports/system.h>

#include <map>

#include "linux/linux_names.h"
#include "support/environment.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

class LinuxFolders : public testing::Test {
   protected:
    /// "0 ~/Desktop|5 ~/Documents|...": the folders with the numbers `first` to `last`.
    std::string folders(int first, int last) {
        std::string text;
        for (int number = first; number <= last; ++number) {
            String name;
            std::string path;
            if (!system.SHGetFolderPathA(number, name)) continue;
            EXPECT_EQ(native::pathOf(name, path), kSuccess);
            if (path.starts_with(h)) path.replace(0, h.size(), "~");
            text += std::to_string(number) + " " + path + "|";
        }
        return text;
    }

    System& system = ports::native().system;
    Scratch scratch;
    const std::string h = scratch.folder().string();
    const Variable home{"HOME", h};
    const Variable config{"XDG_CONFIG_HOME", {}};
    const Variable data{"XDG_DATA_HOME", "relative"};
    const Variable cache{"XDG_CACHE_HOME", ""};
    const Variable dataFolders{"XDG_DATA_DIRS", {}};
    const Variable configFolders{"XDG_CONFIG_DIRS", {}};
};

TEST_F(LinuxFolders, StandWhereTheStandardPutsThem) {
    EXPECT_EQ(folders(-1, 100),
              "0 ~/Desktop|2 ~/.local/share/applications|5 ~/Documents|7 ~/.config/autostart|"
              "11 ~/.local/share/applications|13 ~/Music|14 ~/Videos|16 ~/Desktop|"
              "20 /usr/share/fonts|21 ~/Templates|22 /usr/share/applications|"
              "23 /usr/share/applications|24 /etc/xdg/autostart|26 ~/.config|28 ~/.local/share|"
              "32 ~/.cache|35 /etc/xdg|38 /opt|39 ~/Pictures|40 ~|46 ~/Public|");
    config.set("/c/");
    data.set("/d");
    dataFolders.set("x:/one/:/two");
    configFolders.set(":/three");
    EXPECT_EQ(folders(22, 28),
              "22 /one/applications|23 /one/applications|24 /three/autostart|26 /c|28 /d|");
    home.set("/");
    EXPECT_EQ(folders(39, 40) + folders(32, 32), "39 /Pictures|40 /|32 /.cache|");
    home.set({});
    EXPECT_TRUE(folders(40, 40).starts_with("40 /"));
}

TEST_F(LinuxFolders, StandWhereTheUserWants) {
    config.set(h);
    scratch.write("user-dirs.dirs",
                  "# XDG_MUSIC_DIR=\"/commented\"\n"
                  "XDG_DESKTOP_DIR=\"$HOME/Schreib\\\"tisch/\"\n"
                  "  XDG_DOCUMENTS_DIR = \"/data/\xC3\x84kten\"\r\n"
                  "XDG_VIDEOS_DIR=\"$HOME/\"\n"
                  "XDG_PICTURES_DIR=\"relative\"\nXDG_MUSIC_DIR=/unquoted\n"
                  "XDG_TEMPLATES_DIR=\"/first\"\nXDG_TEMPLATES_DIR=\"/last\"\n"
                  "XDG_PUBLICSHARE_DIR=\"$HOMER/x\"\nXDG_PUBLICSHARE_DIR=\"/open");
    EXPECT_EQ(folders(0, 0) + folders(5, 5) + folders(13, 14) + folders(21, 21) + folders(39, 46),
              "0 ~/Schreib\"tisch|5 /data/\xC3\x84kten|13 ~/Music|14 ~|21 /last|"
              "39 ~/Pictures|40 ~|46 ~/Public|");
}

TEST_F(LinuxFolders, HoldTemporaryFiles) {
    const Variable temporary("TMPDIR", {});
    for (const auto& [value, expected] : std::map<std::string, std::string>{
             {h, h + "/"}, {h + "/", h + "/"}, {h + "/none", "/tmp/"}, {".", "/tmp/"}}) {
        temporary.set(value);
        String name;
        std::string path;
        EXPECT_TRUE(system.GetTempPathA(name));
        EXPECT_EQ(name.back(), u'\\');
        EXPECT_EQ(native::pathOf(name, path), kSuccess);
        EXPECT_EQ(path, expected);
    }
}

}  // namespace
}  // namespace quorkit::test
#endif
