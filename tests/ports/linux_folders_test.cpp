// Special folders, the temporary folder and local times on Linux.
#ifdef __linux__
#include <gtest/gtest.h>
#include <quorkit/enumerations.h>
#include <quorkit/ports/ports.h>
#include <quorkit/ports/system.h>
#include <sys/stat.h>

#include <ctime>

#include "linux/names.h"
#include "support/environment.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

class LinuxFolders : public testing::Test {
   protected:
    /// As a path, "" when there is none.
    std::string folder(int number) {
        String name;
        std::string path;
        if (!system.SHGetFolderPathA(number, name)) return {};
        EXPECT_EQ(disk::pathOf(name, path), kSuccess);
        return path;
    }
    void expect(const std::vector<std::pair<int, std::string>>& cases) {
        for (const auto& [number, path] : cases) EXPECT_EQ(folder(number), path) << number;
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
    expect({{CSIDL_DESKTOP, h + "/Desktop"},
            {CSIDL_DESKTOPDIRECTORY, h + "/Desktop"},
            {CSIDL_PERSONAL, h + "/Documents"},
            {CSIDL_MYMUSIC, h + "/Music"},
            {CSIDL_MYVIDEO, h + "/Videos"},
            {CSIDL_MYPICTURES, h + "/Pictures"},
            {CSIDL_TEMPLATES, h + "/Templates"},
            {CSIDL_COMMON_DOCUMENTS, h + "/Public"},
            {CSIDL_PROGRAMS, h + "/.local/share/applications"},
            {CSIDL_STARTMENU, h + "/.local/share/applications"},
            {CSIDL_STARTUP, h + "/.config/autostart"},
            {CSIDL_APPDATA, h + "/.config"},
            {CSIDL_LOCAL_APPDATA, h + "/.local/share"},
            {CSIDL_INTERNET_CACHE, h + "/.cache"},
            {CSIDL_PROFILE, h},
            {CSIDL_COMMON_PROGRAMS, "/usr/share/applications"},
            {CSIDL_COMMON_STARTUP, "/etc/xdg/autostart"},
            {CSIDL_COMMON_APPDATA, "/etc/xdg"},
            {CSIDL_FONTS, "/usr/share/fonts"},
            {CSIDL_PROGRAM_FILES, "/opt"},
            {CSIDL_WINDOWS, ""},
            {CSIDL_PRINTERS, ""},
            {CSIDL_NONE, ""},
            {4711, ""}});
    config.set("/c/");
    data.set("/d");
    dataFolders.set("x:/one/:/two");
    configFolders.set(":/three");
    expect({{CSIDL_APPDATA, "/c"},
            {CSIDL_PROGRAMS, "/d/applications"},
            {CSIDL_COMMON_STARTMENU, "/one/applications"},
            {CSIDL_COMMON_STARTUP, "/three/autostart"}});
    home.set("/");
    expect(
        {{CSIDL_PROFILE, "/"}, {CSIDL_INTERNET_CACHE, "/.cache"}, {CSIDL_PERSONAL, "/Documents"}});
    home.set({});
    EXPECT_TRUE(folder(CSIDL_PROFILE).starts_with('/'));
}

TEST_F(LinuxFolders, StandWhereTheUserWants) {
    config.set(h);
    scratch.write("user-dirs.dirs",
                  "# XDG_MUSIC_DIR=\"/commented\"\n"
                  "XDG_DESKTOP_DIR=\"$HOME/Schreib\\\"tisch/\"\n"
                  "  XDG_DOCUMENTS_DIR = \"/data/\xC3\x84kten\"\r\n"
                  "XDG_VIDEOS_DIR=\"$HOME/\"\n"
                  "XDG_PICTURES_DIR=\"relative\"\n"
                  "XDG_MUSIC_DIR=/unquoted\n"
                  "XDG_TEMPLATES_DIR=\"/first\"\nXDG_TEMPLATES_DIR=\"/last\"\n"
                  "XDG_PUBLICSHARE_DIR=\"$HOMER/x\"\nXDG_PUBLICSHARE_DIR=\"/open");
    expect({{CSIDL_DESKTOP, h + "/Schreib\"tisch"},
            {CSIDL_PERSONAL, "/data/\xC3\x84kten"},
            {CSIDL_MYVIDEO, h},
            {CSIDL_MYPICTURES, h + "/Pictures"},
            {CSIDL_MYMUSIC, h + "/Music"},
            {CSIDL_TEMPLATES, "/last"},
            {CSIDL_COMMON_DOCUMENTS, h + "/Public"}});
}

TEST_F(LinuxFolders, HoldTemporaryFiles) {
    const Variable temporary("TMPDIR", h + "/");
    const std::pair<std::string, std::string> cases[] = {
        {h, h + "/"}, {h + "/", h + "/"}, {h + "/none", "/tmp/"}, {".", "/tmp/"}, {"", "/tmp/"}};
    for (const auto& [value, expected] : cases) {
        temporary.set(value);
        String name;
        std::string path;
        EXPECT_TRUE(system.GetTempPathA(name));
        EXPECT_EQ(name.back(), u'\\');
        EXPECT_EQ(disk::pathOf(name, path), kSuccess);
        EXPECT_EQ(path, expected);
    }
}

TEST(LinuxSystem, ShowsTimesByTheClockOfTheirDay) {
    const Variable zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    tzset();
    const std::pair<FileTime, std::vector<int>> cases[] = {
        {133485408001230000, {2024, 1, 1, 1, 0, 0, 123}},  // winter
        {133642656000000000, {2024, 7, 1, 2, 0, 0, 0}},    // summer
        {0, {1601, 1, 1, 1, 0, 0, 0}},
        {2650467707990000000, {9999, 12, 31, 23, 59, 59, 0}},
        {2650467708000000000, {}},
        {UINT64_MAX, {}},
    };
    for (const auto& [time, parts] : cases) {
        SystemTime local;
        local.year = -1;
        const bool shown = ports::native().system.FileTimeToSystemTime(time, local);
        EXPECT_EQ(shown, !parts.empty());
        const std::vector found = {local.year,   local.month,  local.day,         local.hour,
                                   local.minute, local.second, local.milliseconds};
        EXPECT_EQ(found, (shown ? parts : std::vector{-1, 1, 1, 0, 0, 0, 0}));
    }
    zone.set("EST5");
    tzset();
    SystemTime local;
    EXPECT_FALSE(ports::native().system.FileTimeToSystemTime(0, local));
}

}  // namespace
}  // namespace quorkit::test
#endif
