// Windows, keys and the wait window on a real X server with a real window manager, checked by
// wmctrl, xprop, xdotool and xwininfo.
#ifndef _WIN32
#include <gtest/gtest.h>
#include <quorkit/ports/desktop.h>
#include <quorkit/ports/host.h>
#include <quorkit/ports/keyboard.h>
#include <quorkit/ports/ports.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>

#include "support/late.h"
#include "support/shell.h"
#include "support/x_peer.h"
#include "support/x_server.h"

namespace quorkit::test {
namespace {

/// The output of a shell command without its last line end.
std::string answerOf(const std::string& command) {
    std::string text = outputOf(command);
    if (text.ends_with('\n')) text.pop_back();
    return text;
}

/// A program that ends with the object.
class Client {
   public:
    explicit Client(const std::string& command) : process_(fork()) {
        if (process_ != 0) return;
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        execl("/bin/sh", "sh", "-c", ("exec " + command + " >/dev/null 2>&1").c_str(), nullptr);
        _exit(127);
    }
    ~Client() {
        kill(process_, SIGTERM);
        wait();
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    bool hasEnded() {
        if (!ended_) ended_ = waitpid(process_, nullptr, WNOHANG) == process_;
        return ended_;
    }

   private:
    void wait() {
        if (!hasEnded()) waitpid(process_, nullptr, 0);
    }
    pid_t process_;
    bool ended_ = false;
};

/// The command for an xterm with a fixed title.
std::string terminal(const std::string& title, const std::string& more = {}) {
    return "env LC_ALL=C.UTF-8 xterm -T '" + title + "' " + more + " -e sleep 1000";
}

class LinuxDesktop : public testing::Test {
   protected:
    XServer server;
    std::optional<Client> manager;
    Desktop& desktop = ports::native().desktop;
    Late windows{u"GQuorWindows"};

    void startManager() {
        manager.emplace("openbox --sm-disable");
        ASSERT_TRUE(comesTrue([] { return !answerOf("wmctrl -m").empty(); }));
    }
    /// Waits for a window and returns its handle.
    WindowHandle windowOf(const String& title) {
        WindowHandle found = 0;
        EXPECT_TRUE(comesTrue([&] { return (found = desktop.FindWindowA({}, title)) != 0; }));
        return found;
    }
    static bool hasState(WindowHandle window, const std::string& state) {
        return answerOf("xprop -id " + std::to_string(window) + " _NET_WM_STATE").find(state) !=
               std::string::npos;
    }
};

TEST_F(LinuxDesktop, FindsTheWindowsOfPrograms) {
    startManager();
    const Client first(terminal("Nötiz \xE2\x82\xAC", "-class Editor -name edit"));
    const WindowHandle below = windowOf(u"n\u00D6tiz \u20AC");
    const Client second(terminal("second", "-class Editor"));
    const WindowHandle above = windowOf(u"second");
    ASSERT_TRUE(comesTrue([&] { return desktop.FindWindowA(u"editor", {}) == above; }));
    EXPECT_EQ(desktop.FindWindowA(u"EDIT", {}), below);
    EXPECT_EQ(desktop.FindWindowA(u"Editor", u"n\u00F6tiz \u20AC"), below);
    EXPECT_EQ(std::to_string(below), answerOf("xdotool search --name 'Nötiz'"));
    EXPECT_EQ(desktop.GetWindowTextA(below), u"N\u00F6tiz \u20AC");
    windows.expect(u"WinFindWindowByPartOfTitle", {{{u"tiz"}, below}, {{u"e"}, above}});

    const auto visible = [&](WindowHandle window) {
        const auto all = desktop.EnumWindows();
        const auto found = std::ranges::find(all, window, &WindowInfo::handle);
        return found != all.end() && found->visible;
    };
    EXPECT_TRUE(visible(below));
    answerOf("xdotool windowminimize --sync " + std::to_string(below));
    EXPECT_TRUE(visible(below));
    answerOf("wmctrl -a second");
    ASSERT_TRUE(comesTrue([&] { return desktop.EnumWindows().front().handle == above; }));
    answerOf("xdotool windowactivate --sync " + std::to_string(below));
    EXPECT_TRUE(comesTrue([&] { return desktop.EnumWindows().front().handle == below; }));

    for (const WindowHandle none : {0, -1, 0x7FFFFFFF}) {
        EXPECT_FALSE(desktop.IsWindow(none));
        EXPECT_EQ(desktop.GetWindowTextA(none), u"");
        EXPECT_FALSE(desktop.SetTopmost(none, true));
        EXPECT_FALSE(desktop.PostMessageA(none, WindowMessage::Close));
    }
}

TEST_F(LinuxDesktop, PinsAndClosesThem) {
    startManager();
    Client client(terminal("pinned", "-class Pinned"));
    const WindowHandle window = windowOf(u"pinned");
    windows.expect(u"SetTopMostWindow", {{{window, true}, Long{1}}});
    EXPECT_TRUE(comesTrue([&] { return hasState(window, "ABOVE"); }));
    windows.expect(u"SetTopMostWindow", {{{window, false}, Long{0}}});
    EXPECT_TRUE(comesTrue([&] { return !hasState(window, "ABOVE"); }));
    windows.expect(u"WinTerminateProgram", {{{u"Pinned"}, Long{1}}});
    EXPECT_TRUE(comesTrue([&] { return client.hasEnded() && !desktop.IsWindow(window); }));
    windows.expect(u"WinTerminateProgram", {{{u"Pinned"}, Long{-1}}});
}

/// The test's own windows, and a list of them such as a window manager keeps.
class OwnWindows : public LinuxDesktop {
   protected:
    XPeer peer;
    const xcb_window_t root = peer.connection.root();

