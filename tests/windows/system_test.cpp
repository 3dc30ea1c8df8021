// The facts of the system, and the keys.
#include <gtest/gtest.h>
#include <quorkit/enumerations.h>
#include <quorkit/ports/memory.h>

#include "support/late.h"

namespace quorkit::test {
namespace {

TEST(OsVersion, IsClassifiedByItsRecord) {
    struct Case {
        std::uint32_t platform;
        std::uint32_t major;
        std::uint32_t minor;
        std::uint8_t product;
        std::uint16_t suites;
        String servicePack;
        String name;
        Long version;
        String said;
    };
    constexpr std::uint8_t workstation = 1;
    constexpr std::uint8_t server = 3;
    const String a(u"\t A \0\0", 6);
    for (const Case& one : std::vector<Case>{
             {0, 3, 10, 0, 0, u"", u"Win32s f\u00FCr Windows 3.x", 0, u""},
             {1, 9, 0, 0, 0, u"b", u"Windows 95 B", 1, u"B"},
             {1, 4, 0, 0, 0, u"", u"Windows 95", 1, u""},
             {1, 4, 0, 0, 0, u"D", u"Windows 95", 1, u""},
             {1, 4, 10, 0, 0, a, u"Windows 98 SE", 2, u"SE"},
             {1, 4, 10, 0, 0, u" \t", u"Windows 98", 2, u""},
             {1, 4, 10, 0, 0, u"B", u"Windows 98", 2, u""},
             {1, 4, 90, 0, 0, u"", u"Windows ME", 3, u""},
             {1, 4, 3, 0, 0, u"", u"", 0, u""},
             {2, 3, 51, 0, 0, u"", u"Windows NT 3.51", 4, u""},
             {2, 3, 1, 0, 0, u"", u"Windows NT 3.1", 4, u""},
             {2, 4, 0, workstation, 0, u"Service Pack 6", u"Windows NT 4.0 Workstation", 6, u"7"},
             {2, 4, 0, server, 0, u"Service Pack 6 ", u"Windows NT 4.0 Server", 7, u"7"},
             {2, 4, 0, workstation, 0, u"Service Pack 6a", u"Windows NT 4.0", 5, u"a"},
             {2, 4, 0, workstation, 0, u"Service Pack 3", u"Windows NT 4.0", 5, u"3"},
             {2, 4, 0, workstation, 0, u"", u"Windows NT 4.0", 5, u""},
             {2, 5, 0, workstation, 0x82, u"", u"Windows 2000 Professional", 8, u"7"},
             {2, 5, 0, server, 0x82, u"", u"Windows 2000 Advanced Server", 10, u"7"},
             {2, 5, 0, server, 0x80, u"", u"Windows 2000 Datacenter Server", 11, u"7"},
             {2, 5, 0, server, 0, u"", u"Windows 2000 Server", 9, u"7"},
             {2, 5, 1, workstation, 0x300, u"", u"Windows XP Home Edition", 12, u"7"},
             {2, 5, 1, workstation, 0x100, u"", u"Windows XP Professional", 13, u"7"},
             {2, 5, 1, server, 0x200, u"", u"", 0, u"7"},
             {2, 5, 2, workstation, 0x82, u"", u"Windows 2003 Datacenter Server", 15, u"7"},
             {2, 5, 2, server, 0x02, u"", u"Windows 2003 Enterprise Server", 16, u"7"},
             {2, 5, 2, server, 0, u"", u"Windows 2003 Server", 14, u"7"},
             {2, 5, 3, server, 0, u"", u"Neue, unbekannte Windows-Version", 99, u"7"},
             {2, 10, 0, server, 0, u"Service Pack 1", u"Neue, unbekannte Windows-Version", 99, u""},
             {4, 6, 1, 0, 0, u"", u"Unbekannte Version", 0, u""},
         }) {
        MemoryPorts world;
        world.system.version = {one.major, one.minor,  one.platform, one.servicePack,
                                7,         one.suites, one.product};
        Late(u"GQuorWindows", world)
            .expect(u"GetOSVersion",
                    {{{u"x", Long{5}, u"x"}, {true, one.name, one.version, one.said}}});
    }
}

TEST(OsVersion, FallsBackOnTheShortRecord) {
    MemoryPorts world;
    Late windows(u"GQuorWindows", world);
    world.system.version = {5, 1, 2, u"", 2, 0x200, 1};
    world.system.shortRecordOnly = true;
    windows.expect(u"GetOSVersion", {{{u"", Long{}, u""}, {true, u"", Long{0}, u"0"}}});
    world.system.version.reset();
    windows.expect(u"GetOSVersion", {{{u"x", Long{5}, u"x"}, {false, u"", Long{0}, u""}}});
}

TEST(SystemLanguage, AndCountry) {
    MemoryPorts world;
    Late windows(u"GQuorWindows", world);
    const auto says = [&](LanguageIdentifier user, LanguageIdentifier system, Long language) {
        world.system.userLanguage = user;
        world.system.systemLanguage = system;
        EXPECT_EQ(windows(u"GetOSLanguage"), Variant(language));
    };
    says(2055, 1033, eLanguage_German);
    says(0, 1036, eLanguage_French);
    says(0, 0, eLanguage_Unknown);
    using Code = std::optional<String>;
    for (const auto& [code, number] : std::vector<std::pair<Code, Long>>{
             {u"41", 41}, {u" 1x", 1}, {u"", 0}, {u"99999999999", 0}, {{}, 0}}) {
        world.system.diallingCode = code;
        EXPECT_EQ(windows(u"GetSystemCountryCode"), Variant(number));
    }
#ifndef _WIN32
    Late(u"GQuorWindows")
        .expect(u"GetOSVersion",
                {{{u"", Long{}, u""}, {true, u"Unbekannte Version", Long{0}, u""}}});
#endif
}

TEST(Keyboard, KeepsAByteForEachKey) {
    MemoryPorts world;
    Late keyboard(u"GQuorKeyboard", world);
    KeyStates& states = world.keyboard.states;
    EXPECT_EQ(keyboard.get(u"ScrollLock"), Variant(false));
    keyboard.let(u"ScrollLock", true);
    EXPECT_EQ(states[145], kKeyOn);
    EXPECT_EQ(keyboard.get(u"ScrollLock"), Variant(true));
    states[16] = kKeyDown;
    states[17] = kKeyDown | kKeyOn;
    EXPECT_EQ(keyboard.get(u"ShiftKeyDown"), Variant(true));
    EXPECT_EQ(keyboard.get(u"ControlKeyDown"), Variant(true));
    keyboard(u"SetKeyState", {Integer{16}, false});
    keyboard(u"SetKeyState", {Integer{17}, true});
    EXPECT_EQ(states[16], 0);
    EXPECT_EQ(states[17], kKeyOn);
    EXPECT_EQ(keyboard.get(u"ShiftKeyDown"), Variant(false));
    EXPECT_EQ(keyboard.get(u"ControlKeyDown"), Variant(false));
    const KeyStates before = states;
    for (const Integer key : {Integer{256}, Integer{-1}})
        EXPECT_EQ(keyboard.errorOf(u"SetKeyState", {key, true}), 9);
    EXPECT_EQ(states, before);
}

}  // namespace
}  // namespace quorkit::test
