#include <gtest/gtest.h>
#include <quorkit/enumerations.h>
#include <quorkit/ports/memory.h>

#include <cstdlib>

#include "support/late.h"
#include "support/scratch.h"

namespace quorkit::test {
namespace {

constexpr auto kDesktop = CSIDL_DESKTOPDIRECTORY;

class Shortcuts : public testing::Test {
   protected:
    Shortcuts() {
        world.system.specialFolders = {
            {kDesktop, u"C:\\Desk"}, {CSIDL_APPDATA, u"C:\\Data"}, {CSIDL_FONTS, u"C:\\f\\Fonts"}};
        world.system.environment = {{u"windir", u"C:\\Windows"}, {u"loop", u"%loop%"}};
        world.files.put(u"C:\\f", "");
    }

    MemoryPorts world;
    Late file{u"GQuorFile", world};
};

TEST_F(Shortcuts, AreMadeInSpecialFoldersAndRemoved) {
    file.expect(u"GetSpecialFolderPath", {Row({spfAppdata}, u""), Row({Long{-1}}, u"")});
    file.expect(u"GetSpecialFolder",
                {Row({CSIDL_NONE}, u""), Row({CSIDL_PRINTERS, true}, u""),
                 Row({CSIDL_APPDATA}, u"C:\\Data"), Row({CSIDL_APPDATA, false, true}, u""),
                 Row({CSIDL_APPDATA, true}, u"C:\\Data"), Row({CSIDL_FONTS, true}, u"")});
    file.expect(u"GetSpecialFolderPath", {Row({spfAppdata}, u"C:\\Data"), Row({spfFonts}, u"")});
    const auto row = [](bool install, CSIDLS special, const String& folder, const String& name,
                        bool result) {
        return Row({install, special, folder, u"C:\\x", name, u"Tip"}, result);
    };
    file.expect(u"MakeShortCut", {row(true, kDesktop, u"\\Tools", u"Editor", true),
                                  row(true, kDesktop, u"", u"Tools\\x", true),
                                  row(true, CSIDL_NONE, u"%windir%\\a\\", u"", true)});
    file.expect(u"FileExists",
                {Row({u"C:\\Desk\\Tools\\Editor.lnk"}, true),
                 Row({u"C:\\Desk\\Tools\\x.lnk"}, true), Row({u"C:\\Windows\\a\\.lnk"}, true)});
    file.expect(
        u"MakeShortCut",
        {row(false, kDesktop, u"Tools\\", u"Editor", true),
         row(false, kDesktop, u"Tools", u"x", true), row(false, kDesktop, u"Tools", u"x", true),
         row(true, kDesktop, u"", u"missing\\x", false),
         row(true, kDesktop, u"", String(u"a\0b", 3), false),
         row(true, CSIDL_NONE, u"%loop%", u"x", false), row(true, CSIDL_NONE, u"", u"x", false),
         row(false, CSIDL_FONTS, u"", u"x", false)});
    file.expect(u"IsDirectoryEmpty", {Row({u"C:\\Desk\\Tools"}, true)});
}

#ifndef _WIN32
TEST_F(Shortcuts, AreReadByAnotherReader) {
    const std::string notepad = "C:\\Windows\\notepad.exe";
    const std::string onShare = "\\\\srv\\share\\d\\\u0416.txt";
    const std::tuple<String, String, std::string> cases[] = {
        {u"%windir%\\notepad.exe", u"\u20AC \u0416",
         "Drive type: Fixed (3)\nDrive serial number: 0x00abcdef\nVolume label: \nLocal path: " +
             notepad + "\nDescription: \u20AC \u0416\nEnvironment variables location: " + notepad},
        {u"C:\\\u0416", u"", "Local path: C:\\\u0416\nEnvironment variables location: C:\\\u0416"},
        {u"\\\\srv\\share\\d\\\u0416.txt", u"x",
         "Network path: " + onShare +
             "\nDescription: x\nEnvironment variables location: " + onShare},
        {u"\\\\srv\\share", u"", "Network path: \\\\srv\\share"},
        {u"C:\\" + String(300, u'x'), String(32766, u'y') + u"\U0001D11E",
         "C:\\" + std::string(300, 'x') + "\nDescription: " + std::string(32766, 'y')},
    };
    world.drives.drives[u"C:"].serialNumber = 0xABCDEF;
    Scratch scratch;
    const std::string link = scratch.path("s.lnk").string();
    const std::string command = "LC_ALL=C.UTF-8 lnkinfo " + link + " >" + link + ".txt";
    for (const auto& [target, tip, lines] : cases) {
        file.call(u"MakeShortCut", {true, kDesktop, u"", target, u"s", tip});
        scratch.write("s.lnk", world.files.content(u"C:\\Desk\\s.lnk").value());
        EXPECT_EQ(std::system(command.c_str()), 0);  // a reader from Debian
        std::string told = scratch.read("s.lnk.txt");
        std::erase(told, '\t');
        EXPECT_NE(told.find(lines + "\n"), std::string::npos) << told;
    }
}
#endif

}  // namespace
}  // namespace quorkit::test