    xcb_window_t make(const std::string& title, xcb_window_t parent) {
        const xcb_window_t window = xcb_generate_id(peer.connection.get());
        xcb_create_window(peer.connection.get(), XCB_COPY_FROM_PARENT, window, parent, 0, 0, 9, 9,
                          0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        if (title.empty()) return window;
        setText(window, "WM_NAME", XCB_ATOM_STRING, title);
        peer.put(window, peer.atom("WM_STATE"), peer.atom("WM_STATE"), 32, {1, 0});
        return window;
    }
    void setText(xcb_window_t window, const char* property, xcb_atom_t type,
                 const std::string& text) {
        xcb_change_property(peer.connection.get(), XCB_PROP_MODE_REPLACE, window,
                            peer.atom(property), type, 8, static_cast<std::uint32_t>(text.size()),
                            text.data());
    }
    void map(xcb_window_t window) { xcb_map_window(peer.connection.get(), window); }
    /// Title and visibility of all windows, the topmost first.
    std::vector<std::pair<String, bool>> seen() {
        peer.window.serverTime();  // the server has carried out all requests
        std::vector<std::pair<String, bool>> all;
        for (const WindowInfo& one : desktop.EnumWindows())
            all.emplace_back(one.title, one.visible);
        return all;
    }
    using Seen = std::vector<std::pair<String, bool>>;
};

TEST_F(OwnWindows, AreThoseOfTheListThatAreThere) {
    const xcb_window_t first = make("first", root);
    const xcb_window_t second = make("second", root);
    const xcb_window_t gone = make("gone", root);
    map(first);
    xcb_destroy_window(peer.connection.get(), gone);
    peer.put(root, peer.atom("_NET_CLIENT_LIST_STACKING"), XCB_ATOM_WINDOW, 32,
             {first, gone, second});
    // A list left by a window manager that has died does not count.
    const xcb_window_t keeper = make("", root);
    peer.put(root, peer.atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW, 32, {keeper});
    EXPECT_EQ(seen().size(), 4u);  // all of the test's own
    peer.put(keeper, peer.atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW, 32, {keeper});
    EXPECT_EQ(seen(), (Seen{{u"second", false}, {u"first", true}}));
    windows.expect(u"WinFindWindowByPartOfTitle",
                   {{{u"s", true, true, true}, Long{0}}, {{u"s", false, true, true}, Long(first)}});
    windows.expect(u"WinFindWindowByClassName", {{{u""}, Long{0}}});

    setText(first, "_NET_WM_NAME", peer.atom("UTF8_STRING"), "\xC3\xA4" + std::string(5000, 'x'));
    setText(second, "_NET_WM_NAME", peer.atom("UTF8_STRING"),
            "x" + std::string(4094, 'x') + "\xC3\xA4 and more");
    EXPECT_EQ(seen(), (Seen{{String(4095, u'x'), false}, {u'\u00E4' + String(4094, u'x'), true}}));
}

TEST_F(OwnWindows, StandInNamelessFramesWhereNobodyKeepsAList) {
    for (const char* title : {"below", "above"}) {
        const xcb_window_t frame = make("", root);
        map(make("", frame));
        map(make(title, frame));
        map(frame);
    }
    Seen expected{{u"above", true}, {u"below", true}};
    Seen found = seen();
    std::erase_if(found, [](const auto& one) { return one.first.empty(); });
    EXPECT_EQ(found, expected);
}

TEST_F(OwnWindows, KnowsTheScreenWithAndWithoutPanels) {
    ScreenArea area;
    for (const bool told : {false, true}) {  // nonsense
        if (told)
            peer.put(root, peer.atom("_NET_WORKAREA"), XCB_ATOM_CARDINAL, 32,
                     {0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF, 1});
        peer.window.serverTime();
        EXPECT_TRUE(desktop.WorkArea(area));
        EXPECT_EQ(area, (ScreenArea{0, 0, 1280, 1024}));
    }
    // Without a window manager windows are the root's children.
    const Client client(terminal("bare"));
    EXPECT_TRUE(desktop.IsWindow(windowOf(u"bare")));
    startManager();
    const Client panel("xterm -T panel -name panel");
    const std::string id = std::to_string(windowOf(u"panel"));
    answerOf("xprop -id " + id + " -f _NET_WM_STRUT 32c -set _NET_WM_STRUT '30, 0, 0, 40'");
    EXPECT_TRUE(comesTrue([&] {
        return desktop.WorkArea(area) && area == ScreenArea{30, 0, 1280, 984};
    }));
}

TEST_F(LinuxDesktop, FollowsTheKeyboard) {
    Late keyboard(u"GQuorKeyboard");
    EXPECT_EQ(keyboard.get(u"ShiftKeyDown"), Variant(false));
    answerOf("xdotool keydown Shift_R");
    answerOf("xdotool keydown Control_L");
    answerOf("xdotool keydown a");
    EXPECT_EQ(keyboard.get(u"ShiftKeyDown"), Variant(true));
    EXPECT_EQ(keyboard.get(u"ControlKeyDown"), Variant(true));
    EXPECT_EQ(ports::native().keyboard.GetKeyState('A'), kKeyDown);
    // A state that is set holds until the key moves, and only for this thread.
    keyboard(u"SetKeyState", {Integer{16}, false});
    EXPECT_EQ(keyboard.get(u"ShiftKeyDown"), Variant(false));
    std::thread([&] { EXPECT_EQ(ports::native().keyboard.GetKeyState(16), kKeyDown); }).join();
    answerOf("xdotool keyup Shift_R keyup Control_L keyup a");
    EXPECT_EQ(keyboard.get(u"ControlKeyDown"), Variant(false));
    answerOf("xdotool keydown Shift_R");
    EXPECT_EQ(keyboard.get(u"ShiftKeyDown"), Variant(true));
    answerOf("xdotool keyup Shift_R");
    XPeer peer;
    for (const bool lit : {true, false}) {
        const std::array<std::uint32_t, 2> light = {3, lit ? 1u : 0u};
        xcb_change_keyboard_control(peer.connection.get(), XCB_KB_LED | XCB_KB_LED_MODE,
                                    light.data());
        peer.window.serverTime();
        EXPECT_EQ(keyboard.get(u"ScrollLock"), Variant(lit));
    }
    keyboard.let(u"ScrollLock", true);
    EXPECT_EQ(keyboard.get(u"ScrollLock"), Variant(true));
}

TEST_F(LinuxDesktop, ShowsTheWaitWindowAtOnce) {
    startManager();
    const auto shown = [] { return answerOf("xdotool search --onlyvisible --class Quorkit"); };
    windows(u"WinShowWaitForm", {true});
    const std::string window = shown();
    EXPECT_NE(window, "");
    EXPECT_EQ(answerOf("xdotool getwindowname " + window), "Bitte warten...");
    windows(u"WinShowWaitForm", {true, Long{4}});
    EXPECT_EQ(shown(), window);
    EXPECT_EQ(answerOf("xdotool getwindowname " + window), "Please wait...");
    // A minimized window is restored, and the wait window is shown above it.
    answerOf("xdotool windowminimize --sync " + window);
    ASSERT_EQ(shown(), "");
    const Client client(terminal("owner"));
    const WindowHandle owner = windowOf(u"owner");
    windows(u"WinShowWaitForm", {true, Long{4}, owner});
    EXPECT_EQ(shown(), window);
    const auto ownerShown = [&] { return answerOf("xprop -id " + window + " WM_TRANSIENT_FOR"); };
    EXPECT_NE(ownerShown().find("window id"), std::string::npos);
    windows(u"WinShowWaitForm", {true});
    EXPECT_EQ(ownerShown().find("window id"), std::string::npos);
    windows(u"WinShowWaitForm", {false});
    EXPECT_TRUE(comesTrue([&] { return shown().empty(); }));
}

TEST(NoDisplay, AnswersAsStated) {
    const Variable display("DISPLAY", std::nullopt);
    Late windows(u"GQuorWindows");
    windows.expect(u"WinFindWindowByPartOfTitle", {{{u""}, Long{0}}});
    windows.expect(u"WinFindWindowByTitle", {{{u""}, Long{0}}});
    windows.expect(u"SetTopMostWindow", {{{Long{1}, true}, Long{0}}});
    windows.expect(u"WinTerminateProgram", {{{u"x"}, Long{-1}}});
    windows.expect(u"WinGetWindowTitle", {{{Long{1}}, u""}});
    windows.expect(u"getWorkingScreenSize",
                   {{{Long{1}, 5.0, 5.0, 5.0, 5.0}, {Variant(), 0.0, 0.0, 0.0, 0.0}}});
    EXPECT_NE(ports::takeReason().find("DISPLAY is not set"), std::string::npos);
    EXPECT_EQ(ports::takeReason(), "");
    windows(u"WinShowWaitForm", {true});
    windows(u"WinShowWaitForm", {false});
    Late keyboard(u"GQuorKeyboard");
    keyboard(u"SetKeyState", {Integer{16}, true});
    EXPECT_EQ(ports::native().keyboard.GetKeyState(16), kKeyOn);
    keyboard(u"SetKeyState", {Integer{16}, false});
}

}  // namespace
}  // namespace quorkit::test
#endif
