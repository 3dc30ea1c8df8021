#include <gtest/gtest.h>
#include <quorkit/enumerations.h>
#include <quorkit/ports/faults.h>
#include <quorkit/ports/memory.h>

#include "support/late.h"
#include "support/scratch.h"

#ifndef _WIN32
#include <stdio.h>
#endif

namespace quorkit::test {
namespace {

/// Real files, and a system with a desktop among them.
class Shortcuts : public testing::Test {
   protected:
    Shortcuts() {
        world.system.specialFolders = {{CSIDL_DESKTOPDIRECTORY, scratch.name("Desktop")},
                                       {CSIDL_APPDATA, scratch.name("Data")},
                                       {CSIDL_FONTS, scratch.name("file\\Fonts")}};
        world.system.environment = {
            {u"windir", u"C:\\Windows"}, {u"here", scratch.name("")}, {u"loop", u"%loop%"}};
        scratch.write("file", "");
    }

    Scratch scratch;
    MemoryPorts world;
    FaultyFiles files{ports::native().files};
    Ports ports{files, world.drives, world.system, world.host};
    Late file{u"GQuorFile", ports};
};

TEST_F(Shortcuts, SpecialFoldersAreLookedAtOrMadeWhenToldSo) {
    const String data = scratch.name("Data");
    const String fonts = scratch.name("file\\Fonts");
    file.expect(u"GetSpecialFolder",
                {Row({CSIDL_NONE}, u""), Row({CSIDL_PRINTERS, true}, u""),
                 Row({CSIDL_APPDATA}, data), Row({CSIDL_APPDATA, false, true}, u"")});
    file.expect(u"GetSpecialFolderPath", {Row({spfAppdata}, u""), Row({Long{-1}}, u"")});
    file.expect(u"GetSpecialFolder",
                {Row({CSIDL_APPDATA, true, false}, data), Row({CSIDL_APPDATA, false, true}, data),
                 Row({CSIDL_FONTS, true, false}, u"")});
    file.expect(u"GetSpecialFolderPath", {Row({spfAppdata}, data), Row({spfFonts}, u"")});
}

TEST_F(Shortcuts, AreMadeAndRemoved) {
    const auto row = [](bool install, CSIDLS special, const String& folder, const String& name,
                        bool result) {
        return Row({install, special, folder, u"%windir%\\notepad.exe", name, u"Tip"}, result);
    };
    const auto desktop = CSIDL_DESKTOPDIRECTORY;
    file.expect(u"MakeShortCut", {row(true, desktop, u"\\Tools", u"Editor", true),
                                  row(true, desktop, u"\\Tools", u"Editor", true)});
    EXPECT_TRUE(exists(scratch.path("Desktop/Tools/Editor.lnk")));
    file.expect(u"MakeShortCut", {row(false, desktop, u"Tools\\", u"Editor", true),
                                  row(false, desktop, u"Tools", u"Editor", true)});
    EXPECT_TRUE(std::filesystem::is_empty(scratch.path("Desktop/Tools")));

    file.expect(
        u"MakeShortCut",
        {row(true, CSIDL_NONE, u"%here%\\a\\b\\", u"", true),
         row(true, desktop, u"", u"Tools\\x", true), row(true, desktop, u"", u"missing\\x", false),
         row(true, CSIDL_NONE, scratch.name("file\\sub"), u"x", false),
         row(true, CSIDL_NONE, u"%loop%", u"x", false), row(true, CSIDL_NONE, u"", u"x", false),
         row(true, CSIDL_FONTS, u"", u"x", false), row(false, CSIDL_FONTS, u"", u"x", false),
         row(true, desktop, u"", String(u"a\0b", 3), false)});
    EXPECT_TRUE(exists(scratch.path("a/b/.lnk")));
    EXPECT_TRUE(exists(scratch.path("Desktop/Tools/x.lnk")));
}

TEST_F(Shortcuts, SurviveEveryFailingOperation) {
    const auto make = [&](const char16_t* target) {
        return file(u"MakeShortCut", {true, CSIDL_DESKTOPDIRECTORY, u"", target, u"x", u"Tip"}) ==
               Variant(true);
    };
    ASSERT_TRUE(make(u"C:\\old"));
    const std::string before = scratch.read("Desktop/x.lnk");
    files.answer(static_cast<std::size_t>(-1), kSuccess);
    ASSERT_TRUE(make(u"C:\\new"));
    const std::size_t operations = files.calls();
    const std::string after = scratch.read("Desktop/x.lnk");
    ASSERT_NE(before, after);
    for (const bool exists : {true, false})
        for (std::size_t failing = 1; failing <= operations; ++failing) {
            std::filesystem::remove(scratch.path("Desktop/x.lnk"));
            if (exists) scratch.write("Desktop/x.lnk", before);
            files.answer(failing, kDiskFull);
            const bool made = make(u"C:\\new");
            const std::string found = scratch.read("Desktop/x.lnk");
            EXPECT_TRUE(found == after || found == (exists ? before : "")) << failing;
            EXPECT_LE(made, !found.empty()) << failing;
            files.answer(static_cast<std::size_t>(-1), kSuccess);
            EXPECT_TRUE(make(u"C:\\new"));
            EXPECT_EQ(scratch.read("Desktop/x.lnk"), after);
            EXPECT_EQ(
                std::distance(std::filesystem::directory_iterator(scratch.path("Desktop")), {}), 1);
        }
}

#ifndef _WIN32
/// What Debian's lnkinfo tells of a file, without tabs.
std::string lnkinfo(const std::filesystem::path& path) {
    FILE* pipe = popen(("LC_ALL=C.UTF-8 lnkinfo '" + path.string() + "'").c_str(), "r");
    std::string output;
    for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe))
        if (c != '\t') output += static_cast<char>(c);
    pclose(pipe);
    return output;
}

