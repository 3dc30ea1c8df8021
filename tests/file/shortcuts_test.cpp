#include <gtest/gtest.h>
#include <quorkit/enumerations.h>
#include <quorkit/ports/faults.h>
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
    std::string content(const String& name) { return world.files.content(name).value_or(""); }

    MemoryPorts world;
    FaultyFiles files{world.files};
    Ports ports{files, world.drives, world.system, world.host};
    Late file{u"GQuorFile", ports};
};

TEST_F(Shortcuts, SpecialFoldersAreLookedAtOrMadeWhenToldSo) {
    file.expect(u"GetSpecialFolderPath", {Row({spfAppdata}, u""), Row({Long{-1}}, u"")});
    file.expect(u"GetSpecialFolder",
                {Row({CSIDL_NONE}, u""), Row({CSIDL_PRINTERS, true}, u""),
                 Row({CSIDL_APPDATA}, u"C:\\Data"), Row({CSIDL_APPDATA, false, true}, u""),
                 Row({CSIDL_APPDATA, true}, u"C:\\Data"), Row({CSIDL_FONTS, true}, u"")});
    file.expect(u"GetSpecialFolderPath", {Row({spfAppdata}, u"C:\\Data"), Row({spfFonts}, u"")});
}

TEST_F(Shortcuts, AreMadeAndRemoved) {
    const auto row = [](bool install, CSIDLS special, const String& folder, const String& name,
                        bool result) {
        return Row({install, special, folder, u"C:\\x", name, u"Tip"}, result);
    };
    file.expect(u"MakeShortCut", {row(true, kDesktop, u"\\Tools", u"Editor", true),
                                  row(true, kDesktop, u"", u"Tools\\x", true),
                                  row(true, CSIDL_NONE, u"%windir%\\a\\", u"", true)});
    for (const char16_t* name :
         {u"C:\\Desk\\Tools\\Editor.lnk", u"C:\\Desk\\Tools\\x.lnk", u"C:\\Windows\\a\\.lnk"})
        EXPECT_NE(content(name), "");
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

TEST_F(Shortcuts, SurviveEveryFailingOperation) {
    const auto make = [&](bool install, const char16_t* target, std::size_t failing) {
        files.answer(failing, kDiskFull);
        return file(u"MakeShortCut", {install, kDesktop, u"", target, u"x", u""}) == Variant(true);
    };
    constexpr auto none = static_cast<std::size_t>(-1);
    const String name = u"C:\\Desk\\x.lnk";
    make(true, u"C:\\new", none);
    const std::string after = content(name);
    make(true, u"C:\\old", none);
    const std::string before = content(name);
    ASSERT_NE(before, after);
    const std::size_t operations = files.calls();
    for (std::size_t failing = 1; failing <= operations; ++failing)
        for (const bool old : {true, false}) {
            make(false, u"", none);
            EXPECT_EQ(file(u"IsDirectoryEmpty", {u"C:\\Desk"}), Variant(true)) << failing;
            if (old) make(true, u"C:\\old", none);
            const bool made = make(true, u"C:\\new", failing);
            const std::string found = content(name);
            EXPECT_TRUE(found == after || found == (old ? before : "")) << failing;
            EXPECT_LE(made, !found.empty()) << failing;
        }
}

#ifndef _WIN32
/// What Debian's lnkinfo tells of the shortcut, without tabs.
std::string lnkinfo(const std::string& bytes) {
    Scratch scratch;
    scratch.write("s.lnk", bytes);
    const std::string link = scratch.path("s.lnk").string();
    EXPECT_EQ(std::system(("LC_ALL=C.UTF-8 lnkinfo " + link + " >" + link + ".txt").c_str()), 0);
    std::string told = scratch.read("s.lnk.txt");
    std::erase(told, '\t');
    return told;
}

TEST_F(Shortcuts, AreReadByAnotherReader) {
    const std::string notepad = "C:\\Windows\\notepad.exe";
    const std::string share = "\\\\srv\\share\\d\\\u0416.txt";
    const std::tuple<String, String, std::string> cases[] = {
        {u"%windir%\\notepad.exe", u"\u20AC \u0416",
         "Drive type: Fixed (3)\nDrive serial number: 0x00abcdef\nVolume label: \nLocal path: " +
             notepad + "\nDescription: \u20AC \u0416\nEnvironment variables location: " + notepad},
        {u"C:\\\u0416", u"", "Local path: C:\\\u0416\nEnvironment variables location: C:\\\u0416"},
        {u"\\\\srv\\share\\d\\\u0416.txt", u"x",
         "Network path: " + share + "\nDescription: x\nEnvironment variables location: " + share},
        {u"\\\\srv\\share", u"", "Network path: \\\\srv\\share"},
        {u"C:\\" + String(300, u'x'), String(32766, u'y') + u"\U0001D11E",
         "C:\\" + std::string(300, 'x') + "\nDescription: " + std::string(32766, 'y')},
    };
    world.drives.drives[u"C:"].serialNumber = 0xABCDEF;
    for (const auto& [target, tip, lines] : cases) {
        file.call(u"MakeShortCut", {true, kDesktop, u"", target, u"s", tip});
        const std::string told = lnkinfo(content(u"C:\\Desk\\s.lnk"));
        EXPECT_NE(told.find(lines + "\n"), std::string::npos) << told;
    }
}
#endif

}  // namespace
}  // namespace quorkit::test
