// Finding and closing windows, the screen, positions of forms, the library's own windows.
#include <gtest/gtest.h>
#include <quorkit/enumerations.h>
#include <quorkit/ports/memory.h>

#include "rpc/property_object.h"
#include "support/late.h"

namespace quorkit::test {
namespace {

class WindowsTest : public testing::Test {
   protected:
    MemoryPorts world;
    Late windows{u"GQuorWindows", world};

    /// Puts a window below all others.
    void add(WindowHandle handle, String title, bool visible, String className) {
        MemoryDesktop::Window& added = world.desktop.windows.emplace_back();
        added.info = {handle, std::move(title), visible};
        added.className = std::move(className);
    }
};

TEST_F(WindowsTest, FindsWindowsFromTheTopDown) {
    add(1, u"", true, u"Shell");
    add(2, u"My Notes", false, u"Editor");
    add(3, u"Notes of today", true, u"Editor");
    add(4, String(300, u'x') + u"end", true, u"");
    windows.expect(u"WinFindWindowByClassName",
                   {{{u"EDITOR"}, Long{2}}, {{u"Edit"}, Long{0}}, {{u""}, Long{0}}});
    windows.expect(u"WinFindWindowByTitle",
                   {{{u"notes of TODAY"}, Long{3}}, {{u"Notes"}, Long{0}}, {{u""}, Long{1}}});
    windows.expect(u"WinFindWindowByPartOfTitle",
                   {
                       {{u"Notes"}, Long{2}},
                       {{u"notes"}, Long{0}},
                       {{u"notes", false, false}, Long{2}},
                       {{u"Notes", true}, Long{3}},
                       {{u"notes", u"True", 0.0, Integer{1}}, Long{3}},
                       {{u"Notes", false, true, true}, Long{3}},
                       {{u""}, Long{2}},
                       {{u"", true, true, true}, Long{3}},
                       {{u"xend"}, Long{0}},
                       {{u"Notes", u"perhaps"}, Error{13}},
                   });
    windows.expect(u"WinGetWindowTitle", {{{Long{3}}, u"Notes of today"},
                                          {{u"4"}, String(254, u'x')},
                                          {{Long{9}}, u""},
                                          {{u"x"}, Error{13}}});
}

TEST_F(WindowsTest, PinsAndClosesThem) {
    add(1, u"A", true, u"Polite");
    add(2, u"B", true, u"Deaf");
    world.desktop.windows[1].takesMessages = false;
    windows.expect(u"SetTopMostWindow", {{{Long{1}, true}, Long{1}}, {{Long{9}, true}, Long{0}}});
    EXPECT_TRUE(world.desktop.windows[0].topmost);
    windows.expect(u"SetTopMostWindow", {{{Long{1}, false}, Long{0}}});
    EXPECT_FALSE(world.desktop.windows[0].topmost);
    windows.expect(u"WinTerminateProgram",
                   {{{u"polite"}, Long{1}}, {{u"Deaf"}, Long{0}}, {{u"None"}, Long{-1}}});
    EXPECT_EQ(
        world.desktop.windows[0].posted,
        (std::vector{WindowMessage::CancelMode, WindowMessage::SetFocus, WindowMessage::Close}));
}

TEST_F(WindowsTest, MeasuresTheScreen) {
    const auto area = [](Double left, Double top, Double right, Double bottom) {
        return std::vector<Variant>{Variant(), left, top, right, bottom};
    };
    const auto size = [](Long unit) { return std::vector<Variant>{unit, 1.0, 1.0, 1.0, 1.0}; };
    windows.expect(u"getWorkingScreenSize", {{size(eUnits_Twips), area(0, 0, 28800, 15600)}});
    world.desktop.workArea = ScreenArea{10, 20, 1920, 1040};
    windows.expect(u"getWorkingScreenSize", {{size(eUnits_Points), area(7.5, 15, 1440, 780)},
                                             {size(eUnits_Pixels), area(10, 20, 1920, 1040)},
                                             {size(7), area(10, 20, 1920, 1040)}});
}

/// A form in the area 0 ... 1440 x 0 ... 780, over an application at 100, 50 of 801 x 600.
class FormPositions : public WindowsTest {
   protected:
    static ObjectRef object(Double left, Double top, Double width, Double height) {
        return std::make_shared<rpc::PropertyObject>(
            std::vector<rpc::PropertyObject::Property>{{u"Name", u"frmA"},
                                                       {u"Left", left},
                                                       {u"Top", top},
                                                       {u"Width", width},
                                                       {u"Height", height}});
    }
    static std::vector<Double> edges(const ObjectRef& form) {
        std::vector<Double> result;
        for (const char16_t* name : {u"Left", u"Top", u"Width", u"Height"})
            result.push_back(form->call(name, CallKind::Get).get<Double>());
        return result;
    }
    void note(Double left, Double top, Double width, Double height) {
        windows(u"SaveVBAUserFormPosition",
                {u"HKCU\\Forms", object(left, top, width, height), false});
    }
    std::vector<Double> load(bool onlyPosition, Double width = 200, Double height = 100) {
        const ObjectRef form = object(1, 2, width, height);
        windows(u"LoadVBAUserFormPosition",
                {u"HKCU\\Forms", form, object(100, 50, 801, 600), onlyPosition});
        return edges(form);
    }
    using Edges = std::vector<Double>;
};

TEST_F(FormPositions, AreNotedAndFoundAgain) {
    EXPECT_EQ(load(true), (Edges{400, 300, 200, 100}));
    note(30.9, -1.5, 300, 150);
    EXPECT_EQ(load(true), (Edges{30, -2, 200, 100}));
    EXPECT_EQ(load(false), (Edges{30, -2, 300, 150}));
    Late registry(u"GQuorRegistry", world);
    EXPECT_EQ(registry(u"Reg_ReadDWordValue", {u"HKCU\\Forms\\frmA_Position", u"Left"}),
              Variant(Long{30}));
    note(-10, 40, 300, 150);
    EXPECT_EQ(load(true), (Edges{400, 300, 200, 100}));
    note(-9, -3, -1, 150);
    EXPECT_EQ(load(false), (Edges{0, -3, 200, 100}));
    note(1246, 686, 0, 0);
    EXPECT_EQ(load(true), (Edges{1246, 686, 200, 100}));
    note(1247, 687, 0, 0);
    EXPECT_EQ(load(true), (Edges{1240, 680, 200, 100}));
    EXPECT_EQ(load(true, 2000), (Edges{-560, 680, 2000, 100}));
    world.desktop.workArea.reset();  // without a screen it stays where it was stored
    EXPECT_EQ(load(true, 2000), (Edges{1247, 687, 2000, 100}));
}

TEST_F(FormPositions, FailuresEndAMemberQuietly) {
    const auto poor = std::make_shared<rpc::PropertyObject>(
        std::vector<rpc::PropertyObject::Property>{{u"Name", u"frmP"}, {u"Left", 5.0}});
    windows(u"SaveVBAUserFormPosition", {u"HKCU\\Forms", poor});
    Late registry(u"GQuorRegistry", world);
    registry.expect(u"Reg_ReadDWordValue",
                    {{{u"HKCU\\Forms\\frmP_Position", u"Left"}, Long{5}},
                     {{u"HKCU\\Forms\\frmP_Position", u"Top", Long{-7}}, Long{-7}}});
    windows(u"LoadVBAUserFormPosition", {u"HKCU\\Forms", poor, ObjectRef()});
    windows(u"LoadVBAUserFormPosition", {u"HKCU\\Forms", ObjectRef(), poor});
    const ObjectRef form = object(0, 0, 11, 20);
    windows(u"CenterUserFormInApplication", {form, object(0, 0, 10, 10)});
    EXPECT_EQ(edges(form), (Edges{-1, -5, 11, 20}));
}

TEST_F(WindowsTest, ShowsItsOwn) {
    MemoryHost& host = world.host;
    const auto shows = [&](std::vector<Variant> arguments, const char16_t* text,
                           WindowHandle owner = 0) {
        windows(u"WinShowWaitForm", std::move(arguments));
        EXPECT_EQ(host.waitText, String(text));
        EXPECT_EQ(host.waitOwner, owner);
        EXPECT_EQ(host.pointer, Pointer::Hourglass);
    };
    shows({true}, u"Bitte warten...");
    shows({true, Long{2}}, u"Attendre s.v.p.");
    shows({true, Long{3}, Long{77}}, u"Aspettare p.f.", 77);
    shows({true, Long{4}, u"no window"}, u"Please wait...");
    shows({true, Long{eLanguage_System}}, u"Please wait...");
    shows({true, Long{0}}, u"Please wait...");
    host.events = {[] { raise(ErrorNumber::Overflow); }};
    windows(u"WinShowWaitForm", {false});
    EXPECT_FALSE(host.waitText);
    EXPECT_EQ(host.pointer, Pointer::Default);
    EXPECT_EQ(host.eventRounds, 7);
    windows(u"ShowAboutDialog");
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_TRUE(host.messages[0].text.starts_with(u"quorkit 0."));
    EXPECT_NE(host.messages[0].text.find(u"\nBuild: "), String::npos);
}

}  // namespace
}  // namespace quorkit::test