TEST_F(Shortcuts, AreReadByAnotherReader) {
    struct Case {
        const char16_t* target;
        const char16_t* tip;
        std::vector<std::string> lines;
    };
    const std::string unicode = "C:\\\u0416 \u00E4\\\u20AC.txt";
    const Case cases[] = {
        {u"%windir%\\notepad.exe",
         u"Edits texts",
         {"Drive type: Fixed (3)", "Drive serial number: 0x00abcdef",
          "Local path: C:\\Windows\\notepad.exe", "Description: Edits texts",
          "Environment variables location: C:\\Windows\\notepad.exe"}},
        {u"C:\\\u0416 \u00E4\\\u20AC.txt",
         u"\u20AC \u0416",
         {"Local path: " + unicode, "Description: \u20AC \u0416",
          "Environment variables location: " + unicode}},
        {u"\\\\srv\\share\\d\\\u0416.txt",
         u"x",
         {"Network path: \\\\srv\\share\\d\\\u0416.txt", "Description: x",
          "Environment variables location: \\\\srv\\share\\d\\\u0416.txt"}},
        {u"\\\\srv\\share", u"x", {"Network path: \\\\srv\\share"}},
        {u"", u"nowhere", {"Description: nowhere"}},
    };
    world.drives.drives[u"C:"].serialNumber = 0xABCDEF;
    for (const Case& one : cases) {
        file.expect(u"MakeShortCut",
                    {Row({true, CSIDL_NONE, scratch.name(""), one.target, u"s", one.tip}, true)});
        const std::string told = lnkinfo(scratch.path("s.lnk"));
        for (const std::string& line : one.lines)
            EXPECT_NE(told.find(line + "\n"), std::string::npos) << line << "\n" << told;
    }
    const String name = u"C:\\" + String(300, u'x');
    file.expect(
        u"MakeShortCut",
        {Row({true, CSIDL_NONE, scratch.name(""), name, u"s", String(32766, u'y') + u"\U0001D11E"},
             true)});
    const std::string told = lnkinfo(scratch.path("s.lnk"));
    EXPECT_NE(told.find("Local path: C:\\" + std::string(300, 'x') + "\n"), std::string::npos);
    EXPECT_NE(told.find("Description: " + std::string(32766, 'y') + "\n"), std::string::npos);
}
#endif

}  // namespace
}  // namespace quorkit::test
